// The configuration file: reading, the first-run and damaged-file paths, saving.
#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "files/config.h"
#include "model/text.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::TempDir;

class MessageUi : public SilentUserInterface {
 public:
  void ShowMessage(const std::string& text) override { messages.push_back(text); }
  std::vector<std::string> messages;
};

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  size_t pos = 0;
  while (pos < text.size()) {
    const size_t end = text.find("\r\n", pos);
    if (end == std::string::npos) {
      lines.push_back(text.substr(pos));
      break;
    }
    lines.push_back(text.substr(pos, end - pos));
    pos = end + 2;
  }
  return lines;
}

struct ConfigRun {
  GameState s;
  MessageUi ui;
  TempDir dir;
  explicit ConfigRun(const char* contents = nullptr) {
    s.AppFolder = dir.path() + "/";
    if (contents) dir.Write("velmora.cfg", contents);
  }
  std::string NewFileMessage() const {
    return "Configuration file:\r\n" + dir.path() + "/velmora.cfg\r\ncould not be accessed, new file will be created";
  }
};

TEST(ReadcfgFile, ReadsTheThreeRememberedValues) {
  ConfigRun run("2024-01-01 10:00:00\r\nsea.col\r\n/home/p/my puzzles.vlm\r\n 12 \r\n");
  ReadcfgFile(run.s, run.ui);
  EXPECT_TRUE(run.ui.messages.empty());
  EXPECT_EQ(run.s.ColorSchemeName, "sea.col");
  EXPECT_EQ(run.s.CurrentPuzzleFile, "/home/p/my puzzles.vlm");
  EXPECT_EQ(run.s.CurrentPuzzleNumber, 12);
}

TEST(ReadcfgFile, SchemeFieldRules) {
  {  // blanks only: the default scheme
    ConfigRun run("x\n   \nf.vlm\n3\n");
    ReadcfgFile(run.s, run.ui);
    EXPECT_EQ(run.s.ColorSchemeName, "default.col");
    EXPECT_EQ(run.s.CurrentPuzzleNumber, 3);
  }
  {  // quotes are removed, a quoted comma stays
    ConfigRun run("x\n\"my,scheme.col\"\nf.vlm\n4\n");
    ReadcfgFile(run.s, run.ui);
    EXPECT_EQ(run.s.ColorSchemeName, "my,scheme.col");
    EXPECT_EQ(run.s.CurrentPuzzleFile, "f.vlm");
  }
  {  // an unquoted comma cuts the name; the rest of the line is read as the file
    ConfigRun run("x\nab,cd\nf.vlm\n5\n");
    ReadcfgFile(run.s, run.ui);
    EXPECT_EQ(run.s.ColorSchemeName, "ab");
    EXPECT_EQ(run.s.CurrentPuzzleFile, "cd");
    EXPECT_EQ(run.s.CurrentPuzzleNumber, 0);  // "f.vlm" read as a number
  }
}

TEST(ReadcfgFile, FirstRunShowsTheMessageOnceAndCreatesTheFile) {
  ConfigRun run;
  ReadcfgFile(run.s, run.ui);
  ASSERT_EQ(run.ui.messages.size(), 1u);
  EXPECT_EQ(run.ui.messages[0], run.NewFileMessage());
  EXPECT_EQ(run.s.CurrentPuzzleNumber, 0);
  EXPECT_EQ(run.s.ColorSchemeName, "default.col");
  const auto lines = Lines(run.dir.Read("velmora.cfg"));
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_FALSE(lines[0].empty());
  EXPECT_EQ(lines[1], "default.col");
  EXPECT_EQ(lines[2], "");
  EXPECT_EQ(lines[3], "1");
  EXPECT_EQ(run.dir.Read("velmora.cfg").substr(run.dir.Read("velmora.cfg").size() - 2), "\r\n");
}

TEST(ReadcfgFile, ShortOrBadFilesTakeTheErrorPathKeepingWhatWasRead) {
  {  // two lines: the scheme read before the failure is replaced by the default
    ConfigRun run("x\r\nsea.col\r\n");
    ReadcfgFile(run.s, run.ui);
    EXPECT_EQ(run.ui.messages.size(), 1u);
    const auto lines = Lines(run.dir.Read("velmora.cfg"));
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[1], "default.col");
    EXPECT_EQ(lines[2], "");
    EXPECT_EQ(lines[3], "1");
  }
  {  // three lines: the file name read so far is written back
    ConfigRun run("x\r\nsea.col\r\n/p/f.vlm\r\n");
    run.s.CurrentPuzzleNumber = 0;
    ReadcfgFile(run.s, run.ui);
    EXPECT_EQ(run.ui.messages.size(), 1u);
    EXPECT_EQ(run.s.ColorSchemeName, "default.col");
    EXPECT_EQ(run.s.CurrentPuzzleNumber, 0);
    EXPECT_EQ(Lines(run.dir.Read("velmora.cfg"))[2], "/p/f.vlm");
  }
  {  // a number too large for an integer and an empty file
    for (const char* text : {"x\nd.col\nf\n99999999999\n", ""}) {
      ConfigRun run(text);
      ReadcfgFile(run.s, run.ui);
      EXPECT_EQ(run.ui.messages.size(), 1u) << text;
    }
  }
  {  // the configuration path is a folder: message, nothing thrown
    ConfigRun run;
    std::filesystem::create_directory(run.dir.File("velmora.cfg"));
    ReadcfgFile(run.s, run.ui);
    EXPECT_EQ(run.ui.messages.size(), 1u);
  }
}

TEST(SavecfgFile, WritesFourLinesThatReadBack) {
  ConfigRun run;
  run.s.ColorSchemeName = "sea.col";
  run.s.CurrentPuzzleFile = "/data/p.vlm";
  run.s.CurrentPuzzleNumber = 12;
  ASSERT_TRUE(SavecfgFile(run.s, run.ui));
  const auto lines = Lines(run.dir.Read("velmora.cfg"));
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[1], "sea.col");
  EXPECT_EQ(lines[2], "/data/p.vlm");
  EXPECT_EQ(lines[3], " 12 ");

  GameState back;
  back.AppFolder = run.s.AppFolder;
  ReadcfgFile(back, run.ui);
  EXPECT_TRUE(run.ui.messages.empty());
  EXPECT_EQ(back.ColorSchemeName, "sea.col");
  EXPECT_EQ(back.CurrentPuzzleFile, "/data/p.vlm");
  EXPECT_EQ(back.CurrentPuzzleNumber, 12);
}

TEST(SavecfgFile, ReportsAFolderItCannotWrite) {
  ConfigRun run;
  run.s.AppFolder = run.dir.path() + "/missing/";
  EXPECT_FALSE(SavecfgFile(run.s, run.ui));
  ASSERT_EQ(run.ui.messages.size(), 1u);
  EXPECT_EQ(run.ui.messages[0],
            "Configuration file:\r\n" + run.dir.path() + "/missing/velmora.cfg\r\ncould not be accessed, options not saved");
}

}  // namespace
}  // namespace velmora
