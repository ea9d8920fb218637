// The undo list of mouse changes and the grid snapshot taken before AutoSolve.
#pragma once

#include <string>
#include <string_view>

#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// The entry for a cell and the value it holds: " 3, 5, 0".
std::string UndoEntry(int row, int col, int value);

// The entry for a change of a cell's rank notes: "note 3, 5, 17".
inline constexpr std::string_view kNoteUndoPrefix = "note";
std::string NoteUndoEntry(int row, int col, int notes);

// Records the cell's current value as the newest undo entry.
void PushUndo(const Puzzle& p, Session& session, WindowTexts& view, int row, int col);

// Takes back the newest entry, if any: the cell gets its old value and is
// painted blank whatever that value is (the next full redraw shows it).
void UndoLast(GameState& s, UserInterface& ui);

// Takes back the newest undo that no change has followed since: the cell gets
// the value the undo took away, and the undo entry returns.
void RedoLast(GameState& s, UserInterface& ui);

// GridBackups(n) as "9;0;-3;..." rows outer; n other than 0 is ignored.
void SaveGridSnapshot(const Puzzle& p, Session& session, int n);
void RestoreGridSnapshot(Puzzle& p, const Session& session, int n);

}  // namespace velmora
