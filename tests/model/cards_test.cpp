// Card tables, absent cards and the number-to-text forms.
#include <gtest/gtest.h>

#include "model/game_state.h"
#include "model/text.h"

namespace velmora {
namespace {

TEST(CardCodes, StartUpTableMatchesRankAndSuitOrder) {
  GameState s;
  EXPECT_EQ(s.CardCodes.Code(1), "01S");
  EXPECT_EQ(s.CardCodes.Code(2), "01H");
  EXPECT_EQ(s.CardCodes.Code(3), "01D");
  EXPECT_EQ(s.CardCodes.Code(4), "01C");
  EXPECT_EQ(s.CardCodes.Code(5), "02S");
  EXPECT_EQ(s.CardCodes.Code(40), "10C");
  EXPECT_EQ(s.CardCodes.Code(52), "13C");
  EXPECT_EQ(s.CardCodes.Code(-1), "00S");
  EXPECT_EQ(s.CardCodes.Code(-3), "00D");
  EXPECT_EQ(s.CardCodes.Code(-4), "00C");
  EXPECT_EQ(s.CardCodes.Code(0), "00X");
  EXPECT_EQ(s.CardCodes.SuitLetter(-3), 'D');
}

// Fills the 7x7 solution row by row with the given first card onwards.
void FillSolution(GameState& s, int first) {
  s.Rows = s.Cols = 7;
  int k = 0;
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c) {
      s.SolutionGrid[r][c] = first + k;
      ++k;
      s.CellRow[k] = r;
      s.CellCol[k] = c;
    }
}

TEST(CardCodes, RebuildMarksTheThreeUnusedCardsAndForgetsOldMarks) {
  GameState s;
  FillSolution(s, 1);  // cards 1..49
  ASSERT_TRUE(RebuildCardCodes(s));
  EXPECT_EQ(s.CardCodes.Code(49), "13S");
  for (int i : {50, 51, 52}) EXPECT_EQ(s.CardCodes.Code(i), "00X") << i;
  EXPECT_EQ(s.CardCodes.Code(-2), "00H");

  FillSolution(s, 4);  // cards 4..52: 1, 2, 3 are now the absent ones
  ASSERT_TRUE(RebuildCardCodes(s));
  for (int i : {1, 2, 3}) EXPECT_EQ(s.CardCodes.Code(i), "00X") << i;
  for (int i : {50, 51, 52}) EXPECT_NE(s.CardCodes.Code(i), "00X") << i;
  int absent = 0;
  for (int i = 1; i <= 52; ++i) absent += s.CardCodes.IsAbsent(i);
  EXPECT_EQ(absent, 3);
}

TEST(CardCodes, RebuildFailsOnASolutionValueWithoutACard) {
  GameState s;
  FillSolution(s, 1);
  s.SolutionGrid[2][3] = 53;
  EXPECT_FALSE(RebuildCardCodes(s));
  s.SolutionGrid[2][3] = -1;
  EXPECT_FALSE(RebuildCardCodes(s));
}

TEST(TextForms, LeadingBlankAndLenientValues) {
  EXPECT_EQ(Str(7), " 7");
  EXPECT_EQ(Str(0), " 0");
  EXPECT_EQ(Str(-3), "-3");
  EXPECT_EQ(NumText(12), "12");
  EXPECT_EQ(Val(" 7, 7"), 7);
  EXPECT_EQ(Val("12abc"), 12);
  EXPECT_EQ(Val("abc"), 0);
  EXPECT_EQ(Val("-4"), -4);
  EXPECT_EQ(Val(""), 0);
  EXPECT_EQ(*ValInt("7.5"), 8);  // half to even
  EXPECT_EQ(*ValInt("6.5"), 6);
  EXPECT_FALSE(ValInt("99999999999").has_value());
}

}  // namespace
}  // namespace velmora
