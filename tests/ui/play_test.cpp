// Playing with the mouse: real clicks on the suit panels and on Picture1, status on move, undo, solving menus.
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>

#include "app/ui/form1.h"
#include "board/geometry.h"
#include "files/text_file.h"
#include "model/text.h"
#include "board/ui/board_view.h"
#include "ui_support.h"

namespace velmora {
namespace {

using test::DialogHand;
using test::ProgramFolder;

void Click(QWidget* w, QPointF pos, Qt::MouseButton button) {
  const QPointF global = w->mapToGlobal(pos);
  QMouseEvent press(QEvent::MouseButtonPress, pos, global, button, button, Qt::NoModifier);
  QApplication::sendEvent(w, &press);
  QMouseEvent release(QEvent::MouseButtonRelease, pos, global, button, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(w, &release);
}

void Move(QWidget* w, QPointF pos) {
  QMouseEvent move(QEvent::MouseMove, pos, w->mapToGlobal(pos), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(w, &move);
}

// A window showing sample puzzle 1, laid out so that items have places.
struct Playing {
  ProgramFolder folder;
  DialogHand hand;
  Form1 w;
  Playing() {
    folder.Remember(1);
    w.StartUp(folder.dir.path());
    w.show();
    QApplication::processEvents();
  }
  GameState& s() { return w.State(); }
  QListWidget* List(int i) { return w.findChild<QListWidget*>(QStringLiteral("Remain%1").arg(i)); }
  QString Label(const char* name) { return w.findChild<QLabel*>(QString::fromLatin1(name))->text(); }
  QPointF CellCentre(int row, int col) {
    return w.Board()->TwipsToPixels(QPointF(s().CellX[row][col] + 405, s().CellY[row][col] + 405));
  }
  // Picks the card's item in its suit panel with the mouse; false when it is not listed.
  bool Pick(int card) {
    const QString text = QString::fromStdString(ListText(s(), card));
    QListWidget* list = List((card - 1) % 4);
    const auto found = list->findItems(text, Qt::MatchExactly);
    if (found.isEmpty()) return false;
    Click(list->viewport(), list->visualItemRect(found[0]).center(), Qt::LeftButton);
    return true;
  }
  bool Listed(int card) {
    return !List((card - 1) % 4)->findItems(QString::fromStdString(ListText(s(), card)), Qt::MatchExactly).isEmpty();
  }
  void ClickCell(int row, int col, Qt::MouseButton b) { Click(w.Board(), CellCentre(row, col), b); }
  // The first empty cell, rows outer.
  std::pair<int, int> FirstEmpty() {
    for (int r = 1; r <= 7; ++r)
      for (int c = 1; c <= 7; ++c)
        if (s().Grid[r][c] == 0) return {r, c};
    return {0, 0};
  }
  QColor Pixel(double x, double y) {
    const QImage& image = w.Board()->Image();
    const double scale = image.width() / static_cast<double>(w.Board()->sizeHint().width());
    const QPointF px = w.Board()->TwipsToPixels(QPointF(x, y)) * scale;
    return image.pixelColor(static_cast<int>(px.x()), static_cast<int>(px.y()));
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

TEST(MousePlay, LeftClickPlacesTheSelectedCardAndRightClickRemovesIt) {
  Playing p;
  const auto [row, col] = p.FirstEmpty();
  ASSERT_NE(row, 0);
  const int card = p.s().SolutionGrid[row][col];
  EXPECT_EQ(p.Marks(row, col), 0);
  ASSERT_TRUE(p.Pick(card));
  EXPECT_EQ(p.s().SelectedCard, ListText(p.s(), card));
  EXPECT_EQ(p.List((card - 1) % 4)->selectedItems().size(), 1);

  p.ClickCell(row, col, Qt::LeftButton);
  EXPECT_EQ(p.s().Grid[row][col], card);
  EXPECT_FALSE(p.Listed(card));
  EXPECT_EQ(p.s().SelectedCard, "");
  EXPECT_EQ(p.Label("Label3"), QString::number(row));
  EXPECT_EQ(p.Label("Label4"), QString::number(col));
  EXPECT_GT(p.Marks(row, col), 20);  // symbol and rank painted

  p.ClickCell(row, col, Qt::RightButton);
  EXPECT_EQ(p.s().Grid[row][col], 0);
  EXPECT_TRUE(p.Listed(card));
  EXPECT_EQ(p.Marks(row, col), 0);

  // Two changes to take back: the removal, then the placement.
  auto* undo = p.w.findChild<QPushButton*>(QStringLiteral("UndoEdit"));
  undo->click();
  EXPECT_EQ(p.s().Grid[row][col], card);
  EXPECT_EQ(p.Marks(row, col), 0);  // an undone cell is painted blank
  undo->click();
  EXPECT_EQ(p.s().Grid[row][col], 0);
}

TEST(MousePlay, RefusalsAndClicksOffTheBoardChangeNothing) {
  Playing p;
  const auto before = p.s().Grid;
  // No card selected.
  const auto [row, col] = p.FirstEmpty();
  p.ClickCell(row, col, Qt::LeftButton);
  EXPECT_EQ(p.s().Grid, before);
  EXPECT_EQ(p.Label("Label3"), QString::number(row));
  // Off the board, below the last row.
  Click(p.w.Board(), p.w.Board()->TwipsToPixels(QPointF(500, 5790)), Qt::LeftButton);
  EXPECT_EQ(p.Label("Label3"), "0");
  EXPECT_EQ(p.Label("Label4"), "0");
  EXPECT_EQ(p.s().Grid, before);
  EXPECT_TRUE(p.hand.texts.empty());
}

TEST(MousePlay, StatusLineFollowsThePointer) {
  Playing p;
  auto* board = p.w.Board();
  const auto [row, col] = p.FirstEmpty();
  Move(board, p.CellCentre(row, col));
  const std::string number = Str(p.s().CellNumber[row][col]);
  EXPECT_EQ(p.Label("pb").toStdString(), " Cell" + number + ", Options=" + OptionText(p.s().CellOptionsSaved[row][col]));
  // A given card reads Fixed=.
  for (int r = 1; r <= 7; ++r) {
    for (int c = 1; c <= 7; ++c) {
      if (p.s().PuzzleGrid[r][c] <= 0) continue;
      Move(board, p.CellCentre(r, c));
      EXPECT_EQ(p.Label("pb").toStdString(),
                " Cell" + Str(p.s().CellNumber[r][c]) + ", Fixed=" + ListText(p.s(), p.s().Grid[r][c]));
      r = c = 8;
    }
  }
  Move(board, board->TwipsToPixels(QPointF(5740, 5800)));
  EXPECT_EQ(p.Label("pb"), "");
}

TEST(MousePlay, PlayingTheSolutionEndsWithDone) {
  Playing p;
  int placed = 0;
  for (auto cell = p.FirstEmpty(); cell.first != 0; cell = p.FirstEmpty()) {
    const int card = p.s().SolutionGrid[cell.first][cell.second];
    ASSERT_TRUE(p.Pick(card)) << card;
    p.ClickCell(cell.first, cell.second, Qt::LeftButton);
    ASSERT_EQ(p.s().Grid[cell.first][cell.second], card);
    ++placed;
  }
  EXPECT_GT(placed, 0);
  EXPECT_EQ(p.hand.texts, std::vector<std::string>{"Done"});
  for (int i = 0; i < 4; ++i) EXPECT_EQ(p.List(i)->count(), 0) << i;
}

// Sample puzzle 1 with every cell given except three in different rows and
// columns: each has a single option, so deduction alone finishes it.
std::string NearlySolved() {
  std::string text;
  EXPECT_TRUE(ReadWholeFile(test::SampleFile(), text));
  std::string out = "#1\r\nNearly solved\r\n 7, 7, 3\r\n";
  size_t pos = text.find("|");
  for (int row = 0; row < 7; ++row) {
    const std::string solution = text.substr(pos + 1, 7);
    std::string givens = solution;
    if (row == 0) givens[0] = '@';
    if (row == 2) givens[3] = '@';
    if (row == 5) givens[5] = '@';
    out += givens + "|" + solution + "\r\n";
    pos = text.find("|", pos + 1);
  }
  return out;
}

TEST(SolveMenus, AutoSolveRestoreAndShowSolution) {
  Playing p;
  p.folder.dir.Write("puzzles.vlm", NearlySolved());
  p.w.close();
  p.w.StartUp(p.folder.dir.path());
  p.w.show();
  ASSERT_EQ(p.s().Grid[1][1], 0);
  const auto start = p.s().Grid;
  const auto [row, col] = p.FirstEmpty();
  auto action = [&](const char* name) { return p.w.findChild<QAction*>(QString::fromLatin1(name)); };

  action("mnuviewsol")->trigger();
  EXPECT_GT(p.Marks(row, col), 0);  // the solution's letters in an empty cell
  EXPECT_EQ(p.s().Grid, start);

  action("mnusolveall")->trigger();
  EXPECT_EQ(p.hand.texts, std::vector<std::string>{"Done"});
  EXPECT_EQ(p.s().Grid[row][col], p.s().SolutionGrid[row][col]);
  int listed = 0;
  for (int i = 0; i < 4; ++i) listed += p.List(i)->count();
  EXPECT_EQ(listed, 3);  // the cards the puzzle leaves out
  EXPECT_GT(p.Marks(row, col), 20);

  action("mnurestore")->trigger();
  EXPECT_EQ(p.s().Grid, start);
  EXPECT_EQ(p.Marks(row, col), 0);
  action("mnurestore")->trigger();
  EXPECT_EQ(p.hand.texts.back(), "Backup grid not found");
}

}  // namespace
}  // namespace velmora
