// velmora-cli count and options: the byte-for-byte output contract.
#include <gtest/gtest.h>

#include "cli/cli_support.h"
#include "model/rules.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::RunCli;

TEST(CliCount, PrintsTheCountAloneOnALineAndZeroForWhatIsNoFile) {
  test::TempDir dir;
  const auto r = RunCli({"count", test::SampleFile()});
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "3\n");
  EXPECT_EQ(RunCli({"count", dir.File("missing.vlm")}).out, "0\n");
  EXPECT_EQ(RunCli({"count", dir.path()}).out, "0\n");
}

TEST(CliOptions, EveryCellOfTheRecordAskedFor) {
  test::TempDir dir;
  // Deck: 1S 2S 3S. (1,1) is free of neighbours' suits and bars rank 3 from
  // its row; (1,2) sits beside 3S, which bars spades and ranks 2..4.
  const auto row = RunCli({"options", dir.Write("row.vlm", "#1\r\nt\r\n 1, 3, 2\r\n@@I|AEI\r\n"), "1"});
  EXPECT_EQ(row.exitCode, 0);
  EXPECT_EQ(row.out, "1,1: 1S 2S\n1,2:\n1,3:\n");
  // Record 3, not the first, is the one printed.
  const GameState s = test::Loaded(test::SampleFile(), 3);
  std::string expected;
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c)
      expected += std::to_string(r) + "," + std::to_string(c) + ":" + OptionText(s.CellOptions[r][c]) + "\n";
  EXPECT_EQ(RunCli({"options", test::SampleFile(), "3"}).out, expected);
}

TEST(CliOptions, NotFoundAndUsageErrors) {
  test::TempDir dir;
  for (const char* n : {"0", "-1", "4"}) {
    const auto r = RunCli({"options", test::SampleFile(), n});
    EXPECT_EQ(r.exitCode, 1) << n;
    EXPECT_EQ(r.out, "not found\n");
  }
  EXPECT_EQ(RunCli({"options", dir.Write("bad.vlm", "#1\r\nt\r\n 7, 7, 0\r\n@@u\r\n"), "1"}).out,
            "not found\n");
  for (const std::vector<std::string>& args :
       std::vector<std::vector<std::string>>{{"options", test::SampleFile()},
                                             {"options", test::SampleFile(), "x"},
                                             {"count"},
                                             {"frobnicate"},
                                             {}})
    EXPECT_EQ(RunCli(args).exitCode, 2) << (args.empty() ? "" : args[0]);
  const auto help = RunCli({"--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_NE(help.out.find("options FILE N"), std::string::npos);
}

}  // namespace
}  // namespace velmora
