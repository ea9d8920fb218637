// Puzzle records: counting and loading, fresh and through the kept record
// index; damaged records; writing, and what a written record says about
// suit-only marks.
#include "files/puzzle_file.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <tuple>

#include "files/record_index.h"
#include "model/text.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;
using test::Record;
using test::Records;

const char* kRow = "@@@@@@@|ABCDEFG";

// A record "#1" titled "t" with the given size line and cell rows.
std::string Damaged(const std::string& size, int rows = 7, const std::string& row = kRow) {
  std::string text = "#1\r\nt\r\n" + size + "\r\n";
  for (int r = 0; r < rows; ++r) text += row + "\r\n";
  return text;
}

// LoadPuzzle's not-found result.
int Load(GameState& s, const std::string& file, int n) {
  test::RecordingUi ui;
  const bool loaded = LoadPuzzle(s, ui, file, n);
  EXPECT_EQ(ui.boards, loaded ? 1 : 0) << "a load draws when it succeeds";
  return loaded ? 0 : 1;
}

TEST(LoadPuzzle, ANumberOutsideTheFileFailsAndLeavesBoardAndDisplay) {
  const std::string file = test::SampleFile();
  GameState s = test::Loaded(file, 2);
  const GameState before = s;
  for (int n : {CountPuzzles(file) + 1, 0, -1}) EXPECT_EQ(Load(s, file, n), 1) << n;
  EXPECT_EQ(s.puzzle.Grid, before.puzzle.Grid);
  EXPECT_EQ(s.view.PuzNumNow + s.view.MaxPuzCount + s.view.PuzTitle,
            before.view.PuzNumNow + before.view.MaxPuzCount + before.view.PuzTitle);
}

TEST(LoadPuzzle, DamagedRecordsFailOrLoadWithinTheTablesWithoutACrash) {
  test::TempDir dir;
  const int kFails = 99;
  // What, the record, the rows loaded.
  const std::tuple<const char*, std::string, int> cases[] = {
      {"missing rows", Damaged(" 7, 7, 0", 1), kFails},
      {"no comma", Damaged(" 7"), kFails},
      {"ten rows", Damaged(" 10, 7, 0", 10), kFails},
      {"ten columns", Damaged(" 7, 10, 0", 7, "@@@@@@@@@@|ABCDEFGHIJ"), kFails},
      {"letter beyond t", Damaged(" 7, 7, 0", 7, "u@@@@@@|ABCDEFG"), kFails},
      {"solution beyond t", Damaged(" 7, 7, 0", 7, "@@@@@@@|ABCDEFz"), kFails},
      {"huge size", Damaged(" 99999999999, 7, 0"), kFails},
      {"low byte", Damaged(" 7, 7, 0", 7, "@@0@@@@|ABCDEFG"), kFails},
      {"eight rows", Damaged(" 8, 7, 0", 8), 8},  // fits the 0..9 tables
      {"negative size", Damaged("-3,-2, 0", 0), -3},
  };
  for (const auto& [what, record, rows] : cases) {
    GameState s;
    EXPECT_EQ(Load(s, dir.Write("bad.vlm", record), 1) ? kFails : s.puzzle.Rows, rows) << what;
  }
  // A short cell line fails after the rows before it were overwritten.
  GameState s;
  s.session.Solving = 1;
  EXPECT_EQ(Load(s, dir.Write("short.vlm", Damaged(" 7, 7, 0", 2) + "AB|ABCDEFG\r\n"), 1), 1);
  EXPECT_EQ(Str(s.puzzle.Grid[2][3]) + Str(s.puzzle.SolutionGrid[2][3]) + Str(s.session.Solving), " 0 3 0");
}

// Number 0 writes the board as record 1 in place of the whole file.
TEST(WritePuzzleRecord, NumberZeroReplacesTheFileAndSuitOnlyMarksAreWrittenEmptyButNotCountedAsBlanks) {
  test::TempDir dir;
  GameState s = test::Loaded(test::SolvableFile());  // 14 blanks, (1,2) and (1,6) among them
  s.puzzle.Grid[1][2] = -2;
  s.puzzle.Grid[1][6] = -4;
  s.puzzle.Grid[2][1] = 0;  // a given taken away
  const std::string file = dir.Write("w.vlm", Records(2));
  ASSERT_TRUE(WritePuzzleRecord(s.puzzle, file, 0, "marks"));
  const auto lines = test::Lines(dir.Read("w.vlm"));
  ASSERT_EQ(lines.size(), 10u);
  EXPECT_EQ(lines[0] + lines[1] + "|" + lines[2] + "|" + lines[3], "#1marks| 7, 7, 13|L@i_f@m|Lci_fPm");
}

// The count, then the title each record up to two past the count loads
// with, "-" where it does not load.
std::string Loads(const std::string& file) {
  SilentUserInterface ui;
  const int count = CountPuzzles(file);
  std::string seen = Str(count) + ":";
  for (int n = 1; n <= count + 2; ++n) {
    GameState s;
    seen += (LoadPuzzle(s, ui, file, n, Draw::kNo) ? s.view.PuzTitle : "-") + "|";
  }
  return seen;
}

// Records in both line ends, free text, a title beginning with "#", headers
// out of order, an empty title, and a last header without its title or line end.
std::string Mixed() {
  std::string lf = Record(3, "three", 4);
  for (size_t at; (at = lf.find("\r\n")) != std::string::npos;) lf.erase(at, 1);
  return "notes\r\n" + Record(7, "#seven") + "stray\n" + lf + Record(5, "", 9) + Record(1, "t", 13) + "#9";
}

TEST(RecordIndex, LoadsAndCountsAsReadingFromTheTopFreshKeptAndAfterOwnAppends) {
  test::TempDir dir;
  const std::string file = dir.Write("m.vlm", Mixed());
  for (const char* pass : {"fresh", "read at rest", "kept"}) {
    if (pass[0] == 'r') test::AtRest(file);
    EXPECT_EQ(Loads(file), " 6:#seven|three||t|-|-|-|-|") << pass;  // "#9" has no title
  }
  GameState s = test::Loaded(file, 4);  // the grid of the record asked for
  EXPECT_EQ(s.puzzle.SolutionGrid[7][7], 20);
  // The first appended header is the title "#9" lacked; the size line then is "new 1".
  for (const char* title : {"new 1", "#new 2"}) EXPECT_GT(AppendPuzzleRecord(s.puzzle, file, title), 0);
  EXPECT_EQ(Loads(file), " 8:#seven|three||t|-| #new 2|-|-|-|-|");

  // An over-long line is damage: the records before it are not shown as if
  // they were the whole file, and none after it is lost track of silently.
  const std::string longLine =
      dir.Write("l.vlm", Records(2) + std::string(kMaxLineLength + 1, '\0') + "\r\n" + Record(3, "beyond"));
  test::AtRest(longLine);
  for (int pass = 0; pass < 2; ++pass) EXPECT_EQ(Loads(longLine), " 0:-|-|");
}

}  // namespace
}  // namespace velmora
