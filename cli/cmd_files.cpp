// velmora-cli play: the puzzle-file commands, the arrows, the typed number and
// a look at the main state.
#include <string>
#include <vector>

#include "board/play.h"
#include "files/file_commands.h"
#include "model/text.h"
#include "play_script.h"

namespace velmora::cli {
namespace {

template <int Index, int Button>
bool Arrow(PlaySession& session, const std::vector<std::string>&) {
  arrowsMouseUp(session.state, session.ui, Index, Button);
  return true;
}

// NAME is the file dialog's answer; an empty NAME cancels the dialog.
template <void (*Command)(GameState&, UserInterface&)>
bool WithFileName(PlaySession& session, const std::vector<std::string>& args) {
  session.ui.QueueAnswer(args[0]);
  Command(session.state, session.ui);
  return true;
}

// The text typed into PuzNumNow, then Enter.
bool Goto(PlaySession& session, const std::vector<std::string>& args) {
  session.state.view.PuzNumNow = args[0];
  PuzNumNowEnter(session.state, session.ui);
  return true;
}

// Puzzle > Reset, which tells the keeper that it forgets the kept board.
bool Reset(PlaySession& session, const std::vector<std::string>&) {
  session.ran = KeeperEvent::kReset;
  mnupuzreset(session.state, session.ui);
  return true;
}

bool State(PlaySession& session, const std::vector<std::string>&) {
  const GameState& s = session.state;
  Print(session, "file: " + s.session.CurrentPuzzleFile +
                     "\nnumber: " + NumText(s.session.CurrentPuzzleNumber) +
                     "\ncount: " + NumText(s.session.PuzzleCount) + "\ntitle: " + s.view.PuzTitle + "\n");
  return true;
}

const PlayCommandRegistration kCommands({
    {"previous", "", 0, Arrow<kArrowPrevious, kLeftButton>},
    {"next", "", 0, Arrow<kArrowNext, kLeftButton>},
    {"first", "", 0, Arrow<kArrowPrevious, kRightButton>},
    {"last", "", 0, Arrow<kArrowNext, kRightButton>},
    {"random", "", 0, Arrow<kArrowRandom, kLeftButton>},
    {"goto", "N", kOptionalRestOfLine, Goto},
    {"reset", "", 0, Reset},
    {"append", "", 0, Call<mnuappend>},
    {"delete", "", 0, Call<mnudelete>},
    {"save", "NAME", kOptionalRestOfLine, WithFileName<mnusaveassli>},
    {"copy", "NAME", kOptionalRestOfLine, WithFileName<mnusaveas>},
    {"load", "NAME", kOptionalRestOfLine, WithFileName<mnuloadpuz>},
    {"state", "", 0, State},
});

}  // namespace
}  // namespace velmora::cli
