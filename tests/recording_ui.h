// A user interface for tests that records everything a command shows.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "model/user_interface.h"

namespace velmora::test {

class RecordingUi : public SilentUserInterface {
 public:
  void ShowMessage(const std::string& text) override { messages.push_back(text); }
  bool AskYesNo(const std::string& text) override {
    questions.push_back(text);
    return answer;
  }
  // Answers file dialogs from `names`, then cancels.
  std::string AskFileName(const FileDialogRequest& request) override {
    requests.push_back(request);
    if (onDialog) onDialog();
    if (names.empty()) return {};
    std::string name = names.front();
    names.pop_front();
    return name;
  }
  void SetBusy(bool on) override {
    busy = on;
    busyOn += on;
  }
  void Yield() override { ++yields; }
  void ControlsChanged() override { ++controlsChanged; }
  void DrawBoard() override { ++boards; }
  void DrawCell(int rank, const std::string& suit, int row, int col) override {
    cells.push_back(std::to_string(rank) + "," + suit + "," + std::to_string(row) + "," +
                    std::to_string(col));
  }
  void ShowSolutionOverlay() override { ++overlays; }

  bool answer = true;
  std::deque<std::string> names;
  std::function<void()> onDialog;
  std::vector<std::string> messages, questions, cells;
  std::vector<FileDialogRequest> requests;
  bool busy = false;
  int busyOn = 0, yields = 0, controlsChanged = 0, boards = 0, overlays = 0;
};

}  // namespace velmora::test
