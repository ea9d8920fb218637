// The batch transformation of a numeric-form puzzle file.
#include "creation/transform.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "board/geometry.h"
#include "creation/generator.h"
#include "creation/literal_generator.h"
#include "files/text_file.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

// A record in the numeric form: one digit per cell after the "|".
std::string NumericRecord(int number, const std::vector<std::string>& solutionRows) {
  std::string text = "#" + std::to_string(number) + "\r\nold title\r\n 7, 7, 0\r\n";
  for (const std::string& row : solutionRows) text += ".......|" + row + "\r\n";
  return text;
}

const std::vector<std::string> kRowsA = {"1234567", "2345678", "3456789", "4567891",
                                         "5678912", "6789123", "7891234"};
const std::vector<std::string> kRowsB = {"9876543", "8765432", "7654321", "6543219",
                                         "5432198", "4321987", "3219876"};

using test::Lines;

TEST(TransformedFileName, NewBeforeTheLastDotOfTheName) {
  EXPECT_EQ(TransformedFileName("puzzles.vlm"), "puzzles_new.vlm");
  EXPECT_EQ(TransformedFileName("/a/b.c/puzzles.old.txt"), "/a/b.c/puzzles.old_new.txt");
  EXPECT_EQ(TransformedFileName("/a/b.c/puzzles"), "/a/b.c/puzzles_new");
}

TEST(MakePuzzlesFromFile, EveryRecordBlankedAsRemoveGivensDoesAtTheLevelFirstDrawn) {
  test::TempDir dir;
  const std::string in = dir.Write("set.vlm", NumericRecord(4, kRowsA) + NumericRecord(9, kRowsB));
  GameState s;
  s.session.rng = Random::Seeded(1);
  GameState expected = s;
  test::RecordingUi ui;
  int level = kLevelRandom, literalLevel = kLevelRandom;
  MakePuzzlesFromFile(s, ui, in, level);
  EXPECT_EQ(ui.messages, std::vector<std::string>{" 2 puzzles made"});
  EXPECT_EQ(s.view.Label3, "2");
  EXPECT_NE(level, kLevelEasy);  // so the comparison below sees blanks

  // Renumbered from 1, titled with the date and time, and blanked as the
  // word-for-word RemoveGivens blanks the same records at the level it drew
  // for the first record.
  std::vector<std::string> lines = Lines(dir.Read("set_new.vlm")), want;
  ASSERT_EQ(lines.size(), 20u);
  for (int record = 0; record < 2; ++record) {
    std::string& title = lines[10 * record + 1];
    EXPECT_EQ(title.substr(0, 8), "Created:");
    EXPECT_TRUE(test::IsAutomaticTitle("Easy " + title.substr(8))) << title;  // the same date and time forms
    const auto& rows = record == 0 ? kRowsA : kRowsB;
    for (int n = 0; n < 49; ++n)
      expected.puzzle.SolutionGrid[n / 7 + 1][n % 7 + 1] = expected.puzzle.Grid[n / 7 + 1][n % 7 + 1] =
          rows[n / 7][n % 7] - '0';
    test::LiteralRemoveGivens(expected, ui, literalLevel);
    std::string cells;  // the puzzle part, row after row
    for (int n = 0; n < 49; ++n)
      cells += expected.puzzle.Grid[n / 7 + 1][n % 7 + 1] ? rows[n / 7][n % 7] : '.';
    want.insert(want.end(), {"#" + std::to_string(record + 1), title,
                             " 7, 7, " + std::to_string(std::ranges::count(cells, '.'))});
    for (int r = 0; r < 7; ++r) want.push_back(cells.substr(7 * static_cast<size_t>(r), 7) + "|" + rows[r]);
  }
  EXPECT_EQ(lines, want);
  EXPECT_EQ(level, literalLevel);
}

TEST(MakePuzzlesFromFile, ErrorsEndTheRunAndKeepWhatWasMade) {
  test::TempDir dir;
  std::string cut = NumericRecord(1, kRowsA) + NumericRecord(2, kRowsB);
  cut.resize(cut.size() - 4 * 17);  // the second record stops after three of its rows
  // The lines of the output file; -1: no such file.
  const struct {
    std::string in;
    int rows;
    const char* message;
    int lines;
  } cases[] = {{dir.Write("cut.vlm", cut), 7, "error?", 10},
               {dir.File("none.vlm"), 7, "error?", -1},
               {dir.Write("empty.vlm", ""), 7, " 0 puzzles made", 0},
               {dir.Write("big.vlm", cut), 12, "error?", 0}};  // rows beyond what the grids hold
  for (const auto& c : cases) {
    GameState s;
    s.puzzle.Rows = c.rows;
    test::RecordingUi ui;
    int level = kLevelEasy;
    EXPECT_EQ(MakePuzzlesFromFile(s, ui, c.in, level).failed, std::string(c.message) == "error?") << c.in;
    EXPECT_EQ(ui.messages, std::vector<std::string>{c.message}) << c.in;
    const std::string out = std::filesystem::path(TransformedFileName(c.in)).filename();
    EXPECT_EQ(FileExists(dir.File(out)) ? static_cast<int>(Lines(dir.Read(out)).size()) : -1, c.lines)
        << c.in;
  }
}

}  // namespace
}  // namespace velmora
