// Mouse play on the board, the status line and choosing a card.
#include "board/play.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "board/geometry.h"
#include "model/rules.h"
#include "model/text.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using Strings = std::vector<std::string>;
using Undo = std::deque<std::string>;

// Row 1 of this record: 3C, blank, JS, 8D, TH, blank, QS. Its blank (1,2)
// sits beside 3C, JS and 1C (below); with 8D, TH, QS in the row and 1C, 2S,
// 7H in the column only 5D, 6D and 9D of the deck are left for it.
class Play : public ::testing::Test {
 protected:
  void Click(int button, int row, int col) {
    Picture1MouseUp(s, ui, button, CellMiddle(col), CellMiddle(row));
  }
  std::string StatusAt(int row, int col) {
    Picture1MouseMove(s, ui, CellMiddle(col), CellMiddle(row));
    return s.view.pb;
  }
  void Choose(const std::string& card) {
    ASSERT_TRUE(ChooseCard(s, ui, card));
    ASSERT_EQ(s.session.SelectedCard, card);
  }
  bool Listed(const std::string& card) {
    const auto& list = s.view.Remain[SuitListIndex(card.substr(1))];
    return std::find(list.begin(), list.end(), card) != list.end();
  }
  GameState s = test::Loaded(test::SolvableFile());
  test::RecordingUi ui;
};

TEST_F(Play, StatusForAGivenAnEmptyCellACardAndASuitMarkAndNothingWhileSolving) {
  EXPECT_EQ(StatusAt(1, 1), " Cell 1, Fixed=3C");
  s.puzzle.CellOptions[1][2] = 0;  // the options shown are the saved ones
  EXPECT_EQ(StatusAt(1, 2), " Cell 2, Options= 5D 6D 9D");
  s.puzzle.Grid[2][5] = 46;
  EXPECT_EQ(StatusAt(2, 5), " Cell 12, Card=QH");
  s.puzzle.Grid[2][3] = s.puzzle.PuzzleGrid[2][3] = -2;  // a given mark is fixed like a given card
  EXPECT_EQ(StatusAt(2, 3), " Cell 10, Fixed= H");
  EXPECT_EQ(StatusAt(1, 9), "");  // off the board
  s.view.pb = "kept";
  s.session.Solving = 1;  // while solving the status stays and a click only asks to cancel
  EXPECT_EQ(StatusAt(1, 1), "kept");
  s.session.SelectedCard = "5D";
  ui.answer = false;
  Click(kLeftButton, 1, 2);
  EXPECT_EQ(s.session.CancelRequest, 0);
  ui.answer = true;
  Click(kRightButton, 1, 1);
  EXPECT_EQ(s.session.CancelRequest, 1);
  EXPECT_EQ(ui.questions, (Strings{"Cancel Solution?", "Cancel Solution?"}));
  EXPECT_EQ(s.puzzle.Grid[1][2] * 100 + s.puzzle.Grid[1][1], 12);
}

TEST_F(Play, LabelsShowTheCellABorderBelongsToTheSmallerRowAndRefusalsAreSilent) {
  Picture1MouseUp(s, ui, kLeftButton, 30 + 810, 30 + 2 * 810);  // between columns 1, 2 and rows 2, 3
  EXPECT_EQ(s.view.Label3 + s.view.Label4, "21");
  Picture1MouseUp(s, ui, kRightButton, 5701, CellMiddle(1));
  EXPECT_EQ(s.view.Label3 + s.view.Label4, "00");
  const GameState before = s;
  Click(kLeftButton, 1, 2);  // nothing chosen
  Choose("5D");
  Click(kLeftButton, 1, 1);  // a given card
  Click(3, 1, 2);            // neither left nor right
  Choose("3H");
  Click(kLeftButton, 1, 2);       // no heart among the saved options
  s.session.SelectedCard = "ZZ";  // no such card
  Click(kLeftButton, 1, 2);
  Click(kRightButton, 1, 2);  // already empty
  for (const auto& [list, item] : {std::pair{2, -1}, {2, 99}, {7, 0}})
    RemainClick(s, ui, list, item);  // no item
  EXPECT_EQ(s.session.SelectedCard, "ZZ");
  EXPECT_EQ(s.puzzle.Grid, before.puzzle.Grid);
  EXPECT_TRUE(s.session.UndoList.empty() && ui.messages.empty() && ui.cells.empty());
}

TEST_F(Play, PlacementTestsTheSuitOnlyAnExchangeLeavesTwoUndoEntriesAndRightClickEmptiesEvenAGiven) {
  Choose("7D");  // 7 is barred in row 1's blank, but diamonds are not
  Click(kLeftButton, 1, 2);
  EXPECT_EQ(NumText(s.puzzle.Grid[1][2]) + s.session.SelectedCard, "27");  // and the chosen card is dropped
  EXPECT_FALSE(Listed("7D"));
  Choose("9D");
  Click(kLeftButton, 1, 2);
  EXPECT_TRUE(Listed("7D"));
  Choose("5D");
  Click(kRightButton, 1, 1);
  EXPECT_EQ(NumText(s.puzzle.Grid[1][1]) + NumText(s.puzzle.Grid[1][2]) + s.session.SelectedCard, "035");
  EXPECT_TRUE(Listed("3C"));
  EXPECT_EQ(s.session.UndoList, (Undo{" 1, 1, 12", " 1, 2, 0", " 1, 2, 27", " 1, 2, 0"}));
  EXPECT_EQ(ui.cells, (Strings{"7,D,1,2", "9,D,1,2", "-1,,1,1"}));
  s.puzzle.PuzzleGrid[1][3] = 1;  // a given 1S is as fixed as every other given
  Choose(s.view.Remain[0].front());
  Click(kLeftButton, 1, 3);
  EXPECT_EQ(s.puzzle.Grid[1][3], 41);  // still the JS the file gives
}

}  // namespace
}  // namespace velmora
