// Play aids: the Assist menu's hint and redo, and play from the keyboard.
// Each ends in the same placement, removal and undo the mouse uses.
#pragma once

#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// Shows the next step in the status line; pressed again on the board the
// hint was shown for, it takes the step: places the card, or takes the
// wrong card off as a right click does.
void mnuhint(GameState& s, UserInterface& ui);
void mnuredo(GameState& s, UserInterface& ui);

// The keyboard cursor: the first move shows it on cell 1, 1; it stays on
// the board, and the status line shows its cell.
void MoveCursor(GameState& s, UserInterface& ui, int rows, int cols);
// A rank letter (1-9, T, J, Q, K) waits for a suit letter (S, H, D, C);
// together they choose that card from the suit panels and place it at the
// cursor. Any other letter forgets the rank.
void TypeLetter(GameState& s, UserInterface& ui, char letter);
// Delete or Backspace: the cell at the cursor emptied as by a right click.
void ClearAtCursor(GameState& s, UserInterface& ui);

}  // namespace velmora
