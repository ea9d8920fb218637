// The main window: start-up, colours, Exit against the close box, menus, help and about.
#include <gtest/gtest.h>

#include <QListWidget>
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
  EXPECT_NE(win.Config().find("\r\ndefault.col\r\n\r\n1\r\n"), std::string::npos) << win.Config();
  EXPECT_EQ(win.Text("PuzNumNow"), "");
  EXPECT_EQ(win.w.windowTitle(), "Velmora");
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

TEST(Form1StartUp, RemembersFileNumberAndSchemeAndTheHiddenButtonReappliesColours) {
  Window win(2, "sand.col");
  EXPECT_TRUE(win.hand.texts.empty());
  EXPECT_EQ(win.Text("PuzNumNow"), "2");
  EXPECT_EQ(win.Text("MaxPuzCount"), " of 3");
  EXPECT_EQ(win.Text("PuzTitle"), "Sample 2");
  EXPECT_EQ(win.w.windowTitle(), QString::fromStdString("File: " + win.Puzzles()));
  // The suit panels list the cards still to place, none of another suit.
  int cards = 0;
  for (int i = 0; i < 4; ++i) {
    auto* list = win.Get<QListWidget>(QStringLiteral("Remain%1").arg(i).toLatin1().constData());
    for (int k = 0; k < list->count(); ++k, ++cards)
      EXPECT_EQ(list->item(k)->text().right(1), QString("SHDC"[i]));
  }
  EXPECT_GT(cards, 0);
  EXPECT_EQ(win.Pixel(10, 10), QColor(243, 234, 214));
  EXPECT_EQ(win.Get<QLineEdit>("PuzTitle")->palette().color(QPalette::Base), QColor(255, 251, 240));
  EXPECT_EQ(win.w.palette().color(QPalette::Window), QColor(243, 234, 214));

  win.s().Scheme[kSchemeBackground] = 0x00204060;
  auto* kick = win.Get<QPushButton>("kickinSetCol");
  EXPECT_TRUE(kick->isHidden());
  kick->click();
  EXPECT_EQ(win.Pixel(10, 10), QColor(0x60, 0x40, 0x20));
}

TEST(Form1Exit, NoKeepsRunningYesSavesCloseBoxDoesNot) {
  Window win(2);
  const std::string before = win.Config();
  win.hand.Answer(QMessageBox::No);
  win.Get<QPushButton>("cmdexit")->click();
  EXPECT_EQ(win.hand.texts, std::vector<std::string>{"Exit?"});
  EXPECT_TRUE(win.w.isVisible());
  EXPECT_EQ(win.Config(), before);

  win.w.close();  // the close box: no question, nothing written
  EXPECT_FALSE(win.w.isVisible());
  EXPECT_EQ(win.hand.texts.size(), 1u);
  EXPECT_EQ(win.Config(), before);

  win.w.show();
  win.s().CurrentPuzzleNumber = 3;
  win.hand.Answer(QMessageBox::Yes);
  win.Trigger("mnuexit");
  EXPECT_EQ(win.hand.texts.size(), 2u);
  EXPECT_FALSE(win.w.isVisible());
  EXPECT_NE(win.Config().find("\r\ndefault.col\r\n" + win.Puzzles() + "\r\n 3 \r\n"), std::string::npos);
}

TEST(Form1Menus, OnlyWorkingCommandsAreOffered) {
  Form1 w;
  QStringList names;
  for (QAction* top : w.menuBar()->actions()) {
    for (QAction* a : top->menu()->actions()) {
      if (!a->isSeparator()) names << a->objectName() + "=" + a->text().remove('&');
    }
  }
  EXPECT_EQ(names, (QStringList{"mnuloadpuz=Load", "mnusaveas=Copy", "mnuexit=Exit", "mnupuzreset=Reset",
                                "mnusaveassli=Save", "mnuappend=Append", "mnudelete=Delete",
                                "mnuviewsol=Show Solution", "mnunewrandpuzx=One Puzzle",
                                "mnumultipuzx=Multiple Puzzles", "mnusolveall=AutoSolve",
                                "mnurestore=Restore", "mnuhelp=Help", "mnuabout=About"}));
  for (const char* hidden : {"Autosolvex", "Command6", "Command7", "cmdmakepuzzles"}) {
    EXPECT_TRUE(test::Child<QPushButton>(&w, hidden)->isHidden()) << hidden;
  }
}

TEST(Form1Help, HelpPageNavigatesAndAboutShowsVersionAndClosesWithTheWindow) {
  Window win(1);
  win.Trigger("mnuhelp");
  auto* help = win.Get<Form4>("Form4");
  QTextBrowser* browser = help->Browser();
  EXPECT_TRUE(browser->toPlainText().contains("How to play"));
  // The page explains every command the menus offer.
  for (QAction* top : win.w.menuBar()->actions()) {
    for (QAction* a : top->menu()->actions()) {
      if (a->isSeparator()) continue;
      const QString text = a->text().remove('&');
      EXPECT_TRUE(browser->toPlainText().contains(text)) << text.toStdString();
    }
  }
  auto* back = test::Child<QPushButton>(help, "cmdback");
  EXPECT_FALSE(back->isEnabled());
  browser->setSource(
      QUrl::fromLocalFile(QString::fromStdString(win.dir.File("velmora.htm"))).resolved(QUrl("#menus")));
  back->click();
  EXPECT_TRUE(test::Child<QPushButton>(help, "cmdforward")->isEnabled());
  test::Child<QPushButton>(help, "cmdhelpexit")->click();
  EXPECT_FALSE(help->isVisible());

  win.Trigger("mnuabout");
  auto* about = win.Get("AboutForm");
  EXPECT_EQ(test::Child<QLabel>(about, "Version")->text(), "Version 1.0");
  EXPECT_TRUE(test::Child<QLabel>(about, "Rules")->text().contains("king and ace"));
  win.w.close();
  EXPECT_FALSE(about->isVisible());
}

TEST(Form1Help, MissingPageIsSaidInTheWindow) {
  test::TempDir empty;
  test::DialogHand hand;
  Form1 w;
  w.StartUp(empty.path());
  EXPECT_EQ(hand.texts.size(), 2u);  // configuration and colour scheme
  test::Child<QAction>(&w, "mnuhelp")->trigger();
  EXPECT_TRUE(test::Child<Form4>(&w, "Form4")->Browser()->toPlainText().contains("could not be found"));
}

}  // namespace
}  // namespace velmora
