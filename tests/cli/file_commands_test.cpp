// velmora-cli play with the puzzle-file commands: each command reaches its
// program command, and the messages, questions and files it leaves behind.
#include <gtest/gtest.h>

#include <set>

#include "cli/cli_support.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::Record;
using test::Records;
using test::RunCli;

std::string State(const std::string& file, int number, int count, const std::string& title) {
  return "file: " + file + "\nnumber: " + std::to_string(number) + "\ncount: " + std::to_string(count) +
         "\ntitle: " + title + "\n";
}

TEST(CliFiles, EveryFileCommandOnce) {
  test::TempDir dir;
  test::InDirectory here(dir.path());
  const std::string file = dir.Write("p.vlm", Records(5));
  const std::string fresh = dir.File("fresh.vlm"), copy = dir.File("copy.vlm");
  const std::string full = dir.Write("full.vlm", Record(1, "keep"));
  const auto r = RunCli({"play", file, "5"},
                        "next\nstate\nprevious\nstate\nfirst\nstate\nlast\nstate\ngoto 2\ngoto 9\nstate\n"
                        "save " +
                            fresh + "\ncopy " + copy + "\ncopy " + full +
                            "\nappend\nstate\ndelete\nstate\n"
                            "reset\nload " +
                            fresh + "\nstate\n");
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(
      r.out,
      State(file, 1, 5, "T1") + State(file, 5, 5, "T5") + State(file, 1, 5, "T1") + State(file, 5, 5, "T5") +
          State(file, 2, 5, "T2") + "message: Puzzle number 1 added to file:\\n" + fresh + "\n" +
          "message: Puzzle file saved as:\\n" + copy + "\n" + "confirm: OverWrite file: " + full + " ?\n" +
          "message: Puzzle file saved as:\\n" + full + "\n" + "confirm: Append current puzzle to file:\\n" +
          file + "\n" + "message: Puzzle#6 appended to file " + file + "\n" + State(file, 6, 6, "T2") +
          "confirm: Delete current puzzle from file:\\n" + file + "\n" + "message: Done\n" +
          State(file, 5, 5, "T5") + "confirm: Reset puzzle from file?\n" + State(fresh, 1, 1, "T2"));
  EXPECT_EQ(dir.Read("p.vlm"), Records(5));
  EXPECT_EQ(dir.Read("velmora.tmp"), Records(5));
  EXPECT_EQ(dir.Read("copy.vlm"), Records(5));
  EXPECT_EQ(dir.Read("full.vlm"), Records(5));
}

TEST(CliFiles, NoAnswersEveryQuestionNo) {
  test::TempDir dir;
  test::InDirectory here(dir.path());
  const std::string file = dir.Write("p.vlm", Records(3));
  const std::string kept = dir.Write("kept.vlm", Record(1, "keep"));
  EXPECT_EQ(RunCli({"play", "--no", file, "2"}, "copy " + kept + "\nappend\ndelete\nreset\nstate\n").out,
            "confirm: OverWrite file: " + kept + " ?\n" + "confirm: Append current puzzle to file:\\n" +
                file + "\n" + "confirm: Delete current puzzle from file:\\n" + file + "\n" +
                "confirm: Reset puzzle from file?\n" + State(file, 2, 3, "T2"));
  EXPECT_EQ(dir.Read("kept.vlm"), Record(1, "keep"));
  EXPECT_EQ(dir.Read("p.vlm"), Records(3));
}

TEST(CliFiles, RandomShowsOneOfTheRecordsNotAlwaysTheSame) {
  test::TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(3));
  std::set<int> seen;
  for (int run = 0; run < 10; ++run) {  // all ten alike: about one chance in 20,000
    const std::string out = RunCli({"play", file, "1"}, "random\nstate\n").out;
    int shown = 0;
    for (int n = 1; n <= 3; ++n)
      if (out == State(file, n, 3, "T" + std::to_string(n))) shown = n;
    ASSERT_NE(shown, 0) << out;
    seen.insert(shown);
  }
  EXPECT_GT(seen.size(), 1u);
}

}  // namespace
}  // namespace velmora
