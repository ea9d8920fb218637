// The options dialog's scheme commands: the list, choosing, adding, replacing,
// deleting and applying a scheme, and the button contrast.
#pragma once

#include <string>
#include <vector>

#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// List1 of the options dialog: the scheme names and the chosen item.
struct SchemeListBox {
  std::vector<std::string> items;
  int listIndex = -1;  // -1: nothing chosen
  bool HasSelection() const { return listIndex >= 0 && listIndex < static_cast<int>(items.size()); }
  const std::string& Selected() const { return items[static_cast<size_t>(listIndex)]; }
  // Chooses `name` when the list holds it, else clears the choice.
  void Select(const std::string& name);
};

// Refills the list from appFolder's all.col; the choice is cleared.
void FillSchemeList(const std::string& appFolder, SchemeListBox& list);

// Choosing an item: reads item + ".col" into the current scheme, with the
// reading rule's "not found" message and fallback. False when not found.
bool ChooseScheme(const std::string& appFolder, Appearance& look, UserInterface& ui,
                  const SchemeListBox& list);

// The commands return true when they did their work, false when they
// stopped (a message, a No, an empty name).
bool AddSch(const std::string& appFolder, const Appearance& look, UserInterface& ui, SchemeListBox& list);
bool RepSch(const std::string& appFolder, const Appearance& look, UserInterface& ui,
            const SchemeListBox& list);
bool DelSch(const std::string& appFolder, const Appearance& look, UserInterface& ui, SchemeListBox& list);

// Apply: the chosen item becomes the active scheme name.
void ApplyChosenScheme(Appearance& look, const SchemeListBox& list);

// The button face (element 4) against the background (element 2): -100
// (black) .. 0 (the background itself) .. 100 (white).
inline constexpr int kMaxContrast = 100;
int ButtonContrast(const SchemeColors& colors);
void SetButtonContrast(SchemeColors& colors, int contrast);

}  // namespace velmora
