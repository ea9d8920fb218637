// velmora-cli play: every script command once, reaching its command of the
// program, compared byte for byte.
#include <gtest/gtest.h>

#include "cli/cli_support.h"

namespace velmora {
namespace {

using test::RunCli;

std::string State(const std::string& file, int number, int count, const std::string& title) {
  return "file: " + file + "\nnumber: " + std::to_string(number) + "\ncount: " + std::to_string(count) +
         "\ntitle: " + title + "\n";
}

// The solvable record's board, its first row given ("L@i_f@m" as loaded).
std::string Board(const std::string& row1) {
  return row1 + "\nYD@e@jG\nC@\\sI@U\npE@V@BO\nR@^Kr@b\ntZ@n@Tk\nF@XMo@Q\n";
}

TEST(CliPlay, EveryCommandReachesTheProgram) {
  test::TempDir dir;
  test::InDirectory here(dir.path());  // where delete writes its work file
  std::string solvable;
  ASSERT_TRUE(ReadWholeFile(test::SolvableFile(), solvable));
  const std::string file = dir.Write("p.vlm", solvable + test::Records(3, 2));
  const std::string fresh = dir.File("fresh.vlm"), copy = dir.File("copy.vlm");
  // (1, 2) takes 5D ("S"), 6D or 9D; the solution has 9D. Row 3's second cell is 4H.
  const auto r =
      RunCli({"play", file, "1"},
             "\nleft 1\r\nbogus\nselect 5D\nleft 1 2\nmove 1 2\nhint\nundo\nhint\nredo\nboard\n"
             "right 1 2\nmove 1 2\nautosolve\nremain\nrestore\nchecksolution\nshowsolution\n"
             "checksolution\nlast\nprevious\nstate\nfirst\nnext\nstate\ngoto 3\nstate\nsave " +
                 fresh + "\ncopy " + copy + "\nappend\ndelete\nreset\nload " + fresh + "\nstate\n");
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out,
            "error: usage: left R C\nerror: unknown command: bogus\nstatus: Cell 2, Card=5D\n"
            "hint: 1,2 wrong\nhint: 3,2 4H single\n" +
                Board("LSi_f@m") +
                "status: Cell 2, Options= 5D 6D 9D\nmessage: Done\nS: 8S\nH:\nD:\nC: 2C TC\n"
                "message: All ok but not done yet\nmessage: Done\n" +
                State(file, 3, 4, "T2") + State(file, 2, 4, "T1") + State(file, 3, 4, "T2") +
                "message: Puzzle number 1 added to file:\\n" + fresh + "\nmessage: Puzzle file saved as:\\n" +
                copy + "\nconfirm: Append current puzzle to file:\\n" + file +
                "\nmessage: Puzzle#5 appended to file " + file +
                "\nconfirm: Delete current puzzle from file:\\n" + file + "\nmessage: Done\n" +
                "confirm: Reset puzzle from file?\n" + State(fresh, 1, 1, "T2"));
  // --no answers every question No; random loads a record afresh (both are the same here).
  const std::string twins = dir.Write("twins.vlm", solvable + solvable);
  EXPECT_EQ(RunCli({"play", "--no", twins, "2"}, "select 5D\nleft 1 2\nrandom\nboard\nappend\n").out,
            Board("L@i_f@m") + "confirm: Append current puzzle to file:\\n" + twins + "\n");
  EXPECT_EQ(dir.Read("twins.vlm"), solvable + solvable);
}

}  // namespace
}  // namespace velmora
