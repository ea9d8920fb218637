// velmora-cli generate and transform: the seeded contract byte for byte, the
// count line, numbering after existing records, and a clean Ctrl-C.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <thread>

#include "board/geometry.h"
#include "cli/cli_support.h"
#include "creation/generator.h"
#include "files/puzzle_file.h"
#include "files/text_file.h"
#include "test_support.h"

extern char** environ;

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
  const auto a = RunCli({"generate", one, "--count", "30", "--level", "vhard", "--seed", "1000", "--jobs",
                         "1", "--title", "Book"});
  EXPECT_EQ(a.exitCode, 0);
  EXPECT_EQ(a.out, " 30 new puzzles added to file:\n" + one + "\n");
  const auto b = RunCli({"generate", two, "--count", "30", "--level", "vhard", "--seed", "1000", "--jobs",
                         "2", "--title", "Book"});
  EXPECT_EQ(b.exitCode, 0);
  std::string expected;
  for (int i = 1; i <= 30; ++i)
    expected += SeededRecord(1000 + static_cast<uint64_t>(i), kLevelVHard, i, "Book");
  EXPECT_EQ(dir.Read("one.vlm"), expected);
  EXPECT_EQ(dir.Read("two.vlm"), expected);
}

TEST(Generate, AppendsAfterTheRecordsThereWithAutomaticTitles) {
  TempDir dir;
  const std::string file = dir.File("book.vlm");
  ASSERT_EQ(RunCli({"generate", file, "--count", "12", "--level", "easy", "--seed", "1"}).exitCode, 0);
  const auto more =
      RunCli({"generate", file, "--count", "3", "--level", "random", "--seed", "50", "--title", "  "});
  EXPECT_EQ(more.out, " 3 new puzzles added to file:\n" + file + "\n");
  EXPECT_EQ(CountPuzzles(file), 15);
  // Numbered on after the records there; a blank title gives the automatic one.
  const std::vector<std::string> lines = test::Lines(dir.Read("book.vlm"));
  ASSERT_EQ(lines.size(), 150u);
  EXPECT_EQ(lines[130], "#14");
  EXPECT_TRUE(test::IsAutomaticTitle(lines[131])) << lines[131];
}

TEST(Generate, UsageAndFileErrors) {
  TempDir dir;
  const std::string file = dir.File("x.vlm");
  EXPECT_EQ(RunCli({"generate"}).exitCode, 2);
  EXPECT_EQ(RunCli({"generate", file, "--level", "medium"}).exitCode, 2);
  EXPECT_EQ(RunCli({"generate", file, "--count"}).exitCode, 2);
  EXPECT_EQ(RunCli({"generate", file, "--count", "-1"}).exitCode, 2);
  EXPECT_EQ(RunCli({"generate", file, "--jobs", "0"}).exitCode, 2);
  EXPECT_EQ(RunCli({"generate", file, "--colour", "red"}).exitCode, 2);
  EXPECT_EQ(RunCli({"generate", file, file}).exitCode, 2);
  EXPECT_FALSE(FileExists(file));
  EXPECT_EQ(RunCli({"generate", dir.path(), "--count", "1"}).exitCode, 1);  // a folder
  const auto none = RunCli({"generate", file, "--count", "0"});
  EXPECT_EQ(none.exitCode, 0);
  EXPECT_EQ(none.out, " 0 new puzzles added to file:\n" + file + "\n");
}

TEST(Generate, InterruptLeavesOnlyWholeRecords) {
  TempDir dir;
  const std::string file = dir.File("big.vlm");
  const std::string cli = VELMORA_CLI;
  std::vector<std::string> args = {cli,       "generate", file,     "--count", "100000000",
                                   "--level", "vhard",    "--jobs", "2"};
  std::vector<char*> argv;
  for (auto& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, dir.File("out.txt").c_str(), O_WRONLY | O_CREAT,
                                   0644);
  pid_t pid = 0;
  ASSERT_EQ(posix_spawn(&pid, cli.c_str(), &actions, nullptr, argv.data(), environ), 0);
  posix_spawn_file_actions_destroy(&actions);
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
  ASSERT_EQ(done, pid);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 130);
  std::string text;
  ASSERT_TRUE(ReadWholeFile(file, text));
  const int records = CountPuzzles(file);
  EXPECT_GT(records, 0);
  // Every record is ten whole lines, and the count line says how many.
  size_t lines = 0;
  for (char c : text) lines += c == '\n';
  EXPECT_EQ(lines, static_cast<size_t>(records) * 10);
  EXPECT_EQ(text.substr(text.size() - 2), "\r\n");
  EXPECT_EQ(dir.Read("out.txt"),
            " " + std::to_string(records) + " new puzzles added to file:\n" + file + "\n");
  test::Loaded(file, records);  // the last record reads whole
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
  EXPECT_EQ(RunCli({"transform"}).exitCode, 2);
  EXPECT_EQ(RunCli({"transform", in, "--count", "3"}).exitCode, 2);
}

}  // namespace
}  // namespace velmora
