// The board: painted into an image (outlines, a mark's symbol and rank
// letter), and played with the mouse: real clicks on the suit panels and
// on Picture1, the status line on move, undo and the solving menus.
#include <gtest/gtest.h>

#include <QImage>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>

#include "board/geometry.h"
#include "board/ui/board_painter.h"
#include "model/text.h"
#include "ui_support.h"

namespace velmora {
namespace {

const QColor kSurface(240, 240, 240);

bool IsRed(QColor c) { return c.red() > 150 && c.green() < 60 && c.blue() < 60; }
bool IsDark(QColor c) { return c.red() < 110 && c.green() < 110 && c.blue() < 110; }
bool IsBlack(QColor c) { return c == QColor(Qt::black); }

// A board painted at 96 dpi, one pixel 15 twips.
struct Rendered {
  explicit Rendered(const GameState& s)
      : image(static_cast<int>(kPictureWidth / 15) + 1, static_cast<int>(kPictureHeight / 15) + 1,
              QImage::Format_RGB32) {
    image.fill(Qt::magenta);
    QPainter p(&image);
    ScaleToTwips(p, 96, 96);
    BoardPainter(p, strip, kSurface, kSurface).DrawBoard(s);
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

TEST(BoardPainter, EmptyGridIs49OutlinedCellsAndADiamondMarkIsRed) {
  GameState s;
  CalcCellPos(s);
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

  s.Grid[2][3] = -3;
  const double x = s.CellX[2][3], y = s.CellY[2][3];
  const Rendered mark(s);
  EXPECT_GT(mark.Count(x + 60, y + 50, 550, 550, IsRed), 300);  // a diamond covers about half of its square
  EXPECT_EQ(mark.Count(x + 60, y + 50, 550, 550, IsDark), 0);
  EXPECT_GT(mark.Count(x + 560, y + 475, 240, 330, IsRed), 10);  // the "?" where the rank goes
}

TEST(MousePlay, StatusOnMoveClicksPlaceAndRemoveUndoAndTheSolvingMenus) {
  test::Window p(1);  // then a puzzle that deduction alone finishes
  std::filesystem::copy_file(test::SolvableFile(), p.Puzzles(),
                             std::filesystem::copy_options::overwrite_existing);
  p.w.StartUp(p.dir.path());
  GameState& s = p.s();
  int row = 0, col = 0;  // the first empty cell
  for (int k = 49; k >= 1; --k)
    if (s.Grid[(k - 1) / 7 + 1][(k - 1) % 7 + 1] == 0) row = (k - 1) / 7 + 1, col = (k - 1) % 7 + 1;
  ASSERT_NE(row, 0);
  const QPointF centre =
      p.w.Board()->TwipsToPixels(QPointF(s.CellX[row][col] + 405, s.CellY[row][col] + 405));
  const auto move = [&](QPointF pos) {
    QMouseEvent event(QEvent::MouseMove, pos, p.w.Board()->mapToGlobal(pos), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(p.w.Board(), &event);
    return p.Text("pb").toStdString();
  };
  const auto marks = [&] {  // pixels inside the cell that differ from its own background
    const double x = s.CellX[row][col], y = s.CellY[row][col];
    int n = 0;
    for (int dy = 60; dy < 780; dy += 30)
      for (int dx = 60; dx < 780; dx += 30) n += p.Pixel(x + dx, y + dy) != p.Pixel(x + 40, y + 40);
    return n;
  };
  const int card = s.SolutionGrid[row][col];
  auto* list = p.Get<QListWidget>(("Remain" + std::to_string((card - 1) % 4)).c_str());
  const auto items = [&] {
    return list->findItems(QString::fromStdString(ListText(s, card)), Qt::MatchExactly);
  };

  EXPECT_EQ(move(centre),
            " Cell" + Str(s.CellNumber[row][col]) + ", Options=" + OptionText(s.CellOptionsSaved[row][col]));
  EXPECT_EQ(move(p.w.Board()->TwipsToPixels(QPointF(5740, 5800))), "");
  EXPECT_EQ(marks(), 0);
  ASSERT_EQ(items().size(), 1);
  test::Click(list->viewport(), Qt::LeftButton, list->visualItemRect(items()[0]).center());
  test::Click(p.w.Board(), Qt::LeftButton, centre);
  EXPECT_EQ(s.Grid[row][col], card);
  EXPECT_TRUE(items().isEmpty());
  EXPECT_EQ(p.Text("Label3") + p.Text("Label4"), QString::number(row * 10 + col));
  EXPECT_GT(marks(), 20);  // symbol and rank painted
  test::Click(p.w.Board(), Qt::RightButton, centre);
  EXPECT_EQ(s.Grid[row][col], 0);
  EXPECT_EQ(items().size(), 1);
  EXPECT_EQ(marks(), 0);
  auto* undo = p.Get<QPushButton>("UndoEdit");
  undo->click();
  EXPECT_EQ(s.Grid[row][col], card);
  undo->click();
  EXPECT_EQ(s.Grid[row][col], 0);
  EXPECT_TRUE(p.hand.texts.empty());

  const auto start = s.Grid;
  p.Trigger("mnuviewsol");
  EXPECT_GT(marks(), 0);  // the solution's letters in an empty cell
  EXPECT_EQ(s.Grid, start);
  p.Trigger("mnusolveall");
  EXPECT_EQ(p.hand.texts, std::vector<std::string>{"Done"});
  EXPECT_EQ(s.Grid, s.SolutionGrid);
  int listed = 0;
  for (const char* name : {"Remain0", "Remain1", "Remain2", "Remain3"})
    listed += p.Get<QListWidget>(name)->count();
  EXPECT_EQ(listed, 3);  // the cards the puzzle leaves out
  EXPECT_GT(marks(), 20);
  p.Trigger("mnurestore");
  EXPECT_EQ(s.Grid, start);
  EXPECT_EQ(marks(), 0);
}

}  // namespace
}  // namespace velmora
