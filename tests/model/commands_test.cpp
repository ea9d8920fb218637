// AutoSolve, Restore, Show Solution, Undo and the hidden buttons.
#include "model/commands.h"

#include <gtest/gtest.h>

#include "model/rules.h"
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
using Restore = Commands;
using HiddenButtons = Commands;

TEST_F(AutoSolve, RefusesAFullBoardAndAnImpossibleCellWithoutASnapshot) {
  GameState full = s;
  full.Grid = full.SolutionGrid;
  s.CellOptions[1][2] = 0;
  const auto before = s.Grid;
  mnusolveall(full, ui);
  mnusolveall(s, ui);
  EXPECT_EQ(ui.messages, (Messages{"Puzzles appears to been solved!", "Cell 1, 2 - invalid value"}));
  EXPECT_EQ(s.Grid, before);
  EXPECT_EQ(full.GridBackups[0] + s.GridBackups[0], "");
}

TEST_F(AutoSolve, StuckPuzzleKeepsItsDeductionsAndIsRestoredOnce) {
  const auto before = stuck.Grid;
  const auto remain = stuck.Remain;
  mnusolveall(stuck, ui);
  EXPECT_EQ(ui.messages, Messages{"No unique solution - please check the puzzle"});
  EXPECT_EQ(ui.boards, 1);
  EXPECT_NE(stuck.Grid, before);
  stuck.Remain = {};
  mnurestore(stuck, ui);
  EXPECT_EQ(stuck.Grid, before);
  EXPECT_EQ(stuck.Remain, remain);  // rebuilt from the restored grid
  mnurestore(stuck, ui);
  EXPECT_EQ(ui.messages.back(), "Backup grid not found");
}

TEST_F(AutoSolve, SolvedPuzzleListsTheThreeLeftOutCards) {
  mnusolveall(s, ui);
  EXPECT_EQ(ui.messages, Messages{"Done"});
  EXPECT_EQ(s.Grid, s.SolutionGrid);
  // The cards of the deck that no solution cell holds, each in its suit list.
  std::array<std::vector<std::string>, 4> absent;
  for (int k = 1; k <= 52; ++k) {
    bool used = false;
    for (int r = 1; r <= 7; ++r)
      for (int c = 1; c <= 7; ++c) used |= s.SolutionGrid[r][c] == k;
    if (!used)
      absent[(k - 1) % 4].push_back(std::string(RankLetter((k - 1) / 4 + 1)) + kSuitLetters[(k - 1) % 4 + 1]);
  }
  EXPECT_EQ(s.Remain, absent);
}

TEST_F(Restore, NothingToRestoreAfterStartUpAndRefusalWhileSolving) {
  mnurestore(s, ui);
  s.GridBackups[0] = "   ";  // blanks only: no snapshot either
  mnurestore(s, ui);
  SaveGridSnapshot(s, 0);
  s.Solving = 1;
  mnurestore(s, ui);
  mnuviewsol(s, ui);
  EXPECT_EQ(ui.messages, (Messages{"Backup grid not found", "Backup grid not found", "Cancel AutoSolve first",
                                   "Cancel AutoSolve first"}));
  EXPECT_EQ(ui.overlays, 0);
  EXPECT_NE(s.GridBackups[0], "");
  s.Solving = 0;
  const auto before = s.Grid;
  mnuviewsol(s, ui);
  EXPECT_EQ(ui.overlays, 1);
  EXPECT_EQ(s.Grid, before);  // the overlay is only painted
}

TEST_F(HiddenButtons, SolveWithoutCheckOrSnapshot) {
  Autosolvex(stuck, ui);
  EXPECT_EQ(ui.messages, Messages{"No unique solution - please check the puzzle"});
  EXPECT_EQ(stuck.GridBackups[0], "");
  s.CellOptions[1][2] = 0;  // the check would refuse; this button does not check
  Autosolvex(s, ui);
  EXPECT_EQ(ui.messages.back(), "Done");
  EXPECT_EQ(s.Grid, s.SolutionGrid);
}

TEST_F(HiddenButtons, CheckSolutionVerdicts) {
  Command6(s, ui);
  s.Grid[3][4] = 0;
  s.CellOptions[3][4] = 0;
  Command6(s, ui);
  s.Grid = s.SolutionGrid;
  Command6(s, ui);
  EXPECT_EQ(ui.messages, (Messages{"All ok but not done yet", " 1=Cell 3, 4 - invalid value", "Done"}));
}

TEST_F(HiddenButtons, ShowSolutionCopiesTheSolutionOnlyAndUndoStillWorks) {
  s.UndoList.push_front(" 1, 2, 0");
  const auto options = s.CellOptions;
  Command7(s, ui);
  EXPECT_EQ(s.Grid, s.SolutionGrid);
  EXPECT_EQ(s.CellOptions, options);
  EXPECT_EQ(s.UndoList.size(), 1u);
  UndoEdit(s, ui);
  EXPECT_EQ(s.Grid[1][2], 0);
  EXPECT_TRUE(s.UndoList.empty());
}

}  // namespace
}  // namespace velmora
