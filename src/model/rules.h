// The rules as tests on the grid, and every empty cell's options.
#pragma once

#include <string>
#include <string_view>

#include "model/game_state.h"

namespace velmora {

// Rank (0..13) of a cell through CardCodes; 0 outside the grid.
int CellRank(const GameState& s, int row, int col);
// Suit letter of a cell ("S".."C", "X" for an empty cell); "" outside the grid.
std::string CellSuit(const GameState& s, int row, int col);
// The texts the rule tests search: rank entries " 5," and suit letters.
std::string ExcludedRanks(const GameState& s, int row, int col);
std::string NeighbourSuits(const GameState& s, int row, int col);

// Recomputes CellOptions for the whole board; refresh = 1 also rebuilds the
// four Remain lists. Returns false on a run-time error: a cell value that
// indexes outside CardCodes or AvailableCards.
bool UpdateOptions(GameState& s, int refresh);

// Card index of a two-letter list text such as "KS" (prefix match, any
// case); -1 when no card's list text begins with it.
int FindCardIndex(std::string_view text);

// 0..3 for exactly "S", "H", "D", "C"; -1 otherwise.
int SuitListIndex(std::string_view letter);

}  // namespace velmora
