// The board painted into an image: cell outlines, symbols through the AND copy, rank letters, solution text.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "board/geometry.h"
#include "board/ui/board_painter.h"

namespace velmora {
namespace {

const QColor kSurface(240, 240, 240);

// A board painted at `dpi`; one pixel is 1440 / dpi twips.
struct Rendered {
  explicit Rendered(const GameState& s, int dpi = 96, QColor cell = kSurface,
                    const std::function<void(BoardPainter&)>& extra = nullptr)
      : scale(dpi / 1440.0), image(static_cast<int>(kPictureWidth * scale) + 1,
                                   static_cast<int>(kPictureHeight * scale) + 1, QImage::Format_RGB32) {
    image.fill(Qt::magenta);
    QPainter p(&image);
    ScaleToTwips(p, dpi, dpi);
    BoardPainter board(p, strip, cell, kSurface);
    board.DrawBoard(s);
    if (extra) extra(board);
  }
  QColor At(double xTwips, double yTwips) const {
    return image.pixelColor(static_cast<int>(xTwips * scale), static_cast<int>(yTwips * scale));
  }
  // Pixels in a twips rectangle for which `test` holds.
  int Count(double x, double y, double w, double h, const std::function<bool(QColor)>& test) const {
    int n = 0;
    for (int py = static_cast<int>(y * scale); py < static_cast<int>((y + h) * scale); ++py)
      for (int px = static_cast<int>(x * scale); px < static_cast<int>((x + w) * scale); ++px)
        n += test(image.pixelColor(px, py));
    return n;
  }
  double scale;
  SuitStrip strip;
  QImage image;
};

bool IsRed(QColor c) { return c.red() > 150 && c.green() < 60 && c.blue() < 60; }
bool IsDark(QColor c) { return c.red() < 110 && c.green() < 110 && c.blue() < 110; }
bool IsBlack(QColor c) { return c == QColor(Qt::black); }

GameState EmptyBoard() {
  GameState s;
  CalcCellPos(s);
  return s;
}

TEST(BoardPainter, SuitStripIsBuiltIn) { EXPECT_FALSE(SuitStrip().IsNull()); }

TEST(BoardPainter, EmptyGridIs49OutlinedCellsAndNothingElse) {
  const GameState s = EmptyBoard();
  const Rendered r(s);
  int outlined = 0;
  for (int row = 1; row <= 7; ++row) {
    for (int col = 1; col <= 7; ++col) {
      const double x = s.CellX[row][col], y = s.CellY[row][col];
      const bool edges = IsBlack(r.At(x, y + 405)) && IsBlack(r.At(x + 405, y)) && IsBlack(r.At(x + 810, y + 405)) &&
                         IsBlack(r.At(x + 405, y + 810));
      // Inside: only the surface, no symbol and no letter.
      const int other = r.Count(x + 30, y + 30, 750, 750, [](QColor c) { return c != kSurface; });
      outlined += edges && other == 0;
    }
  }
  EXPECT_EQ(outlined, 49);
  // Cells share their borders: the second column starts at 840, the third row at 1650.
  EXPECT_TRUE(IsBlack(r.At(840, 500)));
  EXPECT_TRUE(IsBlack(r.At(500, 1650)));
  EXPECT_EQ(r.At(840 - 60, 500), kSurface);
  EXPECT_EQ(r.At(500, 1650 - 60), kSurface);
  // Nothing beyond the last cell at 5700.
  EXPECT_EQ(r.At(5700 + 30, 500), kSurface);
}

TEST(BoardPainter, DiamondMarkShowsRedSymbolAndQuestionMark) {
  GameState s = EmptyBoard();
  s.Grid[2][3] = -3;
  const Rendered r(s);
  const double x = s.CellX[2][3], y = s.CellY[2][3];
  const int symbolRed = r.Count(x + 60, y + 50, 550, 550, IsRed);
  const int symbolDark = r.Count(x + 60, y + 50, 550, 550, IsDark);
  EXPECT_GT(symbolRed, 300);  // a diamond covers about half of its square
  EXPECT_EQ(symbolDark, 0);
  const int letterRed = r.Count(x + 560, y + 475, 240, 330, IsRed);
  EXPECT_GT(letterRed, 10);
  // The same mark in clubs is dark, not red; an empty neighbour stays empty.
  s.Grid[2][3] = -4;
  const Rendered clubs(s);
  EXPECT_EQ(clubs.Count(x + 60, y + 50, 550, 550, IsRed), 0);
  EXPECT_GT(clubs.Count(x + 60, y + 50, 550, 550, IsDark), 300);
  EXPECT_EQ(clubs.Count(s.CellX[2][4] + 30, y + 30, 750, 750, [](QColor c) { return c != kSurface; }), 0);
}

TEST(BoardPainter, SymbolIsAndedWithTheCellColour) {
  GameState s = EmptyBoard();
  s.Grid[1][1] = 1;  // ace of spades
  const QColor yellow(255, 255, 0);
  const Rendered r(s, 96, yellow);
  // The symbol's dark grey (50, 50, 50) ANDed with yellow loses its blue.
  const int anded = r.Count(60, 50, 550, 550, [](QColor c) { return c == QColor(50, 50, 0); });
  EXPECT_GT(anded, 300);
  // The white of the strip lets the yellow through.
  EXPECT_EQ(r.At(30 + 60 + 20, 30 + 50 + 20), yellow);
  // Rank letter "1" in the black-suit colour at the lower right.
  EXPECT_GT(r.Count(30 + 560, 30 + 475, 240, 330, [](QColor c) { return c.blue() < 100 && c.red() < 120; }), 10);
}

TEST(BoardPainter, RankLettersDifferAndUnknownLettersFallBack) {
  GameState s = EmptyBoard();
  s.Grid[1][1] = 37;  // ten of spades: "T"
  s.Grid[1][2] = 1;   // ace of spades: "1"
  const Rendered r(s);
  auto letter = [&](int col) {
    QImage part = r.image.copy(static_cast<int>((s.CellX[1][col] + 560) * r.scale),
                               static_cast<int>((s.CellY[1][col] + 475) * r.scale), 16, 22);
    return part;
  };
  EXPECT_NE(letter(1), letter(2));
  // A cell value past the deck draws no card and does not crash; a mark past
  // -4 draws a blank cell.
  s.Grid[1][1] = 99;
  s.Grid[1][2] = -9;
  const Rendered odd(s);
  EXPECT_EQ(odd.Count(30 + 30, 60, 750, 750, [](QColor c) { return c != kSurface; }), 0);
  EXPECT_EQ(odd.Count(840 + 30, 60, 750, 750, [](QColor c) { return c != kSurface; }), 0);
}

TEST(BoardPainter, BlankDrawCellFillsAndOutlinesOnly) {
  GameState s = EmptyBoard();
  s.Grid[4][4] = 20;
  const QColor cell(200, 220, 255);
  const Rendered r(s, 96, cell, [&](BoardPainter& b) { b.DrawCell(s, -1, "", 4, 4); });
  const double x = s.CellX[4][4], y = s.CellY[4][4];
  EXPECT_EQ(r.Count(x + 30, y + 30, 750, 750, [&](QColor c) { return c != cell; }), 0);
  EXPECT_TRUE(IsBlack(r.At(x, y + 400)));
}

TEST(BoardPainter, SolutionTextInEveryCellBelowTheTopLeft) {
  GameState s = EmptyBoard();
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c) s.SolutionGrid[r][c] = (r - 1) * 7 + c;
  const Rendered r(s, 96, kSurface, [&](BoardPainter& b) { b.DrawSolution(s); });
  for (int row = 1; row <= 7; ++row) {
    for (int col = 1; col <= 7; ++col) {
      const double x = s.CellX[row][col], y = s.CellY[row][col];
      EXPECT_GT(r.Count(x + 50, y + 600, 300, 200, IsDark), 5) << row << "," << col;
      EXPECT_EQ(r.Count(x + 50, y + 50, 700, 500, [](QColor c) { return c != kSurface; }), 0);
    }
  }
}

TEST(BoardPainter, DoubleResolutionKeepsTheGeometry) {
  GameState s = EmptyBoard();
  s.Grid[3][1] = -2;
  const Rendered r(s, 192);
  EXPECT_TRUE(IsBlack(r.At(840, 500)));
  EXPECT_TRUE(IsBlack(r.At(500, 1650)));
  // One twip-exact line: the pixel beside the border is not black.
  EXPECT_FALSE(IsBlack(r.At(840 + 20, 500)));
  EXPECT_GT(r.Count(s.CellX[3][1] + 60, s.CellY[3][1] + 50, 550, 550, IsRed), 4 * 300);
}

}  // namespace
}  // namespace velmora
