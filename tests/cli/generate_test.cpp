// velmora-cli generate and transform: the seeded contract byte for byte, the
// count line, numbering after existing records, and a clean Ctrl-C.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "board/geometry.h"
#include "cli/cli_support.h"
#include "creation/generator.h"
#include "files/puzzle_file.h"
#include "files/text_file.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::RunCli;
using test::TempDir;

// Record i of a seeded run, made in this process from seed S + i.
std::string SeededRecord(uint64_t seed, int level, int number, const std::string& title) {
  GameState s;
  s.rng = Random::Seeded(seed);
  SilentUserInterface ui;
  int made = level;
  EXPECT_EQ(CreatePuzzle(s, ui, made), 0);
  return PuzzleRecordText(s, number, title);
}

TEST(Generate, SeededRecordsAreTheContractWhateverTheThreads) {
  TempDir dir;
  const std::string one = dir.File("one.vlm"), two = dir.File("two.vlm");
  for (const auto& [file, jobs] : {std::pair{one, "1"}, std::pair{two, "2"}}) {
    const auto r = RunCli({"generate", file, "--count", "30", "--level", "vhard", "--seed", "1000", "--jobs",
                           jobs, "--title", "Book"});
    EXPECT_EQ(std::to_string(r.exitCode) + r.out, "0 30 new puzzles added to file:\n" + file + "\n");
  }
  std::string expected;
  for (int i = 1; i <= 30; ++i)
    expected += SeededRecord(1000 + static_cast<uint64_t>(i), kLevelVHard, i, "Book");
  EXPECT_EQ(dir.Read("one.vlm"), expected);
  EXPECT_EQ(dir.Read("two.vlm"), expected);
}

TEST(Generate, AppendsAfterTheRecordsThereWithAutomaticTitles) {
  TempDir dir;
  const std::string file = dir.Write("book.vlm", test::Records(13));
  const auto more =
      RunCli({"generate", file, "--count", "3", "--level", "random", "--seed", "50", "--title", "  "});
  EXPECT_EQ(more.out, " 3 new puzzles added to file:\n" + file + "\n");
  // Numbered on after the records there; a blank title gives the automatic one.
  const std::vector<std::string> lines = test::Lines(dir.Read("book.vlm"));
  ASSERT_EQ(lines.size(), 160u);
  EXPECT_EQ(lines[130], "#14");
  EXPECT_TRUE(test::IsAutomaticTitle(lines[131])) << lines[131];
}

TEST(Generate, InterruptLeavesOnlyWholeRecords) {
  TempDir dir;
  const std::string file = dir.File("big.vlm");
  const pid_t pid =
      test::StartCli({"generate", file, "--count", "100000000", "--level", "vhard", "--jobs", "2"},
                     "/dev/null", dir.File("out.txt"), "/dev/null");
  ASSERT_GT(pid, 0);
  // Let it write some records first.
  for (int i = 0; i < 200 && FileLength(file) < 20000; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  ::kill(pid, SIGINT);
  int status = 0;
  pid_t done = 0;
  for (int i = 0; i < 1000 && (done = ::waitpid(pid, &status, WNOHANG)) == 0; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  if (done == 0) {
    ::kill(pid, SIGKILL);  // the interrupt was not honoured
    ::waitpid(pid, &status, 0);
    FAIL() << "generate went on after Ctrl-C";
  }
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 130);
  // Whole records only, and the count line says how many.
  const int records = CountPuzzles(file);
  EXPECT_EQ(dir.Read("big.vlm").substr(dir.Read("big.vlm").size() - 2), "\r\n");
  EXPECT_EQ(dir.Read("out.txt"),
            " " + std::to_string(records) + " new puzzles added to file:\n" + file + "\n");
  test::Loaded(file, records);  // some records, the last one whole
}

TEST(Transform, PrintsTheCountOrTheError) {
  TempDir dir;
  std::string record = "#1\r\nx\r\n 7, 7, 0\r\n";
  for (const char* row : {"1234567", "2345678", "3456789", "4567891", "5678912", "6789123", "7891234"})
    record += std::string(".......|") + row + "\r\n";
  const std::string in = dir.Write("n.vlm", record + record);
  const auto made = RunCli({"transform", in, "--level", "hard", "--seed", "4"});
  EXPECT_EQ(made.exitCode, 0);
  EXPECT_EQ(made.out, " 2 puzzles made\n");
  EXPECT_EQ(CountPuzzles(dir.File("n_new.vlm")), 2);
}

}  // namespace
}  // namespace velmora
