// Named colour schemes in all.col: reading, listing, adding, replacing, deleting.
#include "appearance/color_scheme.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "files/text_file.h"
#include "model/text.h"

namespace velmora {
namespace {

constexpr int kSchemeLines = 13;
// Some hundred bytes a scheme: a file far longer is damaged and is not read.
constexpr long long kMaxSchemeFileBytes = 16 << 20;

// A field's numeric value (text that is no number counts 0), kept to 0..255.
int Channel(std::string_view field) {
  const double v = Val(field);
  return v < 0 ? 0 : (v > 255 ? 255 : static_cast<int>(std::nearbyint(v)));
}

// " 10; 20; 30" -> Rgb(10, 20, 30); false when a field is missing.
bool ParseColorLine(const std::string& line, uint32_t& color) {
  const size_t a = line.find(';');
  const size_t b = a == std::string::npos ? a : line.find(';', a + 1);
  if (b == std::string::npos) return false;
  const std::string_view text(line);
  const size_t c = line.find(';', b + 1);
  color = Rgb(Channel(text.substr(0, a)), Channel(text.substr(a + 1, b - a - 1)),
              Channel(text.substr(b + 1, c == std::string::npos ? std::string_view::npos : c - b - 1)));
  return true;
}

std::string ColorLine(uint32_t color) {
  return Str(RedOf(color)) + ";" + Str(GreenOf(color)) + ";" + Str(BlueOf(color));
}

bool ReadLines(const std::string& path, std::vector<std::string>& lines) {
  LineReader reader(path, kMaxSchemeFileBytes);
  if (!reader.IsOpen()) return false;
  std::string line;
  while (reader.ReadLine(line)) lines.push_back(line);
  return reader.error() == 0;
}

// The old colour lines after a name line at `i`: up to 13, but a short
// scheme never swallows the name line of the next one.
size_t OldColorLines(const std::vector<std::string>& lines, size_t i) {
  size_t n = 0;
  while (n < kSchemeLines && i + 1 + n < lines.size() &&
         lines[i + 1 + n].find(kSchemeExtension) == std::string::npos)
    ++n;
  return n;
}

// The new contents go to the work file first, then replace the scheme file,
// whose lock the caller holds since it read the file.
bool Rewrite(LockedFile& schemeFile, const std::string& workFile, const std::vector<std::string>& lines) {
  const std::string text = JoinLines(lines);
  return schemeFile.Replaceable() && WriteWorkFile(workFile, text) && schemeFile.Replace(text);
}

}  // namespace

SchemeColors DefaultSchemeColors() {
  SchemeColors colors;
  colors.fill(Rgb(240, 240, 240));
  colors[0] = Rgb(50, 50, 50);
  colors[1] = Rgb(200, 9, 9);
  colors[kSchemeTitleBox] = colors[kSchemeTitleCopy] = Rgb(255, 255, 255);
  return colors;
}

SchemeColors EffectiveColors(const SchemeColors& scheme, const std::string& name, uint32_t systemButtonFace) {
  SchemeColors colors = scheme;
  if (ToLower(name) == kDefaultSchemeName) {
    colors[kSchemeBackground] = systemButtonFace;
    colors[kSchemeButtonFace] = Rgb(240, 240, 240);
  }
  return colors;
}

bool ReadColorScheme(const std::string& appFolder, Appearance& look, UserInterface& ui,
                     const std::string& name) {
  LineReader reader(appFolder + kSchemeFileName, kMaxSchemeFileBytes);
  std::string line;
  bool found = false;
  while (!found && reader.ReadLine(line)) found = line == name;
  for (int i = 0; found && i < kSchemeLines; ++i) {
    uint32_t color = 0;
    found = reader.ReadLine(line) && ParseColorLine(line, color);
    if (found) look.Scheme[i] = color;
  }
  if (!found) {
    ui.ShowMessage("Color Scheme: " + name + " not found");
    look.ColorSchemeName = kDefaultSchemeName;
    return false;
  }
  look.Scheme[kSchemeTitleCopy] = look.Scheme[kSchemeTitleBox];
  return true;
}

std::vector<std::string> SchemeNames(const std::string& schemeFile) {
  std::vector<std::string> names;
  LineReader reader(schemeFile, kMaxSchemeFileBytes);
  std::string line;
  while (reader.ReadLine(line)) {
    const size_t at = line.find(kSchemeExtension);
    if (at != std::string::npos) names.push_back(line.substr(0, at));
  }
  return names;
}

std::vector<std::string> SchemeLines(const std::string& name, const SchemeColors& colors) {
  std::vector<std::string> lines{ToLower(name) + kSchemeExtension};
  for (const uint32_t c : colors) lines.push_back(ColorLine(c));
  return lines;
}

bool AppendScheme(const std::string& schemeFile, const std::string& name, const SchemeColors& colors) {
  // Locked, whole or nothing, and a last line without its line end gets one first.
  return AppendToFile(schemeFile, JoinLines(SchemeLines(name, colors)));
}

namespace {

// The locked scheme file's lines, for an edit of the scheme named `nameLine`.
SchemeEdit ReadForEdit(const LockedFile& locked, const std::string& nameLine, std::vector<std::string>& old) {
  if (!locked.ok() || !ReadLines(locked.path(), old)) return SchemeEdit::kFileError;
  return std::find(old.begin(), old.end(), nameLine) == old.end() ? SchemeEdit::kNotFound : SchemeEdit::kDone;
}

}  // namespace

bool IsSchemeName(const std::string& name) {
  return ToLower(name).find(kSchemeExtension) == std::string::npos;
}

SchemeEdit ReplaceScheme(const std::string& schemeFile, const std::string& workFile,
                         const std::string& nameLine, const SchemeColors& colors) {
  LockedFile locked(schemeFile, false);
  std::vector<std::string> old;
  if (const SchemeEdit read = ReadForEdit(locked, nameLine, old); read != SchemeEdit::kDone) return read;
  std::vector<std::string> out;
  for (size_t i = 0; i < old.size(); ++i) {
    out.push_back(old[i]);
    if (old[i] != nameLine) continue;
    for (const uint32_t c : colors) out.push_back(ColorLine(c));
    i += OldColorLines(old, i);
  }
  return Rewrite(locked, workFile, out) ? SchemeEdit::kDone : SchemeEdit::kFileError;
}

SchemeEdit DeleteScheme(const std::string& schemeFile, const std::string& workFile,
                        const std::string& nameLine) {
  LockedFile locked(schemeFile, false);
  std::vector<std::string> old;
  if (const SchemeEdit read = ReadForEdit(locked, nameLine, old); read != SchemeEdit::kDone) return read;
  std::vector<std::string> out;
  for (size_t i = 0; i < old.size(); ++i) {
    if (old[i] == nameLine) {
      i += OldColorLines(old, i);
    } else {
      out.push_back(old[i]);
    }
  }
  return Rewrite(locked, workFile, out) ? SchemeEdit::kDone : SchemeEdit::kFileError;
}

}  // namespace velmora
