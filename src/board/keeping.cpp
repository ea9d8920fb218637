// Keeping unfinished boards around every command.
#include "board/keeping.h"

#include <charconv>

#include "creation/levels.h"
#include "files/puzzle_file.h"
#include "model/check.h"
#include "model/hint.h"
#include "model/rules.h"
#include "model/undo.h"

namespace velmora {
namespace {

bool OnlyGivens(const Puzzle& p) {
  for (int r = 1; r <= LoopRows(p); ++r)
    for (int c = 1; c <= LoopCols(p); ++c)
      if (p.Grid[r][c] != p.PuzzleGrid[r][c]) return false;
  return true;
}

int Blanks(const Puzzle& p) {
  int blanks = 0;
  for (int r = 1; r <= LoopRows(p); ++r)
    for (int c = 1; c <= LoopCols(p); ++c) blanks += p.PuzzleGrid[r][c] == 0 ? 1 : 0;
  return blanks;
}

// A kept board fits its puzzle when every given card is still there or
// taken off, and every card placed is one the puzzle deals.
bool Fits(const Puzzle& p, const KeptBoard& board) {
  for (int r = 1; r <= LoopRows(p); ++r) {
    for (int c = 1; c <= LoopCols(p); ++c) {
      const int v = board.grid[r][c], given = p.PuzzleGrid[r][c];
      if (given >= 1 && v != given && v != 0) return false;
      if (v >= 1 && p.CardCodes.IsAbsent(v)) return false;
    }
  }
  return true;
}

// The numbers of an undo entry, " 3, 5, 0"; false for an entry that is not one.
bool ReadEntry(const std::string& entry, PlayAids::Change& c) {
  int* parts[] = {&c.row, &c.col, &c.value};
  const char* at = entry.data();
  const char* end = at + entry.size();
  for (int i = 0; i < 3; ++i) {
    while (at < end && *at == ' ') ++at;
    const auto [next, ec] = std::from_chars(at, end, *parts[i]);
    if (ec != std::errc() || (i < 2 && (next == end || *next != ','))) return false;
    at = i < 2 ? next + 1 : next;
  }
  return at == end;
}

// The undo list as changes: a cell's value, or (after "note") its rank notes.
std::vector<PlayAids::Change> UndoChanges(const std::deque<std::string>& list) {
  std::vector<PlayAids::Change> changes;
  changes.reserve(list.size());
  for (const std::string& entry : list) {
    PlayAids::Change c{};
    c.note = entry.starts_with(kNoteUndoPrefix);
    if (ReadEntry(c.note ? entry.substr(kNoteUndoPrefix.size()) : entry, c)) changes.push_back(c);
  }
  return changes;
}

}  // namespace

int NextUnfinished(PlayerStore& store, const std::string& file, int current) {
  const int count = CountPuzzles(file);
  const int from = current >= 1 && current <= count ? current : 0;
  Puzzle p;
  RemainLists lists;
  for (int step = 1; step <= count; ++step) {
    const int n = (from + step - 1) % count + 1;
    if (!ReadPuzzle(p, lists, file, n)) continue;
    if (store.Status(PuzzleKey(p)).outcome != PuzzleOutcome::kFinished) return n;
  }
  return 0;
}

void BoardKeeper::Before(const GameState& s) {
  Noted& n = before_;
  n.loads = s.session.LoadCount;
  n.key = PuzzleKey(s.puzzle);
  n.grid = s.puzzle.Grid;
  n.undoSize = s.session.UndoList.size();
  n.undoFront = n.undoSize ? s.session.UndoList.front() : std::string();
  n.redoSize = s.session.aids.RedoList.size();
  const PlayAids& a = s.session.aids;
  n.hintKind = a.hintKind, n.hintRow = a.hintRow, n.hintCol = a.hintCol, n.hintCard = a.hintCard;
  n.complete = CheckBoard(s.puzzle).status == kCheckDone;
  noted_ = true;
}

void BoardKeeper::After(GameState& s, UserInterface& ui, long long playedMs, KeeperEvent ran) {
  if (const std::string problem = store_.TakeProblem(); !problem.empty()) ui.ShowMessage(problem);
  if (!noted_ || !store_.IsOpen()) return;
  noted_ = false;
  if (s.session.LoadCount != before_.loads || PuzzleKey(s.puzzle) != before_.key) {
    Close(playedMs);
    Enter(s, ui, ran);
  } else if (active_) {
    Played(s, playedMs, ran);
  }
  if (const std::string problem = store_.TakeProblem(); !problem.empty()) ui.ShowMessage(problem);
}

void BoardKeeper::Close(long long playedMs) {
  board_.playedMs = playedMs;
  if (active_ && kept_ && playedMs != storedMs_) kept_ = store_.Keep(place_, board_);
  storedMs_ = playedMs;
}

// The shown puzzle becomes the one kept, with nothing of it known yet.
void BoardKeeper::Place(const GameState& s) {
  active_ = s.session.CurrentPuzzleNumber > 0;
  kept_ = false;
  board_ = {};
  status_ = {};
  if (!active_) return;  // no puzzle loaded: nothing to keep
  place_ = {PuzzleKey(s.puzzle), StoreFileName(s.session.CurrentPuzzleFile), s.session.CurrentPuzzleNumber,
            LevelOfPuzzle(s.view.PuzTitle, Blanks(s.puzzle))};
}

void BoardKeeper::Adopt(const GameState& s, long long playedMs) {
  if (!store_.IsOpen()) return;
  Place(s);
  if (!active_) return;
  status_ = store_.Status(place_.key);
  board_.playedMs = playedMs;
  KeepBoard(s);
}

// Another puzzle is shown, or the same one again after a load.
void BoardKeeper::Enter(GameState& s, UserInterface& ui, KeeperEvent ran) {
  Puzzle& p = s.puzzle;
  const std::string key = PuzzleKey(p);
  const bool reset = ran == KeeperEvent::kReset && key == before_.key;
  Place(s);
  if (!active_) return;
  std::optional<KeptBoard> kept = reset ? std::nullopt : store_.Kept(key, p.Rows, p.Cols);
  if (reset || (kept && !Fits(p, *kept))) {
    store_.Forget(key);
    kept.reset();
  }
  kept_ = kept.has_value();
  if (kept) board_ = *kept;
  storedMs_ = board_.playedMs;
  status_ = store_.Status(key);
  s.session.UndoList.clear();
  s.session.aids.RedoList = board_.redo;
  if (!kept) return;
  for (const PlayAids::Change& c : board_.undo)
    s.session.UndoList.push_back(c.note ? NoteUndoEntry(c.row, c.col, c.value)
                                        : UndoEntry(c.row, c.col, c.value));
  for (int r = 1; r <= LoopRows(p); ++r)
    for (int c = 1; c <= LoopCols(p); ++c) p.Grid[r][c] = board_.grid[r][c];
  p.Notes = board_.notes;
  UpdateOptions(p, s.view.Remain);
  ui.DrawBoard();
  ui.ControlsChanged();
}

// A command on the puzzle shown at Before.
void BoardKeeper::Played(GameState& s, long long playedMs, KeeperEvent ran) {
  const Session& session = s.session;
  const PlayAids& a = session.aids;
  const bool undoChanged = session.UndoList.size() != before_.undoSize ||
                           (before_.undoSize && session.UndoList.front() != before_.undoFront);
  const bool gridChanged = s.puzzle.Grid != before_.grid;
  const int undoPresses = static_cast<int>(a.RedoList.size()) - static_cast<int>(before_.redoSize);
  const bool hinted = a.hintKind != 0 && a.hintKind != kHintNone &&
                      (a.hintKind != before_.hintKind || a.hintRow != before_.hintRow ||
                       a.hintCol != before_.hintCol || a.hintCard != before_.hintCard);
  board_.undos += undoPresses > 0 ? undoPresses : 0;
  board_.hints += hinted ? 1 : 0;
  board_.playedMs = playedMs;
  if (gridChanged || undoChanged || undoPresses != 0 || hinted) KeepBoard(s);
  const bool complete = CheckBoard(s.puzzle).status == kCheckDone;
  if (complete && !before_.complete && session.UndoList.size() > before_.undoSize) {
    Outcome(PuzzleOutcome::kFinished, playedMs);
  } else if (ran == KeeperEvent::kSolutionShown || (gridChanged && !undoChanged && undoPresses == 0)) {
    // The solver's or the solution's cards: no placement of the player's.
    Outcome(PuzzleOutcome::kShown, playedMs);
  }
}

void BoardKeeper::KeepBoard(const GameState& s) {
  if (OnlyGivens(s.puzzle) && s.session.UndoList.empty()) {
    if (kept_) store_.Forget(place_.key);
    kept_ = false;
    if (status_.outcome == PuzzleOutcome::kInProgress) status_.outcome = PuzzleOutcome::kNew;
    return;
  }
  board_.grid = s.puzzle.Grid;
  board_.notes = s.puzzle.Notes;
  board_.undo = UndoChanges(s.session.UndoList);
  board_.redo = s.session.aids.RedoList;
  kept_ = store_.Keep(place_, board_);
  storedMs_ = board_.playedMs;
  if (kept_ && status_.outcome == PuzzleOutcome::kNew) status_.outcome = PuzzleOutcome::kInProgress;
}

void BoardKeeper::Outcome(PuzzleOutcome outcome, long long playedMs) {
  if (outcome == PuzzleOutcome::kFinished) {
    store_.Finish(place_, playedMs, board_.hints, board_.undos);
  } else {
    store_.MarkShown(place_);
  }
  status_ = store_.Status(place_.key);
}

}  // namespace velmora
