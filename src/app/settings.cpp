// The desktop program's settings beyond velmora.cfg, kept in velmora.ini.
#include "app/settings.h"

#include <cerrno>
#include <iterator>
#include <optional>
#include <string_view>
#include <vector>

#include "files/text_file.h"
#include "model/file_names.h"

namespace velmora {
namespace {

// The file holds a few short lines; anything longer is damage, never read.
constexpr long long kMaxFileSize = 64 * 1024;

// One key of the file: where it lives, its value's text, and reading a text
// back (a text that is none of its values leaves the setting as it was).
struct Key {
  const char* section;
  const char* name;
  std::string (*text)(const Settings&);
  void (*read)(const std::string&, Settings&);
};

template <bool Settings::*flag>
constexpr Key Flag(const char* section, const char* name) {
  return {section, name, [](const Settings& s) -> std::string { return s.*flag ? "true" : "false"; },
          [](const std::string& text, Settings& s) {
            if (text == "true" || text == "false") s.*flag = text == "true";
          }};
}

const Key kKeys[] = {
    {"Options", "Size", [](const Settings& s) -> std::string { return kTextSizeNames[s.textSize]; },
     [](const std::string& text, Settings& s) {
       for (size_t i = 0; i < std::size(kTextSizeNames); ++i) {
         if (text == kTextSizeNames[i]) s.textSize = static_cast<TextSize>(i);
       }
     }},
    Flag<&Settings::shadeFits>("Assist", "ShadeFits"),
    Flag<&Settings::markGivens>("Assist", "MarkGivens"),
    Flag<&Settings::optionsInCells>("Assist", "OptionsInCells"),
    Flag<&Settings::keepBoards>("Assist", "KeepBoards"),
};

std::string_view Trim(std::string_view text) {
  const size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// The section a "[Name]" line opens.
std::optional<std::string_view> SectionOf(std::string_view line) {
  line = Trim(line);
  if (line.size() < 2 || line.front() != '[' || line.back() != ']') return std::nullopt;
  return line.substr(1, line.size() - 2);
}

bool IsComment(std::string_view line) {
  line = Trim(line);
  return line.empty() || line.front() == ';' || line.front() == '#';
}

// Blank lines, comments, section heads and "key=value" lines, without control
// characters: anything else is not an INI file.
bool WellFormed(std::string_view line) {
  for (const char c : line) {
    if (static_cast<unsigned char>(c) < 0x20 && c != '\t') return false;
  }
  return IsComment(line) || SectionOf(line) || line.find('=') != std::string_view::npos;
}

// The lines of the file as they are, to be written back with changes.
struct IniFile {
  std::vector<std::string> lines;
  bool usable = false;  // read whole and well formed, or missing
};

IniFile ReadIni(const std::string& path) {
  IniFile ini;
  LineReader reader(path);
  if (!reader.IsOpen()) {
    ini.usable = reader.error() == ENOENT;
    return ini;
  }
  FileStamp stamp;
  if (!reader.Stamp(stamp) || stamp.size > kMaxFileSize) return ini;
  std::string line;
  while (reader.Tell() <= kMaxFileSize && reader.ReadLine(line)) {
    if (!WellFormed(line)) return ini;
    ini.lines.push_back(line);
  }
  ini.usable = reader.error() == 0 && reader.Tell() <= kMaxFileSize && reader.AtEnd();
  return ini;
}

// Calls `visit(index, key)` for each line of the file that holds `key`.
template <typename Visit>
void ForEachValue(const IniFile& ini, Visit visit) {
  std::string_view section;
  for (size_t i = 0; i < ini.lines.size(); ++i) {
    const std::string_view line = ini.lines[i];
    if (const auto head = SectionOf(line)) {
      section = *head;
      continue;
    }
    if (IsComment(line)) continue;
    const std::string_view name = Trim(line.substr(0, line.find('=')));
    for (const Key& key : kKeys) {
      if (section == key.section && name == key.name) visit(i, key);
    }
  }
}

// Qt quoted only values with blanks or signs at their ends, which no setting has.
std::string ValueOf(std::string_view line) { return std::string(Trim(line.substr(line.find('=') + 1))); }

Settings SettingsOf(const IniFile& ini) {
  Settings s;
  if (ini.usable) ForEachValue(ini, [&](size_t i, const Key& key) { key.read(ValueOf(ini.lines[i]), s); });
  return s;
}

// Sets `key` where the file has it; else adds it at the end of its section,
// or adds the section at the end of the file.
void SetValue(IniFile& ini, const Key& key, const std::string& text) {
  const std::string line = std::string(key.name) + "=" + text;
  bool found = false;
  ForEachValue(ini, [&](size_t i, const Key& k) {
    if (&k == &key) ini.lines[i] = line, found = true;
  });
  if (found) return;
  std::optional<size_t> last;  // the last line of the key's section that is not blank
  std::string_view section;
  for (size_t i = 0; i < ini.lines.size(); ++i) {
    if (const auto head = SectionOf(ini.lines[i])) section = *head;
    if (section == key.section && !Trim(ini.lines[i]).empty()) last = i;
  }
  if (last) {
    ini.lines.insert(ini.lines.begin() + static_cast<std::ptrdiff_t>(*last + 1), line);
    return;
  }
  if (!ini.lines.empty() && !Trim(ini.lines.back()).empty()) ini.lines.emplace_back();
  ini.lines.push_back("[" + std::string(key.section) + "]");
  ini.lines.push_back(line);
}

}  // namespace

Settings LoadSettings(const std::string& appFolder) {
  return SettingsOf(ReadIni(appFolder + kSettingsFileName));
}

bool ChangeSettings(const std::string& appFolder, const std::function<void(Settings&)>& change) {
  // LockedFile refuses a pipe or a device before opening it.
  LockedFile file(appFolder + kSettingsFileName, true);
  if (!file.ok()) return false;
  IniFile ini = ReadIni(file.path());
  // A damaged file of settings is made anew, as the configuration is: else
  // every change would be lost at every start.
  if (!ini.usable) ini = IniFile{{}, true};
  const Settings before = SettingsOf(ini);
  Settings after = before;
  change(after);
  bool changed = false;
  for (const Key& key : kKeys) {
    if (key.text(after) == key.text(before)) continue;
    SetValue(ini, key, key.text(after));
    changed = true;
  }
  if (!changed) return true;
  // QSettings wrote LF line ends; a file stays as earlier versions would have written it.
  std::string text;
  for (const std::string& line : ini.lines) text += line + "\n";
  return file.Replace(text);
}

}  // namespace velmora
