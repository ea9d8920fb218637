// Deduction solver: single options and cards with one place, repeated to a fixed point.
//
// Each pass works as if UpdateOptions(0) ran between its two steps, but the
// bars behind the options (ranks taken in each row and column, what each cell
// bars its neighbours from, the cards still free) are kept up to date as
// cards go down instead of being rebuilt from the whole grid. The options it
// leaves in CellOptions are the ones UpdateOptions would compute.
#include "model/solver.h"

#include <array>

#include "model/rules.h"

namespace velmora {
namespace {

// Padded board: one ring of cells around the grid that bars nothing, so
// neighbour reads need no bounds tests.
constexpr int kStride = kGridDim + 1;
constexpr int kPadded = kStride * (kGridDim + 1);

struct Masks {
  std::array<CardSet, 14> rank{};          // all four cards of a rank
  std::array<CardSet, 14> neighbourRank{};  // rank r and its two neighbours, king and ace wrapping
  std::array<CardSet, 5> suit{};            // index 0, "00X", bars nothing
  constexpr Masks() {
    for (int r = 1; r <= 13; ++r) rank[r] = CardSet{0xF} << (4 * (r - 1));
    for (int r = 1; r <= 13; ++r) {
      const int up = r == 13 ? 1 : r + 1;
      const int down = r == 1 ? 13 : r - 1;
      neighbourRank[r] = rank[r] | rank[up] | rank[down];
    }
    for (int st = 1; st <= 4; ++st)
      for (int r = 0; r < 13; ++r) suit[st] |= CardSet{1} << (4 * r + st - 1);
  }
};
constexpr Masks kMasks;

// What putting card k (1..52) down bars: its neighbours, and its row and column.
struct CardBars {
  std::array<CardSet, 53> near{};
  std::array<CardSet, 53> line{};
  constexpr CardBars() {
    for (int k = 1; k <= 52; ++k) {
      near[k] = kMasks.neighbourRank[(k - 1) / 4 + 1] | kMasks.suit[(k - 1) % 4 + 1];
      line[k] = kMasks.rank[(k - 1) / 4 + 1];
    }
  }
};
constexpr CardBars kCardBars;

inline int LowestCard(CardSet m) { return __builtin_ctzll(m) + 1; }
inline int HighestCard(CardSet m) { return 64 - __builtin_clzll(m); }

struct OpenCell {
  uint8_t row, col;
  uint16_t at;  // index into the padded board
};

class Solver {
 public:
  explicit Solver(GameState& s) : s_(s) {}

  // Takes the board as it stands; false when UpdateOptions(0) fails on it.
  bool Begin() {
    if (Start()) return true;
    if (!UpdateOptions(s_, 0)) return false;
    Reset();
    StartFromOptions();
    return true;
  }

  // Reads the grid as UpdateOptions(0) does and computes the first options.
  // False, with nothing changed, when Rows or Cols or a value lies outside
  // what the fast path handles; UpdateOptions then decides.
  bool Start() {
    rows_ = s_.Rows;
    cols_ = s_.Cols;
    if (rows_ < 1 || cols_ < 1 || rows_ > kMaxIndex || cols_ > kMaxIndex) return false;
    CardSet placed = 0;
    for (int r = 1; r <= rows_; ++r) {
      for (int c = 1; c <= cols_; ++c) {
        const int v = s_.Grid[r][c];
        if (v < kMinCardIndex || v > kMaxCardIndex) return false;
        const int at = r * kStride + c;
        if (v < 1) {
          open_[count_++] = OpenCell{static_cast<uint8_t>(r), static_cast<uint8_t>(c), static_cast<uint16_t>(at)};
        } else {
          placed |= CardBit(v);
        }
        const int rk = s_.CardCodes.Rank(v);
        near_[at] = kMasks.neighbourRank[rk] | kMasks.suit[s_.CardCodes.Suit(v)];
        rowBars_[r] |= kMasks.rank[rk];
        colBars_[c] |= kMasks.rank[rk];
      }
    }
    avail_ = s_.CardCodes.deck & ~placed;
    for (int r = 1; r <= rows_; ++r)
      for (int c = 1; c <= cols_; ++c) s_.CellOptions[r][c] = 0;
    Recompute();
    return true;
  }

  // The slow path for a board with values that have no code: UpdateOptions
  // has judged it readable and left its options.
  void StartFromOptions() {
    rows_ = s_.Rows;
    cols_ = s_.Cols;
    avail_ = s_.AvailableCards;
    for (int r = 1; r <= rows_; ++r) {
      for (int c = 1; c <= cols_; ++c) {
        const int v = s_.Grid[r][c];
        const int at = r * kStride + c;
        if (v < 1) {
          open_[count_] = OpenCell{static_cast<uint8_t>(r), static_cast<uint8_t>(c), static_cast<uint16_t>(at)};
          options_[count_++] = s_.CellOptions[r][c];
        }
        // A value below -4 bars nothing; UpdateOptions has already refused
        // the boards where any cell's test would read it.
        if (v < kMinCardIndex) continue;
        const int rk = s_.CardCodes.Rank(v);
        near_[at] = kMasks.neighbourRank[rk] | kMasks.suit[s_.CardCodes.Suit(v)];
        rowBars_[r] |= kMasks.rank[rk];
        colBars_[c] |= kMasks.rank[rk];
      }
    }
  }

  // One pass; returns the number of changes.
  int Pass() {
    int changes = 0;
    // Single options, all from the options as they stood at the pass's start.
    for (int i = 0; i < count_; ++i) {
      const CardSet m = options_[i];
      if (m != 0 && (m & (m - 1)) == 0) {
        Put(i, LowestCard(m));
        ++changes;
      }
    }
    // Fresh options, and which cards are an option of exactly one cell.
    const CardSet unique = Recompute();
    if (unique == 0) return changes;
    // Every unique card goes to its cell in increasing card order with no
    // test of the cell, so of several unique to one cell the highest stays.
    for (int i = 0; i < count_; ++i) {
      const CardSet u = options_[i] & unique;
      if (u == 0) continue;
      Put(i, HighestCard(u));
      changes += __builtin_popcountll(u);
    }
    return changes;
  }

  void Reset() {
    // Only the rows the board uses, with the ring around them.
    const int used = (LoopRows(s_) + 2) * kStride;
    for (int i = 0; i < used; ++i) near_[i] = 0;
    rowBars_.fill(0);
    colBars_.fill(0);
    filled_.fill(false);
    count_ = 0;
  }

  // Options of every open cell from the bars, dropping the cells that took a
  // card since the last call; returns the cards that are an option of
  // exactly one cell.
  CardSet Recompute() {
    CardSet once = 0, twice = 0;
    int kept = 0;
    for (int i = 0; i < count_; ++i) {
      if (filled_[i]) {
        filled_[i] = false;
        continue;
      }
      const OpenCell cell = open_[i];
      const CardSet barred = rowBars_[cell.row] | colBars_[cell.col] | near_[cell.at - 1] | near_[cell.at + 1] |
                             near_[cell.at - kStride] | near_[cell.at + kStride];
      const CardSet m = avail_ & ~barred;
      open_[kept] = cell;
      options_[kept++] = m;
      twice |= once & m;
      once |= m;
    }
    count_ = kept;
    return once & ~twice;
  }

  // Leaves CellOptions and AvailableCards as UpdateOptions(0) would.
  void Finish() {
    for (int i = 0; i < count_; ++i) {
      if (!filled_[i]) s_.CellOptions[open_[i].row][open_[i].col] = options_[i];
    }
    s_.AvailableCards = avail_;
  }

 private:
  void Put(int i, int card) {
    const OpenCell cell = open_[i];
    s_.Grid[cell.row][cell.col] = card;
    s_.CellOptions[cell.row][cell.col] = 0;
    options_[i] = 0;
    filled_[i] = true;
    near_[cell.at] = kCardBars.near[card];
    rowBars_[cell.row] |= kCardBars.line[card];
    colBars_[cell.col] |= kCardBars.line[card];
    avail_ &= ~CardBit(card);
  }

  GameState& s_;
  int rows_ = 0, cols_ = 0;
  CardSet avail_ = 0;
  std::array<CardSet, kPadded> near_{};
  std::array<CardSet, kGridDim + 1> rowBars_{}, colBars_{};
  std::array<OpenCell, kMaxCellNumber> open_;
  std::array<CardSet, kMaxCellNumber> options_;
  std::array<bool, kMaxCellNumber> filled_{};
  int count_ = 0;
};

}  // namespace

int SolveGrid(GameState& s, UserInterface& ui) {
  s.Solving = 1;
  Solver solver(s);
  if (!solver.Begin()) {
    s.Solving = 0;
    return 1;
  }
  int changes;
  do {
    const size_t undoEntries = s.UndoList.size();
    const int rows = s.Rows, cols = s.Cols, solving = s.Solving;
    ui.Yield();  // once per pass: the window stays responsive
    // The commands that may run during the yield and change the board are a
    // load, which clears Solving, and an undo, which takes an entry off the
    // undo list; the pass then starts again from the board as it now is.
    if (s.Solving != solving || s.UndoList.size() != undoEntries || s.Rows != rows || s.Cols != cols) {
      solver.Reset();
      if (!solver.Begin()) {
        s.Solving = 0;
        return 1;
      }
    }
    changes = solver.Pass();
  } while (changes != 0);
  solver.Finish();
  s.Solving = 0;
  const int rows = LoopRows(s), cols = LoopCols(s);
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      if (s.Grid[r][c] == 0) return 1;  // a suit-only mark counts as filled
    }
  }
  return 0;
}

}  // namespace velmora
