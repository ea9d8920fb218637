// Start-up's fallbacks and the progress panel's Cancel, over a recording user interface.
#include "app/startup.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "app/app_commands.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

TEST(StartUp, FallsBackToTheDefaultFileAndThenToAnEmptyBoard) {
  const struct {
    const char* name;
    bool files;
    std::string config;  // "@" stands for the folder
    size_t messages;
    std::string file;
  } cases[] = {
      {"remembered file gone", true, "t\r\nnone.col\r\n@/gone.vlm\r\n1\r\n", 1, "@/puzzles.vlm"},
      {"number past the end", true, "t\r\ndefault.col\r\n@/puzzles.vlm\r\n 9 \r\n", 0, ""},
      {"empty folder", false, "", 2, ""},
  };
  for (const auto& c : cases) {
    test::TempDir dir;
    const auto here = [&](std::string text) {
      if (const size_t at = text.find('@'); at != std::string::npos) text.replace(at, 1, dir.path());
      return text;
    };
    if (c.files) {
      std::filesystem::copy_file(std::string(VELMORA_DATA_DIR) + "/all.col", dir.File("all.col"));
      std::filesystem::copy_file(test::SampleFile(), dir.File("puzzles.vlm"));
      dir.Write("velmora.cfg", here(c.config));
    }
    GameState s;
    test::RecordingUi ui;
    int setCols = 0;
    StartUp(s, ui, dir.path(), [&] { ++setCols; });
    EXPECT_EQ(ui.messages.size(), c.messages) << c.name;
    EXPECT_EQ(setCols, 1);
    EXPECT_EQ(s.CurrentPuzzleFile, here(c.file)) << c.name;
    EXPECT_EQ(s.view.PuzNumNow, c.file.empty() ? "" : "1") << c.name;
    int filled = 0;  // none on the empty 7x7 board
    for (int r = 1; r <= 7; ++r)
      for (int col = 1; col <= 7; ++col) filled += s.Grid[r][col] != 0;
    EXPECT_EQ(filled > 0, !c.file.empty()) << c.name;
    EXPECT_EQ(s.CellX[7][7], 30 + 6 * 810) << c.name;
    EXPECT_FALSE(ui.busy);
  }
}

TEST(AppCommands, CancelSetsTheRequestOnce) {
  GameState s;
  test::RecordingUi ui;
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
