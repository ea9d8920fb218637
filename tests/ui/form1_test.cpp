// The main window: start-up, colours, Exit against the close box, Cancel, menus, help and about.
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QTextBrowser>

#include "app/ui/form1.h"
#include "app/ui/help_window.h"
#include "board/ui/board_view.h"
#include "ui_support.h"

namespace velmora {
namespace {

using test::DialogHand;
using test::ProgramFolder;

template <typename T>
T* Child(QObject* parent, const char* name) {
  T* child = parent->findChild<T*>(QString::fromLatin1(name));
  EXPECT_NE(child, nullptr) << name;
  return child;
}

QString Text(Form1& w, const char* name) {
  if (auto* edit = w.findChild<QLineEdit*>(QString::fromLatin1(name))) return edit->text();
  return Child<QLabel>(&w, name)->text();
}

QStringList Items(Form1& w, int list) {
  QStringList items;
  auto* l = Child<QListWidget>(&w, QStringLiteral("Remain%1").arg(list).toLatin1().constData());
  for (int i = 0; l && i < l->count(); ++i) items << l->item(i)->text();
  return items;
}

// Colour of the picture at a twips position.
QColor BoardPixel(Form1& w, double x, double y) {
  const QImage& image = w.Board()->Image();
  const double scale = image.width() / static_cast<double>(w.Board()->sizeHint().width());
  const QPointF px = w.Board()->TwipsToPixels(QPointF(x, y)) * scale;
  return image.pixelColor(static_cast<int>(px.x()), static_cast<int>(px.y()));
}

TEST(Form1StartUp, FirstRunSaysSoOnceAndShowsAnEmptyBoard) {
  ProgramFolder folder;
  DialogHand hand;
  Form1 w;
  w.StartUp(folder.dir.path());
  ASSERT_EQ(hand.texts.size(), 1u);
  EXPECT_EQ(hand.texts[0], "Configuration file:\n" + folder.dir.File("velmora.cfg") +
                               "\ncould not be accessed, new file will be created");
  const std::string config = folder.Config();
  EXPECT_NE(config.find("\r\ndefault.col\r\n\r\n1\r\n"), std::string::npos) << config;
  EXPECT_EQ(Text(w, "PuzNumNow"), "");
  EXPECT_EQ(w.windowTitle(), "Velmora");
  // The picture holds 49 empty outlined cells.
  const GameState& s = w.State();
  int empty = 0;
  for (int r = 1; r <= 7; ++r) {
    for (int c = 1; c <= 7; ++c) {
      const double x = s.CellX[r][c], y = s.CellY[r][c];
      empty += s.Grid[r][c] == 0 && BoardPixel(w, x, y + 400) == QColor(Qt::black) &&
               BoardPixel(w, x + 400, y + 300) == BoardPixel(w, 10, 10);
    }
  }
  EXPECT_EQ(empty, 49);
}

TEST(Form1StartUp, RemembersFileNumberAndScheme) {
  ProgramFolder folder;
  folder.Remember(2, "sand.col");
  DialogHand hand;
  Form1 w;
  w.StartUp(folder.dir.path() + "/");
  EXPECT_TRUE(hand.texts.empty());
  EXPECT_EQ(Text(w, "PuzNumNow"), "2");
  EXPECT_EQ(Text(w, "MaxPuzCount"), " of 3");
  EXPECT_EQ(Text(w, "PuzTitle"), "Sample 2");
  EXPECT_EQ(w.windowTitle(), QString::fromStdString("File: " + folder.dir.File("puzzles.vlm")));
  // The suit panels list the cards still to place, none of another suit.
  int cards = 0;
  for (int i = 0; i < 4; ++i) {
    for (const QString& item : Items(w, i)) {
      EXPECT_EQ(item.right(1), QString(QChar("SHDC"[i])));
      ++cards;
    }
  }
  EXPECT_GT(cards, 0);
  // The scheme's background fills the surface and the title box has its own colour.
  EXPECT_EQ(BoardPixel(w, 10, 10), QColor(243, 234, 214));
  EXPECT_EQ(Child<QLineEdit>(&w, "PuzTitle")->palette().color(QPalette::Base), QColor(255, 251, 240));
  EXPECT_EQ(w.palette().color(QPalette::Window), QColor(243, 234, 214));
}

TEST(Form1StartUp, DefaultSchemeTakesTheSystemBackground) {
  ProgramFolder folder;
  folder.Remember(1, "DEFAULT.col");  // named in another case: not found, then default.col
  DialogHand hand;
  const QColor system = QApplication::palette().color(QPalette::Button);
  Form1 w;
  w.StartUp(folder.dir.path());
  ASSERT_EQ(hand.texts.size(), 1u);
  EXPECT_EQ(hand.texts[0], "Color Scheme: DEFAULT.col not found");
  EXPECT_EQ(w.State().ColorSchemeName, "default.col");
  EXPECT_EQ(w.palette().color(QPalette::Window), system);
  EXPECT_EQ(Child<QPushButton>(&w, "UndoEdit")->palette().color(QPalette::Button), QColor(240, 240, 240));
}

TEST(Form1Colours, HiddenKickinButtonAppliesTheSchemeAndRepaints) {
  ProgramFolder folder;
  folder.Remember(1, "sea.col");
  DialogHand hand;
  Form1 w;
  w.StartUp(folder.dir.path());
  EXPECT_EQ(BoardPixel(w, 10, 10), QColor(214, 230, 242));
  w.State().Scheme[2] = 0x00204060;  // Rgb(0x60, 0x40, 0x20)
  auto* kick = Child<QPushButton>(&w, "kickinSetCol");
  ASSERT_NE(kick, nullptr);
  EXPECT_FALSE(kick->isVisible());
  EXPECT_EQ(kick->text(), "kickin SetCol");
  kick->click();
  EXPECT_EQ(BoardPixel(w, 10, 10), QColor(0x60, 0x40, 0x20));
  EXPECT_EQ(Child<QPushButton>(&w, "kickinOptions")->text(), "kickin options settings");
}

TEST(Form1Exit, NoKeepsRunningYesSavesCloseBoxDoesNot) {
  ProgramFolder folder;
  folder.Remember(2);
  DialogHand hand;
  Form1 w;
  w.StartUp(folder.dir.path());
  w.show();
  const std::string before = folder.Config();

  hand.Answer(QMessageBox::No);
  Child<QPushButton>(&w, "cmdexit")->click();
  EXPECT_EQ(hand.texts, std::vector<std::string>{"Exit?"});
  EXPECT_TRUE(w.isVisible());
  EXPECT_EQ(folder.Config(), before);

  // The close box: no question, nothing written.
  w.close();
  EXPECT_FALSE(w.isVisible());
  EXPECT_EQ(hand.texts.size(), 1u);
  EXPECT_EQ(folder.Config(), before);

  // File > Exit, Yes: the configuration is written anew and the window goes.
  w.show();
  w.State().CurrentPuzzleNumber = 3;
  hand.Answer(QMessageBox::Yes);
  Child<QAction>(&w, "mnuexit")->trigger();
  EXPECT_EQ(hand.texts.size(), 2u);
  EXPECT_FALSE(w.isVisible());
  EXPECT_NE(folder.Config().find("\r\ndefault.col\r\n" + folder.dir.File("puzzles.vlm") + "\r\n 3 \r\n"),
            std::string::npos);
}

TEST(Form1Cancel, ProgressPanelCancelsOnce) {
  ProgramFolder folder;
  folder.Remember(1);
  DialogHand hand;
  Form1 w;
  w.StartUp(folder.dir.path());
  w.State().view.Frame1Visible = true;
  w.State().view.NewLab = "Creating Puzzle";
  w.ControlsChanged();
  w.show();
  auto* cancel = Child<QPushButton>(&w, "cmdcancel");
  ASSERT_TRUE(cancel->isVisible());
  EXPECT_EQ(cancel->toolTip(), "Cancel current command");
  cancel->click();
  EXPECT_EQ(Text(w, "NewLab"), " Canceling...");
  EXPECT_EQ(w.State().CancelRequest, 1);
  w.State().CancelRequest = 0;
  cancel->click();
  EXPECT_EQ(w.State().CancelRequest, 0);
  w.State().view.Frame1Visible = false;
  w.ControlsChanged();
  EXPECT_FALSE(cancel->isVisible());
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
                                "mnumultipuzx=Multiple Puzzles", "mnusolveall=AutoSolve", "mnurestore=Restore",
                                "mnuhelp=Help", "mnuabout=About"}));
  EXPECT_EQ(Child<QPushButton>(&w, "UndoEdit")->toolTip(), "Undo last change");
  for (const char* hidden : {"Autosolvex", "Command6", "Command7"}) {
    EXPECT_TRUE(Child<QPushButton>(&w, hidden)->isHidden()) << hidden;
  }
}

TEST(Form1Help, HelpPageNavigatesAndAboutShowsVersion) {
  ProgramFolder folder;
  folder.Remember(1);
  DialogHand hand;
  Form1 w;
  w.StartUp(folder.dir.path());
  Child<QAction>(&w, "mnuhelp")->trigger();
  auto* help = Child<Form4>(&w, "Form4");
  ASSERT_NE(help, nullptr);
  EXPECT_TRUE(help->isVisible());
  QTextBrowser* browser = help->Browser();
  EXPECT_TRUE(browser->toPlainText().contains("How to play"));
  for (const char* command : {"AutoSolve", "Restore", "Show Solution", "Exit", "About"}) {
    EXPECT_TRUE(browser->toPlainText().contains(command)) << command;
  }
  auto* back = Child<QPushButton>(help, "cmdback");
  auto* forward = Child<QPushButton>(help, "cmdforward");
  EXPECT_FALSE(back->isEnabled());
  browser->setSource(QUrl::fromLocalFile(QString::fromStdString(folder.dir.File("velmora.htm"))).resolved(QUrl("#menus")));
  EXPECT_TRUE(back->isEnabled());
  back->click();
  EXPECT_TRUE(forward->isEnabled());
  Child<QPushButton>(help, "cmdhelpexit")->click();
  EXPECT_FALSE(help->isVisible());

  Child<QAction>(&w, "mnuabout")->trigger();
  auto* about = Child<QWidget>(&w, "AboutForm");
  ASSERT_NE(about, nullptr);
  EXPECT_EQ(Child<QLabel>(about, "Version")->text(), "Version 1.0");
  EXPECT_TRUE(Child<QLabel>(about, "Rules")->text().contains("king and ace"));
  // Closing the main window closes its other windows.
  w.close();
  EXPECT_FALSE(about->isVisible());
}

TEST(Form1Help, MissingPageIsSaidInTheWindow) {
  test::TempDir empty;
  DialogHand hand;
  Form1 w;
  w.StartUp(empty.path());
  EXPECT_EQ(hand.texts.size(), 2u);  // configuration and colour scheme
  Child<QAction>(&w, "mnuhelp")->trigger();
  EXPECT_TRUE(Child<Form4>(&w, "Form4")->Browser()->toPlainText().contains("could not be found"));
}

}  // namespace
}  // namespace velmora
