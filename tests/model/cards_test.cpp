// Card tables, absent cards and the number-to-text forms.
#include <gtest/gtest.h>

#include "model/game_state.h"
#include "model/text.h"

namespace velmora {
namespace {

TEST(CardCodes, StartUpTableMatchesRankAndSuitOrder) {
  GameState s;
  const std::pair<int, const char*> codes[] = {{1, "01S"},  {2, "01H"},  {4, "01C"},  {5, "02S"}, {40, "10C"},
                                               {52, "13C"}, {-1, "00S"}, {-4, "00C"}, {0, "00X"}};
  for (const auto& [index, code] : codes) EXPECT_EQ(s.CardCodes.Code(index), code) << index;
  EXPECT_EQ(s.CardCodes.SuitLetter(-3), 'D');
}

// Fills the 7x7 solution row by row with the given first card onwards.
void FillSolution(GameState& s, int first) {
  s.Rows = s.Cols = 7;
  for (int k = 1; k <= 49; ++k) {
    s.CellRow[k] = (k - 1) / 7 + 1;
    s.CellCol[k] = (k - 1) % 7 + 1;
    s.SolutionGrid[s.CellRow[k]][s.CellCol[k]] = first + k - 1;
  }
}

TEST(CardCodes, RebuildMarksTheThreeUnusedCardsAndForgetsOldMarks) {
  GameState s;
  FillSolution(s, 1);  // cards 1..49
  ASSERT_TRUE(RebuildCardCodes(s));
  EXPECT_EQ(s.CardCodes.Code(49), "13S");
  for (int i : {50, 51, 52}) EXPECT_EQ(s.CardCodes.Code(i), "00X") << i;
  EXPECT_EQ(s.CardCodes.Code(-2), "00H");

  FillSolution(s, 4);  // a second load: cards 4..52, so 1, 2, 3 are the absent ones
  ASSERT_TRUE(RebuildCardCodes(s));
  for (int i : {1, 2, 3}) EXPECT_EQ(s.CardCodes.Code(i), "00X") << i;
  int absent = 0;
  for (int i = 1; i <= 52; ++i) absent += s.CardCodes.IsAbsent(i);
  EXPECT_EQ(absent, 3);
}

TEST(CardCodes, RebuildFailsOnASolutionValueWithoutACard) {
  GameState s;
  for (int bad : {53, -1}) {
    FillSolution(s, 1);
    s.SolutionGrid[2][3] = bad;
    EXPECT_FALSE(RebuildCardCodes(s)) << bad;
  }
}

TEST(TextForms, LeadingBlankAndLenientValues) {
  EXPECT_EQ(Str(7), " 7");
  EXPECT_EQ(Str(0), " 0");
  EXPECT_EQ(Str(-3), "-3");
  EXPECT_EQ(NumText(12), "12");
  const std::pair<const char*, double> values[] = {
      {" 7, 7", 7}, {"12abc", 12}, {"abc", 0}, {"-4", -4}, {"", 0}};
  for (const auto& [text, value] : values) EXPECT_EQ(Val(text), value) << text;
  EXPECT_EQ(*ValInt("7.5"), 8);  // half to even
  EXPECT_EQ(*ValInt("6.5"), 6);
  EXPECT_FALSE(ValInt("99999999999").has_value());
}

}  // namespace
}  // namespace velmora
