// Batch transformation: every record of a numeric-form puzzle file made into
// a new puzzle from its solution, written to the "_new" file beside it.
#pragma once

#include <string>

#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// The output name: "_new" before the last "." of the file name
// ("puzzles.vlm" gives "puzzles_new.vlm"); appended when the name has none.
std::string TransformedFileName(const std::string& file);

// Reads every record of `file` (rows in the one-digit-per-cell form, Rows and
// Cols as the state holds them), blanks givens with RemoveGivens at
// `difficulty` (in/out as there), writes each result to the "_new" file and
// shows " N puzzles made"; any file or conversion error ends the run with
// "error?", keeping the records written so far. Label3 shows the count.
struct TransformOutcome {
  int made = 0;
  bool failed = false;
};
TransformOutcome MakePuzzlesFromFile(GameState& s, UserInterface& ui, const std::string& file,
                                     int& difficulty);

}  // namespace velmora
