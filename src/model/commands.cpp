// Solve-menu commands, the undo button and the hidden check/solve buttons.
#include "model/commands.h"

#include "model/check.h"
#include "model/rules.h"
#include "model/solver.h"
#include "model/text.h"
#include "model/undo.h"

namespace velmora {
namespace {

constexpr const char* kNoUniqueSolution = "No unique solution - please check the puzzle";

// After a full solve the suit panels show the three cards the puzzle leaves out.
void ListLeftOutCards(GameState& s) {
  for (auto& list : s.Remain) list.clear();
  for (int k = 1; k <= 52; ++k) {
    if (!s.CardCodes.IsAbsent(k)) continue;
    // The card's own rank and suit letters, not its "00X" code.
    s.Remain[static_cast<size_t>(CardSuit(k) - 1)].push_back(CardText(k));
  }
}

}  // namespace

bool RefusedWhileSolving(const GameState& s, UserInterface& ui) {
  if (s.Solving != 1) return false;
  ui.ShowMessage("Cancel AutoSolve first");
  return true;
}

void mnusolveall(GameState& s, UserInterface& ui) {
  const CheckResult check = CheckBoard(s);
  if (check.status == kCheckDone) {
    ui.ShowMessage("Puzzles appears to been solved!");
    return;
  }
  if (check.status == kCheckFault) {
    ui.ShowMessage(check.message);
    return;
  }
  SaveGridSnapshot(s, 0);
  const int result = SolveGrid(s, ui);
  ui.DrawBoard();
  if (result == 1) {
    ui.ShowMessage(kNoUniqueSolution);
    return;
  }
  ListLeftOutCards(s);
  ui.ControlsChanged();
  ui.ShowMessage("Done");
}

void mnurestore(GameState& s, UserInterface& ui) {
  if (RefusedWhileSolving(s, ui)) return;
  if (Trim(s.GridBackups[0]).empty()) {
    ui.ShowMessage("Backup grid not found");
    return;
  }
  RestoreGridSnapshot(s, 0);
  UpdateOptions(s, 1);
  ui.DrawBoard();
  s.GridBackups[0].clear();  // a snapshot is restored once
  ui.ControlsChanged();
}

void mnuviewsol(GameState& s, UserInterface& ui) {
  if (RefusedWhileSolving(s, ui)) return;
  ui.ShowSolutionOverlay();
}

void UndoEdit(GameState& s, UserInterface& ui) { UndoLast(s, ui); }

void Autosolvex(GameState& s, UserInterface& ui) {
  const int result = SolveGrid(s, ui);
  ui.DrawBoard();
  ui.ShowMessage(result == 1 ? kNoUniqueSolution : "Done");
}

void Command6(GameState& s, UserInterface& ui) {
  const CheckResult check = CheckBoard(s);
  if (check.status == kCheckFault) {
    ui.ShowMessage(Str(1) + "=" + check.message);
  } else if (check.status == kCheckDone) {
    ui.ShowMessage("Done");
  } else {
    ui.ShowMessage("All ok but not done yet");
  }
}

void Command7(GameState& s, UserInterface& ui) {
  for (int r = 1; r <= LoopRows(s); ++r) {
    for (int c = 1; c <= LoopCols(s); ++c) s.Grid[r][c] = s.SolutionGrid[r][c];
  }
  ui.DrawBoard();
}

}  // namespace velmora
