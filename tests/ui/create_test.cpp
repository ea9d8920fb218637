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

// Fills in the create dialog when it comes up (output file, number, level
// option, title) and presses Create.
struct BatchHand : test::Poller {
  BatchHand(const std::string& out, const char* count, const char* option, const char* title = "")
      : Poller([=] {
          Form3* f = test::ModalDialog<Form3>();
          if (!f) return;
          Child<FNDialog>(f, "FileNow")->SetText(QString::fromStdString(out));
          Child<QLineEdit>(f, "Text1")->setText(count);
          Child<QLineEdit>(f, "Text4")->setText(title);
          Child<QRadioButton>(f, option)->click();
          Child<QPushButton>(f, "Command1", Qt::FindDirectChildrenOnly)
              ->click();  // FileNow has a Command1 too
        }) {}
};

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

TEST(Form3Dialog, DisplayOnlyFollowsTheNumberAndAsksForOne) {
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
}

TEST(Form3Dialog, EachLevelButtonShowsItsCaptionAndChoosesItsLevel) {
  Form3 f;
  const std::tuple<const char*, const char*, int> buttons[] = {{"Option1", "Easy", kLevelEasy},
                                                               {"Option2", "Hard", kLevelHard},
                                                               {"Option3", "Very Hard", kLevelVHard},
                                                               {"Option4", "Random", kLevelRandom}};
  for (const auto& [name, caption, level] : buttons) {
    auto* button = Child<QRadioButton>(&f, name);
    EXPECT_EQ(button->text().toStdString(), caption);
    button->click();
    EXPECT_EQ(f.Values().level, level) << name;
  }
}

TEST(Form1Create, OnePuzzleShowsTheNewPuzzle) {
  Window win(1);
  bool looked = false;
  DuringCommand during(win.w, [&] { looked = looked || win.Text("NewLab") == "Creating New Puzzle..."; });
  win.Trigger("mnunewrandpuzx");
  EXPECT_TRUE(looked);
  EXPECT_EQ(win.Text("PuzTitle").toStdString(),
            test::Loaded(win.dir.File("TemporaryPuzzleFile.vlm")).view.PuzTitle);
}

TEST(Form1Create, CancelStopsABatchWhileEveryOtherCommandIsDisabledAndRefused) {
  Window win(1);
  const std::string out = win.dir.File("cancelled.vlm");
  BatchHand form(out, "5", "Option1");
  bool pressed = false, refused = true, disabled = true;
  DuringCommand during(win.w, [&] {
    if (pressed) return;
    GameState& s = win.s();
    // Every other way in is closed: menus, buttons, the suit panels, the typed number and the board.
    for (const char* name : {"mnuloadpuz", "mnusolveall", "mnumultipuzx", "mnuexit"})
      disabled = disabled && !win.Get<QAction>(name)->isEnabled();
    for (const char* name : {"arrows1", "UndoEdit", "cmdexit", "Autosolvex", "PuzNumNow", "Remain0"})
      disabled = disabled && !win.Get(name)->isEnabled();
    // The progress panel lies over the board and the cursor waits.
    disabled = disabled && win.Get("cmdcancel")->isEnabled() && win.Get("Frame1")->isVisible() &&
               win.w.Board()->rect().contains(win.Get("Frame1")->geometry()) &&
               QApplication::overrideCursor() && QApplication::overrideCursor()->shape() == Qt::WaitCursor;
    // Even when reached, a command does not run: a right click would empty a
    // filled cell. (Tried until one gets through, so that a failure ends the
    // batch instead of hanging it.)
    for (int k = 0; k < 49 && refused; ++k) {
      const int r = k / 7 + 1, c = k % 7 + 1;
      if (s.Grid[r][c] == 0) continue;
      win.w.Board()->onMouseUp(kRightButton, static_cast<float>(s.CellX[r][c] + 400),
                               static_cast<float>(s.CellY[r][c] + 400));
      refused = s.Grid[r][c] != 0 && s.UndoList.empty();
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
  EXPECT_EQ(CountPuzzles(out), 2);
  // The puzzle shown before is back, and everything works again.
  EXPECT_EQ(win.Text("PuzTitle") + win.Text("pb"), "Sample 1 Done");
  EXPECT_FALSE(win.Get("Frame1")->isVisible() || QApplication::overrideCursor());
  EXPECT_TRUE(win.Get<QAction>("mnuloadpuz")->isEnabled());
  test::Click(win.Get("arrows1"));
  EXPECT_EQ(win.s().CurrentPuzzleNumber, 2);
}

TEST(Form1Create, TheCloseBoxDuringABatchCancelsItAndEndsWithoutAWord) {
  Window win(1);
  const std::string config = win.Config();
  const std::string out = win.dir.File("closed.vlm");
  BatchHand form(out, "50", "Option3");
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

}  // namespace
}  // namespace velmora
