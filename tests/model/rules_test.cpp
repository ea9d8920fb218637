// Card tables, options against the rule as text, Remain lists and card lookup.
#include "model/rules.h"

#include <gtest/gtest.h>

#include <random>

#include "board/geometry.h"
#include "model/text.h"
#include "rule_texts.h"

namespace velmora {
namespace {

using test::ExcludedRanks;
using test::NeighbourSuits;

GameState EmptyBoard() {
  GameState s;
  s.Rows = s.Cols = 7;
  CalcCellPos(s);
  return s;
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

TEST(UpdateOptions, EmptyBoardListsTheDeckButNoAbsentCard) {
  GameState s = EmptyBoard();
  for (int i : {7, 30, 52}) s.CardCodes.Set(i, 0, 0);  // absent from this puzzle
  ASSERT_TRUE(UpdateOptions(s, 1));
  EXPECT_EQ(s.Remain[0].size() + s.Remain[1].size() + s.Remain[2].size() + s.Remain[3].size(), 49u);
  EXPECT_EQ(s.Remain[3].back(), "QC");
  EXPECT_EQ(s.Remain[2][1], "3D");  // 2D is absent
}

// The options equal the rule stated as texts and substring tests. Suit marks
// among the values get options as empty cells do.
TEST(UpdateOptions, BitSetsAgreeWithTheTextRuleOnRandomBoards) {
  std::mt19937 rng(12345);
  for (int round = 0; round < 100; ++round) {
    GameState s = EmptyBoard();
    for (int i = 0; i < 3; ++i) s.CardCodes.Set(1 + static_cast<int>(rng() % 52), 0, 0);
    for (int r = 1; r <= 7; ++r)
      for (int c = 1; c <= 7; ++c) {
        const int roll = static_cast<int>(rng() % 10);
        s.Grid[r][c] = roll < 4    ? 0
                       : roll == 4 ? -static_cast<int>(1 + rng() % 4)
                                   : 1 + static_cast<int>(rng() % 52);
      }
    ASSERT_TRUE(UpdateOptions(s, 1));
    for (int r = 1; r <= 7; ++r)
      for (int c = 1; c <= 7; ++c) {
        CardSet expected = 0;
        if (s.Grid[r][c] < 1) {
          const std::string a = ExcludedRanks(s, r, c), b = NeighbourSuits(s, r, c);
          for (int k = 1; k <= 52; ++k) {
            bool onBoard = false;
            for (int i = 1; i <= 7; ++i)
              for (int j = 1; j <= 7; ++j) onBoard |= s.Grid[i][j] == k;
            const int rank = (k - 1) / 4 + 1;
            const char suit = "SHDC"[(k - 1) % 4];
            if (!s.CardCodes.IsAbsent(k) && !onBoard && b.find(suit) == std::string::npos &&
                a.find(" " + std::to_string(rank) + ",") == std::string::npos)
              expected |= CardBit(k);
          }
        }
        ASSERT_EQ(s.CellOptions[r][c], expected) << "round " << round << " cell " << r << "," << c;
      }
  }
}

TEST(CardLookup, FindCardIndexAndSuitListIndex) {
  const std::pair<const char*, int> cards[] = {{"QD", 47}, {"1S", 1}, {"ks", 49}, {"ZZ", -1}, {"1S02", -1}};
  for (const auto& [text, index] : cards) EXPECT_EQ(FindCardIndex(text), index) << text;
  const std::pair<const char*, int> suits[] = {{"S", 0}, {"C", 3}, {"s", -1}, {"SH", -1}};
  for (const auto& [text, index] : suits) EXPECT_EQ(SuitListIndex(text), index) << text;
}

}  // namespace
}  // namespace velmora
