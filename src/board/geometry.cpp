// The board's layout in twips: hit testing.
#include "board/geometry.h"

namespace velmora {

void FindCell(const Puzzle& p, float x, float y, int& row, int& col) {
  const int rows = LoopRows(p), cols = LoopCols(p);
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      const float cx = static_cast<float>(CellX(c));
      const float cy = static_cast<float>(CellY(r));
      if (cx <= x && x <= cx + kCellSize && cy <= y && y <= cy + kCellSize) {
        row = r;
        col = c;
        return;
      }
    }
  }
}

}  // namespace velmora
