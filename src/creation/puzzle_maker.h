// One puzzle in the making, advanced a cell of the deal at a time, so that
// CreatePuzzle can run one alone and a batch can deal two in turn.
//
// The deck pool and every bar are card sets in the pool's text order (card k
// at bit (k - 1) ^ 3), so "the k-th fitting pool item" is the k-th set bit.
#pragma once

#include <array>
#include <cstdint>

#include "model/puzzle.h"
#include "model/session.h"
#include "model/user_interface.h"

namespace velmora::maker {

inline constexpr int kSize = kBoardSize;

constexpr int PoolBit(int card) { return (card - 1) ^ 3; }
constexpr int PoolCard(int bit) { return (bit ^ 3) + 1; }

// What a dealt card bars its four neighbours from and its row and column
// from, by the card's pool bit.
struct PoolMasks {
  std::array<CardSet, 52> nearOfBit{};
  std::array<CardSet, 52> lineOfBit{};
  static constexpr CardSet InPoolOrder(CardSet cards) {
    CardSet pool = 0;
    for (int k = 1; k <= 52; ++k)
      if (cards & CardBit(k)) pool |= CardSet{1} << PoolBit(k);
    return pool;
  }
  constexpr PoolMasks() {
    for (int b = 0; b < 52; ++b) {
      const CellBars bars = BarsOf(CardRank(PoolCard(b)), CardSuit(PoolCard(b)));
      nearOfBit[b] = InPoolOrder(bars.near);
      lineOfBit[b] = InPoolOrder(bars.line);
    }
  }
};
inline constexpr PoolMasks kPool;

// Position of the j-th lowest set bit of each byte value.
struct ByteSelect {
  std::array<std::array<uint8_t, 8>, 256> at{};
  constexpr ByteSelect() {
    for (int b = 0; b < 256; ++b) {
      int j = 0;
      for (int i = 0; i < 8; ++i)
        if (b & (1 << i)) at[b][j++] = static_cast<uint8_t>(i);
    }
  }
};
inline constexpr ByteSelect kByteSelect;

inline constexpr uint64_t kOnes8 = 0x0101010101010101ULL;
inline constexpr uint64_t kHigh8 = 0x8080808080808080ULL;

// Running bit counts per byte: byte i holds the set bits of bytes 0..i.
// Broadword, so a generic x86-64 build needs no popcount instruction.
inline uint64_t ByteSums(uint64_t x) {
  uint64_t s = x - ((x >> 1) & 0x5555555555555555ULL);
  s = (s & 0x3333333333333333ULL) + ((s >> 2) & 0x3333333333333333ULL);
  s = (s + (s >> 4)) & 0x0F0F0F0F0F0F0F0FULL;
  return s * kOnes8;
}

// Position of set bit j (0-based, j below the count) of x.
inline int SelectBit(uint64_t x, uint64_t sums, int j) {
  // The running counts grow byte by byte; the first byte whose count
  // exceeds j holds the bit.
  const uint64_t above = ~((static_cast<uint64_t>(j) * kOnes8 | kHigh8) - sums) & kHigh8;
  const int place = __builtin_ctzll(above) - 7;
  const int before = static_cast<int>(((sums << 8) >> place) & 0xFF);
  return place + kByteSelect.at[(x >> place) & 0xFF][j - before];
}

// A deal from a pool in text order: draws the k-th pooled item that
// `excluded` (in pool order) leaves, takes it off the pool and returns its
// pool bit; -1, with no draw, when nothing fits.
inline int DrawFromPool(Random& rng, CardSet& pool, CardSet excluded) {
  const CardSet fitting = pool & ~excluded;
  if (fitting == 0) return -1;
  const uint64_t bits = rng.Bits53();  // does not wait for the fitting set
  const uint64_t sums = ByteSums(fitting);
  const int bit = SelectBit(fitting, sums, Random::PickOfFew(bits, static_cast<int>(sums >> 56)) - 1);
  pool &= ~(CardSet{1} << bit);
  return bit;
}

// The generic draw, for PuzzleMaker::StepWith.
struct BroadwordDraw {
  static int From(Random& rng, CardSet& pool, CardSet excluded) { return DrawFromPool(rng, pool, excluded); }
};

// CreatePuzzle's steps for one puzzle, made in `p` (which must be 7x7) from
// the session's random source, watching its CancelRequest.
class PuzzleMaker {
 public:
  enum class Phase { kDealing, kMade, kCancelled };

  PuzzleMaker(Puzzle& p, Session& session, UserInterface& ui, int difficulty)
      : p_(p), session_(session), ui_(ui), level_(difficulty) {}

  // Starts the first deal.
  Phase Begin() {
    rng_ = session_.rng;
    return FreshDeal();
  }

  // Deals one cell. When a deal ends this also does what follows it: a
  // fresh deal, or the base puzzle's check and the removal of givens.
  // Inlined so that two makers' steps interleave in one loop. `Draw::From`
  // does what DrawFromPool does, in the CPU version the loop is built for.
  template <class Draw>
  [[gnu::always_inline]] Phase StepWith() {
    const int bit = Draw::From(rng_, pool_, base_[row_] | colRanks_ | below_);
    if (bit < 0) return AttemptFailed();
    grid_[row_ * kGridDim] = PoolCard(bit);
    below_ = near_[row_] = kPool.nearOfBit[bit];
    const CardSet line = kPool.lineOfBit[bit];
    ranks_[row_] = line;
    colRanks_ |= line;
    if (--row_ > 0) return Phase::kDealing;
    return ColumnDealt();
  }

  // The level made, once the phase is kMade.
  int level() const { return level_; }

 private:
  Phase FreshDeal();
  Phase BeginAttempt(int attempt);
  Phase AttemptFailed();
  Phase ColumnDealt();
  Phase BoardDealt();
  Phase Cancelled();

  Puzzle& p_;
  Session& session_;
  UserInterface& ui_;
  int level_;
  Random rng_;  // the session's source, held here while dealing
  CardSet pool_ = 0;
  int32_t* grid_ = nullptr;  // Grid[0][col_]: a row further is kGridDim on
  // What the cells of this column may not take from their row and their
  // left neighbour: the same for every attempt at the column.
  std::array<CardSet, kSize + 1> base_{};
  std::array<CardSet, kSize + 1> rowRanks_{};  // ranks of the columns dealt before this one
  std::array<CardSet, kSize + 1> near_{};      // bars this column's cards put on the next column
  std::array<CardSet, kSize + 1> ranks_{};     // of the cards dealt into this column
  CardSet colRanks_ = 0;
  CardSet below_ = 0;  // bars of the card dealt just below
  int row_ = kSize, col_ = 1, attempt_ = 1;
};

}  // namespace velmora::maker
