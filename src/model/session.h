// The playing session: which file and puzzle, the undo and redo lists, the
// running command's flags and the random source.
#pragma once

#include <array>
#include <deque>
#include <string>
#include <vector>

#include "model/puzzle.h"
#include "model/random.h"

namespace velmora {

// What the play aids keep: the redo list, the hint last shown, the keyboard
// cursor. None of it is read by the commands the aids do not add.
struct PlayAids {
  struct Change {
    int row, col, value;  // the value an undo took away
    bool note = false;    // value is the cell's rank notes, not its grid value
  };
  std::vector<Change> RedoList;  // newest last
  int hintKind = 0;              // a HintKind; 0 when no hint is shown
  int hintRow = 0, hintCol = 0, hintCard = 0;
  Board<int32_t> gridAtHint{};       // the board the hint was shown for
  int cursorRow = 0, cursorCol = 0;  // 0: no cursor shown
  char pendingRank = 0;              // a rank letter typed, waiting for its suit
};

// Where the player is, what can be taken back, and the running command's
// flags. The puzzle on the board is a part of its own.
struct Session {
  std::string AppFolder;      // always ends in '/'
  std::string ShippedFolder;  // where the help page was installed; AppFolder when empty at start-up
  std::string CurrentPuzzleFile;
  int CurrentPuzzleNumber = 0;
  int PuzzleCount = 0;
  // Records loaded so far: tells a reload of the same puzzle (printing
  // reloads it) from no load at all.
  unsigned LoadCount = 0;

  std::deque<std::string> UndoList;  // newest first
  std::array<std::string, 1> GridBackups;
  PlayAids aids;
  std::string SelectedCard;

  int Solving = 0;
  int CancelRequest = 0;
  Random rng;
};

}  // namespace velmora
