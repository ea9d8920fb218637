// The player's own notes on the board: suit-only marks (the grid's -1..-4,
// suit S H D C as kSuitLetters orders them) and rank notes.
#pragma once

#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// Puts mark `suit` (1..4) into the empty or marked cell, or takes its mark
// away (`suit` 0). A card, a given, a cell off the board or no change leave
// it as it is and give false; a change is one undo step, and the mark keeps
// its suit from the neighbours' options as a mark from a file does.
bool MarkCell(GameState& s, UserInterface& ui, int row, int col, int suit);

// Sets the rank notes of a cell that holds no card and is no given (bit
// r - 1 for rank r); false when refused or unchanged. A change is one undo
// step; notes change no option.
bool NoteCell(GameState& s, UserInterface& ui, int row, int col, int ranks);

// A modifier click at twips (x, y) with a card chosen in the suit panels:
// that card's rank noted in the cell, or taken out of its notes.
void NoteChosenRank(GameState& s, UserInterface& ui, float x, float y);

// A modifier click at twips (x, y): the cell's mark moves on to the next suit
// of S H D C, after C to none.
void CycleMark(GameState& s, UserInterface& ui, float x, float y);

}  // namespace velmora
