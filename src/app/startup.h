// Start-up of the main window: tables, folder, configuration, colours, first puzzle.
#pragma once

#include <functional>
#include <string>

#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// The folder with a "/" at its end (an empty folder stays the current one).
std::string FolderWithSlash(const std::string& folder);

// Runs the start-up sequence on a fresh state: tables, AppFolder, the
// configuration, the colour scheme (then `setCol` lets the windows take its
// colours), and the remembered puzzle, or an empty 7 x 7 board when it
// cannot be loaded. Never fails: every problem takes its message or its
// fallback.
void StartUp(GameState& s, UserInterface& ui, const std::string& appFolder,
             const std::function<void()>& setCol);

}  // namespace velmora
