// velmora-cli solve, check and play: the byte-for-byte output contract.
#include <gtest/gtest.h>

#include "cli/cli_support.h"
#include "model/solver.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::RunCli;

std::string Solvable() { return test::SolvableFile(); }

// The puzzle and the solution letters of solvable.vlm.
const char* const kPuzzle = "L@i_f@m\nYD@e@jG\nC@\\sI@U\npE@V@BO\nR@^Kr@b\ntZ@n@Tk\nF@XMo@Q\n";
const char* const kSolution = "Lci_fPm\nYDSeWjG\nCN\\sIdU\npEgV`BO\nRl^Kr[b\ntZAnaTk\nFqXMoJQ\n";

TEST(CliSolve, PrintsResultThenTheBoardAsLettersAndMarksBelowTheAt) {
  EXPECT_EQ(RunCli({"solve", Solvable(), "1"}).out, std::string("result 0\n") + kSolution);
  // A stuck puzzle prints what the solver got to.
  GameState s = test::Loaded(test::SampleFile());
  SilentUserInterface ui;
  ASSERT_EQ(SolveGrid(s, ui), 1);
  std::string board;
  for (int row = 1; row <= 7; ++row) {
    for (int col = 1; col <= 7; ++col) board += static_cast<char>(64 + s.Grid[row][col]);
    board += '\n';
  }
  EXPECT_EQ(RunCli({"solve", test::SampleFile(), "1"}).out, "result 1\n" + board);
  // Deck 1S, 2S, 1C, 1H. The spades mark "?" and the hearts mark ">" sit
  // beside 2S, which bars every ace: no option, and they count as filled.
  // The clubs mark "<" may only take 1C (its neighbours bar spades and
  // hearts), so the solver puts 1C ("D") over it.
  test::TempDir dir;
  const auto r = RunCli({"solve", dir.Write("marks.vlm", "#1\r\nm\r\n 2, 2, 0\r\n?E|AE\r\n<>|DC\r\n"), "1"});
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "result 0\n?E\nD>\n");
}

TEST(CliSolveCheck, NotFoundMalformedAndUsage) {
  test::TempDir dir;
  // The three commands share their loading: every way to miss is tried on one.
  for (const char* n : {"0", "-2", "4", "99999999999"}) {
    const auto r = RunCli({"solve", test::SampleFile(), n});
    EXPECT_EQ(r.exitCode, 1) << n;
    EXPECT_EQ(r.out, "not found\n") << n;
  }
  // A letter past "t" has no card; a short cell line; a missing file.
  for (const std::string& file :
       {dir.Write("u.vlm", "#1\r\nt\r\n 1, 1, 0\r\nu|A\r\n"),
        dir.Write("short.vlm", "#1\r\nt\r\n 1, 3, 0\r\nA|A\r\n"), dir.File("none.vlm")})
    EXPECT_EQ(RunCli({"check", file, "1"}).out, "not found\n") << file;
  for (const char* command : {"solve", "check", "play"}) {
    EXPECT_EQ(RunCli({command, test::SampleFile(), "4"}).out, "not found\n") << command;
    EXPECT_EQ(RunCli({command, Solvable()}).exitCode, 2) << command;
    EXPECT_EQ(RunCli({command, Solvable(), "one"}).exitCode, 2) << command;
  }
  // A board of no cells loads: nothing is empty, and nothing to print.
  const std::string none = dir.Write("none.vlm", "#1\r\nt\r\n 0, 0, 0\r\n");
  EXPECT_EQ(RunCli({"solve", none, "1"}).out, "result 0\n");
  EXPECT_EQ(RunCli({"check", none, "1"}).out, "status 0\nmessage: \n");
}

TEST(CliCheck, StatusAndMessageWithLineBreaksWrittenOut) {
  test::TempDir dir;
  EXPECT_EQ(RunCli({"check", Solvable(), "1"}).out, "status 0\nmessage: \n");
  // Deck 2S, 1S: the blank beside 1S has nothing left.
  EXPECT_EQ(RunCli({"check", dir.Write("dead.vlm", "#1\r\nt\r\n 1, 2, 1\r\n@A|EA\r\n"), "1"}).out,
            "status 1\nmessage: Cell 1, 1 - invalid value\n");
  // A spades mark whose options (3H, 5H: 1S bars spades and ranks K, 1, 2)
  // hold no spade.
  EXPECT_EQ(RunCli({"check", dir.Write("mark.vlm", "#1\r\nt\r\n 1, 3, 1\r\n?A@|RAJ\r\n"), "1"}).out,
            "status 1\nmessage: No match at 1 1\\nS\\n 3H 5H\n");
  std::string full = "#1\r\nfull\r\n 7, 7, 0\r\n";
  const std::string solution = kSolution;
  for (size_t row = 0; row < 7; ++row)
    full += solution.substr(row * 8, 7) + "|" + solution.substr(row * 8, 7) + "\r\n";
  EXPECT_EQ(RunCli({"check", dir.Write("full.vlm", full), "1"}).out, "status 99\nmessage: Done\n");
}

TEST(CliPlay, BadLinesThenPlaceExchangeUndoAndStatus) {
  // Bad lines print an error and play goes on; XX and 5d name no item, so
  // nothing is chosen or placed before "select 5D".
  const std::string script =
      "\nleft 1\r\nmove a b\nselect\nselect XX\nselect 5d\nleft 1 2\nundo\nundo extra\n"
      "move 1 1\nmove 1 2\r\nselect 5D\nleft 1 2\nmove 1 2\nselect 9D\nleft 1 2\nboard\n"
      "undo\nundo\nmove 1 2\nboard\nright 1 1\nmove 1 1\nmove 9 9\n";
  const auto r = RunCli({"play", Solvable(), "1"}, script);
  EXPECT_EQ(r.exitCode, 0);
  std::string exchanged = kPuzzle, undone = kPuzzle;
  exchanged[1] = 'c';  // 9D, card 35
  undone[1] = 'S';     // 5D, card 19, back after two undos
  EXPECT_EQ(r.out,
            "error: usage: left R C\nerror: usage: move R C\nerror: usage: select CARD\nerror: usage: undo\n"
            "status: Cell 1, Fixed=3C\n"
            "status: Cell 2, Options= 5D 6D 9D\n"
            "status: Cell 2, Card=5D\n" +
                exchanged + "status: Cell 2, Card=5D\n" + undone +
                "status: Cell 1, Options=\n"
                "status:\n");
}

TEST(CliPlay, SolveRestoreCheckAndPanels) {
  const std::string script =
      "remain\nautosolve\nremain\nrestore\nrestore\nboard\ncheckslution\nchecksolution\n"
      "showsolution\nchecksolution\nautosolve\n";
  auto r = RunCli({"play", Solvable(), "1"}, script);
  // The panels before: every card of the deck that is not a given.
  const GameState s = test::Loaded(Solvable());
  std::string panels;
  const char* names[4] = {"S:", "H:", "D:", "C:"};
  for (int list = 0; list < 4; ++list) {
    panels += names[list];
    for (const auto& item : s.Remain[list]) panels += " " + item;
    panels += "\n";
  }
  EXPECT_EQ(r.out, panels +
                       "message: Done\n"
                       // 8S, 2C and TC are the cards the solution leaves out.
                       "S: 8S\nH:\nD:\nC: 2C TC\n"
                       "message: Backup grid not found\n" +
                       kPuzzle +
                       "error: unknown command: checkslution\n"
                       "message: All ok but not done yet\n"
                       "message: Done\n"
                       "message: Puzzles appears to been solved!\n");
}

}  // namespace
}  // namespace velmora
