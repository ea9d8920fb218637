// Every empty cell's options, and card look-ups by list text.
#pragma once

#include <string_view>

#include "model/game_state.h"

namespace velmora {

// Recomputes CellOptions for the whole board; refresh = 1 also rebuilds the
// four Remain lists. Returns false on a run-time error: a cell value that
// indexes outside CardCodes or AvailableCards.
bool UpdateOptions(GameState& s, int refresh);

// Card index of a two-letter list text such as "KS" (prefix match, any
// case); -1 when no card's list text begins with it.
int FindCardIndex(std::string_view text);

}  // namespace velmora
