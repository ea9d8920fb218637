// The create dialog and creating puzzles from the main window: the batch's
// progress panel, Cancel and the close box, the commands held off meanwhile.
#include "board/geometry.h"
#include "board/play.h"
#include "controls/ui/fndialog.h"
#include "creation/ui/form3.h"
#include "ui_support.h"

namespace velmora::test {
namespace {

// Fills in the create dialog (output file, number, level button) and presses Create.
struct BatchHand : OnceOn<Form3> {
  BatchHand(const std::string& out, const char* count, const char* option)
      : OnceOn([=](Form3* f) {
          ExpectLaidOut(f);
          EXPECT_EQ(f->palette().color(QPalette::Window),
                    f->parentWidget()->palette().color(QPalette::Window));
          Child<FNDialog>(f, "FileNow")->SetText(QString::fromStdString(out));
          Child<QLineEdit>(f, "Text1")->setText(count);
          Child<QRadioButton>(f, option)->click();
          Press(f, "Command1");
        }) {}
};

// Whether a creation command runs (it yields often, so a Poller of interval 0
// looks in at every pass) with no message box or dialog up.
bool Running(const Form1& w) { return w.LongCommandRunning() && !QApplication::activeModalWidget(); }

TEST(Form3Dialog, DisplayOnlyFollowsTheNumberAndAsksForOne) {
  Form3 f;
  auto* check1 = Child<QCheckBox>(&f, "Check1");
  auto* text1 = Child<QLineEdit>(&f, "Text1");
  QStringList seen;  // the number, and "+" when ticked
  for (const std::string step : {"5", " 1 puzzle", "7", "tick", "untick"}) {
    step.ends_with("tick") ? check1->click() : text1->setText(QString::fromStdString(step));
    seen << text1->text() + (check1->isChecked() ? "+" : "");
  }
  // Typing ticks it exactly for one puzzle; ticking asks for one, unticking leaves the number alone.
  EXPECT_EQ(seen.join('|'), "5| 1 puzzle+|7|1+|1");
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

TEST(Form1Create, CancelStopsABatchWhileEveryOtherCommandIsDisabledAndRefused) {
  Window win(1, "sand.col");  // the dialog in the scheme's colours
  const std::string out = win.dir.File("cancelled.vlm");
  BatchHand form(out, "5", "Option1");
  bool pressed = false, held = true;
  const auto look = [&] {
    if (pressed || !Running(win.w)) return;
    for (const char* name : {"mnuloadpuz", "mnusolveall", "mnuexit", "arrows1", "UndoEdit", "cmdexit",
                             "Autosolvex", "PuzNumNow", "Remain0"})
      held = held && !win.Get<QObject>(name)->property("enabled").toBool();  // menu entries and controls
    // The progress panel lies over the board and the cursor waits.
    held = held && win.Get("cmdcancel")->isEnabled() && win.Get("Frame1")->isVisible() &&
           win.w.Board()->rect().contains(win.Get("Frame1")->geometry()) && QApplication::overrideCursor() &&
           QApplication::overrideCursor()->shape() == Qt::WaitCursor;
    // The board stays enabled, yet a right click on a card does not empty it.
    GameState& s = win.s();
    for (int k = 0; k < 49 && held; ++k) {
      const int r = k / 7 + 1, c = k % 7 + 1, card = s.puzzle.Grid[r][c];
      win.w.Board()->onMouseUp(kRightButton, CellX(c) + 400.0f, CellY(r) + 400.0f);
      held = s.puzzle.Grid[r][c] == card && s.session.UndoList.empty();
    }
    if (s.view.Caption == "New 2 of 5") {
      pressed = true;
      win.Get<QPushButton>("cmdcancel")->click();
      EXPECT_EQ(win.Text("NewLab"), " Canceling...");
    }
  };
  Poller during(look, 0);
  win.Trigger("mnumultipuzx");
  ASSERT_TRUE(pressed);
  EXPECT_TRUE(held);
  EXPECT_EQ(CountPuzzles(out), 2);
  // Afterwards the panel and the wait cursor are gone and the controls work again.
  EXPECT_FALSE(win.Get("Frame1")->isVisible() || QApplication::overrideCursor());
  Click(win.Get("arrows1"));
  EXPECT_EQ(win.s().session.CurrentPuzzleNumber, 2);
}

TEST(Form1Create, TheCloseBoxDuringABatchCancelsItAndEndsWithoutAWord) {
  Window win(1);
  const std::string config = win.Config(), out = win.dir.File("closed.vlm");
  BatchHand form(out, "50", "Option3");
  bool stillOpen = false;
  const auto look = [&] {
    if (stillOpen || !Running(win.w) || win.s().view.Caption != "New 3 of 50") return;
    win.w.close();
    stillOpen = win.w.isVisible();  // the command still runs on the window
  };
  Poller during(look, 0);
  win.Trigger("mnumultipuzx");
  EXPECT_TRUE(stillOpen);
  EXPECT_FALSE(win.w.isVisible());
  EXPECT_TRUE(win.hand.texts.empty());  // no count message after the close box
  EXPECT_EQ(CountPuzzles(out), 3);      // the puzzle in the making is written, as with Cancel
  EXPECT_EQ(win.Config(), config);      // ended without saving the configuration
}

}  // namespace
}  // namespace velmora::test
