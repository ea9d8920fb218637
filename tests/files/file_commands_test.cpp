// File and Puzzle menu commands, the arrows and the typed number, on real files.
#include "files/file_commands.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <set>

#include "board/play.h"
#include "model/text.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::Record;
using test::Records;
using Strings = std::vector<std::string>;

// A state showing record n of `file`, as after start-up.
GameState Showing(const std::string& file, int n) {
  GameState s = test::Loaded(file, n);
  s.AppFolder = std::filesystem::path(file).parent_path().string() + "/";
  s.CurrentPuzzleFile = file;
  return s;
}

// What the puzzle fields show: "2 of 3 T2".
std::string Shown(const GameState& s) {
  return NumText(s.CurrentPuzzleNumber) + s.view.MaxPuzCount + " " + s.view.PuzTitle;
}

// A folder whose p.vlm holds `count` records T1, T2, ..., record n on show.
struct Desk {
  Desk(int count, int n) : file(dir.Write("p.vlm", Records(count))), s(Showing(file, n)) {}
  test::TempDir dir;
  std::string file;
  GameState s;
  test::RecordingUi ui;
};

TEST(FileDialog, AsksWithTheProgramTitleFilterAndFolderAndKeepsTheDirectory) {
  Desk d(2, 2);
  test::TempDir elsewhere;
  test::InDirectory here(d.dir.path());
  d.ui.onDialog = [&] { std::filesystem::current_path(elsewhere.path()); };  // a dialog that wanders off
  mnuloadpuz(d.s, d.ui);                                                     // every dialog cancelled
  mnusaveas(d.s, d.ui);
  mnusaveassli(d.s, d.ui);
  std::string requests;
  for (const FileDialogRequest& r : d.ui.requests)
    requests +=
        r.mode + "|" + r.title + "|" + r.fileTypes + "|" + r.fileTypesName + "|" + r.defaultDir + "\n";
  const std::string rest = "|velmora|*.vlm;*.txt;*.dat|velmora Files|" + d.s.AppFolder + "\n";
  EXPECT_EQ(requests, "OPEN" + rest + "SAVE" + rest + "SAVE" + rest);
  EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), d.dir.path()));
  EXPECT_EQ(Shown(d.s), "2 of 2 T2");
  EXPECT_TRUE(d.ui.messages.empty() && d.ui.questions.empty());
  EXPECT_EQ(d.dir.Read("p.vlm"), Records(2));
}

TEST(Load, ShowsTheFirstPuzzleAndKeepsTheNewNameEvenWhenLoadingFails) {
  Desk d(3, 3);
  const std::string second = d.dir.Write("b.vlm", Record(9, "other", 20) + Record(4, "x"));
  d.ui.names = {second, d.dir.File("missing.vlm")};
  mnuloadpuz(d.s, d.ui);
  EXPECT_EQ(d.s.CurrentPuzzleFile, second);
  EXPECT_EQ(Shown(d.s), "1 of 2 other");
  EXPECT_EQ(d.s.SolutionGrid[1][1], 21);
  mnuloadpuz(d.s, d.ui);
  EXPECT_EQ(d.s.CurrentPuzzleFile, d.dir.File("missing.vlm"));
  EXPECT_EQ(Shown(d.s), "1 of 2 other");  // the old board stays on show
  EXPECT_TRUE(d.ui.messages.empty());
  EXPECT_FALSE(d.ui.busy);
}

TEST(Copy, AsksBeforeOverwritingANonEmptyFileAndLeavesTheTargetAloneOnErrors) {
  Desk d(3, 2);
  const std::string fresh = d.dir.File("new.vlm"), empty = d.dir.Write("empty.vlm", "");
  const std::string other = d.dir.Write("other.vlm", Record(1, "keep me"));
  // A folder cannot be measured, so it counts as absent, and cannot be written.
  d.ui.names = {fresh, empty, other, other, d.dir.path(), d.file};
  mnusaveas(d.s, d.ui);
  mnusaveas(d.s, d.ui);
  d.ui.answer = false;
  mnusaveas(d.s, d.ui);
  EXPECT_EQ(d.dir.Read("other.vlm"), Record(1, "keep me"));
  d.ui.answer = true;
  for (int i = 0; i < 3; ++i) mnusaveas(d.s, d.ui);  // the last one onto itself: kept
  const std::string overwriteOther = "OverWrite file: " + other + " ?";
  EXPECT_EQ(d.ui.questions, (Strings{overwriteOther, overwriteOther, "OverWrite file: " + d.file + " ?"}));
  EXPECT_EQ(d.ui.messages,
            (Strings{"Puzzle file saved as:\r\n" + fresh, "Puzzle file saved as:\r\n" + empty,
                     "Puzzle file saved as:\r\n" + other, "Error saving to file:\r\n" + d.dir.path(),
                     "Puzzle file saved as:\r\n" + d.file}));
  for (const char* name : {"new.vlm", "empty.vlm", "other.vlm", "p.vlm"})
    EXPECT_EQ(d.dir.Read(name), Records(3));
  EXPECT_EQ(d.s.CurrentPuzzleFile, d.file);  // the current file stays current

  // From a current file that has gone: the target is not emptied.
  d.s.CurrentPuzzleFile = d.dir.File("gone.vlm");
  d.ui.names = {other};
  mnusaveas(d.s, d.ui);
  EXPECT_EQ(d.ui.messages.back(), "Error saving to file:\r\n" + other);
  EXPECT_EQ(d.dir.Read("other.vlm"), Records(3));
}

TEST(Save, AppendsToTheChosenFileWithoutSwitchingToIt) {
  Desk d(3, 2);
  const std::string fresh = d.dir.File("fresh.vlm"), three = d.dir.Write("three.vlm", Records(3, 40));
  d.s.Grid[1][1] = d.s.SolutionGrid[1][2];  // a wrong card: saved as the solution's
  d.s.Grid[1][2] = -2;                      // a mark: saved as empty
  d.s.view.PuzTitle = "edited title";
  d.ui.names = {fresh, three, d.dir.path()};
  for (int i = 0; i < 3; ++i) mnusaveassli(d.s, d.ui);
  EXPECT_TRUE(d.ui.questions.empty());
  EXPECT_EQ(d.ui.messages, (Strings{"Puzzle number 1 added to file:\r\n" + fresh,
                                    "Puzzle number 4 added to file:\r\n" + three,
                                    "Error saving to file:\r\n" + d.dir.path()}));
  EXPECT_EQ(d.dir.Read("fresh.vlm").substr(0, 24), "#1\r\nedited title\r\n 7, 7,");
  const GameState back = test::Loaded(fresh);
  EXPECT_EQ(back.Grid[1][1], d.s.SolutionGrid[1][1]);
  EXPECT_EQ(back.Grid[1][2], 0);
  EXPECT_EQ(back.SolutionGrid, d.s.SolutionGrid);
  EXPECT_EQ(test::Headers(d.dir.Read("three.vlm")), (Strings{"#40", "#41", "#42", "#4"}));
  EXPECT_EQ(d.s.CurrentPuzzleFile, d.file);
  EXPECT_EQ(Shown(d.s), "2 of 3 edited title");
}

TEST(Append, AddsTheBoardToTheCurrentFileAndShowsIt) {
  Desk d(3, 2);
  d.s.Grid[3][3] = d.s.SolutionGrid[3][3];
  d.ui.answer = false;
  mnuappend(d.s, d.ui);
  EXPECT_EQ(d.ui.questions.back(), "Append current puzzle to file:\r\n" + d.file);
  EXPECT_EQ(d.dir.Read("p.vlm"), Records(3));
  EXPECT_TRUE(d.ui.messages.empty());

  d.ui.answer = true;
  mnuappend(d.s, d.ui);
  EXPECT_EQ(d.ui.messages.back(), "Puzzle#4 appended to file " + d.file);
  EXPECT_EQ(test::Headers(d.dir.Read("p.vlm")).back(), "#4");
  EXPECT_EQ(Shown(d.s), "4 of 4 T2");
  EXPECT_EQ(d.s.PuzzleGrid[3][3], d.s.SolutionGrid[3][3]);

  d.s.CurrentPuzzleFile = d.dir.File("no/such/folder.vlm");
  mnuappend(d.s, d.ui);
  EXPECT_EQ(d.ui.messages.back(), "Error apending puzzle to file: " + d.s.CurrentPuzzleFile);
}

TEST(SolvingGuard, RefusesAppendDeleteResetAndArrowsButNotTheTypedNumberOrSave) {
  Desk d(3, 2);
  d.s.Solving = 1;
  mnuappend(d.s, d.ui);
  mnudelete(d.s, d.ui);
  mnupuzreset(d.s, d.ui);
  for (int arrow : {kArrowPrevious, kArrowNext, kArrowRandom}) arrowsMouseUp(d.s, d.ui, arrow, kLeftButton);
  EXPECT_EQ(d.ui.messages, Strings(6, "Cancel AutoSolve first"));
  EXPECT_TRUE(d.ui.questions.empty());
  EXPECT_EQ(d.dir.Read("p.vlm"), Records(3));
  d.s.view.PuzNumNow = "3";
  PuzNumNowEnter(d.s, d.ui);
  EXPECT_EQ(Shown(d.s), "3 of 3 T3");
  d.s.Solving = 1;
  d.ui.names = {d.dir.File("saved.vlm")};
  mnusaveassli(d.s, d.ui);
  EXPECT_EQ(CountPuzzles(d.dir.File("saved.vlm")), 1);
}

TEST(Reset, ReloadsTheNumberInTheBoxFromTheFileOnYes) {
  Desk d(3, 2);
  d.s.Grid[1][1] = d.s.SolutionGrid[1][1];
  d.ui.answer = false;
  mnupuzreset(d.s, d.ui);
  EXPECT_EQ(d.ui.questions.back(), "Reset puzzle from file?");
  EXPECT_EQ(d.s.Grid[1][1], d.s.SolutionGrid[1][1]);
  d.ui.answer = true;
  mnupuzreset(d.s, d.ui);
  EXPECT_EQ(d.s.Grid[1][1], 0);
  d.s.view.PuzNumNow = "3.9";  // whatever the box holds, even without Enter
  mnupuzreset(d.s, d.ui);
  EXPECT_EQ(Shown(d.s), "3 of 3 T3");
  EXPECT_TRUE(d.ui.messages.empty());
}

TEST(Arrows, StepWrapJumpCountAfreshAndFallBack) {
  Desk d(10, 1);
  const std::pair<int, int> presses[] = {{kArrowPrevious, kLeftButton}, {kArrowNext, kLeftButton},
                                         {kArrowNext, kLeftButton},     {kArrowNext, kRightButton},
                                         {kArrowPrevious, kLeftButton}, {kArrowPrevious, kRightButton}};
  Strings shown;
  for (const auto& [arrow, button] : presses) {
    arrowsMouseUp(d.s, d.ui, arrow, button);
    shown.push_back(Shown(d.s));
  }
  EXPECT_EQ(shown, (Strings{"10 of 10 T10", "1 of 10 T1", "2 of 10 T2", "10 of 10 T10", "9 of 10 T9",
                            "1 of 10 T1"}));
  AppendToFile(d.file, Record(11, "T11"));  // records added meanwhile are reachable
  arrowsMouseUp(d.s, d.ui, kArrowPrevious, kLeftButton);
  EXPECT_EQ(Shown(d.s), "11 of 11 T11");

  // A record that cannot be loaded: the view returns to the one shown.
  d.s = Showing(d.dir.Write("b.vlm", Records(2) + "#3\r\nbad\r\n 7, 7, 0\r\nAB\r\n"), 2);
  arrowsMouseUp(d.s, d.ui, kArrowNext, kLeftButton);
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(d.s.view.PuzTitle, "T2");
  EXPECT_EQ(d.s.SolutionGrid[1][1], 2);
  EXPECT_TRUE(d.ui.messages.empty());
}

TEST(Arrows, DoNothingWithoutAPuzzleOrWithOneOnly) {
  Desk d(1, 1);
  d.s.Solving = 1;  // not even the guard's message
  GameState none;
  none.CurrentPuzzleFile = d.dir.Write("three.vlm", Records(3));
  for (int arrow : {kArrowPrevious, kArrowNext, kArrowRandom}) {
    for (int button : {kLeftButton, kRightButton}) {
      arrowsMouseUp(none, d.ui, arrow, button);
      arrowsMouseUp(d.s, d.ui, arrow, button);
    }
  }
  EXPECT_EQ(none.CurrentPuzzleNumber, 0);
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 1);
  EXPECT_TRUE(d.ui.messages.empty());
  EXPECT_EQ(d.ui.boards, 0);
}

TEST(Arrows, RandomDrawsEveryRecordIncludingTheCurrentOne) {
  Desk d(5, 3);
  d.s.rng = Random::Seeded(7);
  std::set<int> seen;
  int repeats = 0;
  for (int i = 0; i < 200; ++i) {
    const int before = d.s.CurrentPuzzleNumber;
    arrowsMouseUp(d.s, d.ui, kArrowRandom, i % 2 ? kRightButton : kLeftButton);
    ASSERT_EQ(d.s.view.PuzTitle, "T" + std::to_string(d.s.CurrentPuzzleNumber));
    seen.insert(d.s.CurrentPuzzleNumber);
    repeats += d.s.CurrentPuzzleNumber == before;
  }
  EXPECT_EQ(seen, (std::set<int>{1, 2, 3, 4, 5}));
  EXPECT_GT(repeats, 0);
}

TEST(TypedNumber, JumpsOnlyWithinTheFile) {
  Desk d(10, 1);
  d.s.view.PuzNumNow = " 7";
  PuzNumNowEnter(d.s, d.ui);
  EXPECT_EQ(Shown(d.s), "7 of 10 T7");
  EXPECT_EQ(d.s.view.PuzNumNow, "7");
  for (const char* typed : {"0", "11", "-1", "abc", "", "99999999999"}) {
    d.s.view.PuzNumNow = typed;
    PuzNumNowEnter(d.s, d.ui);
    EXPECT_EQ(d.s.CurrentPuzzleNumber, 7) << typed;
    EXPECT_EQ(d.s.view.PuzNumNow, typed);  // the typed text stays
  }
  GameState none;  // no current file: nothing to jump to
  none.view.PuzNumNow = "1";
  PuzNumNowEnter(none, d.ui);
  EXPECT_EQ(none.CurrentPuzzleNumber, 0);
  EXPECT_TRUE(d.ui.messages.empty());
}

// The delete command writes its work file velmora.tmp into the current folder.
class Delete : public ::testing::Test {
 protected:
  test::TempDir dir_, work_;
  test::InDirectory here_{work_.path()};
  test::RecordingUi ui_;
};

TEST_F(Delete, RemovesTheRecordKeepsLaterHeaderNumbersAndShowsItsNeighbour) {
  // Deleting record n of ten shows the new first record for n = 1, else n - 1.
  const std::pair<int, const char*> cases[] = {{1, "1 of 9 T2"}, {5, "4 of 9 T4"}, {10, "9 of 9 T9"}};
  for (const auto& [n, shown] : cases) {
    SCOPED_TRACE(n);
    const std::string file = dir_.Write("p.vlm", "notes before\r\n" + Records(10));
    GameState s = Showing(file, n);
    mnudelete(s, ui_);
    EXPECT_EQ(ui_.questions.back(), "Delete current puzzle from file:\r\n" + file);
    EXPECT_EQ(ui_.messages.back(), "Done");
    std::string expected = "notes before\r\n";
    for (int i = 1; i <= 10; ++i)
      if (i != n) expected += Record(i, "T" + std::to_string(i), i - 1);
    EXPECT_EQ(dir_.Read("p.vlm"), expected);
    EXPECT_EQ(work_.Read("velmora.tmp"), expected);
    EXPECT_EQ(Shown(s), shown);
  }
}

TEST_F(Delete, UsesTheNumberInTheBoxAndStopsAfterAHundredLines) {
  std::string stray;
  for (int i = 1; i <= 150; ++i) stray += "line" + std::to_string(i) + "\r\n";
  GameState s = Showing(dir_.Write("p.vlm", Record(1, "T1") + stray + Record(2, "T2", 1)), 2);
  s.view.PuzNumNow = "1";
  mnudelete(s, ui_);
  const std::string after = dir_.Read("p.vlm");
  // The header goes, then 100 more lines are read: title, size, 7 rows and
  // line1..line91; the last of them is written again.
  EXPECT_EQ(after.substr(0, 8), "line91\r\n");
  EXPECT_NE(after.find("line150\r\n" + Record(2, "T2", 1)), std::string::npos);
}

TEST_F(Delete, RefusesOnOnePuzzleEvenWhenTheCountShownIsStaleAndOnNo) {
  const std::string one = dir_.Write("one.vlm", Record(1, "only"));
  GameState s = Showing(one, 1);
  mnudelete(s, ui_);
  EXPECT_TRUE(ui_.questions.empty());
  s.PuzzleCount = 2;  // the recount after the question catches it
  mnudelete(s, ui_);
  EXPECT_EQ(ui_.questions.size(), 1u);
  EXPECT_EQ(ui_.messages, Strings(2, "There is only one puzzle in this file"));
  EXPECT_EQ(dir_.Read("one.vlm"), Record(1, "only"));
  GameState t = Showing(dir_.Write("two.vlm", Records(2)), 2);
  ui_.answer = false;
  mnudelete(t, ui_);
  EXPECT_EQ(dir_.Read("two.vlm"), Records(2));
  EXPECT_EQ(ui_.messages.size(), 2u);
  EXPECT_FALSE(FileExists(work_.File("velmora.tmp")));
}

TEST_F(Delete, OriginalFileIsIntactWhenTheWorkFileOrTheReplacementCannotBeWritten) {
  // A name so long that no temporary file fits beside it (this fails for
  // root too), and a folder where the work file should be.
  std::filesystem::create_directory(work_.File("velmora.tmp"));
  for (const std::string& name : {std::string(250, 'p') + ".vlm", std::string("p.vlm")}) {
    const std::string file = dir_.Write(name, Records(3));
    GameState s = Showing(file, 2);
    mnudelete(s, ui_);
    EXPECT_EQ(ui_.messages.back(), "Error saving to file:\r\n" + file);
    std::string contents;
    ASSERT_TRUE(ReadWholeFile(file, contents));
    EXPECT_EQ(contents, Records(3));
    EXPECT_EQ(Shown(s), "2 of 3 T2");
  }
}

TEST_F(Delete, OriginalFileIsIntactInAReadOnlyFolder) {
  // The file could be written in place, but not its folder: the replacement
  // fails at its temporary file and the original stays whole.
  const std::string file = dir_.Write("p.vlm", Records(3));
  GameState s = Showing(file, 2);
  namespace fs = std::filesystem;
  fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read |
                            fs::perms::group_write | fs::perms::others_read | fs::perms::others_write);
  fs::permissions(dir_.path(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_read |
                                   fs::perms::group_exec | fs::perms::others_read | fs::perms::others_exec);
  fs::permissions(work_.path(), fs::perms::all);
  if (::geteuid() == 0) {
    // Permissions do not stop root: the command runs as "nobody" instead.
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      if (::setgid(65534) != 0 || ::setuid(65534) != 0) ::_exit(3);
      test::RecordingUi ui;
      mnudelete(s, ui);
      ::_exit(!ui.messages.empty() && ui.messages.back() == "Error saving to file:\r\n" + file ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    ASSERT_NE(WEXITSTATUS(status), 3) << "could not become nobody";
    EXPECT_EQ(WEXITSTATUS(status), 0) << "the command did not report the failed save";
  } else {
    mnudelete(s, ui_);
    EXPECT_EQ(ui_.messages.back(), "Error saving to file:\r\n" + file);
  }
  fs::permissions(dir_.path(), fs::perms::owner_all);
  EXPECT_EQ(dir_.Read("p.vlm"), Records(3));
  EXPECT_EQ(work_.Read("velmora.tmp"), Record(1, "T1") + Record(3, "T3", 2));
  for (const auto& entry : fs::directory_iterator(dir_.path()))  // no temporary file left over
    EXPECT_EQ(entry.path().filename(), "p.vlm");
}

TEST(FileWithoutRecord, MissingFileLfInputAndRecordsBeyondTheEnd) {
  test::TempDir dir;
  std::string contents;
  EXPECT_FALSE(FileWithoutRecord(dir.File("missing.vlm"), 1, contents));
  const std::string file = dir.Write("lf.vlm", "#1\nt\n#2\nu");
  ASSERT_TRUE(FileWithoutRecord(file, 5, contents));
  EXPECT_EQ(contents, "#1\r\nt\r\n#2\r\nu\r\n");  // CR LF out; a number past the end drops nothing
  ASSERT_TRUE(FileWithoutRecord(file, 2, contents));
  EXPECT_EQ(contents, "#1\r\nt\r\n");
}

}  // namespace
}  // namespace velmora
