// The options dialog from the main window: preview, Exit and Escape drop it,
// Apply recolours the board and the text, and both outlast a restart.
#include <QGroupBox>
#include <QScrollBar>

#include "appearance/color_scheme.h"
#include "appearance/ui/form2.h"
#include "ui_support.h"

namespace velmora::test {
namespace {

// Opens the options dialog from its menu and runs `act` on it once it is up.
void InOptions(Window& win, const std::function<void(Form2*)>& act) {
  OnceOn<Form2> hand(act);
  win.Trigger("mnuoptions");
  EXPECT_TRUE(hand.done);
}

TEST(Form2Options, PreviewThenExitOrEscapeKeepsTheActiveScheme) {
  Window win(1, "sea.col");
  const QColor sea(214, 230, 242), sand(243, 234, 214);
  for (const bool escape : {false, true}) {
    InOptions(win, [&](Form2* f) {
      auto* list = Child<QListWidget>(f, "List1");
      list->setCurrentRow(2);  // "sand"
      EXPECT_EQ(Child<QGroupBox>(f, "Frame1")->title(), "Color Scheme: sand");
      EXPECT_EQ(f->palette().color(QPalette::Window), sand);
      Child<QScrollBar>(f, "RedBar")->setValue(7);  // the picker edits the background at once
      EXPECT_EQ(win.s().Scheme[2], Rgb(7, 234, 214));
      Key(list, Qt::Key_Return);  // reads "sand" again
      EXPECT_EQ(win.s().Scheme[2], Rgb(243, 234, 214));
      escape ? Key(f, Qt::Key_Escape) : Child<QPushButton>(f, "Command2")->click();
    });
    EXPECT_EQ(win.Pixel(10, 10), sea) << escape;
  }
}

TEST(Form2Options, ApplyRecoloursTheBoardAndOutlastsARestart) {
  Window win(1, "sea.col");
  const QFont before = QApplication::font();
  InOptions(win, [&](Form2* f) {
    Child<QListWidget>(f, "List1")->setCurrentRow(3);  // "meadow"
    Child<QRadioButton>(f, "Size2")->click();           // Large
    Child<QPushButton>(f, "Command1")->click();
  });
  EXPECT_EQ(win.Pixel(10, 10), QColor(221, 238, 216));
  EXPECT_GT(QApplication::font().pointSizeF(), before.pointSizeF());
  win.hand.answers = {QMessageBox::Yes};
  win.Trigger("mnuexit");
  ApplyTextSize(kMedium);

  Form1 again;  // the next start over the same folder
  again.StartUp(win.dir.path());
  EXPECT_EQ(again.State().ColorSchemeName, "meadow.col");
  EXPECT_EQ(SavedTextSize(again.State().AppFolder), kLarge);
}

}  // namespace
}  // namespace velmora::test
