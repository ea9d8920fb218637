// velmora-cli play: a scripted game on one record; the board, suit-panel
// and solve commands of the script.
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "app/app_folder.h"
#include "board/geometry.h"
#include "board/keeping.h"
#include "board/play.h"
#include "files/player_store.h"
#include "model/commands.h"
#include "play_script.h"
#include "record.h"
#include "subcommand.h"

namespace velmora::cli {
namespace {

int RunPlay(const std::vector<std::string>& args);

const Subcommand kPlay{"play", "play [--no] [--keep [--folder DIR]] FILE N",
                       "load record N, then run the play commands read from standard input (--no answers No; "
                       "--keep keeps and restores boards in the program folder's velmora.db as the desktop "
                       "program does)",
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

// The commands of --keep; without it they are as unknown as before.
bool WithoutKeeper(PlaySession& session, const char* name) {
  if (session.keeper) return false;
  Print(session, std::string("error: unknown command: ") + name + "\n");
  return true;
}

// The play clock runs MS milliseconds on, unless the puzzle is finished.
bool Clock(PlaySession& session, const std::vector<std::string>& args) {
  if (WithoutKeeper(session, "clock")) return true;
  int ms = 0;
  if (!ParseArg(args[0], ms) || ms < 0) return false;
  if (session.keeper->Status().outcome != PuzzleOutcome::kFinished) session.clockMs += ms;
  return true;
}

bool Outcome(PlaySession& session, const std::vector<std::string>&) {
  if (WithoutKeeper(session, "outcome")) return true;
  const BoardKeeper& k = *session.keeper;
  Print(session, std::string("outcome: ") + OutcomeText(k.Status().outcome) + ", clock " +
                     ClockText(session.clockMs) + ", hints " + std::to_string(k.Hints()) + ", undos " +
                     std::to_string(k.Undos()) + "\n");
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
    {"clock", "MS", 1, Clock},
    {"outcome", "", 0, Outcome},
});

struct PlayArgs {
  std::vector<std::string> fileAndNumber;
  bool no = false, keep = false;
  std::string folder;
};

// Empty on success, else what was wrong.
std::string Parse(const std::vector<std::string>& args, PlayArgs& out) {
  bool hasFolder = false;
  for (size_t i = 0; i < args.size(); ++i) {
    if (args[i] == "--no") {
      out.no = true;
    } else if (args[i] == "--keep") {
      out.keep = true;
    } else if (args[i] == "--folder") {
      if (i + 1 == args.size()) return "--folder needs a value";
      out.folder = args[++i];
      hasFolder = true;
    } else {
      out.fileAndNumber.push_back(args[i]);
    }
  }
  return hasFolder && !out.keep ? "--folder goes with --keep" : "";
}

int RunPlay(const std::vector<std::string>& allArgs) {
  PlayArgs a;
  if (const std::string wrong = Parse(allArgs, a); !wrong.empty()) return UsageError(kPlay, wrong);
  GameState state;
  ScriptUserInterface ui(stdout);
  ui.AnswerNo(a.no);
  std::optional<PlayerStore> store;
  std::optional<BoardKeeper> keeper;
  if (a.keep) {
    // The folder and the store the desktop program would use.
    state.session.AppFolder = SetUpProgramFolders(a.folder, ExecutableFolder()).app;
    store.emplace(state.session.AppFolder);
    keeper.emplace(*store);
    keeper->Before(state);
  }
  if (const int failed = LoadRecordArgs(kPlay, a.fileAndNumber, state, ui); failed != 0) return failed;
  // The loaded file is the current puzzle file, as after start-up.
  state.session.CurrentPuzzleFile = a.fileAndNumber[0];
  PlaySession session{state, ui, stdout, a.fileAndNumber[0]};
  if (keeper) {
    keeper->After(state, ui, 0);
    session.keeper = &*keeper;
    session.clockMs = keeper->PlayedMs();
  }
  return RunPlayScript(session, stdin) ? 0 : 1;
}

}  // namespace
}  // namespace velmora::cli
