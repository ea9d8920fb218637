// The puzzle on the board: its size, card codes, grids and options.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/card_rule.h"
#include "model/cards.h"

namespace velmora {

// Per-cell arrays are indexed (row, col) 0..9 in each direction; row and
// column 0 are never used by the puzzle and stay 0.
inline constexpr int kGridDim = 10;
inline constexpr int kMaxIndex = kGridDim - 1;
inline constexpr int kMinCardIndex = -4;
inline constexpr int kMaxCardIndex = 52;
// Cell numbers run up to the largest board the grids can hold.
inline constexpr int kMaxCellNumber = kMaxIndex * kMaxIndex;

template <typename T>
using Board = std::array<std::array<T, kGridDim>, kGridDim>;

// CardCodes -4..52 held as rank number and suit number, which is what every
// reader of the table extracts ("07D" is rank 7, suit 3; "00X" is 0, 0).
// Beside them, what a cell holding index i bars, read through the code.
struct CardCodeTable {
  static constexpr int kSize = kMaxCardIndex - kMinCardIndex + 1;
  std::array<int8_t, kSize> rank{};
  std::array<int8_t, kSize> suit{};
  std::array<CellBars, kSize> bars{};
  CardSet deck = 0;  // cards 1..52 whose code is not "00X"

  static bool InRange(int i) { return i >= kMinCardIndex && i <= kMaxCardIndex; }
  int Rank(int i) const { return rank[i - kMinCardIndex]; }
  int Suit(int i) const { return suit[i - kMinCardIndex]; }
  CardSet NearBars(int i) const { return bars[i - kMinCardIndex].near; }
  CardSet LineBars(int i) const { return bars[i - kMinCardIndex].line; }
  char SuitLetter(int i) const { return kSuitLetters[Suit(i)]; }
  bool IsAbsent(int i) const { return Suit(i) == 0; }  // reads "00X"
  void Set(int i, int r, int s) {
    rank[i - kMinCardIndex] = static_cast<int8_t>(r);
    suit[i - kMinCardIndex] = static_cast<int8_t>(s);
    bars[i - kMinCardIndex] = BarsOf(r, s);
    if (i >= 1) deck = s ? (deck | CardBit(i)) : (deck & ~CardBit(i));
  }
  // The code text, e.g. "01S", "13C", "00X".
  std::string Code(int i) const;
};

// What a puzzle file's record and the player's moves make: written by
// loading, creating and playing, read by everything that shows or judges it.
struct Puzzle {
  Puzzle();

  CardCodeTable CardCodes;
  int Rows = kBoardSize;
  int Cols = kBoardSize;
  Board<int32_t> Grid{};
  // The player's rank notes per cell, bit r - 1 for rank r; never written
  // into puzzle files, and shown only while the cell holds no card.
  Board<uint16_t> Notes{};
  Board<int32_t> PuzzleGrid{};
  Board<int32_t> SolutionGrid{};
  Board<CardSet> CellOptions{};
  Board<CardSet> CellOptionsSaved{};
  CardSet AvailableCards = 0;

  // Cells are numbered 1, 2, ... rows outer over the board as it stands, so
  // the numbering follows every change of size. 0 outside the board.
  int CellNumber(int row, int col) const;
  int CellRow(int number) const;
  int CellCol(int number) const;
};

// The suit panels' lists of cards still to place, "S" "H" "D" "C": what the
// window shows of the puzzle's available cards.
using RemainLists = std::array<std::vector<std::string>, 4>;

// Loop bounds over the board: a failed load may leave Rows or Cols outside
// what the 0..9 arrays hold, and loops must never index past them.
inline int LoopRows(const Puzzle& p) { return p.Rows < 0 ? 0 : (p.Rows > kMaxIndex ? kMaxIndex : p.Rows); }
inline int LoopCols(const Puzzle& p) { return p.Cols < 0 ? 0 : (p.Cols > kMaxIndex ? kMaxIndex : p.Cols); }

// Rewrites CardCodes 1..52 to the plain codes (and -4..-1, 0 as at start-up).
void BuildCardCodes(CardCodeTable& codes);

// Marks the cards absent from SolutionGrid as "00X". Returns false when a
// solution value lies outside 0..52 (a run-time error for the caller).
bool RebuildCardCodes(Puzzle& p);

// Option text of a card set: " 1S 3H KC", tokens in card-index order.
std::string OptionText(CardSet set);

// Rank letter and suit letter of a card index through CardCodes ("QH").
std::string ListText(const Puzzle& p, int card);

}  // namespace velmora
