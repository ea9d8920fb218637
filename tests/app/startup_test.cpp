// Start-up sequence and the Exit/Cancel buttons, over a recording user interface.
#include "app/startup.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "app/app_commands.h"
#include "appearance/color_scheme.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

// A program folder with the shipped schemes and the sample puzzles, or empty.
struct Started {
  explicit Started(bool files = true) {
    if (!files) return;
    std::filesystem::copy_file(std::string(VELMORA_DATA_DIR) + "/all.col", dir.File("all.col"));
    std::filesystem::copy_file(test::SampleFile(), dir.File("puzzles.vlm"));
  }
  void Run() {
    StartUp(s, ui, dir.path(), [this] { ++setCols; });
  }
  std::string Puzzles() const { return dir.File("puzzles.vlm"); }
  test::TempDir dir;
  GameState s;
  test::RecordingUi ui;
  int setCols = 0;
};

void ExpectEmptyBoard(const GameState& s) {
  EXPECT_EQ(s.CurrentPuzzleFile, "");
  EXPECT_EQ(s.CurrentPuzzleNumber, 0);
  EXPECT_EQ(s.view.PuzNumNow, "");
  EXPECT_EQ(s.Rows, 7);
  EXPECT_EQ(s.CellX[7][7], 30 + 6 * 810);
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c) EXPECT_EQ(s.Grid[r][c], 0);
}

TEST(StartUp, FirstRunCreatesTheConfigurationAndShowsAnEmptyBoard) {
  Started f;
  f.Run();
  EXPECT_EQ(f.s.AppFolder, f.dir.path() + "/");
  ASSERT_EQ(f.ui.messages.size(), 1u);  // the configuration's own message, checked with it
  EXPECT_EQ(f.setCols, 1);
  EXPECT_TRUE(FileExists(f.dir.File("velmora.cfg")));
  ExpectEmptyBoard(f.s);  // number 0 names no record
  EXPECT_EQ(f.s.PuzzleCount, 3);
  EXPECT_GE(f.ui.boards, 1);
  EXPECT_FALSE(f.ui.busy);
}

TEST(StartUp, FallsBackToTheDefaultFileAndThenToAnEmptyBoard) {
  {  // a remembered file that is gone: puzzles.vlm of the folder is used
    Started f;
    f.dir.Write("velmora.cfg", "t\r\nnone.col\r\n" + f.dir.File("gone.vlm") + "\r\n1\r\n");
    f.Run();
    EXPECT_EQ(f.ui.messages, std::vector<std::string>{"Color Scheme: none.col not found"});
    EXPECT_EQ(f.s.ColorSchemeName, "default.col");
    EXPECT_EQ(f.s.CurrentPuzzleFile, f.Puzzles());
    EXPECT_EQ(f.s.view.PuzNumNow, "1");
  }
  {  // a number past the end of the file: empty board
    Started f;
    f.dir.Write("velmora.cfg", "t\r\ndefault.col\r\n" + f.Puzzles() + "\r\n 9 \r\n");
    f.Run();
    EXPECT_TRUE(f.ui.messages.empty());
    ExpectEmptyBoard(f.s);
  }
  {  // a folder with nothing in it: two messages, still an empty board
    Started f(false);
    f.Run();
    EXPECT_EQ(f.ui.messages.size(), 2u);
    EXPECT_EQ(f.s.PuzzleCount, 0);
    ExpectEmptyBoard(f.s);
  }
}

TEST(AppCommands, ExitSavesOnlyOnYesAndEndsEvenWhenTheSaveFails) {
  Started f;
  f.s.AppFolder = f.dir.path() + "/";
  f.s.CurrentPuzzleFile = "/p.vlm";
  f.s.CurrentPuzzleNumber = 4;
  f.ui.answer = false;
  EXPECT_FALSE(cmdexit(f.s, f.ui));
  EXPECT_EQ(f.ui.questions, std::vector<std::string>{"Exit?"});
  EXPECT_FALSE(FileExists(f.dir.File("velmora.cfg")));
  f.ui.answer = true;
  EXPECT_TRUE(cmdexit(f.s, f.ui));
  EXPECT_NE(f.dir.Read("velmora.cfg").find("\r\n/p.vlm\r\n 4 \r\n"), std::string::npos);
  f.s.AppFolder = f.dir.path() + "/missing/";
  EXPECT_TRUE(cmdexit(f.s, f.ui));
  EXPECT_EQ(f.ui.messages.size(), 1u);
}

TEST(AppCommands, CancelSetsTheRequestOnce) {
  GameState s;
  test::RecordingUi ui;
  s.view.NewLab = "Creating Puzzle";
  cmdcancel(s, ui);
  EXPECT_EQ(s.CancelRequest, 1);
  EXPECT_EQ(s.view.NewLab, " Canceling...");
  s.CancelRequest = 0;  // as a long command clears it
  cmdcancel(s, ui);
  EXPECT_EQ(s.CancelRequest, 0);
  EXPECT_EQ(ui.yields, 1);
}

}  // namespace
}  // namespace velmora
