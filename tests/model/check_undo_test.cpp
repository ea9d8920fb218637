// The board check and the undo list with its grid snapshot.
#include <gtest/gtest.h>

#include "board/geometry.h"
#include "model/check.h"
#include "model/rules.h"
#include "model/undo.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

int Card(int rank, int suit) { return (rank - 1) * 4 + suit; }

class Loaded : public ::testing::Test {
 protected:
  GameState s = test::Loaded(test::SolvableFile());
  test::RecordingUi ui;
};
using Check = Loaded;
using Undo = Loaded;
using Snapshot = Loaded;

TEST_F(Check, OpenBoardIsNoFaultAndTheFirstImpossibleCellIsNamed) {
  EXPECT_EQ(CheckBoard(s).status, 0);
  EXPECT_EQ(CheckBoard(s).message, "");
  ASSERT_NE(s.Grid[3][4], 0);  // a given; make it an impossible blank
  s.Grid[3][4] = 0;
  s.CellOptions[3][4] = 0;
  s.CellOptions[5][2] = 0;  // a later impossible cell is not reached
  EXPECT_EQ(CheckBoard(s).message, "Cell 3, 4 - invalid value");
  EXPECT_EQ(CheckBoard(s).status, 1);
}

TEST_F(Check, PlacedCardOrMarkOutsideTheSavedOptions) {
  ASSERT_EQ(s.Grid[3][2], 0);
  s.Grid[3][2] = Card(13, 4);  // KC was never an option there
  UpdateOptions(s, 0);
  const std::string saved = OptionText(s.CellOptionsSaved[3][2]);
  ASSERT_EQ(saved.find("KC"), std::string::npos);
  EXPECT_EQ(CheckBoard(s).status, 1);
  EXPECT_EQ(CheckBoard(s).message, "No match at 3 2\r\nKC\r\n" + saved);
  s.Grid[3][2] = -1;  // a suit-only mark is judged by its suit letter alone
  EXPECT_EQ(CheckBoard(s).message, "No match at 3 2\r\nS\r\n" + saved);
  s.Grid[3][2] = saved.find('H') != std::string::npos ? -2 : -3;
  EXPECT_EQ(CheckBoard(s).status, 0);
  s.Grid[3][2] = 70;  // a value without a code reads as "x", which no option text holds
  EXPECT_EQ(CheckBoard(s).message, "No match at 3 2\r\nx\r\n" + saved);
}

TEST_F(Check, GivensAreNeverTestedAndFortyNineFilledIsDone) {
  GameState wrong = s;
  wrong.Grid[1][1] = Card(13, 4);  // a wrong given: its saved options are empty
  wrong.Grid[1][2] = 0;
  EXPECT_EQ(CheckBoard(wrong).status, 0);
  s.Grid = s.SolutionGrid;
  s.Grid[1][2] = -3;  // a mark counts as filled
  EXPECT_EQ(CheckBoard(s).status, 99);
  EXPECT_EQ(CheckBoard(s).message, "Done");
}

TEST(CheckBoard, CompletionComparesWithFortyNineNotTheBoardSize) {
  GameState s;
  s.Rows = 7;
  s.Cols = 8;
  CalcCellPos(s);
  for (int r = 1; r <= 7; ++r) {
    for (int c = 1; c <= 7; ++c) s.Grid[r][c] = -1;
    s.CellOptions[r][8] = CardBit(5);  // empty but still open
  }
  EXPECT_EQ(CheckBoard(s).status, 99);
  s.Rows = s.Cols = 6;  // 36 filled cells are not enough
  EXPECT_EQ(CheckBoard(s).status, 0);
}

TEST_F(Undo, EntryTextsUseTheLeadingBlankFormNewestFirst) {
  EXPECT_EQ(UndoEntry(2, 1, -3), " 2, 1,-3");
  s.Grid[3][5] = 0;
  PushUndo(s, 3, 5);
  PushUndo(s, 1, 1);
  EXPECT_EQ(s.UndoList, (std::deque<std::string>{UndoEntry(1, 1, s.Grid[1][1]), " 3, 5, 0"}));
}

TEST_F(Undo, EmptyListDoesNothingAndShowsNothing) {
  s.SelectedCard = "QH";
  UndoLast(s, ui);
  EXPECT_EQ(s.SelectedCard, "QH");
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_TRUE(ui.cells.empty());
}

TEST_F(Undo, TakesBackTheNewestEntryWithItsOptionsAndDropsEntriesNamingNoCell) {
  const CardSet open = s.CellOptions[1][2];
  const auto remainBefore = s.Remain;
  PushUndo(s, 1, 2);
  s.Grid[1][2] = Card(5, 3);
  UpdateOptions(s, 1);
  s.SelectedCard = "9D";
  UndoLast(s, ui);
  EXPECT_EQ(s.Grid[1][2], 0);
  EXPECT_EQ(ui.cells, std::vector<std::string>{"-1,,1,2"});  // painted blank
  EXPECT_EQ(s.SelectedCard, "");
  EXPECT_EQ(s.CellOptions[1][2], open);
  EXPECT_EQ(s.Remain, remainBefore);
  s.UndoList = {" 44, 2, 1", "junk"};
  UndoLast(s, ui);
  UndoLast(s, ui);
  EXPECT_TRUE(s.UndoList.empty());
  EXPECT_EQ(ui.cells.size(), 1u);
}

TEST_F(Snapshot, TextAndRoundTripWithNegativeValues) {
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

TEST_F(Snapshot, SnapshotOfASmallerBoardFillsOnlyItsCells) {
  s.GridBackups[0] = "5;-1;";
  const auto before = s.Grid;
  RestoreGridSnapshot(s, 0);
  EXPECT_EQ(s.Grid[1][1], 5);
  EXPECT_EQ(s.Grid[1][2], -1);
  EXPECT_EQ(s.Grid[1][3], 0);  // the empty text after the last ";"
  EXPECT_EQ(s.Grid[1][4], before[1][4]);
  SaveGridSnapshot(s, 3);  // out of range: ignored, no crash
  RestoreGridSnapshot(s, -1);
}

}  // namespace
}  // namespace velmora
