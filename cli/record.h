// Loading the record a subcommand names, and printing the board.
#pragma once

#include <string>
#include <vector>

#include "model/game_state.h"
#include "model/user_interface.h"
#include "subcommand.h"

namespace velmora::cli {

// False, after "velmora-cli NAME: cannot read FILE: REASON" on standard
// error, when FILE cannot be read or is damaged; else its count of records.
bool Readable(const Subcommand& command, const std::string& file, int* count = nullptr);

// Loads record N of FILE from args {FILE, N}. Returns 0 when loaded;
// otherwise the exit code, after printing "not found", why FILE cannot be
// read, or the usage error.
int LoadRecordArgs(const Subcommand& command, const std::vector<std::string>& args, GameState& s,
                   UserInterface& ui);

// Rows lines of Cols characters, each the grid value plus 64 ("@" empty).
std::string BoardText(const GameState& s);

}  // namespace velmora::cli
