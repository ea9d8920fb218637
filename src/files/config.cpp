// The configuration file velmora.cfg: colour scheme, puzzle file and puzzle number.
#include "files/config.h"

#include <ctime>
#include <optional>
#include <string_view>

#include "files/text_file.h"
#include "model/text.h"

namespace velmora {
namespace {

// Reads the configuration a line or a comma-delimited field at a time: a
// field read stops at a comma, and the next whole-line read continues right
// after that comma on the same line.
class FieldReader {
 public:
  explicit FieldReader(std::string text) : text_(std::move(text)) {}

  std::optional<std::string> Line() {
    if (pos_ >= text_.size()) return std::nullopt;
    const size_t end = text_.find('\n', pos_);
    std::string line = text_.substr(pos_, end == std::string::npos ? std::string::npos : end - pos_);
    pos_ = end == std::string::npos ? text_.size() : end + 1;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return line;
  }

  // One comma-delimited field: blanks around it dropped, double quotes
  // around it removed (a quoted field may hold commas).
  std::optional<std::string> Field() {
    while (pos_ < text_.size() && (text_[pos_] == ' ' || text_[pos_] == '\t')) ++pos_;
    if (pos_ >= text_.size()) return std::nullopt;
    std::string field;
    if (text_[pos_] == '"') {
      const size_t close = text_.find('"', pos_ + 1);
      const size_t end = close == std::string::npos ? text_.size() : close;
      field = text_.substr(pos_ + 1, end - pos_ - 1);
      pos_ = close == std::string::npos ? text_.size() : close + 1;
      while (pos_ < text_.size() && (text_[pos_] == ' ' || text_[pos_] == '\t')) ++pos_;
    } else {
      while (pos_ < text_.size() && text_[pos_] != ',' && text_[pos_] != '\r' && text_[pos_] != '\n') {
        field += text_[pos_++];
      }
      while (!field.empty() && (field.back() == ' ' || field.back() == '\t')) field.pop_back();
    }
    SkipSeparator();
    return field;
  }

 private:
  void SkipSeparator() {
    if (pos_ < text_.size() && text_[pos_] == ',') {
      ++pos_;
    } else {
      if (pos_ < text_.size() && text_[pos_] == '\r') ++pos_;
      if (pos_ < text_.size() && text_[pos_] == '\n') ++pos_;
    }
  }

  std::string text_;
  size_t pos_ = 0;
};

std::string ConfigPath(const std::string& appFolder) { return appFolder + kConfigFileName; }

// Four short lines; a file far longer is damaged, and is not read into memory.
constexpr long long kMaxConfigBytes = 64 * 1024;

std::string AccessMessage(const std::string& path, const char* consequence) {
  return std::string("Configuration file:") + kNewLine + path + kNewLine + consequence;
}

// Numeric print form: a blank (or the sign) before, a blank after.
std::string PrintNumber(long long n) { return Str(n) + " "; }

}  // namespace

std::string TimeStamp() { return DateTimeText(LocalTimeNow()); }

std::string ConfigText(const Session& session, const Appearance& look) {
  return JoinLines({TimeStamp(), look.ColorSchemeName, session.CurrentPuzzleFile,
                    PrintNumber(session.CurrentPuzzleNumber)});
}

namespace {

// Fills the remembered values in file order; false when the file falls short
// (the values read before that stay filled in).
bool ParseConfig(std::string contents, Session& session, Appearance& look) {
  FieldReader in(std::move(contents));
  if (!in.Line()) return false;
  const auto scheme = in.Field();
  if (scheme) look.ColorSchemeName = Trim(*scheme).empty() ? kDefaultSchemeName : *scheme;
  const auto file = scheme ? in.Line() : std::nullopt;
  if (file) session.CurrentPuzzleFile = *file;
  const auto number = file ? in.Field() : std::nullopt;
  const auto value = number ? ValInt(*number) : std::nullopt;
  if (value) session.CurrentPuzzleNumber = *value;
  return value.has_value();
}

}  // namespace

std::string ConfiguredSchemeName(const std::string& appFolder) {
  Session session;
  Appearance look;
  std::string contents;
  if (ReadWholeFile(ConfigPath(appFolder), contents, nullptr, kMaxConfigBytes) &&
      ParseConfig(std::move(contents), session, look))
    return look.ColorSchemeName;
  return kDefaultSchemeName;
}

void ReadcfgFile(Session& session, Appearance& look, UserInterface& ui) {
  const std::string path = ConfigPath(session.AppFolder);
  std::string contents;
  if (ReadWholeFile(path, contents, nullptr, kMaxConfigBytes) &&
      ParseConfig(std::move(contents), session, look))
    return;
  ui.ShowMessage(AccessMessage(path, "could not be accessed, new file will be created"));
  look.ColorSchemeName = kDefaultSchemeName;
  // A file that cannot be created is noticed again at the next save.
  WriteFileAtomically(path, JoinLines({TimeStamp(), look.ColorSchemeName, session.CurrentPuzzleFile, "1"}));
}

bool SavecfgFile(const Session& session, const Appearance& look, UserInterface& ui) {
  const std::string path = ConfigPath(session.AppFolder);
  if (WriteFileAtomically(path, ConfigText(session, look))) return true;
  ui.ShowMessage(AccessMessage(path, "could not be accessed, options not saved"));
  return false;
}

}  // namespace velmora
