// What a screen reader says of a board cell.
#include "board/cell_names.h"

namespace velmora {
namespace {

constexpr const char* kRankNames[14] = {"",      "ace",   "two",  "three", "four", "five",  "six",
                                        "seven", "eight", "nine", "ten",   "jack", "queen", "king"};
constexpr const char* kSuitNames[5] = {"", "spades", "hearts", "diamonds", "clubs"};

}  // namespace

std::string SpokenCellName(const Puzzle& p, int row, int col) {
  std::string name = "row " + std::to_string(row) + ", column " + std::to_string(col) + ": ";
  if (row < 1 || row > LoopRows(p) || col < 1 || col > LoopCols(p)) return name + "off the board";
  const int v = p.Grid[row][col];
  if (v >= 1 && v <= kMaxCardIndex) {
    const int rank = p.CardCodes.Rank(v), suit = p.CardCodes.Suit(v);
    if (rank < 1 || rank > 13 || suit < 1 || suit > 4) return name + "unknown card";
    name += std::string(kRankNames[rank]) + " of " + kSuitNames[suit];
    return p.PuzzleGrid[row][col] == v ? name + ", given" : name;
  }
  name += "empty";
  if (v < 0 && v >= -4) name += std::string(", marked ") + kSuitNames[-v];
  if (v == 0) {
    const int n = __builtin_popcountll(p.CellOptions[row][col]);
    name += ", " + std::to_string(n) + (n == 1 ? " option" : " options");
  }
  if (p.Notes[row][col] != 0) {
    name += ", notes ";
    for (int rank = 1; rank <= 13; ++rank)
      if (p.Notes[row][col] & (1 << (rank - 1))) name += RankLetter(rank);
  }
  return name;
}

}  // namespace velmora
