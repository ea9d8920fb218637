// What the player did with each puzzle, kept in velmora.db (SQLite).
#include "files/player_store.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "creation/levels.h"
#include "model/file_names.h"

namespace velmora {
namespace {

constexpr int kSchemaVersion = 2;
// Another program writing the store holds it for moments; longer, keeping
// stops for the session rather than hold up a move.
constexpr int kBusyMilliseconds = 250;
constexpr const char* kCompanions[] = {"-wal", "-shm", "-journal"};
constexpr const char* kProblemStart = "Unfinished boards cannot be kept this session: ";

constexpr const char* kSchema = R"(
CREATE TABLE IF NOT EXISTS puzzle(
  key TEXT PRIMARY KEY NOT NULL, file TEXT NOT NULL, number INTEGER NOT NULL, level TEXT NOT NULL,
  outcome INTEGER NOT NULL DEFAULT 0, played_ms INTEGER NOT NULL DEFAULT 0,
  hints INTEGER NOT NULL DEFAULT 0, undos INTEGER NOT NULL DEFAULT 0) WITHOUT ROWID;
CREATE INDEX IF NOT EXISTS puzzle_outcome ON puzzle(outcome, level, played_ms);
CREATE INDEX IF NOT EXISTS puzzle_file ON puzzle(file, outcome, level, played_ms);
CREATE TABLE IF NOT EXISTS board(
  key TEXT PRIMARY KEY NOT NULL, grid TEXT NOT NULL, undo TEXT NOT NULL, redo TEXT NOT NULL,
  played_ms INTEGER NOT NULL, hints INTEGER NOT NULL, undos INTEGER NOT NULL,
  notes TEXT NOT NULL DEFAULT '') WITHOUT ROWID;
)";
// Version 1 kept no rank notes.
constexpr const char* kAddNotes = "ALTER TABLE board ADD COLUMN notes TEXT NOT NULL DEFAULT ''";

// The statements, prepared once each when first used.
enum Sql {
  kPlace,
  kInProgress,
  kKeepBoard,
  kReadBoard,
  kDropBoard,
  kBackToNew,
  kFinish,
  kShown,
  kStatus,
  kCountAll,
  kCountFile,
  kTimesAll,
  kTimesFile,
  kSqlCount
};

constexpr const char* kSql[kSqlCount] = {
    "INSERT INTO puzzle(key, file, number, level) VALUES(?1, ?2, ?3, ?4) ON CONFLICT(key) DO UPDATE SET "
    "file = excluded.file, number = excluded.number, level = excluded.level",
    "UPDATE puzzle SET outcome = 1 WHERE key = ?1 AND outcome = 0",
    "INSERT OR REPLACE INTO board(key, grid, undo, redo, played_ms, hints, undos, notes) "
    "VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)",
    "SELECT grid, undo, redo, played_ms, hints, undos, notes FROM board WHERE key = ?1",
    "DELETE FROM board WHERE key = ?1",
    "UPDATE puzzle SET outcome = 0 WHERE key = ?1 AND outcome = 1",
    // A finish after a finish keeps the faster one.
    "UPDATE puzzle SET outcome = 2, played_ms = ?2, hints = ?3, undos = ?4 "
    "WHERE key = ?1 AND (outcome <> 2 OR played_ms > ?2)",
    "UPDATE puzzle SET outcome = 3 WHERE key = ?1 AND outcome <> 2",
    "SELECT outcome, played_ms, hints, undos FROM puzzle WHERE key = ?1",
    "SELECT outcome, count(*) FROM puzzle GROUP BY outcome",
    "SELECT outcome, count(*) FROM puzzle WHERE file = ?1 GROUP BY outcome",
    "SELECT level, played_ms FROM puzzle WHERE outcome = 2 ORDER BY level, played_ms",
    "SELECT level, played_ms FROM puzzle WHERE file = ?1 AND outcome = 2 ORDER BY level, played_ms",
};

// A grid value as one letter, the way puzzle files write them.
char Letter(int value) { return static_cast<char>(value + 64); }

// A cell's rank notes as four hex digits, the form both the notes column and
// the note changes of the undo lists keep.
void AppendNotes(std::string& text, unsigned notes) {
  char cell[8];
  std::snprintf(cell, sizeof cell, "%04x", notes & 0x1fff);
  text += cell;
}

// The four hex digits of notes at `at`; -1 when they are not.
int NotesAt(const std::string& text, size_t at) {
  if (at + 4 > text.size()) return -1;
  unsigned v = 0;
  const auto [end, ec] = std::from_chars(text.data() + at, text.data() + at + 4, v, 16);
  return ec != std::errc() || end != text.data() + at + 4 ? -1 : static_cast<int>(v & 0x1fff);
}

// Three letters a change: row and column digits, the value as a grid letter;
// a change of rank notes is "n", the digits and the notes in four hex digits.
std::string ChangesText(const std::vector<PlayAids::Change>& changes) {
  std::string text;
  text.reserve(changes.size() * 3);
  for (const auto& c : changes) {
    if (c.note) text += 'n';
    text += static_cast<char>('0' + c.row);
    text += static_cast<char>('0' + c.col);
    if (!c.note) {
      text += Letter(c.value);
      continue;
    }
    AppendNotes(text, static_cast<unsigned>(c.value));
  }
  return text;
}

// Changes of cells on a rows x cols board, to values a cell can hold.
bool ReadChanges(const std::string& text, int rows, int cols, std::vector<PlayAids::Change>& out) {
  out.reserve(text.size() / 3);
  for (size_t at = 0; at < text.size();) {
    const bool note = text[at] == 'n';
    at += note ? 1 : 0;
    if (at + 3 > text.size()) return false;
    const int value = note ? NotesAt(text, at + 2) : text[at + 2] - 64;
    const PlayAids::Change c{text[at] - '0', text[at + 1] - '0', value, note};
    if (c.row < 1 || c.row > rows || c.col < 1 || c.col > cols) return false;
    if (note ? value < 0 : !CardCodeTable::InRange(value)) return false;
    out.push_back(c);
    at += note ? 6 : 3;
  }
  return true;
}

bool ReadGrid(const std::string& text, int rows, int cols, Board<int32_t>& grid) {
  if (rows < 1 || cols < 1 || rows > kMaxIndex || cols > kMaxIndex) return false;
  if (text.size() != static_cast<size_t>(rows) * static_cast<size_t>(cols)) return false;
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      const int v = text[static_cast<size_t>((r - 1) * cols + c - 1)] - 64;
      if (!CardCodeTable::InRange(v)) return false;
      grid[r][c] = v;
    }
  }
  return true;
}

// Rank notes as four hex digits a cell, rows outer; empty for none at all.
std::string NotesText(const Board<uint16_t>& notes, int rows, int cols) {
  std::string text;
  bool any = false;
  for (int r = 1; r <= std::min(rows, kMaxIndex); ++r) {
    for (int c = 1; c <= std::min(cols, kMaxIndex); ++c) {
      AppendNotes(text, notes[r][c]);
      any |= notes[r][c] != 0;
    }
  }
  return any ? text : std::string();
}

// Notes that do not fit the board are dropped, never the board with them.
Board<uint16_t> ReadNotes(const std::string& text, int rows, int cols) {
  Board<uint16_t> notes{};
  if (rows < 1 || cols < 1 || rows > kMaxIndex || cols > kMaxIndex) return notes;
  if (text.size() != static_cast<size_t>(rows * cols) * 4) return notes;
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      const int v = NotesAt(text, static_cast<size_t>((r - 1) * cols + c - 1) * 4);
      if (v < 0) return {};
      notes[r][c] = static_cast<uint16_t>(v);
    }
  }
  return notes;
}

std::string Column(sqlite3_stmt* st, int i) {
  const auto* text = sqlite3_column_text(st, i);
  return text ? reinterpret_cast<const char*>(text) : std::string();
}

void Bind(sqlite3_stmt* st, int i, const std::string& text) {
  sqlite3_bind_text(st, i, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void BindPlace(sqlite3_stmt* st, const PuzzlePlace& place) {
  Bind(st, 1, place.key);
  Bind(st, 2, place.file);
  sqlite3_bind_int(st, 3, place.number);
  Bind(st, 4, place.level);
}

// An lstat of a name that must be a plain file when it is there.
bool PlainOrMissing(const std::string& path) {
  struct stat st {};
  if (::lstat(path.c_str(), &st) != 0) return errno == ENOENT;
  return S_ISREG(st.st_mode);
}

// What every SQLite file begins with; an empty file is a new store. A file
// that cannot be read is left for SQLite to tell about.
bool LooksLikeStore(const std::string& path) {
  static constexpr char kMagic[] = "SQLite format 3";  // with its NUL
  const int fd = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
  if (fd < 0) return true;
  char head[sizeof kMagic] = {};
  const ssize_t n = ::read(fd, head, sizeof head);
  ::close(fd);
  return n <= 0 || (n == sizeof head && std::equal(head, head + sizeof head, kMagic));
}

bool Missing(const std::string& path) {
  struct stat st {};
  return ::lstat(path.c_str(), &st) != 0 && errno == ENOENT;
}

// Moves `from` to `to` unless `to` is there; false when it is.
bool MoveAside(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  // A file system without RENAME_NOREPLACE: a second name, then the first goes.
  return ::link(from.c_str(), to.c_str()) == 0 && ::unlink(from.c_str()) == 0;
}

int ReadInt(sqlite3_stmt* st, int i) { return sqlite3_column_int(st, i); }

}  // namespace

const char* OutcomeText(PuzzleOutcome outcome) {
  static constexpr const char* kTexts[] = {"new", "in progress", "finished", "shown"};
  return kTexts[std::clamp(static_cast<int>(outcome), 0, 3)];
}

std::string PuzzleKey(const Puzzle& p) {
  std::string key = std::to_string(p.Rows) + "," + std::to_string(p.Cols) + ":";
  std::string solution = "|";
  for (int r = 1; r <= LoopRows(p); ++r) {
    for (int c = 1; c <= LoopCols(p); ++c) {
      key += Letter(p.PuzzleGrid[r][c]);
      solution += Letter(p.SolutionGrid[r][c]);
    }
  }
  return key + solution;
}

std::string StoreFileName(const std::string& file) {
  std::error_code ec;
  const auto path = std::filesystem::weakly_canonical(std::filesystem::absolute(file, ec), ec);
  return ec ? file : path.string();
}

std::string ClockText(long long ms) {
  const long long seconds = std::max(ms, 0LL) / 1000;
  char text[32];
  std::snprintf(text, sizeof text, "%lld:%02lld", seconds / 60, seconds % 60);
  return text;
}

PlayerStore::PlayerStore(const std::string& appFolder, Access access)
    : path_(appFolder + kStoreFileName), statements_(kSqlCount, nullptr) {
  Open(access);
}

PlayerStore::~PlayerStore() {
  for (sqlite3_stmt* st : statements_) sqlite3_finalize(st);
  sqlite3_close(db_);
}

std::string PlayerStore::Problem() const { return reason_.empty() ? reason_ : kProblemStart + reason_; }

std::string PlayerStore::TakeProblem() {
  if (problemTaken_) return {};
  problemTaken_ = !reason_.empty();
  return Problem();
}

bool PlayerStore::Open(Access access) {
  if (access == Access::kRead && Missing(path_)) return false;
  bool plain = PlainOrMissing(path_);
  for (const char* companion : kCompanions) plain = plain && PlainOrMissing(path_ + companion);
  if (!plain) {
    reason_ = path_ + " is not a plain file.";
    return false;
  }
  // A file that is no SQLite file goes aside before SQLite touches its companions.
  if (!LooksLikeStore(path_)) return Fail(SQLITE_NOTADB);
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOFOLLOW;
  const int rc = sqlite3_open_v2(path_.c_str(), &db_, flags, nullptr);
  if (rc != SQLITE_OK) return Fail(rc);
  sqlite3_extended_result_codes(db_, 1);
  sqlite3_busy_timeout(db_, kBusyMilliseconds);
  // A file the user may not write opens read-only: it is left as it is.
  if (sqlite3_db_readonly(db_, "main") == 1) return Fail(SQLITE_READONLY);
  return SetUp();
}

bool PlayerStore::SetUp() {
  sqlite3_stmt* st = nullptr;
  int rc = sqlite3_prepare_v2(db_, "PRAGMA journal_mode=WAL", -1, &st, nullptr);
  if (rc == SQLITE_OK) rc = sqlite3_step(st);
  const bool wal = rc == SQLITE_ROW && Column(st, 0) == "wal";
  sqlite3_finalize(st);
  if (!wal) return Fail(rc == SQLITE_ROW || rc == SQLITE_OK ? SQLITE_CANTOPEN : rc);
  // A crash (kill -9) loses nothing committed; only a power cut may lose the last moves.
  if (!Exec("PRAGMA synchronous=NORMAL") || !Exec("BEGIN IMMEDIATE")) return false;
  rc = sqlite3_prepare_v2(db_, "PRAGMA user_version", -1, &st, nullptr);
  if (rc == SQLITE_OK) rc = sqlite3_step(st);
  const int version = rc == SQLITE_ROW ? sqlite3_column_int(st, 0) : -1;
  sqlite3_finalize(st);
  if (version < 0) return Fail(rc);
  if (version > kSchemaVersion) {
    Exec("ROLLBACK");
    reason_ = path_ + " was written by a newer version of Velmora.";
    sqlite3_close(db_);
    db_ = nullptr;
    return false;
  }
  if (version < kSchemaVersion && ((version == 1 && !Exec(kAddNotes)) || !Exec(kSchema) ||
                                   !Exec(("PRAGMA user_version=" + std::to_string(kSchemaVersion)).c_str())))
    return false;
  return Exec("COMMIT");
}

bool PlayerStore::Exec(const char* sql) {
  const int rc = sqlite3_exec(db_, sql, nullptr, nullptr, nullptr);
  return rc == SQLITE_OK || Fail(rc);
}

bool PlayerStore::Fail(int code) {
  const int primary = code & 0xff;
  std::string why;
  if (primary == SQLITE_BUSY || primary == SQLITE_LOCKED) {
    why = " is in use by another program.";
  } else if (primary == SQLITE_READONLY || primary == SQLITE_PERM || primary == SQLITE_CANTOPEN ||
             primary == SQLITE_AUTH) {
    why = " cannot be written.";
  } else if (primary != SQLITE_CORRUPT && primary != SQLITE_NOTADB) {
    why = std::string(" could not be used (") + sqlite3_errstr(code) + ").";
  }
  for (sqlite3_stmt*& st : statements_) {
    sqlite3_finalize(st);
    st = nullptr;
  }
  sqlite3_close(db_);
  db_ = nullptr;
  if (!why.empty()) {
    reason_ = path_ + why;
    return false;
  }
  // Damaged: moved aside with its companions under the first free number.
  for (int n = 1; n < 1000; ++n) {
    const std::string aside = path_ + ".damaged-" + std::to_string(n);
    if (!Missing(aside) || !MoveAside(path_, aside)) continue;
    for (const char* companion : kCompanions) MoveAside(path_ + companion, aside + companion);
    reason_ = path_ + " was damaged; it was moved aside as " + aside + ".";
    return false;
  }
  reason_ = path_ + " is damaged.";
  return false;
}

sqlite3_stmt* PlayerStore::Prepare(int which) {
  if (db_ == nullptr) return nullptr;
  sqlite3_stmt*& st = statements_[static_cast<size_t>(which)];
  if (st == nullptr) {
    const int rc = sqlite3_prepare_v3(db_, kSql[which], -1, SQLITE_PREPARE_PERSISTENT, &st, nullptr);
    if (rc != SQLITE_OK) {
      Fail(rc);
      return nullptr;
    }
  }
  sqlite3_reset(st);
  sqlite3_clear_bindings(st);
  return st;
}

// Runs bound statements in one transaction: all of them or none.
bool PlayerStore::Write(const std::vector<sqlite3_stmt*>& steps) {
  if (db_ == nullptr || std::find(steps.begin(), steps.end(), nullptr) != steps.end()) return false;
  if (!Exec("BEGIN IMMEDIATE")) return false;
  for (sqlite3_stmt* st : steps) {
    const int rc = sqlite3_step(st);
    sqlite3_reset(st);
    if (rc != SQLITE_DONE) {
      sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
      return Fail(rc);
    }
  }
  return Exec("COMMIT");
}

bool PlayerStore::Keep(const PuzzlePlace& place, const KeptBoard& board) {
  const bool known = place == placed_;
  sqlite3_stmt* placed = known ? nullptr : Prepare(kPlace);
  sqlite3_stmt* started = known ? nullptr : Prepare(kInProgress);
  sqlite3_stmt* kept = Prepare(kKeepBoard);
  if ((!known && (!placed || !started)) || !kept) return false;
  if (!known) {
    BindPlace(placed, place);
    Bind(started, 1, place.key);
  }
  // The grid's cells as the key sizes them, rows outer.
  int rows = 0, cols = 0;
  std::sscanf(place.key.c_str(), "%d,%d:", &rows, &cols);
  std::string grid;
  for (int r = 1; r <= std::min(rows, kMaxIndex); ++r)
    for (int c = 1; c <= std::min(cols, kMaxIndex); ++c) grid += Letter(board.grid[r][c]);
  Bind(kept, 1, place.key);
  Bind(kept, 2, grid);
  Bind(kept, 3, ChangesText(board.undo));
  Bind(kept, 4, ChangesText(board.redo));
  sqlite3_bind_int64(kept, 5, board.playedMs);
  sqlite3_bind_int(kept, 6, board.hints);
  sqlite3_bind_int(kept, 7, board.undos);
  Bind(kept, 8, NotesText(board.notes, rows, cols));
  if (known) return Write({kept});
  placed_ = {};
  if (!Write({placed, started, kept})) return false;
  placed_ = place;
  return true;
}

std::optional<KeptBoard> PlayerStore::Kept(const std::string& key, int rows, int cols) {
  sqlite3_stmt* st = Prepare(kReadBoard);
  if (st == nullptr) return std::nullopt;
  Bind(st, 1, key);
  const int rc = sqlite3_step(st);
  if (rc != SQLITE_ROW) {
    if (rc != SQLITE_DONE) Fail(rc);
    return std::nullopt;
  }
  KeptBoard board;
  const bool fits = ReadGrid(Column(st, 0), rows, cols, board.grid) &&
                    ReadChanges(Column(st, 1), rows, cols, board.undo) &&
                    ReadChanges(Column(st, 2), rows, cols, board.redo);
  board.playedMs = sqlite3_column_int64(st, 3);
  board.hints = ReadInt(st, 4);
  board.undos = ReadInt(st, 5);
  board.notes = ReadNotes(Column(st, 6), rows, cols);
  sqlite3_reset(st);
  if (fits) return board;
  Forget(key);
  return std::nullopt;
}

bool PlayerStore::Forget(const std::string& key) {
  placed_ = {};
  sqlite3_stmt* dropped = Prepare(kDropBoard);
  sqlite3_stmt* renewed = Prepare(kBackToNew);
  if (!dropped || !renewed) return false;
  Bind(dropped, 1, key);
  Bind(renewed, 1, key);
  return Write({dropped, renewed});
}

bool PlayerStore::Finish(const PuzzlePlace& place, long long playedMs, int hints, int undos) {
  placed_ = {};
  sqlite3_stmt* placed = Prepare(kPlace);
  sqlite3_stmt* finished = Prepare(kFinish);
  if (!placed || !finished) return false;
  BindPlace(placed, place);
  Bind(finished, 1, place.key);
  sqlite3_bind_int64(finished, 2, playedMs);
  sqlite3_bind_int(finished, 3, hints);
  sqlite3_bind_int(finished, 4, undos);
  return Write({placed, finished});
}

bool PlayerStore::MarkShown(const PuzzlePlace& place) {
  placed_ = {};
  sqlite3_stmt* placed = Prepare(kPlace);
  sqlite3_stmt* shown = Prepare(kShown);
  if (!placed || !shown) return false;
  BindPlace(placed, place);
  Bind(shown, 1, place.key);
  return Write({placed, shown});
}

PuzzleStatus PlayerStore::Status(const std::string& key) {
  PuzzleStatus status;
  sqlite3_stmt* st = Prepare(kStatus);
  if (st == nullptr) return status;
  Bind(st, 1, key);
  const int rc = sqlite3_step(st);
  if (rc == SQLITE_ROW) {
    status.outcome = static_cast<PuzzleOutcome>(std::clamp(ReadInt(st, 0), 0, 3));
    status.playedMs = sqlite3_column_int64(st, 1);
    status.hints = ReadInt(st, 2);
    status.undos = ReadInt(st, 3);
  } else if (rc != SQLITE_DONE) {
    Fail(rc);
  }
  sqlite3_reset(st);
  return status;
}

StoreFigures PlayerStore::Figures(const std::string& file) {
  StoreFigures figures;
  sqlite3_stmt* counts = Prepare(file.empty() ? kCountAll : kCountFile);
  if (counts == nullptr) return figures;
  if (!file.empty()) Bind(counts, 1, file);
  int rc;
  while ((rc = sqlite3_step(counts)) == SQLITE_ROW) {
    const int outcome = ReadInt(counts, 0), n = ReadInt(counts, 1);
    if (outcome == static_cast<int>(PuzzleOutcome::kFinished)) figures.finished = n;
    if (outcome == static_cast<int>(PuzzleOutcome::kInProgress)) figures.inProgress = n;
    if (outcome == static_cast<int>(PuzzleOutcome::kShown)) figures.shown = n;
  }
  sqlite3_reset(counts);
  if (rc != SQLITE_DONE) return Fail(rc), StoreFigures{};
  sqlite3_stmt* times = Prepare(file.empty() ? kTimesAll : kTimesFile);
  if (times == nullptr) return StoreFigures{};
  if (!file.empty()) Bind(times, 1, file);
  std::vector<std::pair<std::string, std::vector<long long>>> byLevel;
  while ((rc = sqlite3_step(times)) == SQLITE_ROW) {
    std::string level = Column(times, 0);
    if (byLevel.empty() || byLevel.back().first != level)
      byLevel.emplace_back(std::move(level), std::vector<long long>{});
    byLevel.back().second.push_back(sqlite3_column_int64(times, 1));
  }
  sqlite3_reset(times);
  if (rc != SQLITE_DONE) return Fail(rc), StoreFigures{};
  for (const DifficultyLevel& row : kLevels) {
    for (const auto& [level, ms] : byLevel) {
      if (level != row.name || *row.name == 0) continue;
      figures.levels.push_back({level, static_cast<int>(ms.size()), ms.front(), ms[(ms.size() - 1) / 2]});
    }
  }
  return figures;
}

}  // namespace velmora
