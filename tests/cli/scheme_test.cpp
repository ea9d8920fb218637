// velmora-cli scheme: the dialog's commands headless, output and all.col byte for byte.
#include <gtest/gtest.h>

#include "cli/cli_support.h"

namespace velmora {
namespace {

// A scheme of 13 colour lines, element 2 (the background) `background`, the others `rest`.
std::string Scheme(const std::string& name, const std::string& background, const std::string& rest) {
  std::string text = name + "\r\n";
  for (int i = 0; i < 13; ++i) text += (i == 2 ? background : rest) + "\r\n";
  return text;
}

TEST(CliScheme, ListShowAddReplaceDeleteAndTheirExitCodes) {
  test::TempDir dir;
  const std::string b = Scheme("b.col", " 4; 5; 6", " 4; 5; 6");
  dir.Write("all.col", Scheme("a.col", " 7; 8; 9", " 7; 8; 9") + b);
  dir.Write("velmora.cfg", "t\r\nb.col\r\n\r\n 1 \r\n");  // b is the active scheme
  std::string out, codes;
  for (const std::vector<std::string>& args : {std::vector<std::string>{"show", "b"},
                                               {"add", "New", "--background", "0,20,255"},
                                               {"add", "new"},
                                               {"replace", "a", "--from", "new"},
                                               {"replace", "b", "--no"},
                                               {"delete", "b"},
                                               {"delete", "a", "--no"},
                                               {"delete", "new"},
                                               {"show", "x"},
                                               {"list"},
                                               {"delete"},
                                               {"add", "c", "--background", "1,2"},
                                               {"add", "c", "--background", "1,2,256"}}) {
    std::vector<std::string> all = {"scheme", "--folder", dir.path()};
    all.insert(all.end(), args.begin(), args.end());
    const auto r = test::RunCli(all);
    out += r.out;
    codes += std::to_string(r.exitCode);
  }
  std::string shown;
  for (int i = 0; i < 13; ++i) shown += " 4; 5; 6\n";
  EXPECT_EQ(out, shown +
                     "message: Color Scheme: New added\nmessage: Color Scheme: new already exists\n"
                     "confirm: Replace color scheme: a\nmessage: Color Scheme: a replaced\n"
                     "confirm: Replace color scheme: b\n"
                     "confirm: Delete color scheme: b\nmessage: Cannot delete currently active Color Scheme\n"
                     "confirm: Delete color scheme: a\n"
                     "confirm: Delete color scheme: new\nmessage: Color Scheme: new deleted\n"
                     "message: Color Scheme: x.col not found\na\nb\n");
  EXPECT_EQ(codes, "0010111010222");
  // New started from the active scheme b, with its own background; a now holds New's colours.
  EXPECT_EQ(dir.Read("all.col"), Scheme("a.col", " 0; 20; 255", " 4; 5; 6") + b);
}

}  // namespace
}  // namespace velmora
