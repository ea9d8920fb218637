// File and Puzzle menu commands, the arrows and the typed number, on real files.
#include "files/file_commands.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <set>

#include "board/play.h"
#include "files/puzzle_file.h"
#include "model/text.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::TempDir;

// Answers file dialogs from a queue and remembers what was asked.
class FileUi : public test::RecordingUi {
 public:
  std::string AskFileName(const FileDialogRequest& request) override {
    requests.push_back(request);
    if (onDialog) onDialog();
    if (names.empty()) return {};
    std::string name = names.front();
    names.pop_front();
    return name;
  }
  void SetBusy(bool b) override { busy = b; }
  std::deque<std::string> names;
  std::vector<FileDialogRequest> requests;
  std::function<void()> onDialog;
  bool busy = false;
};

// Runs a test in its own current directory, where velmora.tmp is written.
class InDirectory {
 public:
  explicit InDirectory(const std::string& dir) : old_(std::filesystem::current_path()) {
    std::filesystem::current_path(dir);
  }
  ~InDirectory() {
    std::error_code ec;
    std::filesystem::current_path(old_, ec);
  }

 private:
  std::filesystem::path old_;
};

// A loadable record whose row r has its solution letters shifted by `k`, so
// records can be told apart by their grids as well as their titles.
std::string Record(int header, const std::string& title, int k = 0) {
  std::string text = "#" + std::to_string(header) + "\r\n" + title + "\r\n 7, 7, 49\r\n";
  for (int r = 0; r < 7; ++r) {
    std::string solution;
    for (int c = 0; c < 7; ++c) solution += static_cast<char>('A' + (k + c) % 52);
    text += "@@@@@@@|" + solution + "\r\n";
  }
  return text;
}

std::string Records(int count, int firstHeader = 1) {
  std::string text;
  for (int i = 0; i < count; ++i) text += Record(firstHeader + i, "T" + std::to_string(i + 1), i);
  return text;
}

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

// Header lines of a file, in order.
std::vector<std::string> Headers(const std::string& contents) {
  std::vector<std::string> headers;
  size_t at = 0;
  while (at < contents.size()) {
    const size_t end = contents.find("\r\n", at);
    const std::string line = contents.substr(at, end == std::string::npos ? std::string::npos : end - at);
    if (!line.empty() && line[0] == '#') headers.push_back(line);
    if (end == std::string::npos) break;
    at = end + 2;
  }
  return headers;
}

bool RunningAsRoot() { return ::geteuid() == 0; }

TEST(ConfirmOverwrite, AsksOnlyForNonEmptyFiles) {
  TempDir dir;
  FileUi ui;
  EXPECT_EQ(ConfirmOverwrite(ui, dir.File("absent.vlm")), 1);
  EXPECT_EQ(ConfirmOverwrite(ui, dir.Write("empty.vlm", "")), 1);
  EXPECT_EQ(ConfirmOverwrite(ui, dir.path()), 1);  // cannot be measured: counts as absent
  EXPECT_TRUE(ui.questions.empty());

  const std::string full = dir.Write("full.vlm", "x");
  EXPECT_EQ(ConfirmOverwrite(ui, full), 1);
  ui.answer = false;
  EXPECT_EQ(ConfirmOverwrite(ui, full), 0);
  EXPECT_EQ(ui.questions, std::vector<std::string>(2, "OverWrite file: " + full + " ?"));
}

TEST(FileDialog, AsksWithTheProgramTitleFilterAndFolderAndKeepsTheDirectory) {
  TempDir dir, elsewhere;
  const std::string file = dir.Write("p.vlm", Records(2));
  GameState s = Showing(file, 2);
  FileUi ui;
  InDirectory here(dir.path());
  // A dialog that wanders off to another folder.
  ui.onDialog = [&] { std::filesystem::current_path(elsewhere.path()); };
  mnuloadpuz(s, ui);  // cancelled
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
  // Cancelling changes nothing and says nothing.
  EXPECT_EQ(s.CurrentPuzzleFile, file);
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_TRUE(ui.questions.empty());
  EXPECT_EQ(dir.Read("p.vlm"), Records(2));
}

TEST(Load, ShowsTheFirstPuzzleAndKeepsTheNewNameEvenWhenLoadingFails) {
  TempDir dir;
  const std::string first = dir.Write("a.vlm", Records(3));
  const std::string second = dir.Write("b.vlm", Record(9, "other", 20) + Record(4, "x"));
  GameState s = Showing(first, 3);
  FileUi ui;
  ui.names = {second, dir.File("missing.vlm")};
  mnuloadpuz(s, ui);
  EXPECT_EQ(s.CurrentPuzzleFile, second);
  EXPECT_EQ(s.CurrentPuzzleNumber, 1);
  EXPECT_EQ(s.view.PuzTitle, "other");
  EXPECT_EQ(s.view.MaxPuzCount, " of 2");
  EXPECT_EQ(s.view.Caption, "File: " + second);
  EXPECT_EQ(s.SolutionGrid[1][1], 21);
  EXPECT_FALSE(ui.busy);

  mnuloadpuz(s, ui);
  EXPECT_EQ(s.CurrentPuzzleFile, dir.File("missing.vlm"));
  EXPECT_EQ(s.CurrentPuzzleNumber, 1);
  EXPECT_EQ(s.view.PuzTitle, "other");  // the old board stays on show
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_FALSE(ui.busy);
}

TEST(Copy, CopiesAndAsksBeforeOverwritingANonEmptyFile) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(3));
  GameState s = Showing(file, 2);
  FileUi ui;

  const std::string fresh = dir.File("new.vlm");
  ui.names = {fresh};
  mnusaveas(s, ui);
  EXPECT_TRUE(ui.questions.empty());
  EXPECT_EQ(dir.Read("new.vlm"), Records(3));
  EXPECT_EQ(ui.messages.back(), "Puzzle file saved as:\r\n" + fresh);
  EXPECT_EQ(s.CurrentPuzzleFile, file);  // the current file stays current

  const std::string other = dir.Write("other.vlm", Record(1, "keep me"));
  ui.answer = false;
  ui.names = {other};
  mnusaveas(s, ui);
  EXPECT_EQ(ui.questions.back(), "OverWrite file: " + other + " ?");
  EXPECT_EQ(dir.Read("other.vlm"), Record(1, "keep me"));
  EXPECT_EQ(dir.Read("p.vlm"), Records(3));
  EXPECT_EQ(ui.messages.size(), 1u);

  ui.answer = true;
  ui.names = {other};
  mnusaveas(s, ui);
  EXPECT_EQ(dir.Read("other.vlm"), Records(3));

  // Copying a file onto itself keeps it.
  ui.names = {file};
  mnusaveas(s, ui);
  EXPECT_EQ(dir.Read("p.vlm"), Records(3));
  EXPECT_EQ(ui.messages.back(), "Puzzle file saved as:\r\n" + file);
}

TEST(Copy, ErrorsLeaveTheTargetAlone) {
  TempDir dir;
  GameState s = Showing(dir.Write("p.vlm", Records(2)), 1);
  FileUi ui;
  // Into a folder that does not exist.
  const std::string nowhere = dir.File("no/such/folder.vlm");
  ui.names = {nowhere};
  mnusaveas(s, ui);
  EXPECT_EQ(ui.messages.back(), "Error saving to file:\r\n" + nowhere);

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
  GameState s = Showing(file, 2);
  s.Grid[1][1] = s.SolutionGrid[1][2];  // a wrong card: saved as the solution's
  s.view.PuzTitle = "edited title";
  FileUi ui;

  const std::string fresh = dir.File("fresh.vlm");
  ui.names = {fresh};
  mnusaveassli(s, ui);
  EXPECT_TRUE(ui.questions.empty());
  EXPECT_EQ(ui.messages.back(), "Puzzle number 1 added to file:\r\n" + fresh);
  const std::string written = dir.Read("fresh.vlm");
  EXPECT_EQ(written.substr(0, 24), "#1\r\nedited title\r\n 7, 7,");
  GameState back = Showing(fresh, 1);
  EXPECT_EQ(back.Grid[1][1], s.SolutionGrid[1][1]);
  EXPECT_EQ(back.Grid[1][2], 0);
  EXPECT_EQ(back.SolutionGrid, s.SolutionGrid);

  const std::string three = dir.Write("three.vlm", Records(3, 40));
  ui.names = {three};
  mnusaveassli(s, ui);
  EXPECT_EQ(ui.messages.back(), "Puzzle number 4 added to file:\r\n" + three);
  EXPECT_EQ(Headers(dir.Read("three.vlm")), (std::vector<std::string>{"#40", "#41", "#42", "#4"}));
  EXPECT_EQ(s.CurrentPuzzleFile, file);
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(s.view.MaxPuzCount, " of 3");

  ui.names = {dir.path()};
  mnusaveassli(s, ui);
  EXPECT_EQ(ui.messages.back(), "Error saving to file:\r\n" + dir.path());
}

TEST(Append, AddsTheBoardToTheCurrentFileAndShowsIt) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(3));
  GameState s = Showing(file, 2);
  s.Grid[3][3] = s.SolutionGrid[3][3];
  FileUi ui;

  ui.answer = false;
  mnuappend(s, ui);
  EXPECT_EQ(ui.questions.back(), "Append current puzzle to file:\r\n" + file);
  EXPECT_EQ(dir.Read("p.vlm"), Records(3));
  EXPECT_TRUE(ui.messages.empty());

  ui.answer = true;
  mnuappend(s, ui);
  EXPECT_EQ(ui.messages.back(), "Puzzle#4 appended to file " + file);
  EXPECT_EQ(Headers(dir.Read("p.vlm")).back(), "#4");
  EXPECT_EQ(s.CurrentPuzzleNumber, 4);
  EXPECT_EQ(s.view.PuzNumNow, "4");
  EXPECT_EQ(s.view.MaxPuzCount, " of 4");
  EXPECT_EQ(s.view.PuzTitle, "T2");
  EXPECT_EQ(s.PuzzleGrid[3][3], s.SolutionGrid[3][3]);
  EXPECT_FALSE(ui.busy);

  s.CurrentPuzzleFile = dir.File("no/such/folder.vlm");
  mnuappend(s, ui);
  EXPECT_EQ(ui.messages.back(), "Error apending puzzle to file: " + s.CurrentPuzzleFile);
}

TEST(SolvingGuard, RefusesAppendDeleteResetAndArrowsButNotTheOthers) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(3));
  GameState s = Showing(file, 2);
  s.Solving = 1;
  FileUi ui;
  mnuappend(s, ui);
  mnudelete(s, ui);
  mnupuzreset(s, ui);
  for (int arrow : {kArrowPrevious, kArrowNext, kArrowRandom}) arrowsMouseUp(s, ui, arrow, kLeftButton);
  EXPECT_EQ(ui.messages, std::vector<std::string>(6, "Cancel AutoSolve first"));
  EXPECT_TRUE(ui.questions.empty());
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(dir.Read("p.vlm"), Records(3));

  // The typed number and Save are not guarded.
  s.view.PuzNumNow = "3";
  PuzNumNowEnter(s, ui);
  EXPECT_EQ(s.CurrentPuzzleNumber, 3);
  s.Solving = 1;
  ui.names = {dir.File("saved.vlm")};
  mnusaveassli(s, ui);
  EXPECT_EQ(CountPuzzles(dir.File("saved.vlm")), 1);
}

TEST(Reset, ReloadsTheTypedNumberFromTheFileOnYes) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(3));
  GameState s = Showing(file, 2);
  s.Grid[1][1] = s.SolutionGrid[1][1];
  FileUi ui;
  ui.answer = false;
  mnupuzreset(s, ui);
  EXPECT_EQ(ui.questions.back(), "Reset puzzle from file?");
  EXPECT_EQ(s.Grid[1][1], s.SolutionGrid[1][1]);

  ui.answer = true;
  mnupuzreset(s, ui);
  EXPECT_EQ(s.Grid[1][1], 0);
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);

  // The number is whatever the box holds, even without Enter.
  s.view.PuzNumNow = "3.9";
  mnupuzreset(s, ui);
  EXPECT_EQ(s.view.PuzTitle, "T3");
  EXPECT_TRUE(ui.messages.empty());
}

TEST(Arrows, StepWrapJumpAndFallBack) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(10));
  GameState s = Showing(file, 1);
  FileUi ui;
  arrowsMouseUp(s, ui, kArrowPrevious, kLeftButton);
  EXPECT_EQ(s.CurrentPuzzleNumber, 10);
  EXPECT_EQ(s.view.PuzTitle, "T10");
  arrowsMouseUp(s, ui, kArrowNext, kLeftButton);
  EXPECT_EQ(s.CurrentPuzzleNumber, 1);
  arrowsMouseUp(s, ui, kArrowNext, kLeftButton);
  EXPECT_EQ(s.view.PuzTitle, "T2");
  arrowsMouseUp(s, ui, kArrowPrevious, kLeftButton);
  EXPECT_EQ(s.view.PuzTitle, "T1");
  s = Showing(file, 4);
  arrowsMouseUp(s, ui, kArrowNext, kRightButton);
  EXPECT_EQ(s.CurrentPuzzleNumber, 10);
  arrowsMouseUp(s, ui, kArrowPrevious, kRightButton);
  EXPECT_EQ(s.CurrentPuzzleNumber, 1);
  EXPECT_EQ(s.view.PuzNumNow, "1");

  // The count is taken afresh: records added meanwhile are reachable.
  {
    std::ofstream add(file, std::ios::binary | std::ios::app);
    add << Record(11, "T11");
  }
  arrowsMouseUp(s, ui, kArrowPrevious, kLeftButton);
  EXPECT_EQ(s.view.PuzTitle, "T11");
  EXPECT_EQ(s.PuzzleCount, 11);

  // A record that cannot be loaded: the view returns to the one shown.
  const std::string broken = dir.Write("b.vlm", Records(2) + "#3\r\nbad\r\n 7, 7, 0\r\nAB\r\n");
  s = Showing(broken, 2);
  arrowsMouseUp(s, ui, kArrowNext, kLeftButton);
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(s.view.PuzTitle, "T2");
  EXPECT_EQ(s.SolutionGrid[1][1], 2);
  EXPECT_TRUE(ui.messages.empty());
}

TEST(Arrows, DoNothingWithoutAPuzzleOrWithOneOnly) {
  TempDir dir;
  GameState none;
  none.CurrentPuzzleFile = dir.Write("p.vlm", Records(3));
  FileUi ui;
  for (int arrow : {kArrowPrevious, kArrowNext, kArrowRandom}) {
    for (int button : {kLeftButton, kRightButton}) arrowsMouseUp(none, ui, arrow, button);
  }
  EXPECT_EQ(none.CurrentPuzzleNumber, 0);
  EXPECT_EQ(ui.boards, 0);

  GameState one = Showing(dir.Write("one.vlm", Record(1, "only")), 1);
  one.Solving = 1;  // not even the guard's message
  for (int arrow : {kArrowPrevious, kArrowNext, kArrowRandom}) arrowsMouseUp(one, ui, arrow, kLeftButton);
  EXPECT_EQ(one.CurrentPuzzleNumber, 1);
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(ui.boards, 0);
}

TEST(Arrows, RandomDrawsEveryRecordIncludingTheCurrentOne) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(5));
  GameState s = Showing(file, 3);
  s.rng = Random::Seeded(7);
  FileUi ui;
  std::set<int> seen;
  int repeats = 0;
  for (int i = 0; i < 200; ++i) {
    const int before = s.CurrentPuzzleNumber;
    arrowsMouseUp(s, ui, kArrowRandom, i % 2 ? kRightButton : kLeftButton);
    ASSERT_GE(s.CurrentPuzzleNumber, 1);
    ASSERT_LE(s.CurrentPuzzleNumber, 5);
    EXPECT_EQ(s.view.PuzTitle, "T" + std::to_string(s.CurrentPuzzleNumber));
    seen.insert(s.CurrentPuzzleNumber);
    repeats += s.CurrentPuzzleNumber == before;
  }
  EXPECT_EQ(seen.size(), 5u);
  EXPECT_GT(repeats, 0);
}

TEST(TypedNumber, JumpsOnlyWithinTheFile) {
  TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(10));
  GameState s = Showing(file, 1);
  FileUi ui;
  s.view.PuzNumNow = " 7";
  PuzNumNowEnter(s, ui);
  EXPECT_EQ(s.CurrentPuzzleNumber, 7);
  EXPECT_EQ(s.view.PuzTitle, "T7");
  EXPECT_EQ(s.view.PuzNumNow, "7");
  for (const char* typed : {"0", "11", "-1", "abc", "", "99999999999"}) {
    s.view.PuzNumNow = typed;
    PuzNumNowEnter(s, ui);
    EXPECT_EQ(s.CurrentPuzzleNumber, 7) << typed;
    EXPECT_EQ(s.view.PuzNumNow, typed);  // the typed text stays
  }
  s.view.PuzNumNow = "10";
  PuzNumNowEnter(s, ui);
  EXPECT_EQ(s.view.PuzTitle, "T10");

  // No current file: nothing to jump to.
  GameState none;
  none.view.PuzNumNow = "1";
  PuzNumNowEnter(none, ui);
  EXPECT_EQ(none.CurrentPuzzleNumber, 0);
  EXPECT_TRUE(ui.messages.empty());
}

class Delete : public ::testing::Test {
 protected:
  void SetUp() override { here_ = std::make_unique<InDirectory>(work_.path()); }
  void TearDown() override { here_.reset(); }
  TempDir dir_, work_;
  std::unique_ptr<InDirectory> here_;
  FileUi ui_;
};

TEST_F(Delete, FirstRecordShowsTheFormerSecondAndKeepsHeaderNumbers) {
  const std::string file = dir_.Write("p.vlm", "notes before\r\n" + Records(4));
  GameState s = Showing(file, 1);
  mnudelete(s, ui_);
  EXPECT_EQ(ui_.questions.back(), "Delete current puzzle from file:\r\n" + file);
  EXPECT_EQ(ui_.messages.back(), "Done");
  const std::string after = dir_.Read("p.vlm");
  EXPECT_EQ(after, "notes before\r\n" + Record(2, "T2", 1) + Record(3, "T3", 2) + Record(4, "T4", 3));
  EXPECT_EQ(s.CurrentPuzzleNumber, 1);
  EXPECT_EQ(s.view.PuzTitle, "T2");
  EXPECT_EQ(s.view.MaxPuzCount, " of 3");
  // The work file stays in the current directory with the new contents.
  EXPECT_EQ(work_.Read("velmora.tmp"), after);
}

TEST_F(Delete, MiddleRecordShowsThePreviousOne) {
  const std::string file = dir_.Write("p.vlm", Records(10));
  GameState s = Showing(file, 5);
  mnudelete(s, ui_);
  EXPECT_EQ(Headers(dir_.Read("p.vlm")),
            (std::vector<std::string>{"#1", "#2", "#3", "#4", "#6", "#7", "#8", "#9", "#10"}));
  EXPECT_EQ(s.CurrentPuzzleNumber, 4);
  EXPECT_EQ(s.view.PuzTitle, "T4");
  EXPECT_EQ(s.PuzzleCount, 9);
}

TEST_F(Delete, LastRecordEndsTheFileWithThePreviousOne) {
  const std::string file = dir_.Write("p.vlm", Records(3));
  GameState s = Showing(file, 3);
  mnudelete(s, ui_);
  EXPECT_EQ(dir_.Read("p.vlm"), Records(2));
  EXPECT_EQ(s.view.PuzTitle, "T2");
  EXPECT_EQ(ui_.messages.back(), "Done");
}

TEST_F(Delete, UsesTheNumberInTheBoxAndStopsAtTheNextHeaderOrAfterAHundredLines) {
  // A stray 150-line block after record 1: dropping gives up after 100
  // lines and keeps the rest.
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

TEST_F(Delete, RefusesOnOnePuzzleAndOnNo) {
  const std::string one = dir_.Write("one.vlm", Record(1, "only"));
  GameState s = Showing(one, 1);
  mnudelete(s, ui_);
  EXPECT_EQ(ui_.messages.back(), "There is only one puzzle in this file");
  EXPECT_TRUE(ui_.questions.empty());

  // The count on show is stale: the recount after the question catches it.
  s.PuzzleCount = 2;
  mnudelete(s, ui_);
  EXPECT_EQ(ui_.questions.size(), 1u);
  EXPECT_EQ(ui_.messages, std::vector<std::string>(2, "There is only one puzzle in this file"));
  EXPECT_EQ(dir_.Read("one.vlm"), Record(1, "only"));

  const std::string two = dir_.Write("two.vlm", Records(2));
  GameState t = Showing(two, 2);
  ui_.answer = false;
  mnudelete(t, ui_);
  EXPECT_EQ(dir_.Read("two.vlm"), Records(2));
  EXPECT_EQ(ui_.messages.size(), 2u);
  EXPECT_FALSE(FileExists(work_.File("velmora.tmp")));
}

TEST_F(Delete, OriginalFileIsIntactWhenTheReplacementCannotBeWritten) {
  // A name so long that the temporary file beside it cannot exist: this
  // fails for every user, root included.
  const std::string file = dir_.Write(std::string(250, 'p') + ".vlm", Records(3));
  GameState s = Showing(file, 2);
  mnudelete(s, ui_);
  EXPECT_EQ(ui_.messages.back(), "Error saving to file:\r\n" + file);
  std::string contents;
  ASSERT_TRUE(ReadWholeFile(file, contents));
  EXPECT_EQ(contents, Records(3));
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(s.view.PuzTitle, "T2");
}

TEST_F(Delete, OriginalFileIsIntactInAReadOnlyFolder) {
  // The work file can be written and so could the file itself, but not its
  // folder: the replacement fails at its temporary file, so the file is
  // never rewritten in place, and the original stays whole.
  const std::string file = dir_.Write("p.vlm", Records(3));
  GameState s = Showing(file, 2);
  namespace fs = std::filesystem;
  fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read |
                            fs::perms::group_write | fs::perms::others_read | fs::perms::others_write);
  fs::permissions(dir_.path(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_read |
                                   fs::perms::group_exec | fs::perms::others_read | fs::perms::others_exec);
  fs::permissions(work_.path(), fs::perms::all);
  std::string message;
  if (RunningAsRoot()) {
    // Permissions do not stop root: the command runs as "nobody" instead.
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      if (::setgid(65534) != 0 || ::setuid(65534) != 0) ::_exit(3);
      FileUi ui;
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

TEST_F(Delete, OriginalFileIsIntactWhenTheWorkFileCannotBeWritten) {
  std::filesystem::create_directory(work_.File("velmora.tmp"));
  const std::string file = dir_.Write("p.vlm", Records(3));
  GameState s = Showing(file, 2);
  mnudelete(s, ui_);
  EXPECT_EQ(ui_.messages.back(), "Error saving to file:\r\n" + file);
  EXPECT_EQ(dir_.Read("p.vlm"), Records(3));
}

TEST(FileWithoutRecord, MissingFileAndRecordsBeyondTheEnd) {
  TempDir dir;
  std::string contents = "untouched";
  EXPECT_FALSE(FileWithoutRecord(dir.File("missing.vlm"), 1, contents));
  // LF-only input comes out in CR LF; a number past the end drops nothing.
  const std::string file = dir.Write("lf.vlm", "#1\nt\n#2\nu");
  ASSERT_TRUE(FileWithoutRecord(file, 5, contents));
  EXPECT_EQ(contents, "#1\r\nt\r\n#2\r\nu\r\n");
  ASSERT_TRUE(FileWithoutRecord(file, 2, contents));
  EXPECT_EQ(contents, "#1\r\nt\r\n");
}

}  // namespace
}  // namespace velmora
