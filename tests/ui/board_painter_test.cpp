// The board painted into an image: cell outlines, symbols through the AND copy, rank letters, solution text.
#include "board/ui/board_painter.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "board/geometry.h"

namespace velmora {
namespace {

const QColor kSurface(240, 240, 240);

bool IsRed(QColor c) { return c.red() > 150 && c.green() < 60 && c.blue() < 60; }
bool IsDark(QColor c) { return c.red() < 110 && c.green() < 110 && c.blue() < 110; }
bool IsBlack(QColor c) { return c == QColor(Qt::black); }

// A board painted at `dpi`; one pixel is 1440 / dpi twips.
struct Rendered {
  explicit Rendered(const GameState& s, int dpi = 96, QColor cell = kSurface,
                    const std::function<void(BoardPainter&)>& extra = nullptr)
      : scale(dpi / 1440.0),
        image(static_cast<int>(kPictureWidth * scale) + 1, static_cast<int>(kPictureHeight * scale) + 1,
              QImage::Format_RGB32) {
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
  // Pixels inside the cell at twips (x, y), off its border, that are not `colour`.
  int NotIn(double x, double y, QColor colour = kSurface) const {
    return Count(x + 30, y + 30, 750, 750, [colour](QColor c) { return c != colour; });
  }
  double scale;
  SuitStrip strip;
  QImage image;
};

GameState EmptyBoard() {
  GameState s;
  CalcCellPos(s);
  return s;
}

TEST(BoardPainter, EmptyGridIs49OutlinedCellsAndNothingElse) {
  const GameState s = EmptyBoard();
  const Rendered r(s);
  int outlined = 0;
  for (int row = 1; row <= 7; ++row) {
    for (int col = 1; col <= 7; ++col) {
      const double x = s.CellX[row][col], y = s.CellY[row][col];
      const bool edges = IsBlack(r.At(x, y + 405)) && IsBlack(r.At(x + 405, y)) &&
                         IsBlack(r.At(x + 810, y + 405)) && IsBlack(r.At(x + 405, y + 810));
      outlined += edges && r.NotIn(x, y) == 0;
    }
  }
  EXPECT_EQ(outlined, 49);
  // Cells share their borders: the second column starts at 840, the third row at 1650.
  EXPECT_TRUE(IsBlack(r.At(840, 500)));
  EXPECT_TRUE(IsBlack(r.At(500, 1650)));
  EXPECT_EQ(r.At(840 - 60, 500), kSurface);
  EXPECT_EQ(r.At(500, 1650 - 60), kSurface);
  EXPECT_EQ(r.At(5700 + 30, 500), kSurface);  // nothing beyond the last cell
}

TEST(BoardPainter, DiamondMarkShowsRedSymbolAndQuestionMarkClubsMarkADarkOne) {
  GameState s = EmptyBoard();
  s.Grid[2][3] = -3;
  const Rendered r(s);
  const double x = s.CellX[2][3], y = s.CellY[2][3];
  EXPECT_GT(r.Count(x + 60, y + 50, 550, 550, IsRed), 300);  // a diamond covers about half of its square
  EXPECT_EQ(r.Count(x + 60, y + 50, 550, 550, IsDark), 0);
  EXPECT_GT(r.Count(x + 560, y + 475, 240, 330, IsRed), 10);
  s.Grid[2][3] = -4;
  const Rendered clubs(s);
  EXPECT_EQ(clubs.Count(x + 60, y + 50, 550, 550, IsRed), 0);
  EXPECT_GT(clubs.Count(x + 60, y + 50, 550, 550, IsDark), 300);
  EXPECT_EQ(clubs.NotIn(s.CellX[2][4], y), 0);  // the empty neighbour stays empty
}

TEST(BoardPainter, SymbolIsAndedWithTheCellColour) {
  GameState s = EmptyBoard();
  s.Grid[1][1] = 1;  // ace of spades
  const QColor yellow(255, 255, 0);
  const Rendered r(s, 96, yellow);
  // The symbol's dark grey (50, 50, 50) ANDed with yellow loses its blue.
  EXPECT_GT(r.Count(60, 50, 550, 550, [](QColor c) { return c == QColor(50, 50, 0); }), 300);
  EXPECT_EQ(r.At(30 + 60 + 20, 30 + 50 + 20), yellow);  // the white of the strip lets the yellow through
  // Rank letter "1" in the black-suit colour at the lower right.
  EXPECT_GT(r.Count(30 + 560, 30 + 475, 240, 330, [](QColor c) { return c.blue() < 100 && c.red() < 120; }),
            10);
}

TEST(BoardPainter, RankLettersDifferAndValuesWithoutACardDrawABlankCell) {
  GameState s = EmptyBoard();
  s.Grid[1][1] = 37;  // ten of spades: "T"
  s.Grid[1][2] = 1;   // ace of spades: "1"
  const Rendered r(s);
  auto letter = [&](int col) {
    return r.image.copy(static_cast<int>((s.CellX[1][col] + 560) * r.scale),
                        static_cast<int>((s.CellY[1][col] + 475) * r.scale), 16, 22);
  };
  EXPECT_NE(letter(1), letter(2));
  s.Grid[1][1] = 99;
  s.Grid[1][2] = -9;
  const Rendered odd(s);
  EXPECT_EQ(odd.NotIn(30, 30), 0);
  EXPECT_EQ(odd.NotIn(840, 30), 0);
}

TEST(BoardPainter, BlankDrawCellFillsAndOutlinesOnly) {
  GameState s = EmptyBoard();
  s.Grid[4][4] = 20;
  const QColor cell(200, 220, 255);
  const Rendered r(s, 96, cell, [&](BoardPainter& b) { b.DrawCell(s, -1, "", 4, 4); });
  EXPECT_EQ(r.NotIn(s.CellX[4][4], s.CellY[4][4], cell), 0);
  EXPECT_TRUE(IsBlack(r.At(s.CellX[4][4], s.CellY[4][4] + 400)));
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
  EXPECT_FALSE(IsBlack(r.At(840 + 20, 500)));  // one twip-exact line
  EXPECT_GT(r.Count(s.CellX[3][1] + 60, s.CellY[3][1] + 50, 550, 550, IsRed), 4 * 300);
}

}  // namespace
}  // namespace velmora
