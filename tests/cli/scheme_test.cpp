// velmora-cli scheme: the dialog's commands headless, output and all.col byte for byte.
#include <gtest/gtest.h>

#include "cli/cli_support.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::RunCli;

std::string Scheme(const std::string& nameLine, const std::string& line) {
  std::string text = nameLine + "\r\n";
  for (int i = 0; i < 13; ++i) text += (i == 5 ? " 9; 9; 9" : i == 2 ? line : " 1; 2; 3") + std::string("\r\n");
  return text;
}

TEST(CliScheme, ListShowAddReplaceDeleteAndTheirExitCodes) {
  test::TempDir dir;
  const std::string a = Scheme("a.col", " 1; 2; 3"), b = Scheme("b.col", " 4; 5; 6");
  dir.Write("all.col", a + b);
  dir.Write("velmora.cfg", "t\r\nb.col\r\n\r\n 1 \r\n");
  std::string out;
  std::vector<int> codes;
  for (const std::vector<std::string>& args : {
           std::vector<std::string>{"show", "b"}, {"add", "New", "--background", "10,20,30"}, {"add", "new"},
           {"replace", "a", "--from", "new"}, {"replace", "b", "--no"}, {"delete", "b"}, {"delete", "new"},
           {"show", "x"}, {"list"}, {"delete"}, {"add", "c", "--background", "1,2"}}) {
    std::vector<std::string> all = {"scheme", "--folder", dir.path()};
    all.insert(all.end(), args.begin(), args.end());
    const auto r = RunCli(all);
    out += r.out;
    codes.push_back(r.exitCode);
  }
  std::string shown = " 1; 2; 3\n 1; 2; 3\n 4; 5; 6\n";  // element 5 shows element 3
  for (int i = 3; i < 13; ++i) shown += " 1; 2; 3\n";
  EXPECT_EQ(out, shown +
                     "message: Color Scheme: New added\nmessage: Color Scheme: new already exists\n"
                     "confirm: Replace color scheme: a\nmessage: Color Scheme: a replaced\n"
                     "confirm: Replace color scheme: b\n"
                     "confirm: Delete color scheme: b\nmessage: Cannot delete currently active Color Scheme\n"
                     "confirm: Delete color scheme: new\nmessage: Color Scheme: new deleted\n"
                     "message: Color Scheme: x.col not found\na\nb\n");
  EXPECT_EQ(codes, (std::vector<int>{0, 0, 1, 0, 1, 1, 0, 1, 0, 2, 2}));
  std::string replaced = "a.col\r\n";
  for (int i = 0; i < 13; ++i) replaced += i == 2 ? " 10; 20; 30\r\n" : " 1; 2; 3\r\n";
  EXPECT_EQ(dir.Read("all.col"), replaced + b);
  EXPECT_EQ(dir.Read("newall.cox"), replaced + b);
}

}  // namespace
}  // namespace velmora
