// Deduction solver: single options and cards with one place, repeated to a fixed point.
#pragma once

#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// Fills Grid by deduction alone. Returns 0 when no cell is left empty (a
// suit-only mark counts as filled), 1 otherwise. Yields once per pass; does
// not touch the Remain lists or the undo list.
int SolveGrid(GameState& s, UserInterface& ui);

// What SolveGrid would return for the board as it stands, leaving Grid and
// CellOptions as they were: the generator's test of a blanked board, which
// undoes the solver's fill anyway. It yields once per pass as SolveGrid does.
int SolveGridTrial(GameState& s, UserInterface& ui);

}  // namespace velmora
