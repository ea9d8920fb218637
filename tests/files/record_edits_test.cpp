// What a written record says about suit-only marks, and which record Delete
// removes.
#include <gtest/gtest.h>

#include <filesystem>

#include "files/file_commands.h"
#include "files/puzzle_file.h"
#include "model/text.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

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

// Ten records T1..T10 with record `shown` on show and `typed` in the box.
class DeleteTyped : public ::testing::Test {
 protected:
  std::string Delete(int shown, const std::string& typed) {
    const std::string file = dir_.Write("p.vlm", test::Records(10));
    GameState s = test::Loaded(file, shown);
    s.CurrentPuzzleFile = file;
    s.view.PuzNumNow = typed;
    mnudelete(s, ui_);
    std::string titles;
    for (int n = 1; n <= CountPuzzles(file); ++n) titles += test::Loaded(file, n).view.PuzTitle + " ";
    return titles + "| " + NumText(s.CurrentPuzzleNumber) + " " + s.view.PuzTitle;
  }
  test::TempDir dir_, work_;
  test::InDirectory here_{work_.path()};
  test::RecordingUi ui_;
};

TEST_F(DeleteTyped, RemovesTheRecordWhoseNumberIsTypedNotTheOneShown) {
  EXPECT_EQ(Delete(2, "5"), "T1 T2 T3 T4 T6 T7 T8 T9 T10 | 4 T4");
  EXPECT_EQ(Delete(7, "1"), "T2 T3 T4 T5 T6 T7 T8 T9 T10 | 1 T2");
}

}  // namespace
}  // namespace velmora
