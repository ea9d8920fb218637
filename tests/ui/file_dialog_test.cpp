// The file-name box and the main window's file commands, arrows and typed number.
#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QPushButton>

#include "controls/ui/fndialog.h"
#include "ui_support.h"

namespace velmora {
namespace {

using test::FileDialogHand;

void Type(QWidget* w, Qt::Key key, const QString& text = {}) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QApplication::sendEvent(w, &press);
  QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
  QApplication::sendEvent(w, &release);
}

TEST(FNDialog, PropertiesFilterBrowseAndTheOpenAndSaveDialogs) {
  test::TempDir dir;
  const std::string existing = dir.Write("a.vlm", "#1\r\n");
  QWidget owner;
  FNDialog box(&owner);
  EXPECT_EQ(box.Caption(), "...");
  box.SetFileTypes(QStringLiteral("*.vlm;*.txt;*.dat"));
  box.SetFileTypesName(QStringLiteral("velmora Files"));
  box.setProperty("Title", QStringLiteral("Pick one"));
  box.SetDefaultDir(QString::fromStdString(dir.path()));
  EXPECT_EQ(box.Filter(), "velmora Files (*.vlm;*.txt;*.dat)");
  EXPECT_EQ(box.StartFolder(), QString::fromStdString(dir.path() + "/"));
  box.setProperty("Caption", QStringLiteral("Browse"));
  auto* browse = test::Child<QPushButton>(&box, "Command1");
  EXPECT_EQ(browse->text(), "Browse");
  int browsed = 0;
  QObject::connect(&box, &FNDialog::Browse, [&browsed] { ++browsed; });
  browse->click();
  EXPECT_EQ(browsed, 1);

  FileDialogHand hand;
  hand.Answer("");
  EXPECT_EQ(box.ShowFileDialog(QStringLiteral("OPEN")), "");
  hand.Answer(existing);
  EXPECT_EQ(box.ShowFileDialog(QStringLiteral("")), QString::fromStdString(existing));
  // Saving onto an existing file asks nothing here: that is the command's question.
  hand.Answer(existing);
  EXPECT_EQ(box.ShowFileDialog(QStringLiteral("SAVE")), QString::fromStdString(existing));
  ASSERT_EQ(hand.seen.size(), 3u);
  for (const auto& seen : hand.seen) {
    EXPECT_EQ(seen.title, "Pick one");
    EXPECT_EQ(seen.filters, QStringList{"velmora Files (*.vlm *.txt *.dat)"});
    EXPECT_EQ(seen.directory, QString::fromStdString(dir.path()));
  }
  EXPECT_FALSE(hand.seen[1].save);
  EXPECT_TRUE(hand.seen[2].save);
}

TEST(Form1Files, ArrowsByButtonTheTypedNumberOnEnterAndLoadThroughTheDialog) {
  test::Window win(1);
  // Each press lands on a different record if the arrows or buttons were swapped.
  const std::pair<const char*, Qt::MouseButton> presses[] = {{"arrows1", Qt::LeftButton},
                                                             {"arrows0", Qt::RightButton},
                                                             {"arrows1", Qt::RightButton},
                                                             {"arrows0", Qt::LeftButton}};
  QStringList shown;
  for (const auto& [arrow, button] : presses) {
    test::Click(win.Get(arrow), button);
    shown << win.Text("PuzNumNow");
  }
  EXPECT_EQ(shown, (QStringList{"2", "1", "3", "2"}));
  EXPECT_EQ(win.Text("PuzTitle"), "Sample 2");

  auto* number = win.Get<QLineEdit>("PuzNumNow");
  number->selectAll();
  Type(number, Qt::Key_3, QStringLiteral("3"));
  EXPECT_EQ(win.s().CurrentPuzzleNumber, 2);  // typing alone does not jump
  Type(number, Qt::Key_Return);
  EXPECT_EQ(win.Text("PuzTitle"), "Sample 3");

  const std::string other =
      win.dir.Write("other.vlm", "#1\r\nOther one\r\n" + win.dir.Read("puzzles.vlm").substr(14));
  FileDialogHand files;
  files.Answer(other);
  win.Trigger("mnuloadpuz");
  ASSERT_EQ(files.seen.size(), 1u);
  EXPECT_EQ(files.seen[0].title, "velmora");
  EXPECT_FALSE(files.seen[0].save);
  EXPECT_EQ(files.seen[0].directory, QString::fromStdString(win.dir.path()));
  EXPECT_EQ(win.Text("PuzTitle"), "Other one");
  EXPECT_EQ(win.w.windowTitle(), QString::fromStdString("File: " + other));
  EXPECT_TRUE(win.hand.texts.empty());
}

}  // namespace
}  // namespace velmora
