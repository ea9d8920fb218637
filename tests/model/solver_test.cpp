// The deduction solver: its quirks on hand-built boards, and agreement with a
// literal text-based reading of the two deductions on many boards.
#include "model/solver.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "board/geometry.h"
#include "files/puzzle_file.h"
#include "model/rules.h"
#include "model/text.h"
#include "model/undo.h"
#include "test_support.h"

namespace velmora {
namespace {

int Card(int rank, int suit) { return (rank - 1) * 4 + suit; }

class CountingUi : public SilentUserInterface {
 public:
  explicit CountingUi(GameState* s = nullptr) : s_(s) {}
  void Yield() override {
    ++yields;
    if (s_ != nullptr) solvingSeen = s_->Solving;
  }
  int yields = 0;
  int solvingSeen = -1;

 private:
  GameState* s_;
};

// A board of the given size whose deck holds only `deck`.
GameState SmallBoard(int rows, int cols, std::initializer_list<int> deck) {
  GameState s;
  s.Rows = rows;
  s.Cols = cols;
  CalcCellPos(s);
  for (int k = 1; k <= 52; ++k) s.CardCodes.Set(k, 0, 0);
  for (int k : deck) s.CardCodes.Set(k, (k - 1) / 4 + 1, (k - 1) % 4 + 1);
  return s;
}

// The steps exactly as the program states them: option texts, tokens read
// in steps of three, counts and places by cell number.
int ReferenceSolve(GameState& s, int& passes) {
  s.Solving = 1;
  passes = 0;
  if (!UpdateOptions(s, 0)) return -1;
  int changes;
  do {
    changes = 0;
    ++passes;
    for (int r = 1; r <= s.Rows; ++r)
      for (int c = 1; c <= s.Cols; ++c) {
        const std::string text = Trim(OptionText(s.CellOptions[r][c]));
        if (text.size() == 2) {
          s.Grid[r][c] = FindCardIndex(text);
          s.CellOptions[r][c] = 0;
          ++changes;
        }
      }
    UpdateOptions(s, 0);
    int count[53] = {}, place[53] = {};
    for (int r = 1; r <= s.Rows; ++r)
      for (int c = 1; c <= s.Cols; ++c) {
        const std::string text = OptionText(s.CellOptions[r][c]);
        for (size_t p = 1; p + 1 < text.size(); p += 3) {
          const int k = FindCardIndex(text.substr(p, 2));
          ++count[k];
          place[k] = s.CellNumber[r][c];
        }
      }
    for (int k = 1; k <= 52; ++k) {
      if (count[k] != 1) continue;
      s.Grid[s.CellRow[place[k]]][s.CellCol[place[k]]] = k;
      s.CellOptions[s.CellRow[place[k]]][s.CellCol[place[k]]] = 0;
      ++changes;
    }
  } while (changes != 0);
  s.Solving = 0;
  for (int r = 1; r <= s.Rows; ++r)
    for (int c = 1; c <= s.Cols; ++c)
      if (s.Grid[r][c] == 0) return 1;
  return 0;
}

void ExpectSameAsReference(const GameState& start, const std::string& what) {
  GameState fast = start, slow = start;
  CountingUi ui;
  int passes = 0;
  const int expected = ReferenceSolve(slow, passes);
  ASSERT_NE(expected, -1) << what;
  EXPECT_EQ(SolveGrid(fast, ui), expected) << what;
  EXPECT_EQ(ui.yields, passes) << what;
  EXPECT_EQ(fast.Grid, slow.Grid) << what;
  EXPECT_EQ(fast.CellOptions, slow.CellOptions) << what;
  EXPECT_EQ(fast.AvailableCards, slow.AvailableCards) << what;
  EXPECT_EQ(fast.Solving, 0) << what;
}

using test::SolvableFile;
GameState Load(const std::string& file, int n) { return test::Loaded(file, n); }

TEST(SolveGrid, SameCardFillsEveryCellWhoseOnlyOptionItIs) {
  // 5H in the middle leaves 1S as the only option on both sides.
  GameState s = SmallBoard(1, 3, {Card(1, 1), Card(5, 2)});
  s.Grid[1][2] = Card(5, 2);
  CountingUi ui;
  EXPECT_EQ(SolveGrid(s, ui), 0);
  EXPECT_EQ(s.Grid[1][1], Card(1, 1));
  EXPECT_EQ(s.Grid[1][3], Card(1, 1));
  EXPECT_EQ(ui.yields, 2);  // the filling pass and the one that finds nothing
}

TEST(SolveGrid, TwoCardsUniqueToOneCellLeaveTheHigher) {
  // (2,1) = 1S keeps spades and ranks 13, 1, 2 from (1,1); (2,2) = 7H keeps
  // hearts and ranks 6..8 from (1,2). So (1,2) has only 4S, and once it is
  // placed 7D and 8C are each an option of (1,1) alone.
  GameState s = SmallBoard(2, 2, {Card(1, 1), Card(7, 2), Card(7, 3), Card(8, 4), Card(4, 1)});
  s.Grid[2][1] = Card(1, 1);
  s.Grid[2][2] = Card(7, 2);
  CountingUi ui;
  EXPECT_EQ(SolveGrid(s, ui), 0);
  EXPECT_EQ(s.Grid[1][2], Card(4, 1));
  EXPECT_EQ(s.Grid[1][1], Card(8, 4));
  EXPECT_EQ(ui.yields, 2);
}

TEST(SolveGrid, SuitOnlyMarkCountsAsFilledAnEmptyCellDoesNot) {
  GameState s = SmallBoard(1, 2, {Card(5, 2)});
  s.Grid[1][1] = -1;
  s.Grid[1][2] = Card(5, 2);  // the whole deck is down: the mark has no option
  CountingUi ui;
  EXPECT_EQ(SolveGrid(s, ui), 0);
  EXPECT_EQ(s.Grid[1][1], -1);
  s.Grid[1][1] = 0;
  EXPECT_EQ(SolveGrid(s, ui), 1);
}

TEST(SolveGrid, SolvesTheDeductionPuzzleToItsStoredSolution) {
  GameState s = Load(SolvableFile(), 1);
  s.Remain[0] = {"keep"};
  s.UndoList = {" 1, 1, 0"};
  CountingUi ui(&s);
  EXPECT_EQ(SolveGrid(s, ui), 0);
  EXPECT_EQ(s.Grid, s.SolutionGrid);
  EXPECT_EQ(ui.solvingSeen, 1);  // raised while it runs
  EXPECT_EQ(s.Solving, 0);
  // Neither the suit panels nor the undo list are its business.
  EXPECT_EQ(s.Remain[0], std::vector<std::string>{"keep"});
  EXPECT_EQ(s.UndoList.size(), 1u);
}

TEST(SolveGrid, StopsWithoutGuessingAndKeepsWhatItDeduced) {
  GameState s = Load(test::SampleFile(), 1);
  const GameState before = s;
  CountingUi ui;
  EXPECT_EQ(SolveGrid(s, ui), 1);
  int deduced = 0;
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c) {
      if (before.Grid[r][c] == 0 && s.Grid[r][c] != 0) {
        ++deduced;
        EXPECT_EQ(s.Grid[r][c], s.SolutionGrid[r][c]) << r << "," << c;
      }
    }
  EXPECT_GT(deduced, 0);
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
  for (int trial = 0; trial < 300; ++trial) {
    ExpectSameAsReference(Scrambled(full, rng, 10 + trial % 30), "trial " + std::to_string(trial));
    if (HasFailure()) return;
  }
}

TEST(SolveGrid, BoardsItCannotReadGiveOneWithoutACrash) {
  GameState s = Load(SolvableFile(), 1);
  s.Grid[1][2] = 60;  // no code: the option update fails
  CountingUi ui;
  EXPECT_EQ(SolveGrid(s, ui), 1);
  EXPECT_EQ(s.Solving, 0);
  // A value below -4 is read only by the cells of its row and column.
  GameState t = SmallBoard(2, 2, {Card(1, 1), Card(5, 2), Card(9, 3)});
  t.Grid = {};
  t.Grid[1][1] = -7;
  t.Grid[1][2] = Card(5, 2);
  t.Grid[2][1] = Card(9, 3);
  ExpectSameAsReference(t, "mark below -4, nothing reads it");
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

TEST(SolveGrid, ALoadDuringTheYieldIsSolvedInstead) {
  GameState s = Load(SolvableFile(), 1);
  InterferingUi ui(s, [](GameState& st) {
    SilentUserInterface quiet;
    std::string title;
    ASSERT_EQ(LoadPuzzle(st, quiet, test::SampleFile(), 2, title, 0), 0);
  });
  EXPECT_EQ(SolveGrid(s, ui), 1);
  GameState alone = Load(test::SampleFile(), 2);
  SilentUserInterface quiet;
  SolveGrid(alone, quiet);
  EXPECT_EQ(s.Grid, alone.Grid);
}

TEST(SolveGrid, AnUndoDuringTheYieldIsKept) {
  GameState s = Load(SolvableFile(), 1);
  ASSERT_EQ(s.Grid[1][2], 0);
  const int wrong = s.SolutionGrid[1][6];  // a card of the deck, wrong here
  s.UndoList.push_front(UndoEntry(1, 2, wrong));
  InterferingUi ui(s, [](GameState& st) {
    SilentUserInterface quiet;
    UndoLast(st, quiet);
  });
  GameState expected = s;
  expected.Grid[1][2] = wrong;
  SilentUserInterface quiet;
  const int result = SolveGrid(expected, quiet);
  EXPECT_EQ(SolveGrid(s, ui), result);
  EXPECT_EQ(s.Grid[1][2], wrong);
  EXPECT_EQ(s.Grid, expected.Grid);
}

// The generator's trials must give SolveGrid's result and leave the board as
// it was, on boards with marks, wrong cards, duplicates and dead cells too.
TEST(SolveGridTrial, SameResultAsSolveGridAndTheBoardUntouched) {
  const GameState full = Load(SolvableFile(), 1);
  std::mt19937 rng(77);
  for (int trial = 0; trial < 400; ++trial) {
    GameState s = Scrambled(full, rng, 5 + trial % 35);
    s.CellOptions[3][3] = 12345;  // whatever the options held stays
    const GameState before = s;
    GameState literal = s;
    SilentUserInterface ui;
    const int expected = SolveGrid(literal, ui);
    EXPECT_EQ(SolveGridTrial(s, ui), expected) << trial;
    EXPECT_EQ(s.Grid, before.Grid) << trial;
    EXPECT_EQ(s.CellOptions, before.CellOptions) << trial;
    EXPECT_EQ(s.Solving, 0);
    if (HasFailure()) return;
  }
  GameState unreadable = full;
  unreadable.Grid[2][2] = 70;  // the literal way: UpdateOptions refuses it
  const GameState before = unreadable;
  SilentUserInterface ui;
  EXPECT_EQ(SolveGridTrial(unreadable, ui), 1);
  EXPECT_EQ(unreadable.Grid, before.Grid);
}

TEST(BlankTrials, EachTrialAsAFreshTrialWhileBlanksAccumulate) {
  const GameState full = Load(SolvableFile(), 1);
  std::mt19937 rng(5);
  for (int round = 0; round < 30; ++round) {
    GameState s = full;
    s.Grid = s.SolutionGrid;
    if (round % 5 == 4) s.Grid[1][1] = s.Grid[7][7];  // a card twice: trials start afresh
    if (round % 7 == 6) s.Grid[4][4] = -3;            // a mark stays a mark
    BlankTrials trials(s);
    for (int step = 0; step < 40; ++step) {
      const int r = 1 + static_cast<int>(rng() % 7), c = 1 + static_cast<int>(rng() % 7);
      const int card = s.Grid[r][c];
      if (card <= 0) continue;
      s.Grid[r][c] = 0;
      GameState fresh = s;
      SilentUserInterface ui;
      const int expected = SolveGridTrial(fresh, ui);
      ASSERT_EQ(trials.Try(ui, r, c, card), expected) << round << " " << step;
      if (expected == 0 || rng() % 3 == 0) {
        trials.Keep(r, c, card);
      } else {
        s.Grid[r][c] = card;
      }
    }
  }
}

}  // namespace
}  // namespace velmora
