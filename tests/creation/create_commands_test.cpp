// One Puzzle, Multiple Puzzles and the hidden transformation button: what
// they show, where the puzzles go, their numbers and titles, and Cancel.
#include "creation/create_commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "app/app_commands.h"
#include "model/text.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using Strings = std::vector<std::string>;

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
    const Seen now{s_.view.NewLab, s_.view.pb, s_.view.Caption, s_.view.Frame1Visible};
    if (seen.empty() || !(seen.back() == now)) seen.push_back(now);
  }
  void Yield() override {
    RecordingUi::Yield();
    if (yielding || !onYield) return;
    yielding = true;  // cmdcancel yields too
    onYield();
    yielding = false;
  }
  bool Showed(const Seen& look) const { return std::find(seen.begin(), seen.end(), look) != seen.end(); }

  std::vector<Seen> seen;
  std::function<void()> onYield;
  bool yielding = false;

 private:
  GameState& s_;
};

// A program folder whose puzzles.vlm (the three sample puzzles) is the
// current file, showing puzzle 2, with a reproducible random source.
struct Desk {
  explicit Desk(uint64_t seed = 7) {
    std::filesystem::copy_file(test::SampleFile(), Puzzles());
    s = test::Loaded(Puzzles(), 2);
    s.AppFolder = dir.path() + "/";
    s.CurrentPuzzleFile = Puzzles();
    s.rng = Random::Seeded(seed);
  }
  std::string Puzzles() const { return dir.File("puzzles.vlm"); }
  std::string Temporary() const { return dir.File("TemporaryPuzzleFile.vlm"); }
  test::TempDir dir;
  GameState s;
};

struct Record {
  std::string header, title, size;
};

std::vector<Record> Records(const std::string& text) {
  std::vector<Record> records;
  const Strings lines = test::Lines(text);
  for (size_t i = 0; i + 2 < lines.size(); ++i) {
    if (!lines[i].empty() && lines[i][0] == '#') records.push_back({lines[i], lines[i + 1], lines[i + 2]});
  }
  return records;
}

class Create : public ::testing::Test {
 protected:
  Desk d;
  CreateUi ui{d.s};
};
using CreateGuard = Create;
using OnePuzzle = Create;
using MultiplePuzzles = Create;
using CreateFailures = Create;
using MakePuzzlesButton = Create;

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

TEST_F(CreateGuard, AllThreeCommandsRefuseWhileAutoSolveRuns) {
  const std::string out = d.dir.File("out.vlm");
  d.s.Solving = 1;
  mnunewrandpuzx(d.s, ui);
  mnumultipuzx(d.s, ui, Batch(out, "2", kLevelEasy));
  cmdmakepuzzles(d.s, ui, kLevelEasy);
  EXPECT_EQ(ui.messages, Strings(3, "Cancel AutoSolve first"));
  EXPECT_EQ(ui.busyOn, 0);
  EXPECT_TRUE(ui.seen.empty());
  for (const std::string& file : {out, d.Temporary(), d.dir.File("puzzles_new.vlm")})
    EXPECT_FALSE(FileExists(file));
}

TEST_F(OnePuzzle, AppendsToTheTemporaryFileShowsItAndSaysTheLevel) {
  d.dir.Write("TemporaryPuzzleFile.vlm", test::Records(2));  // the new puzzle is the third
  mnunewrandpuzx(d.s, ui);

  const std::vector<Record> records = Records(d.dir.Read("TemporaryPuzzleFile.vlm"));
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[2].header, "#3");
  const std::string level = records[2].title.substr(0, records[2].title.find(' '));
  EXPECT_TRUE(test::IsAutomaticTitle(records[2].title)) << records[2].title;
  EXPECT_EQ(ui.messages, Strings{"Done - " + level});
  EXPECT_EQ(d.s.CurrentPuzzleFile, d.Temporary());
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 3);
  EXPECT_EQ(d.s.view.MaxPuzCount, " of 3");
  EXPECT_EQ(d.s.view.PuzTitle, records[2].title);
  EXPECT_EQ(records[2].size, " 7, 7," + Str(CountBlanks(d.s)));
  EXPECT_EQ(d.s.Grid, test::Loaded(d.Temporary(), 3).Grid);
  // While making it: the panel and both texts; afterwards the panel is gone.
  EXPECT_TRUE(
      ui.Showed({"Creating New Puzzle...", " This may take a bit of time...", "File: " + d.Puzzles(), true}));
  EXPECT_GT(ui.yields, 0);
  EXPECT_FALSE(d.s.view.Frame1Visible);
  EXPECT_EQ(d.s.view.pb, "");
  EXPECT_GE(ui.busyOn, 1);
  EXPECT_FALSE(ui.busy);
}

TEST_F(OnePuzzle, CancelStartsThePuzzleOverInsteadOfEndingTheCommand) {
  d.s.rng = Random::Seeded(3);
  int cancels = 0;
  ui.onYield = [&] {
    if (cancels++ == 0) cmdcancel(d.s, ui);
  };
  mnunewrandpuzx(d.s, ui);
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
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c) EXPECT_GE(d.s.SolutionGrid[r][c], 1);
}

TEST_F(MultiplePuzzles, NothingHappensUnlessTheDialogSaidCreate) {
  const std::string out = d.dir.File("out.vlm");
  for (const char* result : {"X", "", "y"}) {
    Form3Values form = Batch(out, "2", kLevelEasy);
    form.result = result;
    mnumultipuzx(d.s, ui, form);
  }
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_TRUE(ui.seen.empty());
  EXPECT_FALSE(FileExists(out));
}

TEST_F(MultiplePuzzles, NumbersOnAfterTheRecordsInTheFileWithAutomaticTitlesForABlankOne) {
  const std::string out = d.dir.Write("out.vlm", test::Records(12));
  const Board<int32_t> shown = d.s.Grid;
  mnumultipuzx(d.s, ui, Batch(out, "3", kLevelEasy, "   "));

  const std::vector<Record> records = Records(d.dir.Read("out.vlm"));
  ASSERT_EQ(records.size(), 15u);
  EXPECT_EQ(records[11].title, "T12");
  for (int i = 0; i < 3; ++i) {
    const Record& r = records[static_cast<size_t>(12 + i)];
    EXPECT_EQ(r.header, "#" + std::to_string(13 + i));
    EXPECT_TRUE(test::IsAutomaticTitle(r.title, "Easy")) << r.title;
    EXPECT_EQ(r.size, " 7, 7, 14");
    const std::string ofN = " " + std::to_string(i + 1) + " of 3";
    EXPECT_TRUE(
        ui.Showed({"Creating Puzzle" + ofN + "\r\nOutput File: " + out, " New" + ofN, "New" + ofN, true}))
        << "puzzle " << i + 1;
  }
  EXPECT_EQ(ui.messages, Strings{" 3 new puzzles added to file:\r\n" + out});
  // The puzzle shown before comes back, in its own file.
  EXPECT_EQ(d.s.CurrentPuzzleFile, d.Puzzles());
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(d.s.view.Caption, "File: " + d.Puzzles());
  EXPECT_EQ(d.s.Grid, shown);
  EXPECT_EQ(d.s.view.pb, " Done");
  EXPECT_FALSE(d.s.view.Frame1Visible);
  EXPECT_EQ(d.s.CancelRequest, 0);
  EXPECT_FALSE(ui.busy);
  EXPECT_FALSE(FileExists(d.Temporary()));
}

TEST_F(MultiplePuzzles, NumberIsReadLenientlyAndAnOwnTitleGoesOnEveryPuzzle) {
  const std::pair<const char*, int> cases[] = {
      {"abc", 0}, {"", 0}, {"-2", 0}, {"99999999999", 0}, {"2 puzzles", 2}};
  for (const auto& [text, made] : cases) {
    SCOPED_TRACE(text);
    Desk run(5);
    const std::string out = run.dir.File("new.vlm");  // created by the first append
    CreateUi runUi(run.s);
    mnumultipuzx(run.s, runUi, Batch(out, text, kLevelHard, " My set "));
    EXPECT_EQ(runUi.messages, Strings{Str(made) + " new puzzles added to file:\r\n" + out});
    EXPECT_EQ(run.s.view.pb, " Done");
    const std::vector<Record> records = Records(run.dir.Read("new.vlm"));
    ASSERT_EQ(records.size(), static_cast<size_t>(made));
    for (int i = 0; i < made; ++i) {
      EXPECT_EQ(records[static_cast<size_t>(i)].header, "#" + std::to_string(i + 1));
      EXPECT_EQ(records[static_cast<size_t>(i)].title, " My set ");
      EXPECT_GE(CountBlanks(test::Loaded(out, i + 1)), 14);
    }
  }
}

TEST_F(MultiplePuzzles, DisplayOnlyNeverTouchesTheOutputFile) {
  const std::string out = d.dir.Write("out.vlm", test::Records(4));
  d.dir.Write("TemporaryPuzzleFile.vlm", test::Records(1));
  Form3Values form = Batch(out, "5", kLevelEasy, "Ignored title");
  form.Check1 = true;
  mnumultipuzx(d.s, ui, form);

  EXPECT_EQ(d.dir.Read("out.vlm"), test::Records(4));
  const std::vector<Record> records = Records(d.dir.Read("TemporaryPuzzleFile.vlm"));
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(records[1].header, "#2");
  EXPECT_TRUE(test::IsAutomaticTitle(records[1].title, "Easy")) << records[1].title;
  EXPECT_EQ(ui.messages, Strings{"Done - Easy"});
  EXPECT_EQ(d.s.CurrentPuzzleFile, d.Temporary());
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 2);
  EXPECT_TRUE(ui.Showed({"Creating Puzzle", "", "File: " + d.Puzzles(), true}));
  EXPECT_FALSE(d.s.view.Frame1Visible);
}

TEST_F(MultiplePuzzles, CancelEndsTheBatchAndCountsThePuzzleItCutShort) {
  d.s.rng = Random::Seeded(9);
  const std::string out = d.dir.Write("out.vlm", test::Records(2));
  bool pressed = false;
  ui.onYield = [&] {  // pressed during the making of puzzle 2 of 5: that one is still written
    if (pressed || d.s.view.Caption != "New 2 of 5") return;
    pressed = true;
    cmdcancel(d.s, ui);
  };
  mnumultipuzx(d.s, ui, Batch(out, "5", kLevelEasy));
  ASSERT_TRUE(pressed);
  EXPECT_EQ(ui.messages, Strings{" 2 new puzzles added to file:\r\n" + out});
  EXPECT_EQ(test::Headers(d.dir.Read("out.vlm")), (Strings{"#1", "#2", "#3", "#4"}));
  for (const Seen& look : ui.seen) EXPECT_NE(look.Caption, "New 3 of 5");
  EXPECT_EQ(d.s.CancelRequest, 0);
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 2);

  // The next batch's Cancel, pressed before its first puzzle, is not taken
  // for a second press of the one before.
  ui.messages.clear();
  ui.onYield = [&] { cmdcancel(d.s, ui); };
  mnumultipuzx(d.s, ui, Batch(out, "3", kLevelEasy));
  EXPECT_EQ(ui.messages, Strings{" 0 new puzzles added to file:\r\n" + out});

  // Cancel before the first puzzle: none is made and no file is created.
  Desk e;
  CreateUi early(e.s);
  early.onYield = [&] { cmdcancel(e.s, early); };
  mnumultipuzx(e.s, early, Batch(e.dir.File("out.vlm"), "4", kLevelRandom));
  EXPECT_EQ(early.messages, Strings{" 0 new puzzles added to file:\r\n" + e.dir.File("out.vlm")});
  EXPECT_FALSE(FileExists(e.dir.File("out.vlm")));
  EXPECT_EQ(e.s.CancelRequest, 0);
}

TEST_F(CreateFailures, AFileThatCannotBeWrittenIsReportedAndTheShownPuzzleKept) {
  const Board<int32_t> shown = d.s.Grid;
  const std::string out = d.dir.File("no-such-folder/out.vlm");
  mnumultipuzx(d.s, ui, Batch(out, "3", kLevelEasy));
  EXPECT_EQ(ui.messages,
            (Strings{"Error apending puzzle to file: " + out, " 0 new puzzles added to file:\r\n" + out}));
  EXPECT_EQ(d.s.Grid, shown);

  // One Puzzle with a program folder that cannot take the temporary file.
  ui.messages.clear();
  d.s.AppFolder = d.dir.File("no-such-folder") + "/";
  mnunewrandpuzx(d.s, ui);
  EXPECT_EQ(ui.messages,
            Strings{"Error apending puzzle to file: " + d.s.AppFolder + "TemporaryPuzzleFile.vlm"});
  EXPECT_EQ(d.s.CurrentPuzzleFile, d.Puzzles());
  EXPECT_EQ(d.s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(d.s.Grid, shown);
  EXPECT_FALSE(d.s.view.Frame1Visible);
}

TEST_F(MultiplePuzzles, WithNoPuzzleShownTheBoardIsLeftAsItWas) {
  // As after a first run: no current file, an empty board.
  d.s.CurrentPuzzleFile.clear();
  d.s.CurrentPuzzleNumber = 0;
  for (auto& row : d.s.Grid) row.fill(0);
  const GameState before = d.s;
  mnumultipuzx(d.s, ui, Batch(d.dir.File("out.vlm"), "1", kLevelEasy));
  EXPECT_EQ(CountPuzzles(d.dir.File("out.vlm")), 1);
  EXPECT_EQ(d.s.Grid, before.Grid);
  EXPECT_EQ(d.s.SolutionGrid, before.SolutionGrid);
  EXPECT_GT(ui.boards, 0);
}

TEST_F(MakePuzzlesButton, TransformsTheCurrentFileAndShowsTheCurrentPuzzleAgain) {
  const Board<int32_t> shown = d.s.Grid;
  cmdmakepuzzles(d.s, ui, kLevelEasy);
  EXPECT_EQ(ui.messages, Strings{" 3 puzzles made"});
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
