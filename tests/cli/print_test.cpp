// velmora-cli print: the PDF's pages and text as a PDF reader sees them, and
// the refusals that leave no file behind.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_support.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::RunCli;

TEST(CliPrint, PagesAndTextOfTheWrittenPdf) {
  test::TempDir dir;
  const std::string pdf = dir.File("out.pdf"), sample = test::SampleFile();
  struct Case {
    std::vector<std::string> args;
    const char* pages;
    std::vector<const char*> texts;
  };
  const Case cases[] = {
      {{"--from", "2", "--solutions"}, "Pages:           2", {"Puz#2:Sample 2", "Sol#3:Sample 3"}},
      {{"--paper", "letter"}, "Pages:           2", {"Puz#1:Sample 1", "Puz#3:Sample 3", "612 x 792"}},
      {{"--current", "2", "--what", "solution"},
       "Pages:           1",
       {"Sol#2:Sample 2", "Velmora Version 1.0"}},
  };
  for (const Case& c : cases) {
    std::vector<std::string> args{"print", sample, "--pdf", pdf};
    args.insert(args.end(), c.args.begin(), c.args.end());
    const auto r = RunCli(args);
    EXPECT_EQ(std::to_string(r.exitCode) + r.out, "0Done\n");
    const std::string q = test::Quote(pdf);
    const std::string text =
        test::RunCommand("pdftotext " + q + " -").out + test::RunCommand("pdfinfo " + q).out;
    EXPECT_NE(text.find(c.pages), std::string::npos) << text;
    for (const char* t : c.texts) EXPECT_NE(text.find(t), std::string::npos) << t;
  }
}

TEST(CliPrint, RefusalsWriteNothing) {
  test::TempDir dir;
  const std::string pdf = dir.File("out.pdf"), sample = test::SampleFile();
  const std::string none = dir.Write("none.vlm", "no records\r\n");
  struct Case {
    std::vector<std::string> args;
    std::string out;
    int exitCode;
  };
  const Case cases[] = {
      {{"print", none, "--pdf", pdf}, "No puzzles in this file: " + none + "\n", 1},
      {{"print", sample, "--pdf", pdf, "--from", "0"}, "Invalid from or to puzzle number\n", 1},
      {{"print", sample, "--pdf", pdf, "--to", "4"}, "Invalid from or to puzzle number\n", 1},
      {{"print", sample, "--pdf", pdf, "--current", "4"}, "not found\n", 1},
      {{"print", sample, "--pdf", pdf, "--from", "3", "--to", "2"}, "Done\n", 0},
      {{"print", sample, "--pdf", dir.File("no/such/dir.pdf")},
       "Error writing file: " + dir.File("no/such/dir.pdf") + "\n",
       1},
      {{"print", sample, "--pdf", pdf, "--current", "1", "--from", "1"}, "", 2},
  };
  for (const Case& c : cases) {
    const auto r = RunCli(c.args);
    EXPECT_EQ(r.out, c.out);
    EXPECT_EQ(r.exitCode, c.exitCode) << c.out;
  }
  EXPECT_FALSE(std::filesystem::exists(pdf));
}

}  // namespace
}  // namespace velmora
