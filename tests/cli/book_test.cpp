// velmora-cli book: the messages, the page counts a PDF reader sees, and the
// refusals that leave no file behind.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_support.h"

namespace velmora {
namespace {

TEST(CliBook, PageCountsMessagesAndRefusals) {
  test::TempDir dir;
  const std::string pdf = dir.File("out.pdf"), sample = test::SampleFile();
  // Record 2 breaks off after its size line.
  const std::string broken = dir.Write("b.vlm", test::Record(1, "T1") + "#2\r\nT2\r\n 7, 7, 49\r\n" +
                                                    test::Record(3, "T3", 2) + "#4\r\nT4\r\n");
  const struct {
    std::vector<std::string> args;
    std::string out;
    std::vector<std::string> shown;  // by pdfinfo and pdftotext; none: no file written
  } cases[] = {
      {{sample},
       "0:Done: 3 puzzles, 2 pages\n",
       {"Pages:           2", "Puzzle 3: Sample 3", "Not used: 2D TH KH"}},
      {{sample, "--per-page", "1", "--answers-per-page", "2", "--title", "Cards"},
       "0:Done: 3 puzzles, 6 pages\n",
       {"Pages:           6", "3 puzzles", "Level: Easy"}},
      {{sample, "--from", "2", "--per-page", "6", "--answers", "none", "--paper", "letter"},
       "0:Done: 2 puzzles, 1 page\n",
       {"Pages:           1", "612 x 792"}},
      {{broken, "--per-page", "2"},
       "0:Done: 2 puzzles, 2 pages\n2 records could not be read and were left out\n",
       {"Pages:           2", "Puzzle 2: T3"}},
      {{broken, "--from", "4"}, "1:+stderr", {}},  // nothing in the range loads
      {{sample, "--from", "3", "--to", "2"}, "1:+stderr", {}},
      {{sample, "--to", "4"}, "1:Invalid from or to puzzle number\n", {}},
      {{sample, "--per-page", "3"}, "2:+stderr", {}},
      {{sample, "--answers-per-page", "13"}, "2:+stderr", {}},
      {{sample, "--answers", "front"}, "2:+stderr", {}},
      {{}, "2:+stderr", {}},  // no FILE
  };
  for (const auto& c : cases) {
    std::vector<std::string> args{"book", "--pdf", pdf};
    args.insert(args.end(), c.args.begin(), c.args.end());
    test::ExpectPdfRun(args, pdf, c.out, c.shown);
  }
  const auto empty = test::RunCli({"book", sample, "--pdf", pdf, "--from", "3", "--to", "2"});
  EXPECT_EQ(empty.err, "velmora-cli book: nothing to print: --from 3 comes after --to 2\n");
  const std::string lost = dir.File("no/such/dir.pdf");
  EXPECT_EQ(test::CodeAndOutput({"book", sample, "--pdf", lost}), "1:Error writing file: " + lost + "\n");
  std::filesystem::create_symlink(sample, dir.File("link.pdf"));
  const auto same = test::RunCli({"book", sample, "--pdf", dir.File("link.pdf")});
  EXPECT_EQ(std::to_string(same.exitCode) + same.err,
            "1velmora-cli book: Input and output files cannot be same\n");
}

}  // namespace
}  // namespace velmora
