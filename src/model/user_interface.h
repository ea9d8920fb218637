// What commands may ask of the person in front of the program.
#pragma once

#include <string>

namespace velmora {

struct FileDialogRequest {
  std::string mode;  // "SAVE" for a save dialog; "OPEN" or blank to open
  std::string title;
  std::string fileTypes;      // "*.vlm;*.txt;*.dat"
  std::string fileTypesName;  // "velmora Files"
  std::string defaultDir;
};

// Commands speak to the person only through this interface. The Qt windows
// implement it with real dialogs; tests and `velmora-cli play` with a script.
class UserInterface {
 public:
  virtual ~UserInterface() = default;

  virtual void ShowMessage(const std::string& text) = 0;                  // OK box; line breaks are CR LF
  virtual bool AskYesNo(const std::string& text) = 0;                     // true only for Yes
  virtual std::string AskFileName(const FileDialogRequest& request) = 0;  // "" on cancel
  virtual std::string AskText(const std::string& prompt) = 0;             // "" on cancel
  virtual void SetBusy(bool busy) = 0;
  virtual void Yield() = 0;  // let pending window events run
  // The texts of GameState::view changed.
  virtual void ControlsChanged() = 0;
  // Board painting: the whole board from the grid, one cell, the solution overlay.
  virtual void DrawBoard() = 0;
  virtual void DrawCell(int rank, const std::string& suitLetter, int row, int col) = 0;
  virtual void ShowSolutionOverlay() = 0;
};

// A user interface that shows nothing and answers every question with Yes.
class SilentUserInterface : public UserInterface {
 public:
  void ShowMessage(const std::string&) override {}
  bool AskYesNo(const std::string&) override { return true; }
  std::string AskFileName(const FileDialogRequest&) override { return {}; }
  std::string AskText(const std::string&) override { return {}; }
  void SetBusy(bool) override {}
  void Yield() override {}
  void ControlsChanged() override {}
  void DrawBoard() override {}
  void DrawCell(int, const std::string&, int, int) override {}
  void ShowSolutionOverlay() override {}
};

}  // namespace velmora
