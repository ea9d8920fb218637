// Mouse play on the board and choosing a card in the suit panels.
#pragma once

#include <string>

#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;

// x and y are twips on Picture1.
void Picture1MouseUp(GameState& s, UserInterface& ui, int button, float x, float y);
void Picture1MouseMove(GameState& s, UserInterface& ui, float x, float y);
// A click on item `index` of Remain(list); index -1 means no current item.
void RemainClick(GameState& s, UserInterface& ui, int list, int index);
// Chooses the card with list text `text` in its suit panel as a click there
// would; false when no panel lists it.
bool ChooseCard(GameState& s, UserInterface& ui, const std::string& text);

}  // namespace velmora
