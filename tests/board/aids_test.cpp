// The play aids on real puzzles: hints taken one after another, redo, and
// play from the keyboard, all through the mouse's own paths.
#include "board/aids.h"

#include <gtest/gtest.h>

#include "files/puzzle_file.h"
#include "model/hint.h"
#include "model/solver.h"
#include "model/undo.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

const std::string kShipped = std::string(VELMORA_DATA_DIR) + "/puzzles.vlm";

TEST(Aids, HintsPressedTwiceSolveEveryShippedPuzzleThatDeductionSolves) {
  int solved = 0;
  for (int n = 1; n <= 60; ++n) {
    GameState s = test::Loaded(kShipped, n);
    test::RecordingUi ui;
    GameState solver = s;
    if (SolveGrid(solver.puzzle, solver.session, ui) == SolveResult::kCellsLeft ||
        solver.puzzle.Grid != s.puzzle.SolutionGrid)
      continue;
    ++solved;
    // A wrong card where the first step would go comes before every other
    // step; the second press takes it off again.
    const Hint first = FindHint(s.puzzle);
    const int row = first.row, col = first.col;
    s.puzzle.Grid[row][col] = s.puzzle.SolutionGrid[row][col] % 52 + 1;
    mnuhint(s, ui);
    EXPECT_EQ(s.view.pb, "the card at " + std::to_string(row) + ", " + std::to_string(col) + " is wrong");
    mnuhint(s, ui);
    ASSERT_EQ(s.puzzle.Grid[row][col], 0);
    EXPECT_EQ(s.view.pb, "");  // the hint's text goes with the step taken
    for (int step = 0; step < 60 && s.puzzle.Grid != s.puzzle.SolutionGrid; ++step) {
      mnuhint(s, ui);
      ASSERT_NE(FindHint(s.puzzle).kind, kHintNone) << n;
      mnuhint(s, ui);
    }
    EXPECT_EQ(s.puzzle.Grid, s.puzzle.SolutionGrid) << n;
    EXPECT_EQ(ui.messages, std::vector<std::string>{"Done"}) << n;
  }
  EXPECT_GT(solved, 0);
}

TEST(Aids, RedoRestoresBoardAndUndoListAndANewChangeEndsIt) {
  GameState s = test::Loaded(test::SolvableFile());
  test::RecordingUi ui;
  // Row 1 is 3C, blank, ...; (1, 2) takes 9D. Keyboard: cursor to (1, 2).
  MoveCursor(s, ui, 0, 0);
  MoveCursor(s, ui, 0, 1);
  EXPECT_EQ(s.view.pb, " Cell 2, Options= 5D 6D 9D");
  for (char letter : std::string("5xd")) TypeLetter(s, ui, letter);  // x forgets the rank
  EXPECT_EQ(s.puzzle.Grid[1][2], 0);
  for (char letter : std::string("5d9d")) TypeLetter(s, ui, letter);  // 9D exchanges 5D
  EXPECT_EQ(s.puzzle.Grid[1][2], 35);
  const GameState placed = s;
  for (int i = 0; i < 3; ++i) UndoLast(s, ui);
  for (int i = 0; i < 4; ++i) mnuredo(s, ui);  // the fourth finds nothing
  EXPECT_EQ(s.puzzle.Grid, placed.puzzle.Grid);
  EXPECT_EQ(s.session.UndoList, placed.session.UndoList);
  EXPECT_EQ(s.view.Remain, placed.view.Remain);
  UndoLast(s, ui);
  for (char letter : std::string("6d")) TypeLetter(s, ui, letter);  // a new change ends the redo
  mnuredo(s, ui);
  EXPECT_EQ(s.puzzle.Grid[1][2], 23);
  ClearAtCursor(s, ui);
  EXPECT_EQ(s.puzzle.Grid[1][2], 0);
  // A hint and the cursor end with the board they were shown on.
  for (auto leave : {+[](GameState&g, UserInterface&u) { UndoLast(g, u); },
                     +[](GameState&g, UserInterface&u) { LoadPuzzle(g, u, test::SolvableFile(), 1); }}) {
    mnuhint(s, ui);
    leave(s, ui);
    EXPECT_EQ(s.view.pb, "");
  }
  EXPECT_EQ(s.session.aids.cursorRow + s.session.aids.cursorCol, 0);
}

}  // namespace
}  // namespace velmora
