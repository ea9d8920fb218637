// The user interface of a scripted session: what the program would show is
// printed one line per box, and every question is answered from the script.
#pragma once

#include <cstdio>
#include <deque>
#include <string>

#include "model/user_interface.h"

namespace velmora::cli {

// TEXT with each CR LF written as the two characters \n.
std::string OneLine(const std::string& text);

class ScriptUserInterface : public UserInterface {
 public:
  explicit ScriptUserInterface(std::FILE* out) : out_(out) {}

  // Prints "message: TEXT".
  void ShowMessage(const std::string& text) override;
  // Prints "confirm: TEXT" and answers Yes, or No after AnswerNo(true).
  bool AskYesNo(const std::string& text) override;
  void AnswerNo(bool no) { answerNo_ = no; }
  // File names and typed texts come from the script: the next queued answer,
  // or "" (cancel) when none is queued.
  std::string AskFileName(const FileDialogRequest& request) override;
  std::string AskText(const std::string& prompt) override;
  void QueueAnswer(const std::string& answer) { answers_.push_back(answer); }

 private:
  std::string NextAnswer();
  void PrintLine(const char* prefix, const std::string& text);

  std::FILE* out_;
  std::deque<std::string> answers_;
  bool answerNo_ = false;
};

}  // namespace velmora::cli
