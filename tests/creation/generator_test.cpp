// The generator: the same draws as the word-for-word version, and puzzles
// that keep every promise of their level.
#include "creation/generator.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "board/geometry.h"
#include "creation/literal_generator.h"
#include "model/rules.h"
#include "model/solver.h"
#include "model/text.h"

namespace velmora {
namespace {

GameState SeededState(uint64_t seed) {
  GameState s;
  s.Rows = s.Cols = 7;
  CalcCellPos(s);
  s.rng = Random::Seeded(seed);
  return s;
}

TEST(Generator, MatchesTheWordForWordVersionDrawForDraw) {
  for (int level = 0; level <= 3; ++level) {
    for (uint64_t seed = 1; seed <= 12; ++seed) {
      GameState fast = SeededState(seed), literal = SeededState(seed);
      int fastLevel = level, literalLevel = level;
      SilentUserInterface ui;
      ASSERT_EQ(CreatePuzzle(fast, ui, fastLevel), 0);
      ASSERT_EQ(test::LiteralCreatePuzzle(literal, ui, literalLevel), 0);
      SCOPED_TRACE("level " + std::to_string(level) + " seed " + std::to_string(seed));
      EXPECT_EQ(fastLevel, literalLevel);
      EXPECT_EQ(fast.Grid, literal.Grid);
      EXPECT_EQ(fast.SolutionGrid, literal.SolutionGrid);
      EXPECT_EQ(fast.CardCodes.deck, literal.CardCodes.deck);
      EXPECT_EQ(fast.rng.state(), literal.rng.state()) << "a different number of draws";
    }
  }
}

}  // namespace
}  // namespace velmora
