// velmora-cli's exit codes where a script must tell failure from success: a
// write that fails is 1, a seed that is no seed is a usage error, 2, and
// neither leaves a file behind.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_support.h"
#include "test_support.h"

namespace velmora {
namespace {

TEST(CliExitCodes, FailedWritesExitOneAndBadSeedsTwo) {
  test::TempDir dir;
  const std::string in = dir.Write("in.vlm", test::Records(2)), out = dir.File("out.vlm");
  std::filesystem::create_directory(dir.File("in_new.vlm"));  // where transform would write
  std::filesystem::create_directory(dir.File("folder.vlm"));
  const std::pair<std::vector<std::string>, int> cases[] = {
      {{"sort", in, dir.File("folder.vlm")}, 1},
      {{"transform", in, "--seed", "1"}, 1},
      {{"generate", dir.File("folder.vlm"), "--count", "1"}, 1},
      {{"generate", out, "--seed", "x"}, 2},
      {{"generate", out, "--seed", "-1"}, 2},
      {{"generate", out, "--seed", "1.5"}, 2},
      {{"generate", out, "--seed"}, 2},
      {{"transform", in, "--seed", "seven"}, 2},
      {{"sort", in, out, "--seed", "x"}, 2},
  };
  for (const auto& [args, code] : cases) {
    EXPECT_EQ(test::RunCli(args).exitCode, code) << args[0] << " " << args.back();
    EXPECT_FALSE(std::filesystem::exists(out)) << args[0] << " " << args.back();
  }
  EXPECT_EQ(dir.Read("in.vlm"), test::Records(2));
}

}  // namespace
}  // namespace velmora
