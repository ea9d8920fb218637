// Deduction solver: single options and cards with one place, repeated to a fixed point.
#pragma once

#include <memory>

#include "model/puzzle.h"
#include "model/session.h"
#include "model/user_interface.h"

namespace velmora {

// What SolveGrid leaves; the numbers are the ones the program has always used.
enum class SolveResult { kFilled = 0, kCellsLeft = 1 };

// Fills Grid by deduction alone: kFilled when no cell is left empty (a
// suit-only mark counts as filled). Yields once per pass, with Solving set;
// reads the undo list only to notice an undo made during a yield.
SolveResult SolveGrid(Puzzle& p, Session& session, UserInterface& ui);

// What SolveGrid would return for the board as it stands, leaving Grid and
// CellOptions as they were: the generator's test of a blanked board, which
// undoes the solver's fill anyway. It runs SolveGrid's passes, a yield before
// each, and stops as soon as the answer is known.
SolveResult SolveGridTrial(Puzzle& p, Session& session, UserInterface& ui);

namespace trials {
class TrialBoard;
}

// SolveGridTrial for a board whose givens are blanked one at a time: the
// board is read once and each trial patches the cell it blanks.
class BlankTrials {
 public:
  // Reads the board as Grid holds it now.
  BlankTrials(Puzzle& p, Session& session);
  ~BlankTrials();
  BlankTrials(const BlankTrials&) = delete;
  BlankTrials& operator=(const BlankTrials&) = delete;

  // SolveGridTrial with (row, col) blank; Grid must hold 0 there, and
  // `card` is what it held before.
  SolveResult Try(UserInterface& ui, int row, int col, int card);
  // The blank at (row, col) stays for the trials that follow.
  void Keep(int row, int col, int card);

 private:
  std::unique_ptr<trials::TrialBoard> board_;
};

}  // namespace velmora
