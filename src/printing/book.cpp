// A puzzle book laid out in twips: the cover, the puzzle pages and the answers.
#include "printing/book.h"

#include <algorithm>

#include "board/geometry.h"
#include "creation/levels.h"
#include "files/puzzle_file.h"
#include "model/text.h"

namespace velmora {
namespace {

// Page frame: a half inch inside the printable quarter inch at the sides, the
// page's own line (book title or "Answers") above the slots, its number below.
constexpr int kSideMargin = 360;
constexpr int kTopLine = 500;
constexpr int kSlotsTop = 1000;
constexpr int kFootRoom = 700;
constexpr int kSlotGap = 500;
constexpr int kHeadingPoints = 10;
constexpr int kLinePoints = 10;
constexpr int kLineHeight = 300;
constexpr int kMaxCell = 1200;
constexpr int kImageMargin = 200;

// The printing face's widest letters in bold are about two thirds of its size:
// texts are cut or wrapped at that many, as the core cannot measure them.
int CharsThatFit(int width, int points) { return std::max(1, width * 3 / (points * 20 * 2)); }

std::string Cut(const std::string& text, int chars) {
  if (static_cast<int>(text.size()) <= chars) return text;
  return text.substr(0, static_cast<size_t>(std::max(0, chars - 3))) + "...";
}

std::vector<std::string> Wrap(const std::string& text, int chars) {
  std::vector<std::string> lines;
  std::string line;
  size_t at = 0;
  while (at < text.size()) {
    const size_t end = std::min(text.find(' ', at), text.size());
    std::string word = text.substr(at, end - at);
    at = end + 1;
    while (static_cast<int>(word.size()) > chars) {
      if (!line.empty()) lines.push_back(line), line.clear();
      lines.push_back(word.substr(0, static_cast<size_t>(chars)));
      word.erase(0, static_cast<size_t>(chars));
    }
    if (!line.empty() && static_cast<int>(line.size() + 1 + word.size()) > chars)
      lines.push_back(line), line.clear();
    line += (line.empty() ? "" : " ") + word;
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

struct Area {
  int left, top, right, bottom;
};

Area PageArea(const PrintSurface& p) {
  return {kSideMargin * 2, kSlotsTop, p.RightEdge() - kSideMargin, p.BottomEdge() - kFootRoom};
}

// The slot `index` of `perPage` on a page: one column for one or two, two
// columns up to six, three beyond.
Area Slot(const Area& a, int perPage, int index) {
  const int cols = perPage <= 2 ? 1 : (perPage <= 6 ? 2 : 3);
  const int rows = (perPage + cols - 1) / cols;
  const int w = (a.right - a.left - kSlotGap * (cols - 1)) / cols;
  const int h = (a.bottom - a.top - kSlotGap * (rows - 1)) / rows;
  const int x = a.left + (index % cols) * (w + kSlotGap), y = a.top + (index / cols) * (h + kSlotGap);
  return {x, y, x + w, y + h};
}

void BookCell(const Puzzle& p, PrintSurface& s, int v, int x, int y, int cell) {
  s.Box(x, y, x + cell, y + cell);
  if (v < 1 || !CardCodeTable::InRange(v)) return;
  const int rank = p.CardCodes.Rank(v), suit = p.CardCodes.Suit(v);
  if (suit < 1 || suit > 4 || rank < 1 || rank > 13) return;
  // The board's own proportions: the symbol top left, the rank below right.
  s.Symbol(suit - 1, x + cell * 60 / kCellSize, y + cell * 50 / kCellSize,
           cell * kPrintSymbolSize / kCellSize);
  s.Text(x + cell * 560 / kCellSize, y + cell * 500 / kCellSize, std::max(6, 14 * cell / kCellSize), true,
         RankLetter(rank));
}

// One slot: the heading, the grid centred under it, the Not used line.
void PrintSlot(const Puzzle& p, PrintSurface& s, const Area& slot, const std::string& heading,
               PageKind kind) {
  const int rows = std::max(1, LoopRows(p)), cols = std::max(1, LoopCols(p));
  const int width = slot.right - slot.left;
  const int cell =
      std::min({kMaxCell, width / cols, (slot.bottom - slot.top - 2 * kLineHeight - 100) / rows});
  // The heading starts where the grid does.
  const int x = slot.left + (width - cell * cols) / 2;
  s.Text(x, slot.top, kHeadingPoints, true, Cut(heading, CharsThatFit(slot.right - x, kHeadingPoints)));
  PrintBookGrid(p, s, {x, slot.top + kLineHeight}, cell, slot.right - x, kind);
}

void PageFrame(PrintSurface& s, int page, const std::string& line) {
  if (page > 1) s.NewPage();
  const Area a = PageArea(s);
  const std::string number = NumText(page);
  if (!line.empty()) s.Text(a.left, kTopLine, 9, true, Cut(line, CharsThatFit(a.right - a.left, 9)));
  s.Text((a.left + a.right) / 2 - static_cast<int>(number.size()) * 60, a.bottom + 300, 10, false, number);
}

void PrintCover(const BookChoice& c, const BookContents& contents, PrintSurface& s) {
  PageFrame(s, 1, "");
  const Area a = PageArea(s);
  int y = a.top + 3000;
  for (const std::string& line : Wrap(c.title, CharsThatFit(a.right - a.left, 28))) {
    s.Text(a.left, y, 28, true, line);
    y += 800;
  }
  const int n = static_cast<int>(contents.records.size());
  s.Text(a.left, y + 600, 16, false, NumText(n) + (n == 1 ? " puzzle" : " puzzles"));
  std::string levels;
  for (const std::string& level : contents.levels) levels += (levels.empty() ? "" : ", ") + level;
  if (!levels.empty())
    s.Text(a.left, y + 1200, 14, false,
           Cut((contents.levels.size() == 1 ? "Level: " : "Levels: ") + levels,
               CharsThatFit(a.right - a.left, 14)));
  if (c.answers) s.Text(a.left, y + 1800, 12, false, "Answers at the back");
}

}  // namespace

BookContents ReadBookContents(const BookChoice& c) {
  BookContents contents;
  Puzzle work;
  RemainLists lists;
  std::vector<bool> seen(std::size(kLevels), false);
  for (long long n = c.first; n <= c.last; ++n) {
    const std::optional<std::string> title = ReadPuzzle(work, lists, c.file, static_cast<int>(n));
    if (!title) {
      ++contents.unreadable;
      continue;
    }
    contents.records.push_back(static_cast<int>(n));
    const std::string level = LevelOfPuzzle(*title, CountBlanks(work));
    for (size_t i = 0; i < std::size(kLevels); ++i) seen[i] = seen[i] || level == kLevels[i].name;
  }
  for (size_t i = 0; i < std::size(kLevels); ++i)
    if (seen[i]) contents.levels.emplace_back(kLevels[i].name);
  return contents;
}

int BookPages(const BookChoice& c, int puzzles) {
  const auto pages = [&](int per) { return (puzzles + per - 1) / per; };
  return (c.title.empty() ? 0 : 1) + pages(c.perPage) + (c.answers ? pages(c.answersPerPage) : 0);
}

int PrintBookGrid(const Puzzle& p, PrintSurface& s, PageOrigin at, int cell, int width, PageKind kind) {
  const int x = at.x, y = at.y;
  const bool puzzle = kind == PageKind::kPuzzle;
  for (int row = 1; row <= LoopRows(p); ++row)
    for (int col = 1; col <= LoopCols(p); ++col)
      BookCell(p, s, puzzle ? p.Grid[row][col] : p.SolutionGrid[row][col], x + (col - 1) * cell,
               y + (row - 1) * cell, cell);
  const int below = y + LoopRows(p) * cell + 100;
  s.Text(x, below, kLinePoints, false, Cut(NotUsedLine(p), CharsThatFit(width, kLinePoints)));
  return below + kLineHeight;
}

bool PrintBook(const BookChoice& c, const BookContents& contents, PrintSurface& s) {
  int page = 0;
  if (!c.title.empty()) PrintCover(c, contents, s), page = 1;
  Puzzle work;
  RemainLists lists;
  const int n = static_cast<int>(contents.records.size());
  // The answers follow the puzzles: the same records read again, so nothing is kept.
  for (const PageKind kind : {PageKind::kPuzzle, PageKind::kSolution}) {
    const bool answers = kind == PageKind::kSolution;
    if (answers && !c.answers) break;
    const int per = answers ? c.answersPerPage : c.perPage;
    for (int i = 0; i < n; ++i) {
      const std::optional<std::string> title =
          ReadPuzzle(work, lists, c.file, contents.records[static_cast<size_t>(i)]);
      if (!title) return false;
      if (i % per == 0) PageFrame(s, ++page, answers ? "Answers" : c.title);
      const std::string name = title->empty() ? LevelOfPuzzle(*title, CountBlanks(work)) : *title;
      const std::string heading = "Puzzle " + NumText(i + 1) + (answers ? "" : ": " + name);
      PrintSlot(work, s, Slot(PageArea(s), per, i % per), heading, kind);
    }
  }
  return true;
}

PageOrigin PuzzleImageExtent(const Puzzle& p) {
  return {2 * kImageMargin + std::max(1, LoopCols(p)) * kCellSize,
          2 * kImageMargin + std::max(1, LoopRows(p)) * kCellSize + 100 + kLineHeight};
}

void PrintPuzzleImage(const Puzzle& p, PrintSurface& s, PageKind kind) {
  PrintBookGrid(p, s, {kImageMargin, kImageMargin}, kCellSize, PuzzleImageExtent(p).x - kImageMargin, kind);
}

std::string NotUsedLine(const Puzzle& p) {
  std::string line = "Not used:";
  for (int card = 1; card <= 52; ++card) {
    if ((p.CardCodes.deck & CardBit(card)) == 0) line += " " + CardText(card);
  }
  return line;
}

std::string LeftOutText(int unreadable) {
  if (unreadable <= 0) return "";
  return NumText(unreadable) + (unreadable == 1 ? " record could not be read and was left out"
                                                : " records could not be read and were left out");
}

}  // namespace velmora
