// AutoSolve, Restore, Show Solution, Undo and the hidden buttons.
#include <gtest/gtest.h>

#include "files/puzzle_file.h"
#include "model/commands.h"
#include "model/rules.h"
#include "model/undo.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using Messages = std::vector<std::string>;

GameState Load(const std::string& file, int n = 1) {
  GameState s;
  SilentUserInterface ui;
  std::string title;
  EXPECT_EQ(LoadPuzzle(s, ui, file, n, title, 0), 0);
  return s;
}
GameState Solvable() { return Load(std::string(VELMORA_TEST_DATA_DIR) + "/solvable.vlm"); }

TEST(AutoSolve, FullBoardIsReportedSolvedWithoutASnapshot) {
  GameState s = Solvable();
  s.Grid = s.SolutionGrid;
  test::RecordingUi ui;
  mnusolveall(s, ui);
  EXPECT_EQ(ui.messages, Messages{"Puzzles appears to been solved!"});
  EXPECT_EQ(s.GridBackups[0], "");
}

TEST(AutoSolve, ImpossibleCellShowsTheCheckAndDoesNotSolve) {
  GameState s = Solvable();
  s.CellOptions[1][2] = 0;
  const auto before = s.Grid;
  test::RecordingUi ui;
  mnusolveall(s, ui);
  EXPECT_EQ(ui.messages, Messages{"Cell 1, 2 - invalid value"});
  EXPECT_EQ(s.Grid, before);
  EXPECT_EQ(s.GridBackups[0], "");
}

TEST(AutoSolve, StuckPuzzleKeepsItsDeductionsAndCanBeRestored) {
  GameState s = Load(test::SampleFile());
  const auto before = s.Grid;
  const auto remain = s.Remain;
  test::RecordingUi ui;
  mnusolveall(s, ui);
  EXPECT_EQ(ui.messages, Messages{"No unique solution - please check the puzzle"});
  EXPECT_EQ(ui.boards, 1);
  EXPECT_NE(s.Grid, before);
  EXPECT_EQ(s.Remain, remain);  // stale until the next option update
  s.Remain = {};
  mnurestore(s, ui);
  EXPECT_EQ(s.Grid, before);
  EXPECT_EQ(ui.boards, 2);
  EXPECT_EQ(s.Remain, remain);  // rebuilt from the restored grid
  mnurestore(s, ui);  // a snapshot is restored once
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
  size_t total = 0;
  for (const auto& list : s.Remain) total += list.size();
  EXPECT_EQ(total, 3u);
}

TEST(Restore, NothingToRestoreAndRefusalWhileSolving) {
  GameState s = Solvable();
  test::RecordingUi ui;
  mnurestore(s, ui);
  EXPECT_EQ(ui.messages, Messages{"Backup grid not found"});
  s.GridBackups[0] = "   ";  // blanks only: no snapshot either
  mnurestore(s, ui);
  EXPECT_EQ(ui.messages.back(), "Backup grid not found");
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
  GameState s = Load(test::SampleFile());
  const auto remain = s.Remain;
  test::RecordingUi ui;
  Autosolvex(s, ui);
  EXPECT_EQ(ui.messages, Messages{"No unique solution - please check the puzzle"});
  EXPECT_EQ(s.GridBackups[0], "");
  GameState t = Solvable();
  t.CellOptions[1][2] = 0;  // the check would refuse; this button does not check
  Autosolvex(t, ui);
  EXPECT_EQ(ui.messages.back(), "Done");
  EXPECT_EQ(t.Grid, t.SolutionGrid);
  EXPECT_EQ(s.Remain, remain);
  EXPECT_EQ(ui.boards, 2);
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

TEST(HiddenButtons, ShowSolutionCopiesTheSolutionOnly) {
  GameState s = Solvable();
  s.UndoList.push_front(" 1, 2, 0");
  const auto options = s.CellOptions;
  const auto remain = s.Remain;
  test::RecordingUi ui;
  Command7(s, ui);
  EXPECT_EQ(s.Grid, s.SolutionGrid);
  EXPECT_EQ(ui.boards, 1);
  EXPECT_EQ(s.CellOptions, options);
  EXPECT_EQ(s.Remain, remain);
  EXPECT_EQ(s.UndoList.size(), 1u);
  UndoEdit(s, ui);  // the undo button takes the entry back
  EXPECT_EQ(s.Grid[1][2], 0);
  EXPECT_TRUE(s.UndoList.empty());
}

}  // namespace
}  // namespace velmora
