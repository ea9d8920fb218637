// velmora-cli count, options, solve and check, and the exit codes every
// subcommand shares.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>

#include "cli/cli_support.h"

namespace velmora {
namespace {

using test::CodeAndOutput;

TEST(CliRecordCommands, CountOptionsSolveAndCheckPrintTheirResults) {
  test::TempDir dir;
  EXPECT_EQ(CodeAndOutput({"count", test::SampleFile()}), "0:3\n");
  // Deck 1S 2S 3S: (1,1) bars rank 3 from its row; (1,2) beside 3S bars spades and ranks 2..4.
  EXPECT_EQ(CodeAndOutput({"options", dir.Write("row.vlm", "#1\r\nt\r\n 1, 3, 2\r\n@@I|AEI\r\n"), "1"}),
            "0:1,1: 1S 2S\n1,2:\n1,3:\n");
  // Deck 1S 2S 1C 1H. The spades mark "?" and hearts mark ">" beside 2S have
  // no option and count as filled; the clubs mark "<" only takes 1C ("D").
  EXPECT_EQ(
      CodeAndOutput({"solve", dir.Write("marks.vlm", "#1\r\nm\r\n 2, 2, 0\r\n?E|AE\r\n<>|DC\r\n"), "1"}),
      "0:result 0\n?E\nD>\n");
  // A spades mark whose options (3H, 5H) hold no spade; the message's line breaks written out.
  EXPECT_EQ(CodeAndOutput({"check", dir.Write("mark.vlm", "#1\r\nt\r\n 1, 3, 1\r\n?A@|RAJ\r\n"), "1"}),
            "0:status 1\nmessage: No match at 1 1\\nS\\n 3H 5H\n");
}

// Where a script must tell failure from success: a record not found or a
// write that fails is 1, a usage error (a bad --seed among them) 2, and
// none of them leaves a file.
TEST(CliExitCodes, FailuresExitOneUsageErrorsTwoAndNoneWritesAFile) {
  test::TempDir dir;
  // S and V the sample and solvable files, I two records, O a file no run
  // may write, D a folder; so is I's "_new" file, where transform writes.
  const std::map<std::string, std::string> names = {
      {"S", test::SampleFile()},  {"V", test::SolvableFile()}, {"I", dir.Write("in.vlm", test::Records(2))},
      {"O", dir.File("out.vlm")}, {"D", dir.File("d.vlm")},    {"I2", dir.File("IN.vlm")}};
  std::filesystem::create_directory(dir.File("d.vlm"));
  std::filesystem::create_directory(dir.File("in_new.vlm"));
  // After "=": the exit code, then what standard output begins with; a
  // usage error shows nothing there, only on standard error.
  std::istringstream cases(
      "options S 4=1:not found;check S 0=1:not found;solve S 99999999999=1:not found;"
      "sort I D=1:Unable to sort file:;sort I I2=1:Input and output files cannot be same;"
      "transform I --seed 1=1:error?;generate D --count 1=1:;"
      "options S=2:+stderr;options S x=2:+stderr;solve V=2:+stderr;check V one=2:+stderr;"
      "play V=2:+stderr;count=2:+stderr;frobnicate=2:+stderr;=2:+stderr;generate O --seed x=2:+stderr;"
      "generate O --seed -1=2:+stderr;generate O --seed=2:+stderr;generate=2:+stderr;"
      "generate O --level medium=2:+stderr;generate O --count -1=2:+stderr;generate O --jobs 0=2:+stderr;"
      "generate O --colour red=2:+stderr;generate O O=2:+stderr;transform I --count 3=2:+stderr;"
      "transform=2:+stderr;sort I O --seed x=2:+stderr;sort I=2:+stderr;sort I O --by x=2:+stderr;"
      "sort I O --order=2:+stderr");
  for (std::string c; std::getline(cases, c, ';');) {
    std::vector<std::string> args;
    std::istringstream words(c.substr(0, c.find('=')));
    for (std::string w; words >> w;) args.push_back(names.count(w) ? names.at(w) : w);
    const std::string out = CodeAndOutput(args), expected = c.substr(c.find('=') + 1);
    EXPECT_EQ(expected[0] == '2' ? out : out.substr(0, expected.size()), expected) << c;
    EXPECT_FALSE(std::filesystem::exists(names.at("O"))) << c;
  }
  EXPECT_EQ(dir.Read("in.vlm"), test::Records(2));
}

}  // namespace
}  // namespace velmora
