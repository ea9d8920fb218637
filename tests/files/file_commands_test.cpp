// File and Puzzle menu commands, the arrows and the typed number, on real files.
#include "files/file_commands.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <set>

#include "board/play.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::Record;
using test::Records;
using test::TempDir;
using Strings = std::vector<std::string>;

// A state showing record n of `file`, as after start-up.
GameState Showing(const std::string& file, int n) {
  GameState s;
  s.AppFolder = std::filesystem::path(file).parent_path().string() + "/";
  s.CurrentPuzzleFile = file;
  SilentUserInterface ui;
  std::string title;
  EXPECT_EQ(LoadPuzzle(s, ui, file, n, title, 1), 0);
  return s;
}

void Arrow(GameState& s, test::RecordingUi& ui, int arrow, int button = kLeftButton) {
  arrowsMouseUp(s, ui, arrow, button);
}

TEST(ConfirmOverwrite, AsksOnlyForNonEmptyFiles) {
  TempDir dir;
  test::RecordingUi ui;
  // Absent, empty and unmeasurable files count as absent.
  for (const std::string& name : {dir.File("absent.vlm"), dir.Write("empty.vlm", ""), dir.path()})
    EXPECT_EQ(ConfirmOverwrite(ui, name), 1) << name;
  EXPECT_TRUE(ui.questions.empty());
  const std::string full = dir.Write("full.vlm", "x");
  EXPECT_EQ(ConfirmOverwrite(ui, full), 1);
  ui.answer = false;
  EXPECT_EQ(ConfirmOverwrite(ui, full), 0);
  EXPECT_EQ(ui.questions, Strings(2, "OverWrite file: " + full + " ?"));
}

TEST(FileDialog, AsksWithTheProgramTitleFilterAndFolderAndKeepsTheDirectory) {
  TempDir dir, elsewhere;
  const std::string file = dir.Write("p.vlm", Records(2));
  GameState s = Showing(file, 2);
  test::RecordingUi ui;
  test::InDirectory here(dir.path());
  ui.onDialog = [&] { std::filesystem::current_path(elsewhere.path()); };  // a dialog that wanders off
  mnuloadpuz(s, ui);  // every dialog cancelled
  mnusaveas(s, ui);
  mnusaveassli(s, ui);
  ASSERT_EQ(ui.requests.size(), 3u);
  const char* modes[] = {"OPEN", "SAVE", "SAVE"};
  for (size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(ui.requests[i].mode, modes[i]);
    EXPECT_EQ(ui.requests[i].title, "velmora");
    EXPECT_EQ(ui.requests[i].fileTypes, "*.vlm;*.txt;*.dat");
    EXPECT_EQ(ui.requests[i].fileTypesName, "velmora Files");
    EXPECT_EQ(ui.requests[i].defaultDir, s.AppFolder);
  }
  EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), dir.path()));
  EXPECT_EQ(s.CurrentPuzzleFile, file);
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);
  EXPECT_TRUE(ui.messages.empty() && ui.questions.empty());
  EXPECT_EQ(dir.Read("p.vlm"), Records(2));
}

TEST(Load, ShowsTheFirstPuzzleAndKeepsTheNewNameEvenWhenLoadingFails) {
  TempDir dir;
  const std::string second = dir.Write("b.vlm", Record(9, "other", 20) + Record(4, "x"));
  GameState s = Showing(dir.Write("a.vlm", Records(3)), 3);
  test::RecordingUi ui;
  ui.names = {second, dir.File("missing.vlm")};
  mnuloadpuz(s, ui);
  EXPECT_EQ(s.CurrentPuzzleFile, second);
  EXPECT_EQ(s.CurrentPuzzleNumber, 1);
  EXPECT_EQ(s.view.PuzTitle, "other");
  EXPECT_EQ(s.view.MaxPuzCount, " of 2");
  EXPECT_EQ(s.SolutionGrid[1][1], 21);

  mnuloadpuz(s, ui);
  EXPECT_EQ(s.CurrentPuzzleFile, dir.File("missing.vlm"));
  EXPECT_EQ(s.CurrentPuzzleNumber, 1);
  EXPECT_EQ(s.view.PuzTitle, "other");  // the old board stays on show
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_FALSE(ui.busy);
}

TEST(Copy, CopiesAsksBeforeOverwritingAndLeavesTheTargetAloneOnErrors) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(3));
  const std::string fresh = dir.File("new.vlm"), other = dir.Write("other.vlm", Record(1, "keep me"));
  const std::string nowhere = dir.File("no/such/folder.vlm");
  GameState s = Showing(file, 2);
  test::RecordingUi ui;
  ui.names = {fresh, other, other, nowhere, file};
  mnusaveas(s, ui);
  ui.answer = false;
  mnusaveas(s, ui);
  EXPECT_EQ(dir.Read("other.vlm"), Record(1, "keep me"));
  ui.answer = true;
  for (int i = 0; i < 3; ++i) mnusaveas(s, ui);  // the last one onto itself: kept
  const std::string overwriteOther = "OverWrite file: " + other + " ?";
  EXPECT_EQ(ui.questions, (Strings{overwriteOther, overwriteOther, "OverWrite file: " + file + " ?"}));
  EXPECT_EQ(ui.messages, (Strings{"Puzzle file saved as:\r\n" + fresh, "Puzzle file saved as:\r\n" + other,
                                  "Error saving to file:\r\n" + nowhere, "Puzzle file saved as:\r\n" + file}));
  EXPECT_EQ(dir.Read("new.vlm"), Records(3));
  EXPECT_EQ(dir.Read("other.vlm"), Records(3));
  EXPECT_EQ(dir.Read("p.vlm"), Records(3));
  EXPECT_EQ(s.CurrentPuzzleFile, file);  // the current file stays current

  // From a current file that has gone: the target is not emptied.
  const std::string target = dir.Write("t.vlm", "precious");
  s.CurrentPuzzleFile = dir.File("gone.vlm");
  ui.names = {target};
  mnusaveas(s, ui);
  EXPECT_EQ(ui.messages.back(), "Error saving to file:\r\n" + target);
  EXPECT_EQ(dir.Read("t.vlm"), "precious");
}

TEST(Save, AppendsToTheChosenFileWithoutSwitchingToIt) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(3));
  const std::string fresh = dir.File("fresh.vlm"), three = dir.Write("three.vlm", Records(3, 40));
  GameState s = Showing(file, 2);
  s.Grid[1][1] = s.SolutionGrid[1][2];  // a wrong card: saved as the solution's
  s.view.PuzTitle = "edited title";
  test::RecordingUi ui;
  ui.names = {fresh, three, dir.path()};
  for (int i = 0; i < 3; ++i) mnusaveassli(s, ui);
  EXPECT_TRUE(ui.questions.empty());
  EXPECT_EQ(ui.messages, (Strings{"Puzzle number 1 added to file:\r\n" + fresh,
                                  "Puzzle number 4 added to file:\r\n" + three,
                                  "Error saving to file:\r\n" + dir.path()}));
  EXPECT_EQ(dir.Read("fresh.vlm").substr(0, 24), "#1\r\nedited title\r\n 7, 7,");
  const GameState back = test::Loaded(fresh);
  EXPECT_EQ(back.Grid[1][1], s.SolutionGrid[1][1]);
  EXPECT_EQ(back.SolutionGrid, s.SolutionGrid);
  EXPECT_EQ(test::Headers(dir.Read("three.vlm")), (Strings{"#40", "#41", "#42", "#4"}));
  EXPECT_EQ(s.CurrentPuzzleFile, file);
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);
}

TEST(Append, AddsTheBoardToTheCurrentFileAndShowsIt) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(3));
  GameState s = Showing(file, 2);
  s.Grid[3][3] = s.SolutionGrid[3][3];
  test::RecordingUi ui;
  ui.answer = false;
  mnuappend(s, ui);
  EXPECT_EQ(ui.questions.back(), "Append current puzzle to file:\r\n" + file);
  EXPECT_EQ(dir.Read("p.vlm"), Records(3));
  EXPECT_TRUE(ui.messages.empty());

  ui.answer = true;
  mnuappend(s, ui);
  EXPECT_EQ(ui.messages.back(), "Puzzle#4 appended to file " + file);
  EXPECT_EQ(test::Headers(dir.Read("p.vlm")).back(), "#4");
  EXPECT_EQ(s.CurrentPuzzleNumber, 4);
  EXPECT_EQ(s.view.MaxPuzCount, " of 4");
  EXPECT_EQ(s.view.PuzTitle, "T2");
  EXPECT_EQ(s.PuzzleGrid[3][3], s.SolutionGrid[3][3]);

  s.CurrentPuzzleFile = dir.File("no/such/folder.vlm");
  mnuappend(s, ui);
  EXPECT_EQ(ui.messages.back(), "Error apending puzzle to file: " + s.CurrentPuzzleFile);
}

TEST(SolvingGuard, RefusesAppendDeleteResetAndArrowsButNotTheTypedNumberOrSave) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(3));
  GameState s = Showing(file, 2);
  s.Solving = 1;
  test::RecordingUi ui;
  mnuappend(s, ui);
  mnudelete(s, ui);
  mnupuzreset(s, ui);
  for (int arrow : {kArrowPrevious, kArrowNext, kArrowRandom}) Arrow(s, ui, arrow);
  EXPECT_EQ(ui.messages, Strings(6, "Cancel AutoSolve first"));
  EXPECT_TRUE(ui.questions.empty());
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(dir.Read("p.vlm"), Records(3));

  s.view.PuzNumNow = "3";
  PuzNumNowEnter(s, ui);
  EXPECT_EQ(s.CurrentPuzzleNumber, 3);
  s.Solving = 1;
  ui.names = {dir.File("saved.vlm")};
  mnusaveassli(s, ui);
  EXPECT_EQ(CountPuzzles(dir.File("saved.vlm")), 1);
}

TEST(Reset, ReloadsTheNumberInTheBoxFromTheFileOnYes) {
  TempDir dir;
  GameState s = Showing(dir.Write("p.vlm", Records(3)), 2);
  s.Grid[1][1] = s.SolutionGrid[1][1];
  test::RecordingUi ui;
  ui.answer = false;
  mnupuzreset(s, ui);
  EXPECT_EQ(ui.questions.back(), "Reset puzzle from file?");
  EXPECT_EQ(s.Grid[1][1], s.SolutionGrid[1][1]);
  ui.answer = true;
  mnupuzreset(s, ui);
  EXPECT_EQ(s.Grid[1][1], 0);
  s.view.PuzNumNow = "3.9";  // whatever the box holds, even without Enter
  mnupuzreset(s, ui);
  EXPECT_EQ(s.view.PuzTitle, "T3");
  EXPECT_TRUE(ui.messages.empty());
}

TEST(Arrows, StepWrapJumpAndFallBack) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(10));
  GameState s = Showing(file, 1);
  test::RecordingUi ui;
  const std::pair<int, int> presses[] = {{kArrowPrevious, kLeftButton},  {kArrowNext, kLeftButton},
                                         {kArrowNext, kLeftButton},      {kArrowNext, kRightButton},
                                         {kArrowPrevious, kLeftButton}, {kArrowPrevious, kRightButton}};
  std::vector<int> shown;
  for (const auto& [arrow, button] : presses) {
    Arrow(s, ui, arrow, button);
    shown.push_back(s.CurrentPuzzleNumber);
    EXPECT_EQ(s.view.PuzTitle, "T" + std::to_string(s.CurrentPuzzleNumber));
  }
  EXPECT_EQ(shown, (std::vector<int>{10, 1, 2, 10, 9, 1}));

  // The count is taken afresh: records added meanwhile are reachable.
  AppendToFile(file, Record(11, "T11"));
  Arrow(s, ui, kArrowPrevious);
  EXPECT_EQ(s.view.PuzTitle, "T11");
  EXPECT_EQ(s.PuzzleCount, 11);

  // A record that cannot be loaded: the view returns to the one shown.
  s = Showing(dir.Write("b.vlm", Records(2) + "#3\r\nbad\r\n 7, 7, 0\r\nAB\r\n"), 2);
  Arrow(s, ui, kArrowNext);
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(s.view.PuzTitle, "T2");
  EXPECT_EQ(s.SolutionGrid[1][1], 2);
  EXPECT_TRUE(ui.messages.empty());
}

TEST(Arrows, DoNothingWithoutAPuzzleOrWithOneOnly) {
  TempDir dir;
  GameState none;
  none.CurrentPuzzleFile = dir.Write("p.vlm", Records(3));
  GameState one = Showing(dir.Write("one.vlm", Record(1, "only")), 1);
  one.Solving = 1;  // not even the guard's message
  test::RecordingUi ui;
  for (int arrow : {kArrowPrevious, kArrowNext, kArrowRandom}) {
    for (int button : {kLeftButton, kRightButton}) {
      Arrow(none, ui, arrow, button);
      Arrow(one, ui, arrow, button);
    }
  }
  EXPECT_EQ(none.CurrentPuzzleNumber, 0);
  EXPECT_EQ(one.CurrentPuzzleNumber, 1);
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(ui.boards, 0);
}

TEST(Arrows, RandomDrawsEveryRecordIncludingTheCurrentOne) {
  TempDir dir;
  GameState s = Showing(dir.Write("p.vlm", Records(5)), 3);
  s.rng = Random::Seeded(7);
  test::RecordingUi ui;
  std::set<int> seen;
  int repeats = 0;
  for (int i = 0; i < 200; ++i) {
    const int before = s.CurrentPuzzleNumber;
    Arrow(s, ui, kArrowRandom, i % 2 ? kRightButton : kLeftButton);
    ASSERT_EQ(s.view.PuzTitle, "T" + std::to_string(s.CurrentPuzzleNumber));
    seen.insert(s.CurrentPuzzleNumber);
    repeats += s.CurrentPuzzleNumber == before;
  }
  EXPECT_EQ(seen, (std::set<int>{1, 2, 3, 4, 5}));
  EXPECT_GT(repeats, 0);
}

TEST(TypedNumber, JumpsOnlyWithinTheFile) {
  TempDir dir;
  GameState s = Showing(dir.Write("p.vlm", Records(10)), 1);
  test::RecordingUi ui;
  s.view.PuzNumNow = " 7";
  PuzNumNowEnter(s, ui);
  EXPECT_EQ(s.view.PuzTitle, "T7");
  EXPECT_EQ(s.view.PuzNumNow, "7");
  for (const char* typed : {"0", "11", "-1", "abc", "", "99999999999"}) {
    s.view.PuzNumNow = typed;
    PuzNumNowEnter(s, ui);
    EXPECT_EQ(s.CurrentPuzzleNumber, 7) << typed;
    EXPECT_EQ(s.view.PuzNumNow, typed);  // the typed text stays
  }
  GameState none;  // no current file: nothing to jump to
  none.view.PuzNumNow = "1";
  PuzNumNowEnter(none, ui);
  EXPECT_EQ(none.CurrentPuzzleNumber, 0);
  EXPECT_TRUE(ui.messages.empty());
}

class Delete : public ::testing::Test {
 protected:
  TempDir dir_, work_;
  test::InDirectory here_{work_.path()};
  test::RecordingUi ui_;
};

TEST_F(Delete, RemovesTheRecordKeepsLaterHeaderNumbersAndShowsItsNeighbour) {
  // Deleting record n of five shows the new n for the first, else n - 1.
  const struct {
    int n, shown;
    const char* title;
  } cases[] = {{1, 1, "T2"}, {5, 4, "T4"}, {3, 2, "T2"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.n);
    const std::string file = dir_.Write("p.vlm", "notes before\r\n" + Records(5));
    GameState s = Showing(file, c.n);
    mnudelete(s, ui_);
    EXPECT_EQ(ui_.questions.back(), "Delete current puzzle from file:\r\n" + file);
    EXPECT_EQ(ui_.messages.back(), "Done");
    std::string expected = "notes before\r\n";
    for (int i = 1; i <= 5; ++i)
      if (i != c.n) expected += Record(i, "T" + std::to_string(i), i - 1);
    EXPECT_EQ(dir_.Read("p.vlm"), expected);
    EXPECT_EQ(work_.Read("velmora.tmp"), expected);  // the work file stays in the current folder
    EXPECT_EQ(s.CurrentPuzzleNumber, c.shown);
    EXPECT_EQ(s.view.PuzTitle, c.title);
    EXPECT_EQ(s.view.MaxPuzCount, " of 4");
  }
}

TEST_F(Delete, UsesTheNumberInTheBoxAndStopsAfterAHundredLines) {
  std::string stray;
  for (int i = 1; i <= 150; ++i) stray += "line" + std::to_string(i) + "\r\n";
  const std::string file = dir_.Write("p.vlm", Record(1, "T1") + stray + Record(2, "T2", 1));
  GameState s = Showing(file, 2);
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
    EXPECT_EQ(s.view.PuzTitle, "T2");
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
  TempDir dir;
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
