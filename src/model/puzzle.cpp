// Card tables and the puzzle's cell numbering.
#include "model/puzzle.h"

namespace velmora {

std::string CardCodeTable::Code(int i) const {
  const int r = Rank(i);
  std::string code;
  code += static_cast<char>('0' + r / 10);
  code += static_cast<char>('0' + r % 10);
  code += SuitLetter(i);
  return code;
}

void BuildCardCodes(CardCodeTable& codes) {
  int index = 0;
  for (int r = 1; r <= 13; ++r) {
    for (int suit = 1; suit <= 4; ++suit) codes.Set(++index, r, suit);
  }
  for (int suit = 1; suit <= 4; ++suit) codes.Set(-suit, 0, suit);
  codes.Set(0, 0, 0);
}

Puzzle::Puzzle() { BuildCardCodes(CardCodes); }

int Puzzle::CellNumber(int row, int col) const {
  const int cols = LoopCols(*this);
  if (row < 1 || row > LoopRows(*this) || col < 1 || col > cols) return 0;
  return (row - 1) * cols + col;
}

int Puzzle::CellRow(int number) const {
  const int cols = LoopCols(*this);
  if (number < 1 || number > LoopRows(*this) * cols) return 0;
  return (number - 1) / cols + 1;
}

int Puzzle::CellCol(int number) const {
  const int cols = LoopCols(*this);
  if (number < 1 || number > LoopRows(*this) * cols) return 0;
  return (number - 1) % cols + 1;
}

bool RebuildCardCodes(Puzzle& s) {
  CardSet used = 0;
  for (int k = 1; k <= 52; ++k) {
    const int v = s.SolutionGrid[s.CellRow(k)][s.CellCol(k)];
    if (v < 0 || v > kMaxCardIndex) {
      // The entries before the failing one are rebuilt already: all plain.
      BuildCardCodes(s.CardCodes);
      return false;
    }
    if (v > 0) used |= CardBit(v);
  }
  // Only the entries whose "00X" mark changes need writing.
  for (CardSet change = s.CardCodes.deck ^ used; change; change &= change - 1) {
    const int i = __builtin_ctzll(change) + 1;
    if (used & CardBit(i)) {
      s.CardCodes.Set(i, (i - 1) / 4 + 1, (i - 1) % 4 + 1);
    } else {
      s.CardCodes.Set(i, 0, 0);
    }
  }
  s.CardCodes.Set(0, 0, 0);
  return true;
}

std::string OptionText(CardSet set) {
  std::string text;
  text.reserve(3 * 52);
  while (set) {
    const int card = __builtin_ctzll(set) + 1;
    set &= set - 1;
    text += ' ';
    AppendCardText(text, card);
  }
  return text;
}

std::string ListText(const Puzzle& s, int card) {
  return std::string(RankLetter(s.CardCodes.Rank(card))) + s.CardCodes.SuitLetter(card);
}

}  // namespace velmora
