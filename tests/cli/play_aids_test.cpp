// velmora-cli play: hint and redo, compared byte for byte.
#include <gtest/gtest.h>

#include "cli/cli_support.h"
#include "test_support.h"

namespace velmora {
namespace {

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
