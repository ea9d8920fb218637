// The next step a player could take, with its reason: a wrong card first,
// then the solver's two deductions in the order its pass makes them.
#pragma once

#include <string>

#include "model/game_state.h"

namespace velmora {

enum HintKind { kHintNone = 1, kHintWrong, kHintSingle, kHintUnique };

struct Hint {
  HintKind kind = kHintNone;
  int row = 0, col = 0;
  int card = 0;  // the card to place; 0 for a wrong card and for none
};

// Looks at the board as it stands and changes nothing. The options are the
// ones UpdateOptions computes, as the solver reads them.
Hint FindHint(const Puzzle& p);

// The hint shown ends with the board it was shown for: a change to the board
// (placing, emptying, undo, redo, another puzzle) takes its text off the
// status line, and the next press looks afresh.
void EndHint(PlayAids& aids, WindowTexts& view);

// "the card at 3, 4 is wrong", "3, 4 can only take QH",
// "QH fits nowhere else but 3, 4", "No step follows from the rules alone".
std::string HintText(const Hint& hint);

}  // namespace velmora
