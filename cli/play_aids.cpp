// velmora-cli play: the play aids' script commands, hint and redo.
#include <string>
#include <vector>

#include "board/aids.h"
#include "model/hint.h"
#include "play_script.h"

namespace velmora::cli {
namespace {

// "hint: 3,4 QH single", "hint: 3,4 QH unique", "hint: 3,4 wrong" or
// "hint: none"; the board is left as it is.
bool ShowHint(PlaySession& session, const std::vector<std::string>&) {
  const Hint hint = FindHint(session.state.puzzle);
  std::string line = "hint: ";
  if (hint.kind == kHintNone) {
    line += "none";
  } else {
    line += std::to_string(hint.row) + "," + std::to_string(hint.col) + " ";
    if (hint.kind == kHintWrong) {
      line += "wrong";
    } else {
      AppendCardText(line, hint.card);
      line += hint.kind == kHintSingle ? " single" : " unique";
    }
  }
  Print(session, line + "\n");
  return true;
}

const PlayCommandRegistration kCommands({
    {"hint", "", 0, ShowHint},
    {"redo", "", 0, Call<mnuredo>},
});

}  // namespace
}  // namespace velmora::cli
