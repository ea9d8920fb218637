// The rule as the literal reference readings state it: texts searched for
// substrings, one cell at a time.
#pragma once

#include <string>

#include "model/game_state.h"
#include "model/text.h"

namespace velmora::test {

// Rank (0..13) of a cell through CardCodes; 0 outside the board or the grid.
inline int CellRank(const GameState& s, int row, int col) {
  if (row < 1 || row > s.puzzle.Rows || col < 1 || col > s.puzzle.Cols || row > kMaxIndex || col > kMaxIndex)
    return 0;
  const int v = s.puzzle.Grid[row][col];
  return CardCodeTable::InRange(v) ? s.puzzle.CardCodes.Rank(v) : 0;
}

// Suit letter of a cell ("X" for an empty cell); "" outside the board.
inline std::string CellSuit(const GameState& s, int row, int col) {
  if (row < 1 || row > s.puzzle.Rows || col < 1 || col > s.puzzle.Cols || row > kMaxIndex || col > kMaxIndex)
    return "";
  const int v = s.puzzle.Grid[row][col];
  return CardCodeTable::InRange(v) ? std::string(1, s.puzzle.CardCodes.SuitLetter(v)) : "";
}

// The ranks a cell may not take, as " 5," entries: each neighbour's rank and
// the two beside it (king and ace wrap), then the row's and the column's.
inline std::string ExcludedRanks(const GameState& s, int row, int col) {
  std::string text;
  auto entry = [&text](int r) { text += Str(r) + ","; };
  const int neighbours[4][2] = {{row, col - 1}, {row - 1, col}, {row + 1, col}, {row, col + 1}};
  for (const auto& n : neighbours) {
    const int r = CellRank(s, n[0], n[1]);
    if (r < 1) continue;
    entry(r);
    entry(r + 1 > 13 ? 1 : r + 1);
    entry(r == 1 ? 13 : r - 1);
  }
  for (int i = 1; i <= s.puzzle.Rows; ++i) {
    if (i != row && CellRank(s, i, col) > 0) entry(CellRank(s, i, col));
  }
  for (int j = 1; j <= s.puzzle.Cols; ++j) {
    if (j != col && CellRank(s, row, j) > 0) entry(CellRank(s, row, j));
  }
  return text;
}

// The suit letters of a cell's neighbours: left, above, right, below.
inline std::string NeighbourSuits(const GameState& s, int row, int col) {
  std::string text;
  const int neighbours[4][2] = {{row, col - 1}, {row - 1, col}, {row, col + 1}, {row + 1, col}};
  for (const auto& n : neighbours) text += CellSuit(s, n[0], n[1]);
  return text;
}

}  // namespace velmora::test
