// Rule tests and option sets. Options are kept as card bit sets; the texts
// the rest of the program reads are produced from them in token order.
#include "model/rules.h"

#include <array>
#include <cstdint>

#include "model/text.h"

namespace velmora {
namespace {

bool Inside(const GameState& s, int row, int col) {
  return row >= 1 && row <= s.Rows && col >= 1 && col <= s.Cols;
}

// Index-safe read of a grid value; false when (row, col) is outside 0..9.
bool GridValue(const GameState& s, int row, int col, int& v) {
  if (row < 0 || row > kMaxIndex || col < 0 || col > kMaxIndex) return false;
  v = s.Grid[row][col];
  return true;
}

// Card masks of rank sets, split into two tables to stay small.
struct RankTables {
  std::array<CardSet, 128> low{};  // ranks 1..7
  std::array<CardSet, 64> high{};  // ranks 8..13
  std::array<uint16_t, 14> spread{};  // a neighbour of rank r bars r, r+1, r-1 (wrapping)
  std::array<CardSet, 32> suits{};    // suit bits 1..4 to card masks
  RankTables() {
    for (int m = 0; m < 128; ++m) {
      for (int r = 1; r <= 7; ++r)
        if (m & (1 << (r - 1))) low[m] |= CardSet{0xF} << (4 * (r - 1));
    }
    for (int m = 0; m < 64; ++m) {
      for (int r = 8; r <= 13; ++r)
        if (m & (1 << (r - 8))) high[m] |= CardSet{0xF} << (4 * (r - 1));
    }
    for (int r = 1; r <= 13; ++r) {
      const int up = r + 1 > 13 ? 1 : r + 1;
      const int down = r == 1 ? 13 : r - 1;
      spread[r] = static_cast<uint16_t>((1 << r) | (1 << up) | (1 << down));
    }
    for (int m = 0; m < 32; ++m) {
      for (int suit = 1; suit <= 4; ++suit) {
        if (!(m & (1 << suit))) continue;
        for (int r = 0; r < 13; ++r) suits[m] |= CardSet{1} << (4 * r + suit - 1);
      }
    }
  }
  // rankBits uses bit r for rank r (1..13).
  CardSet Cards(unsigned rankBits) const { return low[(rankBits >> 1) & 127] | high[(rankBits >> 8) & 63]; }
};

const RankTables kTables;

}  // namespace

int CellRank(const GameState& s, int row, int col) {
  int v = 0;
  if (!Inside(s, row, col) || !GridValue(s, row, col, v) || !CardCodeTable::InRange(v)) return 0;
  return s.CardCodes.Rank(v);
}

std::string CellSuit(const GameState& s, int row, int col) {
  int v = 0;
  if (!Inside(s, row, col) || !GridValue(s, row, col, v) || !CardCodeTable::InRange(v)) return "";
  return std::string(1, s.CardCodes.SuitLetter(v));
}

std::string ExcludedRanks(const GameState& s, int row, int col) {
  std::string text;
  auto entry = [&text](int r) { text += Str(r) + ","; };
  const int neighbours[4][2] = {{row, col - 1}, {row - 1, col}, {row + 1, col}, {row, col + 1}};
  for (const auto& n : neighbours) {
    const int r = CellRank(s, n[0], n[1]);
    if (r < 1) continue;
    entry(r);
    entry(r + 1 > 13 ? 1 : r + 1);
    entry(r == 1 ? 13 : r - 1);
  }
  for (int i = 1; i <= s.Rows; ++i) {
    if (i != row && CellRank(s, i, col) > 0) entry(CellRank(s, i, col));
  }
  for (int j = 1; j <= s.Cols; ++j) {
    if (j != col && CellRank(s, row, j) > 0) entry(CellRank(s, row, j));
  }
  return text;
}

std::string NeighbourSuits(const GameState& s, int row, int col) {
  std::string text;
  const int neighbours[4][2] = {{row, col - 1}, {row - 1, col}, {row, col + 1}, {row + 1, col}};
  for (const auto& n : neighbours) text += CellSuit(s, n[0], n[1]);
  return text;
}

bool UpdateOptions(GameState& s, int refresh) {
  s.AvailableCards = s.CardCodes.deck;
  if (refresh == 1) {
    for (auto& list : s.Remain) list.clear();
  }
  const int rows = s.Rows, cols = s.Cols;
  if (rows < 1 || cols < 1) return true;
  if (rows > kMaxIndex || cols > kMaxIndex) return false;  // Grid(10, c) does not exist

  // Rank and suit of every cell through CardCodes, padded by one empty ring.
  uint8_t rank[kGridDim + 1][kGridDim + 1] = {};
  uint8_t suitBit[kGridDim + 1][kGridDim + 1] = {};
  uint16_t rowRanks[kGridDim + 1] = {}, colRanks[kGridDim + 1] = {};
  uint16_t badRows = 0, badCols = 0;  // rows/columns holding a value below -4
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      const int v = s.Grid[r][c];
      if (v > kMaxCardIndex) return false;  // AvailableCards(v) does not exist
      if (v < kMinCardIndex) {
        badRows |= static_cast<uint16_t>(1 << r);
        badCols |= static_cast<uint16_t>(1 << c);
        continue;
      }
      if (v > 0) s.AvailableCards &= ~CardBit(v);
      const int rk = s.CardCodes.Rank(v);
      rank[r][c] = static_cast<uint8_t>(rk);
      suitBit[r][c] = static_cast<uint8_t>(1 << s.CardCodes.Suit(v));
      if (rk > 0) {
        rowRanks[r] |= static_cast<uint16_t>(1 << rk);
        colRanks[c] |= static_cast<uint16_t>(1 << rk);
      }
    }
  }

  const CardSet available = s.AvailableCards;
  bool any = false;
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      s.CellOptions[r][c] = 0;
      if (s.Grid[r][c] >= 1) continue;
      // Reading a neighbour or a row/column cell whose value has no code fails.
      if (((badRows >> r) & 1) || ((badCols >> c) & 1)) {
        // The only offender may be the cell itself, which its own tests never read.
        bool otherBad = false;
        for (int j = 1; j <= cols && !otherBad; ++j) otherBad = j != c && s.Grid[r][j] < kMinCardIndex;
        for (int i = 1; i <= rows && !otherBad; ++i) otherBad = i != r && s.Grid[i][c] < kMinCardIndex;
        if (otherBad) return false;
      }
      const unsigned excluded = rowRanks[r] | colRanks[c] | kTables.spread[rank[r][c - 1]] |
                                kTables.spread[rank[r - 1][c]] | kTables.spread[rank[r + 1][c]] |
                                kTables.spread[rank[r][c + 1]];
      const unsigned suits =
          (suitBit[r][c - 1] | suitBit[r - 1][c] | suitBit[r + 1][c] | suitBit[r][c + 1]) & 0x1E;
      s.CellOptions[r][c] = available & ~kTables.Cards(excluded) & ~kTables.suits[suits];
      any = true;
    }
  }

  if (refresh == 1 && any) {
    for (CardSet set = available; set; set &= set - 1) {
      const int card = __builtin_ctzll(set) + 1;
      const int suit = (card - 1) % 4 + 1;
      s.Remain[suit - 1].push_back(std::string(RankLetter((card - 1) / 4 + 1)) + kSuitLetters[suit]);
    }
  }
  return true;
}

int FindCardIndex(std::string_view text) {
  for (int k = 1; k <= 52; ++k) {
    std::string item = std::string(RankLetter((k - 1) / 4 + 1)) + kSuitLetters[(k - 1) % 4 + 1];
    item += static_cast<char>('0' + k / 10);
    item += static_cast<char>('0' + k % 10);
    if (StartsWithNoCase(item, text)) return k;
  }
  return -1;
}

int SuitListIndex(std::string_view letter) {
  if (letter == "S") return 0;
  if (letter == "H") return 1;
  if (letter == "D") return 2;
  if (letter == "C") return 3;
  return -1;
}

}  // namespace velmora
