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
    if (SolveGrid(solver, ui) != 0 || solver.Grid != s.SolutionGrid) continue;
    ++solved;
    // A wrong card in the last empty cell comes before every other step;
    // the second press takes it off again.
    int row = 0, col = 0;
    for (int r = 1; r <= 7; ++r)
      for (int c = 1; c <= 7; ++c)
        if (s.Grid[r][c] == 0) row = r, col = c;
    s.Grid[row][col] = s.SolutionGrid[row][col] % 52 + 1;
    mnuhint(s, ui);
    EXPECT_EQ(s.view.pb, "the card at " + std::to_string(row) + ", " + std::to_string(col) + " is wrong");
    mnuhint(s, ui);
    ASSERT_EQ(s.Grid[row][col], 0);
    for (int step = 0; step < 60 && s.Grid != s.SolutionGrid; ++step) {
      mnuhint(s, ui);
      ASSERT_NE(FindHint(s).kind, kHintNone) << n;
      mnuhint(s, ui);
    }
    EXPECT_EQ(s.Grid, s.SolutionGrid) << n;
    EXPECT_EQ(ui.messages, std::vector<std::string>{"Done"}) << n;
    mnuhint(s, ui);
    EXPECT_EQ(s.view.pb, "No step follows from the rules alone");
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
  TypeLetter(s, ui, '5');
  TypeLetter(s, ui, 'x');  // forgets the rank
  TypeLetter(s, ui, 'd');
  EXPECT_EQ(s.Grid[1][2], 0);
  for (char letter : std::string("5d9d")) TypeLetter(s, ui, letter);  // 9D exchanges 5D
  EXPECT_EQ(s.Grid[1][2], 35);
  const GameState placed = s;
  UndoLast(s, ui);
  UndoLast(s, ui);
  UndoLast(s, ui);
  EXPECT_EQ(s.Grid[1][2], 0);
  for (int i = 0; i < 4; ++i) mnuredo(s, ui);  // the fourth finds nothing
  EXPECT_EQ(s.Grid, placed.Grid);
  EXPECT_EQ(s.UndoList, placed.UndoList);
  EXPECT_EQ(s.Remain, placed.Remain);
  UndoLast(s, ui);
  UndoLast(s, ui);
  EXPECT_EQ(s.Grid[1][2], 19);
  ClearAtCursor(s, ui);  // a new change: the 5D goes, and so does the redo
  mnuredo(s, ui);
  EXPECT_EQ(s.Grid[1][2], 0);
  EXPECT_EQ(s.UndoList.size(), placed.UndoList.size() - 1);
}

}  // namespace
}  // namespace velmora
