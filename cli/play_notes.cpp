// velmora-cli play: the player's notes, suit marks.
#include <string>
#include <vector>

#include "board/marks.h"
#include "play_script.h"

namespace velmora::cli {
namespace {

// mark ROW COL S: S one of S H D C, or "-" to take the mark away. A cell
// that takes no mark is left as it is, without a word, as a click would.
bool Mark(PlaySession& session, const std::vector<std::string>& args) {
  int row = 0, col = 0;
  if (!ParseArg(args[0], row) || !ParseArg(args[1], col) || args[2].size() != 1) return false;
  const size_t at = kSuitOrder.find(args[2][0]);
  if (args[2] != "-" && at == std::string_view::npos) return false;
  MarkCell(session.state, session.ui, row, col, args[2] == "-" ? 0 : static_cast<int>(at) + 1);
  return true;
}

const PlayCommandRegistration kCommands({
    {"mark", "ROW COL S", 3, Mark},
});

}  // namespace
}  // namespace velmora::cli
