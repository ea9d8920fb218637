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

// Records each new look of the progress panel, status line and caption
// ("NewLab|pb|Caption|Frame1Visible") and lets a test act at the yields.
class CreateUi : public test::RecordingUi {
 public:
  explicit CreateUi(GameState& s) : s_(s) {}
  void ControlsChanged() override {
    const auto& v = s_.view;
    const std::string now = v.NewLab + "|" + v.pb + "|" + v.Caption + "|" + std::to_string(v.Frame1Visible);
    if (seen.empty() || seen.back() != now) seen.push_back(now);
  }
  void Yield() override {
    RecordingUi::Yield();
    if (onYield) onYield();  // cmdcancel yields too, but only once
  }
  Strings seen;
  std::function<void()> onYield;

 private:
  GameState& s_;
};

// A program folder whose puzzles.vlm (the three sample puzzles) is the
// current file, showing puzzle 2, with a reproducible random source.
struct Desk {
  explicit Desk(uint64_t seed = 7) {
    std::filesystem::copy_file(test::SampleFile(), Puzzles());
    s = test::Loaded(Puzzles(), 2);
    s.session.AppFolder = dir.path() + "/";
    s.session.CurrentPuzzleFile = Puzzles();
    s.session.rng = Random::Seeded(seed);
  }
  std::string Puzzles() const { return dir.File("puzzles.vlm"); }
  std::string Temporary() const { return dir.File("TemporaryPuzzleFile.vlm"); }
  test::TempDir dir;
  GameState s;
  CreateUi ui{s};
};

// Header, title and size line of each record of a file.
std::vector<Strings> Records(const std::string& file) {
  std::vector<Strings> records;
  const Strings lines = test::Lines(file);
  for (size_t i = 0; i + 2 < lines.size(); ++i)
    if (!lines[i].empty() && lines[i][0] == '#') records.push_back({lines[i], lines[i + 1], lines[i + 2]});
  return records;
}

Form3Values Batch(const std::string& file, const std::string& n, int level, const std::string& title = "") {
  return {.Text1 = n, .FileNow = file, .Text4 = title, .Check1 = false, .level = level, .created = true};
}

TEST(CreateGuard, RefusedWhileAutoSolveRunsAndMultipleOnlyOnCreate) {
  Desk d;
  const std::string out = d.dir.File("out.vlm");
  Form3Values cancelled = Batch(out, "2", kLevelEasy);
  cancelled.created = false;  // the dialog closed with anything but Create
  mnumultipuzx(d.s, d.ui, cancelled);
  // A title that would read as a header, or as more than one line.
  for (const char* title : {"#Book 3", "evil\r\n#99\r\nx"})
    mnumultipuzx(d.s, d.ui, Batch(out, "2", kLevelEasy, title));
  d.s.session.Solving = 1;
  mnunewrandpuzx(d.s, d.ui);
  mnumultipuzx(d.s, d.ui, Batch(out, "2", kLevelEasy));
  cmdmakepuzzles(d.s, d.ui, kLevelEasy);
  const std::string refused = "A title cannot begin with \"#\" or hold a line break";
  EXPECT_EQ(d.ui.messages, (Strings{refused, refused, "Cancel AutoSolve first", "Cancel AutoSolve first",
                                    "Cancel AutoSolve first"}));
  EXPECT_TRUE(d.ui.busyOn == 0 && d.ui.seen.empty());
  for (const std::string& file : {out, d.Temporary(), d.dir.File("puzzles_new.vlm")})
    EXPECT_FALSE(FileExists(file));
}

TEST(OnePuzzle, AppendsToTheTemporaryFileShowsItAndSaysTheLevelACancelOnlyStartsItOver) {
  Desk d(3);
  d.dir.Write("TemporaryPuzzleFile.vlm", test::Records(2));  // the new puzzle is the third
  int cancels = 0;
  d.ui.onYield = [&] { cancels++ == 0 ? cmdcancel(d.s, d.ui) : void(); };
  mnunewrandpuzx(d.s, d.ui);
  std::string labels;  // the panel went to " Canceling..." and then back to the first text for the new start
  for (const std::string& look : d.ui.seen) labels += look.substr(0, look.find('|')) + ";";
  EXPECT_NE(labels.find("Creating New Puzzle...", labels.find(" Canceling...")), std::string::npos) << labels;
  // Shown as the third record of the temporary file, its title read back.
  EXPECT_EQ(d.s.session.CurrentPuzzleFile + Str(d.s.session.CurrentPuzzleNumber) + d.s.view.MaxPuzCount,
            d.Temporary() + " 3 of 3");
  const std::string& title = d.s.view.PuzTitle;
  EXPECT_TRUE(test::IsAutomaticTitle(title)) << title;
  EXPECT_EQ(d.ui.messages, Strings{"Done - " + title.substr(0, title.find(' '))});
  EXPECT_EQ(d.ui.seen.back(), "Creating New Puzzle...||File: " + d.Temporary() + "|0");
  EXPECT_TRUE(d.ui.busyOn >= 1 && !d.ui.busy);
}

TEST(MultiplePuzzles, NumbersOnAfterTheRecordsInTheFileWithAutomaticTitlesForABlankOne) {
  Desk d;
  const std::string out = d.dir.Write("out.vlm", test::Records(12));
  const Board<int32_t> shown = d.s.puzzle.Grid;
  mnumultipuzx(d.s, d.ui, Batch(out, "3", kLevelEasy, "   "));
  const std::vector<Strings> records = Records(d.dir.Read("out.vlm"));
  ASSERT_EQ(records.size(), 15u);
  for (int i = 0; i < 3; ++i) {
    const Strings& r = records[12 + static_cast<size_t>(i)];
    EXPECT_EQ(r[0] + r[2], "#" + std::to_string(13 + i) + " 7, 7, 14");
    EXPECT_TRUE(test::IsAutomaticTitle(r[1], "Easy")) << r[1];
  }
  const std::string second = "Creating Puzzle 2 of 3\r\nOutput File: " + out + "| New 2 of 3|New 2 of 3|1";
  EXPECT_EQ(std::ranges::count(d.ui.seen, second), 1);
  EXPECT_EQ(d.ui.messages, Strings{" 3 new puzzles added to file:\r\n" + out});
  // The puzzle shown before comes back, in its own file.
  EXPECT_EQ(d.s.session.CurrentPuzzleFile + Str(d.s.session.CurrentPuzzleNumber), d.Puzzles() + " 2");
  EXPECT_EQ(d.s.puzzle.Grid, shown);
  EXPECT_EQ(d.ui.seen.back(),
            "Creating Puzzle 3 of 3\r\nOutput File: " + out + "| Done|File: " + d.Puzzles() + "|0");
  EXPECT_FALSE(d.ui.busy || FileExists(d.Temporary()));
}

TEST(MultiplePuzzles, DisplayOnlyNeverTouchesTheOutputFile) {
  Desk d;
  const std::string out = d.dir.Write("out.vlm", test::Records(4));
  Form3Values form = Batch(out, "5", kLevelEasy, "Ignored title");
  form.Check1 = true;
  mnumultipuzx(d.s, d.ui, form);
  EXPECT_EQ(d.dir.Read("out.vlm"), test::Records(4));
  // Shown from the temporary file instead, with an automatic title.
  EXPECT_EQ(d.s.session.CurrentPuzzleFile + Str(d.s.session.CurrentPuzzleNumber), d.Temporary() + " 1");
  EXPECT_TRUE(test::IsAutomaticTitle(d.s.view.PuzTitle, "Easy")) << d.s.view.PuzTitle;
  EXPECT_EQ(d.ui.messages, Strings{"Done - Easy"});
}

TEST(MultiplePuzzles, OwnTitleOnEveryPuzzleAndCancelEndsTheBatchCountingThePuzzleItCutShort) {
  Desk d(9);
  const std::string out = d.dir.Write("out.vlm", test::Records(2));
  bool pressed = false;
  d.ui.onYield = [&] {  // pressed during the making of puzzle 2 of 5: that one is still written
    if (pressed || d.s.view.Caption != "New 2 of 5") return;
    pressed = true;
    cmdcancel(d.s, d.ui);
  };
  mnumultipuzx(d.s, d.ui, Batch(out, "5 puzzles", kLevelEasy, " My set "));  // the number read leniently
  ASSERT_TRUE(pressed);
  EXPECT_EQ(d.ui.messages, Strings{" 2 new puzzles added to file:\r\n" + out});
  const std::vector<Strings> records = Records(d.dir.Read("out.vlm"));  // the own title on every puzzle
  ASSERT_EQ(records.size(), 4u);
  EXPECT_EQ(records[2][0] + records[2][1] + records[3][0] + records[3][1], "#3 My set #4 My set ");
  EXPECT_EQ(Str(d.s.session.CancelRequest) + Str(d.s.session.CurrentPuzzleNumber), " 0 2");

  // The next batch's Cancel, pressed before its first puzzle, is not taken
  // for a second press of the one before; no file is created.
  d.ui.messages.clear();
  d.ui.onYield = [&] { cmdcancel(d.s, d.ui); };
  const std::string other = d.dir.File("other.vlm");
  mnumultipuzx(d.s, d.ui, Batch(other, "abc", kLevelRandom));  // not a number: none
  mnumultipuzx(d.s, d.ui, Batch(other, "3", kLevelRandom));
  EXPECT_EQ(d.ui.messages, Strings(2, " 0 new puzzles added to file:\r\n" + other));
  EXPECT_FALSE(FileExists(other));
  EXPECT_EQ(d.s.session.CancelRequest, 0);
}

TEST(CreateFailures, AFileThatCannotBeWrittenIsReportedAndTheShownPuzzleKept) {
  Desk d;
  const Board<int32_t> shown = d.s.puzzle.Grid;
  const std::string out = d.dir.File("no-such-folder/out.vlm");
  mnumultipuzx(d.s, d.ui, Batch(out, "3", kLevelEasy));
  EXPECT_EQ(d.ui.messages,
            (Strings{"Error apending puzzle to file: " + out, " 0 new puzzles added to file:\r\n" + out}));
  EXPECT_EQ(d.s.puzzle.Grid, shown);
}

TEST(MakePuzzlesButton, TransformsTheCurrentFileAndShowsTheCurrentPuzzleAgain) {
  Desk d;
  const Board<int32_t> shown = d.s.puzzle.Grid;
  cmdmakepuzzles(d.s, d.ui, kLevelEasy);
  EXPECT_EQ(CountPuzzles(d.dir.File("puzzles_new.vlm")), 3);
  d.s.session.CurrentPuzzleFile.clear();  // no current file: the transformation's own "error?"
  cmdmakepuzzles(d.s, d.ui, kLevelRandom);
  EXPECT_EQ(d.ui.messages, (Strings{" 3 puzzles made", "error?"}));
  EXPECT_EQ(d.s.puzzle.Grid, shown);
}

}  // namespace
}  // namespace velmora
