// The player's own notes on the board: suit-only marks.
#include "board/marks.h"

#include <string>

#include "board/geometry.h"
#include "model/hint.h"
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

bool NoteCell(GameState& s, UserInterface& ui, int row, int col, int ranks) {
  Puzzle& p = s.puzzle;
  if (s.session.Solving == 1 || ranks < 0 || ranks >= (1 << 13)) return false;
  if (row < 1 || row > LoopRows(p) || col < 1 || col > LoopCols(p)) return false;
  if (p.PuzzleGrid[row][col] != 0 || p.Grid[row][col] > 0 || p.Notes[row][col] == ranks) return false;
  s.session.UndoList.push_front(NoteUndoEntry(row, col, p.Notes[row][col]));
  s.session.aids.RedoList.clear();  // as PushUndo: a change ends what could be redone
  EndHint(s.session.aids, s.view);
  p.Notes[row][col] = static_cast<uint16_t>(ranks);
  ui.ControlsChanged();
  return true;
}

void NoteChosenRank(GameState& s, UserInterface& ui, float x, float y) {
  const int card = FindCardIndex(s.session.SelectedCard);
  int row = 0, col = 0;
  FindCell(s.puzzle, x, y, row, col);
  if (card < 1 || row < 1 || col < 1) return;
  NoteCell(s, ui, row, col, s.puzzle.Notes[row][col] ^ (1 << (CardRank(card) - 1)));
}

void CycleMark(GameState& s, UserInterface& ui, float x, float y) {
  int row = 0, col = 0;
  FindCell(s.puzzle, x, y, row, col);
  if (row < 1 || col < 1) return;
  const int old = s.puzzle.Grid[row][col];
  if (old <= 0) MarkCell(s, ui, row, col, (-old + 1) % 5);
}

}  // namespace velmora
