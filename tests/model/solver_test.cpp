// The deduction solver: agreement with a plain reading of the rules and the two
// deductions on many boards, bad boards, and commands run while it yields.
#include "model/solver.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdlib>
#include <functional>
#include <random>

#include "board/geometry.h"
#include "files/puzzle_file.h"
#include "model/undo.h"
#include "test_support.h"

namespace velmora {
namespace {

class SolvingSeen : public SilentUserInterface {
 public:
  explicit SolvingSeen(GameState& s) : s_(s) {}
  void Yield() override { solving = s_.Solving; }
  int solving = -1;

 private:
  GameState& s_;
};

bool InDeck(const GameState& s, int v) { return v >= 1 && v <= 52 && s.CardCodes.Code(v) != "00X"; }

// The rules read straight off the board: card k may go into (r, c) unless it
// lies on the board, a card of the row or column has its rank, or a card next
// door has its suit or a neighbouring rank (king and ace too); a suit-only
// mark next door bars its suit. Cards outside the deck bar nothing.
CardSet ReferenceOptions(const GameState& s, int r, int c) {
  const auto rank = [&](int v) { return InDeck(s, v) ? (v - 1) / 4 + 1 : 0; };
  const auto suit = [&](int v) { return v >= -4 && v <= -1 ? -v - 1 : InDeck(s, v) ? (v - 1) % 4 : -1; };
  CardSet options = 0;
  for (int k = 1; k <= 52; ++k) {
    bool fits = InDeck(s, k);
    for (int i = 1; i <= s.Rows; ++i) {
      for (int j = 1; j <= s.Cols; ++j) {
        const int v = s.Grid[i][j], gap = (rank(k) - rank(v) + 13) % 13;
        const bool line = (i == r) != (j == c), next = std::abs(i - r) + std::abs(j - c) == 1;
        if (v == k || (line && rank(v) == rank(k))) fits = false;
        if (next && (suit(v) == suit(k) || (rank(v) > 0 && (gap == 1 || gap == 12)))) fits = false;
      }
    }
    if (fits) options |= CardBit(k);
  }
  return options;
}

// Pass after pass until one changes nothing: every cell with a single option
// takes it (options as the pass before left them), then every card that is
// an option of one cell alone goes there.
int ReferenceSolve(GameState& s) {
  const auto update = [&s] {
    for (int r = 1; r <= s.Rows; ++r)
      for (int c = 1; c <= s.Cols; ++c) s.CellOptions[r][c] = s.Grid[r][c] > 0 ? 0 : ReferenceOptions(s, r, c);
  };
  update();
  for (bool changed = true; changed;) {
    changed = false;
    for (int r = 1; r <= s.Rows; ++r)
      for (int c = 1; c <= s.Cols; ++c)
        if (std::popcount(s.CellOptions[r][c]) == 1) {
          s.Grid[r][c] = std::countr_zero(s.CellOptions[r][c]) + 1;
          s.CellOptions[r][c] = 0;
          changed = true;
        }
    update();
    int count[53] = {}, row[53] = {}, col[53] = {};
    for (int r = 1; r <= s.Rows; ++r)
      for (int c = 1; c <= s.Cols; ++c)
        for (int k = 1; k <= 52; ++k)
          if (s.CellOptions[r][c] & CardBit(k)) ++count[k], row[k] = r, col[k] = c;
    for (int k = 1; k <= 52; ++k) {
      if (count[k] != 1) continue;
      s.Grid[row[k]][col[k]] = k;
      s.CellOptions[row[k]][col[k]] = 0;
      changed = true;
    }
  }
  for (int r = 1; r <= s.Rows; ++r)
    for (int c = 1; c <= s.Cols; ++c)
      if (s.Grid[r][c] == 0) return 1;
  return 0;
}

void ExpectSameAsReference(const GameState& start, const std::string& what) {
  GameState fast = start, slow = start;
  SilentUserInterface ui;
  const int expected = ReferenceSolve(slow);
  EXPECT_EQ(SolveGrid(fast, ui), expected) << what;
  EXPECT_EQ(fast.Grid, slow.Grid) << what;
  EXPECT_EQ(fast.CellOptions, slow.CellOptions) << what;
  EXPECT_EQ(fast.Solving, 0) << what;
}

using test::SolvableFile;
GameState Load(const std::string& file, int n) { return test::Loaded(file, n); }

TEST(SolveGrid, SolvesTheDeductionPuzzleToItsStoredSolution) {
  GameState s = Load(SolvableFile(), 1);
  SolvingSeen ui(s);
  EXPECT_EQ(SolveGrid(s, ui), 0);
  EXPECT_EQ(s.Grid, s.SolutionGrid);
  EXPECT_EQ(ui.solving, 1);  // raised while it runs
  EXPECT_EQ(s.Solving, 0);
}

// The solution with `blanks` random cells changed: most emptied, some made
// suit-only marks, some wrong cards, to reach the quirks (duplicate fills,
// marks replaced by other suits, cells left without options).
GameState Scrambled(const GameState& full, std::mt19937& rng, int blanks) {
  GameState s = full;
  s.Grid = s.SolutionGrid;
  for (int b = 0; b < blanks; ++b) {
    const int r = 1 + static_cast<int>(rng() % 7), c = 1 + static_cast<int>(rng() % 7);
    const unsigned kind = rng() % 10;
    s.Grid[r][c] =
        kind == 0 ? -static_cast<int>(1 + rng() % 4) : (kind == 1 ? 1 + static_cast<int>(rng() % 52) : 0);
  }
  return s;
}

TEST(SolveGrid, AgreesWithTheLiteralStepsOnManyBoards) {
  for (int n = 1; n <= 3; ++n)
    ExpectSameAsReference(Load(test::SampleFile(), n), "sample " + std::to_string(n));
  const GameState full = Load(SolvableFile(), 1);
  std::mt19937 rng(20240611);
  for (int trial = 0; trial < 150; ++trial) {
    ExpectSameAsReference(Scrambled(full, rng, 10 + trial % 30), "trial " + std::to_string(trial));
    if (HasFailure()) return;
  }
}

TEST(SolveGrid, BoardsItCannotReadGiveOneWithoutACrash) {
  SilentUserInterface ui;
  GameState s = Load(SolvableFile(), 1);
  s.Grid[1][2] = 60;  // no card
  EXPECT_EQ(SolveGrid(s, ui), 1);
  EXPECT_EQ(s.Solving, 0);
  for (int rows : {0, -3, 12}) {
    GameState u = Load(SolvableFile(), 1);
    u.Rows = rows;
    EXPECT_EQ(SolveGrid(u, ui), rows == 0 || rows == -3 ? 0 : 1) << rows;
  }
}

// Commands that run while the solver yields: it goes on from the board as
// they leave it.
class InterferingUi : public SilentUserInterface {
 public:
  InterferingUi(GameState& s, std::function<void(GameState&)> act) : s_(s), act_(std::move(act)) {}
  void Yield() override {
    if (++yields == 1) act_(s_);
  }
  int yields = 0;

 private:
  GameState& s_;
  std::function<void(GameState&)> act_;
};

TEST(SolveGrid, GoesOnFromTheBoardALoadOrAnUndoDuringItsYieldLeaves) {
  const int wrong = Load(SolvableFile(), 1).SolutionGrid[1][6];  // a card of the deck, wrong at (1, 2)
  const std::function<void(GameState&)> acts[] = {
      [](GameState& st) {
        std::string title;
        SilentUserInterface quiet;
        ASSERT_EQ(LoadPuzzle(st, quiet, test::SampleFile(), 2, title, 0), 0);
      },
      [](GameState& st) {
        SilentUserInterface quiet;
        UndoLast(st, quiet);
      }};
  for (int i = 0; i < 2; ++i) {
    GameState s = Load(SolvableFile(), 1);
    ASSERT_EQ(s.Grid[1][2], 0);
    s.UndoList.push_front(UndoEntry(1, 2, wrong));
    GameState expected = s;
    acts[i](expected);
    SilentUserInterface quiet;
    const int result = SolveGrid(expected, quiet);
    InterferingUi ui(s, acts[i]);
    EXPECT_EQ(SolveGrid(s, ui), result) << i;
    EXPECT_EQ(s.Grid, expected.Grid) << i;
  }
}

}  // namespace
}  // namespace velmora
