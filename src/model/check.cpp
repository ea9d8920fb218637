// Judging the board as it stands: impossible cells, cards outside the
// givens' options, completion.
#include "model/check.h"

#include "model/text.h"

namespace velmora {
namespace {

// Rank letter and suit letter of a cell value, trimmed: "QH", "S" for a
// spades mark; "x" for a value that has no code.
std::string PlacedText(const Puzzle& p, int value) {
  if (!CardCodeTable::InRange(value)) return "x";
  const std::string text = Trim(ListText(p, value));
  return text.empty() ? "x" : text;
}

}  // namespace

CheckResult CheckBoard(const Puzzle& p) {
  int filled = 0;
  for (int r = 1; r <= LoopRows(p); ++r) {
    for (int c = 1; c <= LoopCols(p); ++c) {
      const int v = p.Grid[r][c];
      if (v == 0 && p.CellOptions[r][c] == 0) {
        return {"Cell" + Str(r) + "," + Str(c) + " - invalid value", kCheckFault};
      }
      // Only cells that were open at the load have saved options to match.
      if (v != 0 && p.CellOptionsSaved[r][c] != 0) {
        const std::string placed = PlacedText(p, v);
        const std::string saved = OptionText(p.CellOptionsSaved[r][c]);
        if (!ContainsNoCase(saved, placed)) {
          return {"No match at" + Str(r) + Str(c) + kNewLine + placed + kNewLine + saved, kCheckFault};
        }
      }
      if (v != 0) ++filled;
    }
  }
  if (filled == 49) return {"Done", kCheckDone};
  return {};
}

}  // namespace velmora
