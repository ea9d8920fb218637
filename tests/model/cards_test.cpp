// Card tables, absent cards and the number-to-text forms.
#include <gtest/gtest.h>

#include "model/game_state.h"
#include "model/text.h"

namespace velmora {
namespace {

// Fills the 7x7 solution row by row with the given first card onwards.
void FillSolution(GameState& s, int first) {
  s.Rows = s.Cols = 7;
  for (int k = 1; k <= 49; ++k) {
    s.CellRow[k] = (k - 1) / 7 + 1;
    s.CellCol[k] = (k - 1) % 7 + 1;
    s.SolutionGrid[s.CellRow[k]][s.CellCol[k]] = first + k - 1;
  }
}

TEST(CardCodes, StartUpTableThenThreeAbsentCardsPerLoadWithoutStaleMarks) {
  GameState s;
  const std::pair<int, const char*> codes[] = {{1, "01S"}, {5, "02S"}, {52, "13C"}, {-4, "00C"}, {0, "00X"}};
  for (const auto& [index, code] : codes) EXPECT_EQ(s.CardCodes.Code(index), code) << index;

  FillSolution(s, 1);  // cards 1..49
  ASSERT_TRUE(RebuildCardCodes(s));
  for (int i : {50, 51, 52}) EXPECT_EQ(s.CardCodes.Code(i), "00X") << i;
  FillSolution(s, 4);  // a second load: 1, 2, 3 are the absent ones now
  ASSERT_TRUE(RebuildCardCodes(s));
  std::string absent;
  for (int i = 1; i <= 52; ++i) absent += s.CardCodes.IsAbsent(i) ? std::to_string(i) + " " : "";
  EXPECT_EQ(absent, "1 2 3 ");
  EXPECT_EQ(s.CardCodes.Code(52), "13C");
  s.SolutionGrid[2][3] = 53;  // a solution value without a card
  EXPECT_FALSE(RebuildCardCodes(s));
}

TEST(TextForms, LeadingBlankAndLenientValues) {
  EXPECT_EQ(Str(7) + Str(-3) + NumText(12), " 7-312");
  const std::pair<const char*, double> values[] = {{" 7, 7", 7}, {"12abc", 12}, {"abc", 0}, {"-4", -4}};
  for (const auto& [text, value] : values) EXPECT_EQ(Val(text), value) << text;
  EXPECT_EQ(*ValInt("7.5") + *ValInt("6.5"), 14);  // half to even: 8 + 6
  EXPECT_FALSE(ValInt("99999999999").has_value());
}

}  // namespace
}  // namespace velmora
