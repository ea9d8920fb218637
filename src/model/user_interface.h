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
// implement it with real dialogs; tests and `velmora-cli` with a script or
// plain output. A front end overrides only what it shows: by default nothing
// is shown and every question is answered Yes (a prompt with nothing).
class UserInterface {
 public:
  virtual ~UserInterface() = default;

  virtual void ShowMessage(const std::string&) {}                           // OK box; line breaks are CR LF
  virtual bool AskYesNo(const std::string&) { return true; }                // true only for Yes
  virtual std::string AskFileName(const FileDialogRequest&) { return {}; }  // "" on cancel
  virtual std::string AskText(const std::string&) { return {}; }            // "" on cancel
  virtual void SetBusy(bool) {}
  virtual void Yield() {}  // let pending window events run
  // The texts of GameState::view changed.
  virtual void ControlsChanged() {}
  // Board painting: the whole board from the grid, one cell, the solution overlay.
  virtual void DrawBoard() {}
  virtual void DrawCell(int /*rank*/, const std::string& /*suitLetter*/, int /*row*/, int /*col*/) {}
  virtual void ShowSolutionOverlay() {}
};

// The defaults alone: shows nothing and answers every question with Yes.
class SilentUserInterface : public UserInterface {};

}  // namespace velmora
