// Option sets from the rule's bars. Options are kept as card bit sets; the
// texts the rest of the program reads are produced from them in token order.
#include "model/rules.h"

#include "model/cpu_level.h"
#include "model/cpu_targets.h"
#include "model/text.h"

namespace velmora {

namespace {

// What each card or mark bars its neighbours from; ranks also bar their row
// and column. The padding ring stands for the cells off the board.
struct Bars {
  CardSet row[kGridDim + 1] = {}, col[kGridDim + 1] = {};
  CardSet near[kGridDim + 1][kGridDim + 1];
  CardSet available = 0;
  bool anyBad = false;  // a value below -4 has no code
};

// Reads the board's bars; false when a value indexes past AvailableCards.
bool ReadBars(const Puzzle& s, int rows, int cols, Bars& b) {
  for (int c = 0; c <= cols + 1; ++c) b.near[0][c] = b.near[rows + 1][c] = 0;
  for (int r = 1; r <= rows; ++r) b.near[r][0] = b.near[r][cols + 1] = 0;
  b.available = s.AvailableCards;
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      const int v = s.Grid[r][c];
      if (v > kMaxCardIndex) return false;  // AvailableCards(v) does not exist
      if (v < kMinCardIndex) {
        b.anyBad = true;
        b.near[r][c] = 0;
        continue;
      }
      if (v > 0) b.available &= ~CardBit(v);
      b.near[r][c] = s.CardCodes.NearBars(v);
      b.row[r] |= s.CardCodes.LineBars(v);
      b.col[c] |= s.CardCodes.LineBars(v);
    }
  }
  return true;
}

// Reading a row or column cell whose value has no code fails; the cell's own
// tests never read the cell itself.
bool OtherBad(const Puzzle& s, int rows, int cols, int r, int c) {
  bool bad = false;
  for (int j = 1; j <= cols; ++j) bad |= j != c && s.Grid[r][j] < kMinCardIndex;
  for (int i = 1; i <= rows; ++i) bad |= i != r && s.Grid[i][c] < kMinCardIndex;
  return bad;
}

// Reads the bars and computes the options: the hot part of an update.
// False on a run-time error; `anyEmpty` tells whether a cell took options.
[[gnu::always_inline]] inline bool ComputeOptions(Puzzle& s, Bars& b, bool& anyEmpty) {
  const int rows = s.Rows, cols = s.Cols;
  if (!ReadBars(s, rows, cols, b)) return false;
  s.AvailableCards = b.available;
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      if (s.Grid[r][c] >= 1) {
        s.CellOptions[r][c] = 0;
        continue;
      }
      if (b.anyBad && OtherBad(s, rows, cols, r, c)) return false;
      const CardSet near = b.near[r][c - 1] | b.near[r][c + 1] | b.near[r - 1][c] | b.near[r + 1][c];
      s.CellOptions[r][c] = b.available & ~(b.row[r] | b.col[c] | near);
      anyEmpty = true;
    }
  }
  return true;
}

namespace generic {
bool Options(Puzzle& s, Bars& b, bool& anyEmpty) { return ComputeOptions(s, b, anyEmpty); }
}  // namespace generic

#ifdef VELMORA_CPU_VERSIONS
// The same code built for the newer levels: `flatten` brings the reading of
// the bars and the option loops into the function, under its target.
VELMORA_BEGIN_V3
namespace v3 {
[[gnu::flatten]] bool Options(Puzzle& s, Bars& b, bool& anyEmpty) { return ComputeOptions(s, b, anyEmpty); }
}  // namespace v3
VELMORA_END_LEVEL
VELMORA_BEGIN_V4
namespace v4 {
[[gnu::flatten]] bool Options(Puzzle& s, Bars& b, bool& anyEmpty) { return ComputeOptions(s, b, anyEmpty); }
}  // namespace v4
VELMORA_END_LEVEL
#endif

bool Options(Puzzle& s, Bars& b, bool& anyEmpty) {
#ifdef VELMORA_CPU_VERSIONS
  switch (ActiveCpuLevel()) {
    case CpuLevel::kV4:
      return v4::Options(s, b, anyEmpty);
    case CpuLevel::kV3:
      return v3::Options(s, b, anyEmpty);
    case CpuLevel::kGeneric:
      break;
  }
#endif
  return generic::Options(s, b, anyEmpty);
}

// The options, and the lists when they are asked for.
bool Update(Puzzle& s, RemainLists* lists) {
  s.AvailableCards = s.CardCodes.deck;
  if (lists) {
    for (auto& list : *lists) list.clear();
  }
  const int rows = s.Rows, cols = s.Cols;
  if (rows < 1 || cols < 1) return true;
  if (rows > kMaxIndex || cols > kMaxIndex) return false;  // Grid(10, c) does not exist
  Bars b;
  bool anyEmpty = false;
  if (!Options(s, b, anyEmpty)) return false;

  if (lists && anyEmpty) {
    for (CardSet set = b.available; set; set &= set - 1) {
      const int card = __builtin_ctzll(set) + 1;
      (*lists)[CardSuit(card) - 1].push_back(CardText(card));
    }
  }
  return true;
}

}  // namespace

bool UpdateOptions(Puzzle& p) { return Update(p, nullptr); }
bool UpdateOptions(Puzzle& p, RemainLists& lists) { return Update(p, &lists); }

int FindCardIndex(std::string_view text) {
  for (int k = 1; k <= 52; ++k) {
    std::string item = CardText(k);
    item += static_cast<char>('0' + k / 10);
    item += static_cast<char>('0' + k % 10);
    if (StartsWithNoCase(item, text)) return k;
  }
  return -1;
}

}  // namespace velmora
