// Every empty cell's options, and card look-ups by list text.
#pragma once

#include <string_view>

#include "model/puzzle.h"

namespace velmora {

// Recomputes CellOptions and AvailableCards for the whole board; with `lists`
// also rebuilds the four suit panels' lists of cards still to place. Returns
// false on a run-time error: a cell value that indexes outside CardCodes or
// AvailableCards.
bool UpdateOptions(Puzzle& p);
bool UpdateOptions(Puzzle& p, RemainLists& lists);

// Card index of a two-letter list text such as "KS" (prefix match, any
// case); -1 when no card's list text begins with it.
int FindCardIndex(std::string_view text);

}  // namespace velmora
