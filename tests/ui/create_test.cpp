// The create dialog and creating puzzles from the main window: One Puzzle,
// a Multiple Puzzles batch, Cancel, and the commands held off meanwhile.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "board/play.h"
#include "controls/ui/fndialog.h"
#include "creation/ui/form3.h"
#include "ui_support.h"

namespace velmora {
namespace {

using test::Child;
using test::Window;

// Acts on the create dialog when it comes up: `fill` sets the controls, then
// Form3's own button `button` is pressed ("close" for the close box).
class Form3Hand {
 public:
  Form3Hand(std::function<void(Form3&)> fill, const char* button) : fill_(std::move(fill)), button_(button) {}
  int shown = 0;
  QString fileNowShown;

 private:
  std::function<void(Form3&)> fill_;
  const char* button_;
  test::Poller poller_{[this] {
    Form3* f = test::ModalDialog<Form3>();
    if (!f) return;
    ++shown;
    fileNowShown = Child<FNDialog>(f, "FileNow")->Text();
    if (fill_) fill_(*f);
    if (std::string(button_) == "close") return void(f->close());
    Child<QPushButton>(f, button_, Qt::FindDirectChildrenOnly)->click();  // FileNow has a Command1 too
  }};
};

// The dialog filled in for a batch: output file, number, level option, title.
std::function<void(Form3&)> Batch(const std::string& out, const char* count, const char* option,
                                  const char* title = "") {
  return [=](Form3& f) {
    Child<FNDialog>(&f, "FileNow")->SetText(QString::fromStdString(out));
    Child<QLineEdit>(&f, "Text1")->setText(count);
    Child<QLineEdit>(&f, "Text4")->setText(title);
    Child<QRadioButton>(&f, option)->click();
  };
}

// Runs `look` at every pass of the event loop while a creation command runs
// (it yields often), but not while a message box is up.
struct DuringCommand : test::Poller {
  DuringCommand(Form1& w, const std::function<void()>& look)
      : Poller(
            [&w, look] {
              if (w.LongCommandRunning() && !QApplication::activeModalWidget()) look();
            },
            0) {}
};

TEST(Form3Dialog, DisplayOnlyFollowsTheNumberCreateSaysYAndBrowseAsksForAnOutputFile) {
  test::TempDir dir;
  Form3 f;
  auto* check1 = Child<QCheckBox>(&f, "Check1");
  auto* text1 = Child<QLineEdit>(&f, "Text1");
  std::string ticked;
  for (const char* text : {"5", "1", " 1 puzzle", "1.5", "abc", "", "01"}) {
    text1->setText(text);
    ticked += check1->isChecked() ? "1" : "0";
  }
  EXPECT_EQ(ticked, "0110001");
  text1->setText("7");
  check1->click();  // ticking it asks for one puzzle; unticking leaves the number alone
  EXPECT_EQ(text1->text(), "1");
  check1->click();
  EXPECT_EQ(text1->text() + (check1->isChecked() ? "ticked" : ""), "1");

  Form3Values v;
  {
    Form3Hand hand(Batch("/somewhere/else.vlm", "12", "Option3", "Weekend set"), "Command1");
    v = f.Ask("/somewhere/puzzles.vlm", dir.path() + "/");
    EXPECT_EQ(hand.fileNowShown, "/somewhere/puzzles.vlm");
  }
  EXPECT_EQ(v.result + v.Text1 + v.Text4 + v.FileNow, "Y12Weekend set/somewhere/else.vlm");
  EXPECT_EQ(v.level * 10 + v.Check1, kLevelVHard * 10);
  test::FileDialogHand files;
  files.answers = {dir.File("batch.vlm")};
  {  // opened again: FileNow shows the current file anew, the rest is as left
    Form3Hand hand([](Form3& d) { Child<QPushButton>(Child<FNDialog>(&d, "FileNow"), "Command1")->click(); },
                   "Command2");
    v = f.Ask("/other/current.vlm", dir.path());
  }
  EXPECT_EQ(v.result + v.Text1 + v.Text4 + v.FileNow, "X12Weekend set" + dir.File("batch.vlm"));
  EXPECT_EQ(files.seen,
            std::vector<std::string>{"Select an output Puzzle file|velmora Files (*.vlm *.txt *.dat)|" +
                                     dir.path() + "|SAVE"});
  {
    Form3Hand hand([](Form3& d) { Child<QRadioButton>(&d, "Option1")->click(); }, "close");
    v = f.Ask("/other/current.vlm", dir.path());
  }
  EXPECT_EQ(v.result + std::to_string(v.level), "X" + std::to_string(kLevelEasy));
}

TEST(Form1Create, OnePuzzleShowsTheProgressPanelThenTheNewPuzzle) {
  Window win(1);
  const QImage before = win.w.Board()->Image().copy();
  auto* frame1 = win.Get("Frame1");
  bool looked = false, panel = true;
  DuringCommand during(win.w, [&] {
    looked = true;  // the panel lies over the board, the cursor waits and the menus are held
    panel = panel && frame1->isVisible() && win.Text("NewLab") == "Creating New Puzzle..." &&
            win.w.Board()->rect().contains(frame1->geometry()) && QApplication::overrideCursor() &&
            QApplication::overrideCursor()->shape() == Qt::WaitCursor &&
            !win.Get<QAction>("mnunewrandpuzx")->isEnabled();
  });
  win.Trigger("mnunewrandpuzx");
  EXPECT_TRUE(looked && panel);
  // The board holds the record just written and was drawn anew.
  const std::string temporary = win.dir.File("TemporaryPuzzleFile.vlm");
  const GameState fromFile = test::Loaded(temporary);
  const std::string title = fromFile.view.PuzTitle;
  EXPECT_EQ(win.hand.texts, std::vector<std::string>{"Done - " + title.substr(0, title.find(' '))});
  EXPECT_EQ(win.Text("PuzTitle").toStdString(), title);
  EXPECT_EQ(win.w.windowTitle(), QString::fromStdString("File: " + temporary));
  EXPECT_EQ(win.s().Grid, fromFile.Grid);
  EXPECT_NE(win.w.Board()->Image(), before);
  EXPECT_FALSE(frame1->isVisible());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_TRUE(win.Get<QAction>("mnuloadpuz")->isEnabled());
}

TEST(Form1Create, CancelStopsABatchWhileEveryOtherCommandIsDisabledAndRefused) {
  Window win(1);
  const std::string out = win.dir.File("cancelled.vlm");
  Form3Hand form(Batch(out, "5", "Option1", "Batch title"), "Command1");
  bool pressed = false, refused = true, disabled = true;
  DuringCommand during(win.w, [&] {
    if (pressed) return;
    GameState& s = win.s();
    // Every other way in is closed: menus, buttons, the suit panels, the typed number and the board.
    for (const char* name :
         {"mnuloadpuz", "mnupuzreset", "mnusolveall", "mnunewrandpuzx", "mnumultipuzx", "mnuexit"})
      disabled = disabled && !win.Get<QAction>(name)->isEnabled();
    for (const char* name : {"arrows0", "arrows1", "arrows2", "UndoEdit", "cmdexit", "Autosolvex", "Command6",
                             "cmdmakepuzzles", "PuzNumNow", "Remain0"})
      disabled = disabled && !win.Get(name)->isEnabled();
    disabled = disabled && win.Get("cmdcancel")->isEnabled();
    // Even when reached, a command does not run: a typed number would load
    // puzzle 3, a right click would empty a filled cell. (Tried until one
    // gets through, so that a failure ends the batch instead of hanging it.)
    if (refused) {
      const std::string typed = s.view.PuzNumNow;
      s.view.PuzNumNow = "3";
      QMetaObject::invokeMethod(win.Get("PuzNumNow"), "returnPressed");
      s.view.PuzNumNow = typed;
      refused = s.CurrentPuzzleNumber == 1;
    }
    for (int r = 1; r <= 7 && refused; ++r) {
      for (int c = 1; c <= 7 && refused; ++c) {
        if (s.Grid[r][c] == 0) continue;
        const size_t undo = s.UndoList.size();
        win.w.Board()->onMouseUp(kRightButton, static_cast<float>(s.CellX[r][c] + 400),
                                 static_cast<float>(s.CellY[r][c] + 400));
        refused = s.Grid[r][c] != 0 && s.UndoList.size() == undo;
      }
    }
    if (s.view.Caption == "New 2 of 5") {
      pressed = true;
      win.Get<QPushButton>("cmdcancel")->click();
      EXPECT_EQ(win.Text("NewLab"), " Canceling...");
    }
  });
  win.Trigger("mnumultipuzx");
  ASSERT_TRUE(pressed);
  EXPECT_TRUE(disabled);
  EXPECT_TRUE(refused);
  EXPECT_EQ(win.hand.texts, std::vector<std::string>{" 2 new puzzles added to file:\n" + out});
  EXPECT_EQ(test::Loaded(out, 2).view.PuzTitle, "Batch title");
  // The puzzle shown before is back, and everything works again.
  EXPECT_EQ(win.Text("PuzTitle") + win.Text("pb"), "Sample 1 Done");
  EXPECT_FALSE(win.Get("Frame1")->isVisible());
  EXPECT_TRUE(win.Get<QAction>("mnuloadpuz")->isEnabled());
  test::Click(win.Get("arrows1"));
  EXPECT_EQ(win.s().CurrentPuzzleNumber, 2);
}

TEST(Form1Create, TheCloseBoxDuringABatchCancelsItAndEndsWithoutAWord) {
  Window win(1);
  const std::string config = win.Config();
  const std::string out = win.dir.File("closed.vlm");
  Form3Hand form(Batch(out, "50", "Option3"), "Command1");
  bool closed = false, stillOpen = false;
  DuringCommand during(win.w, [&] {
    if (closed || win.s().view.Caption != "New 3 of 50") return;
    closed = true;
    win.w.close();
    stillOpen = win.w.isVisible();  // the command still runs on the window
  });
  win.Trigger("mnumultipuzx");
  ASSERT_TRUE(closed);
  EXPECT_TRUE(stillOpen);
  EXPECT_FALSE(win.w.isVisible());
  EXPECT_TRUE(win.hand.texts.empty());  // no count message after the close box
  EXPECT_EQ(CountPuzzles(out), 3);      // the puzzle in the making is written, as with Cancel
  EXPECT_EQ(win.Config(), config);      // ended without saving the configuration
}

TEST(Form1Create, RefusedBeforeTheDialogWhileAutoSolveRunsAndTheHiddenTransformButtonTakesItsLevel) {
  Window win(2);
  const Board<int32_t> shown = win.s().Grid;
  Form3Hand form(
      [](Form3& f) {
        Child<QRadioButton>(&f, f.Values().level == kLevelEasy ? "Option3" : "Option1")->click();
      },
      "Command2");
  win.s().Solving = 1;
  win.Trigger("mnumultipuzx");
  EXPECT_EQ(win.hand.texts, std::vector<std::string>{"Cancel AutoSolve first"});
  EXPECT_EQ(form.shown, 0);
  win.s().Solving = 0;
  // The sample records are in card letters, so the numeric reading finds no
  // given: "Easy" has nothing to remove and writes them, any harder level
  // finds no cell to start from and stops with "error?".
  for (const char* said : {" 3 puzzles made", "error?"}) {
    win.Trigger("mnumultipuzx");  // Easy, then Very Hard
    win.Get<QPushButton>("cmdmakepuzzles")->click();
    EXPECT_EQ(win.hand.texts.back(), said);
  }
  EXPECT_EQ(win.s().Grid, shown);  // the shown puzzle is read back afterwards
  EXPECT_EQ(win.Text("PuzNumNow"), "2");
}

}  // namespace
}  // namespace velmora
