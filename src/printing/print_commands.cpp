// Printed pages of puzzles and solutions, and the Print menu's commands.
#include "printing/print_commands.h"

#include <algorithm>
#include <cmath>

#include "board/geometry.h"
#include "files/puzzle_file.h"
#include "files/text_file.h"
#include "model/commands.h"
#include "model/rules.h"
#include "model/text.h"

namespace velmora {
namespace {

constexpr int kPageX = 1800;
// No rank letter is wider in the remaining cards' 14 points bold.
constexpr int kRankWidth = 200;
constexpr int kTopY = 1400;
constexpr int kFileLowerY = 8400;     // the lower grid of a file page
constexpr int kCurrentLowerY = 8500;  // the solution under the puzzle of "Puzzle and Solution"

void PrintValue(const Puzzle& puzzle, PrintSurface& p, int v, int x, int y) {
  if (v < 1) {
    p.Box(x, y, x + kCellSize, y + kCellSize);
    return;
  }
  // What CellRank and CellSuit read for a cell holding v.
  const bool known = CardCodeTable::InRange(v);
  PrintCell(p, known ? puzzle.CardCodes.Rank(v) : 0,
            known ? std::string(1, puzzle.CardCodes.SuitLetter(v)) : "", x, y);
}

int NumberValue(const std::string& text) {
  const double v = std::clamp(Val(text), -2147483647.0, 2147483647.0);
  return static_cast<int>(std::nearbyint(v));
}

// The Current commands: the question, one page, the end of the job and "Done".
template <typename Draw>
void PrintCurrent(const GameState& s, UserInterface& ui, PrintJobs& jobs, const char* question, Draw draw) {
  if (!ui.AskYesNo(question)) return;
  PrintSurface* page = jobs.StartJob(s.session.CurrentPuzzleFile);
  if (!page) return;
  draw(*page);
  const std::string failure = jobs.EndJob();
  ui.ShowMessage(failure.empty() ? "Done" : failure);
}

void PrintCurrentPage(const GameState& s, PrintSurface& page, PageKind kind) {
  PrintPage(s.puzzle, s.view.Remain, page, {kPageX, kTopY}, NumberValue(s.view.PuzNumNow), s.view.PuzTitle,
            kind);
}

// The records are read into copies: the puzzle shown is loaded again afterwards.
void PrintRange(const GameState& s, PrintSurface& page, const PrintFileChoice& c) {
  Puzzle work = s.puzzle;
  RemainLists remain = s.view.Remain;
  std::string title;
  auto print = [&](long long n, int y, PageKind kind) {
    PrintPage(work, remain, page, {kPageX, y}, static_cast<int>(n), title, kind);
  };
  auto load = [&](long long n) {
    auto read = ReadPuzzle(work, remain, c.file, static_cast<int>(n));
    if (read) title = *read;
    return read.has_value();
  };
  if (c.solutions) {
    for (long long n = c.first; n <= c.last; ++n) {
      if (!load(n)) continue;
      print(n, kTopY, PageKind::kPuzzle);
      print(n, kFileLowerY, PageKind::kSolution);
      page.NewPage();
    }
    return;
  }
  for (long long n = c.first; n <= c.last; n += 2) {
    if (load(n)) print(n, kTopY, PageKind::kPuzzle);
    if (n + 1 > c.last) break;
    if (load(n + 1)) print(n + 1, kFileLowerY, PageKind::kPuzzle);
    page.NewPage();
  }
}

}  // namespace

void PrintCell(PrintSurface& p, int rank, const std::string& suitLetter, int x, int y) {
  const int suit = std::max(0, SuitListIndex(suitLetter));
  std::string rankText;
  if (rank != -1) {
    p.Box(x, y, x + kCellSize, y + kCellSize);
    if (rank >= -1 && rank <= 13) rankText = RankLetter(rank);
  }
  p.Symbol(suit, x + 60, y + 50, kPrintSymbolSize);
  p.Text(x + 560, y + 500, 14, true, rankText);
}

PageOrigin PrintPage(const Puzzle& s, const RemainLists& remainLists, PrintSurface& p, PageOrigin heading,
                     int number, const std::string& title, PageKind kind) {
  const bool puzzle = kind == PageKind::kPuzzle;
  p.Text(heading.x, heading.y, 8, false, (puzzle ? "Puz#" : "Sol#") + NumText(number) + ":" + title);
  const int originX = heading.x, originY = heading.y + kHeadingHeight;
  for (int row = 1; row <= LoopRows(s); ++row) {
    for (int col = 1; col <= LoopCols(s); ++col) {
      const int v = puzzle ? s.Grid[row][col] : s.SolutionGrid[row][col];
      PrintValue(s, p, v, CellX(col) + originX, CellY(row) + originY);
    }
  }
  if (puzzle) {
    // Beside the grid, one line per suit in the height of rows 1 to 4.
    for (int suit = 1; suit <= 4; ++suit) {
      const int x = TextX(7) + originX + 900, y = TextY(suit) + originY;
      PrintCell(p, -1, std::string(1, kSuitLetters[suit]), x, y - 100);
      const auto& remain = remainLists[static_cast<size_t>(suit - 1)];
      const int count = static_cast<int>(remain.size()), first = x + 500;
      // 300 apart where the line fits the paper; a longer one closes up to end inside it.
      int step = 300;
      if (count > 1 && first + step * (count - 1) + kRankWidth > p.RightEdge())
        step = std::max(0, p.RightEdge() - kRankWidth - first) / (count - 1);
      for (int i = 0; i < count; ++i)
        p.Text(first + step * i, y, 14, true, remain[static_cast<size_t>(i)].substr(0, 1));
    }
  }
  p.Text(TextX(6) + originX + 500, heading.y, 6, false, kPrintFooter);
  return {originX, originY};
}

void PrintPuzzleAndSolution(const GameState& s, PrintSurface& p) {
  const int number = NumberValue(s.view.PuzNumNow);
  PrintPage(s.puzzle, s.view.Remain, p, {kPageX, kTopY}, number, "", PageKind::kPuzzle);
  PrintPage(s.puzzle, s.view.Remain, p, {kPageX, kCurrentLowerY}, number, "", PageKind::kSolution);
}

void mnuprintcurrentpuz(GameState& s, UserInterface& ui, PrintJobs& jobs) {
  PrintCurrent(s, ui, jobs, "Print Current Puzzle?",
               [&](PrintSurface& p) { PrintCurrentPage(s, p, PageKind::kPuzzle); });
}

void mnuprintcurrentsol(GameState& s, UserInterface& ui, PrintJobs& jobs) {
  PrintCurrent(s, ui, jobs, "Print Current solution?",
               [&](PrintSurface& p) { PrintCurrentPage(s, p, PageKind::kSolution); });
}

void mnuprintcurrent(GameState& s, UserInterface& ui, PrintJobs& jobs) {
  PrintCurrent(s, ui, jobs, "Print Current Puzzle and Solution?",
               [&](PrintSurface& p) { PrintPuzzleAndSolution(s, p); });
}

int CountPrintablePuzzles(const std::string& file) {
  LineReader reader(file);
  int count = 0;
  std::string line;
  while (reader.ReadLine(line)) {
    if (!line.empty() && line[0] == '#' && Val(std::string_view(line).substr(1)) > 0) ++count;
  }
  return count;
}

std::optional<PrintFileChoice> Form5Answer(UserInterface& ui, const std::string& file,
                                           const std::string& first, const std::string& last, bool solutions,
                                           int perPage) {
  const int count = CountPrintablePuzzles(file);
  if (count == 0) {
    ui.ShowMessage("No puzzles in this file: " + file);
    return std::nullopt;
  }
  if (Val(first) < 1 || Val(last) > count) {
    ui.ShowMessage("Invalid from or to puzzle number");
    return std::nullopt;
  }
  return PrintFileChoice{file, NumberValue(first), NumberValue(last), solutions, perPage};
}

void mnuprintfile(GameState& s, UserInterface& ui, PrintJobs& jobs) {
  if (RefusedWhileSolving(s.session, ui)) return;
  const std::optional<PrintFileChoice> answer = jobs.AskPrintFile(s.session.CurrentPuzzleFile);
  ui.Yield();
  if (!answer) return;
  const PrintFileChoice& choice = *answer;
  // An empty range asks for no printer or file; it still ends with "Done".
  if (choice.first > choice.last) {
    ui.ShowMessage("Nothing to print: puzzle" + Str(choice.first) + " comes after puzzle" + Str(choice.last));
    ui.ShowMessage("Done");
    return;
  }
  PrintSurface* page = jobs.StartJob(choice.file);
  if (!page) return;
  ui.SetBusy(true);
  const std::string rememberedFile = s.session.CurrentPuzzleFile;
  const int remembered = s.session.CurrentPuzzleNumber;
  s.session.CancelRequest = 0;
  PrintRange(s, *page, choice);
  const std::string failure = jobs.EndJob();
  s.session.CancelRequest = 0;
  s.view.NewLab.clear();
  LoadPuzzle(s, ui, rememberedFile, remembered == -1 ? 1 : remembered);
  ui.SetBusy(false);
  ui.ShowMessage(failure.empty() ? "Done" : failure);
}

}  // namespace velmora
