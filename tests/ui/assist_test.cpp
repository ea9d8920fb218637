// The Assist menu and keyboard play wired into the main window.
#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QListWidget>
#include <QMenuBar>

#include "board/ui/board_view.h"
#include "model/hint.h"
#include "ui_support.h"

namespace velmora {
namespace {

void Key(QWidget* w, Qt::Key key, const QString& text = {}) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QApplication::sendEvent(w, &press);
}

TEST(Assist, MenuBeforeHelpKeysPlaceAHintedCardAndShadingShowsForTheChosenCard) {
  test::Window win(1);
  const QList<QAction*> menus = win.w.menuBar()->actions();
  ASSERT_GE(menus.size(), 2);
  EXPECT_EQ(menus[menus.size() - 2]->menu()->objectName(), "mnuassist");
  EXPECT_TRUE(win.Get<QAction>("mnushadefits")->isCheckable() &&
              win.Get<QAction>("mnumarkgivens")->isCheckable());

  // Keyboard: the cursor to the hinted cell, then its card typed.
  win.Trigger("mnuhint");
  const Hint hint = FindHint(win.s());
  ASSERT_EQ(win.Text("pb").toStdString(), HintText(hint));
  BoardView* board = win.w.Board();
  Key(board, Qt::Key_Up);  // shows the cursor on 1, 1
  for (int r = 1; r < hint.row; ++r) Key(board, Qt::Key_Down);
  for (int c = 1; c < hint.col; ++c) Key(board, Qt::Key_Right);
  for (const char letter : {RankLetter(CardRank(hint.card))[0], kSuitLetters[CardSuit(hint.card)]})
    Key(board, Qt::Key_A, QString(QChar::fromLatin1(letter)));
  EXPECT_EQ(win.s().Grid[hint.row][hint.col], hint.card);
  Key(board, Qt::Key_Delete);
  EXPECT_EQ(win.s().Grid[hint.row][hint.col], 0);

  // Shading: off, the widget shows the kept picture; on, the cell changes.
  auto shown = [&] {
    const QImage image = board->grab().toImage();
    const QPointF at = board->TwipsToPixels(
        QPointF(win.s().CellX[hint.row][hint.col] + 200, win.s().CellY[hint.row][hint.col] + 200));
    return image.pixelColor(at.toPoint());
  };
  auto* list = win.Get<QListWidget>(("Remain" + std::to_string(CardSuit(hint.card) - 1)).c_str());
  const QString text = QString::fromLatin1(RankLetter(CardRank(hint.card))) +
                       QChar::fromLatin1(kSuitLetters[CardSuit(hint.card)]);
  test::Click(list->viewport(), Qt::LeftButton,
              list->visualItemRect(list->findItems(text, Qt::MatchExactly)[0]).center());
  ASSERT_EQ(win.s().SelectedCard, text.toStdString());
  const QColor plain = shown();
  win.Trigger("mnushadefits");
  EXPECT_NE(shown(), plain);
  EXPECT_NE(win.dir.Read("velmora.ini").find("ShadeFits=true"), std::string::npos);
}

}  // namespace
}  // namespace velmora
