// velmora-cli sort: the output file byte for byte, a seeded random order that
// repeats, and a full disk.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_support.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::RunCli;

TEST(SortCli, WritesTheSortedFileAndRepeatsASeededRandomOrder) {
  test::TempDir dir;
  const std::string in = dir.Write("in.vlm", test::Record(10, "b", 3) + test::Record(2, "c", 1) +
                                                 test::Record(7, "a", 2) + test::Records(20, 30));
  const std::string out = dir.File("out.vlm");
  const auto run = RunCli({"sort", in, out, "--by", "number", "--order", "desc", "--renumber", "5"});
  EXPECT_EQ(std::to_string(run.exitCode) + run.out, "023 puzzles sorted to file:\n" + out + "\n");
  std::string expected;
  for (int i = 20; i >= 1; --i) expected += test::Record(25 - i, "T" + std::to_string(i), i - 1);
  EXPECT_EQ(dir.Read("out.vlm"),
            expected + test::Record(25, "b", 3) + test::Record(26, "a", 2) + test::Record(27, "c", 1));
  // A seeded random order repeats.
  for (const char* name : {"r1.vlm", "r2.vlm"})
    EXPECT_EQ(RunCli({"sort", in, dir.File(name), "--order", "random", "--seed", "9"}).exitCode, 0);
  EXPECT_EQ(dir.Read("r1.vlm"), dir.Read("r2.vlm"));
  // Without a seed it does not: two of the 23! orders alike would be chance.
  for (const char* name : {"u1.vlm", "u2.vlm"})
    EXPECT_EQ(RunCli({"sort", in, dir.File(name), "--order", "random"}).exitCode, 0);
  EXPECT_NE(dir.Read("u1.vlm"), dir.Read("u2.vlm"));
}

TEST(SortCli, AFullDiskLeavesTheOldOutputWithItsPermissionsAndNoOtherFile) {
  namespace fs = std::filesystem;
  test::TempDir dir;
  const std::string in = dir.Write("in.vlm", test::Records(3000)), out = dir.Write("out.vlm", "old");
  fs::permissions(out, fs::perms::owner_read | fs::perms::owner_write);
  const auto full = RunCli({"sort", in, out}, "", 200000);
  EXPECT_EQ(std::to_string(full.exitCode) + full.out, "1Unable to sort file:" + out + "\n");
  EXPECT_EQ(dir.Read("out.vlm"), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.File("")), fs::directory_iterator()), 2);
  EXPECT_EQ(RunCli({"sort", in, out}).exitCode, 0);
  EXPECT_EQ(dir.Read("out.vlm").size(), dir.Read("in.vlm").size());
  EXPECT_EQ(fs::status(out).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

}  // namespace
}  // namespace velmora
