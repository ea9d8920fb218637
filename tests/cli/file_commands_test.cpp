// velmora-cli play: one script through the board, solve and puzzle-file
// commands, compared byte for byte, and the files it leaves behind.
#include <gtest/gtest.h>

#include "cli/cli_support.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::Record;
using test::RunCli;

std::string State(const std::string& file, int number, int count, const std::string& title) {
  return "file: " + file + "\nnumber: " + std::to_string(number) + "\ncount: " + std::to_string(count) +
         "\ntitle: " + title + "\n";
}

TEST(CliPlay, EveryCommandInOneScript) {
  test::TempDir dir;
  test::InDirectory here(dir.path());
  std::string records, solvable;
  for (int i = 2; i <= 5; ++i) records += Record(i, "T" + std::to_string(i), i);
  ASSERT_TRUE(ReadWholeFile(test::SolvableFile(), solvable));
  const std::string file = dir.Write("p.vlm", solvable + records), d = "Deduction 1";
  const std::string fresh = dir.File("fresh.vlm"), copy = dir.File("copy.vlm");
  const std::string full = dir.Write("full.vlm", Record(1, "keep"));
  // Row 1 is 3C, blank, ...; the blank takes 5D, 6D or 9D. 9D is the solution's.
  const auto r =
      RunCli({"play", file, "1"},
             "\nleft 1\r\nbogus\nselect 5D\nleft 1 2\nmove 1 2\nselect 9D\nleft 1 2\nboard\nundo\nundo\n"
             "move 1 2\nright 1 2\nmove 1 2\nmove 1 1\nmove 9 9\nautosolve\nremain\nrestore\nrestore\n"
             "checksolution\nshowsolution\nchecksolution\nautosolve\n"
             "previous\nstate\nnext\nstate\nlast\nstate\nfirst\nstate\ngoto 2\ngoto 9\nstate\nrandom\n"
             "goto 3\nsave " +
                 fresh + "\ncopy " + copy + "\ncopy " + full +
                 "\nappend\nstate\ndelete\nstate\nreset\nload " + fresh + "\nstate\n");
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(
      r.out,
      "error: usage: left R C\nerror: unknown command: bogus\nstatus: Cell 2, Card=5D\n"
      "Lci_f@m\nYD@e@jG\nC@\\sI@U\npE@V@BO\nR@^Kr@b\ntZ@n@Tk\nF@XMo@Q\n"  // 9D over 5D
      "status: Cell 2, Card=5D\nstatus: Cell 2, Options= 5D 6D 9D\nstatus: Cell 1, Fixed=3C\nstatus:\n"
      "message: Done\nS: 8S\nH:\nD:\nC: 2C TC\nmessage: Backup grid not found\n"
      "message: All ok but not done yet\nmessage: Done\nmessage: Puzzles appears to been solved!\n" +
          State(file, 5, 5, "T5") + State(file, 1, 5, d) + State(file, 5, 5, "T5") + State(file, 1, 5, d) +
          State(file, 2, 5, "T2") + "message: Puzzle number 1 added to file:\\n" + fresh + "\n" +
          "message: Puzzle file saved as:\\n" + copy + "\n" + "confirm: OverWrite file: " + full + " ?\n" +
          "message: Puzzle file saved as:\\n" + full + "\n" + "confirm: Append current puzzle to file:\\n" +
          file + "\n" + "message: Puzzle#6 appended to file " + file + "\n" + State(file, 6, 6, "T3") +
          "confirm: Delete current puzzle from file:\\n" + file + "\n" + "message: Done\n" +
          State(file, 5, 5, "T5") + "confirm: Reset puzzle from file?\n" + State(fresh, 1, 1, "T3"));
  // --no answers every question No.
  EXPECT_EQ(RunCli({"play", "--no", file, "2"}, "append\nstate\n").out,
            "confirm: Append current puzzle to file:\\n" + file + "\n" + State(file, 2, 5, "T2"));
}

}  // namespace
}  // namespace velmora
