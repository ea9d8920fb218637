// Solve-menu commands, the undo button and the hidden check/solve buttons.
#pragma once

#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// True, after saying "Cancel AutoSolve first", while AutoSolve runs: the
// commands that would change the board or the file refuse then.
bool RefusedWhileSolving(const Session& session, UserInterface& ui);

void mnusolveall(GameState& s, UserInterface& ui);  // Solve > "AutoSolve"
void mnurestore(GameState& s, UserInterface& ui);   // Solve > "Restore"
void mnuviewsol(GameState& s, UserInterface& ui);   // Puzzle > "Show Solution"
void UndoEdit(GameState& s, UserInterface& ui);     // the "Undo last change" button
void Autosolvex(GameState& s, UserInterface& ui);   // hidden "Solve" button
void Command6(GameState& s, UserInterface& ui);     // hidden "CheckSolution" button
void Command7(GameState& s, UserInterface& ui);     // hidden "ShowSolution" button

}  // namespace velmora
