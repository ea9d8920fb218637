// The generator: the same draws as the word-for-word version, and puzzles
// that keep every promise of their level.
#include "creation/generator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "board/geometry.h"
#include "creation/literal_generator.h"
#include "model/solver.h"
#include "test_support.h"

namespace velmora {
namespace {

GameState SeededState(uint64_t seed) {
  GameState s;
  s.puzzle.Rows = s.puzzle.Cols = 7;
  s.session.rng = Random::Seeded(seed);
  return s;
}

GameState Generated(int level, uint64_t seed) {
  GameState s = SeededState(seed);
  SilentUserInterface ui;
  EXPECT_EQ(CreatePuzzle(s.puzzle, s.session, ui, level), 0);
  return s;
}

TEST(Generator, MatchesTheWordForWordVersionDrawForDrawOnEveryCpuLevel) {
  test::ForEachCpuLevel([&] {
    for (int level = 0; level <= 3; ++level) {
      for (uint64_t seed = 1; seed <= 25; ++seed) {
        GameState fast = SeededState(seed), literal = SeededState(seed);
        int fastLevel = level, literalLevel = level;
        SilentUserInterface ui;
        ASSERT_EQ(CreatePuzzle(fast.puzzle, fast.session, ui, fastLevel), 0);
        ASSERT_EQ(test::LiteralCreatePuzzle(literal, ui, literalLevel), 0);
        SCOPED_TRACE("level " + std::to_string(level) + " seed " + std::to_string(seed));
        EXPECT_EQ(fastLevel, literalLevel);
        EXPECT_EQ(fast.puzzle.Grid, literal.puzzle.Grid);
        EXPECT_EQ(fast.puzzle.SolutionGrid, literal.puzzle.SolutionGrid);
        for (int k = -4; k <= 52; ++k)
          EXPECT_EQ(fast.puzzle.CardCodes.Code(k), literal.puzzle.CardCodes.Code(k)) << k;
        EXPECT_EQ(fast.session.rng.state(), literal.session.rng.state()) << "a different number of draws";
        if (HasFailure()) return;
      }
    }
  });
}

// What every level promises beyond the draws: the puzzle solves by deduction
// alone to its stored solution, and the three "00X" cards are the ones that
// solution leaves out. (That each level blanks what it should and every deal
// keeps the rules is pinned by the draw-for-draw comparison.)
TEST(Generator, EveryPuzzleSolvesToItsSolutionAndMarksTheUndealtCards) {
  for (uint64_t seed = 100; seed < 115; ++seed) {
    for (int level : {kLevelEasy, kLevelHard, kLevelVHard}) {
      const GameState made = Generated(level, seed);
      GameState s = made;
      SilentUserInterface ui;
      EXPECT_EQ(SolveGrid(s.puzzle, s.session, ui), SolveResult::kFilled);
      ASSERT_EQ(s.puzzle.Grid, made.puzzle.SolutionGrid) << "level " << level << " seed " << seed;
      std::set<int> used;
      for (int r = 1; r <= 7; ++r) used.insert(s.puzzle.Grid[r].begin() + 1, s.puzzle.Grid[r].begin() + 8);
      EXPECT_EQ(used.size(), 49u);
      for (int k = 1; k <= 52; ++k)
        EXPECT_EQ(made.puzzle.CardCodes.Code(k) == "00X", used.count(k) == 0) << k;
    }
  }
}

// Presses Cancel during the yield of column attempt `at`.
struct CancelAtYield : UserInterface {
  CancelAtYield(GameState& state, int at) : state(state), at(at) {}
  void Yield() override {
    if (++yields == at) state.session.CancelRequest = 1;
  }
  GameState& state;
  int at, yields = 0;
};

TEST(Generator, CancelIsSeenAtTheNextColumnAttemptAndForgottenByAFreshDeal) {
  test::ForEachCpuLevel([&] {
    for (int at : {1, 2, 3}) {
      GameState fast = SeededState(9), literal = SeededState(9);
      CancelAtYield a(fast, at), b(literal, at);
      int la = kLevelVHard, lb = kLevelVHard;
      ASSERT_EQ(CreatePuzzle(fast.puzzle, fast.session, a, la), 1) << at;
      ASSERT_EQ(test::LiteralCreatePuzzle(literal, b, lb), 1) << at;
      EXPECT_EQ(fast.puzzle.Grid, literal.puzzle.Grid) << at;  // the part dealt so far
    }
    GameState stale = SeededState(5);
    stale.session.CancelRequest = 1;  // standing before the call: cleared by the first fresh deal
    CancelAtYield never(stale, 0);
    int level = kLevelEasy;
    EXPECT_EQ(CreatePuzzle(stale.puzzle, stale.session, never, level), 0);
  });
}

uint64_t FrozenClock() { return 12345678901234ULL; }

TEST(Random, TheClockNeverRepeatsADrawWithinOneTick) {
  Random frozen = Random::Clocked(42, FrozenClock);
  std::set<uint64_t> seen;
  for (int i = 0; i < 1000; ++i) seen.insert(frozen.Bits53());
  EXPECT_EQ(seen.size(), 1000u);
}

TEST(Random, IntegerPickAgreesWithTheFloatingPointFormulaNearEveryBoundary) {
  auto reference = [](uint64_t bits, int n) {  // floor(u * n) + 1, u = bits * 2^-53, clamped to n
    const int k = static_cast<int>(static_cast<double>(bits) * 0x1.0p-53 * n) + 1;
    return k > n ? n : k;
  };
  const uint64_t top = (uint64_t{1} << 53) - 1;
  for (int n = 1; n <= 300; ++n) {
    for (uint64_t j = 1; j <= static_cast<uint64_t>(n); ++j) {
      // The bits whose product lands just below j * 2^53, where the double
      // rounds; for j = n up to the highest bits, where the pick is clamped.
      const uint64_t at = ((j << 53) + static_cast<uint64_t>(n) - 1) / static_cast<uint64_t>(n);
      for (uint64_t b = at - 3; b <= std::min(top, at + 3); ++b)
        ASSERT_EQ(Random::PickOf(b, n), reference(b, n)) << b << " " << n;
    }
  }
}

TEST(AutomaticTitle, LevelDateAndTime) {
  std::tm when{};
  when.tm_year = 126, when.tm_mon = 10, when.tm_mday = 15, when.tm_hour = 10, when.tm_min = 3,
  when.tm_sec = 33;
  EXPECT_EQ(AutomaticTitle(kLevelVHard, when), "VHard 15/11/2026 10:03:33");
}

}  // namespace
}  // namespace velmora
