// velmora-cli play: a scripted game on one record; the board, suit-panel
// and solve commands of the script.
#include <cstdio>
#include <string>
#include <vector>

#include "board/geometry.h"
#include "board/play.h"
#include "model/commands.h"
#include "play_script.h"
#include "record.h"
#include "subcommand.h"

namespace velmora::cli {
namespace {

int RunPlay(const std::vector<std::string>& args);

const Subcommand kPlay{"play", "play [--no] FILE N",
                       "load record N, then run the play commands read from standard input (--no answers No)",
                       40, RunPlay};
const Registration kPlayReg(kPlay);

// The middle of cell (row, col) in twips, by the board's layout; a cell off
// the board gives a point that no cell holds.
bool CellCentre(const std::vector<std::string>& args, float& x, float& y) {
  int row = 0, col = 0;
  if (!ParseArg(args[0], row) || !ParseArg(args[1], col)) return false;
  x = CellMiddle(col);
  y = CellMiddle(row);
  return true;
}

bool Select(PlaySession& session, const std::vector<std::string>& args) {
  ChooseCard(session.state, session.ui, args[0]);  // no panel holds it: nothing happens
  return true;
}

bool MouseUp(PlaySession& session, const std::vector<std::string>& args, int button) {
  float x = 0, y = 0;
  if (!CellCentre(args, x, y)) return false;
  Picture1MouseUp(session.state, session.ui, button, x, y);
  return true;
}

bool Left(PlaySession& session, const std::vector<std::string>& args) {
  return MouseUp(session, args, kLeftButton);
}
bool Right(PlaySession& session, const std::vector<std::string>& args) {
  return MouseUp(session, args, kRightButton);
}

bool Move(PlaySession& session, const std::vector<std::string>& args) {
  float x = 0, y = 0;
  if (!CellCentre(args, x, y)) return false;
  Picture1MouseMove(session.state, session.ui, x, y);
  Print(session, "status:" + session.state.view.pb + "\n");
  return true;
}

bool Board(PlaySession& session, const std::vector<std::string>&) {
  Print(session, BoardText(session.state));
  return true;
}

bool Remain(PlaySession& session, const std::vector<std::string>&) {
  std::string text;
  for (size_t list = 0; list < 4; ++list) {
    text += kSuitOrder[list];
    text += ':';
    for (const auto& item : session.state.view.Remain[list]) text += " " + item;
    text += "\n";
  }
  Print(session, text);
  return true;
}

const PlayCommandRegistration kCommands({
    {"select", "CARD", 1, Select},
    {"left", "R C", 2, Left},
    {"right", "R C", 2, Right},
    {"move", "R C", 2, Move},
    {"undo", "", 0, Call<UndoEdit>},
    {"autosolve", "", 0, Call<mnusolveall>},
    {"restore", "", 0, Call<mnurestore>},
    {"showsolution", "", 0, Call<Command7>},
    {"checksolution", "", 0, Call<Command6>},
    {"board", "", 0, Board},
    {"remain", "", 0, Remain},
});

int RunPlay(const std::vector<std::string>& allArgs) {
  GameState state;
  ScriptUserInterface ui(stdout);
  std::vector<std::string> args;
  for (const std::string& a : allArgs) {
    if (a == "--no") {
      ui.AnswerNo(true);
    } else {
      args.push_back(a);
    }
  }
  if (const int failed = LoadRecordArgs(kPlay, args, state, ui); failed != 0) return failed;
  // The loaded file is the current puzzle file, as after start-up.
  state.session.CurrentPuzzleFile = args[0];
  PlaySession session{state, ui, stdout, args[0]};
  return RunPlayScript(session, stdin) ? 0 : 1;
}

}  // namespace
}  // namespace velmora::cli
