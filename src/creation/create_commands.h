// Create-menu commands: one puzzle to play at once, or many puzzles into a file;
// and the hidden button that remakes every puzzle of the current file.
#pragma once

#include <string>

#include "creation/generator.h"
#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// What the create dialog (Form3) hands back, as plain values.
struct Form3Values {
  std::string Text1 = "1";   // number of puzzles, read leniently
  std::string FileNow;       // output puzzle file
  std::string Text4;         // title of every new puzzle; blank for automatic titles
  bool Check1 = true;        // "Display only": one puzzle shown, nothing written to FileNow
  int level = kLevelRandom;  // Option1..Option4 as a generator level 0..3
  bool created = false;      // true only when closed with Create
};

// Create > "One Puzzle": a puzzle of random level, appended to the
// temporary puzzle file and shown from there. A cancel only starts it over.
void mnunewrandpuzx(GameState& s, UserInterface& ui);

// Create > "Multiple Puzzles", after the dialog: does nothing unless
// `form.created`. "Display only" makes one puzzle as One Puzzle does;
// otherwise Text1 puzzles are appended to FileNow, numbered on after its
// records, until done or cancelled, and the shown puzzle is reloaded.
void mnumultipuzx(GameState& s, UserInterface& ui, const Form3Values& form);

// The hidden "MakePuzzlesFromFile" button: remakes every record of the
// current puzzle file into its "_new" file at `level`, then shows the current
// puzzle again (the transformation leaves its last record in the grids).
void cmdmakepuzzles(GameState& s, UserInterface& ui, int level);

}  // namespace velmora
