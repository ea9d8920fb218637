// velmora-cli play: the player's notes, suit marks and rank notes.
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

// note ROW COL RANKS: rank letters such as 19TK, or "-" for none.
bool Note(PlaySession& session, const std::vector<std::string>& args) {
  int row = 0, col = 0, ranks = 0;
  if (!ParseArg(args[0], row) || !ParseArg(args[1], col)) return false;
  for (const char letter : args[2] == "-" ? std::string() : args[2]) {
    const int rank = RankOfLetter(letter);
    if (rank == 0) return false;
    ranks |= 1 << (rank - 1);
  }
  NoteCell(session.state, session.ui, row, col, ranks);
  return true;
}

// One line "ROW COL RANKS" per cell with notes shown, rows then columns.
bool Notes(PlaySession& session, const std::vector<std::string>&) {
  const Puzzle& p = session.state.puzzle;
  std::string text;
  for (int r = 1; r <= LoopRows(p); ++r) {
    for (int c = 1; c <= LoopCols(p); ++c) {
      if (p.Notes[r][c] == 0 || p.Grid[r][c] > 0) continue;  // hidden under a card
      text += std::to_string(r) + " " + std::to_string(c) + " ";
      for (int rank = 1; rank <= 13; ++rank)
        if (p.Notes[r][c] & (1 << (rank - 1))) text += RankLetter(rank);
      text += "\n";
    }
  }
  Print(session, text);
  return true;
}

const PlayCommandRegistration kCommands({
    {"mark", "ROW COL S", 3, Mark},
    {"note", "ROW COL RANKS", 3, Note},
    {"notes", "", 0, Notes},
});

}  // namespace
}  // namespace velmora::cli
