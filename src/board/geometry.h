// Board geometry in twips: cell numbers, cell and text positions, hit testing.
#pragma once

#include "model/game_state.h"

namespace velmora {

inline constexpr int kCellSize = 810;
inline constexpr int kBoardMargin = 30;
// The middle of row or column `index` in twips, where CalcCellPos puts it.
constexpr float CellMiddle(int index) {
  return kBoardMargin + static_cast<float>(index - 1) * kCellSize + kCellSize / 2;
}

// Fills CellNumber, CellRow, CellCol, CellX, CellY, TextX, TextY for the
// current Rows x Cols. Clearing the picture is the window's part.
void CalcCellPos(GameState& s);

// The first cell (rows outer) whose square, borders included, holds (x, y);
// row and col are left unchanged when there is none.
void FindCell(const GameState& s, float x, float y, int& row, int& col);

}  // namespace velmora
