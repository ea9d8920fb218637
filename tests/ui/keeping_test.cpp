// Kept boards in the desktop program: a board left by the arrows, a restart or
// Reset, the option switched off, and the statistics.
#include "app/settings.h"
#include "model/hint.h"
#include "model/text.h"
#include "ui_support.h"

namespace velmora::test {
namespace {

// Types the hint's card into its cell from the keyboard; the cell.
std::pair<int, int> PlaceHintedCard(Window& win) {
  const Hint hint = FindHint(win.s().puzzle);
  BoardView* board = win.w.Board();
  Key(board, Qt::Key_Up);
  for (int r = 1; r < hint.row; ++r) Key(board, Qt::Key_Down);
  for (int c = 1; c < hint.col; ++c) Key(board, Qt::Key_Right);
  for (const char letter : ListText(win.s().puzzle, hint.card)) Key(board, Qt::Key_A, QString(QChar(letter)));
  EXPECT_EQ(win.s().puzzle.Grid[hint.row][hint.col], hint.card);
  return {hint.row, hint.col};
}

void NextAndBack(Window& win) {
  Click(win.Get<QPushButton>("arrows1"));
  Click(win.Get<QPushButton>("arrows0"));
}

TEST(KeepBoards, ABoardLeftComesBackWithItsUndoUntilReset) {
  Window win(1);
  EXPECT_TRUE(win.Get<QAction>("mnukeepboards")->isChecked());
  EXPECT_TRUE(win.Text("PlayClock").startsWith("new "));
  const auto [row, col] = PlaceHintedCard(win);
  const int card = win.s().puzzle.Grid[row][col];
  NextAndBack(win);
  EXPECT_EQ(win.s().puzzle.Grid[row][col], card);
  EXPECT_EQ(win.s().session.UndoList.size(), 1u);
  EXPECT_TRUE(win.Text("PlayClock").startsWith("in progress "));
  {
    Form1 again;  // a restart over the same folder
    again.StartUp(win.dir.path());
    EXPECT_EQ(again.State().puzzle.Grid[row][col], card);
    EXPECT_EQ(again.State().view.Remain, win.s().view.Remain);
  }
  win.hand.answers = {QMessageBox::Yes};
  win.Trigger("mnupuzreset");
  NextAndBack(win);
  EXPECT_EQ(win.s().puzzle.Grid[row][col], 0);
  EXPECT_TRUE(win.s().session.UndoList.empty());
}

TEST(KeepBoards, SwitchedOffTheBoardIsForgottenAsBeforeAndStatisticsCountTheFile) {
  Window win(1);
  win.Trigger("mnukeepboards");
  EXPECT_FALSE(win.Get<QLabel>("PlayClock")->isVisibleTo(&win.w));
  const auto [row, col] = PlaceHintedCard(win);
  NextAndBack(win);
  EXPECT_EQ(win.s().puzzle.Grid[row][col], 0);
  EXPECT_EQ(LoadSettings(win.s().session.AppFolder).keepBoards, false);

  win.Trigger("mnukeepboards");  // on again: the board in play is kept from here
  PlaceHintedCard(win);
  QString figures;
  OnceOn<QDialog> read([&](QDialog* d) {
    figures = Child<QLabel>(d, "FileFigures")->text();
    d->reject();
  });
  win.Trigger("mnustatistics");
  EXPECT_TRUE(figures.startsWith(
      QString("This file: finished 0 of %1, in progress 1").arg(win.s().session.PuzzleCount)))
      << figures.toStdString();
  win.Trigger("mnunextunfinished");
  EXPECT_EQ(win.s().session.CurrentPuzzleNumber, 2);
}

}  // namespace
}  // namespace velmora::test
