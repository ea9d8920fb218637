// A user interface for tests that records everything a command shows.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "model/user_interface.h"

namespace velmora::test {

class RecordingUi : public UserInterface {
 public:
  void ShowMessage(const std::string& text) override { messages.push_back(text); }
  bool AskYesNo(const std::string& text) override {
    questions.push_back(text);
    return answer;
  }
  // Answers file dialogs from `names`, then cancels.
  std::string AskFileName(const FileDialogRequest& request) override {
    requests.push_back(request);
    std::string name = names.empty() ? "" : names.front();
    if (!names.empty()) names.pop_front();
    return name;
  }
  // Answers typed-text prompts from `texts`, then cancels.
  std::string AskText(const std::string& prompt) override {
    prompts.push_back(prompt);
    std::string text = texts.empty() ? "" : texts.front();
    if (!texts.empty()) texts.pop_front();
    return text;
  }
  void SetBusy(bool on) override { busyOn += (busy = on); }
  void DrawBoard() override { ++boards; }
  void DrawCell(int rank, const std::string& suit, int row, int col) override {
    cells.push_back(std::to_string(rank) + "," + suit + "," + std::to_string(row) + "," +
                    std::to_string(col));
  }
  void ShowSolutionOverlay() override { ++overlays; }

  bool answer = true, busy = false;
  std::deque<std::string> names, texts;
  std::vector<std::string> messages, questions, cells, prompts;
  std::vector<FileDialogRequest> requests;
  int busyOn = 0, boards = 0, overlays = 0;
};

}  // namespace velmora::test
