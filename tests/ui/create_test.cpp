// The create dialog and creating puzzles from the main window: One Puzzle,
// a Multiple Puzzles batch, Cancel, and the commands held off meanwhile.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <functional>
#include <regex>

#include "app/ui/form1.h"
#include "board/play.h"
#include "board/ui/board_view.h"
#include "controls/ui/fndialog.h"
#include "creation/ui/form3.h"
#include "files/puzzle_file.h"
#include "ui_support.h"

namespace velmora {
namespace {

using test::DialogHand;
using test::ProgramFolder;

template <typename T>
T* Child(QObject* parent, const char* name, Qt::FindChildOptions options = Qt::FindChildrenRecursively) {
  T* child = parent->findChild<T*>(QString::fromLatin1(name), options);
  EXPECT_NE(child, nullptr) << name;
  return child;
}

// Form3's own buttons; FileNow has a Command1 of its own further down.
QPushButton* DialogButton(Form3& f, const char* name) {
  return Child<QPushButton>(&f, name, Qt::FindDirectChildrenOnly);
}

// Acts on the create dialog when it comes up: `fill` sets the controls, then
// the named button is pressed (nothing pressed for "", the close box for "close").
class Form3Hand {
 public:
  Form3Hand(std::function<void(Form3&)> fill, const char* button) : fill_(std::move(fill)), button_(button) {
    timer_.setInterval(5);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Poll(); });
    timer_.start();
  }
  int shown = 0;
  QString fileNowShown;

 private:
  void Poll() {
    auto* f = qobject_cast<Form3*>(QApplication::activeModalWidget());
    if (!f || !f->isVisible()) return;
    ++shown;
    fileNowShown = Child<FNDialog>(f, "FileNow")->Text();
    if (fill_) fill_(*f);
    if (std::string(button_) == "close") {
      f->close();
    } else {
      DialogButton(*f, button_)->click();
    }
  }
  std::function<void(Form3&)> fill_;
  const char* button_;
  QTimer timer_;
};

// Answers the save dialog of FileNow with a name ("" cancels) and notes how it was set up.
class SaveDialogHand {
 public:
  explicit SaveDialogHand(QString answer) : answer_(std::move(answer)) {
    timer_.setInterval(5);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Poll(); });
    timer_.start();
  }
  QString title, directory;
  QStringList filters;
  bool save = false;

 private:
  void Poll() {
    auto* d = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!d || !d->isVisible()) return;
    title = d->windowTitle();
    filters = d->nameFilters();
    directory = d->directory().absolutePath();
    save = d->acceptMode() == QFileDialog::AcceptSave;
    if (answer_.isEmpty()) {
      d->reject();
    } else {
      d->selectFile(answer_);
      QMetaObject::invokeMethod(d, "accept");
    }
  }
  QString answer_;
  QTimer timer_;
};

// Runs `look` at every pass of the event loop, which the creation commands
// make at each of their yields; not while a message box is up.
class EveryYield {
 public:
  explicit EveryYield(std::function<void()> look) : look_(std::move(look)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      if (!QApplication::activeModalWidget()) look_();
    });
    timer_.start(0);
  }

 private:
  std::function<void()> look_;
  QTimer timer_;
};

void SetText1(Form3& f, const QString& text) { Child<QLineEdit>(&f, "Text1")->setText(text); }
bool DisplayOnly(Form3& f) { return Child<QCheckBox>(&f, "Check1")->isChecked(); }

bool IsAutomaticTitle(const std::string& title) {
  return std::regex_match(title, std::regex(R"((Easy|Hard|VHard) \d\d/\d\d/\d{4} \d\d:\d\d:\d\d)"));
}

TEST(Form3Dialog, CaptionsAndToolTips) {
  Form3 f;
  EXPECT_EQ(f.windowTitle(), "Create New Puzzles");
  const std::pair<const char*, const char*> frames[] = {{"Frame1", "# of Puzzles"},
                                                        {"InFileFrame", "Output File"},
                                                        {"Frame4", "Puzzle Title"},
                                                        {"Frame2", "Single Puzzle"},
                                                        {"Frame5", "Difficulty Level"}};
  for (const auto& [name, title] : frames) EXPECT_EQ(Child<QGroupBox>(&f, name)->title(), title) << name;
  // Each control sits in its own frame.
  EXPECT_EQ(Child<QLineEdit>(&f, "Text1")->parent(), Child<QGroupBox>(&f, "Frame1"));
  EXPECT_EQ(Child<FNDialog>(&f, "FileNow")->parent(), Child<QGroupBox>(&f, "InFileFrame"));
  EXPECT_EQ(Child<QLineEdit>(&f, "Text4")->parent(), Child<QGroupBox>(&f, "Frame4"));
  EXPECT_EQ(Child<QCheckBox>(&f, "Check1")->parent(), Child<QGroupBox>(&f, "Frame2"));

  EXPECT_EQ(Child<QLineEdit>(&f, "Text1")->toolTip(), "Enter number of puzzles to be saved to output file");
  EXPECT_EQ(Child<FNDialog>(&f, "FileNow")->toolTip(), "New Puzzles will be stored in this file");
  EXPECT_EQ(Child<QCheckBox>(&f, "Check1")->text(), "Display only");
  EXPECT_EQ(Child<QCheckBox>(&f, "Check1")->toolTip(), "Click if one new puzzle to be displayed only");
  const std::pair<const char*, const char*> options[] = {
      {"Option4", "Random"}, {"Option1", "Easy"}, {"Option2", "Hard"}, {"Option3", "Very Hard"}};
  for (const auto& [name, caption] : options) {
    auto* option = Child<QRadioButton>(&f, name);
    EXPECT_EQ(option->text(), caption);
    EXPECT_EQ(option->parent(), Child<QGroupBox>(&f, "Frame5"));
  }
  EXPECT_EQ(DialogButton(f, "Command1")->text(), "Create");
  EXPECT_EQ(DialogButton(f, "Command1")->toolTip(), "Create new puzzle(s)");
  EXPECT_EQ(DialogButton(f, "Command2")->text(), "Exit");
  EXPECT_EQ(DialogButton(f, "Command2")->toolTip(), "Take no action and exit");
  EXPECT_EQ(f.Result(), "X");
}

TEST(Form3Dialog, DisplayOnlyFollowsTheNumberAndAsksForOne) {
  Form3 f;
  auto* check1 = Child<QCheckBox>(&f, "Check1");
  auto* text1 = Child<QLineEdit>(&f, "Text1");
  struct Case {
    const char* text;
    bool displayOnly;
  };
  for (const Case& c : {Case{"5", false}, Case{"1", true}, Case{" 1 puzzle", true}, Case{"1.5", false},
                        Case{"abc", false}, Case{"", false}, Case{"01", true}, Case{"10", false}}) {
    SetText1(f, QString::fromLatin1(c.text));
    EXPECT_EQ(DisplayOnly(f), c.displayOnly) << c.text;
  }
  // Ticking it asks for one puzzle; unticking leaves the number alone.
  SetText1(f, QStringLiteral("7"));
  check1->click();
  EXPECT_TRUE(check1->isChecked());
  EXPECT_EQ(text1->text(), "1");
  check1->click();
  EXPECT_FALSE(check1->isChecked());
  EXPECT_EQ(text1->text(), "1");
  EXPECT_FALSE(f.Values().Check1);
}

TEST(Form3Dialog, CreateSaysYEverythingElseXAndTheControlsKeepTheirValues) {
  test::TempDir dir;
  Form3 f;
  {
    Form3Hand hand(
        [](Form3& d) {
          SetText1(d, QStringLiteral("12"));
          Child<QLineEdit>(&d, "Text4")->setText(QStringLiteral("Weekend set"));
          Child<QRadioButton>(&d, "Option3")->click();
        },
        "Command1");
    const Form3Values v = f.Ask("/somewhere/puzzles.vlm", dir.path() + "/");
    EXPECT_EQ(hand.shown, 1);
    EXPECT_EQ(hand.fileNowShown, "/somewhere/puzzles.vlm");
    EXPECT_EQ(v.result, "Y");
    EXPECT_EQ(v.Text1, "12");
    EXPECT_EQ(v.Text4, "Weekend set");
    EXPECT_FALSE(v.Check1);
    EXPECT_EQ(v.level, kLevelVHard);
    EXPECT_EQ(v.FileNow, "/somewhere/puzzles.vlm");
  }
  {
    // Opened again: FileNow shows the current file anew, the rest is as left.
    Form3Hand hand(
        [](Form3& d) { Child<FNDialog>(&d, "FileNow")->SetText(QStringLiteral("/elsewhere.vlm")); },
        "Command2");
    const Form3Values v = f.Ask("/other/current.vlm", dir.path());
    EXPECT_EQ(hand.fileNowShown, "/other/current.vlm");
    EXPECT_EQ(v.result, "X");
    EXPECT_EQ(v.Text1, "12");
    EXPECT_EQ(v.Text4, "Weekend set");
    EXPECT_EQ(v.level, kLevelVHard);
  }
  {
    Form3Hand hand([](Form3& d) { Child<QRadioButton>(&d, "Option1")->click(); }, "close");
    const Form3Values v = f.Ask("/other/current.vlm", dir.path());
    EXPECT_EQ(hand.shown, 1);
    EXPECT_EQ(v.result, "X");
    EXPECT_EQ(v.level, kLevelEasy);
  }
  Child<QRadioButton>(&f, "Option4")->click();
  EXPECT_EQ(f.Values().level, kLevelRandom);
}

TEST(Form3Dialog, BrowseAsksForAnOutputFileInTheProgramFolder) {
  test::TempDir dir;
  Form3 f;
  auto* fileNow = Child<FNDialog>(&f, "FileNow");
  auto* browse = Child<QPushButton>(fileNow, "Command1");
  {
    SaveDialogHand hand(QString::fromStdString(dir.File("batch.vlm")));
    Form3Hand form(
        [&](Form3&) {
          browse->click();  // inside the dialog, as the person would
        },
        "Command2");
    f.Ask("/current.vlm", dir.path());
    EXPECT_EQ(hand.title, "Select an output Puzzle file");
    EXPECT_EQ(hand.filters, QStringList{"velmora Files (*.vlm *.txt *.dat)"});
    EXPECT_EQ(hand.directory, QString::fromStdString(dir.path()));
    EXPECT_TRUE(hand.save);
  }
  EXPECT_EQ(fileNow->Text(), QString::fromStdString(dir.File("batch.vlm")));
  EXPECT_EQ(fileNow->toolTip(), QString::fromStdString(dir.File("batch.vlm")));
  // Cancelling the file dialog keeps the name and its tool tip.
  SaveDialogHand cancel{QString()};
  browse->click();
  EXPECT_EQ(fileNow->Text(), QString::fromStdString(dir.File("batch.vlm")));
  EXPECT_EQ(fileNow->toolTip(), QString::fromStdString(dir.File("batch.vlm")));
}

TEST(Form1Create, OnePuzzleShowsTheProgressPanelThenTheNewPuzzle) {
  ProgramFolder folder;
  folder.Remember(1);
  DialogHand hand;
  Form1 w;
  w.StartUp(folder.dir.path());
  w.show();
  const QImage before = w.Board()->Image().copy();
  auto* frame1 = Child<QFrame>(&w, "Frame1");
  int looks = 0;
  bool panel = true, busy = true, held = true;
  EveryYield during([&] {
    if (!w.LongCommandRunning()) return;
    ++looks;
    panel = panel && frame1->isVisible() && Child<QLabel>(&w, "NewLab")->text() == "Creating New Puzzle..." &&
            Child<QLabel>(&w, "pb")->text() == " This may take a bit of time...";
    // The panel lies over the board, inside it.
    panel = panel && w.Board()->rect().contains(frame1->geometry());
    busy =
        busy && QApplication::overrideCursor() && QApplication::overrideCursor()->shape() == Qt::WaitCursor;
    held = held && !Child<QAction>(&w, "mnunewrandpuzx")->isEnabled() &&
           !Child<QAction>(&w, "mnuloadpuz")->isEnabled();
  });
  Child<QAction>(&w, "mnunewrandpuzx")->trigger();

  EXPECT_GT(looks, 0);
  EXPECT_TRUE(panel);
  EXPECT_TRUE(busy);
  EXPECT_TRUE(held);
  ASSERT_EQ(hand.texts.size(), 1u);
  const std::string level = hand.texts[0].substr(std::string("Done - ").size());
  EXPECT_TRUE(level == "Easy" || level == "Hard" || level == "VHard") << hand.texts[0];
  EXPECT_EQ(hand.texts[0], "Done - " + level);

  const std::string temporary = folder.dir.File("TemporaryPuzzleFile.vlm");
  const GameState& s = w.State();
  EXPECT_EQ(s.CurrentPuzzleFile, temporary);
  EXPECT_EQ(w.windowTitle(), QString::fromStdString("File: " + temporary));
  EXPECT_EQ(Child<QLineEdit>(&w, "PuzNumNow")->text(), "1");
  const std::string title = Child<QLineEdit>(&w, "PuzTitle")->text().toStdString();
  EXPECT_TRUE(IsAutomaticTitle(title)) << title;
  EXPECT_EQ(title.rfind(level + " ", 0), 0u);
  // The board holds the record just written, 7x7, and was drawn anew.
  GameState fromFile;
  SilentUserInterface silent;
  std::string fileTitle;
  ASSERT_EQ(LoadPuzzle(fromFile, silent, temporary, 1, fileTitle, 0), 0);
  EXPECT_EQ(fileTitle, title);
  EXPECT_EQ(s.Rows, 7);
  EXPECT_EQ(s.Cols, 7);
  EXPECT_EQ(s.Grid, fromFile.Grid);
  EXPECT_EQ(s.SolutionGrid, fromFile.SolutionGrid);
  EXPECT_NE(w.Board()->Image(), before);

  EXPECT_FALSE(frame1->isVisible());
  EXPECT_EQ(Child<QLabel>(&w, "pb")->text(), "");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_FALSE(w.LongCommandRunning());
  EXPECT_TRUE(Child<QAction>(&w, "mnuloadpuz")->isEnabled());
}

TEST(Form1Create, MultiplePuzzlesBatchIntoAFile) {
  ProgramFolder folder;
  folder.Remember(2);
  DialogHand hand;
  Form1 w;
  w.StartUp(folder.dir.path());
  w.show();
  const std::string out = folder.dir.File("batch.vlm");
  Form3Hand form(
      [&](Form3& f) {
        Child<FNDialog>(&f, "FileNow")->SetText(QString::fromStdString(out));
        SetText1(f, QStringLiteral("3"));
        Child<QLineEdit>(&f, "Text4")->setText(QStringLiteral("Batch title"));
        Child<QRadioButton>(&f, "Option1")->click();
      },
      "Command1");
  std::vector<std::string> labels;
  EveryYield during([&] {
    if (!w.LongCommandRunning()) return;
    // Before the first puzzle the panel is up with its label still empty.
    const std::string label = Child<QLabel>(&w, "NewLab")->text().toStdString();
    if (!label.empty() && (labels.empty() || labels.back() != label)) labels.push_back(label);
  });
  Child<QAction>(&w, "mnumultipuzx")->trigger();

  EXPECT_EQ(form.shown, 1);
  EXPECT_EQ(form.fileNowShown, QString::fromStdString(folder.dir.File("puzzles.vlm")));
  EXPECT_EQ(hand.texts, std::vector<std::string>{" 3 new puzzles added to file:\n" + out});
  EXPECT_EQ(labels, (std::vector<std::string>{"Creating Puzzle 1 of 3\nOutput File: " + out,
                                              "Creating Puzzle 2 of 3\nOutput File: " + out,
                                              "Creating Puzzle 3 of 3\nOutput File: " + out}));
  EXPECT_EQ(CountPuzzles(out), 3);
  for (int n = 1; n <= 3; ++n) {
    GameState made;
    SilentUserInterface silent;
    std::string title;
    ASSERT_EQ(LoadPuzzle(made, silent, out, n, title, 0), 0);
    EXPECT_EQ(title, "Batch title");
    EXPECT_EQ(CountBlanks(made), 14);  // Easy
  }
  // The puzzle shown before is back, the panel gone, the status " Done".
  EXPECT_EQ(Child<QLineEdit>(&w, "PuzNumNow")->text(), "2");
  EXPECT_EQ(Child<QLineEdit>(&w, "PuzTitle")->text(), "Sample 2");
  EXPECT_EQ(w.windowTitle(), QString::fromStdString("File: " + folder.dir.File("puzzles.vlm")));
  EXPECT_EQ(Child<QLabel>(&w, "pb")->text(), " Done");
  EXPECT_FALSE(Child<QFrame>(&w, "Frame1")->isVisible());
  EXPECT_FALSE(QFile::exists(QString::fromStdString(folder.dir.File("TemporaryPuzzleFile.vlm"))));
}

TEST(Form1Create, CancelStopsABatchWhileEveryOtherCommandWaits) {
  ProgramFolder folder;
  folder.Remember(1);
  DialogHand hand;
  Form1 w;
  w.StartUp(folder.dir.path());
  w.show();
  const std::string out = folder.dir.File("cancelled.vlm");
  Form3Hand form(
      [&](Form3& f) {
        Child<FNDialog>(&f, "FileNow")->SetText(QString::fromStdString(out));
        SetText1(f, QStringLiteral("5"));
        Child<QRadioButton>(&f, "Option1")->click();
      },
      "Command1");

  bool pressed = false, refused = true, disabled = true;
  EveryYield during([&] {
    if (!w.LongCommandRunning() || pressed) return;
    GameState& s = w.State();
    // Every other way in is closed: menus, buttons, the suit panels, the
    // typed number and the board.
    for (const char* name :
         {"mnuloadpuz", "mnupuzreset", "mnusolveall", "mnunewrandpuzx", "mnumultipuzx", "mnuexit"}) {
      disabled = disabled && !Child<QAction>(&w, name)->isEnabled();
    }
    for (const char* name : {"arrows0", "arrows1", "arrows2", "UndoEdit", "cmdexit", "Autosolvex", "Command6",
                             "cmdmakepuzzles"}) {
      disabled = disabled && !Child<QPushButton>(&w, name)->isEnabled();
    }
    disabled = disabled && !Child<QLineEdit>(&w, "PuzNumNow")->isEnabled() &&
               !Child<QWidget>(&w, "Remain0")->isEnabled();
    disabled = disabled && Child<QPushButton>(&w, "cmdcancel")->isEnabled();

    // Even when reached, a command does not run. (Tried until one gets
    // through, so that a failure here ends the batch instead of hanging it.)
    if (refused) {
      // A typed number would load puzzle 3.
      const std::string typed = s.view.PuzNumNow;
      s.view.PuzNumNow = "3";
      QMetaObject::invokeMethod(Child<QLineEdit>(&w, "PuzNumNow"), "returnPressed");
      s.view.PuzNumNow = typed;
      refused = s.CurrentPuzzleNumber == 1;
    }
    // A right click would empty a filled cell.
    for (int r = 1; r <= 7 && refused; ++r) {
      for (int c = 1; c <= 7 && refused; ++c) {
        if (s.Grid[r][c] == 0) continue;
        const size_t undo = s.UndoList.size();
        w.Board()->onMouseUp(kRightButton, static_cast<float>(s.CellX[r][c] + 400),
                             static_cast<float>(s.CellY[r][c] + 400));
        refused = s.Grid[r][c] != 0 && s.UndoList.size() == undo;
      }
    }

    if (s.view.Caption == "New 2 of 5") {
      pressed = true;
      Child<QPushButton>(&w, "cmdcancel")->click();
      EXPECT_EQ(Child<QLabel>(&w, "NewLab")->text(), " Canceling...");
    }
  });
  Child<QAction>(&w, "mnumultipuzx")->trigger();

  ASSERT_TRUE(pressed);
  EXPECT_TRUE(disabled);
  EXPECT_TRUE(refused);
  // Puzzle 2 was being made when Cancel came: it is written and counted.
  EXPECT_EQ(hand.texts, std::vector<std::string>{" 2 new puzzles added to file:\n" + out});
  EXPECT_EQ(CountPuzzles(out), 2);
  EXPECT_EQ(w.State().CancelRequest, 0);
  // Afterwards everything works again.
  EXPECT_TRUE(Child<QAction>(&w, "mnuloadpuz")->isEnabled());
  EXPECT_TRUE(Child<QPushButton>(&w, "arrows1")->isEnabled());
  EXPECT_TRUE(Child<QPushButton>(&w, "Autosolvex")->isEnabled());
  EXPECT_TRUE(Child<QLineEdit>(&w, "PuzNumNow")->isEnabled());
  auto* next = Child<QPushButton>(&w, "arrows1");
  QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), next->mapToGlobal(QPointF(5, 5)), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(next, &press);
  QMouseEvent release(QEvent::MouseButtonRelease, QPointF(5, 5), next->mapToGlobal(QPointF(5, 5)),
                      Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(next, &release);
  EXPECT_EQ(w.State().CurrentPuzzleNumber, 2);
}

TEST(Form1Create, TheCloseBoxDuringABatchCancelsItAndEndsWithoutAWord) {
  ProgramFolder folder;
  folder.Remember(1);
  DialogHand hand;
  Form1 w;
  w.StartUp(folder.dir.path());
  w.show();
  const std::string config = folder.Config();
  const std::string out = folder.dir.File("closed.vlm");
  Form3Hand form(
      [&](Form3& f) {
        Child<FNDialog>(&f, "FileNow")->SetText(QString::fromStdString(out));
        SetText1(f, QStringLiteral("50"));
        Child<QRadioButton>(&f, "Option3")->click();
      },
      "Command1");
  bool closed = false, stillOpen = false;
  EveryYield during([&] {
    if (!w.LongCommandRunning() || closed || w.State().view.Caption != "New 3 of 50") return;
    closed = true;
    w.close();
    stillOpen = w.isVisible();  // the command still runs on the window
  });
  Child<QAction>(&w, "mnumultipuzx")->trigger();
  ASSERT_TRUE(closed);
  EXPECT_TRUE(stillOpen);
  EXPECT_FALSE(w.isVisible());
  EXPECT_TRUE(hand.texts.empty());  // no count message after the close box
  EXPECT_EQ(CountPuzzles(out), 3);  // the puzzle in the making is written, as with Cancel
  EXPECT_EQ(folder.Config(), config);  // ended without saving the configuration
}

TEST(Form1Create, CreatingIsRefusedWhileAutoSolveRuns) {
  ProgramFolder folder;
  folder.Remember(1);
  DialogHand hand;
  Form1 w;
  w.StartUp(folder.dir.path());
  w.State().Solving = 1;
  Form3Hand form([](Form3&) {}, "Command1");
  Child<QAction>(&w, "mnunewrandpuzx")->trigger();
  Child<QAction>(&w, "mnumultipuzx")->trigger();
  EXPECT_EQ(hand.texts, std::vector<std::string>(2, "Cancel AutoSolve first"));
  EXPECT_EQ(form.shown, 0);  // refused before the dialog
  EXPECT_FALSE(QFile::exists(QString::fromStdString(folder.dir.File("TemporaryPuzzleFile.vlm"))));
}

TEST(Form1Create, MenuAndTheHiddenButtonThatTransformsTheCurrentFileAtTheDialogsLevel) {
  ProgramFolder folder;
  folder.Remember(2);
  DialogHand hand;
  Form1 w;
  w.StartUp(folder.dir.path());
  const Board<int32_t> shown = w.State().Grid;
  QStringList entries;
  for (QAction* a : Child<QMenu>(w.menuBar(), "mnucreate")->actions()) {
    entries << a->objectName() + "=" + a->text().remove('&');
  }
  EXPECT_EQ(entries, (QStringList{"mnunewrandpuzx=One Puzzle", "mnumultipuzx=Multiple Puzzles"}));
  auto* transform = Child<QPushButton>(&w, "cmdmakepuzzles");
  EXPECT_TRUE(transform->isHidden());
  EXPECT_EQ(transform->text(), "MakePuzzlesFromFile");
  auto chooseLevel = [&](const char* option) {
    Form3Hand form([option](Form3& f) { Child<QRadioButton>(&f, option)->click(); }, "Command2");
    Child<QAction>(&w, "mnumultipuzx")->trigger();
  };
  // The sample records are in card letters, so the numeric reading finds no
  // given: "Easy" has nothing to remove and writes them, any harder level
  // finds no cell to start from and stops with "error?".
  chooseLevel("Option1");
  transform->click();
  EXPECT_EQ(hand.texts, std::vector<std::string>{" 3 puzzles made"});
  EXPECT_EQ(CountPuzzles(folder.dir.File("puzzles_new.vlm")), 3);
  chooseLevel("Option3");
  transform->click();
  EXPECT_EQ(hand.texts, (std::vector<std::string>{" 3 puzzles made", "error?"}));
  // The shown puzzle is read back afterwards.
  EXPECT_EQ(w.State().Grid, shown);
  EXPECT_EQ(Child<QLineEdit>(&w, "PuzNumNow")->text(), "2");
  EXPECT_FALSE(w.LongCommandRunning());
}

}  // namespace
}  // namespace velmora
