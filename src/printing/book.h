// A puzzle book: several puzzles a page, the answers at the back, page
// numbers and a cover, laid out as marks on a PrintSurface.
#pragma once

#include <string>
#include <vector>

#include "model/puzzle.h"
#include "printing/print_commands.h"

namespace velmora {

inline constexpr int kBookPerPage[] = {1, 2, 4, 6};
inline constexpr int kMaxAnswersPerPage = 12;

// Records `first` to `last` of `file` as a book.
struct BookChoice {
  std::string file;
  long long first = 1, last = 0;
  int perPage = 4;  // one of kBookPerPage
  bool answers = true;
  int answersPerPage = 6;  // 1 to kMaxAnswersPerPage
  std::string title;       // a cover page when not empty
};

// What went into a book: the records that loaded, in order, and how many did not.
struct BookContents {
  std::vector<int> records;
  std::vector<std::string> levels;  // the levels among them, in the levels' order
  int unreadable = 0;
};

// Reads every record of the range once; only the numbers are kept, so a book
// of any length is laid out in the memory of one puzzle.
BookContents ReadBookContents(const BookChoice& c);

// The pages of the book, as the contract has them: the cover (with a title),
// ceil(n / perPage) puzzle pages, then ceil(n / answersPerPage) answer pages.
int BookPages(const BookChoice& c, int puzzles);

// Lays the book out on `p`; returns false when the file changed under it and
// a record read before no longer loads (the book would not match its pages).
bool PrintBook(const BookChoice& c, const BookContents& contents, PrintSurface& p);

// The cards of the deck's 52 that are not in the puzzle's solution, in card
// order: "Not used: 2C 6H 9S".
std::string NotUsedLine(const Puzzle& p);

// "3 records could not be read and were left out"; "" for none.
std::string LeftOutText(int unreadable);

// One puzzle or its solution with its Not used line, `cell` twips a cell,
// the grid's top-left corner at (x, y); the line is cut to `width` (only a
// damaged deck has more than three cards to list). Returns the bottom of the marks.
int PrintBookGrid(const Puzzle& p, PrintSurface& s, PageOrigin at, int cell, int width, PageKind kind);

// One puzzle or its solution alone, as an image for publishing: the grid at
// the board's cell size with a margin, and its Not used line. The extent is
// the image's size in twips.
PageOrigin PuzzleImageExtent(const Puzzle& p);
void PrintPuzzleImage(const Puzzle& p, PrintSurface& s, PageKind kind);

}  // namespace velmora
