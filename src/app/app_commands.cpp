// The main window's own buttons: Exit and the progress panel's Cancel.
#include "app/app_commands.h"

#include "files/config.h"

namespace velmora {

bool cmdexit(GameState& s, UserInterface& ui) {
  if (!ui.AskYesNo("Exit?")) return false;
  SavecfgFile(s.session, s.look, ui);
  return true;
}

void cmdcancel(GameState& s, UserInterface& ui) {
  if (s.view.NewLab == kCancelingText) return;
  s.session.CancelRequest = 1;
  s.view.NewLab = kCancelingText;
  ui.ControlsChanged();
  ui.Yield();
}

}  // namespace velmora
