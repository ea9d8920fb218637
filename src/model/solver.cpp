// Deduction solver: single options and cards with one place, repeated to a fixed point.
#include "model/solver.h"

#include "model/rules.h"

namespace velmora {

int SolveGrid(GameState& s, UserInterface& ui) {
  s.Solving = 1;
  const int rows = LoopRows(s), cols = LoopCols(s);
  bool ok = UpdateOptions(s, 0);
  int changes = 1;
  while (ok && changes != 0) {
    changes = 0;
    ui.Yield();
    // Every cell that had a single option at the start of the pass takes it,
    // even when two cells name the same card.
    for (int r = 1; r <= rows; ++r) {
      for (int c = 1; c <= cols; ++c) {
        const CardSet m = s.CellOptions[r][c];
        if (m != 0 && (m & (m - 1)) == 0) {
          s.Grid[r][c] = __builtin_ctzll(m) + 1;
          s.CellOptions[r][c] = 0;
          ++changes;
        }
      }
    }
    if (!(ok = UpdateOptions(s, 0))) break;
    // Cards that are an option of exactly one cell go there, in increasing
    // card order without re-testing the cell: when several are unique to one
    // cell, the highest card is the one that stays.
    CardSet once = 0, twice = 0;
    for (int r = 1; r <= rows; ++r) {
      for (int c = 1; c <= cols; ++c) {
        const CardSet m = s.CellOptions[r][c];
        twice |= once & m;
        once |= m;
      }
    }
    const CardSet unique = once & ~twice;
    if (unique == 0) continue;
    for (int r = 1; r <= rows; ++r) {
      for (int c = 1; c <= cols; ++c) {
        const CardSet u = s.CellOptions[r][c] & unique;
        if (u == 0) continue;
        s.Grid[r][c] = 64 - __builtin_clzll(u);
        s.CellOptions[r][c] = 0;
        changes += __builtin_popcountll(u);
      }
    }
  }
  s.Solving = 0;
  if (!ok) return 1;
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      if (s.Grid[r][c] == 0) return 1;
    }
  }
  return 0;
}

}  // namespace velmora
