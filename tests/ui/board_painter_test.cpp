// The board painted into an image: cell outlines, symbols through the AND copy, rank letters.
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

// A board painted at 96 dpi, one pixel 15 twips, with cells of colour `cell`.
struct Rendered {
  explicit Rendered(const GameState& s, QColor cell = kSurface)
      : image(static_cast<int>(kPictureWidth / 15) + 1, static_cast<int>(kPictureHeight / 15) + 1,
              QImage::Format_RGB32) {
    image.fill(Qt::magenta);
    QPainter p(&image);
    ScaleToTwips(p, 96, 96);
    BoardPainter(p, strip, cell, kSurface).DrawBoard(s);
  }
  QColor At(double x, double y) const {
    return image.pixelColor(static_cast<int>(x / 15), static_cast<int>(y / 15));
  }
  // Pixels in a twips rectangle for which `test` holds.
  int Count(double x, double y, double w, double h, const std::function<bool(QColor)>& test) const {
    int n = 0;
    for (int py = static_cast<int>(y / 15); py < static_cast<int>((y + h) / 15); ++py)
      for (int px = static_cast<int>(x / 15); px < static_cast<int>((x + w) / 15); ++px)
        n += test(image.pixelColor(px, py));
    return n;
  }
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
  EXPECT_EQ(s.CellX[1][2], 840);  // cells share their borders
  EXPECT_EQ(s.CellY[3][1], 1650);
  const Rendered r(s);
  int outlined = 0;
  for (int row = 1; row <= 7; ++row) {
    for (int col = 1; col <= 7; ++col) {
      const double x = s.CellX[row][col], y = s.CellY[row][col];
      const bool edges = IsBlack(r.At(x, y + 405)) && IsBlack(r.At(x + 405, y)) &&
                         IsBlack(r.At(x + 810, y + 405)) && IsBlack(r.At(x + 405, y + 810));
      outlined += edges && r.Count(x + 30, y + 30, 750, 750, [](QColor c) { return c != kSurface; }) == 0;
    }
  }
  EXPECT_EQ(outlined, 49);
  EXPECT_TRUE(IsBlack(r.At(840, 500)) && IsBlack(r.At(500, 1650)));
  EXPECT_EQ(r.At(840 - 60, 500), kSurface);
  EXPECT_EQ(r.At(5700 + 30, 500), kSurface);  // nothing beyond the last cell
}

TEST(BoardPainter, DiamondMarkIsARedSymbolAndQuestionMarkCardsAreAndedWithTheCellColour) {
  GameState s = EmptyBoard();
  s.Grid[2][3] = -3;
  const double x = s.CellX[2][3], y = s.CellY[2][3];
  const Rendered r(s);
  EXPECT_GT(r.Count(x + 60, y + 50, 550, 550, IsRed), 300);  // a diamond covers about half of its square
  EXPECT_EQ(r.Count(x + 60, y + 50, 550, 550, IsDark), 0);
  EXPECT_GT(r.Count(x + 560, y + 475, 240, 330, IsRed), 10);  // the "?" where the rank goes
  s.Grid[2][3] = 1;                                           // ace of spades on yellow
  const QColor yellow(255, 255, 0);
  const Rendered ace(s, yellow);
  // The symbol's dark grey (50, 50, 50) ANDed with yellow loses its blue;
  // the white of the strip lets the yellow through.
  EXPECT_GT(ace.Count(x + 60, y + 50, 550, 550, [](QColor c) { return c == QColor(50, 50, 0); }), 300);
  EXPECT_EQ(ace.At(x + 80, y + 70), yellow);
  EXPECT_GT(ace.Count(x + 560, y + 475, 240, 330, [](QColor c) { return c.blue() < 100 && c.red() < 120; }),
            10);
}

}  // namespace
}  // namespace velmora
