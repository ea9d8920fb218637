// velmora-cli play --keep and stats: their output is a contract.
#include <gtest/gtest.h>

#include "cli/cli_support.h"
#include "model/cards.h"

namespace velmora {
namespace {

using test::RunCli;

// Script lines that place the solution's card at the k-th blank of each
// record's givens: all of them with k = -1, the clock running `ms` before the last.
std::string Place(const std::string& file, int n, int k = -1, int ms = 0) {
  const GameState s = test::Loaded(file, n);
  std::string script, last;
  int blank = 0;
  for (int r = 1; r <= 7; ++r) {
    for (int c = 1; c <= 7; ++c) {
      if (s.puzzle.PuzzleGrid[r][c] != 0 || (k >= 0 && blank++ != k)) continue;
      script += last;
      last = "select " + CardText(s.puzzle.SolutionGrid[r][c]) + "\nleft " + std::to_string(r) + " " +
             std::to_string(c) + "\n";
    }
  }
  return script + (ms ? "clock " + std::to_string(ms) + "\n" : "") + last;
}

std::string Finish(const std::string& file, int n, int ms) {
  return "goto " + std::to_string(n) + "\n" + Place(file, n, -1, ms);
}

TEST(CliKeep, PlayKeepsAndRestoresBoardsAndStatsCountsThem) {
  const test::TempDir dir;
  std::string text;
  ReadWholeFile(std::string(VELMORA_DATA_DIR) + "/puzzles.vlm", text);
  const std::string file = dir.Write("puzzles.vlm", text), other = dir.Write("other.vlm", text);
  const std::vector<std::string> keep = {"play", "--keep", "--folder", dir.path(), file};
  auto play = [&](const std::string& n, const std::string& script) {
    std::vector<std::string> args = keep;
    args.push_back(n);
    return RunCli(args, script).out;
  };
  EXPECT_EQ(
      play("1", Finish(file, 1, 61000) + Finish(file, 2, 3000) + Finish(file, 3, 1000) +
                    Finish(file, 21, 2000) + "outcome\ngoto 42\nautosolve\ngoto 41\nclock 5000\n" +
                    Place(file, 41, 0) + Place(file, 41, 1) + "undo\nnext\nprevious\noutcome\n"),
      "message: Done\nmessage: Done\nmessage: Done\nmessage: Done\noutcome: finished, clock 0:02, hints "
      "0, undos 0\nmessage: Done\noutcome: in progress, clock 0:05, hints 0, undos 1\n");
  // The clock only runs forward, by a number of milliseconds.
  EXPECT_EQ(play("41", "board\nreset\nclock -5000\nclock x\noutcome\nclock 1\n"),
            "qWMf@@\\\n[n@A@tk\np@@Xg@J\nFa@@@L@\nh@^Qs@H\n@]@r@b@\nV@@EZ@d\n"
            "confirm: Reset puzzle from file?\nerror: usage: clock MS\nerror: usage: clock MS\n"
            "outcome: new, clock 0:00, hints 0, undos 0\n");
  EXPECT_EQ(RunCli({"play", file, "1"}, "clock 1\noutcome\n").out,
            "error: unknown command: clock\nerror: unknown command: outcome\n");
  const std::string figures = "finished: 4\nin progress: 0\nshown: 1\n";
  EXPECT_EQ(test::CodeAndOutput({"stats", "--folder", dir.path()}),
            "0:" + figures +
                "Easy: finished 3, best 0:01, median 0:03\nHard: finished 1, best 0:02, median 0:02\n");
  EXPECT_EQ(test::CodeAndOutput({"stats", other, "--folder", dir.path()}),
            "0:finished: 0\nin progress: 0\nshown: 0\n");
  dir.Write("velmora.db", "damaged");
  EXPECT_EQ(test::CodeAndOutput({"stats", "--folder", dir.path()}), "1:+stderr");
  EXPECT_EQ(dir.Read("velmora.db.damaged-1"), "damaged");
}

}  // namespace
}  // namespace velmora
