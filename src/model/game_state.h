// The program's main state: card tables, board arrays, options, lists and flags.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "model/card_rule.h"
#include "model/cards.h"
#include "model/file_names.h"
#include "model/random.h"

namespace velmora {

// Per-cell arrays are indexed (row, col) 0..9 in each direction; row and
// column 0 are never used by the puzzle and stay 0.
inline constexpr int kGridDim = 10;
inline constexpr int kMaxIndex = kGridDim - 1;
inline constexpr int kMinCardIndex = -4;
inline constexpr int kMaxCardIndex = 52;
// The cell-number tables cover the largest board the grids can hold.
inline constexpr int kMaxCellNumber = kMaxIndex * kMaxIndex;

template <typename T>
using Board = std::array<std::array<T, kGridDim>, kGridDim>;

// A colour scheme: 13 RGB colours, red in the low byte.
using SchemeColors = std::array<uint32_t, 13>;

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

// Texts of the main window's controls that commands write.
struct ViewState {
  std::string PuzNumNow;
  std::string MaxPuzCount;
  std::string PuzTitle;
  std::string Caption;
  std::string pb;      // status label
  std::string NewLab;  // progress panel label
  std::string Label3;  // row of the last click
  std::string Label4;  // column of the last click
  bool Frame1Visible = false;
};

// The generator's removal queue (List6): one item per filled cell, a random
// key 1..98 and the cell number, kept in the ascending text order of the
// items ("37 12" before "37 5").
struct RemovalQueue {
  struct Item {
    uint8_t key;
    uint8_t cell;
    uint16_t order;  // sorts as the item's text does
  };
  std::array<Item, kMaxCellNumber> items{};
  int count = 0;
  int top = 0;  // items before it have been taken off the list
};

// What the play aids keep: the redo list, the hint last shown, the keyboard
// cursor. None of it is read by the commands the aids do not add.
struct PlayAids {
  struct Change {
    int row, col, value;  // the value an undo took away
  };
  std::vector<Change> RedoList;  // newest last
  int hintKind = 0;              // a HintKind; 0 when no hint is shown
  int hintRow = 0, hintCol = 0, hintCard = 0;
  Board<int32_t> gridAtHint{};       // the board the hint was shown for
  int cursorRow = 0, cursorCol = 0;  // 0: no cursor shown
  char pendingRank = 0;              // a rank letter typed, waiting for its suit
};

struct GameState {
  GameState();

  CardCodeTable CardCodes;

  int Rows = kBoardSize;
  int Cols = kBoardSize;
  Board<int32_t> Grid{};
  Board<int32_t> PuzzleGrid{};
  Board<int32_t> SolutionGrid{};
  Board<CardSet> CellOptions{};
  Board<CardSet> CellOptionsSaved{};
  CardSet AvailableCards = 0;
  std::array<std::vector<std::string>, 4> Remain;

  // Cell numbering and drawing positions (twips), filled by CalcCellPos.
  Board<int32_t> CellNumber{};
  std::array<int32_t, kMaxCellNumber + 1> CellRow{};
  std::array<int32_t, kMaxCellNumber + 1> CellCol{};
  Board<int32_t> CellX{}, CellY{}, TextX{}, TextY{};

  int Solving = 0;
  int CancelRequest = 0;
  std::string SelectedCard;

  // The generator's deck pool (List3): bit i is the i-th of the 52 pool
  // items in ascending text order ("01C04" < "01D03" < "01H02" < "01S01"),
  // which puts card k at bit (k - 1) ^ 3.
  CardSet List3 = 0;
  RemovalQueue List6;
  Board<int32_t> PatternMask{};  // the base pattern's 14 blanks

  std::deque<std::string> UndoList;  // newest first
  std::array<std::string, 1> GridBackups;
  PlayAids aids;

  std::string AppFolder;      // always ends in '/'
  std::string ShippedFolder;  // where the help page was installed; AppFolder when empty at start-up
  std::string CurrentPuzzleFile;
  int CurrentPuzzleNumber = 0;
  int PuzzleCount = 0;
  std::string ColorSchemeName = kDefaultSchemeName;
  SchemeColors Scheme{};  // the current colour scheme

  ViewState view;
  Random rng;
};

// Loop bounds over the board: a failed load may leave Rows or Cols outside
// what the 0..9 arrays hold, and loops must never index past them.
inline int LoopRows(const GameState& s) { return s.Rows < 0 ? 0 : (s.Rows > kMaxIndex ? kMaxIndex : s.Rows); }
inline int LoopCols(const GameState& s) { return s.Cols < 0 ? 0 : (s.Cols > kMaxIndex ? kMaxIndex : s.Cols); }

// Rewrites CardCodes 1..52 to the plain codes (and -4..-1, 0 as at start-up).
void BuildCardCodes(CardCodeTable& codes);

// Marks the cards absent from SolutionGrid as "00X". Returns false when a
// solution value lies outside 0..52 (a run-time error for the caller).
bool RebuildCardCodes(GameState& s);

// Option text of a card set: " 1S 3H KC", tokens in card-index order.
std::string OptionText(CardSet set);

// Rank letter and suit letter of a card index through CardCodes ("QH").
std::string ListText(const GameState& s, int card);

}  // namespace velmora
