// The board check and the undo list with its grid snapshot.
#include <gtest/gtest.h>

#include "model/check.h"
#include "model/rules.h"
#include "model/undo.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

class Loaded : public ::testing::Test {
 protected:
  GameState s = test::Loaded(test::SolvableFile());
  test::RecordingUi ui;
};
using Check = Loaded;
using Undo = Loaded;

std::string Verdict(const GameState& s) {
  const CheckResult r = CheckBoard(s);
  return std::to_string(r.status) + ":" + r.message;
}

TEST_F(Check, FirstImpossibleCellThenCardsOrMarksOutsideTheSavedOptionsThenDone) {
  EXPECT_EQ(Verdict(s), "0:");
  GameState dead = s;
  ASSERT_NE(dead.Grid[3][4], 0);  // a given; make it an impossible blank
  dead.Grid[3][4] = 0;
  dead.CellOptions[3][4] = dead.CellOptions[5][2] = 0;  // (5,2) is not reached
  EXPECT_EQ(Verdict(dead), "1:Cell 3, 4 - invalid value");

  ASSERT_EQ(s.Grid[3][2], 0);
  s.Grid[3][2] = 52;  // KC was never an option there
  UpdateOptions(s, 0);
  const std::string saved = OptionText(s.CellOptionsSaved[3][2]);
  EXPECT_EQ(Verdict(s), "1:No match at 3 2\r\nKC\r\n" + saved);
  s.Grid[3][2] = -1;  // a suit-only mark is judged by its suit letter alone
  EXPECT_EQ(Verdict(s), "1:No match at 3 2\r\nS\r\n" + saved);
  s.Grid[3][2] = 70;  // a value without a code reads as "x"
  EXPECT_EQ(Verdict(s), "1:No match at 3 2\r\nx\r\n" + saved);

  s.Grid = s.SolutionGrid;
  s.Grid[1][1] = 52;  // a wrong given is never tested
  s.Grid[1][2] = -3;  // a mark counts as filled
  EXPECT_EQ(Verdict(s), "99:Done");
  s.Rows = s.Cols = 6;  // 36 filled cells are not enough
  EXPECT_EQ(Verdict(s), "0:");
}

TEST_F(Undo, EntriesNewestFirstAndTakingBackRestoresTheCellItsOptionsAndLists) {
  UndoLast(s, ui);  // an empty list: nothing shown, nothing painted
  EXPECT_TRUE(ui.messages.empty() && ui.cells.empty());
  s.Grid[3][5] = 0;
  UpdateOptions(s, 1);
  const CardSet open = s.CellOptions[1][2];
  const auto remainBefore = s.Remain;
  PushUndo(s, 3, 5);
  PushUndo(s, 1, 2);
  EXPECT_EQ(s.UndoList, (std::deque<std::string>{" 1, 2, 0", " 3, 5, 0"}));
  s.Grid[1][2] = 19;
  UpdateOptions(s, 1);
  s.SelectedCard = "9D";
  UndoLast(s, ui);
  EXPECT_EQ(s.Grid[1][2], 0);
  EXPECT_EQ(ui.cells, std::vector<std::string>{"-1,,1,2"});  // painted blank
  EXPECT_EQ(s.SelectedCard, "");
  EXPECT_EQ(s.CellOptions[1][2], open);
  EXPECT_EQ(s.Remain, remainBefore);
  s.UndoList = {" 44, 2, 1", "junk"};  // entries naming no cell are dropped
  UndoLast(s, ui);
  UndoLast(s, ui);
  EXPECT_TRUE(s.UndoList.empty());
  EXPECT_EQ(ui.cells.size(), 1u);
}

TEST_F(Undo, SnapshotKeepsNegativeValues) {
  s.Grid[1][1] = 9;
  s.Grid[1][2] = 0;
  s.Grid[1][3] = -3;
  s.Grid[7][7] = -4;
  SaveGridSnapshot(s, 0);
  EXPECT_EQ(s.GridBackups[0].substr(0, 7), "9;0;-3;");
  const auto saved = s.Grid;
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c) s.Grid[r][c] = 17;
  RestoreGridSnapshot(s, 0);
  EXPECT_EQ(s.Grid, saved);
}

}  // namespace
}  // namespace velmora
