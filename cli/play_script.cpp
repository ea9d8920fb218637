// The command table of `velmora-cli play` and its line reader.
#include "play_script.h"

#include "files/text_file.h"
#include "subcommand.h"

namespace velmora::cli {
namespace {

std::vector<PlayCommand>& Table() {
  static std::vector<PlayCommand> commands;
  return commands;
}

// False at end of input and at a line longer than any command (endless
// input such as /dev/zero must not fill the memory).
bool ReadLine(std::FILE* in, std::string& line) {
  line.clear();
  int ch;
  while ((ch = std::fgetc(in)) != EOF && ch != '\n') {
    if (line.size() >= kMaxLineLength) return false;
    line += static_cast<char>(ch);
  }
  if (ch == EOF && line.empty()) return false;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return true;
}

std::vector<std::string> Words(const std::string& text) {
  std::vector<std::string> words;
  size_t i = 0;
  while (i < text.size()) {
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    size_t start = i;
    while (i < text.size() && text[i] != ' ' && text[i] != '\t') ++i;
    if (i > start) words.push_back(text.substr(start, i - start));
  }
  return words;
}

void PrintError(PlaySession& session, const std::string& text) { Print(session, "error: " + text + "\n"); }

void RunLine(PlaySession& session, const std::string& line) {
  const std::vector<std::string> words = Words(line);
  if (words.empty()) return;
  for (const PlayCommand& command : Table()) {
    if (words[0] != command.name) continue;
    std::vector<std::string> args(words.begin() + 1, words.end());
    const bool restOfLine = command.argCount == kRestOfLine || command.argCount == kOptionalRestOfLine;
    if (restOfLine) {
      const size_t at = line.find(words[0]) + words[0].size();
      const size_t start = line.find_first_not_of(" \t", at);
      args.assign(1, start == std::string::npos ? std::string() : line.substr(start));
    }
    const bool countOk = command.argCount == kOptionalRestOfLine ? true
                         : command.argCount == kRestOfLine
                             ? !args[0].empty()
                             : static_cast<int>(args.size()) == command.argCount;
    if (!countOk || !command.run(session, args)) {
      std::string usage = command.name;
      if (*command.args) usage += std::string(" ") + command.args;
      PrintError(session, "usage: " + usage);
    }
    return;
  }
  PrintError(session, "unknown command: " + words[0]);
}

}  // namespace

PlayCommandRegistration::PlayCommandRegistration(std::initializer_list<PlayCommand> commands) {
  for (const PlayCommand& c : commands) Table().push_back(c);
}

bool RunPlayScript(PlaySession& session, std::FILE* in) {
  std::string line;
  while (ReadLine(in, line)) {
    if (session.keeper) session.keeper->Before(session.state);
    session.ran = KeeperEvent::kCommand;
    RunLine(session, line);
    if (session.keeper) {
      session.keeper->After(session.state, session.ui, session.clockMs, session.ran);
      session.clockMs = session.keeper->PlayedMs();
    }
    std::fflush(session.out);
  }
  if (session.keeper) session.keeper->Close(session.clockMs);
  if (line.size() < kMaxLineLength) return true;
  PrintError(session, FileErrorText(kLineTooLong));
  return false;
}

void Print(PlaySession& session, const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), session.out);
}

bool ParseArg(const std::string& text, int& value) {
  long long v = 0;
  if (!ParseInt(text, v) || v < -2147483647LL || v > 2147483647LL) return false;
  value = static_cast<int>(v);
  return true;
}

}  // namespace velmora::cli
