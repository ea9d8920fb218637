// The generator written word for word over sorted text lists and the text
// rule tests: the oracle the bit-set generator must match draw for draw.
#pragma once

#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora::test {

// Same contract as CreatePuzzle; the state must already be 7x7 with its
// cell numbers computed.
int LiteralCreatePuzzle(GameState& s, UserInterface& ui, int& difficulty);

// Same contract as RemoveGivens.
bool LiteralRemoveGivens(GameState& s, UserInterface& ui, int& difficulty);

}  // namespace velmora::test
