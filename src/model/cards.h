// The cards' vocabulary: rank and suit letters, the suits' order and colours,
// a card's text, and the size of the board the program plays and makes.
#pragma once

#include <string>
#include <string_view>

#include "model/card_rule.h"

namespace velmora {

// Every puzzle the program makes and starts with is 7 x 7.
inline constexpr int kBoardSize = 7;

// The suits in the order of the suit lists; suit number n is letter n - 1.
inline constexpr std::string_view kSuitOrder = "SHDC";
// Suit numbers 1..4 for "S", "H", "D", "C"; 0 stands for the "X" of "00X".
inline constexpr char kSuitLetters[5] = {'X', kSuitOrder[0], kSuitOrder[1], kSuitOrder[2], kSuitOrder[3]};
// RankLetters -1..13, stored from index 0.
inline constexpr const char* kRankLetters[15] = {"?", " ", "1", "2", "3", "4", "5", "6",
                                                 "7", "8", "9", "T", "J", "Q", "K"};
inline const char* RankLetter(int rank) { return kRankLetters[rank + 1]; }
// Rank 1..13 of a rank letter "1".."9", "T", "J", "Q", "K"; 0 for any other.
constexpr int RankOfLetter(char letter) {
  for (int rank = 1; rank <= 13; ++rank) {
    if (kRankLetters[rank + 1][0] == letter) return rank;
  }
  return 0;
}
// A card's own rank and suit letters, whatever its code: 1 "1S", 52 "KC".
inline void AppendCardText(std::string& text, int card) {
  text += RankLetter(CardRank(card));
  text += kSuitLetters[CardSuit(card)];
}
inline std::string CardText(int card) {
  std::string text;
  AppendCardText(text, card);
  return text;
}

// 0..3 for exactly "S", "H", "D", "C"; -1 otherwise.
constexpr int SuitListIndex(std::string_view letter) {
  const size_t at = letter.size() == 1 ? kSuitOrder.find(letter[0]) : std::string_view::npos;
  return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

// Hearts and diamonds are drawn red, spades and clubs black (suit 1..4).
struct SuitColor {
  int red, green, blue;
};
inline constexpr SuitColor kRedSuitColor{200, 9, 9};
inline constexpr SuitColor kBlackSuitColor{50, 50, 50};
constexpr SuitColor ColorOfSuit(int suit) { return suit == 2 || suit == 3 ? kRedSuitColor : kBlackSuitColor; }

}  // namespace velmora
