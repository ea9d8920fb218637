// The board check, the undo list with its grid snapshot, and the commands
// built on them: AutoSolve, Restore, Show Solution, Undo and the hidden buttons.
#include "model/commands.h"

#include <gtest/gtest.h>

#include "model/check.h"
#include "model/rules.h"
#include "model/text.h"
#include "model/undo.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using Messages = std::vector<std::string>;

class Commands : public ::testing::Test {
 protected:
  GameState s = test::Loaded(test::SolvableFile());
  GameState stuck = test::Loaded(test::SampleFile());  // deduction alone cannot finish it
  test::RecordingUi ui;
};

std::string Verdict(const GameState& s) {
  const CheckResult r = CheckBoard(s);
  return std::to_string(r.status) + ":" + r.message;
}

TEST_F(Commands, CheckFirstImpossibleCellThenCardsOrMarksOutsideTheSavedOptionsThenDone) {
  GameState dead = s;
  dead.Grid[3][4] = 0;                                  // a given made an impossible blank
  dead.CellOptions[3][4] = dead.CellOptions[5][2] = 0;  // (5,2) is not reached
  EXPECT_EQ(Verdict(dead), "1:Cell 3, 4 - invalid value");

  s.Grid[3][2] = 52;  // KC was never an option in this blank
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

TEST_F(Commands, UndoRestoresTheCellItsOptionsAndListsAndDropsEntriesNamingNoCell) {
  UndoLast(s, ui);  // an empty list: nothing painted, as ui.cells below shows
  const CardSet open = s.CellOptions[1][2];
  const auto remainBefore = s.Remain;
  PushUndo(s, 1, 2);
  s.Grid[1][2] = 19;
  UpdateOptions(s, 1);
  s.SelectedCard = "9D";
  UndoLast(s, ui);
  EXPECT_EQ(Str(s.Grid[1][2]) + s.SelectedCard, " 0");       // and the chosen card is dropped
  EXPECT_EQ(ui.cells, std::vector<std::string>{"-1,,1,2"});  // painted blank
  EXPECT_EQ(s.CellOptions[1][2], open);
  EXPECT_EQ(s.Remain, remainBefore);
  s.UndoList = {" 44, 2, 1", "junk"};  // entries naming no cell are dropped
  UndoLast(s, ui);
  UndoLast(s, ui);
  EXPECT_TRUE(s.UndoList.empty());
  EXPECT_EQ(ui.cells.size(), 1u);
}

TEST_F(Commands, AutoSolveRefusesAFullBoardAndAnImpossibleCellSolvesOrKeepsItsDeductions) {
  GameState full = s, dead = s;
  full.Grid = full.SolutionGrid;
  dead.CellOptions[1][2] = 0;
  mnusolveall(full, ui);
  mnusolveall(dead, ui);
  EXPECT_EQ(full.GridBackups[0] + dead.GridBackups[0], "");  // no snapshot taken
  mnusolveall(s, ui);
  EXPECT_EQ(s.Grid, s.SolutionGrid);
  EXPECT_EQ(s.Remain[0].size() + s.Remain[1].size() + s.Remain[2].size() + s.Remain[3].size(), 3u);
  EXPECT_EQ(ui.messages, (Messages{"Puzzles appears to been solved!", "Cell 1, 2 - invalid value", "Done"}));
}

TEST_F(Commands, AutoSolveRestoreOnceAfterAutoSolveNeverAfterStartUpAndNotWhileSolving) {
  mnurestore(s, ui);      // after start-up: no snapshot
  stuck.Grid[7][2] = -1;  // a spades mark in a spade's blank: the snapshot keeps it
  const auto before = stuck.Grid;
  const auto remain = stuck.Remain;
  mnusolveall(stuck, ui);
  EXPECT_NE(stuck.Grid, before);  // it keeps what it deduced
  stuck.Remain = {};
  mnurestore(stuck, ui);
  EXPECT_EQ(stuck.Grid, before);
  EXPECT_EQ(stuck.Remain, remain);  // rebuilt from the restored grid
  mnurestore(stuck, ui);            // a second time: gone
  SaveGridSnapshot(s, 0);
  s.Solving = 1;
  mnurestore(s, ui);
  mnuviewsol(s, ui);
  EXPECT_EQ(ui.messages,
            (Messages{"Backup grid not found", "No unique solution - please check the puzzle",
                      "Backup grid not found", "Cancel AutoSolve first", "Cancel AutoSolve first"}));
  s.Solving = 0;
  mnuviewsol(s, ui);
  EXPECT_EQ(ui.overlays, 1);  // only the second
}

TEST_F(Commands, HiddenButtonsSolveWithoutCheckOrSnapshotCheckVerdictsAndShowSolution) {
  Autosolvex(stuck, ui);
  EXPECT_EQ(stuck.GridBackups[0], "");
  GameState dead = s;
  dead.CellOptions[1][2] = 0;  // the check refuses; the solve button does not check
  Command6(dead, ui);
  Autosolvex(dead, ui);
  EXPECT_EQ(dead.Grid, dead.SolutionGrid);
  Command6(s, ui);
  s.UndoList.push_front(" 1, 2, 0");
  Command7(s, ui);
  EXPECT_EQ(s.Grid, s.SolutionGrid);
  Command6(s, ui);
  EXPECT_EQ(ui.messages,
            (Messages{"No unique solution - please check the puzzle", " 1=Cell 1, 2 - invalid value", "Done",
                      "All ok but not done yet", "Done"}));
  UndoEdit(s, ui);  // the undo list survives the copied solution
  EXPECT_EQ(s.Grid[1][2], 0);
}

}  // namespace
}  // namespace velmora
