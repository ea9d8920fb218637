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

GameState Solvable() { return test::Loaded(test::SolvableFile()); }
GameState Stuck() { return test::Loaded(test::SampleFile()); }  // deduction alone cannot finish it

TEST(AutoSolve, RefusesAFullBoardAndAnImpossibleCellWithoutASnapshot) {
  GameState full = Solvable();
  full.Grid = full.SolutionGrid;
  GameState impossible = Solvable();
  impossible.CellOptions[1][2] = 0;
  const auto before = impossible.Grid;
  test::RecordingUi ui;
  mnusolveall(full, ui);
  mnusolveall(impossible, ui);
  EXPECT_EQ(ui.messages, (Messages{"Puzzles appears to been solved!", "Cell 1, 2 - invalid value"}));
  EXPECT_EQ(impossible.Grid, before);
  EXPECT_EQ(full.GridBackups[0] + impossible.GridBackups[0], "");
}

TEST(AutoSolve, StuckPuzzleKeepsItsDeductionsAndIsRestoredOnce) {
  GameState s = Stuck();
  const auto before = s.Grid;
  const auto remain = s.Remain;
  test::RecordingUi ui;
  mnusolveall(s, ui);
  EXPECT_EQ(ui.messages, Messages{"No unique solution - please check the puzzle"});
  EXPECT_EQ(ui.boards, 1);
  EXPECT_NE(s.Grid, before);
  s.Remain = {};
  mnurestore(s, ui);
  EXPECT_EQ(s.Grid, before);
  EXPECT_EQ(s.Remain, remain);  // rebuilt from the restored grid
  mnurestore(s, ui);
  EXPECT_EQ(ui.messages.back(), "Backup grid not found");
}

TEST(AutoSolve, SolvedPuzzleListsTheThreeLeftOutCards) {
  GameState s = Solvable();
  test::RecordingUi ui;
  mnusolveall(s, ui);
  EXPECT_EQ(ui.messages, Messages{"Done"});
  EXPECT_EQ(s.Grid, s.SolutionGrid);
  // The cards of the deck that no solution cell holds, each in its suit list.
  std::array<std::vector<std::string>, 4> absent;
  for (int k = 1; k <= 52; ++k) {
    bool used = false;
    for (int r = 1; r <= 7; ++r)
      for (int c = 1; c <= 7; ++c) used |= s.SolutionGrid[r][c] == k;
    if (!used) absent[(k - 1) % 4].push_back(std::string(RankLetter((k - 1) / 4 + 1)) + kSuitLetters[(k - 1) % 4 + 1]);
  }
  EXPECT_EQ(s.Remain, absent);
}

TEST(Restore, NothingToRestoreAndRefusalWhileSolving) {
  GameState s = Solvable();
  test::RecordingUi ui;
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

TEST(HiddenButtons, SolveWithoutCheckOrSnapshot) {
  GameState s = Stuck();
  test::RecordingUi ui;
  Autosolvex(s, ui);
  EXPECT_EQ(ui.messages, Messages{"No unique solution - please check the puzzle"});
  EXPECT_EQ(s.GridBackups[0], "");
  GameState t = Solvable();
  t.CellOptions[1][2] = 0;  // the check would refuse; this button does not check
  Autosolvex(t, ui);
  EXPECT_EQ(ui.messages.back(), "Done");
  EXPECT_EQ(t.Grid, t.SolutionGrid);
}

TEST(HiddenButtons, CheckSolutionVerdicts) {
  GameState s = Solvable();
  test::RecordingUi ui;
  Command6(s, ui);
  s.Grid[3][4] = 0;
  s.CellOptions[3][4] = 0;
  Command6(s, ui);
  s.Grid = s.SolutionGrid;
  Command6(s, ui);
  EXPECT_EQ(ui.messages, (Messages{"All ok but not done yet", " 1=Cell 3, 4 - invalid value", "Done"}));
}

TEST(HiddenButtons, ShowSolutionCopiesTheSolutionOnlyAndUndoStillWorks) {
  GameState s = Solvable();
  s.UndoList.push_front(" 1, 2, 0");
  const auto options = s.CellOptions;
  test::RecordingUi ui;
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
