// The options dialog from the main window: preview, Exit and Escape drop it,
// Apply recolours the board and resizes the text, and both outlast a restart.
#include "appearance/color_scheme.h"
#include "appearance/ui/form2.h"
#include "ui_support.h"

namespace velmora::test {
namespace {

TEST(Form2Options, PreviewThenExitOrEscapeKeepsTheSchemeApplyRecoloursAndBothOutlastARestart) {
  Window win(1, "sea.col");
  const QFont before = QApplication::font();
  for (const char* leave : {"Command2", "Escape", "Command1"}) {
    OnceOn<Form2> hand([&](Form2* f) {
      auto* list = Child<QListWidget>(f, "List1");
      EXPECT_TRUE(list->font().families().contains("Courier New"));
      list->setCurrentRow(2);  // "sand"
      EXPECT_EQ(Child<QGroupBox>(f, "Frame1")->title(), "Color Scheme: sand");
      EXPECT_EQ(f->palette().color(QPalette::Window), QColor(243, 234, 214));
      Child<QScrollBar>(f, "RedBar")->setValue(7);  // the picker edits the background at once
      EXPECT_EQ(win.s().look.Scheme[2], Rgb(7, 234, 214));
      Key(list, Qt::Key_Return);  // reads "sand" again
      EXPECT_EQ(win.s().look.Scheme[2], Rgb(243, 234, 214));
      Child<QRadioButton>(f, "Size2")->click();  // Large
      leave == std::string("Escape") ? Key(f, Qt::Key_Escape) : Press(f, leave);
    });
    win.Trigger("mnuoptions");
    EXPECT_TRUE(hand.done);
    const bool applied = leave == std::string("Command1");
    EXPECT_EQ(win.Pixel(10, 10), applied ? QColor(243, 234, 214) : QColor(214, 230, 242)) << leave;
    EXPECT_EQ(QApplication::font().pointSizeF() > before.pointSizeF(), applied) << leave;
  }
  win.hand.answers = {QMessageBox::Yes};
  win.Trigger("mnuexit");
  ApplyTextSize(kMedium);

  Form1 again;  // the next start over the same folder
  again.StartUp(win.dir.path());
  EXPECT_EQ(again.State().look.ColorSchemeName, "sand.col");
  EXPECT_EQ(LoadSettings(again.State().session.AppFolder).textSize, kLarge);
}

TEST(Form2Options, OpeningAndApplyingWithoutAChangeKeepsEveryColourOfTheScheme) {
  SchemeColors tint = DefaultSchemeColors();
  tint[2] = Rgb(200, 220, 240);
  tint[4] = Rgb(250, 240, 200);  // buttons of their own hue, not a shade of the background
  Window win(1, "tint.col", [&](const TempDir& dir) { AppendScheme(dir.File("all.col"), "tint", tint); });
  OnceOn<Form2> hand([&](Form2* f) {
    ExpectLaidOut(f);
    Press(f, "Command1");
  });
  win.Trigger("mnuoptions");
  EXPECT_TRUE(hand.done);
  EXPECT_EQ(win.s().look.Scheme, tint);
}

TEST(Form2Options, ReplaceAndDeleteActOnTheSchemeChosenInTheList) {
  Window win(1, "sea.col");
  win.hand.answers = {QMessageBox::Yes, QMessageBox::Ok, QMessageBox::Yes};
  OnceOn<Form2> hand([&](Form2* f) {
    Child<QListWidget>(f, "List1")->setCurrentRow(2);  // "sand"
    for (const char* command : {"RepSch", "DelSch"}) Child<QPushButton>(f, command)->click();
    EXPECT_EQ(Child<QListWidget>(f, "List1")->findItems("sand", Qt::MatchExactly).size(), 0);
    Press(f, "Command2");
  });
  win.Trigger("mnuoptions");
  EXPECT_EQ(win.hand.texts,
            (std::vector<std::string>{"Replace color scheme: sand", "Color Scheme: sand replaced",
                                      "Delete color scheme: sand", "Color Scheme: sand deleted"}));
}

}  // namespace
}  // namespace velmora::test
