// The player's own notes on the board: suit-only marks.
#include "board/marks.h"

#include <string>

#include "board/geometry.h"
#include "model/rules.h"
#include "model/undo.h"

namespace velmora {

bool MarkCell(GameState& s, UserInterface& ui, int row, int col, int suit) {
  Puzzle& p = s.puzzle;
  if (s.session.Solving == 1 || suit < 0 || suit > 4) return false;
  if (row < 1 || row > LoopRows(p) || col < 1 || col > LoopCols(p)) return false;
  const int old = p.Grid[row][col];
  if (p.PuzzleGrid[row][col] != 0 || old > 0 || old < kMinCardIndex || old == -suit) return false;
  PushUndo(p, s.session, s.view, row, col);
  p.Grid[row][col] = -suit;
  UpdateOptions(p, s.view.Remain);
  ui.DrawCell(-1, suit == 0 ? std::string() : std::string(1, kSuitLetters[suit]), row, col);
  ui.ControlsChanged();
  return true;
}

void CycleMark(GameState& s, UserInterface& ui, float x, float y) {
  int row = 0, col = 0;
  FindCell(s.puzzle, x, y, row, col);
  if (row < 1 || col < 1) return;
  const int old = s.puzzle.Grid[row][col];
  if (old <= 0) MarkCell(s, ui, row, col, (-old + 1) % 5);
}

}  // namespace velmora
