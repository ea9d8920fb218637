// Printed pages as marks on a recording printer: headings, cells, remaining
// cards, the Current commands and the print loop over a file.
#include "printing/print_commands.h"

#include <gtest/gtest.h>

#include "model/rules.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using Strings = std::vector<std::string>;

// Every mark as "T x,y size text", "B x,y" or "S x,y suit", page by page;
// like a printer, a page break only shows once something is marked after it.
struct RecordingPage : PrintSurface {
  void Text(int x, int y, int points, bool, const std::string& text) override {
    Add("T " + At(x, y) + " " + std::to_string(points) + " " + text);
  }
  void Box(int x1, int y1, int x2, int y2) override {
    EXPECT_EQ(At(x2 - x1, y2 - y1), "810,810");
    Add("B " + At(x1, y1));
  }
  void Symbol(int suit, int x, int y, int) override { Add("S " + At(x, y) + " " + std::to_string(suit)); }
  void NewPage() override { pending = !pages.empty(); }
  int RightEdge() const override { return right; }
  int BottomEdge() const override { return bottom; }
  static std::string At(int x, int y) { return std::to_string(x) + "," + std::to_string(y); }
  void Add(const std::string& mark) {
    if (pages.empty() || pending) pages.emplace_back();
    pending = false;
    pages.back().push_back(mark);
  }
  // The headings ("Puz#" or "Sol#") of each page.
  std::vector<Strings> Headings() const {
    std::vector<Strings> out;
    for (const Strings& page : pages) {
      out.emplace_back();
      for (const std::string& m : page)
        if (m.find('#') != std::string::npos) out.back().push_back(m);
    }
    return out;
  }
  bool Has(const std::string& mark) const {
    return std::ranges::any_of(pages, [&](const Strings& p) { return std::ranges::count(p, mark) > 0; });
  }
  std::vector<Strings> pages;
  bool pending = false;
  int right = 11906 - 360, bottom = 16838 - 360;  // A4
};

struct RecordingJobs : PrintJobs {
  std::optional<PrintFileChoice> AskPrintFile(const std::string& file) override {
    return shownFile = file, answer;
  }
  PrintSurface* StartJob(const std::string&) override { return &page; }
  std::string EndJob() override { return ++ended, ""; }
  std::optional<PrintFileChoice> answer;
  std::string shownFile;
  RecordingPage page;
  int ended = 0;
};

TEST(PrintPage, HeadingCellsAndRemainingCardsOfPuzzleAndSolution) {
  GameState s = test::Loaded(test::SampleFile(), 1);
  s.puzzle.Grid[1][2] = -3;  // a suit-only mark prints as an empty box
  s.puzzle.Grid[2][1] = 1;   // the first card, 1S, prints as any other
  RecordingPage page;
  const PageOrigin grid =
      PrintPage(s.puzzle, s.view.Remain, page, {1800, 1400}, 12, "Easy 3", PageKind::kPuzzle);
  EXPECT_TRUE(grid.x == 1800 && grid.y == 1600);  // the grid starts below the heading
  const Strings& p = page.pages.at(0);
  EXPECT_EQ(p.front(), "T 1800,1400 8 Puz#12:Easy 3");
  // Row 1 of record 1: R (card 18, 5 of hearts), the mark, \ (28, 7 of clubs);
  // the footer and the spade beside the grid.
  for (const char* mark : {"B 1830,1630", "S 1890,1680 1", "T 2390,2130 14 5", "B 2640,1630", "B 3450,1630",
                           "S 3510,1680 3", "T 4010,2130 14 7", "S 1890,2490 0", "T 2390,2940 14 1",
                           "S 7900,1730 0", "T 6630,1400 6 Velmora Version 1.0"})
    EXPECT_TRUE(page.Has(mark)) << mark;
  EXPECT_FALSE(page.Has("S 2700,1680 2"));

  // Beside the puzzle the cards still to place, 300 twips apart on the line
  // of their suit (no hearts are left); beside the solution nothing.
  std::string beside;
  for (const std::string& m : p)
    if (m[0] == 'T' && m.back() != ' ' && std::stoi(m.substr(2)) >= 7840) beside += m.substr(2) + ";";
  EXPECT_EQ(beside,
            "8340,1780 14 2;8640,1780 14 6;8940,1780 14 8;9240,1780 14 9;9540,1780 14 J;9840,1780 14 K;"
            "8340,3400 14 1;8640,3400 14 3;8940,3400 14 8;9240,3400 14 T;"
            "8340,4210 14 3;8640,4210 14 5;8940,4210 14 Q;9240,4210 14 K;");

  RecordingPage solution;
  PrintPage(s.puzzle, s.view.Remain, solution, {1800, 8400}, 12, "Easy 3", PageKind::kSolution);
  EXPECT_TRUE(solution.Has("S 2700,8680 0"));  // the solution's spade where the mark was
  for (const std::string& m : solution.pages.at(0)) EXPECT_LT(std::stoi(m.substr(2)), 7500) << m;
}

TEST(PrintPage, EveryRemainingCardOfAFullSuitIsPrintedInsideA4AndLetterPaper) {
  GameState s = test::Loaded(test::SampleFile(), 1);
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c) s.puzzle.Grid[r][c] = 0;
  ASSERT_TRUE(UpdateOptions(s.puzzle, s.view.Remain));  // all 49 cards remain: at least one suit whole
  for (int right : {11906 - 360, 12240 - 360}) {
    RecordingPage page;
    page.right = right;
    int beside = 0;
    PrintPage(s.puzzle, s.view.Remain, page, {1800, 1400}, 1, "", PageKind::kPuzzle);
    for (const std::string& m : page.pages.at(0)) {
      if (m[0] != 'T' || m.back() == ' ' || m.find(" 14 ") == std::string::npos ||
          std::stoi(m.substr(2)) < 8340)
        continue;
      ++beside;
      EXPECT_LE(std::stoi(m.substr(2)) + 200, right) << m;
    }
    EXPECT_EQ(beside, 49);
  }
}

TEST(PrintCurrent, QuestionsTitlesOriginsAndDone) {
  using Command = void (*)(GameState&, UserInterface&, PrintJobs&);
  const struct {
    Command command;
    const char* question;
    Strings headings;
  } cases[] = {
      {mnuprintcurrentpuz, "Print Current Puzzle?", {"T 1800,1400 8 Puz#2:Sample 2"}},
      {mnuprintcurrentsol, "Print Current solution?", {"T 1800,1400 8 Sol#2:Sample 2"}},
      {mnuprintcurrent,
       "Print Current Puzzle and Solution?",
       {"T 1800,1400 8 Puz#2:", "T 1800,8500 8 Sol#2:"}},
  };
  GameState s = test::Loaded(test::SampleFile(), 2);
  for (const auto& c : cases) {
    for (bool yes : {false, true}) {
      test::RecordingUi ui;
      ui.answer = yes;
      RecordingJobs jobs;
      c.command(s, ui, jobs);
      EXPECT_EQ(ui.questions, Strings{c.question});
      EXPECT_EQ(ui.messages, yes ? Strings{"Done"} : Strings{});
      EXPECT_EQ(jobs.page.Headings(), yes ? std::vector<Strings>{c.headings} : std::vector<Strings>{})
          << c.question;
    }
  }
}

struct FileDesk {
  FileDesk() {
    // Record 4 breaks off after its size line: the loop skips it.
    const std::string broken = "#4\r\nT4\r\n 7, 7, 49\r\n";
    file = dir.Write("p.vlm", test::Record(1, "T1") + test::Record(2, "T2", 1) + test::Record(3, "T3", 2) +
                                  broken + test::Record(5, "T5", 4) + test::Record(6, "T6", 5));
    s = test::Loaded(file, 2);
    s.session.CurrentPuzzleFile = file;
  }
  std::vector<Strings> Print(std::optional<PrintFileChoice> answer) {
    jobs.answer = std::move(answer);
    mnuprintfile(s, ui, jobs);
    return jobs.page.Headings();
  }
  test::TempDir dir;
  std::string file;
  GameState s;
  test::RecordingUi ui;
  RecordingJobs jobs;
};

TEST(PrintFile, PagesOfBothLayoutsAndTheBoardAfterwards) {
  // The lower grid sits 7000 twips below the upper one. Record 6 follows the
  // odd last number 5 and stays off the last page; the per-page choice changes nothing.
  const std::string upper = "T 1800,1400 8 ", lower = "T 1800,8400 8 ";
  const struct {
    long long first, last;
    bool solutions;
    int perPage;
    std::vector<Strings> pages;
  } cases[] = {
      {1,
       5,
       false,
       4,
       {{upper + "Puz#1:T1", lower + "Puz#2:T2"}, {upper + "Puz#3:T3"}, {upper + "Puz#5:T5"}}},
      {5, 6, false, 2, {{upper + "Puz#5:T5", lower + "Puz#6:T6"}}},  // an even last number
      {2, 4, true, 1, {{upper + "Puz#2:T2", lower + "Sol#2:T2"}, {upper + "Puz#3:T3", lower + "Sol#3:T3"}}},
      {4, 2, false, 1, {}},
      {4, 2, true, 1, {}},
  };
  for (const auto& c : cases) {
    FileDesk desk;
    const Board<int32_t> shown = desk.s.puzzle.Grid;
    EXPECT_EQ(desk.Print(PrintFileChoice{desk.file, c.first, c.last, c.solutions, c.perPage}), c.pages)
        << c.first << "-" << c.last;
    EXPECT_EQ(desk.jobs.shownFile, desk.file);
    // An empty range says so before any printer or file is asked for.
    const bool none = c.pages.empty();
    EXPECT_EQ(desk.ui.messages,
              (none ? Strings{"Nothing to print: puzzle 4 comes after puzzle 2", "Done"} : Strings{"Done"}));
    EXPECT_EQ(desk.jobs.ended, none ? 0 : 1);
    EXPECT_TRUE(desk.s.puzzle.Grid == shown && desk.s.view.PuzTitle == "T2");
  }
}

TEST(PrintFile, RefusalsExitAndAutoSolve) {
  FileDesk desk;
  const std::string empty = desk.dir.Write("empty.vlm", "no records\r\n#0\r\n");
  test::RecordingUi ui;
  EXPECT_FALSE(Form5Answer(ui, empty, "1", "1", false, 1));
  EXPECT_FALSE(Form5Answer(ui, desk.file, "0", "2", false, 1));
  EXPECT_FALSE(Form5Answer(ui, desk.file, "1", "7", true, 4));
  // The numbers as typed, read leniently.
  const std::optional<PrintFileChoice> chosen = Form5Answer(ui, desk.file, " 2", "4.6", true, 4);
  ASSERT_TRUE(chosen);
  EXPECT_EQ(chosen->file + "," + std::to_string(chosen->first) + "," + std::to_string(chosen->last) + "," +
                std::to_string(chosen->solutions) + "," + std::to_string(chosen->perPage),
            desk.file + ",2,5,1,4");
  EXPECT_EQ(ui.messages, (Strings{"No puzzles in this file: " + empty, "Invalid from or to puzzle number",
                                  "Invalid from or to puzzle number"}));

  EXPECT_TRUE(desk.Print(std::nullopt).empty());  // Exit or the close box
  EXPECT_EQ(desk.jobs.ended, 0);
  desk.s.session.Solving = 1;
  EXPECT_TRUE(desk.Print(PrintFileChoice{desk.file, 1, 2, false, 1}).empty());
  EXPECT_EQ(desk.ui.messages, Strings{"Cancel AutoSolve first"});
}

}  // namespace
}  // namespace velmora
