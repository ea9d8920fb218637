// The board's layout in twips: where each cell and its text go, hit testing.
#pragma once

#include "model/puzzle.h"

namespace velmora {

inline constexpr int kCellSize = 810;
inline constexpr int kBoardMargin = 30;
// A cell's place follows from its row and column alone, so the layout is
// right for whatever size the puzzle has now: nothing to recompute.
inline constexpr int CellX(int col) { return (col - 1) * kCellSize + kBoardMargin; }
inline constexpr int CellY(int row) { return (row - 1) * kCellSize + kBoardMargin; }
// Where the cell's text is placed from.
inline constexpr int TextX(int col) { return CellX(col) + 250; }
inline constexpr int TextY(int row) { return CellY(row) + 150; }
// The middle of row or column `index`: where the aids and the CLI press the
// mouse. Worked in float, so an index far off the board gives a point far off.
constexpr float CellMiddle(int index) {
  return kBoardMargin + (static_cast<float>(index) - 1.0f) * kCellSize + kCellSize / 2.0f;
}

// The first cell (rows outer) whose square, borders included, holds (x, y);
// row and col are left unchanged when there is none.
void FindCell(const Puzzle& p, float x, float y, int& row, int& col);

}  // namespace velmora
