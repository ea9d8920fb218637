// Option sets from the rule's bars. Options are kept as card bit sets; the
// texts the rest of the program reads are produced from them in token order.
#include "model/rules.h"

#include "model/text.h"

namespace velmora {

bool UpdateOptions(GameState& s, int refresh) {
  s.AvailableCards = s.CardCodes.deck;
  if (refresh == 1) {
    for (auto& list : s.Remain) list.clear();
  }
  const int rows = s.Rows, cols = s.Cols;
  if (rows < 1 || cols < 1) return true;
  if (rows > kMaxIndex || cols > kMaxIndex) return false;  // Grid(10, c) does not exist

  // What each card or mark bars its neighbours from; ranks also bar their row
  // and column. The padding ring stands for the cells off the board.
  CardSet rowBars[kGridDim + 1] = {}, colBars[kGridDim + 1] = {};
  CardSet nearBars[kGridDim + 1][kGridDim + 1];
  for (int c = 0; c <= cols + 1; ++c) nearBars[0][c] = nearBars[rows + 1][c] = 0;
  for (int r = 1; r <= rows; ++r) nearBars[r][0] = nearBars[r][cols + 1] = 0;
  CardSet available = s.AvailableCards;
  bool anyBad = false;  // a value below -4 has no code
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      const int v = s.Grid[r][c];
      if (v > kMaxCardIndex) return false;  // AvailableCards(v) does not exist
      if (v < kMinCardIndex) {
        anyBad = true;
        nearBars[r][c] = 0;
        continue;
      }
      if (v > 0) available &= ~CardBit(v);
      nearBars[r][c] = s.CardCodes.NearBars(v);
      rowBars[r] |= s.CardCodes.LineBars(v);
      colBars[c] |= s.CardCodes.LineBars(v);
    }
  }
  s.AvailableCards = available;

  bool anyEmpty = false;
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      if (s.Grid[r][c] >= 1) {
        s.CellOptions[r][c] = 0;
        continue;
      }
      // Reading a row or column cell whose value has no code fails; the cell's
      // own tests never read the cell itself.
      if (anyBad) {
        bool otherBad = false;
        for (int j = 1; j <= cols; ++j) otherBad |= j != c && s.Grid[r][j] < kMinCardIndex;
        for (int i = 1; i <= rows; ++i) otherBad |= i != r && s.Grid[i][c] < kMinCardIndex;
        if (otherBad) return false;
      }
      const CardSet near = nearBars[r][c - 1] | nearBars[r][c + 1] | nearBars[r - 1][c] | nearBars[r + 1][c];
      s.CellOptions[r][c] = available & ~(rowBars[r] | colBars[c] | near);
      anyEmpty = true;
    }
  }

  if (refresh == 1 && anyEmpty) {
    for (CardSet set = available; set; set &= set - 1) {
      const int card = __builtin_ctzll(set) + 1;
      s.Remain[CardSuit(card) - 1].push_back(CardText(card));
    }
  }
  return true;
}

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
