// The configuration file velmora.cfg: colour scheme, puzzle file and puzzle number.
#pragma once

#include <string>

#include "model/file_names.h"
#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// The current date and time, the first line of the file (never read back).
std::string TimeStamp();

// The four lines SavecfgFile writes for the current state.
std::string ConfigText(const Session& session, const Appearance& look);

// Fills ColorSchemeName, CurrentPuzzleFile and CurrentPuzzleNumber. On any
// read failure it says so once and writes a fresh file; never fails itself.
void ReadcfgFile(Session& session, Appearance& look, UserInterface& ui);

// The colour scheme ReadcfgFile would take from AppFolder's file, read
// without writing anything: "default.col" when the file is missing or short.
std::string ConfiguredSchemeName(const std::string& appFolder);

// Writes the configuration; false (after the program's message) on failure.
bool SavecfgFile(const Session& session, const Appearance& look, UserInterface& ui);

}  // namespace velmora
