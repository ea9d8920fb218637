// The player's store: what it keeps and reads back, its figures, and every
// store it must survive without losing or writing a file it may not.
#include "files/player_store.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include "creation/levels.h"
#include "test_support.h"

namespace velmora {
namespace {

const std::string kStart = "Unfinished boards cannot be kept this session: ";

PuzzlePlace Place(const std::string& key, const std::string& level, const std::string& file = "/f.vlm") {
  return {"1,1:" + key + "|" + key, file, 1, level};
}

TEST(PlayerStore, KeepsBoardsOutcomesAndFiguresAcrossSessions) {
  const test::TempDir dir;
  KeptBoard board;
  board.grid[1][1] = -3;
  board.undo = {{1, 1, 0}};
  board.redo = {{1, 1, 5}};
  board.playedMs = 61999, board.hints = 2, board.undos = 1;
  {
    PlayerStore store(dir.path() + "/");
    ASSERT_TRUE(store.IsOpen()) << store.Problem();
    ASSERT_TRUE(store.Keep(Place("A", "Easy"), board));
    for (const auto& [key, ms] : {std::pair{"B", 4000}, {"C", 2000}, {"D", 9000}, {"E", 1000}})
      store.Finish(Place(key, "Easy"), ms, 0, 0);
    store.Finish(Place("C", "Easy"), 3000, 0, 0);  // a slower second finish is not kept
    store.Finish(Place("F", "VHard", "/g.vlm"), 65000, 1, 0);
    store.MarkShown(Place("F", "VHard", "/g.vlm"));  // shown after the finish: still finished
    store.MarkShown(Place("G", "Hard"));
  }
  PlayerStore store(dir.path() + "/");
  const auto kept = store.Kept(Place("A", "").key, 1, 1);
  ASSERT_TRUE(kept);
  EXPECT_EQ(kept->grid, board.grid);
  EXPECT_EQ(kept->undo[0].value, 0);
  EXPECT_EQ(kept->redo[0].value, 5);
  EXPECT_EQ(kept->playedMs + kept->hints + kept->undos, 62002);
  EXPECT_EQ(store.Status(Place("A", "").key).outcome, PuzzleOutcome::kInProgress);
  EXPECT_FALSE(store.Kept(Place("A", "").key, 2, 2)) << "another size does not fit";
  EXPECT_EQ(store.Status(Place("A", "").key).outcome, PuzzleOutcome::kNew) << "and is dropped";
  EXPECT_EQ(store.Status(Place("C", "").key).playedMs, 2000);
  const StoreFigures all = store.Figures(), g = store.Figures("/g.vlm");
  EXPECT_EQ(std::vector({all.finished, all.inProgress, all.shown, g.finished}), std::vector({5, 0, 1, 1}));
  ASSERT_EQ(all.levels.size(), 2u);
  // Easy: 1, 2, 4, 9 seconds; the median of an even count is the lower middle one.
  EXPECT_EQ(all.levels[0].level + ClockText(all.levels[0].bestMs) + ClockText(all.levels[0].medianMs),
            "Easy0:010:02");
  EXPECT_EQ(all.levels[1].level + ClockText(all.levels[1].medianMs), "VHard1:05");
}

TEST(PlayerStore, LevelFromTheTitleElseFromTheBlanks) {
  EXPECT_STREQ(LevelOfPuzzle("Hard 15/11/2026 10:03:33", 14), "Hard");
  EXPECT_STREQ(LevelOfPuzzle("Hardly", 14), "Easy");
  EXPECT_STREQ(LevelOfPuzzle("", 18), "Hard");
  EXPECT_STREQ(LevelOfPuzzle("T1", 19), "VHard");
}

// Opens the store of `dir` and gives its problem; the store is then closed.
std::string ProblemOf(const test::TempDir& dir) {
  PlayerStore store(dir.path() + "/");
  EXPECT_EQ(store.IsOpen(), store.Problem().empty());
  const std::string first = store.TakeProblem();
  return first + (store.TakeProblem().empty() ? "" : " twice");
}

TEST(PlayerStore, BadStoresLeaveItClosedWithOneMessageAndTheFilesKept) {
  const test::TempDir dir;
  const std::string db = dir.File(kStoreFileName);
  dir.Write(kStoreFileName, "not a store");
  dir.Write("velmora.db-wal", "w");
  dir.Write("velmora.db.damaged-1", "older");
  EXPECT_EQ(ProblemOf(dir), kStart + db + " was damaged; it was moved aside as " + db + ".damaged-2.");
  EXPECT_EQ(dir.Read("velmora.db.damaged-2") + dir.Read("velmora.db.damaged-2-wal"), "not a storew");
  EXPECT_EQ(ProblemOf(dir), "") << "the next session starts a new store";
  sqlite3* other = nullptr;
  sqlite3_open(db.c_str(), &other);
  sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
  EXPECT_EQ(ProblemOf(dir), kStart + db + " is in use by another program.");
  sqlite3_exec(other, "ROLLBACK; PRAGMA user_version=99", nullptr, nullptr, nullptr);
  sqlite3_close(other);
  EXPECT_EQ(ProblemOf(dir), kStart + db + " was written by a newer version of Velmora.");
  const test::TempDir elsewhere;
  ::rename(db.c_str(), elsewhere.File("kept.db").c_str());
  ::symlink(elsewhere.File("kept.db").c_str(), db.c_str());
  EXPECT_EQ(ProblemOf(dir), kStart + db + " is not a plain file.");
  ::unlink(db.c_str());
  EXPECT_FALSE(PlayerStore(dir.path() + "/", PlayerStore::Access::kRead).IsOpen());
  EXPECT_FALSE(FileExists(db)) << "reading figures makes no store";
}

TEST(PlayerStore, AnOrdinaryUserNeverWritesAStoreOrFolderNotTheirs) {
  const test::TempDir dir;
  { PlayerStore made(dir.path() + "/"); }
  ::chmod(dir.path().c_str(), 0755);
  const std::string db = dir.File(kStoreFileName);
  const std::string before = dir.Read(kStoreFileName);
  EXPECT_EQ(test::AsNobody([&] { return ProblemOf(dir); }), kStart + db + " cannot be written.");
  EXPECT_EQ(dir.Read(kStoreFileName), before);
  ::unlink(db.c_str());
  EXPECT_EQ(test::AsNobody([&] { return ProblemOf(dir); }), kStart + db + " cannot be written.");
  EXPECT_FALSE(FileExists(db));
}

}  // namespace
}  // namespace velmora
