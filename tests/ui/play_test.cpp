// The board painted into an image (each suit's symbol and colour, where the rank
// and the solution text sit), and played with the mouse through the main window.
#include <gtest/gtest.h>

#include <QImage>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <functional>

#include "board/geometry.h"
#include "board/ui/board_painter.h"
#include "model/text.h"
#include "ui_support.h"

namespace velmora {
namespace {

const QColor kSurface(240, 240, 240);
const QColor kBlackSuit(50, 50, 50), kRedSuit(200, 9, 9);

// A strip of four plain colours, so a painted symbol names its index.
const QColor kStripColours[4] = {QColor(0, 200, 200), QColor(200, 0, 200), QColor(200, 200, 0),
                                 QColor(0, 0, 200)};
QImage PlainStrip() {
  QImage strip(4 * 55, 55, QImage::Format_RGB32);
  QPainter p(&strip);
  for (int i = 0; i < 4; ++i) p.fillRect(i * 55, 0, 55, 55, kStripColours[i]);
  return strip;
}

// A board painted at 96 dpi, one pixel 15 twips, cells filled white.
struct Rendered {
  explicit Rendered(const GameState& s, bool solution = false)
      : image(static_cast<int>(kPictureWidth / 15) + 1, static_cast<int>(kPictureHeight / 15) + 1,
              QImage::Format_RGB32) {
    image.fill(Qt::magenta);
    QPainter p(&image);
    ScaleToTwips(p, 96, 96);
    BoardPainter painter(p, strip, Qt::white, kSurface);
    painter.DrawBoard(s);
    if (solution) painter.DrawSolution(s);
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
  int Count(double x, double y, double w, double h, QColor colour) const {
    return Count(x, y, w, h, [colour](QColor c) { return c == colour; });
  }
  SuitStrip strip{PlainStrip()};
  QImage image;
};

TEST(BoardPainter, EachSuitHasItsSymbolAndColourWithTheRankAtTheLowerRight) {
  struct Case {
    int grid;  // a ten of the suit, or a suit-only mark
    int symbol;
    QColor colour;
  };
  const Case cases[] = {{37, 0, kBlackSuit}, {38, 1, kRedSuit}, {39, 2, kRedSuit}, {40, 3, kBlackSuit},
                        {-1, 0, kBlackSuit}, {-3, 2, kRedSuit}};
  for (const Case& c : cases) {
    GameState s;
    CalcCellPos(s);
    s.Grid[2][3] = c.grid;
    const Rendered r(s);
    const double x = s.CellX[2][3], y = s.CellY[2][3];
    SCOPED_TRACE(c.grid);
    EXPECT_EQ(r.At(x + 60 + 275, y + 50 + 275), kStripColours[c.symbol]);
    const QColor other = c.colour == kRedSuit ? kBlackSuit : kRedSuit;
    const int rank = r.Count(x + 560, y + 475, 250, 335, c.colour);
    EXPECT_GT(rank, 5);
    EXPECT_EQ(r.Count(x, y, 810, 810, c.colour), rank);  // nowhere else in the cell
    EXPECT_EQ(r.Count(x, y, 810, 810, other), 0);
  }
}

TEST(BoardPainter, SolutionTextSitsAtTheLowerLeftOfEveryCellInTheBlackSuitColour) {
  GameState s;
  CalcCellPos(s);
  for (int row = 1; row <= 7; ++row)
    for (int col = 1; col <= 7; ++col) s.SolutionGrid[row][col] = 4 * col + row % 4 + 1;
  const Rendered r(s, true);
  const auto ink = [](QColor c) { return c != kSurface; };
  // Small text blends the suit colour with the surface: grey, darker at the core.
  const auto grey = [](QColor c) { return c.red() == c.green() && c.green() == c.blue(); };
  for (int row = 1; row <= 7; ++row) {
    for (int col = 1; col <= 7; ++col) {
      const double x = s.CellX[row][col], y = s.CellY[row][col];
      const int text = r.Count(x + 50, y + 600, 450, 200, ink);
      EXPECT_GT(text, 5) << row << "," << col;
      EXPECT_EQ(r.Count(x + 30, y + 30, 750, 750, ink), text) << row << "," << col;
      EXPECT_EQ(r.Count(x + 50, y + 600, 450, 200, [&](QColor c) { return !grey(c); }), 0) << row << "," << col;
      EXPECT_GT(r.Count(x + 50, y + 600, 450, 200, [](QColor c) { return c.red() < 120; }), 0);
    }
  }
}

TEST(MousePlay, StatusOnMoveClicksPlaceAndRemoveUndoAndTheSolvingMenus) {
  test::Window p(1);  // then a puzzle that deduction alone finishes
  std::filesystem::copy_file(test::SolvableFile(), p.Puzzles(),
                             std::filesystem::copy_options::overwrite_existing);
  p.w.StartUp(p.dir.path());
  GameState& s = p.s();
  const int row = 1, col = 2;  // empty in that puzzle
  ASSERT_EQ(s.Grid[row][col], 0);
  const QPointF centre =
      p.w.Board()->TwipsToPixels(QPointF(s.CellX[row][col] + 405, s.CellY[row][col] + 405));
  QMouseEvent move(QEvent::MouseMove, centre, p.w.Board()->mapToGlobal(centre), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QApplication::sendEvent(p.w.Board(), &move);
  EXPECT_EQ(p.Text("pb").toStdString(), " Cell 2, Options=" + OptionText(s.CellOptionsSaved[row][col]));
  const auto marks = [&] {  // pixels inside the cell that differ from its own background
    const double x = s.CellX[row][col], y = s.CellY[row][col];
    int n = 0;
    for (int dy = 60; dy < 780; dy += 30)
      for (int dx = 60; dx < 780; dx += 30) n += p.Pixel(x + dx, y + dy) != p.Pixel(x + 40, y + 40);
    return n;
  };
  const int card = s.SolutionGrid[row][col];
  auto* list = p.Get<QListWidget>(("Remain" + std::to_string((card - 1) % 4)).c_str());
  const auto item = list->findItems(QString::fromStdString(ListText(s, card)), Qt::MatchExactly);
  ASSERT_EQ(item.size(), 1);
  test::Click(list->viewport(), Qt::LeftButton, list->visualItemRect(item[0]).center());
  test::Click(p.w.Board(), Qt::LeftButton, centre);
  EXPECT_EQ(s.Grid[row][col], card);
  EXPECT_GT(marks(), 20);  // symbol and rank painted
  test::Click(p.w.Board(), Qt::RightButton, centre);
  EXPECT_EQ(s.Grid[row][col], 0);
  EXPECT_EQ(marks(), 0);
  p.Get<QPushButton>("UndoEdit")->click();
  EXPECT_EQ(s.Grid[row][col], card);

  p.Get<QPushButton>("UndoEdit")->click();
  const auto start = s.Grid;
  p.Trigger("mnuviewsol");
  EXPECT_GT(marks(), 0);  // the solution's letters in an empty cell
  p.Trigger("mnusolveall");
  EXPECT_EQ(p.hand.texts, std::vector<std::string>{"Done"});
  EXPECT_EQ(s.Grid, s.SolutionGrid);
  p.Trigger("mnurestore");
  EXPECT_EQ(s.Grid, start);
}

}  // namespace
}  // namespace velmora
