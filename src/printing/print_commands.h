// Printed pages of puzzles and solutions, and the Print menu's commands.
#pragma once

#include <optional>
#include <string>

#include "model/game_state.h"
#include "model/user_interface.h"
#include "model/version.h"

namespace velmora {

// The printed size of a suit symbol: the strip's 550 twips at 1 / 1.5.
inline constexpr int kPrintSymbolSize = 367;
inline constexpr const char* kPrintFooter = "Velmora Version " VELMORA_VERSION;
// Form5's printer list ends with this item; it asks for a file name instead.
inline constexpr const char* kPdfPrinterName = "PDF file";
// A PDF file named as the puzzle file it would be printed from is refused so.
inline constexpr const char* kSameFileText = "Input and output files cannot be same";

// A printer as the print commands use it: positions in twips from the page's
// top-left corner, font sizes in points, everything in black.
class PrintSurface {
 public:
  virtual ~PrintSurface() = default;
  // `text` with the top-left corner of its line at (x, y).
  virtual void Text(int x, int y, int points, bool bold, const std::string& text) = 0;
  // The outline of the rectangle from (x1, y1) to (x2, y2).
  virtual void Box(int x1, int y1, int x2, int y2) = 0;
  // Suit symbol `suit` (0 S, 1 H, 2 D, 3 C) of the strip, `size` twips square at (x, y).
  virtual void Symbol(int suit, int x, int y, int size) = 0;
  // Later marks go on a fresh page; a page is only started by a mark on it.
  virtual void NewPage() = 0;
  // Where marks must end to be printed: the paper's width less the quarter
  // inch at its edge that printers cannot print on.
  virtual int RightEdge() const = 0;
  // Where marks must end at the foot of the page: its height less the same quarter inch.
  virtual int BottomEdge() const = 0;
};

// Form5's answer: puzzles `first` to `last` of `file`, two puzzles a page or,
// with `solutions`, each puzzle above its solution.
struct PrintFileChoice {
  std::string file;
  long long first = 0, last = 0;
  bool solutions = false;
  int perPage = 1;  // 1, 2 or 4, from Form5's hidden frame: the layout does not follow it
};

// The printer service behind the commands: Form5 and the print jobs.
class PrintJobs {
 public:
  virtual ~PrintJobs() = default;
  // Form5 with `file` in FileNow, run modally; nothing when it was left
  // without a decision (Exit, the close box).
  virtual std::optional<PrintFileChoice> AskPrintFile(const std::string& file) = 0;
  // A job on the current printer, printing from the puzzle file `source`;
  // nullptr when none was started (a cancelled file dialog, or a PDF file
  // that would replace the puzzle file, which is refused).
  virtual PrintSurface* StartJob(const std::string& source) = 0;
  // Ends the job: the pages go out. "" when done, otherwise what went wrong.
  virtual std::string EndJob() = 0;
};

// One card cell; rank -1 prints the suit symbol alone, without a box.
void PrintCell(PrintSurface& p, int rank, const std::string& suitLetter, int x, int y);

// What a printed grid shows: the puzzle, with the cards still to place
// beside it, or the stored solution.
enum class PageKind { kPuzzle, kSolution };

// A point of the page in twips from the paper's top-left corner.
struct PageOrigin {
  int x = 0, y = 0;
};

// The heading line above a printed grid is this high.
inline constexpr int kHeadingHeight = 200;

// The heading at `heading`, the grid below it and, for a puzzle, the
// remaining cards. Returns where the grid starts: `heading` moved down by
// kHeadingHeight.
PageOrigin PrintPage(const Puzzle& puzzle, const RemainLists& remainLists, PrintSurface& p,
                     PageOrigin heading, int number, const std::string& title, PageKind kind);

// The page of "Puzzle and Solution": both grids, the headings without a title.
void PrintPuzzleAndSolution(const GameState& s, PrintSurface& p);

// Print > Current: "Puzzle", "Solution", "Puzzle and Solution".
void mnuprintcurrentpuz(GameState& s, UserInterface& ui, PrintJobs& jobs);
void mnuprintcurrentsol(GameState& s, UserInterface& ui, PrintJobs& jobs);
void mnuprintcurrent(GameState& s, UserInterface& ui, PrintJobs& jobs);

// Header lines whose number is above 0: what Form5's "Print" counts.
int CountPrintablePuzzles(const std::string& file);

// Form5's "Print" checks on the range of `file` (the numbers as typed, read
// leniently): shows the refusal and returns nothing, or returns the dialog's
// answer. `perPage` is 1, 2 or 4.
std::optional<PrintFileChoice> Form5Answer(UserInterface& ui, const std::string& file,
                                           const std::string& first, const std::string& last, bool solutions,
                                           int perPage);

// Print > "Puzzle File": a range of a file, with or without solutions.
void mnuprintfile(GameState& s, UserInterface& ui, PrintJobs& jobs);

}  // namespace velmora
