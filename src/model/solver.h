// Deduction solver: single options and cards with one place, repeated to a fixed point.
#pragma once

#include <memory>

#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// Fills Grid by deduction alone. Returns 0 when no cell is left empty (a
// suit-only mark counts as filled), 1 otherwise. Yields once per pass; does
// not touch the Remain lists or the undo list.
int SolveGrid(GameState& s, UserInterface& ui);

// What SolveGrid would return for the board as it stands, leaving Grid and
// CellOptions as they were: the generator's test of a blanked board, which
// undoes the solver's fill anyway. It runs SolveGrid's passes, a yield before
// each, and stops as soon as the answer is known.
int SolveGridTrial(GameState& s, UserInterface& ui);

// SolveGridTrial for a board whose givens are blanked one at a time: the
// board is read once and each trial patches the cell it blanks.
class BlankTrials {
 public:
  // Reads the board as Grid holds it now.
  explicit BlankTrials(GameState& s);
  ~BlankTrials();
  BlankTrials(const BlankTrials&) = delete;
  BlankTrials& operator=(const BlankTrials&) = delete;

  // SolveGridTrial with (row, col) blank; Grid must hold 0 there, and
  // `card` is what it held before.
  int Try(UserInterface& ui, int row, int col, int card);
  // The blank at (row, col) stays for the trials that follow.
  void Keep(int row, int col, int card);

 private:
  struct Board;
  GameState& s_;
  std::unique_ptr<Board> board_;
};

}  // namespace velmora
