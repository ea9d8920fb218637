// The rule of the grid, written once; every bar table is derived from it when
// the program is compiled.
#pragma once

#include <array>
#include <cstdint>

namespace velmora {

// A set of cards: bit k-1 stands for card index k (1..52). Iterating the
// bits from low to high visits cards in option-text token order.
using CardSet = uint64_t;
inline constexpr CardSet kAllCards = (CardSet{1} << 52) - 1;
inline constexpr CardSet CardBit(int card) { return CardSet{1} << (card - 1); }

// Rank 1..13 and suit 1..4 ("S", "H", "D", "C") of card index 1..52.
constexpr int CardRank(int card) { return (card - 1) / 4 + 1; }
constexpr int CardSuit(int card) { return (card - 1) % 4 + 1; }

enum class Placing { kSameLine, kNextDoor };

// Whether two cards may not stand so: in one row or column they never share
// a rank; next door they also never share a suit nor hold neighbouring
// ranks, king and ace counting as neighbours. Rank 0 and suit 0 (the "00X"
// of an empty cell or an absent card, the rank of a suit-only mark) clash
// with nothing.
constexpr bool Clash(int rankA, int suitA, int rankB, int suitB, Placing placing) {
  const bool ranks = rankA >= 1 && rankB >= 1;
  if (ranks && rankA == rankB) return true;
  if (placing == Placing::kSameLine) return false;
  if (suitA >= 1 && suitA == suitB) return true;
  const int apart = (rankA - rankB + 13) % 13;
  return ranks && (apart == 1 || apart == 12);
}

// What a cell bars: the cards its row and column may not hold (`line`) and
// those its four neighbours may not hold (`near`).
struct CellBars {
  CardSet line = 0;
  CardSet near = 0;
};

namespace rule_detail {

// Indexed by rank 0..13 and suit 0..4.
inline constexpr auto kBarsTable = [] {
  std::array<std::array<CellBars, 5>, 14> table{};
  for (int rank = 0; rank <= 13; ++rank) {
    for (int suit = 0; suit <= 4; ++suit) {
      CellBars& bars = table[rank][suit];
      for (int k = 1; k <= 52; ++k) {
        if (Clash(CardRank(k), CardSuit(k), rank, suit, Placing::kSameLine)) bars.line |= CardBit(k);
        if (Clash(CardRank(k), CardSuit(k), rank, suit, Placing::kNextDoor)) bars.near |= CardBit(k);
      }
    }
  }
  return table;
}();

}  // namespace rule_detail

// The bars of a cell holding rank `rank` and suit `suit`; a rank outside
// 1..13 or a suit outside 1..4 bars nothing.
constexpr CellBars BarsOf(int rank, int suit) {
  if (rank < 0 || rank > 13) rank = 0;
  if (suit < 0 || suit > 4) suit = 0;
  return rule_detail::kBarsTable[rank][suit];
}

}  // namespace velmora
