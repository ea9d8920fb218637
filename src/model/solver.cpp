// Deduction solver: single options and cards with one place, repeated to a
// fixed point. The solver itself is solver_cells.h; the trials go to the
// build of the CPU level in use.
#include "model/solver.h"

#include <algorithm>
#include <array>
#include <memory>

#include "model/rules.h"
#include "model/solver_trials.h"

namespace velmora {

namespace trials::generic {
#include "model/solver_cells.h"
}  // namespace trials::generic

SolveResult SolveGrid(Puzzle& p, Session& session, UserInterface& ui) {
  session.Solving = 1;
  trials::generic::Solver<false> solver(p);
  if (!solver.Begin()) {
    session.Solving = 0;
    return SolveResult::kCellsLeft;
  }
  int changes;
  do {
    const size_t undoEntries = session.UndoList.size();
    const int rows = p.Rows, cols = p.Cols, solving = session.Solving;
    ui.Yield();  // once per pass: the window stays responsive
    // The commands that may run during the yield and change the board are a
    // load, which clears Solving, and an undo, which takes an entry off the
    // undo list; the pass then starts again from the board as it now is.
    if (session.Solving != solving || session.UndoList.size() != undoEntries || p.Rows != rows ||
        p.Cols != cols) {
      solver.Reset();
      if (!solver.Begin()) {
        session.Solving = 0;
        return SolveResult::kCellsLeft;
      }
    }
    changes = solver.Pass();
  } while (changes != 0);
  solver.Finish();
  session.Solving = 0;
  const int rows = LoopRows(p), cols = LoopCols(p);
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      if (p.Grid[r][c] == 0) return SolveResult::kCellsLeft;  // a suit-only mark counts as filled
    }
  }
  return SolveResult::kFilled;
}

SolveResult SolveGridTrial(Puzzle& p, Session& session, UserInterface& ui) {
  return trials::TrialFunctionsFor(ActiveCpuLevel()).solveGridTrial(p, session, ui);
}

BlankTrials::BlankTrials(Puzzle& p, Session& session)
    : board_(trials::TrialFunctionsFor(ActiveCpuLevel()).board(p, session)) {}

BlankTrials::~BlankTrials() = default;

SolveResult BlankTrials::Try(UserInterface& ui, int row, int col, int card) {
  return board_->Try(ui, row, col, card);
}

void BlankTrials::Keep(int row, int col, int card) { board_->Keep(row, col, card); }

}  // namespace velmora
