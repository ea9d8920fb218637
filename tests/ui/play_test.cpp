// Playing with the mouse: real clicks on the suit panels and on Picture1, status on move, undo and
// the solving menus.
#include <gtest/gtest.h>

#include <QListWidget>
#include <QPushButton>

#include "board/geometry.h"
#include "model/text.h"
#include "ui_support.h"

namespace velmora {
namespace {

// A window showing sample puzzle 1.
struct Playing : test::Window {
  Playing() : Window(1) {}
  QListWidget* List(int card) {
    return Get<QListWidget>(("Remain" + std::to_string((card - 1) % 4)).c_str());
  }
  QPointF CellCentre(int row, int col) {
    return w.Board()->TwipsToPixels(QPointF(s().CellX[row][col] + 405, s().CellY[row][col] + 405));
  }
  bool Listed(int card) {
    return !List(card)->findItems(QString::fromStdString(ListText(s(), card)), Qt::MatchExactly).isEmpty();
  }
  // Picks the card's item in its suit panel with the mouse.
  void Pick(int card) {
    QListWidget* list = List(card);
    const auto found = list->findItems(QString::fromStdString(ListText(s(), card)), Qt::MatchExactly);
    ASSERT_FALSE(found.isEmpty()) << card;
    test::Click(list->viewport(), Qt::LeftButton, list->visualItemRect(found[0]).center());
  }
  void ClickCell(int row, int col, Qt::MouseButton b) { test::Click(w.Board(), b, CellCentre(row, col)); }
  void MoveTo(QPointF pos) {
    QMouseEvent move(QEvent::MouseMove, pos, w.Board()->mapToGlobal(pos), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(w.Board(), &move);
  }
  std::pair<int, int> FirstEmpty() {
    for (int r = 1; r <= 7; ++r)
      for (int c = 1; c <= 7; ++c)
        if (s().Grid[r][c] == 0) return {r, c};
    return {0, 0};
  }
  // Pixels inside a cell that differ from the cell's own background.
  int Marks(int row, int col) {
    const double x = s().CellX[row][col], y = s().CellY[row][col];
    const QColor back = Pixel(x + 40, y + 40);
    int n = 0;
    for (int dy = 60; dy < 780; dy += 30)
      for (int dx = 60; dx < 780; dx += 30) n += Pixel(x + dx, y + dy) != back;
    return n;
  }
};

TEST(MousePlay, LeftClickPlacesTheSelectedCardRightClickRemovesItAndUndoTakesBoth) {
  Playing p;
  const auto [row, col] = p.FirstEmpty();
  ASSERT_NE(row, 0);
  const int card = p.s().SolutionGrid[row][col];
  EXPECT_EQ(p.Marks(row, col), 0);
  p.Pick(card);
  EXPECT_EQ(p.s().SelectedCard, ListText(p.s(), card));

  p.ClickCell(row, col, Qt::LeftButton);
  EXPECT_EQ(p.s().Grid[row][col], card);
  EXPECT_FALSE(p.Listed(card));
  EXPECT_EQ(p.Text("Label3"), QString::number(row));
  EXPECT_EQ(p.Text("Label4"), QString::number(col));
  EXPECT_GT(p.Marks(row, col), 20);  // symbol and rank painted

  p.ClickCell(row, col, Qt::RightButton);
  EXPECT_EQ(p.s().Grid[row][col], 0);
  EXPECT_TRUE(p.Listed(card));
  EXPECT_EQ(p.Marks(row, col), 0);

  auto* undo = p.Get<QPushButton>("UndoEdit");
  undo->click();
  EXPECT_EQ(p.s().Grid[row][col], card);
  EXPECT_EQ(p.Marks(row, col), 0);  // an undone cell is painted blank
  undo->click();
  EXPECT_EQ(p.s().Grid[row][col], 0);
  EXPECT_TRUE(p.hand.texts.empty());
}

TEST(MousePlay, StatusLineFollowsThePointer) {
  Playing p;
  const auto [row, col] = p.FirstEmpty();
  p.MoveTo(p.CellCentre(row, col));
  EXPECT_EQ(p.Text("pb").toStdString(), " Cell" + Str(p.s().CellNumber[row][col]) +
                                            ", Options=" + OptionText(p.s().CellOptionsSaved[row][col]));
  p.MoveTo(p.w.Board()->TwipsToPixels(QPointF(5740, 5800)));
  EXPECT_EQ(p.Text("pb"), "");
}

TEST(SolveMenus, AutoSolveRestoreAndShowSolution) {
  Playing p;
  std::filesystem::copy_file(test::SolvableFile(), p.Puzzles(),
                             std::filesystem::copy_options::overwrite_existing);
  p.w.StartUp(p.dir.path());  // a puzzle that deduction alone finishes
  const auto start = p.s().Grid;
  const auto [row, col] = p.FirstEmpty();
  ASSERT_NE(row, 0);

  p.Trigger("mnuviewsol");
  EXPECT_GT(p.Marks(row, col), 0);  // the solution's letters in an empty cell
  EXPECT_EQ(p.s().Grid, start);

  p.Trigger("mnusolveall");
  EXPECT_EQ(p.hand.texts, std::vector<std::string>{"Done"});
  EXPECT_EQ(p.s().Grid[row][col], p.s().SolutionGrid[row][col]);
  int listed = 0;
  for (int card = 1; card <= 4; ++card) listed += p.List(card)->count();
  EXPECT_EQ(listed, 3);  // the cards the puzzle leaves out
  EXPECT_GT(p.Marks(row, col), 20);

  p.Trigger("mnurestore");
  EXPECT_EQ(p.s().Grid, start);
  EXPECT_EQ(p.Marks(row, col), 0);
  p.Trigger("mnurestore");
  EXPECT_EQ(p.hand.texts.back(), "Backup grid not found");
}

}  // namespace
}  // namespace velmora
