// Keeping unfinished boards: the one place that keeps the shown puzzle's
// board in the player's store and brings a kept board back, run around every
// command so that no command changes for it.
#pragma once

#include "files/player_store.h"
#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// What ran between Before and After where the state alone cannot tell it.
enum class KeeperEvent {
  kCommand,        // anything else
  kReset,          // Puzzle > Reset: a reload of the same puzzle forgets its kept board
  kSolutionShown,  // the solution overlay was shown
};

// Use: Before(state) before a command (start-up included), After(...) after
// it. After keeps the board when the same puzzle's board, undo or redo list
// changed (a board back to its givens with nothing to undo is forgotten);
// when another puzzle is shown (any load, even of the same puzzle, as
// printing does), it brings back that puzzle's kept board with its undo and
// redo lists and counters, or starts it with empty lists. Placing the last
// card ("Done") records a finish; AutoSolve, the solution filled in or shown
// record "shown". The store's problem, if any, is shown once. With a closed
// store nothing is kept or restored and the commands act as without keeping.
// The first puzzle of `file` after `current`, going round to its start, that
// is not finished; 0 when every one is (or none can be read).
int NextUnfinished(PlayerStore& store, const std::string& file, int current);

class BoardKeeper {
 public:
  explicit BoardKeeper(PlayerStore& store) : store_(store) {}

  void Before(const GameState& s);
  // `playedMs`: the play clock of the puzzle shown at Before (the caller
  // runs the clock); afterwards PlayedMs() is the clock of the puzzle shown now.
  void After(GameState& s, UserInterface& ui, long long playedMs, KeeperEvent ran = KeeperEvent::kCommand);
  // The program ends (Exit, the close box): the shown board keeps its clock.
  void Close(long long playedMs);
  // Keeping starts on a board already in play (the option switched on): the
  // shown puzzle is taken as it stands and kept, nothing is brought back.
  void Adopt(const GameState& s, long long playedMs);

  long long PlayedMs() const { return board_.playedMs; }
  // A loaded puzzle is shown, whose board is being kept.
  bool Showing() const { return active_; }
  // The shown puzzle's outcome; a finished puzzle's clock stands still.
  const PuzzleStatus& Status() const { return status_; }
  int Hints() const { return board_.hints; }
  int Undos() const { return board_.undos; }
  PlayerStore& Store() { return store_; }

 private:
  // What After compares with.
  struct Noted {
    unsigned loads = 0;
    std::string key;
    Board<int32_t> grid{};
    size_t undoSize = 0, redoSize = 0;
    std::string undoFront;
    int hintKind = 0, hintRow = 0, hintCol = 0, hintCard = 0;
    bool complete = false;
  };

  void Enter(GameState& s, UserInterface& ui, KeeperEvent ran);
  void Place(const GameState& s);
  void Played(GameState& s, long long playedMs, KeeperEvent ran);
  void KeepBoard(const GameState& s);
  void Outcome(PuzzleOutcome outcome, long long playedMs);

  PlayerStore& store_;
  Noted before_;
  bool noted_ = false;
  bool active_ = false;  // a loaded puzzle is shown
  bool kept_ = false;    // and the store holds its board
  PuzzlePlace place_;
  KeptBoard board_;         // as kept, with the clock as last given
  long long storedMs_ = 0;  // the clock the store holds
  PuzzleStatus status_;
};

}  // namespace velmora
