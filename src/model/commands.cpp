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
void ListLeftOutCards(const Puzzle& p, RemainLists& lists) {
  for (auto& list : lists) list.clear();
  for (int k = 1; k <= 52; ++k) {
    if (!p.CardCodes.IsAbsent(k)) continue;
    // The card's own rank and suit letters, not its "00X" code.
    lists[static_cast<size_t>(CardSuit(k) - 1)].push_back(CardText(k));
  }
}

}  // namespace

bool RefusedWhileSolving(const Session& session, UserInterface& ui) {
  if (session.Solving != 1) return false;
  ui.ShowMessage("Cancel AutoSolve first");
  return true;
}

void mnusolveall(GameState& s, UserInterface& ui) {
  const CheckResult check = CheckBoard(s.puzzle);
  if (check.status == kCheckDone) {
    ui.ShowMessage("Puzzles appears to been solved!");
    return;
  }
  if (check.status == kCheckFault) {
    ui.ShowMessage(check.message);
    return;
  }
  SaveGridSnapshot(s.puzzle, s.session, 0);
  const SolveResult result = SolveGrid(s.puzzle, s.session, ui);
  ui.DrawBoard();
  if (result == SolveResult::kCellsLeft) {
    ui.ShowMessage(kNoUniqueSolution);
    return;
  }
  ListLeftOutCards(s.puzzle, s.view.Remain);
  ui.ControlsChanged();
  ui.ShowMessage("Done");
}

void mnurestore(GameState& s, UserInterface& ui) {
  if (RefusedWhileSolving(s.session, ui)) return;
  if (Trim(s.session.GridBackups[0]).empty()) {
    ui.ShowMessage("Backup grid not found");
    return;
  }
  RestoreGridSnapshot(s.puzzle, s.session, 0);
  UpdateOptions(s.puzzle, s.view.Remain);
  ui.DrawBoard();
  s.session.GridBackups[0].clear();  // a snapshot is restored once
  ui.ControlsChanged();
}

void mnuviewsol(GameState& s, UserInterface& ui) {
  if (RefusedWhileSolving(s.session, ui)) return;
  ui.ShowSolutionOverlay();
}

void UndoEdit(GameState& s, UserInterface& ui) { UndoLast(s, ui); }

void Autosolvex(GameState& s, UserInterface& ui) {
  const SolveResult result = SolveGrid(s.puzzle, s.session, ui);
  ui.DrawBoard();
  ui.ShowMessage(result == SolveResult::kCellsLeft ? kNoUniqueSolution : "Done");
}

void Command6(GameState& s, UserInterface& ui) {
  const CheckResult check = CheckBoard(s.puzzle);
  if (check.status == kCheckFault) {
    ui.ShowMessage(Str(1) + "=" + check.message);
  } else if (check.status == kCheckDone) {
    ui.ShowMessage("Done");
  } else {
    ui.ShowMessage("All ok but not done yet");
  }
}

void Command7(GameState& s, UserInterface& ui) {
  Puzzle& p = s.puzzle;
  for (int r = 1; r <= LoopRows(p); ++r) {
    for (int c = 1; c <= LoopCols(p); ++c) p.Grid[r][c] = p.SolutionGrid[r][c];
  }
  ui.DrawBoard();
}

}  // namespace velmora
