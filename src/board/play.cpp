// Mouse play on the board and choosing a card in the suit panels.
#include "board/play.h"

#include "board/geometry.h"
#include "model/check.h"
#include "model/rules.h"
#include "model/text.h"
#include "model/undo.h"

namespace velmora {
namespace {

// A left click with a card chosen. Every refusal is silent.
void PlaceSelectedCard(GameState& s, UserInterface& ui, int row, int col) {
  const int card = FindCardIndex(s.session.SelectedCard);
  if (card == -1) return;
  if (s.puzzle.PuzzleGrid[row][col] >= 1) return;  // a given card; a given mark does not block
  const std::string suit = s.session.SelectedCard.substr(s.session.SelectedCard.size() - 1);
  const int current = s.puzzle.Grid[row][col];
  if (current == 0 && !ContainsNoCase(OptionText(s.puzzle.CellOptionsSaved[row][col]), suit)) return;
  if (s.puzzle.CardCodes.Rank(card) == 0) return;
  if (current > 0) {
    // A card is exchanged only for one of its own suit; the removal is an
    // undo entry of its own.
    if (!CardCodeTable::InRange(current) || std::string(1, s.puzzle.CardCodes.SuitLetter(current)) != suit)
      return;
    PushUndo(s.puzzle, s.session, s.view, row, col);
    s.puzzle.Grid[row][col] = 0;
    UpdateOptions(s.puzzle, s.view.Remain);
    s.session.SelectedCard.clear();
  }
  PushUndo(s.puzzle, s.session, s.view, row, col);
  s.puzzle.Grid[row][col] = card;
  UpdateOptions(s.puzzle, s.view.Remain);
  ui.DrawCell(s.puzzle.CardCodes.Rank(card), std::string(1, s.puzzle.CardCodes.SuitLetter(card)), row, col);
  s.session.SelectedCard.clear();
  ui.ControlsChanged();
  if (CheckBoard(s.puzzle).status == kCheckDone) ui.ShowMessage("Done");
}

// The status text of a cell, or empty for a value that has no code.
std::string CellStatus(const Puzzle& p, int row, int col) {
  const int v = p.Grid[row][col];
  std::string detail;
  if (v == 0) {
    detail = " Options=" + OptionText(p.CellOptionsSaved[row][col]);
  } else {
    if (!CardCodeTable::InRange(v)) return "";
    detail = p.PuzzleGrid[row][col] != 0 ? " Fixed=" : " Card=";
    detail += ListText(p, v);
  }
  return " Cell" + Str(p.CellNumber(row, col)) + "," + detail;
}

}  // namespace

void Picture1MouseUp(GameState& s, UserInterface& ui, int button, float x, float y) {
  if (s.session.Solving == 1) {
    if (ui.AskYesNo("Cancel Solution?")) s.session.CancelRequest = 1;
    return;
  }
  int row = 0, col = 0;
  FindCell(s.puzzle, x, y, row, col);
  s.view.Label3 = NumText(row);
  s.view.Label4 = NumText(col);
  ui.ControlsChanged();
  if (row == 0 && col == 0) return;

  if (button == kRightButton) {
    // No test of the givens: a right click empties any cell.
    if (s.puzzle.Grid[row][col] == 0) return;
    PushUndo(s.puzzle, s.session, s.view, row, col);
    s.puzzle.Grid[row][col] = 0;
    s.session.SelectedCard.clear();
    UpdateOptions(s.puzzle, s.view.Remain);
    ui.DrawCell(-1, "", row, col);
    ui.ControlsChanged();
  } else if (button == kLeftButton && !s.session.SelectedCard.empty()) {
    PlaceSelectedCard(s, ui, row, col);
  }
}

void Picture1MouseMove(GameState& s, UserInterface& ui, float x, float y) {
  if (s.session.Solving == 1) return;
  int row = 0, col = 0;
  FindCell(s.puzzle, x, y, row, col);
  const std::string text = row == 0 && col == 0 ? std::string() : CellStatus(s.puzzle, row, col);
  if (text == s.view.pb) return;
  s.view.pb = text;
  ui.ControlsChanged();
}

void RemainClick(GameState& s, UserInterface& ui, int list, int index) {
  if (list < 0 || list >= static_cast<int>(s.view.Remain.size())) return;
  const auto& items = s.view.Remain[static_cast<size_t>(list)];
  if (index < 0 || index >= static_cast<int>(items.size())) return;
  s.session.SelectedCard = items[static_cast<size_t>(index)];
  ui.ControlsChanged();
}

bool ChooseCard(GameState& s, UserInterface& ui, const std::string& text) {
  for (size_t list = 0; list < s.view.Remain.size(); ++list) {
    for (size_t i = 0; i < s.view.Remain[list].size(); ++i) {
      if (s.view.Remain[list][i] != text) continue;
      RemainClick(s, ui, static_cast<int>(list), static_cast<int>(i));
      return true;
    }
  }
  return false;
}

}  // namespace velmora
