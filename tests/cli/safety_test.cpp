// velmora-cli on a full disk, beside a second writer, with endless input, and
// when it cannot read its file or write its output.
#include <gtest/gtest.h>

#include "cli/cli_support.h"
#include "files/puzzle_file.h"
#include "files/text_file.h"
#include "model/text.h"
#include "test_support.h"

namespace velmora {
namespace {

struct Run {
  int exitCode = -1;
  std::string out, err;
};

// velmora-cli ARGS with standard input from `in`, standard output to `out`
// (a file of the folder unless given) and files limited to `limit` bytes.
Run Cli(const test::TempDir& dir, const std::vector<std::string>& args, const std::string& in = "/dev/null",
        std::string out = "", rlim_t limit = RLIM_INFINITY) {
  const bool captured = out.empty();
  if (captured) out = dir.File("out.txt");
  const pid_t child = test::StartCli(args, in, out, dir.File("err.txt"), limit);
  int status = 0;
  ::waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, captured ? dir.Read("out.txt") : "",
          dir.Read("err.txt")};
}

TEST(CliSafety, GenerateOnAFullDiskLeavesTheFileAsItWasAndSaysNothingWasAdded) {
  test::TempDir dir;
  std::string text = test::Records(3);
  text.resize(text.size() - 2);  // no line end after the last line
  const std::string file = dir.Write("f.vlm", text);
  const auto full =
      Cli(dir, {"generate", file, "--count", "3000", "--level", "easy", "--seed", "7", "--jobs", "1"},
          "/dev/null", "", text.size() + 100000);
  EXPECT_EQ(full.exitCode, 1);
  EXPECT_EQ(full.err, "velmora-cli generate: writing to " + file + " failed: File too large\n");
  EXPECT_EQ(dir.Read("f.vlm"), text);
  EXPECT_EQ(full.out, " 0 new puzzles added to file:\n" + file + "\n");
}

TEST(CliSafety, FailuresSayWhyOnStandardErrorAndExitNonZero) {
  test::TempDir dir;
  const std::string file = dir.Write("p.vlm", test::Records(2)), none = dir.File("none.vlm");
  const std::string noneText = "cannot read " + none + ": No such file or directory\n";
  const std::string longLine = dir.Write("long.txt", std::string(kMaxLineLength + 1, 'x'));
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"count", none}, "1|velmora-cli count: " + noneText},
      {{"count", "/dev/zero"}, "1|velmora-cli count: cannot read /dev/zero: not a regular file\n"},
      {{"play", none, "1"}, "1|velmora-cli play: " + noneText},
      {{"transform", none}, "1|velmora-cli transform: " + noneText},
      {{"generate", "/dev/full"}, "1|velmora-cli generate: cannot write to /dev/full: not a regular file\n"},
      {{"generate", file, "--title", "#Book 3"}, "2|velmora-cli generate: --title cannot begin with \"#\""},
      {{"generate", file, "--title", "a\r\n#9"}, "2|velmora-cli generate: --title cannot begin with \"#\""},
  };
  for (const auto& [args, expected] : cases) {
    const auto r = Cli(dir, args);
    EXPECT_EQ(std::to_string(r.exitCode) + "|" + r.err.substr(0, expected.size() - 2), expected) << args[1];
    EXPECT_EQ(r.out, "");
  }
  const auto full = Cli(dir, {"count", file}, "/dev/null", "/dev/full");
  EXPECT_EQ(std::to_string(full.exitCode) + full.err,
            "1velmora-cli: cannot write standard output: No space left on device\n");
  const auto endless = Cli(dir, {"play", file, "1"}, longLine);
  EXPECT_EQ(std::to_string(endless.exitCode) + endless.out, "1error: a line is longer than 1 MiB\n");
  LockedFile held(file, false);
  const auto second = Cli(dir, {"generate", file, "--count", "1"});
  EXPECT_EQ(std::to_string(second.exitCode) + second.err,
            "1velmora-cli generate: cannot write to " + file + ": the file is in use by another program\n");
  EXPECT_EQ(CountPuzzles(file), 2);
}

}  // namespace
}  // namespace velmora
