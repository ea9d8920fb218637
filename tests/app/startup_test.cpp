// Start-up sequence and the Exit/Cancel buttons, over a recording user interface.
#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "app/app_commands.h"
#include "app/startup.h"
#include "appearance/color_scheme.h"
#include "files/text_file.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::TempDir;

class RecordingUi : public SilentUserInterface {
 public:
  void ShowMessage(const std::string& text) override { messages.push_back(text); }
  bool AskYesNo(const std::string& text) override {
    questions.push_back(text);
    return answer;
  }
  void SetBusy(bool b) override { busy = b; }
  void Yield() override { ++yields; }
  void DrawBoard() override { ++draws; }
  std::vector<std::string> messages, questions;
  bool answer = true;
  bool busy = false;
  int draws = 0, yields = 0;
};

struct Folder {
  TempDir dir;
  Folder() {
    std::filesystem::copy_file(std::string(VELMORA_DATA_DIR) + "/all.col", dir.File("all.col"));
    std::filesystem::copy_file(test::SampleFile(), dir.File("puzzles.vlm"));
  }
};

TEST(StartUp, FirstRunCreatesTheConfigurationAndShowsAnEmptyBoard) {
  Folder f;
  GameState s;
  RecordingUi ui;
  int setCols = 0;
  StartUp(s, ui, f.dir.path(), [&] { ++setCols; });
  EXPECT_EQ(s.AppFolder, f.dir.path() + "/");
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0].rfind("Configuration file:\r\n", 0), 0u);
  EXPECT_EQ(setCols, 1);
  EXPECT_TRUE(FileExists(f.dir.File("velmora.cfg")));
  // Number 0 names no record: empty board, no file remembered.
  EXPECT_EQ(s.CurrentPuzzleFile, "");
  EXPECT_EQ(s.CurrentPuzzleNumber, 0);
  EXPECT_EQ(s.view.PuzNumNow, "");
  EXPECT_EQ(s.PuzzleCount, 3);
  EXPECT_EQ(s.Rows, 7);
  EXPECT_EQ(s.CellX[7][7], 30 + 6 * 810);
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c) EXPECT_EQ(s.Grid[r][c], 0);
  EXPECT_GE(ui.draws, 1);
  EXPECT_FALSE(ui.busy);
}

TEST(StartUp, LoadsTheRememberedPuzzleWithItsScheme) {
  Folder f;
  const std::string puzzles = f.dir.File("puzzles.vlm");
  f.dir.Write("velmora.cfg", "t\r\nsea.col\r\n" + puzzles + "\r\n 2 \r\n");
  GameState s;
  RecordingUi ui;
  StartUp(s, ui, f.dir.path() + "/", nullptr);
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(s.ColorSchemeName, "sea.col");
  EXPECT_EQ(s.Scheme[kSchemeBackground], Rgb(214, 230, 242));
  EXPECT_EQ(s.CurrentPuzzleFile, puzzles);
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(s.view.PuzNumNow, "2");
  EXPECT_EQ(s.view.MaxPuzCount, " of 3");
  EXPECT_EQ(s.view.Caption, "File: " + puzzles);
  EXPECT_NE(s.SolutionGrid[1][1], 0);
}

TEST(StartUp, FallsBackToTheDefaultFileAndThenToAnEmptyBoard) {
  {  // a remembered file that is gone: puzzles.vlm of the folder is used
    Folder f;
    f.dir.Write("velmora.cfg", "t\r\nnone.col\r\n" + f.dir.File("gone.vlm") + "\r\n1\r\n");
    GameState s;
    RecordingUi ui;
    StartUp(s, ui, f.dir.path(), nullptr);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0], "Color Scheme: none.col not found");
    EXPECT_EQ(s.ColorSchemeName, "default.col");
    EXPECT_EQ(s.CurrentPuzzleFile, f.dir.File("puzzles.vlm"));
    EXPECT_EQ(s.view.PuzNumNow, "1");
  }
  {  // a number past the end of the file: empty board
    Folder f;
    f.dir.Write("velmora.cfg", "t\r\ndefault.col\r\n" + f.dir.File("puzzles.vlm") + "\r\n 9 \r\n");
    GameState s;
    RecordingUi ui;
    StartUp(s, ui, f.dir.path(), nullptr);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(s.CurrentPuzzleFile, "");
    EXPECT_EQ(s.CurrentPuzzleNumber, 0);
    EXPECT_EQ(s.view.PuzNumNow, "");
  }
  {  // a folder with nothing in it: two messages, still an empty board
    TempDir empty;
    GameState s;
    RecordingUi ui;
    StartUp(s, ui, empty.path(), nullptr);
    EXPECT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(s.PuzzleCount, 0);
    EXPECT_EQ(s.Rows, 7);
    EXPECT_GE(ui.draws, 1);
  }
}

TEST(AppCommands, ExitSavesOnlyOnYes) {
  Folder f;
  GameState s;
  s.AppFolder = f.dir.path() + "/";
  s.CurrentPuzzleFile = "/p.vlm";
  s.CurrentPuzzleNumber = 4;
  RecordingUi ui;
  ui.answer = false;
  EXPECT_FALSE(cmdexit(s, ui));
  EXPECT_EQ(ui.questions, std::vector<std::string>{"Exit?"});
  EXPECT_FALSE(FileExists(f.dir.File("velmora.cfg")));
  ui.answer = true;
  EXPECT_TRUE(cmdexit(s, ui));
  EXPECT_NE(f.dir.Read("velmora.cfg").find("\r\n/p.vlm\r\n 4 \r\n"), std::string::npos);
  // A save that fails is reported and the program still ends.
  s.AppFolder = f.dir.path() + "/missing/";
  EXPECT_TRUE(cmdexit(s, ui));
  EXPECT_EQ(ui.messages.size(), 1u);
}

TEST(AppCommands, CancelSetsTheRequestOnce) {
  GameState s;
  RecordingUi ui;
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
