// File and Puzzle menu commands, the arrows and the typed number, on real
// files; and the files staying whole whatever happens while they are written.
#include "files/file_commands.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <tuple>

#include "appearance/color_scheme.h"
#include "appearance/scheme_options.h"
#include "board/play.h"
#include "files/sort.h"
#include "model/text.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::Record;
using test::Records;
using Strings = std::vector<std::string>;
namespace fs = std::filesystem;

// Record n of `file` on show as after start-up, the program folder beside it.
GameState Showing(const std::string& file, int n) {
  GameState s = test::Loaded(file, n);
  s.session.AppFolder = fs::path(file).parent_path().string() + "/";
  s.session.CurrentPuzzleFile = file;
  return s;
}

// What the puzzle fields show: "2 of 3 T2".
std::string Shown(const GameState& s) {
  return NumText(s.session.CurrentPuzzleNumber) + s.view.MaxPuzCount + " " + s.view.PuzTitle;
}

// A folder whose p.vlm holds `count` records T1, T2, ..., record n on show.
struct Desk {
  Desk(int count, int n) : file(dir.Write("p.vlm", Records(count))), s(Showing(file, n)) {}
  void Arrow(int arrow, int button = kLeftButton) { arrowsMouseUp(s, ui, arrow, button); }
  test::TempDir dir;
  std::string file;
  GameState s;
  test::RecordingUi ui;
};

TEST(Load, AsksInTheProgramFolderShowsTheFirstPuzzleAndKeepsTheNewNameEvenWhenLoadingFails) {
  Desk d(3, 3);
  d.ui.names = {"", d.dir.Write("b.vlm", Record(9, "other", 20) + Record(4, "x")), d.dir.File("missing.vlm")};
  mnuloadpuz(d.s, d.ui);  // cancelled
  EXPECT_EQ(Shown(d.s), "3 of 3 T3");
  EXPECT_EQ(d.ui.requests[0].mode + d.ui.requests[0].defaultDir, "OPEN" + d.s.session.AppFolder);
  mnuloadpuz(d.s, d.ui);
  EXPECT_EQ(Shown(d.s) + Str(d.s.puzzle.SolutionGrid[1][1]), "1 of 2 other 21");
  mnuloadpuz(d.s, d.ui);  // the name is kept, the old board stays on show
  EXPECT_EQ(d.s.session.CurrentPuzzleFile + Shown(d.s), d.dir.File("missing.vlm") + "1 of 2 other");
  EXPECT_TRUE(d.ui.messages.empty());
}

TEST(Copy, AsksBeforeOverwritingANonEmptyFileAndLeavesTheTargetAloneOnErrors) {
  Desk d(3, 2);
  const std::string fresh = d.dir.File("new.vlm"), other = d.dir.Write("other.vlm", Record(1, "keep me"));
  d.ui.names = {fresh, other, other, d.file};
  mnusaveas(d.s, d.ui);
  d.ui.answer = false;
  mnusaveas(d.s, d.ui);
  EXPECT_EQ(d.dir.Read("other.vlm"), Record(1, "keep me"));
  d.ui.answer = true;
  for (int i = 0; i < 2; ++i) mnusaveas(d.s, d.ui);  // the last one onto itself: kept
  EXPECT_EQ(d.ui.questions, (Strings{"OverWrite file: " + other + " ?", "OverWrite file: " + other + " ?",
                                     "OverWrite file: " + d.file + " ?"}));
  EXPECT_EQ(d.ui.messages, (Strings{"Puzzle file saved as:\r\n" + fresh, "Puzzle file saved as:\r\n" + other,
                                    "Puzzle file saved as:\r\n" + d.file}));
  for (const char* name : {"new.vlm", "other.vlm", "p.vlm"}) EXPECT_EQ(d.dir.Read(name), Records(3));
  EXPECT_EQ(d.s.session.CurrentPuzzleFile + d.ui.requests[0].mode, d.file + "SAVE");
  d.s.session.CurrentPuzzleFile =
      d.dir.File("gone.vlm");  // from a file that has gone: the target is not emptied
  d.ui.names = {other};
  mnusaveas(d.s, d.ui);
  EXPECT_EQ(d.dir.Read("other.vlm"), Records(3));
}

TEST(Save, AppendsTheBoardAsAPuzzleToTheChosenFileWithoutSwitchingToIt) {
  Desk d(3, 2);
  const std::string fresh = d.dir.File("fresh.vlm"), three = d.dir.Write("three.vlm", Records(3, 40));
  d.s.puzzle.Grid[1][1] = d.s.puzzle.SolutionGrid[1][2];  // a wrong card: saved as the solution's
  d.s.view.PuzTitle = "edited title";
  d.ui.names = {fresh, three};
  for (int i = 0; i < 2; ++i) mnusaveassli(d.s, d.ui);
  EXPECT_EQ(d.ui.messages, (Strings{"Puzzle number 1 added to file:\r\n" + fresh,
                                    "Puzzle number 4 added to file:\r\n" + three}));
  EXPECT_EQ(d.dir.Read("fresh.vlm").substr(0, 24), "#1\r\nedited title\r\n 7, 7,");
  EXPECT_EQ(test::Loaded(fresh).puzzle.Grid[1][1], d.s.puzzle.SolutionGrid[1][1]);
  EXPECT_EQ(test::Headers(d.dir.Read("three.vlm")), (Strings{"#40", "#41", "#42", "#4"}));
  EXPECT_EQ(d.s.session.CurrentPuzzleFile + Shown(d.s), d.file + "2 of 3 edited title");
}

TEST(AppendAndReset, RefusedWhileSolvingOrAskFirstThenChangeTheFileOrTheBoard) {
  Desk d(3, 2);
  d.s.session.Solving = 1;
  mnuappend(d.s, d.ui);
  mnudelete(d.s, d.ui);
  mnupuzreset(d.s, d.ui);
  for (int arrow : {kArrowPrevious, kArrowNext, kArrowRandom}) d.Arrow(arrow);
  EXPECT_EQ(d.ui.messages, Strings(6, "Cancel AutoSolve first"));
  d.s.session.Solving = 0;
  d.s.puzzle.Grid[3][3] = d.s.puzzle.SolutionGrid[3][3];
  d.ui.answer = false;
  mnuappend(d.s, d.ui);
  mnupuzreset(d.s, d.ui);
  EXPECT_EQ(d.ui.questions,
            (Strings{"Append current puzzle to file:\r\n" + d.file, "Reset puzzle from file?"}));
  EXPECT_EQ(d.dir.Read("p.vlm") + Str(d.s.puzzle.Grid[3][3]),
            Records(3) + Str(d.s.puzzle.SolutionGrid[3][3]));
  d.ui.answer = true;
  mnuappend(d.s, d.ui);  // and shows the appended record
  EXPECT_EQ(test::Headers(d.dir.Read("p.vlm")).back() + " " + Shown(d.s) + Str(d.s.puzzle.PuzzleGrid[3][3]),
            "#4 4 of 4 T2" + Str(d.s.puzzle.SolutionGrid[3][3]));  // the placed card now a given
  d.s.view.PuzNumNow = "3.9";  // Reset loads whatever the box holds, even without Enter
  mnupuzreset(d.s, d.ui);
  EXPECT_EQ(Shown(d.s), "3 of 4 T3");
}

TEST(Arrows, StepWrapJumpCountAfreshDrawAndFallBackAndTheTypedNumber) {
  Desk d(10, 1);
  const std::pair<int, int> presses[] = {{kArrowPrevious, kLeftButton}, {kArrowNext, kLeftButton},
                                         {kArrowNext, kLeftButton},     {kArrowNext, kRightButton},
                                         {kArrowPrevious, kLeftButton}, {kArrowPrevious, kRightButton}};
  Strings shown;
  for (const auto& [arrow, button] : presses) {
    d.Arrow(arrow, button);
    shown.push_back(Shown(d.s));
  }
  EXPECT_EQ(shown, (Strings{"10 of 10 T10", "1 of 10 T1", "2 of 10 T2", "10 of 10 T10", "9 of 10 T9",
                            "1 of 10 T1"}));
  EXPECT_FALSE(d.ui.busy);  // the pointer is back to normal after each step
  d.s.session.rng = Random::Seeded(7);
  std::set<std::string> seen;  // random draws every record, with either button
  for (int i = 0; i < 300; ++i) {
    d.Arrow(kArrowRandom, i % 2 ? kRightButton : kLeftButton);
    seen.insert(Shown(d.s));
  }
  EXPECT_EQ(seen.size(), 10u);
  d.s = Showing(d.dir.Write("b.vlm", Records(2) + "#3\r\nbad\r\n 7, 7, 0\r\nAB\r\n"), 2);
  d.Arrow(kArrowNext);  // a record that cannot be loaded: back to the one shown
  EXPECT_EQ(Shown(d.s) + Str(d.s.puzzle.SolutionGrid[1][1]), "2 of 3 T2 2");
  d.s.view.PuzNumNow = " 1";  // the typed number, on Enter, within the file only
  PuzNumNowEnter(d.s, d.ui);
  EXPECT_EQ(Shown(d.s) + "|" + d.s.view.PuzNumNow, "1 of 3 T1|1");
  for (const char* typed : {"0", "4", "-1", "abc", "99999999999"}) {
    d.s.view.PuzNumNow = typed;
    PuzNumNowEnter(d.s, d.ui);
    EXPECT_EQ(Str(d.s.session.CurrentPuzzleNumber) + "|" + d.s.view.PuzNumNow, " 1|" + std::string(typed));
  }
  EXPECT_TRUE(d.ui.messages.empty());
}

TEST(RecordIndex, TheFileChangedUnderneathBetweenTwoStepsGivesTheNewTruth) {
  test::TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(5));
  test::AtRest(file);
  GameState s = Showing(file, 5);
  test::RecordingUi ui;

  std::ofstream(file, std::ios::app | std::ios::binary) << Record(6, "T6", 5);  // appended
  arrowsMouseUp(s, ui, kArrowNext, kLeftButton);
  EXPECT_EQ(Shown(s), "6 of 6 T6");

  dir.Write("p.vlm", Records(3));  // shrunk: Next from 6 wraps to 1
  test::AtRest(file);
  arrowsMouseUp(s, ui, kArrowNext, kLeftButton);
  EXPECT_EQ(Shown(s), "1 of 3 T1");

  // Replaced by a rename with a file of the same size and time; then
  // rewritten in place, the same size and the time set back again.
  const auto time = fs::last_write_time(file);
  const std::string other = dir.Write("q.vlm", Record(9, "U1") + Record(8, "U2") + Record(7, "U3"));
  fs::last_write_time(other, time);
  fs::rename(other, file);
  s.view.PuzNumNow = "3";
  PuzNumNowEnter(s, ui);
  EXPECT_EQ(Shown(s), "3 of 3 U3");
  std::string text = Records(3);
  dir.Write("p.vlm", text.replace(text.find("T2"), 2, "#X"));
  fs::last_write_time(file, time);
  s.view.PuzNumNow = "2";
  PuzNumNowEnter(s, ui);
  EXPECT_EQ(Shown(s), "2 of 4 #X");
}

// The delete command writes its work file velmora.tmp into the current folder.
class Delete : public ::testing::Test {
 protected:
  test::TempDir dir_, work_;
  test::InDirectory here_{work_.path()};
  test::RecordingUi ui_;
};

TEST_F(Delete, RemovesTheTypedRecordKeepsLaterHeaderNumbersAndShowsItsNeighbour) {
  // Deleting record n of ten, typed in the box whichever is shown, shows the
  // new first record for n = 1, else n - 1.
  const std::tuple<int, const char*, int, const char*> cases[] = {
      {2, "1", 1, "1 of 9 T2"}, {7, "5", 5, "4 of 9 T4"}, {10, "10", 10, "9 of 9 T9"}};
  for (const auto& [shownFirst, typed, n, shown] : cases) {
    const std::string file = dir_.Write("p.vlm", "notes before\r\n" + Records(10));
    GameState s = Showing(file, shownFirst);
    s.view.PuzNumNow = typed;
    mnudelete(s, ui_);
    EXPECT_EQ(ui_.questions.back() + "|" + ui_.messages.back(),
              "Delete current puzzle from file:\r\n" + file + "|Done");
    std::string expected = "notes before\r\n";
    for (int i = 1; i <= 10; ++i)
      if (i != n) expected += Record(i, "T" + std::to_string(i), i - 1);
    EXPECT_EQ(dir_.Read("p.vlm") + work_.Read("velmora.tmp"), expected + expected) << n;
    EXPECT_EQ(Shown(s), shown);
  }
}

TEST_F(Delete, OnePuzzleFileAloneEvenWhenTheCountShownIsStaleAndNoRefused) {
  GameState s = Showing(dir_.Write("one.vlm", Record(1, "only")), 1);
  s.session.Solving = 1;  // the arrows do nothing, without even the guard's message
  for (int arrow : {kArrowPrevious, kArrowNext, kArrowRandom}) arrowsMouseUp(s, ui_, arrow, kRightButton);
  EXPECT_EQ(Str(s.session.CurrentPuzzleNumber) + Str(ui_.boards) + Str(ui_.messages.size()), " 1 0 0");
  s.session.Solving = 0;
  mnudelete(s, ui_);          // not even asked
  s.session.PuzzleCount = 2;  // the recount after the question catches it
  mnudelete(s, ui_);
  EXPECT_EQ(ui_.messages, Strings(2, "There is only one puzzle in this file"));
  GameState t = Showing(dir_.Write("two.vlm", Records(2)), 2);
  ui_.answer = false;
  mnudelete(t, ui_);
  EXPECT_EQ(ui_.questions.size(), 2u);
  EXPECT_EQ(dir_.Read("one.vlm") + dir_.Read("two.vlm"), Record(1, "only") + Records(2));
  EXPECT_FALSE(FileExists(work_.File("velmora.tmp")));
}

TEST_F(Delete, ReadsAHundredLinesAfterTheHeaderAtMostAndWritesTheLastOneRead) {
  std::string stray;
  for (int i = 0; i < 120; ++i) stray += "line " + std::to_string(i) + "\r\n";
  const std::string file = dir_.Write("p.vlm", Record(1, "T1") + "#2\r\n" + stray + Record(3, "T3"));
  GameState s = Showing(file, 1);
  s.view.PuzNumNow = "2";
  mnudelete(s, ui_);
  EXPECT_EQ(dir_.Read("p.vlm"), Record(1, "T1") + stray.substr(stray.find("line 99\r\n")) + Record(3, "T3"));
}

TEST_F(Delete, WorksOnTheLongestNameAndLeavesTheFileWholeWhenTheWorkFileCannotBeWritten) {
  const std::string longest = dir_.Write(std::string(251, 'p') + ".vlm", Records(3));
  GameState s = Showing(longest, 2);
  mnudelete(s, ui_);
  EXPECT_EQ(ui_.messages.back() + " " + Shown(s), "Done 1 of 2 T1");
  // Where the work file should be: a folder, or a link to a file of the user's.
  const std::string kept = dir_.Write("kept.txt", "not puzzles");
  for (bool link : {false, true}) {
    fs::remove_all(work_.File("velmora.tmp"));
    if (link) fs::create_symlink(kept, work_.File("velmora.tmp"));
    if (!link) fs::create_directory(work_.File("velmora.tmp"));
    const std::string file = dir_.Write("p.vlm", Records(3));
    s = Showing(file, 2);
    mnudelete(s, ui_);
    EXPECT_EQ(ui_.messages.back(), "Error saving to file:\r\n" + file);
    EXPECT_EQ(dir_.Read("p.vlm") + dir_.Read("kept.txt"), Records(3) + "not puzzles");
    EXPECT_EQ(Shown(s), "2 of 3 T2");
  }
  for (const auto& entry : fs::directory_iterator(dir_.path()))  // no temporary file left
    EXPECT_NE(entry.path().filename().string()[0], '.');
}

// Puzzle files stay whole: full disks, a second writer, links, devices,
// endless lines and crashes in the middle of a write.

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

TEST(FileSafety, AppendsOnAFullDiskLeaveTheFileAsItWasAndLaterOnesFollowWholeLines) {
  Desk d(3, 2);
  std::string text = Records(3);
  text.resize(text.size() - 2);  // the last line has no line end
  const std::string file = d.dir.Write("p.vlm", text);
  d.s.view.PuzTitle = "#evil\r\n#99";
  EXPECT_TRUE(Limited(text.size() + 40, false, [&] {  // in a child: the board and messages here stay
    mnuappend(d.s, d.ui);
    d.ui.names = {file};
    mnusaveassli(d.s, d.ui);
    return d.ui.messages ==
           Strings{"Error apending puzzle to file: " + file, "Error saving to file:\r\n" + file};
  }));
  EXPECT_EQ(d.dir.Read("p.vlm"), text);
  // With room again: the record starts on a line of its own, under a title
  // that is one line and no header, and the title box shows it so.
  mnuappend(d.s, d.ui);
  EXPECT_EQ(d.ui.messages.back() + "|" + d.s.view.PuzTitle,
            "Puzzle#4 appended to file " + file + "| #evil  #99");
  EXPECT_EQ(CountPuzzles(file), 4);
  for (int n : {3, 4}) test::Loaded(file, n);
}

TEST(FileSafety, ASecondWriterWaitsAShortTimeThenFindsTheFileInUse) {
  Desk d(3, 2);
  test::InDirectory here(d.dir.path());
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t holder = ::fork();
  if (holder == 0) {  // another program, done within the wait
    LockedFile lock(d.file, false);
    ::_exit(lock.ok() && ::write(ready[1], "x", 1) == 1 && ::usleep(300000) == 0 ? 0 : 1);
  }
  char c = 0;
  ASSERT_EQ(::read(ready[0], &c, 1), 1);
  mnuappend(d.s, d.ui);
  EXPECT_EQ(d.ui.messages.back(), "Puzzle#4 appended to file " + d.file);
  ::waitpid(holder, nullptr, 0);
  {
    LockedFile held(d.file, false);  // one that is not
    ASSERT_TRUE(held.ok());
    mnudelete(d.s, d.ui);
    EXPECT_EQ(d.ui.messages.back(), "Error saving to file:\r\n" + d.file);
  }
  EXPECT_EQ(CountPuzzles(d.file), 4);
}

TEST(FileSafety, ReplacingFollowsLinksKeepsPermissionsAndRefusesWhatIsNotAFile) {
  Desk d(3, 2);
  test::InDirectory here(d.dir.path());
  const std::string link = d.dir.File("link.vlm"), pipe = d.dir.File("pipe.vlm");
  fs::create_symlink("p.vlm", link);
  const auto perms = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
  fs::permissions(d.file, perms);
  d.s = Showing(link, 2);
  mnudelete(d.s, d.ui);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(CountPuzzles(d.file), 2);
  EXPECT_EQ(fs::status(d.file).permissions(), perms);
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0644), 0);
  d.ui.names = {pipe, pipe};
  mnusaveas(d.s, d.ui);
  mnusaveassli(d.s, d.ui);  // counting would hang on the pipe
  const std::string refused = "Error saving to file:\r\n" + pipe;
  EXPECT_EQ(d.ui.messages, (Strings{"Done", refused, refused}));
  EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST(FileSafety, ReadersRefuseDevicesAndPipesAndTakeAnEndlessLineAsDamage) {
  Desk d(2, 1);
  test::InDirectory here(d.dir.path());
  ASSERT_EQ(::mkfifo("pipe.vlm", 0644), 0);
  for (const char* path : {"/dev/zero", "pipe.vlm", "."}) {
    EXPECT_EQ(LineReader(path).error(), kNotRegularFile) << path;
    EXPECT_EQ(CountPuzzles(path), 0);
  }
  const std::string text = Records(2) + std::string(kMaxLineLength + 1, 'x') + "\r\n" + Record(3, "T3");
  d.dir.Write("p.vlm", text);
  mnudelete(d.s, d.ui);  // would drop the records after the long line
  EXPECT_EQ(d.ui.messages.back(), "Error saving to file:\r\n" + d.file);
  EXPECT_EQ(d.dir.Read("p.vlm"), text);
}

TEST(FileSafety, ACrashWhileReplacingLeavesTheOldFileAndNoTemporaryOne) {
  test::TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(3));
  EXPECT_FALSE(Limited(100000, true, [&] { return WriteFileAtomically(file, std::string(400000, 'x')); }));
  EXPECT_EQ(dir.Read("p.vlm"), Records(3));
  dir.Write(".p.vlm.velmora-Ab12Cd", "left by a writer that crashed where no nameless file could be made");
  EXPECT_TRUE(WriteFileAtomically(file, Records(2)));
  // A new file has no name until it is whole.
  EXPECT_FALSE(Limited(100000, true,
                       [&] { return WriteFileAtomically(dir.File("new.vlm"), std::string(400000, 'x')); }));
  for (const auto& entry : fs::directory_iterator(dir.path())) EXPECT_EQ(entry.path().filename(), "p.vlm");
}

std::string Joined(const Strings& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += text + "|";
  return joined;
}

void Own(const std::string& path, uid_t user, mode_t mode) {
  EXPECT_EQ(::lchown(path.c_str(), user, user), 0);
  EXPECT_TRUE(mode == 0 || ::chmod(path.c_str(), mode) == 0);
}

TEST(FileSafety, AnOrdinaryUserRewritesNoFileTheyMayNotWriteAndKeepsOwnersAndLinks) {
  if (::geteuid() != 0) GTEST_SKIP() << "acts as root and as an ordinary user";
  test::TempDir dir;
  fs::permissions(dir.path(), fs::perms::all);  // a folder the user may write
  const std::string own = dir.Write("own.vlm", Records(3)), roots = dir.Write("roots.vlm", Records(3)),
                    open = dir.Write("open.vlm", Records(3)), out = dir.Write("out.vlm", "an older output");
  dir.Write("all.col", JoinLines(SchemeLines("blue", DefaultSchemeColors())));
  for (const std::string& name : {own, out, dir.File("all.col")}) Own(name, test::kNobody, 0444);
  Own(open, 0, 0666);  // root's, though anyone may write into it
  fs::create_hard_link(roots, dir.File("roots-too.vlm"));
  const std::string seen = test::AsNobody([&] {
    test::InDirectory here(dir.path());
    test::RecordingUi ui;
    for (const std::string& file : {own, roots, open}) {
      GameState s = Showing(file, 2);
      mnudelete(s, ui);
    }
    SortSettings sort{own, out};
    Random rng = Random::Seeded(1);
    SortPuzzleFile(sort, rng, ui);
    GameState s;
    s.session.AppFolder = dir.path() + "/";
    SchemeListBox list;
    FillSchemeList(s.session.AppFolder, list);
    list.Select("blue");
    RepSch(s.session.AppFolder, s.look, ui, list);
    DelSch(s.session.AppFolder, s.look, ui, list);
    return Joined(ui.messages);
  });
  const std::string schemes = "Error in updating Color Scheme:\r\n" + dir.File("all.col") + "|";
  EXPECT_EQ(seen, "Error saving to file:\r\n" + own + "|Error saving to file:\r\n" + roots +
                      "|Error saving to file:\r\n" + open + "|Unable to sort file:" + out + "|" + schemes +
                      schemes);
  EXPECT_EQ(dir.Read("own.vlm") + dir.Read("roots.vlm") + dir.Read("open.vlm") + dir.Read("out.vlm"),
            Records(3) + Records(3) + Records(3) + "an older output");
  EXPECT_EQ(dir.Read("all.col"), JoinLines(SchemeLines("blue", DefaultSchemeColors())));
  EXPECT_EQ(fs::status(open).permissions(), fs::perms(0666));
  EXPECT_EQ(fs::hard_link_count(roots), 2u);
  struct stat st {};
  EXPECT_EQ(::stat(open.c_str(), &st) == 0 ? st.st_uid : 1u, 0u);
}

TEST(FileSafety, LinksAnotherUserPutInASharedFolderAreNotFollowed) {
  if (::geteuid() != 0) GTEST_SKIP() << "needs two other users";
  test::TempDir shared, home;
  fs::permissions(shared.path(), fs::perms::all | fs::perms::sticky_bit);  // like /tmp
  fs::permissions(home.path(), fs::perms::all);
  const std::string mine = home.Write("mine.txt", "the user's own"),
                    book = shared.Write("book.vlm", Records(3));
  Own(mine, test::kNobody, 0);
  Own(book, test::kNobody, 0);
  for (const char* name : {"velmora.tmp", "out.vlm"}) {
    fs::create_symlink(mine, shared.File(name));
    Own(shared.File(name), 1, 0);  // planted by another user
  }
  const std::string seen = test::AsNobody([&] {
    test::InDirectory here(shared.path());
    test::RecordingUi ui;
    GameState s = Showing(book, 2);
    mnudelete(s, ui);
    SortSettings sort{book, shared.File("out.vlm")};
    Random rng = Random::Seeded(1);
    SortPuzzleFile(sort, rng, ui);
    return Joined(ui.messages);
  });
  EXPECT_EQ(seen,
            "Error saving to file:\r\n" + book + "|Unable to sort file:" + shared.File("out.vlm") + "|");
  EXPECT_EQ(home.Read("mine.txt") + shared.Read("book.vlm"), "the user's own" + Records(3));
}

}  // namespace
}  // namespace velmora
