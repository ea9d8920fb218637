// Play aids: the Assist menu's hint and redo, and play from the keyboard.
#include "board/aids.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "board/geometry.h"
#include "board/play.h"
#include "model/commands.h"
#include "model/hint.h"
#include "model/undo.h"

namespace velmora {
namespace {

// The middle of a cell, where the aids press the mouse buttons.
float Mid(int corner) { return static_cast<float>(corner) + kCellSize / 2.0f; }

// A mouse release in the middle of the cell: the very path a click takes.
void ClickCell(GameState& s, UserInterface& ui, int button, int row, int col) {
  Picture1MouseUp(s, ui, button, Mid(CellX(col)), Mid(CellY(row)));
}

bool OnBoard(const GameState& s, int row, int col) {
  return row >= 1 && row <= LoopRows(s.puzzle) && col >= 1 && col <= LoopCols(s.puzzle);
}

void TakeStep(GameState& s, UserInterface& ui, const Hint& hint) {
  if (hint.kind == kHintWrong) {
    ClickCell(s, ui, kRightButton, hint.row, hint.col);
  } else if (hint.kind != kHintNone) {
    if (ChooseCard(s, ui, CardText(hint.card))) ClickCell(s, ui, kLeftButton, hint.row, hint.col);
  }
}

}  // namespace

void mnuhint(GameState& s, UserInterface& ui) {
  if (RefusedWhileSolving(s.session, ui)) return;
  const Hint hint = FindHint(s.puzzle);
  PlayAids& a = s.session.aids;
  // hintKind 0 (none shown) matches no hint.
  const bool again = a.hintKind == hint.kind && a.hintRow == hint.row && a.hintCol == hint.col &&
                     a.hintCard == hint.card && a.gridAtHint == s.puzzle.Grid;
  if (again) {
    EndHint(s.session.aids, s.view);
    TakeStep(s, ui, hint);
  } else {
    a.hintKind = hint.kind;
    a.hintRow = hint.row, a.hintCol = hint.col, a.hintCard = hint.card;
    a.gridAtHint = s.puzzle.Grid;
    s.view.pb = HintText(hint);
  }
  ui.ControlsChanged();
}

void mnuredo(GameState& s, UserInterface& ui) {
  if (RefusedWhileSolving(s.session, ui)) return;
  RedoLast(s, ui);
}

void MoveCursor(GameState& s, UserInterface& ui, int rows, int cols) {
  if (s.session.Solving == 1 || LoopRows(s.puzzle) < 1 || LoopCols(s.puzzle) < 1) return;
  PlayAids& a = s.session.aids;
  if (!OnBoard(s, a.cursorRow, a.cursorCol)) {
    a.cursorRow = a.cursorCol = 1;
  } else {
    a.cursorRow = std::min(std::max(a.cursorRow + rows, 1), LoopRows(s.puzzle));
    a.cursorCol = std::min(std::max(a.cursorCol + cols, 1), LoopCols(s.puzzle));
  }
  a.pendingRank = 0;
  const int row = a.cursorRow, col = a.cursorCol;
  Picture1MouseMove(s, ui, Mid(CellX(col)), Mid(CellY(row)));
  ui.ControlsChanged();
}

void TypeLetter(GameState& s, UserInterface& ui, char letter) {
  if (s.session.Solving == 1) return;
  PlayAids& a = s.session.aids;
  const char c = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
  if (RankOfLetter(c) != 0) {
    a.pendingRank = c;
    return;
  }
  const char rank = a.pendingRank;
  a.pendingRank = 0;
  if (rank == 0 || kSuitOrder.find(c) == std::string_view::npos) return;
  if (!ChooseCard(s, ui, std::string{rank, c})) return;
  if (OnBoard(s, a.cursorRow, a.cursorCol)) ClickCell(s, ui, kLeftButton, a.cursorRow, a.cursorCol);
  ui.ControlsChanged();
}

void ClearAtCursor(GameState& s, UserInterface& ui) {
  if (s.session.Solving == 1 || !OnBoard(s, s.session.aids.cursorRow, s.session.aids.cursorCol)) return;
  s.session.aids.pendingRank = 0;
  ClickCell(s, ui, kRightButton, s.session.aids.cursorRow, s.session.aids.cursorCol);
}

}  // namespace velmora
