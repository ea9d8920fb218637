// The user interface of a scripted session.
#include "script_ui.h"

namespace velmora::cli {

std::string OneLine(const std::string& text) {
  std::string line;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
      line += "\\n";
      ++i;
    } else {
      line += text[i];
    }
  }
  return line;
}

void ScriptUserInterface::ShowMessage(const std::string& text) { PrintLine("message: ", text); }

bool ScriptUserInterface::AskYesNo(const std::string& text) {
  PrintLine("confirm: ", text);
  return !answerNo_;
}

void ScriptUserInterface::PrintLine(const char* prefix, const std::string& text) {
  const std::string line = prefix + OneLine(text) + "\n";
  std::fwrite(line.data(), 1, line.size(), out_);
}

std::string ScriptUserInterface::AskFileName(const FileDialogRequest&) { return NextAnswer(); }

std::string ScriptUserInterface::AskText(const std::string&) { return NextAnswer(); }

std::string ScriptUserInterface::NextAnswer() {
  if (answers_.empty()) return {};
  std::string answer = answers_.front();
  answers_.pop_front();
  return answer;
}

}  // namespace velmora::cli
