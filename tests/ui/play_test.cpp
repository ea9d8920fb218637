// Playing with the mouse: real clicks on the suit panels and on Picture1, the
// status line on move, undo and the solving menus.
#include <gtest/gtest.h>

#include <QListWidget>
#include <QPushButton>

#include "model/text.h"
#include "ui_support.h"

namespace velmora {
namespace {

// A window showing a puzzle that deduction alone finishes.
struct Playing : test::Window {
  Playing() : Window(1) {
    std::filesystem::copy_file(test::SolvableFile(), Puzzles(),
                               std::filesystem::copy_options::overwrite_existing);
    w.StartUp(dir.path());
    for (int r = 7; r >= 1; --r)
      for (int c = 7; c >= 1; --c)
        if (s().Grid[r][c] == 0) row = r, col = c;
  }
  QListWidget* List(int card) {
    return Get<QListWidget>(("Remain" + std::to_string((card - 1) % 4)).c_str());
  }
  QPointF Centre() {
    return w.Board()->TwipsToPixels(QPointF(s().CellX[row][col] + 405, s().CellY[row][col] + 405));
  }
  QList<QListWidgetItem*> Items(int card) {
    return List(card)->findItems(QString::fromStdString(ListText(s(), card)), Qt::MatchExactly);
  }
  void MoveTo(QPointF pos) {
    QMouseEvent move(QEvent::MouseMove, pos, w.Board()->mapToGlobal(pos), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(w.Board(), &move);
  }
  // Pixels inside the first empty cell that differ from the cell's own background.
  int Marks() {
    const double x = s().CellX[row][col], y = s().CellY[row][col];
    const QColor back = Pixel(x + 40, y + 40);
    int n = 0;
    for (int dy = 60; dy < 780; dy += 30)
      for (int dx = 60; dx < 780; dx += 30) n += Pixel(x + dx, y + dy) != back;
    return n;
  }
  int row = 0, col = 0;
};

TEST(MousePlay, StatusOnMoveLeftClickPlacesThePickedCardRightClickRemovesItAndUndoTakesBoth) {
  Playing p;
  ASSERT_NE(p.row, 0);
  p.MoveTo(p.Centre());
  EXPECT_EQ(p.Text("pb").toStdString(), " Cell" + Str(p.s().CellNumber[p.row][p.col]) +
                                            ", Options=" + OptionText(p.s().CellOptionsSaved[p.row][p.col]));
  p.MoveTo(p.w.Board()->TwipsToPixels(QPointF(5740, 5800)));
  EXPECT_EQ(p.Text("pb"), "");

  const int card = p.s().SolutionGrid[p.row][p.col];
  EXPECT_EQ(p.Marks(), 0);
  ASSERT_EQ(p.Items(card).size(), 1);
  test::Click(p.List(card)->viewport(), Qt::LeftButton,
              p.List(card)->visualItemRect(p.Items(card)[0]).center());
  test::Click(p.w.Board(), Qt::LeftButton, p.Centre());
  EXPECT_EQ(p.s().Grid[p.row][p.col], card);
  EXPECT_TRUE(p.Items(card).isEmpty());
  EXPECT_EQ(p.Text("Label3") + p.Text("Label4"), QString::number(p.row * 10 + p.col));
  EXPECT_GT(p.Marks(), 20);  // symbol and rank painted

  test::Click(p.w.Board(), Qt::RightButton, p.Centre());
  EXPECT_EQ(p.s().Grid[p.row][p.col], 0);
  EXPECT_EQ(p.Items(card).size(), 1);
  EXPECT_EQ(p.Marks(), 0);
  auto* undo = p.Get<QPushButton>("UndoEdit");
  undo->click();
  EXPECT_EQ(p.s().Grid[p.row][p.col], card);
  undo->click();
  EXPECT_EQ(p.s().Grid[p.row][p.col], 0);
  EXPECT_TRUE(p.hand.texts.empty());
}

TEST(SolveMenus, ShowSolutionAutoSolveAndRestore) {
  Playing p;
  const auto start = p.s().Grid;
  p.Trigger("mnuviewsol");
  EXPECT_GT(p.Marks(), 0);  // the solution's letters in an empty cell
  EXPECT_EQ(p.s().Grid, start);
  p.Trigger("mnusolveall");
  EXPECT_EQ(p.hand.texts, std::vector<std::string>{"Done"});
  EXPECT_EQ(p.s().Grid, p.s().SolutionGrid);
  int listed = 0;
  for (int card = 1; card <= 4; ++card) listed += p.List(card)->count();
  EXPECT_EQ(listed, 3);  // the cards the puzzle leaves out
  EXPECT_GT(p.Marks(), 20);
  p.Trigger("mnurestore");
  EXPECT_EQ(p.s().Grid, start);
  EXPECT_EQ(p.Marks(), 0);
}

}  // namespace
}  // namespace velmora
