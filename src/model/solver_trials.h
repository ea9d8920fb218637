// The solver's trials as each CPU level builds them: what SolveGridTrial and
// BlankTrials hand over to the level that runs.
#pragma once

#include <memory>

#include "model/cpu_level.h"
#include "model/solver.h"

namespace velmora::trials {

// A board read once whose givens are blanked one at a time (BlankTrials).
class TrialBoard {
 public:
  virtual ~TrialBoard() = default;
  virtual SolveResult Try(UserInterface& ui, int row, int col, int card) = 0;
  virtual void Keep(int row, int col, int card) = 0;
};

struct TrialFunctions {
  SolveResult (*solveGridTrial)(Puzzle& p, Session& session, UserInterface& ui);
  std::unique_ptr<TrialBoard> (*board)(Puzzle& p, Session& session);
};

// The generic build (solver.cpp).
namespace generic {
SolveResult CellsTrial(Puzzle& p, Session& session, UserInterface& ui);
std::unique_ptr<TrialBoard> CellsBoard(Puzzle& p, Session& session);
}  // namespace generic

// The functions built for `level`; a level that is not built in gives the generic ones.
const TrialFunctions& TrialFunctionsFor(CpuLevel level);

// SolveGridTrial's passes on a started solver: those of SolveGrid, each
// after a yield, up to the point where the answer is known.
template <class Solver>
[[gnu::always_inline]] inline SolveResult RunTrialWith(Solver& solver, Session& session, UserInterface& ui) {
  session.Solving = 1;
  ui.Yield();
  while (!solver.Stuck() && solver.Pass() != 0) {
    // A cell left without options is never filled; no open cell is left
    // to fill.
    if (solver.Stuck() || solver.AllPlaced()) break;
    ui.Yield();
  }
  session.Solving = 0;
  return solver.Stuck() || solver.EmptyCellLeft() ? SolveResult::kCellsLeft : SolveResult::kFilled;
}

}  // namespace velmora::trials
