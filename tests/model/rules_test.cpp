// Card tables, Remain lists and card lookup; the options themselves are
// compared with a plain reading of the rules in the solver tests.
#include "model/rules.h"

#include <gtest/gtest.h>

#include "board/geometry.h"
#include "model/game_state.h"

namespace velmora {
namespace {

// Fills the 7x7 solution row by row with the given first card onwards.
void FillSolution(GameState& s, int first) {
  s.puzzle.Rows = s.puzzle.Cols = 7;
  for (int k = 1; k <= 49; ++k)
    s.puzzle.SolutionGrid[s.puzzle.CellRow(k)][s.puzzle.CellCol(k)] = first + k - 1;
}

TEST(CardCodes, StartUpTableThenThreeAbsentCardsPerLoadWithoutStaleMarks) {
  GameState s;
  const std::pair<int, const char*> codes[] = {{1, "01S"}, {5, "02S"}, {52, "13C"}, {-4, "00C"}, {0, "00X"}};
  for (const auto& [index, code] : codes) EXPECT_EQ(s.puzzle.CardCodes.Code(index), code) << index;

  FillSolution(s, 1);  // cards 1..49
  ASSERT_TRUE(RebuildCardCodes(s.puzzle));
  FillSolution(s, 4);  // a second load: 1, 2, 3 are the absent ones now, 50..52 no longer
  ASSERT_TRUE(RebuildCardCodes(s.puzzle));
  std::string absent;
  for (int i = 1; i <= 52; ++i) absent += s.puzzle.CardCodes.IsAbsent(i) ? std::to_string(i) + " " : "";
  EXPECT_EQ(absent + s.puzzle.CardCodes.Code(52), "1 2 3 13C");
  s.puzzle.SolutionGrid[2][3] = 53;  // a solution value without a card
  EXPECT_FALSE(RebuildCardCodes(s.puzzle));
}

TEST(UpdateOptions, EmptyBoardListsTheDeckButNoAbsentCard) {
  GameState s;
  s.puzzle.Rows = s.puzzle.Cols = 7;
  for (int i : {7, 30, 52}) s.puzzle.CardCodes.Set(i, 0, 0);  // absent from this puzzle
  ASSERT_TRUE(UpdateOptions(s.puzzle, s.view.Remain));
  EXPECT_EQ(
      s.view.Remain[0].size() + s.view.Remain[1].size() + s.view.Remain[2].size() + s.view.Remain[3].size(),
      49u);
  EXPECT_EQ(s.view.Remain[3].back(), "QC");
  EXPECT_EQ(s.view.Remain[2][1], "3D");  // 2D is absent
}

TEST(CardLookup, FindCardIndexAndSuitListIndex) {
  const std::pair<const char*, int> cards[] = {{"QD", 47}, {"1S", 1}, {"ks", 49}, {"ZZ", -1}, {"1S02", -1}};
  for (const auto& [text, index] : cards) EXPECT_EQ(FindCardIndex(text), index) << text;
  const std::pair<const char*, int> suits[] = {{"S", 0}, {"C", 3}, {"s", -1}, {"SH", -1}};
  for (const auto& [text, index] : suits) EXPECT_EQ(SuitListIndex(text), index) << text;
}

}  // namespace
}  // namespace velmora
