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
  const CheckResult r = CheckBoard(s.puzzle);
  return std::to_string(r.status) + ":" + r.message;
}

TEST_F(Commands, CheckFirstImpossibleCellThenCardsOrMarksOutsideTheSavedOptionsThenDone) {
  GameState dead = s;
  dead.puzzle.Grid[3][4] = 0;                                         // a given made an impossible blank
  dead.puzzle.CellOptions[3][4] = dead.puzzle.CellOptions[5][2] = 0;  // (5,2) is not reached
  EXPECT_EQ(Verdict(dead), "1:Cell 3, 4 - invalid value");

  s.puzzle.Grid[3][2] = 52;  // KC was never an option in this blank
  UpdateOptions(s.puzzle);
  const std::string saved = OptionText(s.puzzle.CellOptionsSaved[3][2]);
  EXPECT_EQ(Verdict(s), "1:No match at 3 2\r\nKC\r\n" + saved);
  s.puzzle.Grid[3][2] = -1;  // a suit-only mark is judged by its suit letter alone
  EXPECT_EQ(Verdict(s), "1:No match at 3 2\r\nS\r\n" + saved);
  s.puzzle.Grid[3][2] = 70;  // a value without a code reads as "x"
  EXPECT_EQ(Verdict(s), "1:No match at 3 2\r\nx\r\n" + saved);

  s.puzzle.Grid = s.puzzle.SolutionGrid;
  s.puzzle.Grid[1][1] = 52;  // a wrong given is never tested
  s.puzzle.Grid[1][2] = -3;  // a mark counts as filled
  EXPECT_EQ(Verdict(s), "99:Done");
  s.puzzle.Rows = s.puzzle.Cols = 6;  // 36 filled cells are not enough
  EXPECT_EQ(Verdict(s), "0:");
}

TEST_F(Commands, UndoRestoresTheCellItsOptionsAndListsAndDropsEntriesNamingNoCell) {
  UndoLast(s, ui);  // an empty list: nothing painted, as ui.cells below shows
  const CardSet open = s.puzzle.CellOptions[1][2];
  const auto remainBefore = s.view.Remain;
  PushUndo(s.puzzle, s.session, s.view, 1, 2);
  s.puzzle.Grid[1][2] = 19;
  UpdateOptions(s.puzzle, s.view.Remain);
  s.session.SelectedCard = "9D";
  UndoLast(s, ui);
  EXPECT_EQ(Str(s.puzzle.Grid[1][2]) + s.session.SelectedCard, " 0");  // and the chosen card is dropped
  EXPECT_EQ(ui.cells, std::vector<std::string>{"-1,,1,2"});            // painted blank
  EXPECT_EQ(s.puzzle.CellOptions[1][2], open);
  EXPECT_EQ(s.view.Remain, remainBefore);
  s.session.UndoList = {" 44, 2, 1", "junk"};  // entries naming no cell are dropped
  UndoLast(s, ui);
  UndoLast(s, ui);
  EXPECT_TRUE(s.session.UndoList.empty());
  EXPECT_EQ(ui.cells.size(), 1u);
}

TEST_F(Commands, AutoSolveRefusesAFullBoardAndAnImpossibleCellSolvesOrKeepsItsDeductions) {
  GameState full = s, dead = s;
  full.puzzle.Grid = full.puzzle.SolutionGrid;
  dead.puzzle.CellOptions[1][2] = 0;
  mnusolveall(full, ui);
  mnusolveall(dead, ui);
  EXPECT_EQ(full.session.GridBackups[0] + dead.session.GridBackups[0], "");  // no snapshot taken
  mnusolveall(s, ui);
  EXPECT_EQ(s.puzzle.Grid, s.puzzle.SolutionGrid);
  EXPECT_EQ(
      s.view.Remain[0].size() + s.view.Remain[1].size() + s.view.Remain[2].size() + s.view.Remain[3].size(),
      3u);
  EXPECT_EQ(ui.messages, (Messages{"Puzzles appears to been solved!", "Cell 1, 2 - invalid value", "Done"}));
}

TEST_F(Commands, AutoSolveRestoreOnceAfterAutoSolveNeverAfterStartUpAndNotWhileSolving) {
  mnurestore(s, ui);             // after start-up: no snapshot
  stuck.puzzle.Grid[7][2] = -1;  // a spades mark in a spade's blank: the snapshot keeps it
  const auto before = stuck.puzzle.Grid;
  const auto remain = stuck.view.Remain;
  mnusolveall(stuck, ui);
  EXPECT_NE(stuck.puzzle.Grid, before);  // it keeps what it deduced
  stuck.view.Remain = {};
  mnurestore(stuck, ui);
  EXPECT_EQ(stuck.puzzle.Grid, before);
  EXPECT_EQ(stuck.view.Remain, remain);  // rebuilt from the restored grid
  mnurestore(stuck, ui);                 // a second time: gone
  SaveGridSnapshot(s.puzzle, s.session, 0);
  s.session.Solving = 1;
  mnurestore(s, ui);
  mnuviewsol(s, ui);
  EXPECT_EQ(ui.messages,
            (Messages{"Backup grid not found", "No unique solution - please check the puzzle",
                      "Backup grid not found", "Cancel AutoSolve first", "Cancel AutoSolve first"}));
  s.session.Solving = 0;
  mnuviewsol(s, ui);
  EXPECT_EQ(ui.overlays, 1);  // only the second
}

TEST_F(Commands, HiddenButtonsSolveWithoutCheckOrSnapshotCheckVerdictsAndShowSolution) {
  Autosolvex(stuck, ui);
  EXPECT_EQ(stuck.session.GridBackups[0], "");
  GameState dead = s;
  dead.puzzle.CellOptions[1][2] = 0;  // the check refuses; the solve button does not check
  Command6(dead, ui);
  Autosolvex(dead, ui);
  EXPECT_EQ(dead.puzzle.Grid, dead.puzzle.SolutionGrid);
  Command6(s, ui);
  s.session.UndoList.push_front(" 1, 2, 0");
  Command7(s, ui);
  EXPECT_EQ(s.puzzle.Grid, s.puzzle.SolutionGrid);
  Command6(s, ui);
  EXPECT_EQ(ui.messages,
            (Messages{"No unique solution - please check the puzzle", " 1=Cell 1, 2 - invalid value", "Done",
                      "All ok but not done yet", "Done"}));
  UndoEdit(s, ui);  // the undo list survives the copied solution
  EXPECT_EQ(s.puzzle.Grid[1][2], 0);
}

}  // namespace
}  // namespace velmora
