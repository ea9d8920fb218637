// Puzzle files stay whole: full disks, a second writer, links, devices,
// endless lines and crashes in the middle of a write.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>

#include "files/file_commands.h"
#include "files/showing.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::Record;
using test::Records;
using test::Showing;
namespace fs = std::filesystem;

// Runs `body` in a child whose files may not grow past `limit` bytes, as on a
// full disk; with `crash` the child dies at the limit instead of seeing an
// error. True when the child exited with body's true.
bool Limited(rlim_t limit, bool crash, const std::function<bool()>& body) {
  const pid_t child = ::fork();
  if (child == 0) {
    std::signal(SIGXFSZ, crash ? SIG_DFL : SIG_IGN);
    const rlimit r{limit, limit};
    ::_exit(::setrlimit(RLIMIT_FSIZE, &r) == 0 && body() ? 0 : 1);
  }
  int status = 0;
  return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

std::string Last(const test::RecordingUi& ui) { return ui.messages.empty() ? "" : ui.messages.back(); }

TEST(FileSafety, AppendsOnAFullDiskLeaveTheFileAsItWasAndLaterOnesFollowWholeLines) {
  test::TempDir dir;
  std::string text = Records(3);
  text.resize(text.size() - 2);  // the last line has no line end
  const std::string file = dir.Write("p.vlm", text);
  GameState s = Showing(file, 2);
  s.view.PuzTitle = "#evil\r\n#99";
  EXPECT_TRUE(Limited(text.size() + 40, false, [&] {
    test::RecordingUi ui;
    mnuappend(s, ui);
    ui.names = {file};
    mnusaveassli(s, ui);
    return ui.messages == std::vector<std::string>{"Error apending puzzle to file: " + file,
                                                   "Error saving to file:\r\n" + file};
  }));
  EXPECT_EQ(dir.Read("p.vlm"), text);
  // With room again: the record starts on a line of its own, under a title
  // that is one line and no header, and the title box shows it so.
  test::RecordingUi ui;
  mnuappend(s, ui);
  EXPECT_EQ(Last(ui) + "|" + s.view.PuzTitle, "Puzzle#4 appended to file " + file + "| #evil  #99");
  EXPECT_EQ(CountPuzzles(file), 4);
  for (int n : {3, 4}) test::Loaded(file, n);
}

TEST(FileSafety, ASecondWriterWaitsAShortTimeThenFindsTheFileInUse) {
  test::TempDir dir;
  test::InDirectory here(dir.path());
  const std::string file = dir.Write("p.vlm", Records(3));
  GameState s = Showing(file, 2);
  test::RecordingUi ui;
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t holder = ::fork();
  if (holder == 0) {  // another program, done within the wait
    LockedFile lock(file, false);
    ::_exit(lock.ok() && ::write(ready[1], "x", 1) == 1 && ::usleep(300000) == 0 ? 0 : 1);
  }
  char c = 0;
  ASSERT_EQ(::read(ready[0], &c, 1), 1);
  mnuappend(s, ui);
  EXPECT_EQ(Last(ui), "Puzzle#4 appended to file " + file);
  ::waitpid(holder, nullptr, 0);
  {
    LockedFile held(file, false);  // one that is not
    ASSERT_TRUE(held.ok());
    mnudelete(s, ui);
    EXPECT_EQ(Last(ui), "Error saving to file:\r\n" + file);
  }
  EXPECT_EQ(CountPuzzles(file), 4);
}

TEST(FileSafety, ReplacingFollowsLinksKeepsPermissionsAndRefusesWhatIsNotAFile) {
  test::TempDir dir;
  test::InDirectory here(dir.path());
  const std::string real = dir.Write("real.vlm", Records(3)), link = dir.File("link.vlm");
  fs::create_symlink("real.vlm", link);
  fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  GameState s = Showing(link, 2);
  test::RecordingUi ui;
  mnudelete(s, ui);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(CountPuzzles(real), 2);
  EXPECT_EQ(fs::status(real).permissions(),
            fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  const std::string pipe = dir.File("pipe.vlm");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0644), 0);
  ui.names = {pipe, pipe};
  mnusaveas(s, ui);
  mnusaveassli(s, ui);  // counting would hang on the pipe
  const std::string refused = "Error saving to file:\r\n" + pipe;
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"Done", refused, refused}));
  EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST(FileSafety, ReadersRefuseDevicesAndPipesAndTakeAnEndlessLineAsDamage) {
  test::TempDir dir;
  test::InDirectory here(dir.path());
  ASSERT_EQ(::mkfifo("pipe.vlm", 0644), 0);
  for (const char* path : {"/dev/zero", "pipe.vlm", "."}) {
    EXPECT_EQ(LineReader(path).error(), kNotRegularFile) << path;
    EXPECT_EQ(CountPuzzles(path), 0);
  }
  const std::string text = Records(2) + std::string(kMaxLineLength + 1, 'x') + "\r\n" + Record(3, "T3");
  const std::string file = dir.Write("long.vlm", text);
  GameState s = Showing(file, 1);
  test::RecordingUi ui;
  mnudelete(s, ui);  // would drop the records after the long line
  EXPECT_EQ(Last(ui), "Error saving to file:\r\n" + file);
  EXPECT_EQ(dir.Read("long.vlm"), text);
}

TEST(FileSafety, ACrashWhileReplacingLeavesTheOldFileAndNoTemporaryOne) {
  test::TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(3));
  EXPECT_FALSE(Limited(100000, true, [&] { return WriteFileAtomically(file, std::string(400000, 'x')); }));
  EXPECT_EQ(dir.Read("p.vlm"), Records(3));
  dir.Write("p.vlm.velmora-Ab12Cd", "left by a writer that crashed where no nameless file could be made");
  EXPECT_TRUE(WriteFileAtomically(file, Records(2)));
  for (const auto& entry : fs::directory_iterator(dir.path())) EXPECT_EQ(entry.path().filename(), "p.vlm");
}

}  // namespace
}  // namespace velmora
