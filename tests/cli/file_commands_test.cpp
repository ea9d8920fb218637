// velmora-cli play with the puzzle-file commands: messages, questions and the files left behind.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_support.h"
#include "files/puzzle_file.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::RunCli;
using test::TempDir;

// The command runs in `dir`, so the delete command's velmora.tmp lands there.
class InDirectory {
 public:
  explicit InDirectory(const std::string& dir) : old_(std::filesystem::current_path()) {
    std::filesystem::current_path(dir);
  }
  ~InDirectory() {
    std::error_code ec;
    std::filesystem::current_path(old_, ec);
  }

 private:
  std::filesystem::path old_;
};

std::string Record(int header, const std::string& title, int k = 0) {
  std::string text = "#" + std::to_string(header) + "\r\n" + title + "\r\n 7, 7, 49\r\n";
  for (int r = 0; r < 7; ++r) {
    std::string solution;
    for (int c = 0; c < 7; ++c) solution += static_cast<char>('A' + (k + c) % 52);
    text += "@@@@@@@|" + solution + "\r\n";
  }
  return text;
}

std::string Records(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += Record(i + 1, "T" + std::to_string(i + 1), i);
  return text;
}

std::string State(const std::string& file, int number, int count, const std::string& title) {
  return "file: " + file + "\nnumber: " + std::to_string(number) + "\ncount: " + std::to_string(count) +
         "\ntitle: " + title + "\n";
}

TEST(CliFiles, ArrowsAndTypedNumbers) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(10));
  auto r = RunCli({"play", file, "1"},
                  "state\nprevious\nstate\nnext\nnext\nstate\nlast\nstate\nfirst\nstate\n"
                  "goto 7\nstate\ngoto 11\ngoto\ngoto x\nstate\n");
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, State(file, 1, 10, "T1") + State(file, 10, 10, "T10") + State(file, 2, 10, "T2") +
                       State(file, 10, 10, "T10") + State(file, 1, 10, "T1") + State(file, 7, 10, "T7") +
                       State(file, 7, 10, "T7"));

  for (int i = 0; i < 5; ++i) {
    auto random = RunCli({"play", file, "3"}, "random\nstate\n");
    const size_t at = random.out.find("number: ");
    ASSERT_NE(at, std::string::npos);
    const int n = std::stoi(random.out.substr(at + 8));
    EXPECT_GE(n, 1);
    EXPECT_LE(n, 10);
    EXPECT_NE(random.out.find("title: T" + std::to_string(n) + "\n"), std::string::npos);
  }

  // One puzzle: the arrows do nothing, and Delete says so.
  const std::string one = dir.Write("one.vlm", Record(1, "only"));
  EXPECT_EQ(RunCli({"play", one, "1"}, "next\nprevious\nlast\nrandom\ndelete\nstate\n").out,
            "message: There is only one puzzle in this file\n" + State(one, 1, 1, "only"));
}

TEST(CliFiles, SaveCopyAndLoad) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(3));
  const std::string fresh = dir.File("fresh.vlm");
  const std::string copy = dir.File("copy.vlm");
  const std::string full = dir.Write("full.vlm", Record(1, "keep"));
  auto r = RunCli({"play", file, "2"},
                  "save " + fresh + "\nsave " + fresh + "\nsave\ncopy " + copy + "\ncopy " + full + "\ncopy\n" +
                      "copy " + dir.File("none/x.vlm") + "\nstate\n");
  EXPECT_EQ(r.out, "message: Puzzle number 1 added to file:\\n" + fresh + "\n" +
                       "message: Puzzle number 2 added to file:\\n" + fresh + "\n" +
                       "message: Puzzle file saved as:\\n" + copy + "\n" +
                       "confirm: OverWrite file: " + full + " ?\n" +
                       "message: Puzzle file saved as:\\n" + full + "\n" +
                       "message: Error saving to file:\\n" + dir.File("none/x.vlm") + "\n" + State(file, 2, 3, "T2"));
  EXPECT_EQ(dir.Read("fresh.vlm").substr(0, 8), "#1\r\nT2\r\n");
  EXPECT_EQ(CountPuzzles(fresh), 2);
  EXPECT_EQ(dir.Read("copy.vlm"), Records(3));
  EXPECT_EQ(dir.Read("full.vlm"), Records(3));

  // --no keeps a non-empty file from being overwritten.
  const std::string kept = dir.Write("kept.vlm", Record(1, "keep"));
  EXPECT_EQ(RunCli({"play", "--no", file, "1"}, "copy " + kept + "\n").out,
            "confirm: OverWrite file: " + kept + " ?\n");
  EXPECT_EQ(dir.Read("kept.vlm"), Record(1, "keep"));

  // Load shows the first puzzle; a cancelled dialog does nothing.
  EXPECT_EQ(RunCli({"play", file, "3"}, "load\nload " + kept + "\nstate\n").out, State(kept, 1, 1, "keep"));
}

TEST(CliFiles, AppendResetAndDelete) {
  TempDir dir;
  InDirectory here(dir.path());
  const std::string file = dir.Write("p.vlm", Records(5));
  auto r = RunCli({"play", file, "5"}, "append\nstate\ndelete\nstate\ngoto 1\ndelete\nstate\nreset\n");
  EXPECT_EQ(r.out, "confirm: Append current puzzle to file:\\n" + file + "\n" +
                       "message: Puzzle#6 appended to file " + file + "\n" + State(file, 6, 6, "T5") +
                       "confirm: Delete current puzzle from file:\\n" + file + "\n" + "message: Done\n" +
                       State(file, 5, 5, "T5") + "confirm: Delete current puzzle from file:\\n" + file + "\n" +
                       "message: Done\n" + State(file, 1, 4, "T2") + "confirm: Reset puzzle from file?\n");
  const std::string after = dir.Read("p.vlm");
  EXPECT_EQ(after, Record(2, "T2", 1) + Record(3, "T3", 2) + Record(4, "T4", 3) + Record(5, "T5", 4));
  EXPECT_EQ(dir.Read("velmora.tmp"), after);

  // Every question answered No: nothing changes.
  auto no = RunCli({"play", "--no", file, "2"}, "append\ndelete\nreset\nstate\n");
  EXPECT_EQ(no.out, "confirm: Append current puzzle to file:\\n" + file + "\n" +
                        "confirm: Delete current puzzle from file:\\n" + file + "\n" +
                        "confirm: Reset puzzle from file?\n" + State(file, 2, 4, "T3"));
  EXPECT_EQ(dir.Read("p.vlm"), after);

  // Appending to a file in a folder that is not there.
  const std::string gone = dir.File("none/p.vlm");
  EXPECT_EQ(RunCli({"play", file, "1"}, "load " + gone + "\nappend\n").out,
            "confirm: Append current puzzle to file:\\n" + gone + "\n" + "message: Error apending puzzle to file: " +
                gone + "\n");
}

}  // namespace
}  // namespace velmora
