// velmora-cli play's marks and notes: their output is a contract.
#include <gtest/gtest.h>

#include "cli/cli_support.h"

namespace velmora {
namespace {

using test::RunCli;

TEST(CliNotes, MarksGoOnEmptyCellsUndoAndStayOutOfSavedRecords) {
  const test::TempDir dir;
  std::string text;
  ReadWholeFile(std::string(VELMORA_DATA_DIR) + "/puzzles.vlm", text);
  const std::string file = dir.Write("puzzles.vlm", text);
  const auto played =
      RunCli({"play", file, "1"},
             "mark 1 2 H\nmark 1 1 S\nmark 1 2 X\nmark 1\nboard\nmark 1 2 -\nundo\nmark 3 2 D\n"
             "select 7S\nleft 3 2\nundo\nboard\nsave " +
                 dir.File("out.vlm") + "\n");
  EXPECT_EQ(played.out,
            "error: usage: mark ROW COL S\nerror: usage: mark ROW COL S\n"
            "o>J[h@a\nAR@b@NX\nW@eTK@M\ndn@F@kB\nZ@HUl@Q\nPr@f@p_\nE@i`q@L\n"
            "o>J[h@a\nAR@b@NX\nW=eTK@M\ndn@F@kB\nZ@HUl@Q\nPr@f@p_\nE@i`q@L\n"
            "message: Puzzle number 1 added to file:\\n" +
                dir.File("out.vlm") + "\n");
  EXPECT_NE(dir.Read("out.vlm").find("o@J[h@a|"), std::string::npos);
  EXPECT_NE(dir.Read("out.vlm").find("W@eTK@M|"), std::string::npos);
}

TEST(CliNotes, NotesAreUndoStepsHiddenUnderACardAndKept) {
  const test::TempDir dir;
  std::string text;
  ReadWholeFile(std::string(VELMORA_DATA_DIR) + "/puzzles.vlm", text);
  const std::string file = dir.Write("puzzles.vlm", text);
  EXPECT_EQ(RunCli({"play", file, "1"},
                   "note 1 2 19TK\nnote 1 2 1Z\nnote 1 1 5\nmark 1 2 H\nnote 2 3 Q\nnotes\n"
                   "undo\nnotes\nredo\nselect 7S\nleft 1 2\nnotes\nundo\nnote 1 2 -\nnotes\n")
                .out,
            "error: usage: note ROW COL RANKS\n1 2 19TK\n2 3 Q\n1 2 19TK\n2 3 Q\n2 3 Q\n");
  const std::vector<std::string> keep = {"play", "--keep", "--folder", dir.path(), file, "1"};
  RunCli(keep, "note 2 3 Q\nnote 2 3 QK\nmark 1 2 C\nundo\n");
  // The kept board comes back with its note steps to undo and redo.
  EXPECT_EQ(RunCli(keep, "notes\nredo\nboard\nundo\nundo\nnotes\n").out,
            "2 3 QK\no<J[h@a\nAR@b@NX\nW@eTK@M\ndn@F@kB\nZ@HUl@Q\nPr@f@p_\nE@i`q@L\n2 3 Q\n");
  EXPECT_EQ(RunCli(keep, "reset\nnotes\n").out.find("2 3 Q"), std::string::npos);
}

}  // namespace
}  // namespace velmora
