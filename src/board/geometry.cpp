// Board geometry in twips: cell numbers, cell and text positions, hit testing.
#include "board/geometry.h"

namespace velmora {

void CalcCellPos(GameState& s) {
  s.CellRow.fill(0);
  s.CellCol.fill(0);
  const int rows = LoopRows(s), cols = LoopCols(s);
  int counter = 0;
  for (int row = 1; row <= rows; ++row) {
    for (int col = 1; col <= cols; ++col) {
      ++counter;
      s.CellNumber[row][col] = counter;
      s.CellRow[counter] = row;
      s.CellCol[counter] = col;
      s.CellX[row][col] = (col - 1) * kCellSize + kBoardMargin;
      s.CellY[row][col] = (row - 1) * kCellSize + kBoardMargin;
      s.TextX[row][col] = s.CellX[row][col] + 250;
      s.TextY[row][col] = s.CellY[row][col] + 150;
    }
  }
}

void FindCell(const GameState& s, float x, float y, int& row, int& col) {
  const int rows = LoopRows(s), cols = LoopCols(s);
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      const float cx = static_cast<float>(s.CellX[r][c]);
      const float cy = static_cast<float>(s.CellY[r][c]);
      if (cx <= x && x <= cx + kCellSize && cy <= y && y <= cy + kCellSize) {
        row = r;
        col = c;
        return;
      }
    }
  }
}

}  // namespace velmora
