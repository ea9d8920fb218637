// The player's suit marks: what they bar, what refuses them, undo and redo.
#include "board/marks.h"

#include <gtest/gtest.h>

#include "board/aids.h"
#include "model/undo.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

const std::string kShipped = std::string(VELMORA_DATA_DIR) + "/puzzles.vlm";
constexpr CardSet kSpades = 0x1111111111111ULL;

TEST(Marks, AMarkBarsItsSuitNextDoorIsOneUndoStepAndTakesNoCardOrGiven) {
  GameState s = test::Loaded(kShipped, 60);
  test::RecordingUi ui;
  Puzzle& p = s.puzzle;
  int row = 1, col = 1;  // an empty cell beside an empty cell with options
  while (row < 7 && (p.Grid[row][col] != 0 || p.Grid[row][col + 1] != 0 || p.CellOptions[row][col + 1] == 0))
    col = col % 6 + 1, row += col == 1;
  ASSERT_LT(row, 7);
  const Board<CardSet> before = p.CellOptions;
  const int suit = CardSuit(__builtin_ctzll(before[row][col + 1]) + 1);
  EXPECT_TRUE(MarkCell(s, ui, row, col, suit));
  EXPECT_EQ(p.Grid[row][col], -suit);
  EXPECT_EQ(p.CellOptions[row][col + 1], before[row][col + 1] & ~(kSpades << (suit - 1)));
  EXPECT_FALSE(MarkCell(s, ui, row, col, suit));  // no change, no undo step
  EXPECT_TRUE(MarkCell(s, ui, row, col, 0));
  EXPECT_EQ(s.session.UndoList.size(), 2u);
  UndoLast(s, ui);
  EXPECT_EQ(p.Grid[row][col], -suit);
  UndoLast(s, ui);
  EXPECT_TRUE(p.Grid[row][col] == 0 && p.CellOptions == before);
  mnuredo(s, ui);
  EXPECT_EQ(p.Grid[row][col], -suit);
  // Givens, placed cards and cells off the board take no mark.
  int gr = 1, gc = 1;
  while (p.PuzzleGrid[gr][gc] == 0) gc = gc % 7 + 1, gr += gc == 1;
  p.Grid[row][col + 1] = p.SolutionGrid[row][col + 1];
  EXPECT_FALSE(MarkCell(s, ui, gr, gc, 1) || MarkCell(s, ui, row, col + 1, 1) || MarkCell(s, ui, 8, 1, 1) ||
               MarkCell(s, ui, row, col, 5));
}

}  // namespace
}  // namespace velmora
