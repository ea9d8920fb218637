// The configuration file: reading, the first-run and damaged-file paths, saving;
// and the start-up that reads it, with its fallbacks.
#include "files/config.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>

#include "app/startup.h"
#include "board/geometry.h"
#include "model/text.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

struct ConfigRun {
  GameState s;
  test::RecordingUi ui;
  test::TempDir dir;
  explicit ConfigRun(const char* contents = nullptr) {
    s.session.AppFolder = dir.path() + "/";
    if (contents) dir.Write("velmora.cfg", contents);
    ReadcfgFile(s.session, s.look, ui);
  }
  std::vector<std::string> Written() const { return test::Lines(dir.Read("velmora.cfg")); }
};

TEST(ReadcfgFile, FieldsOfTheThreeRememberedValues) {
  // The file, and the scheme, puzzle file and number read from it.
  const std::pair<const char*, const char*> cases[] = {
      {"x\r\nsea.col\r\n/home/p/my puzzles.vlm\r\n 12 \r\n", "sea.col|/home/p/my puzzles.vlm| 12"},
      {"x\n   \nf.vlm\n3\n", "default.col|f.vlm| 3"},                  // a blank scheme line: the default
      {"x\n\"my,scheme.col\"\nf.vlm\n4\n", "my,scheme.col|f.vlm| 4"},  // a quoted comma stays
      {"x\nab,cd\nf.vlm\n5\n", "ab|cd| 0"},  // an unquoted comma cuts; "f.vlm" is the number
  };
  for (const auto& [text, read] : cases) {
    ConfigRun run(text);
    EXPECT_EQ(run.s.look.ColorSchemeName + "|" + run.s.session.CurrentPuzzleFile + "|" +
                  Str(run.s.session.CurrentPuzzleNumber) + (run.ui.messages.empty() ? "" : "|and a message"),
              read);
  }
}

TEST(ReadcfgFile, FirstRunAndShortOrBadFilesShowTheMessageOnceAndWriteTheFileAnew) {
  // The file read, and the puzzle file name written anew (as read so far).
  const std::pair<const char*, std::string> cases[] = {{nullptr, ""},
                                                       {"", ""},
                                                       {"x\r\nsea.col\r\n", ""},
                                                       {"x\r\nsea.col\r\n/p/f.vlm\r\n", "/p/f.vlm"},
                                                       {"x\nd.col\nf\n99999999999\n", "f"}};
  for (const auto& [text, file] : cases) {
    ConfigRun run(text);
    EXPECT_EQ(run.ui.messages,
              std::vector<std::string>{"Configuration file:\r\n" + run.dir.path() +
                                       "/velmora.cfg\r\ncould not be accessed, new file will be created"});
    EXPECT_EQ(run.s.look.ColorSchemeName + Str(run.s.session.CurrentPuzzleNumber), "default.col 0");
    EXPECT_EQ(run.dir.Read("velmora.cfg"), run.Written().at(0) + "\r\ndefault.col\r\n" + file + "\r\n1\r\n");
  }
}

TEST(SavecfgFile, WritesTheFourLinesOrReportsTheFolder) {
  ConfigRun run("x\nsea.col\n/data/p.vlm\n1\n");
  run.s.session.CurrentPuzzleNumber = 12;
  ASSERT_TRUE(SavecfgFile(run.s.session, run.s.look, run.ui));
  EXPECT_EQ(run.Written()[1] + "|" + run.Written()[2] + "|" + run.Written()[3], "sea.col|/data/p.vlm| 12 ");
  run.s.session.AppFolder = run.dir.path() + "/missing/";
  EXPECT_FALSE(SavecfgFile(run.s.session, run.s.look, run.ui));
  EXPECT_EQ(run.ui.messages,
            std::vector<std::string>{"Configuration file:\r\n" + run.dir.path() +
                                     "/missing/velmora.cfg\r\ncould not be accessed, options not saved"});
}

TEST(StartUp, FallsBackToTheDefaultFileAndThenToAnEmptyBoard) {
  // The configuration ("@" stands for the folder; none: an empty folder), the
  // messages shown, and whether the default file's first puzzle is shown, else an empty board.
  const std::tuple<std::string, size_t, bool> cases[] = {
      {"t\r\nnone.col\r\n@/gone.vlm\r\n1\r\n", 1, true},           // the remembered file is gone
      {"t\r\ndefault.col\r\n@/puzzles.vlm\r\n 9 \r\n", 0, false},  // a number past the end
      {"", 2, false},
  };
  for (const auto& [config, messages, shown] : cases) {
    test::TempDir dir;
    if (!config.empty()) {
      std::filesystem::copy_file(std::string(VELMORA_DATA_DIR) + "/all.col", dir.File("all.col"));
      std::filesystem::copy_file(test::SampleFile(), dir.File("puzzles.vlm"));
      std::string text = config;
      dir.Write("velmora.cfg", text.replace(text.find('@'), 1, dir.path()));
    }
    GameState s;
    test::RecordingUi ui;
    int setCols = 0;
    StartUp(s, ui, dir.path(), [&] { ++setCols; });
    EXPECT_EQ(ui.messages.size(), messages) << config;
    EXPECT_EQ(s.session.CurrentPuzzleFile + "|" + s.view.PuzNumNow,
              shown ? dir.File("puzzles.vlm") + "|1" : "|");
    EXPECT_EQ(CountBlanks(s.puzzle) == 49 && CellX(7) == 30 + 6 * 810, !shown) << config;  // an empty 7x7
    EXPECT_TRUE(setCols == 1 && !ui.busy);
  }
}

TEST(StartUp, AbsurdlyLongConfigurationAndSchemeFilesAreTakenAsDamagedNotReadWhole) {
  test::TempDir dir;
  for (const char* name : {"velmora.cfg", "all.col"})
    std::filesystem::resize_file(dir.Write(name, "x"), 50LL << 30);
  GameState s;
  test::RecordingUi ui;
  StartUp(s, ui, dir.path(), nullptr);
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"Configuration file:\r\n" + dir.File("velmora.cfg") +
                                                       "\r\ncould not be accessed, new file will be created",
                                                   "Color Scheme: default.col not found"}));
  EXPECT_EQ(test::Lines(dir.Read("velmora.cfg")).size(), 4u);  // made anew
}

}  // namespace
}  // namespace velmora
