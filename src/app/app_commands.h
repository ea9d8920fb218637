// The main window's own buttons: Exit and the progress panel's Cancel.
#pragma once

#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

inline constexpr const char* kCancelingText = " Canceling...";

// File > "Exit" and the Exit button: asks "Exit?"; on Yes saves the
// configuration (a failed save is reported but does not stop the exit).
// Returns true when the program should end.
bool cmdexit(GameState& s, UserInterface& ui);

// The progress panel's Cancel button: asks a running long command to stop,
// once; a second press changes nothing.
void cmdcancel(GameState& s, UserInterface& ui);

}  // namespace velmora
