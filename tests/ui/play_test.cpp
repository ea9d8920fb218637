// Playing with the mouse: real clicks on the suit panels and on Picture1, the
// status line on move, undo and the solving menus.
#include <gtest/gtest.h>

#include <QListWidget>
#include <QPushButton>

#include "model/text.h"
#include "ui_support.h"

namespace velmora {
namespace {

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
