// The command table of `velmora-cli play`: each script line is a command
// name and its arguments, run against one session. Files that add commands
// register them with a PlayCommandRegistration, as subcommands do.
#pragma once

#include <cstdio>
#include <initializer_list>
#include <string>
#include <vector>

#include "board/keeping.h"
#include "model/game_state.h"
#include "script_ui.h"

namespace velmora::cli {

struct PlaySession {
  GameState& state;
  ScriptUserInterface& ui;
  std::FILE* out;
  std::string file;  // the FILE argument of play
  // With --keep: the keeper run around every command, the play clock it
  // keeps (moved on by the script), and what the command ran, when it says.
  BoardKeeper* keeper = nullptr;
  long long clockMs = 0;
  KeeperEvent ran = KeeperEvent::kCommand;
};

// argCount: the exact number of blank-separated arguments, or
// kRestOfLine for one argument that is the rest of the line (a file name
// with blanks).
inline constexpr int kRestOfLine = -1;
// As kRestOfLine, but the argument may be empty (a cancelled file dialog).
inline constexpr int kOptionalRestOfLine = -2;

struct PlayCommand {
  const char* name;
  const char* args;  // for the usage error, e.g. "R C"
  int argCount;
  // Returns false when the arguments are not what the command takes.
  bool (*run)(PlaySession& session, const std::vector<std::string>& args);
};

struct PlayCommandRegistration {
  PlayCommandRegistration(std::initializer_list<PlayCommand> commands);
};

// Runs every line of `in`. Blank lines are skipped; an unknown command or
// bad arguments print one "error: " line and the script goes on. A line
// longer than any command ends the script with an error: false.
bool RunPlayScript(PlaySession& session, std::FILE* in);

// A whole decimal number that fits an int.
bool ParseArg(const std::string& text, int& value);

// Writes `text` to the session's output as it is.
void Print(PlaySession& session, const std::string& text);

// A command that takes no arguments and only runs a command of the program.
template <void (*Command)(GameState&, UserInterface&)>
bool Call(PlaySession& session, const std::vector<std::string>&) {
  Command(session.state, session.ui);
  return true;
}

}  // namespace velmora::cli
