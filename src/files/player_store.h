// What the player did with each puzzle, kept in velmora.db in the program's
// folder: the board of every unfinished puzzle and how each puzzle ended.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/puzzle.h"
#include "model/session.h"

struct sqlite3;
struct sqlite3_stmt;

namespace velmora {

// What became of a puzzle; the numbers are the store's.
enum class PuzzleOutcome { kNew = 0, kInProgress = 1, kFinished = 2, kShown = 3 };

// "new", "in progress", "finished", "shown".
const char* OutcomeText(PuzzleOutcome outcome);

// A puzzle is known by its content, so a sorted, renumbered or copied file
// keeps its progress: Rows, Cols, the PuzzleGrid and SolutionGrid letters.
std::string PuzzleKey(const Puzzle& p);

// Where a puzzle was last played, for the figures of one file.
struct PuzzlePlace {
  std::string key;    // PuzzleKey
  std::string file;   // absolute, links resolved
  int number = 0;     // its record number there
  std::string level;  // LevelOfPuzzle: "Easy", "Hard", "VHard"
  bool operator==(const PuzzlePlace&) const = default;
};

// The board left behind, as the player can take it up again.
struct KeptBoard {
  Board<int32_t> grid{};               // Grid's values
  Board<uint16_t> notes{};             // the rank notes
  std::vector<PlayAids::Change> undo;  // UndoList as cell and old value, newest first
  std::vector<PlayAids::Change> redo;  // RedoList, newest last
  long long playedMs = 0;              // the play clock
  int hints = 0, undos = 0;            // hints shown, undo presses
};

// A puzzle's outcome; a finish comes with its time, hints and undo presses
// (the best of several finishes).
struct PuzzleStatus {
  PuzzleOutcome outcome = PuzzleOutcome::kNew;
  long long playedMs = 0;
  int hints = 0, undos = 0;
};

// Finished puzzles of one level: their count, best and median time. The
// median of an even count is the lower of the middle two, a time that was
// really played.
struct LevelFigures {
  std::string level;
  int finished = 0;
  long long bestMs = 0, medianMs = 0;
};

struct StoreFigures {
  int finished = 0, inProgress = 0, shown = 0;
  std::vector<LevelFigures> levels;  // Easy, Hard, VHard; only those with a finish
};

// "M:SS" of a time, whole seconds played; minutes go past 59.
std::string ClockText(long long ms);

// The store of one program folder. It opens (a missing file is made) in
// WAL mode, every write one transaction. A store that cannot be used is
// closed: every call then does nothing, and Problem() says why in the
// program's words, to be shown once. A damaged file is moved aside as
// velmora.db.damaged-N with its -wal and -shm, never removed; a link or
// any other file that is not a plain file is never opened.
class PlayerStore {
 public:
  // kRead does not make a missing store: it reads as empty.
  enum class Access { kKeep, kRead };
  explicit PlayerStore(const std::string& appFolder, Access access = Access::kKeep);
  ~PlayerStore();
  PlayerStore(const PlayerStore&) = delete;
  PlayerStore& operator=(const PlayerStore&) = delete;

  bool IsOpen() const { return db_ != nullptr; }
  // Why the store is closed, in the program's words ("Unfinished boards
  // cannot be kept this session: ..."); "" while it works or was never there
  // (kRead). Reason() is the part after the colon.
  std::string Problem() const;
  const std::string& Reason() const { return reason_; }
  // The problem the first time it is asked for, then "".
  std::string TakeProblem();

  // Keeps the board of `place` (an unfinished puzzle becomes in progress).
  bool Keep(const PuzzlePlace& place, const KeptBoard& board);
  // The kept board of a puzzle of that size; nullopt when none is kept, and
  // a board that does not decode for that size is dropped.
  std::optional<KeptBoard> Kept(const std::string& key, int rows, int cols);
  // Forgets the kept board; a puzzle in progress is new again.
  bool Forget(const std::string& key);
  bool Finish(const PuzzlePlace& place, long long playedMs, int hints, int undos);
  // AutoSolve or the solution was shown: counts unless the puzzle was finished.
  bool MarkShown(const PuzzlePlace& place);
  PuzzleStatus Status(const std::string& key);
  // Figures of the puzzles last played in `file` (absolute), or of all when "".
  StoreFigures Figures(const std::string& file = {});

 private:
  bool Open(Access access);
  bool SetUp();
  bool Fail(int code);
  bool Exec(const char* sql);
  sqlite3_stmt* Prepare(int which);
  bool Write(const std::vector<sqlite3_stmt*>& steps);

  std::string path_;
  std::string reason_;
  bool problemTaken_ = false;
  sqlite3* db_ = nullptr;
  std::vector<sqlite3_stmt*> statements_;
  // The place the last Keep wrote, in progress or further: a move on the
  // same puzzle writes its board alone.
  PuzzlePlace placed_;
};

// `file` absolute with its links resolved, as the store names files.
std::string StoreFileName(const std::string& file);

}  // namespace velmora
