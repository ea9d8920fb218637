// The hint: a wrong card first, then a single option, then a card with one
// place, else none.
#include "model/hint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace velmora {
namespace {

constexpr int k4C = 16, k7D = 27, k3S = 9, k5H = 18, k7H = 26;

// One row of three cells and a deck of the given cards only.
GameState Row(std::initializer_list<int> deck, std::array<int, 3> cells, std::array<int, 3> solution) {
  GameState s;
  s.puzzle.Rows = 1, s.puzzle.Cols = 3;
  for (int k = 1; k <= 52; ++k)
    if (std::find(deck.begin(), deck.end(), k) == deck.end()) s.puzzle.CardCodes.Set(k, 0, 0);
  for (int c = 1; c <= 3; ++c)
    s.puzzle.Grid[1][c] = cells[c - 1], s.puzzle.SolutionGrid[1][c] = solution[c - 1];
  return s;
}

TEST(Hint, EachKindInItsOrderWithItsText) {
  // 4C bars clubs and ranks 3-5 next door, rank 4 in its row.
  const struct {
    GameState s;
    std::string text;
  } cases[] = {
      {Row({k4C, k7D, k3S, k5H}, {k4C, 0, k3S}, {k4C, k7D, k5H}), "the card at 1, 3 is wrong"},
      {Row({k4C, k7D, k3S, k5H}, {k4C, 0, 0}, {k4C, k7D, k5H}), "1, 2 can only take 7D"},
      // 1S bars only spades and 1, 2, K next door: 3S fits (1, 3) alone.
      {Row({1, k7D, k3S, k5H}, {1, 0, 0}, {1, k7D, k3S}), "3S fits nowhere else but 1, 3"},
      {Row({k4C, k7D, k7H}, {k4C, 0, 0}, {k4C, k7D, k7H}), "No step follows from the rules alone"},
  };
  for (const auto& c : cases) EXPECT_EQ(HintText(FindHint(c.s.puzzle)), c.text);
}

}  // namespace
}  // namespace velmora
