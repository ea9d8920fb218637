// The generator: the same draws as the word-for-word version, and puzzles
// that keep every promise of their level.
#include "creation/generator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "board/geometry.h"
#include "creation/literal_generator.h"
#include "model/rules.h"
#include "model/solver.h"

namespace velmora {
namespace {

GameState SeededState(uint64_t seed) {
  GameState s;
  s.Rows = s.Cols = 7;
  CalcCellPos(s);
  s.rng = Random::Seeded(seed);
  return s;
}

int Blanks(const GameState& s) {
  int blanks = 0;
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c) blanks += s.Grid[r][c] == 0;
  return blanks;
}

GameState Made(int level, uint64_t seed, int* made = nullptr) {
  GameState s = SeededState(seed);
  SilentUserInterface ui;
  int difficulty = level;
  EXPECT_EQ(CreatePuzzle(s, ui, difficulty), 0);
  if (made) *made = difficulty;
  return s;
}

TEST(Generator, MatchesTheWordForWordVersionDrawForDraw) {
  for (int level = 0; level <= 3; ++level) {
    for (uint64_t seed = 1; seed <= 25; ++seed) {
      GameState fast = SeededState(seed), literal = SeededState(seed);
      int fastLevel = level, literalLevel = level;
      SilentUserInterface ui;
      ASSERT_EQ(CreatePuzzle(fast, ui, fastLevel), 0);
      ASSERT_EQ(test::LiteralCreatePuzzle(literal, ui, literalLevel), 0);
      SCOPED_TRACE("level " + std::to_string(level) + " seed " + std::to_string(seed));
      EXPECT_EQ(fastLevel, literalLevel);
      EXPECT_EQ(fast.Grid, literal.Grid);
      EXPECT_EQ(fast.SolutionGrid, literal.SolutionGrid);
      EXPECT_EQ(fast.PatternMask, literal.PatternMask);
      for (int k = -4; k <= 52; ++k) EXPECT_EQ(fast.CardCodes.Code(k), literal.CardCodes.Code(k)) << k;
      EXPECT_EQ(fast.rng.state(), literal.rng.state()) << "a different number of draws";
      if (HasFailure()) return;
    }
  }
}

// What each level promises: the base pattern for Easy, at most four more
// blanks for Hard, more still for Very Hard; every puzzle solves by deduction
// alone to its stored solution, and the three "00X" cards are the ones the
// solution leaves out.
TEST(Generator, EachLevelKeepsItsPromises) {
  const char* pattern[7] = {"X.XXX.X", "XX.X.XX", "X.XXX.X", "XX.X.XX", "X.XXX.X", "XX.X.XX", "X.XXX.X"};
  std::map<int, int> drawn;
  for (uint64_t seed = 100; seed < 140; ++seed) {
    int made = -1;
    const GameState random = Made(kLevelRandom, seed, &made);
    ++drawn[made];
    const GameState easy = Made(kLevelEasy, seed), hard = Made(kLevelHard, seed), vhard = Made(kLevelVHard, seed);
    for (int r = 1; r <= 7; ++r)
      for (int c = 1; c <= 7; ++c) EXPECT_EQ(easy.Grid[r][c] == 0, pattern[r - 1][c - 1] == '.') << r << "," << c;
    EXPECT_TRUE(Blanks(hard) >= 14 && Blanks(hard) <= 18) << Blanks(hard);
    EXPECT_GE(Blanks(vhard), 14);
    for (const GameState* s : {&easy, &hard, &vhard, &random}) {
      GameState solved = *s;
      SilentUserInterface ui;
      EXPECT_EQ(SolveGrid(solved, ui), 0);
      EXPECT_EQ(solved.Grid, s->SolutionGrid);
      std::set<int> used, absent;
      solved.Grid = s->SolutionGrid;
      for (int r = 1; r <= 7; ++r)
        for (int c = 1; c <= 7; ++c) {  // each card fits among all the others
          const int v = solved.Grid[r][c];
          used.insert(v);
          solved.Grid[r][c] = 0;
          UpdateOptions(solved, 0);
          EXPECT_TRUE(solved.CellOptions[r][c] & CardBit(v)) << r << "," << c;
          solved.Grid[r][c] = v;
        }
      for (int k = 1; k <= 52; ++k)
        if (s->CardCodes.Code(k) == "00X") absent.insert(k);
      EXPECT_EQ(used.size(), 49u);
      EXPECT_EQ(absent.size(), 3u);
      for (int k : absent) EXPECT_EQ(used.count(k), 0u) << k;
    }
    if (HasFailure()) return;
  }
  EXPECT_EQ(drawn.size(), 3u);  // Random makes every level
  EXPECT_EQ(drawn.count(kLevelRandom), 0u);
}

// A window event that presses Cancel: set during the yield of a column attempt.
class CancelAtYield : public SilentUserInterface {
 public:
  explicit CancelAtYield(GameState& s, int at) : s_(s), at_(at) {}
  void Yield() override {
    if (++yields == at_) s_.CancelRequest = 1;
  }
  int yields = 0;

 private:
  GameState& s_;
  int at_;
};

TEST(Generator, CancelIsSeenAtTheNextColumnAttemptAndForgottenByAFreshDeal) {
  for (int at : {1, 2, 3}) {
    GameState fast = SeededState(9), literal = SeededState(9);
    CancelAtYield a(fast, at), b(literal, at);
    int la = kLevelVHard, lb = kLevelVHard;
    ASSERT_EQ(CreatePuzzle(fast, a, la), 1) << at;
    ASSERT_EQ(test::LiteralCreatePuzzle(literal, b, lb), 1) << at;
    EXPECT_EQ(fast.Grid, literal.Grid) << at;  // the part dealt so far
    EXPECT_EQ(la, kLevelVHard);
  }
  // A request standing before the call is cleared by the first fresh deal.
  GameState t = SeededState(5);
  t.CancelRequest = 1;
  SilentUserInterface quiet;
  int level = kLevelEasy;
  EXPECT_EQ(CreatePuzzle(t, quiet, level), 0);
  EXPECT_EQ(t.Grid, Made(kLevelEasy, 5).Grid);
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
    for (uint64_t j = 1; j < static_cast<uint64_t>(n); ++j) {
      // The bits whose product lands just below j * 2^53, where the double rounds.
      const uint64_t at = ((j << 53) + static_cast<uint64_t>(n) - 1) / static_cast<uint64_t>(n);
      for (uint64_t b = at > 3 ? at - 3 : 0; b <= std::min(top, at + 3); ++b)
        ASSERT_EQ(Random::PickOf(b, n), reference(b, n)) << b << " " << n;
    }
    ASSERT_EQ(Random::PickOf(top, n), reference(top, n)) << n;
  }
}

TEST(AutomaticTitle, LevelDateAndTime) {
  std::tm when{};
  when.tm_year = 126, when.tm_mon = 10, when.tm_mday = 15, when.tm_hour = 10, when.tm_min = 3, when.tm_sec = 33;
  EXPECT_EQ(AutomaticTitle(kLevelVHard, when), "VHard 15/11/2026 10:03:33");
}

// Jobs for the paired batch: seeds 1..count at one level, results kept.
class SeedJobs : public PuzzleJobs {
 public:
  SeedJobs(int level, uint64_t count) : level_(level), count_(count) {}
  bool Next(uint64_t& id, Random& rng, int& level) override {
    if (next_ >= count_) return false;
    id = ++next_;
    rng = Random::Seeded(id);
    level = level_;
    return true;
  }
  void Made(uint64_t id, const GameState& s, int level) override { made[id] = {s, level}; }
  std::map<uint64_t, std::pair<GameState, int>> made;

 private:
  int level_;
  uint64_t count_, next_ = 0;
};

TEST(CreatePuzzles, TwoAtATimeMakeWhatCreatePuzzleMakesOneAtATime) {
  for (int level : {kLevelEasy, kLevelVHard, kLevelRandom}) {
    SeedJobs jobs(level, 25);
    CreatePuzzles(jobs);
    ASSERT_EQ(jobs.made.size(), 25u);
    for (const auto& [id, result] : jobs.made) {
      int made = -1;
      const GameState alone = Made(level, id, &made);
      EXPECT_EQ(result.first.Grid, alone.Grid) << id;
      EXPECT_EQ(result.first.SolutionGrid, alone.SolutionGrid) << id;
      EXPECT_EQ(result.second, made) << id;
    }
  }
  SeedJobs one(kLevelHard, 1);  // a lone puzzle has no partner to wait for
  CreatePuzzles(one);
  EXPECT_EQ(one.made.size(), 1u);
}

}  // namespace
}  // namespace velmora
