// velmora-cli count and options, and the exit codes every subcommand shares.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "cli/cli_support.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::RunCli;

TEST(CliCountOptions, WholeOutput) {
  test::TempDir dir;
  const auto count = RunCli({"count", test::SampleFile()});
  EXPECT_EQ(std::to_string(count.exitCode) + ":" + count.out, "0:3\n");
  // Deck: 1S 2S 3S. (1,1) is free of neighbours' suits and bars rank 3 from
  // its row; (1,2) sits beside 3S, which bars spades and ranks 2..4.
  const auto options = RunCli({"options", dir.Write("row.vlm", "#1\r\nt\r\n 1, 3, 2\r\n@@I|AEI\r\n"), "1"});
  EXPECT_EQ(std::to_string(options.exitCode) + ":" + options.out, "0:1,1: 1S 2S\n1,2:\n1,3:\n");
}

TEST(CliErrors, NotFoundIsExitOneAndUsageErrorsExitTwoWithNothingPrinted) {
  // S the sample file, V the solvable one.
  const std::string keys = "SV", paths[] = {test::SampleFile(), test::SolvableFile()};
  // Exit code 1 prints "not found", 2 (a usage error) nothing on standard output.
  for (const char* c :
       {"options S 4=1", "check S 0=1", "solve S 99999999999=1", "options S=2", "options S x=2", "solve V=2",
        "check V one=2", "play V=2", "count=2", "frobnicate=2", "=2"}) {
    const std::string line = c;
    const size_t eq = line.find('=');
    std::vector<std::string> args;
    std::istringstream words(line.substr(0, eq));
    for (std::string w; words >> w;)
      args.push_back(keys.find(w) != std::string::npos ? paths[keys.find(w)] : w);
    const auto r = RunCli(args);
    EXPECT_EQ(std::to_string(r.exitCode) + ":" + r.out,
              line.substr(eq + 1) + (line.back() == '1' ? ":not found\n" : ":"))
        << line;
  }
}

// Where a script must tell failure from success: a write that fails is 1, a
// bad option (a seed that is no seed among them) 2, and neither leaves a file.
TEST(CliExitCodes, FailedWritesExitOneAndUsageErrorsTwo) {
  test::TempDir dir;
  const std::string in = dir.Write("in.vlm", test::Records(2)), out = dir.File("out.vlm");
  std::filesystem::create_directory(dir.File("in_new.vlm"));  // where transform would write
  std::filesystem::create_directory(dir.File("folder.vlm"));
  const std::pair<std::vector<std::string>, int> cases[] = {
      {{"sort", in, dir.File("folder.vlm")}, 1},
      {{"sort", in, dir.File("IN.vlm")}, 1},  // the same file, refused
      {{"transform", in, "--seed", "1"}, 1},
      {{"generate", dir.File("folder.vlm"), "--count", "1"}, 1},
      {{"generate", out, "--seed", "x"}, 2},
      {{"generate", out, "--seed", "-1"}, 2},
      {{"generate", out, "--seed", "1.5"}, 2},
      {{"generate", out, "--seed"}, 2},
      {{"generate"}, 2},
      {{"generate", out, "--level", "medium"}, 2},
      {{"generate", out, "--count", "-1"}, 2},
      {{"generate", out, "--jobs", "0"}, 2},
      {{"generate", out, "--colour", "red"}, 2},
      {{"generate", out, out}, 2},
      {{"transform", in, "--seed", "seven"}, 2},
      {{"transform", in, "--count", "3"}, 2},
      {{"transform"}, 2},
      {{"sort", in, out, "--seed", "x"}, 2},
      {{"sort", in}, 2},
      {{"sort", in, out, "--by", "colour"}, 2},
      {{"sort", in, out, "--order"}, 2},
  };
  for (const auto& [args, code] : cases) {
    EXPECT_EQ(test::RunCli(args).exitCode, code) << args[0] << " " << args.back();
    EXPECT_FALSE(std::filesystem::exists(out)) << args[0] << " " << args.back();
  }
  EXPECT_EQ(dir.Read("in.vlm"), test::Records(2));
}

}  // namespace
}  // namespace velmora
