// velmora-cli print: the PDF's pages and text as a PDF reader sees them, and
// the refusals that leave no file behind.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_support.h"

namespace velmora {
namespace {

TEST(CliPrint, WritesThePagesAskedForOrNoFile) {
  test::TempDir dir;
  test::ScopedEnv cron("XDG_RUNTIME_DIR", std::nullopt);
  const std::string pdf = dir.File("out.pdf"), sample = test::SampleFile();
  struct Case {
    std::vector<std::string> args;
    std::string out;
    std::vector<std::string> shown;  // by pdfinfo and pdftotext; none: no file written
  };
  const Case cases[] = {
      {{"--from", "2", "--solutions"},
       "0:Done\n",
       {"Pages:           2", "Puz#2:Sample 2", "Sol#3:Sample 3"}},
      {{"--paper", "letter"},
       "0:Done\n",
       {"Pages:           2", "Puz#1:Sample 1", "Puz#3:Sample 3", "612 x 792"}},
      {{"--current", "2", "--what", "solution"}, "0:Done\n", {"Pages:           1", "Sol#2:Sample 2"}},
      {{"--from", "0"}, "1:Invalid from or to puzzle number\n", {}},
      {{"--current", "4"}, "1:not found\n", {}},
      {{"--from", "3", "--to", "2"}, "1:+stderr", {}},
      {{"--from", "3", "--to", "3"}, "0:Done\n", {"Pages:           1", "Puz#3:Sample 3"}},
      {{"--current", "1", "--from", "1"}, "2:+stderr", {}},
      {{"--current", "1", "--to", "2"}, "2:+stderr", {}},
  };
  for (const Case& c : cases) {
    std::vector<std::string> args{"print", sample, "--pdf", pdf};
    args.insert(args.end(), c.args.begin(), c.args.end());
    test::ExpectPdfRun(args, pdf, c.out, c.shown);
  }
  const std::string none = dir.Write("none.vlm", "no records\r\n"), lost = dir.File("no/such/dir.pdf");
  EXPECT_EQ(test::CodeAndOutput({"print", none, "--pdf", pdf}), "1:No puzzles in this file: " + none + "\n");
  EXPECT_EQ(test::CodeAndOutput({"print", sample, "--pdf", lost}), "1:Error writing file: " + lost + "\n");
  EXPECT_FALSE(std::filesystem::exists(pdf));
}

TEST(CliPrint, NeverPrintsOverItsOwnBookNorPrintsADamagedOneAsWhole) {
  test::TempDir dir;
  const std::string book = dir.Write("book.vlm", test::Records(3));
  std::filesystem::create_symlink("book.vlm", dir.File("link.pdf"));
  std::filesystem::create_hard_link(book, dir.File("hard.pdf"));
  for (const std::string& out :
       {book, dir.path() + "/./book.vlm", dir.File("link.pdf"), dir.File("hard.pdf"), dir.File("BOOK.VLM")}) {
    const auto r = test::RunCli({"print", book, "--pdf", out, "--current", "2"});
    EXPECT_EQ(std::to_string(r.exitCode) + r.out + r.err,
              "1velmora-cli print: Input and output files cannot be same\n")
        << out;
  }
  EXPECT_EQ(dir.Read("book.vlm"), test::Records(3));
  // A crash left a run of NULs between two records.
  const std::string damaged =
      dir.Write("d.vlm", test::Records(2) + std::string(2000000, '\0') + "\r\n" + test::Record(3, "T3"));
  const auto r = test::RunCli({"print", damaged, "--pdf", dir.File("d.pdf")});
  EXPECT_EQ(std::to_string(r.exitCode) + r.out + r.err,
            "1velmora-cli print: cannot read " + damaged + ": a line is longer than 1 MiB\n");
  EXPECT_FALSE(std::filesystem::exists(dir.File("d.pdf")));
}

}  // namespace
}  // namespace velmora
