// velmora-cli generate and transform: the seeded contract byte for byte, the
// count line, numbering after existing records, and a clean Ctrl-C.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "cli/cli_support.h"
#include "creation/generator.h"
#include "model/cpu_level.h"

namespace velmora {
namespace {

using test::RunCli;

TEST(Generate, SeededRecordsAreTheContractWhateverTheThreadsNumberedOnAfterThoseThere) {
  test::TempDir dir;
  const std::string fresh = dir.File("fresh.vlm"), book = dir.Write("book.vlm", test::Records(13));
  std::string first, after = test::Records(13);
  for (int i = 1; i <= 30; ++i) {  // puzzle i draws from seed 1000 + i
    GameState s;
    s.session.rng = Random::Seeded(1000 + static_cast<uint64_t>(i));
    SilentUserInterface ui;
    int level = kLevelVHard;
    ASSERT_EQ(CreatePuzzle(s.puzzle, s.session, ui, level), 0);
    first += PuzzleRecordText(s.puzzle, i, "Book");
    after += PuzzleRecordText(s.puzzle, 13 + i, "Book");
  }
  // Every CPU version of the generator writes the same bytes.
  for (const CpuLevel level : SupportedCpuLevels()) {
    const test::ScopedEnv cpu("VELMORA_CPU", std::string(CpuLevelName(level)));
    dir.Write("fresh.vlm", "");
    dir.Write("book.vlm", test::Records(13));
    for (const auto& [file, jobs] : {std::pair{fresh, "1"}, std::pair{book, "2"}}) {
      const auto r = RunCli({"generate", file, "--count", "30", "--level", "vhard", "--seed", "1000",
                             "--jobs", jobs, "--title", "Book"});
      EXPECT_EQ(std::to_string(r.exitCode) + r.out, "0 30 new puzzles added to file:\n" + file + "\n");
    }
    EXPECT_EQ(dir.Read("fresh.vlm"), first) << CpuLevelName(level);
    EXPECT_EQ(dir.Read("book.vlm"), after) << CpuLevelName(level);
  }
  // A blank title gives the automatic one.
  RunCli({"generate", fresh, "--title", "  "});
  EXPECT_TRUE(test::IsAutomaticTitle(test::Lines(dir.Read("fresh.vlm")).at(301)));
}

TEST(Generate, InterruptLeavesOnlyWholeRecordsAndExits130) {
  test::TempDir dir;
  const std::string file = dir.File("big.vlm");
  const pid_t pid =
      test::Start({VELMORA_CLI, "generate", file, "--count", "100000000", "--level", "vhard", "--jobs", "2"},
                  "/dev/null", dir.File("out.txt"), "/dev/null");
  ASSERT_GT(pid, 0);
  for (int i = 0; i < 200 && FileLength(file) < 20000; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  ::kill(pid, SIGINT);
  int status = 0;
  pid_t done = 0;
  for (int i = 0; i < 1000 && (done = ::waitpid(pid, &status, WNOHANG)) == 0; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  if (done == 0) ::kill(pid, SIGKILL), ::waitpid(pid, &status, 0);
  ASSERT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, 130) << "generate went on after Ctrl-C";
  const int records = CountPuzzles(file);
  EXPECT_EQ(dir.Read("out.txt"),
            " " + std::to_string(records) + " new puzzles added to file:\n" + file + "\n");
  test::Loaded(file, records);  // the last record whole
  EXPECT_EQ(dir.Read("big.vlm").substr(dir.Read("big.vlm").size() - 2), "\r\n");
}

// An option left without its value at the end of the line is named as such,
// never read past the arguments.
TEST(Generate, AnOptionLastOnTheLineWithoutItsValueIsAUsageError) {
  test::TempDir dir;
  for (const char* option : {"--count", "--seed", "--level", "--jobs"}) {
    const auto r = RunCli({"generate", dir.File("g.vlm"), option});
    EXPECT_EQ(std::to_string(r.exitCode) + r.err.substr(0, r.err.find('\n')),
              std::string("2velmora-cli generate: ") + option + " needs a value");
  }
  EXPECT_FALSE(std::filesystem::exists(dir.File("g.vlm")));
}

TEST(Transform, PrintsTheCountAndWritesTheNewFile) {
  test::TempDir dir;
  std::string record = "#1\r\nx\r\n 7, 7, 0\r\n";
  for (const char* row : {"1234567", "2345678", "3456789", "4567891", "5678912", "6789123", "7891234"})
    record += std::string(".......|") + row + "\r\n";
  const auto made =
      RunCli({"transform", dir.Write("n.vlm", record + record), "--level", "hard", "--seed", "4"});
  EXPECT_EQ(std::to_string(made.exitCode) + made.out, "0 2 puzzles made\n");
  EXPECT_EQ(CountPuzzles(dir.File("n_new.vlm")), 2);
}

}  // namespace
}  // namespace velmora
