// velmora-cli solve, check, and play's hint and redo: the byte-for-byte output contract.
#include <gtest/gtest.h>

#include "cli/cli_support.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::RunCli;

TEST(CliSolve, PrintsTheResultThenTheBoardAsLettersWithMarksBelowTheAt) {
  // Deck 1S, 2S, 1C, 1H. The spades mark "?" and the hearts mark ">" sit
  // beside 2S, which bars every ace: no option, and they count as filled.
  // The clubs mark "<" may only take 1C (its neighbours bar spades and
  // hearts), so the solver puts 1C ("D") over it.
  test::TempDir dir;
  const auto r = RunCli({"solve", dir.Write("marks.vlm", "#1\r\nm\r\n 2, 2, 0\r\n?E|AE\r\n<>|DC\r\n"), "1"});
  EXPECT_EQ(std::to_string(r.exitCode) + ":" + r.out, "0:result 0\n?E\nD>\n");
}

TEST(CliCheck, StatusAndMessageWithLineBreaksWrittenOut) {
  // A spades mark whose options (3H, 5H: 1S bars spades and ranks K, 1, 2) hold no spade.
  test::TempDir dir;
  const auto r = RunCli({"check", dir.Write("mark.vlm", "#1\r\nt\r\n 1, 3, 1\r\n?A@|RAJ\r\n"), "1"});
  EXPECT_EQ(std::to_string(r.exitCode) + ":" + r.out, "0:status 1\nmessage: No match at 1 1\\nS\\n 3H 5H\n");
}

TEST(CliPlayAids, HintChangesNothingAWrongCardComesFirstRedoTakesBackAnUndo) {
  // (1, 2) takes 5D, 6D or 9D; the solution has 9D there. The redo after
  // the 9D finds nothing: a new placement ended it.
  const auto r = test::RunCli({"play", test::SolvableFile(), "1"},
                              "hint\nhint\nselect 5D\nleft 1 2\nhint\nundo\nhint\nredo\nboard\nredo\n"
                              "undo\nselect 9D\nleft 1 2\nredo\nboard\n");
  EXPECT_EQ(r.exitCode, 0);
  // Row 3's second cell is 4H in the solution; "S" is 5D, "c" 9D.
  EXPECT_EQ(r.out,
            "hint: 3,2 4H single\nhint: 3,2 4H single\nhint: 1,2 wrong\nhint: 3,2 4H single\n"
            "LSi_f@m\nYD@e@jG\nC@\\sI@U\npE@V@BO\nR@^Kr@b\ntZ@n@Tk\nF@XMo@Q\n"
            "Lci_f@m\nYD@e@jG\nC@\\sI@U\npE@V@BO\nR@^Kr@b\ntZ@n@Tk\nF@XMo@Q\n");
}

}  // namespace
}  // namespace velmora
