// The main window: start-up, colours, the arrows and the typed number, Load,
// Exit against the close box, help.
#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QMenuBar>
#include <QPushButton>
#include <QTextBrowser>

#include "app/ui/help_window.h"
#include "appearance/color_scheme.h"
#include "ui_support.h"

namespace velmora {
namespace {

using test::Window;

TEST(Form1StartUp, FirstRunSaysSoOnceAndShowsFortyNineEmptyOutlinedCells) {
  Window win;
  EXPECT_EQ(win.hand.texts, std::vector<std::string>{"Configuration file:\n" + win.dir.File("velmora.cfg") +
                                                     "\ncould not be accessed, new file will be created"});
  int empty = 0;
  for (int r = 1; r <= 7; ++r) {
    for (int c = 1; c <= 7; ++c) {
      const double x = win.s().CellX[r][c], y = win.s().CellY[r][c];
      empty += win.s().Grid[r][c] == 0 && win.Pixel(x, y + 400) == QColor(Qt::black) &&
               win.Pixel(x + 400, y + 300) == win.Pixel(10, 10);
    }
  }
  EXPECT_EQ(empty, 49);
}

TEST(Form1, RemembersFileNumberAndSchemeAndPaintsCellsInSchemeColourTwo) {
  Window win(2, "sand.col");
  EXPECT_TRUE(win.hand.texts.empty());
  EXPECT_EQ(win.Text("PuzNumNow") + win.Text("MaxPuzCount") + " " + win.Text("PuzTitle"), "2 of 3 Sample 2");
  EXPECT_EQ(win.w.windowTitle(), QString::fromStdString("File: " + win.Puzzles()));
  EXPECT_EQ(win.Pixel(10, 10), QColor(243, 234, 214));
  // Cells take scheme colour 2 as it stands when painted; the surface, which
  // shows around the board and inside empty cells, keeps the applied one.
  ASSERT_TRUE(win.s().Grid[1][1] > 0 && win.s().Grid[1][2] == 0);
  win.s().Scheme[kSchemeBackground] = Rgb(20, 160, 90);
  win.w.DrawBoard();
  EXPECT_EQ(win.Pixel(30 + 700, 30 + 100), QColor(20, 160, 90));
  EXPECT_EQ(win.Pixel(840 + 400, 30 + 300), QColor(243, 234, 214));
  EXPECT_EQ(win.Pixel(10, 10), QColor(243, 234, 214));
}

TEST(Form1, ArrowsAndTheTypedNumber) {
  Window win(2);
  // From the first record each press lands on a different one if the arrows or buttons were swapped.
  test::Click(win.Get("arrows0"), Qt::RightButton);
  QStringList shown;
  for (const std::string press : {"arrows1L", "arrows0R", "arrows1R", "arrows0L"}) {
    test::Click(win.Get(press.substr(0, 7).c_str()), press[7] == 'L' ? Qt::LeftButton : Qt::RightButton);
    shown << win.Text("PuzNumNow");
  }
  EXPECT_EQ(shown, (QStringList{"2", "1", "3", "2"}));
  auto* number = win.Get<QLineEdit>("PuzNumNow");
  number->selectAll();
  for (const auto& [key, text] : {std::pair{Qt::Key_3, "3"}, {Qt::Key_Return, ""}}) {
    EXPECT_EQ(win.s().CurrentPuzzleNumber, 2);  // typing alone does not jump
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(number, &press);
  }
  EXPECT_EQ(win.Text("PuzTitle"), "Sample 3");
}

TEST(Form1, LoadAsksInTheProgramFolderAndHelpExplainsEveryMenuCommand) {
  Window win(2);
  const std::string other =
      win.dir.Write("other.vlm", "#1\r\nOther one\r\n" + win.dir.Read("puzzles.vlm").substr(14));
  win.hand.names = {other};
  win.Trigger("mnuloadpuz");
  EXPECT_EQ(win.hand.fileDialogs, std::vector<std::string>{"velmora|velmora Files (*.vlm *.txt *.dat)|" +
                                                           win.dir.path() + "|OPEN"});
  EXPECT_EQ(win.Text("PuzTitle"), "Other one");
  EXPECT_EQ(win.w.windowTitle(), QString::fromStdString("File: " + other));
  win.Trigger("mnuhelp");  // the help page explains every menu command
  const QString page = win.Get<Form4>("Form4")->Browser()->toPlainText();
  for (QAction* top : win.w.menuBar()->actions()) {
    for (QAction* a : top->menu()->actions()) {
      const QString text = a->text().remove('&');
      EXPECT_TRUE(a->isSeparator() || page.contains(text)) << text.toStdString();
    }
  }
}

TEST(Form1Exit, NoKeepsRunningYesSavesCloseBoxDoesNot) {
  Window win(2);
  const std::string before = win.Config();
  win.hand.answers = {QMessageBox::No};
  win.Get<QPushButton>("cmdexit")->click();
  EXPECT_EQ(win.hand.texts, std::vector<std::string>{"Exit?"});
  EXPECT_TRUE(win.w.isVisible());
  win.w.close();  // the close box: no question, nothing written
  EXPECT_FALSE(win.w.isVisible());
  EXPECT_EQ(win.hand.texts.size(), 1u);
  EXPECT_EQ(win.Config(), before);
  win.w.show();
  win.s().CurrentPuzzleNumber = 3;
  win.hand.answers = {QMessageBox::Yes};
  win.Trigger("mnuexit");
  EXPECT_EQ(win.hand.texts.size(), 2u);
  EXPECT_FALSE(win.w.isVisible());
  EXPECT_NE(win.Config().find("\r\ndefault.col\r\n" + win.Puzzles() + "\r\n 3 \r\n"), std::string::npos);
}

}  // namespace
}  // namespace velmora
