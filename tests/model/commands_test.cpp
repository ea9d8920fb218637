// AutoSolve, Restore, Show Solution, Undo and the hidden buttons.
#include "model/commands.h"

#include <gtest/gtest.h>

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
using AutoSolve = Commands;
using HiddenButtons = Commands;

TEST_F(AutoSolve, RefusesAFullBoardAndAnImpossibleCellSolvesOrKeepsItsDeductions) {
  GameState full = s;
  full.Grid = full.SolutionGrid;
  GameState dead = s;
  dead.CellOptions[1][2] = 0;
  mnusolveall(full, ui);
  mnusolveall(dead, ui);
  EXPECT_EQ(dead.Grid, s.Grid);
  EXPECT_EQ(full.GridBackups[0] + dead.GridBackups[0], "");  // no snapshot taken
  mnusolveall(s, ui);
  EXPECT_EQ(s.Grid, s.SolutionGrid);
  EXPECT_EQ(s.Remain[0].size() + s.Remain[1].size() + s.Remain[2].size() + s.Remain[3].size(), 3u);
  const auto before = stuck.Grid;
  mnusolveall(stuck, ui);
  EXPECT_NE(stuck.Grid, before);
  EXPECT_EQ(ui.messages, (Messages{"Puzzles appears to been solved!", "Cell 1, 2 - invalid value", "Done",
                                   "No unique solution - please check the puzzle"}));
}

TEST_F(AutoSolve, RestoreOnceAfterAutoSolveNeverAfterStartUpAndNotWhileSolving) {
  mnurestore(s, ui);  // after start-up: no snapshot
  const auto before = stuck.Grid;
  const auto remain = stuck.Remain;
  mnusolveall(stuck, ui);
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
  EXPECT_EQ(ui.overlays, 0);
  s.Solving = 0;
  mnuviewsol(s, ui);
  EXPECT_EQ(ui.overlays, 1);
  EXPECT_EQ(s.Grid, test::Loaded(test::SolvableFile()).Grid);  // the overlay is only painted
}

TEST_F(HiddenButtons, SolveWithoutCheckOrSnapshotCheckVerdictsAndShowSolution) {
  Autosolvex(stuck, ui);
  EXPECT_EQ(stuck.GridBackups[0], "");
  GameState dead = s;
  dead.CellOptions[1][2] = 0;  // the check would refuse; this button does not check
  Autosolvex(dead, ui);
  EXPECT_EQ(dead.Grid, dead.SolutionGrid);
  Command6(s, ui);
  dead = s;
  dead.Grid[3][4] = 0;
  dead.CellOptions[3][4] = 0;
  Command6(dead, ui);
  s.UndoList.push_front(" 1, 2, 0");
  const auto options = s.CellOptions;
  Command7(s, ui);
  EXPECT_EQ(s.Grid, s.SolutionGrid);
  EXPECT_EQ(s.CellOptions, options);
  Command6(s, ui);
  EXPECT_EQ(ui.messages, (Messages{"No unique solution - please check the puzzle", "Done",
                                   "All ok but not done yet", " 1=Cell 3, 4 - invalid value", "Done"}));
  UndoEdit(s, ui);  // the undo list survives the copied solution
  EXPECT_EQ(s.Grid[1][2], 0);
  EXPECT_TRUE(s.UndoList.empty());
}

}  // namespace
}  // namespace velmora
