// velmora-cli count and options: the byte-for-byte output contract.
#include <gtest/gtest.h>

#include "cli/cli_support.h"
#include "files/puzzle_file.h"
#include "model/rules.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::RunCli;

TEST(CliCount, PrintsTheCountAloneOnALine) {
  test::TempDir dir;
  auto r = RunCli({"count", test::SampleFile()});
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "3\n");
  EXPECT_EQ(RunCli({"count", dir.File("missing.vlm")}).out, "0\n");
  EXPECT_EQ(RunCli({"count", dir.path()}).out, "0\n");
}

TEST(CliOptions, HandWorkedOneRowBoard) {
  test::TempDir dir;
  // Deck: 1S 2S 3S. (1,1) is free of neighbours' suits and bars rank 3 from
  // its row; (1,2) sits beside 3S, which bars spades and ranks 2..4.
  const std::string file = dir.Write("row.vlm", "#1\r\nt\r\n 1, 3, 2\r\n@@I|AEI\r\n");
  auto r = RunCli({"options", file, "1"});
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "1,1: 1S 2S\n1,2:\n1,3:\n");
}

TEST(CliOptions, MatchesTheCoreForEveryRecordAndCell) {
  for (int n = 1; n <= 3; ++n) {
    GameState s;
    SilentUserInterface ui;
    std::string title;
    ASSERT_EQ(LoadPuzzle(s, ui, test::SampleFile(), n, title, 0), 0);
    std::string expected;
    for (int r = 1; r <= 7; ++r)
      for (int c = 1; c <= 7; ++c)
        expected += std::to_string(r) + "," + std::to_string(c) + ":" + OptionText(s.CellOptions[r][c]) + "\n";
    auto out = RunCli({"options", test::SampleFile(), std::to_string(n)});
    EXPECT_EQ(out.exitCode, 0);
    EXPECT_EQ(out.out, expected);
  }
}

TEST(CliOptions, NotFoundAndUsageErrors) {
  test::TempDir dir;
  for (const char* n : {"0", "-1", "4"}) {
    auto r = RunCli({"options", test::SampleFile(), n});
    EXPECT_EQ(r.exitCode, 1) << n;
    EXPECT_EQ(r.out, "not found\n");
  }
  EXPECT_EQ(RunCli({"options", dir.Write("bad.vlm", "#1\r\nt\r\n 7, 7, 0\r\n@@u\r\n"), "1"}).out, "not found\n");
  EXPECT_EQ(RunCli({"options", test::SampleFile()}).exitCode, 2);
  EXPECT_EQ(RunCli({"options", test::SampleFile(), "x"}).exitCode, 2);
  EXPECT_EQ(RunCli({"count"}).exitCode, 2);
  EXPECT_EQ(RunCli({"frobnicate"}).exitCode, 2);
  EXPECT_EQ(RunCli({}).exitCode, 2);
  auto help = RunCli({"--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_NE(help.out.find("options FILE N"), std::string::npos);
}

}  // namespace
}  // namespace velmora
