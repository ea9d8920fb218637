// The next step a player could take, with its reason.
#include "model/hint.h"

#include <array>

#include "model/rules.h"
#include "model/text.h"

namespace velmora {
namespace {

std::string CellText(const Hint& hint) { return NumText(hint.row) + ", " + NumText(hint.col); }

// The first card put down that the stored solution does not have there.
// Givens as loaded are the puzzle's own and never wrong; a cell without a
// stored card cannot be judged.
bool FindWrong(const Puzzle& p, Hint& hint) {
  for (int r = 1; r <= LoopRows(p); ++r) {
    for (int c = 1; c <= LoopCols(p); ++c) {
      const int v = p.Grid[r][c];
      const int solution = p.SolutionGrid[r][c];
      if (v == 0 || v == p.PuzzleGrid[r][c] || solution == 0 || v == solution) continue;
      hint = {kHintWrong, r, c, 0};
      return true;
    }
  }
  return false;
}

}  // namespace

Hint FindHint(const Puzzle& p) {
  Hint hint;
  if (FindWrong(p, hint)) return hint;
  // UpdateOptions writes the options; a copy keeps the puzzle as it is.
  Puzzle work = p;
  if (!UpdateOptions(work)) return hint;
  std::array<int, kMaxCardIndex + 1> count{}, place{};
  for (int r = 1; r <= LoopRows(work); ++r) {
    for (int c = 1; c <= LoopCols(work); ++c) {
      const CardSet options = work.Grid[r][c] < 1 ? work.CellOptions[r][c] : 0;
      if (options != 0 && (options & (options - 1)) == 0)
        return {kHintSingle, r, c, __builtin_ctzll(options) + 1};
      for (CardSet set = options; set; set &= set - 1) {
        const int card = __builtin_ctzll(set) + 1;
        ++count[static_cast<size_t>(card)];
        place[static_cast<size_t>(card)] = r * kGridDim + c;
      }
    }
  }
  for (int card = 1; card <= kMaxCardIndex; ++card) {
    const int at = place[static_cast<size_t>(card)];
    if (count[static_cast<size_t>(card)] == 1) return {kHintUnique, at / kGridDim, at % kGridDim, card};
  }
  return hint;
}

void EndHint(PlayAids& aids, WindowTexts& view) {
  if (aids.hintKind == 0) return;
  aids.hintKind = 0;
  view.pb.clear();
}

std::string HintText(const Hint& hint) {
  switch (hint.kind) {
    case kHintWrong:
      return "the card at " + CellText(hint) + " is wrong";
    case kHintSingle:
      return CellText(hint) + " can only take " + CardText(hint.card);
    case kHintUnique:
      return CardText(hint.card) + " fits nowhere else but " + CellText(hint);
    case kHintNone:
      break;
  }
  return "No step follows from the rules alone";
}

}  // namespace velmora
