// One Puzzle, Multiple Puzzles and the hidden transformation button: what
// they show, where the puzzles go, their numbers and titles, and Cancel.
#include "creation/create_commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "app/app_commands.h"
#include "files/puzzle_file.h"
#include "model/text.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::TempDir;

// What the progress panel, status line and caption read at one moment.
struct Seen {
  std::string NewLab, pb, Caption;
  bool Frame1Visible;
  bool operator==(const Seen&) const = default;
};

// Records each new look of the controls and lets a test act at the yields.
class CreateUi : public test::RecordingUi {
 public:
  explicit CreateUi(GameState& s) : s_(s) {}
  void ControlsChanged() override {
    RecordingUi::ControlsChanged();
    const Seen now{s_.view.NewLab, s_.view.pb, s_.view.Caption, s_.view.Frame1Visible};
    if (seen.empty() || !(seen.back() == now)) seen.push_back(now);
  }
  void SetBusy(bool on) override {
    busy = on;
    if (on) ++busyOn;
  }
  void Yield() override {
    ++yields;
    if (yielding || !onYield) return;
    yielding = true;  // cmdcancel yields too
    onYield();
    yielding = false;
  }
  bool Showed(const Seen& look) const {
    for (const Seen& s : seen) {
      if (s == look) return true;
    }
    return false;
  }

  std::vector<Seen> seen;
  std::function<void()> onYield;
  bool busy = false, yielding = false;
  int busyOn = 0, yields = 0;

 private:
  GameState& s_;
};

// A program folder whose puzzles.vlm (the three sample puzzles) is the
// current file, showing puzzle 2, with a reproducible random source.
struct Desk {
  explicit Desk(uint64_t seed = 7) {
    std::filesystem::copy_file(test::SampleFile(), dir.File("puzzles.vlm"));
    s.AppFolder = dir.path() + "/";
    s.CurrentPuzzleFile = dir.File("puzzles.vlm");
    std::string title;
    SilentUserInterface silent;
    EXPECT_EQ(LoadPuzzle(s, silent, s.CurrentPuzzleFile, 2, title, 1), 0);
    s.rng = Random::Seeded(seed);
  }
  std::string Temporary() const { return dir.File("TemporaryPuzzleFile.vlm"); }
  TempDir dir;
  GameState s;
};

// The lines of a CR LF text.
std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  size_t at = 0;
  while (at < text.size()) {
    size_t end = text.find("\r\n", at);
    if (end == std::string::npos) end = text.size();
    lines.push_back(text.substr(at, end - at));
    at = end + 2;
  }
  return lines;
}

struct Record {
  std::string header, title, size;
};

std::vector<Record> Records(const std::string& text) {
  std::vector<Record> records;
  const std::vector<std::string> lines = Lines(text);
  for (size_t i = 0; i + 2 < lines.size(); ++i) {
    if (!lines[i].empty() && lines[i][0] == '#') records.push_back({lines[i], lines[i + 1], lines[i + 2]});
  }
  return records;
}

// "Hard 15/11/2026 10:03:33" and the like.
bool IsAutomaticTitle(const std::string& title, const std::string& level) {
  // Written out rather than with <regex>, which the sanitizer build's
  // compiler warns about inside the standard library.
  const size_t blank = title.find(' ');
  const std::string name = title.substr(0, blank);
  if (name != "Easy" && name != "Hard" && name != "VHard") return false;
  if (!level.empty() && name != level) return false;
  const std::string when = blank == std::string::npos ? "" : title.substr(blank + 1);
  const std::string form = "00/00/0000 00:00:00";
  if (when.size() != form.size()) return false;
  for (size_t i = 0; i < form.size(); ++i) {
    if (form[i] == '0' ? !std::isdigit(static_cast<unsigned char>(when[i])) : when[i] != form[i])
      return false;
  }
  return true;
}

// `count` records of empty 7x7 puzzles, headed #1..#count.
std::string EmptyRecords(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) {
    text += "#" + std::to_string(i) + "\r\nOld " + std::to_string(i) + "\r\n 7, 7, 49\r\n";
    for (int r = 0; r < 7; ++r) text += "@@@@@@@|ABCDEFG\r\n";
  }
  return text;
}

Form3Values Batch(const std::string& file, const std::string& n, int level, const std::string& title = "") {
  Form3Values form;
  form.Text1 = n;
  form.FileNow = file;
  form.Text4 = title;
  form.Check1 = false;
  form.level = level;
  form.result = "Y";
  return form;
}

TEST(CreateGuard, BothCommandsRefuseWhileAutoSolveRuns) {
  Desk d;
  const std::string out = d.dir.File("out.vlm");
  d.s.Solving = 1;
  CreateUi ui(d.s);
  mnunewrandpuzx(d.s, ui);
  mnumultipuzx(d.s, ui, Batch(out, "2", kLevelEasy));
  cmdmakepuzzles(d.s, ui, kLevelEasy);
  EXPECT_EQ(ui.messages, std::vector<std::string>(3, "Cancel AutoSolve first"));
  EXPECT_EQ(ui.busyOn, 0);
  EXPECT_TRUE(ui.seen.empty());
  EXPECT_FALSE(FileExists(out));
  EXPECT_FALSE(FileExists(d.Temporary()));
  EXPECT_FALSE(FileExists(d.dir.File("puzzles_new.vlm")));
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 2);
}

TEST(OnePuzzle, AppendsToTheTemporaryFileShowsItAndSaysTheLevel) {
  Desk d;
  // The temporary file already holds two puzzles: the new one is the third.
  d.dir.Write("TemporaryPuzzleFile.vlm", EmptyRecords(2));
  CreateUi ui(d.s);
  mnunewrandpuzx(d.s, ui);

  const std::vector<Record> records = Records(d.dir.Read("TemporaryPuzzleFile.vlm"));
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[2].header, "#3");
  const std::string level = records[2].title.substr(0, records[2].title.find(' '));
  EXPECT_TRUE(IsAutomaticTitle(records[2].title, "")) << records[2].title;
  ASSERT_EQ(ui.messages, std::vector<std::string>{"Done - " + level});

  EXPECT_EQ(d.s.CurrentPuzzleFile, d.Temporary());
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 3);
  EXPECT_EQ(d.s.view.PuzNumNow, "3");
  EXPECT_EQ(d.s.view.MaxPuzCount, " of 3");
  EXPECT_EQ(d.s.view.PuzTitle, records[2].title);
  EXPECT_EQ(d.s.view.Caption, "File: " + d.Temporary());
  EXPECT_EQ(d.s.Rows, 7);
  EXPECT_EQ(d.s.Cols, 7);
  EXPECT_EQ(records[2].size, " 7, 7," + Str(CountBlanks(d.s)));
  EXPECT_GE(CountBlanks(d.s), 14);
  for (int r = 1; r <= 7; ++r) {
    for (int c = 1; c <= 7; ++c) {
      EXPECT_GE(d.s.SolutionGrid[r][c], 1);
      EXPECT_TRUE(d.s.Grid[r][c] == 0 || d.s.Grid[r][c] == d.s.SolutionGrid[r][c]);
    }
  }

  // While making it: the panel and both texts; afterwards the panel is gone.
  EXPECT_TRUE(ui.Showed({"Creating New Puzzle...", " This may take a bit of time...",
                         "File: " + d.dir.File("puzzles.vlm"), true}));
  EXPECT_GT(ui.yields, 0);
  EXPECT_FALSE(d.s.view.Frame1Visible);
  EXPECT_EQ(d.s.view.pb, "");
  EXPECT_GE(ui.busyOn, 1);
  EXPECT_FALSE(ui.busy);
}

TEST(OnePuzzle, CancelStartsThePuzzleOverInsteadOfEndingTheCommand) {
  Desk d(3);
  CreateUi ui(d.s);
  int cancels = 0;
  ui.onYield = [&] {
    if (cancels == 0) {
      ++cancels;
      cmdcancel(d.s, ui);
    }
  };
  mnunewrandpuzx(d.s, ui);
  ASSERT_EQ(cancels, 1);
  // The panel went to " Canceling..." and then back to the first text for the new start.
  auto canceling =
      std::find_if(ui.seen.begin(), ui.seen.end(), [](const Seen& l) { return l.NewLab == kCancelingText; });
  ASSERT_NE(canceling, ui.seen.end());
  EXPECT_NE(std::find_if(canceling, ui.seen.end(),
                         [](const Seen& l) { return l.NewLab == "Creating New Puzzle..."; }),
            ui.seen.end());
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0].rfind("Done - ", 0), 0u);
  // The finished puzzle, not the cut-off one, is what was written.
  EXPECT_EQ(Records(d.dir.Read("TemporaryPuzzleFile.vlm")).size(), 1u);
  for (int r = 1; r <= 7; ++r) {
    for (int c = 1; c <= 7; ++c) EXPECT_GE(d.s.SolutionGrid[r][c], 1);
  }
}

TEST(MultiplePuzzles, NothingHappensUnlessTheDialogSaidCreate) {
  Desk d;
  const std::string out = d.dir.File("out.vlm");
  CreateUi ui(d.s);
  for (const char* result : {"X", "", "y"}) {
    Form3Values form = Batch(out, "2", kLevelEasy);
    form.result = result;
    mnumultipuzx(d.s, ui, form);
  }
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_TRUE(ui.seen.empty());
  EXPECT_FALSE(FileExists(out));
}

TEST(MultiplePuzzles, BatchNumbersOnAfterTheRecordsInTheFileAndReportsProgress) {
  Desk d;
  const std::string out = d.dir.Write("out.vlm", EmptyRecords(12));
  const Board<int32_t> shown = d.s.Grid;
  CreateUi ui(d.s);
  mnumultipuzx(d.s, ui, Batch(out, "3", kLevelEasy, "   "));

  const std::vector<Record> records = Records(d.dir.Read("out.vlm"));
  ASSERT_EQ(records.size(), 15u);
  for (int i = 0; i < 3; ++i) {
    const Record& r = records[static_cast<size_t>(12 + i)];
    EXPECT_EQ(r.header, "#" + std::to_string(13 + i));
    EXPECT_TRUE(IsAutomaticTitle(r.title, "Easy")) << r.title;  // a blank title is no title
    EXPECT_EQ(r.size, " 7, 7, 14");
  }
  EXPECT_EQ(records[11].title, "Old 12");
  EXPECT_EQ(ui.messages, std::vector<std::string>{" 3 new puzzles added to file:\r\n" + out});

  for (int i = 1; i <= 3; ++i) {
    const std::string ofN = " " + std::to_string(i) + " of 3";
    EXPECT_TRUE(
        ui.Showed({"Creating Puzzle" + ofN + "\r\nOutput File: " + out, " New" + ofN, "New" + ofN, true}))
        << "puzzle " << i;
  }
  // The puzzle shown before comes back, in its own file.
  EXPECT_EQ(d.s.CurrentPuzzleFile, d.dir.File("puzzles.vlm"));
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(d.s.view.PuzTitle, "Sample 2");
  EXPECT_EQ(d.s.view.Caption, "File: " + d.dir.File("puzzles.vlm"));
  EXPECT_EQ(d.s.Grid, shown);
  EXPECT_EQ(d.s.view.pb, " Done");
  EXPECT_FALSE(d.s.view.Frame1Visible);
  EXPECT_EQ(d.s.CancelRequest, 0);
  EXPECT_FALSE(ui.busy);
  EXPECT_FALSE(FileExists(d.Temporary()));
}

TEST(MultiplePuzzles, OwnTitleGoesOnEveryPuzzleAndEachLoadsBack) {
  Desk d(5);
  const std::string out = d.dir.File("new.vlm");  // created by the first append
  CreateUi ui(d.s);
  mnumultipuzx(d.s, ui, Batch(out, "2", kLevelHard, " My set "));
  const std::vector<Record> records = Records(d.dir.Read("new.vlm"));
  ASSERT_EQ(records.size(), 2u);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(records[static_cast<size_t>(i)].header, "#" + std::to_string(i + 1));
    EXPECT_EQ(records[static_cast<size_t>(i)].title, " My set ");
    GameState loaded;
    SilentUserInterface silent;
    std::string title;
    ASSERT_EQ(LoadPuzzle(loaded, silent, out, i + 1, title, 0), 0);
    const int blanks = CountBlanks(loaded);
    EXPECT_GE(blanks, 14);
    EXPECT_LE(blanks, 18);
  }
  EXPECT_EQ(ui.messages, std::vector<std::string>{" 2 new puzzles added to file:\r\n" + out});
}

TEST(MultiplePuzzles, NumberOfPuzzlesIsReadLeniently) {
  struct Case {
    const char* text;
    int made;
  };
  for (const Case& c :
       {Case{"abc", 0}, Case{"", 0}, Case{"-2", 0}, Case{"99999999999", 0}, Case{"2 puzzles", 2}}) {
    Desk d;
    const std::string out = d.dir.File("out.vlm");
    CreateUi ui(d.s);
    mnumultipuzx(d.s, ui, Batch(out, c.text, kLevelEasy));
    SCOPED_TRACE(c.text);
    EXPECT_EQ(ui.messages, std::vector<std::string>{Str(c.made) + " new puzzles added to file:\r\n" + out});
    EXPECT_EQ(CountPuzzles(out), c.made);
    EXPECT_EQ(d.s.view.pb, " Done");
    EXPECT_EQ(d.s.CurrentPuzzleNumber, 2);
  }
}

TEST(MultiplePuzzles, DisplayOnlyNeverTouchesTheOutputFile) {
  Desk d;
  const std::string out = d.dir.Write("out.vlm", EmptyRecords(4));
  const std::string before = d.dir.Read("out.vlm");
  d.dir.Write("TemporaryPuzzleFile.vlm", EmptyRecords(1));
  CreateUi ui(d.s);
  Form3Values form = Batch(out, "5", kLevelEasy, "Ignored title");
  form.Check1 = true;
  mnumultipuzx(d.s, ui, form);

  EXPECT_EQ(d.dir.Read("out.vlm"), before);
  const std::vector<Record> records = Records(d.dir.Read("TemporaryPuzzleFile.vlm"));
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(records[1].header, "#2");
  EXPECT_TRUE(IsAutomaticTitle(records[1].title, "Easy")) << records[1].title;
  EXPECT_EQ(records[1].size, " 7, 7, 14");
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Done - Easy"});
  EXPECT_EQ(d.s.CurrentPuzzleFile, d.Temporary());
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 2);
  EXPECT_TRUE(ui.Showed({"Creating Puzzle", "", "File: " + d.dir.File("puzzles.vlm"), true}));
  EXPECT_FALSE(d.s.view.Frame1Visible);
}

TEST(MultiplePuzzles, CancelEndsTheBatchAndCountsThePuzzleItCutShort) {
  Desk d(9);
  const std::string out = d.dir.Write("out.vlm", EmptyRecords(2));
  CreateUi ui(d.s);
  bool pressed = false;
  // Pressed during the making of puzzle 2 of 5: that one is still written.
  ui.onYield = [&] {
    if (!pressed && d.s.view.Caption == "New 2 of 5") {
      pressed = true;
      cmdcancel(d.s, ui);
      EXPECT_EQ(d.s.view.NewLab, kCancelingText);
    }
  };
  mnumultipuzx(d.s, ui, Batch(out, "5", kLevelEasy));
  ASSERT_TRUE(pressed);
  EXPECT_EQ(ui.messages, std::vector<std::string>{" 2 new puzzles added to file:\r\n" + out});
  const std::vector<Record> records = Records(d.dir.Read("out.vlm"));
  ASSERT_EQ(records.size(), 4u);
  EXPECT_EQ(records[3].header, "#4");
  for (const Seen& look : ui.seen) EXPECT_NE(look.Caption, "New 3 of 5");
  EXPECT_EQ(d.s.CancelRequest, 0);
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 2);
}

TEST(MultiplePuzzles, CancelBeforeTheFirstPuzzleMakesNone) {
  Desk d;
  const std::string out = d.dir.File("out.vlm");
  CreateUi ui(d.s);
  ui.onYield = [&] { cmdcancel(d.s, ui); };
  mnumultipuzx(d.s, ui, Batch(out, "4", kLevelRandom));
  EXPECT_EQ(ui.messages, std::vector<std::string>{" 0 new puzzles added to file:\r\n" + out});
  EXPECT_FALSE(FileExists(out));
  EXPECT_EQ(d.s.CancelRequest, 0);
}

TEST(CreateFailures, AFileThatCannotBeWrittenIsReportedAndTheShownPuzzleKept) {
  Desk d;
  const Board<int32_t> shown = d.s.Grid;
  const std::string out = d.dir.File("no-such-folder/out.vlm");
  CreateUi ui(d.s);
  mnumultipuzx(d.s, ui, Batch(out, "3", kLevelEasy));
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"Error apending puzzle to file: " + out,
                                                   " 0 new puzzles added to file:\r\n" + out}));
  EXPECT_EQ(d.s.Grid, shown);

  // One Puzzle with a program folder that cannot take the temporary file.
  ui.messages.clear();
  d.s.AppFolder = d.dir.File("no-such-folder") + "/";
  mnunewrandpuzx(d.s, ui);
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Error apending puzzle to file: " + d.s.AppFolder +
                                                  "TemporaryPuzzleFile.vlm"});
  EXPECT_EQ(d.s.CurrentPuzzleFile, d.dir.File("puzzles.vlm"));
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(d.s.Grid, shown);
  EXPECT_FALSE(d.s.view.Frame1Visible);
}

TEST(MultiplePuzzles, WithNoPuzzleShownTheBoardIsLeftAsItWas) {
  Desk d;
  // As after a first run: no current file, an empty board.
  GameState& s = d.s;
  s.CurrentPuzzleFile.clear();
  s.CurrentPuzzleNumber = 0;
  for (auto& row : s.Grid) row.fill(0);
  const Board<int32_t> solution = s.SolutionGrid;
  CreateUi ui(s);
  mnumultipuzx(s, ui, Batch(d.dir.File("out.vlm"), "1", kLevelEasy));
  EXPECT_EQ(CountPuzzles(d.dir.File("out.vlm")), 1);
  for (int r = 1; r <= 7; ++r) {
    for (int c = 1; c <= 7; ++c) EXPECT_EQ(s.Grid[r][c], 0);
  }
  EXPECT_EQ(s.SolutionGrid, solution);
  EXPECT_GT(ui.boards, 0);
}

TEST(MakePuzzlesButton, TransformsTheCurrentFileAndShowsTheCurrentPuzzleAgain) {
  Desk d;
  const Board<int32_t> shown = d.s.Grid;
  CreateUi ui(d.s);
  cmdmakepuzzles(d.s, ui, kLevelEasy);
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], " 3 puzzles made");
  EXPECT_EQ(CountPuzzles(d.dir.File("puzzles_new.vlm")), 3);
  EXPECT_EQ(d.s.Grid, shown);
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 2);
  EXPECT_FALSE(ui.busy);

  // No current file: the transformation's own "error?", and the board unchanged.
  d.s.CurrentPuzzleFile.clear();
  cmdmakepuzzles(d.s, ui, kLevelRandom);
  EXPECT_EQ(ui.messages.back(), "error?");
  EXPECT_EQ(d.s.Grid, shown);
}

}  // namespace
}  // namespace velmora
