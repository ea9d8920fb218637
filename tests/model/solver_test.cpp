// The deduction solver: agreement with a plain reading of the rules and the two
// deductions on many boards, bad boards, and commands run while it yields.
#include "model/solver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <functional>
#include <random>
#include <utility>
#include <vector>

#include "files/puzzle_file.h"
#include "model/cpu_level.h"
#include "model/rules.h"
#include "model/undo.h"
#include "test_support.h"

namespace velmora {
namespace {

bool InDeck(const GameState& s, int v) { return v >= 1 && v <= 52 && s.puzzle.CardCodes.Code(v) != "00X"; }

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
    for (int i = 1; i <= s.puzzle.Rows; ++i) {
      for (int j = 1; j <= s.puzzle.Cols; ++j) {
        const int v = s.puzzle.Grid[i][j], gap = (rank(k) - rank(v) + 13) % 13;
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
    for (int r = 1; r <= s.puzzle.Rows; ++r)
      for (int c = 1; c <= s.puzzle.Cols; ++c)
        s.puzzle.CellOptions[r][c] = s.puzzle.Grid[r][c] > 0 ? 0 : ReferenceOptions(s, r, c);
  };
  update();
  for (bool changed = true; changed;) {
    changed = false;
    for (int r = 1; r <= s.puzzle.Rows; ++r)
      for (int c = 1; c <= s.puzzle.Cols; ++c)
        if (std::popcount(s.puzzle.CellOptions[r][c]) == 1)
          s.puzzle.Grid[r][c] = std::countr_zero(s.puzzle.CellOptions[r][c]) + 1, changed = true;
    update();
    int count[53] = {}, row[53] = {}, col[53] = {};
    for (int r = 1; r <= s.puzzle.Rows; ++r)
      for (int c = 1; c <= s.puzzle.Cols; ++c)
        for (int k = 1; k <= 52; ++k)
          if (s.puzzle.CellOptions[r][c] & CardBit(k)) ++count[k], row[k] = r, col[k] = c;
    for (int k = 1; k <= 52; ++k)
      if (count[k] == 1)
        s.puzzle.Grid[row[k]][col[k]] = k, s.puzzle.CellOptions[row[k]][col[k]] = 0, changed = true;
  }
  for (int r = 1; r <= s.puzzle.Rows; ++r)
    for (int c = 1; c <= s.puzzle.Cols; ++c)
      if (s.puzzle.Grid[r][c] == 0) return 1;
  return 0;
}

void ExpectSameAsReference(const GameState& start, const std::string& what) {
  GameState fast = start, slow = start;
  SilentUserInterface ui;
  const int expected = ReferenceSolve(slow);
  EXPECT_EQ(static_cast<int>(SolveGrid(fast.puzzle, fast.session, ui)), expected) << what;
  EXPECT_EQ(fast.puzzle.Grid, slow.puzzle.Grid) << what;
  EXPECT_EQ(fast.puzzle.CellOptions, slow.puzzle.CellOptions) << what;
}

// The solution with `blanks` random cells changed: most emptied, some made
// suit-only marks, some wrong cards, to reach the quirks (duplicate fills,
// marks replaced by other suits, cells left without options).
GameState Scrambled(const GameState& full, std::mt19937& rng, int blanks) {
  GameState s = full;
  s.puzzle.Grid = s.puzzle.SolutionGrid;
  for (int b = 0; b < blanks; ++b) {
    const int r = 1 + static_cast<int>(rng() % 7), c = 1 + static_cast<int>(rng() % 7);
    const unsigned kind = rng() % 10;
    s.puzzle.Grid[r][c] =
        kind == 0 ? -static_cast<int>(1 + rng() % 4) : (kind == 1 ? 1 + static_cast<int>(rng() % 52) : 0);
  }
  return s;
}

TEST(SolveGrid, AgreesWithTheLiteralStepsOnManyBoards) {
  for (int n = 1; n <= 3; ++n)
    ExpectSameAsReference(test::Loaded(test::SampleFile(), n), "sample " + std::to_string(n));
  const GameState full = test::Loaded(test::SolvableFile(), 1);
  std::mt19937 rng(20240611);
  for (int trial = 0; trial < 150; ++trial) {
    ExpectSameAsReference(Scrambled(full, rng, 10 + trial % 30), "trial " + std::to_string(trial));
    if (HasFailure()) return;
  }
}

TEST(SolveGrid, BoardsItCannotReadGiveOneWithoutACrash) {
  SilentUserInterface ui;
  // {rows, value at (1, 2), result}: no such card, no board, more rows than the grid has
  const int cases[][3] = {{7, 60, 1}, {0, 0, 0}, {-3, 0, 0}, {12, 0, 1}};
  for (const auto& [rows, value, result] : cases) {
    GameState s = test::Loaded(test::SolvableFile());
    s.puzzle.Rows = rows, s.puzzle.Grid[1][2] = value;
    EXPECT_EQ(static_cast<int>(SolveGrid(s.puzzle, s.session, ui)), result) << rows;
    EXPECT_EQ(s.session.Solving, 0) << rows;
  }
}

// Commands that run while the solver yields, which it flags meanwhile: it
// goes on from the board as they leave it.
class InterferingUi : public UserInterface {
 public:
  InterferingUi(GameState& s, std::function<void(GameState&)> act) : s_(s), act_(std::move(act)) {}
  void Yield() override {
    if (solving == -1) solving = s_.session.Solving, act_(s_);
  }
  int solving = -1;

 private:
  GameState& s_;
  std::function<void(GameState&)> act_;
};

TEST(SolveGrid, GoesOnFromTheBoardALoadOrAnUndoDuringItsYieldLeaves) {
  const int wrong =
      test::Loaded(test::SolvableFile()).puzzle.SolutionGrid[1][6];  // a card of the deck, wrong at (1, 2)
  SilentUserInterface quiet;
  const std::function<void(GameState&)> acts[] = {
      [&](GameState& st) { ASSERT_TRUE(LoadPuzzle(st, quiet, test::SampleFile(), 2, Draw::kNo)); },
      [&](GameState& st) { UndoLast(st, quiet); }};
  for (int i = 0; i < 2; ++i) {
    GameState s = test::Loaded(test::SolvableFile());
    s.session.UndoList.push_front(UndoEntry(1, 2, wrong));
    GameState expected = s;
    acts[i](expected);
    const SolveResult result = SolveGrid(expected.puzzle, expected.session, quiet);
    InterferingUi ui(s, acts[i]);
    EXPECT_EQ(SolveGrid(s.puzzle, s.session, ui), result) << i;
    EXPECT_EQ(s.puzzle.Grid, expected.puzzle.Grid) << i;
    EXPECT_EQ(ui.solving, 1) << i;
  }
}

// Boards for the CPU versions: scrambled ones (marks, wrong and repeated
// cards, cells without options), some narrower, wider or taller than 7x7,
// some with a value that has no card code.
std::vector<GameState> VersionBoards() {
  const GameState full = test::Loaded(test::SolvableFile(), 1);
  std::mt19937 rng(20261125);
  std::vector<GameState> boards;
  for (int t = 0; t < 180; ++t) {
    GameState s = Scrambled(full, rng, 3 + t % 40);
    const int shape = t % 8;
    if (shape == 1) s.puzzle.Cols = 6;
    if (shape == 2) s.puzzle.Rows = 8;
    if (shape == 3) s.puzzle.Cols = 8;
    if (shape == 4) s.puzzle.Grid[2][3] = -7;
    boards.push_back(s);
  }
  return boards;
}

// Counts the yields: one before each pass of a trial.
struct YieldCounter : UserInterface {
  void Yield() override { ++yields; }
  int yields = 0;
};

TEST(CpuVersions, OptionsAndTrialsComeOutAsTheGenericCodeGivesThem) {
  for (const GameState& board : VersionBoards()) {
    GameState generic = board;
    SilentUserInterface ui;
    UseCpuLevel(CpuLevel::kGeneric);
    const bool read = UpdateOptions(generic.puzzle);
    GameState solved = board;
    const SolveResult expected = SolveGrid(solved.puzzle, solved.session, ui);
    GameState counted = board;
    YieldCounter passes;
    SolveGridTrial(counted.puzzle, counted.session, passes);
    test::ForEachCpuLevel([&] {
      GameState s = board;
      EXPECT_EQ(UpdateOptions(s.puzzle), read);
      EXPECT_EQ(s.puzzle.CellOptions, generic.puzzle.CellOptions);
      EXPECT_EQ(s.puzzle.AvailableCards, generic.puzzle.AvailableCards);
      GameState t = board;
      YieldCounter counter;
      EXPECT_EQ(SolveGridTrial(t.puzzle, t.session, counter), expected);
      EXPECT_EQ(counter.yields, passes.yields);
      EXPECT_EQ(t.puzzle.Grid, board.puzzle.Grid);
      EXPECT_EQ(t.puzzle.CellOptions, board.puzzle.CellOptions);
    });
    if (HasFailure()) return;
  }
}

// Blanks of a generator's kind: givens taken away one at a time in a random
// order, each kept blank only while the trial completes the board. Every
// answer must be what a trial on the board read afresh gives.
TEST(CpuVersions, BlankTrialsAnswerAsAFreshTrialWouldAfterEveryBlank) {
  std::mt19937 rng(77);
  for (const GameState& board : VersionBoards()) {
    std::vector<std::pair<int, int>> order;
    for (int r = 1; r <= LoopRows(board.puzzle); ++r)
      for (int c = 1; c <= LoopCols(board.puzzle); ++c)
        if (board.puzzle.Grid[r][c] > 0) order.emplace_back(r, c);
    std::shuffle(order.begin(), order.end(), rng);
    test::ForEachCpuLevel([&] {
      GameState s = board;
      BlankTrials trials(s.puzzle, s.session);
      for (const auto& [r, c] : order) {
        const int given = s.puzzle.Grid[r][c];
        s.puzzle.Grid[r][c] = 0;
        GameState fresh = s;
        const CpuLevel level = ActiveCpuLevel();
        UseCpuLevel(CpuLevel::kGeneric);
        YieldCounter passes, counter;
        const SolveResult expected = SolveGridTrial(fresh.puzzle, fresh.session, passes);
        UseCpuLevel(level);
        ASSERT_EQ(trials.Try(counter, r, c, given), expected) << r << "," << c;
        ASSERT_EQ(counter.yields, passes.yields) << r << "," << c;
        if (expected == SolveResult::kFilled) {
          trials.Keep(r, c, given);
        } else {
          s.puzzle.Grid[r][c] = given;
        }
      }
    });
    if (HasFailure()) return;
  }
}

}  // namespace
}  // namespace velmora
