// A user interface for tests that records everything a command shows.
#pragma once

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
  void ControlsChanged() override { ++controlsChanged; }
  void DrawBoard() override { ++boards; }
  void DrawCell(int rank, const std::string& suit, int row, int col) override {
    cells.push_back(std::to_string(rank) + "," + suit + "," + std::to_string(row) + "," + std::to_string(col));
  }
  void ShowSolutionOverlay() override { ++overlays; }

  bool answer = true;
  std::vector<std::string> messages, questions, cells;
  int controlsChanged = 0, boards = 0, overlays = 0;
};

}  // namespace velmora::test
