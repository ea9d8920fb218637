// velmora-cli on a full disk, beside a second writer, with endless input, and
// when it cannot read its file or write its output.
#include <gtest/gtest.h>

#include "cli/cli_support.h"
#include "files/text_file.h"

namespace velmora {
namespace {

using test::RunCli;

TEST(CliSafety, GenerateOnAFullDiskLeavesTheFileAsItWasAndSaysNothingWasAdded) {
  test::TempDir dir;
  std::string text = test::Records(3);
  text.resize(text.size() - 2);  // no line end after the last line
  const std::string file = dir.Write("f.vlm", text);
  const auto full =
      RunCli({"generate", file, "--count", "3000", "--level", "easy", "--seed", "7", "--jobs", "1"}, "",
             text.size() + 100000);
  EXPECT_EQ(std::to_string(full.exitCode) + full.out + full.err, "1 0 new puzzles added to file:\n" + file +
                                                                     "\nvelmora-cli generate: writing to " +
                                                                     file + " failed: File too large\n");
  EXPECT_EQ(dir.Read("f.vlm"), text);
  // A new file the run could not finish is not left behind, empty or in part.
  const std::string fresh = dir.File("new.vlm");
  EXPECT_EQ(
      RunCli({"generate", fresh, "--count", "3000", "--level", "easy", "--seed", "7"}, "", 100000).exitCode,
      1);
  EXPECT_FALSE(FileExists(fresh));
}

TEST(CliSafety, FailuresSayWhyOnStandardErrorAndExitNonZero) {
  test::TempDir dir;
  const std::string file = dir.Write("p.vlm", test::Records(2)), none = dir.File("none.vlm");
  const std::string noneText = "cannot read " + none + ": No such file or directory\n";
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"count", none}, "1|velmora-cli count: " + noneText},
      {{"count", "/dev/zero"}, "1|velmora-cli count: cannot read /dev/zero: not a regular file\n"},
      {{"play", none, "1"}, "1|velmora-cli play: " + noneText},
      {{"transform", none}, "1|velmora-cli transform: " + noneText},
      {{"generate", "/dev/full"}, "1|velmora-cli generate: cannot write to /dev/full: not a regular file\n"},
      {{"generate", file, "--title", "#Book 3"}, "2|velmora-cli generate: --title cannot begin with \"#\""},
  };
  for (const auto& [args, expected] : cases) {
    const auto r = RunCli(args);
    EXPECT_EQ(std::to_string(r.exitCode) + "|" + r.out + r.err.substr(0, expected.size() - 2), expected)
        << args[1];
  }
  const auto full = RunCli({"count", file}, "", RLIM_INFINITY, "/dev/full");
  EXPECT_EQ(std::to_string(full.exitCode) + full.err,
            "1velmora-cli: cannot write standard output: No space left on device\n");
  const auto endless = RunCli({"play", file, "1"}, std::string(kMaxLineLength + 1, 'x'));
  EXPECT_EQ(std::to_string(endless.exitCode) + endless.out, "1error: a line is longer than 1 MiB\n");
  LockedFile held(file, false);
  const auto second = RunCli({"generate", file, "--count", "1"});
  EXPECT_EQ(std::to_string(second.exitCode) + second.err,
            "1velmora-cli generate: cannot write to " + file + ": the file is in use by another program\n");
  EXPECT_EQ(dir.Read("p.vlm"), test::Records(2));
}

}  // namespace
}  // namespace velmora
