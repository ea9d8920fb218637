// Puzzle records: counting, loading (well-formed and damaged), writing, and
// what a written record says about suit-only marks.
#include "files/puzzle_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "model/text.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::TempDir;

const char* kRow = "@@@@@@@|ABCDEFG";

std::string Record(const std::string& header, const std::string& title, const std::string& size = " 7, 7, 49",
                   int rows = 7, const std::string& row = kRow) {
  std::string text = header + "\r\n" + title + "\r\n" + size + "\r\n";
  for (int r = 0; r < rows; ++r) text += row + "\r\n";
  return text;
}

// LoadPuzzle's not-found result.
int Load(GameState& s, const std::string& file, int n) {
  test::RecordingUi ui;
  std::string title;
  const int notFound = LoadPuzzle(s, ui, file, n, title, 1);
  EXPECT_EQ(ui.boards, notFound == 0 ? 1 : 0) << "a load draws when it succeeds";
  return notFound;
}

TEST(LoadPuzzle, ANumberOutsideTheFileFailsAndLeavesBoardAndDisplay) {
  TempDir dir;
  // The title beginning with "#" is counted as a record but loads as none.
  const std::string file =
      dir.Write("p.vlm", "free text\r\n" + Record("#7", "#seven") + Record("#3", "three"));
  GameState s;
  ASSERT_EQ(Load(s, file, 2), 0);
  const GameState before = s;
  for (int n : {3, 0, -1}) EXPECT_EQ(Load(s, file, n), 1) << n;
  EXPECT_EQ(s.Grid, before.Grid);
  EXPECT_EQ(s.view.PuzNumNow + s.view.MaxPuzCount + " " + s.view.PuzTitle, "2 of 3 three");
  EXPECT_EQ(CountPuzzles(dir.File("missing.vlm")) + CountPuzzles(dir.path()), 0);
}

TEST(LoadPuzzle, ShortCellLineFailsAfterTheRowsBeforeItWereOverwritten) {
  TempDir dir;
  GameState s;
  s.Solving = 1;
  const std::string text =
      "#1\r\nt\r\n 7, 7, 0\r\n" + std::string(kRow) + "\r\n" + kRow + "\r\nAB|ABCDEFG\r\n";
  EXPECT_EQ(Load(s, dir.Write("short.vlm", text), 1), 1);
  EXPECT_EQ(Str(s.Grid[2][3]) + Str(s.SolutionGrid[2][3]) + Str(s.Solving), " 0 3 0");
}

TEST(LoadPuzzle, MalformedFilesFailOrLoadWithinTheTablesWithoutACrash) {
  TempDir dir;
  const struct {
    const char* name;
    std::string contents;
    int notFound, rows;
  } cases[] = {
      {"missing rows", "#1\r\nt\r\n 7, 7, 0\r\n" + std::string(kRow) + "\r\n", 1, 0},
      {"no size line", "#1\r\nt\r\n", 1, 0},
      {"no comma", Record("#1", "t", " 7"), 1, 0},
      {"ten rows", Record("#1", "t", " 10, 7, 0", 10), 1, 0},
      {"ten columns", Record("#1", "t", " 7, 10, 0", 7, "@@@@@@@@@@|ABCDEFGHIJ"), 1, 0},
      {"letter beyond t", Record("#1", "t", " 7, 7, 0", 7, "u@@@@@@|ABCDEFG"), 1, 0},
      {"solution beyond t", Record("#1", "t", " 7, 7, 0", 7, "@@@@@@@|ABCDEFz"), 1, 0},
      {"huge size", Record("#1", "t", " 99999999999, 7, 0"), 1, 0},
      {"low byte", Record("#1", "t", " 7, 7, 0", 7, "@@0@@@@|ABCDEFG"), 1, 0},
      {"empty file", "", 1, 0},
      {"eight rows", Record("#1", "t", " 8, 7, 0", 8), 0, 8},  // fits the 0..9 tables
      {"no cells", Record("#1", "t", " 0, 0, 0", 0), 0, 0},
      {"negative size", Record("#1", "t", "-3,-2, 0", 0), 0, -3},
      {"LF only", "#1\nt\n 1, 7, 0\n" + std::string(kRow) + "\n", 0, 1},
  };
  for (const auto& c : cases) {
    GameState s;
    EXPECT_EQ(Load(s, dir.Write("bad.vlm", c.contents), 1), c.notFound) << c.name;
    EXPECT_EQ(c.notFound == 0 ? s.Rows : c.rows, c.rows) << c.name;  // the size of what loaded
  }
  GameState s;
  EXPECT_EQ(Load(s, dir.File("missing.vlm"), 1), 1);
}

TEST(WritePuzzleRecord, NumberZeroReplacesTheFileWithRecordOne) {
  TempDir dir;
  GameState s = test::Loaded(test::SampleFile(), 1);
  for (auto& row : s.Grid) row.fill(0);
  const std::string file = dir.Write("x.vlm", Record("#1", "a") + Record("#2", "b"));
  ASSERT_TRUE(WritePuzzleRecord(s, file, 0, "only"));
  const std::string text = dir.Read("x.vlm");
  EXPECT_EQ(text.substr(0, 23), "#1\r\nonly\r\n 7, 7, 49\r\n@@");
  EXPECT_EQ(test::Headers(text), std::vector<std::string>{"#1"});
  EXPECT_FALSE(WritePuzzleRecord(s, dir.path(), 0, "dir"));
  int entries = 0;  // no temporary files are left beside it
  for ([[maybe_unused]] const auto& e : std::filesystem::directory_iterator(dir.path())) ++entries;
  EXPECT_EQ(entries, 1);
}

TEST(WritePuzzleRecord, SuitOnlyMarksAreWrittenEmptyButNotCountedAsBlanks) {
  test::TempDir dir;
  GameState s = test::Loaded(test::SolvableFile());  // 14 blanks, (1,2) and (1,6) among them
  s.Grid[1][2] = -2;
  s.Grid[1][6] = -4;
  s.Grid[2][1] = 0;  // a given taken away
  const std::string file = dir.File("w.vlm");
  ASSERT_TRUE(WritePuzzleRecord(s, file, 0, "marks"));
  const auto lines = test::Lines(dir.Read("w.vlm"));
  ASSERT_GE(lines.size(), 4u);
  EXPECT_EQ(lines[2], " 7, 7, 13");
  EXPECT_EQ(lines[3], "L@i_f@m|Lci_fPm");
}

}  // namespace
}  // namespace velmora
