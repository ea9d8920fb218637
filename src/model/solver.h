// Deduction solver: single options and cards with one place, repeated to a fixed point.
#pragma once

#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// Fills Grid by deduction alone. Returns 0 when no cell is left empty (a
// suit-only mark counts as filled), 1 otherwise. Yields once per pass; does
// not touch the Remain lists or the undo list.
int SolveGrid(GameState& s, UserInterface& ui);

}  // namespace velmora
