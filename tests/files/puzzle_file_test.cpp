// Puzzle records: counting, finding, loading (well-formed and damaged), writing.
#include <gtest/gtest.h>

#include <filesystem>

#include "files/puzzle_file.h"
#include "model/rules.h"
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

struct Loaded {
  int notFound;
  std::string title;
};

Loaded Load(GameState& s, const std::string& file, int n, int draw = 1) {
  test::RecordingUi ui;
  std::string title = "unchanged";
  const int nf = LoadPuzzle(s, ui, file, n, title, draw);
  EXPECT_FALSE(ui.busy);
  EXPECT_EQ(ui.boards, nf == 0 ? draw : 0) << "a load draws only when asked and when it succeeds";
  return {nf, title};
}

TEST(CountPuzzles, CountsHashLinesOnlyAndZeroForBadFiles) {
  TempDir dir;
  EXPECT_EQ(CountPuzzles(test::SampleFile()), 3);
  EXPECT_EQ(CountPuzzles(dir.File("missing.vlm")), 0);
  EXPECT_EQ(CountPuzzles(dir.Write("empty.vlm", "")), 0);
  EXPECT_EQ(CountPuzzles(dir.path()), 0);
  EXPECT_EQ(CountPuzzles(dir.Write("t.vlm", Record("#1", "#not a header but counted"))), 2);
}

TEST(LoadPuzzle, SkipsFreeTextAndAddressesRecordsByOrdinal) {
  TempDir dir;
  const std::string file = dir.Write(
      "p.vlm", "free text\r\nmore\r\n" + Record("#7", "seven") + "stray\r\n" + Record("#3", "three"));
  GameState s;
  Loaded l = Load(s, file, 2, 0);
  EXPECT_EQ(l.notFound, 0);
  EXPECT_EQ(l.title, "three");
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(s.view.PuzNumNow, "2");
  EXPECT_EQ(s.view.MaxPuzCount, " of 2");
  EXPECT_EQ(s.view.PuzTitle, "three");
  EXPECT_EQ(s.view.Caption, "File: " + file);

  LineReader reader(file);
  int number = -1;
  EXPECT_EQ(FindPuzzleHeader(reader, 1, number), 0);
  EXPECT_EQ(number, 3);
  EXPECT_EQ(FindPuzzleHeader(reader, 0, number), -1);
  LineReader again(file);
  EXPECT_EQ(FindPuzzleHeader(again, 0, number), 0);
  EXPECT_EQ(number, 7);
}

TEST(LoadPuzzle, EmptyRowWithSolutionLettersAndTheDeck) {
  TempDir dir;
  GameState s;
  ASSERT_EQ(Load(s, dir.Write("p.vlm", Record("#1", "t")), 1).notFound, 0);
  for (int c = 1; c <= 7; ++c) {
    EXPECT_EQ(s.Grid[1][c], 0);
    EXPECT_EQ(s.SolutionGrid[1][c], c);
  }
  // Only cards 1..7 are in this deck; every cell offers some of them.
  EXPECT_FALSE(s.CardCodes.IsAbsent(7));
  EXPECT_TRUE(s.CardCodes.IsAbsent(8));
  EXPECT_EQ(s.CellOptionsSaved, s.CellOptions);
  EXPECT_EQ(OptionText(s.CellOptions[1][1]).substr(0, 6), " 1S 1H");
}

TEST(LoadPuzzle, TitleBeginningWithHashIsNotAHeader) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Record("#1", "#title") + Record("#2", "second"));
  EXPECT_EQ(CountPuzzles(file), 3);
  GameState s;
  EXPECT_EQ(Load(s, file, 2).title, "second");
  EXPECT_EQ(Load(s, file, 3).notFound, 1);
}

TEST(LoadPuzzle, MissingRecordLeavesBoardAndDisplayUntouched) {
  GameState s;
  ASSERT_EQ(Load(s, test::SampleFile(), 2).notFound, 0);
  const auto grid = s.Grid;
  const auto view = s.view.PuzNumNow;
  for (int n : {4, 0, -1}) {
    EXPECT_EQ(Load(s, test::SampleFile(), n).notFound, 1) << n;
  }
  EXPECT_EQ(s.Grid, grid);
  EXPECT_EQ(s.view.PuzNumNow, view);
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);
}

TEST(LoadPuzzle, DamagedRecordsTakeTheFailureExitKeepingWhatWasWritten) {
  TempDir dir;
  GameState s;
  s.Solving = 1;
  // Row 3 is too short: rows 1 and 2 are already overwritten.
  std::string text = "#1\r\nt\r\n 7, 7, 0\r\n" + std::string(kRow) + "\r\n" + kRow + "\r\nAB|ABCDEFG\r\n";
  EXPECT_EQ(Load(s, dir.Write("short.vlm", text), 1).notFound, 1);
  EXPECT_EQ(s.Grid[2][3], 0);
  EXPECT_EQ(s.SolutionGrid[2][3], 3);
  EXPECT_EQ(s.Solving, 0);

  const struct {
    const char* name;
    std::string contents;
  } bad[] = {
      {"missing rows", "#1\r\nt\r\n 7, 7, 0\r\n" + std::string(kRow) + "\r\n"},
      {"no size line", "#1\r\nt\r\n"},
      {"no title", "#1"},
      {"no comma", Record("#1", "t", " 7")},
      {"ten rows", Record("#1", "t", " 10, 7, 0", 10)},
      {"ten columns", Record("#1", "t", " 7, 10, 0", 7, "@@@@@@@@@@|ABCDEFGHIJ")},
      {"letter beyond t", Record("#1", "t", " 7, 7, 0", 7, "u@@@@@@|ABCDEFG")},
      {"byte above 127", Record("#1", "t", " 7, 7, 0", 7, "\xC8@@@@@@|ABCDEFG")},
      {"solution beyond t", Record("#1", "t", " 7, 7, 0", 7, "@@@@@@@|ABCDEFz")},
      {"solution too short", Record("#1", "t", " 7, 7, 0", 7, "@@@@@@@|ABC")},
      {"huge size", Record("#1", "t", " 99999999999, 7, 0")},
      {"low byte", Record("#1", "t", " 7, 7, 0", 7, "@@0@@@@|ABCDEFG")},
  };
  for (const auto& b : bad) {
    GameState fresh;
    EXPECT_EQ(Load(fresh, dir.Write("bad.vlm", b.contents), 1).notFound, 1) << b.name;
  }
  EXPECT_EQ(Load(s, dir.File("missing.vlm"), 1).notFound, 1);
  EXPECT_EQ(Load(s, dir.Write("empty.vlm", ""), 1).notFound, 1);
  EXPECT_EQ(Load(s, dir.path(), 1).notFound, 1);
}

TEST(LoadPuzzle, OddSizesLoadWithinTheTables) {
  TempDir dir;
  GameState s;
  // Eight rows fit the 0..9 arrays.
  ASSERT_EQ(Load(s, dir.Write("8.vlm", Record("#1", "t", " 8, 7, 0", 8)), 1).notFound, 0);
  EXPECT_EQ(s.Rows, 8);
  EXPECT_EQ(s.CellNumber[8][7], 56);
  // Zero and negative sizes read no cells and load an empty board.
  ASSERT_EQ(Load(s, dir.Write("0.vlm", Record("#1", "t", " 0, 0, 0", 0)), 1).notFound, 0);
  EXPECT_EQ(s.Rows, 0);
  EXPECT_EQ(CountBlanks(s), 0);
  ASSERT_EQ(Load(s, dir.Write("neg.vlm", Record("#1", "t", "-3,-2, 0", 0)), 1).notFound, 0);
  EXPECT_EQ(s.Rows, -3);
  EXPECT_EQ(CountBlanks(s), 0);
  // A row without "|" keeps the previous solution row.
  GameState t;
  ASSERT_EQ(Load(t, test::SampleFile(), 1).notFound, 0);
  const int before = t.SolutionGrid[1][1];
  ASSERT_EQ(Load(t, dir.Write("nobar.vlm", Record("#1", "t", " 1, 7, 0", 1, "@@@@@@@")), 1).notFound, 0);
  EXPECT_EQ(t.SolutionGrid[1][1], before);
}

TEST(LoadPuzzle, LfOnlyFilesReadLikeCrLf) {
  TempDir dir;
  std::string crlf;
  ReadWholeFile(test::SampleFile(), crlf);
  std::string lf;
  for (char c : crlf)
    if (c != '\r') lf += c;
  GameState a, b;
  ASSERT_EQ(Load(a, test::SampleFile(), 3).notFound, 0);
  ASSERT_EQ(Load(b, dir.Write("lf.vlm", lf), 3).notFound, 0);
  EXPECT_EQ(a.Grid, b.Grid);
  EXPECT_EQ(a.SolutionGrid, b.SolutionGrid);
  EXPECT_EQ(a.view.PuzTitle, b.view.PuzTitle);
}

TEST(WritePuzzleRecord, RoundTripAndFilledCellsUseTheSolution) {
  TempDir dir;
  GameState s;
  ASSERT_EQ(Load(s, test::SampleFile(), 2).notFound, 0);
  s.Grid[1][2] = s.SolutionGrid[1][3];  // a wrong card is saved as the right one
  s.Grid[1][1] = -2;                    // a mark is saved as empty
  const std::string out = dir.File("out.vlm");
  ASSERT_TRUE(WritePuzzleRecord(s, out, 5, "My title"));
  ASSERT_TRUE(WritePuzzleRecord(s, out, 6, ""));
  const std::string text = dir.Read("out.vlm");
  EXPECT_EQ(text.substr(0, 15), "#5\r\nMy title\r\n ");
  EXPECT_EQ(CountPuzzles(out), 2);
  GameState r;
  ASSERT_EQ(Load(r, out, 2).notFound, 0);
  EXPECT_EQ(r.view.PuzTitle, "");
  EXPECT_EQ(r.Grid[1][1], 0);
  EXPECT_EQ(r.Grid[1][2], s.SolutionGrid[1][2]);
  EXPECT_EQ(r.SolutionGrid, s.SolutionGrid);
  EXPECT_EQ(r.Grid[4][4], s.Grid[4][4]);
}

TEST(WritePuzzleRecord, NumberZeroReplacesTheFileWithRecordOne) {
  TempDir dir;
  GameState s;
  ASSERT_EQ(Load(s, test::SampleFile(), 1).notFound, 0);
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c) s.Grid[r][c] = 0;
  EXPECT_EQ(CountBlanks(s), 49);
  const std::string file = dir.Write("x.vlm", Record("#1", "a") + Record("#2", "b"));
  ASSERT_TRUE(WritePuzzleRecord(s, file, 0, "only"));
  const std::string text = dir.Read("x.vlm");
  EXPECT_EQ(text.substr(0, 23), "#1\r\nonly\r\n 7, 7, 49\r\n@@");
  EXPECT_EQ(CountPuzzles(file), 1);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 10);
  EXPECT_FALSE(WritePuzzleRecord(s, dir.path(), 0, "dir"));
  // No temporary files are left beside it.
  int entries = 0;
  for ([[maybe_unused]] const auto& e : std::filesystem::directory_iterator(dir.path())) ++entries;
  EXPECT_EQ(entries, 1);
}

}  // namespace
}  // namespace velmora
