// The file-name box and the main window's file commands, arrows and typed number.
#include <gtest/gtest.h>

#include <QAction>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

#include "app/ui/form1.h"
#include "controls/ui/fndialog.h"
#include "ui_support.h"

namespace velmora {
namespace {

using test::DialogHand;
using test::ProgramFolder;
using test::TempDir;

// Watches for the file dialog, notes how it was set up and answers with the
// next queued name ("" cancels).
class FileDialogHand {
 public:
  FileDialogHand() {
    timer_.setInterval(5);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Poll(); });
    timer_.start();
  }
  void Answer(const QString& name) { answers_.push_back(name); }
  struct Seen {
    QString title;
    QStringList filters;
    QString directory;
    bool save;
  };
  std::vector<Seen> seen;

 private:
  void Poll() {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible()) return;
    seen.push_back({dialog->windowTitle(), dialog->nameFilters(), dialog->directory().absolutePath(),
                    dialog->acceptMode() == QFileDialog::AcceptSave});
    const QString name = answers_.empty() ? QString() : answers_.front();
    if (!answers_.empty()) answers_.pop_front();
    if (name.isEmpty()) {
      dialog->reject();
    } else {
      dialog->selectFile(name);
      QMetaObject::invokeMethod(dialog, "accept");
    }
  }
  QTimer timer_;
  std::deque<QString> answers_;
};

void Click(QWidget* w, Qt::MouseButton button) {
  const QPointF centre(w->width() / 2.0, w->height() / 2.0);
  const QPointF global = w->mapToGlobal(centre);
  QMouseEvent press(QEvent::MouseButtonPress, centre, global, button, button, Qt::NoModifier);
  QApplication::sendEvent(w, &press);
  QMouseEvent release(QEvent::MouseButtonRelease, centre, global, button, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(w, &release);
}

void Type(QWidget* w, Qt::Key key, const QString& text = {}) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QApplication::sendEvent(w, &press);
  QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
  QApplication::sendEvent(w, &release);
}

FNDialog* PuzzleBox(QWidget* parent, const TempDir& dir) {
  auto* box = new FNDialog(parent);
  box->SetFileTypes(QStringLiteral("*.vlm;*.txt;*.dat"));
  box->SetFileTypesName(QStringLiteral("velmora Files"));
  box->SetTitle(QStringLiteral("Pick one"));
  box->SetDefaultDir(QString::fromStdString(dir.path()));
  return box;
}

TEST(FNDialog, PropertiesFilterAndBrowse) {
  TempDir dir;
  QWidget owner;
  FNDialog fresh(&owner);
  EXPECT_EQ(fresh.Caption(), "...");
  EXPECT_TRUE(fresh.Title().isEmpty());
  EXPECT_TRUE(fresh.Text().isEmpty());
  FNDialog* box = PuzzleBox(&owner, dir);
  EXPECT_EQ(box->Filter(), "velmora Files (*.vlm;*.txt;*.dat)");
  EXPECT_EQ(box->QtFilter(), "velmora Files (*.vlm *.txt *.dat)");
  EXPECT_EQ(box->StartFolder(), QString::fromStdString(dir.path() + "/"));
  EXPECT_EQ(box->property("Title").toString(), "Pick one");
  box->setProperty("Caption", QStringLiteral("Browse"));
  EXPECT_EQ(box->findChild<QPushButton*>(QStringLiteral("Command1"))->text(), "Browse");

  int browse = 0;
  QObject::connect(box, &FNDialog::Browse, [&browse] { ++browse; });
  box->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
  EXPECT_EQ(browse, 1);
}

TEST(FNDialog, OpenAndSaveDialogsAnswerWithTheNameOrNothing) {
  TempDir dir;
  const std::string existing = dir.Write("a.vlm", "#1\r\n");
  QWidget owner;
  FNDialog* box = PuzzleBox(&owner, dir);
  FileDialogHand hand;
  hand.Answer({});
  EXPECT_EQ(box->ShowFileDialog(QStringLiteral("OPEN")), "");
  hand.Answer(QString::fromStdString(existing));
  EXPECT_EQ(box->ShowFileDialog(QStringLiteral("")), QString::fromStdString(existing));
  // Saving onto an existing file asks nothing here: that is the command's question.
  hand.Answer(QString::fromStdString(existing));
  EXPECT_EQ(box->ShowFileDialog(QStringLiteral("SAVE")), QString::fromStdString(existing));
  hand.Answer(QString::fromStdString(dir.File("new.vlm")));
  EXPECT_EQ(box->ShowFileDialog(QStringLiteral("SAVE")), QString::fromStdString(dir.File("new.vlm")));

  ASSERT_EQ(hand.seen.size(), 4u);
  for (const auto& seen : hand.seen) {
    EXPECT_EQ(seen.title, "Pick one");
    EXPECT_EQ(seen.filters, QStringList{"velmora Files (*.vlm *.txt *.dat)"});
    EXPECT_EQ(seen.directory, QString::fromStdString(dir.path()));
  }
  EXPECT_FALSE(hand.seen[0].save);
  EXPECT_FALSE(hand.seen[1].save);
  EXPECT_TRUE(hand.seen[2].save);
}

TEST(Form1Files, ArrowsRightClickTypedNumberAndLoadThroughTheDialog) {
  ProgramFolder folder;
  folder.Remember(1);
  DialogHand hand;
  Form1 w;
  w.StartUp(folder.dir.path());
  w.show();
  auto* previous = w.findChild<QPushButton*>(QStringLiteral("arrows0"));
  auto* next = w.findChild<QPushButton*>(QStringLiteral("arrows1"));
  auto* random = w.findChild<QPushButton*>(QStringLiteral("arrows2"));
  ASSERT_TRUE(previous && next && random);
  EXPECT_EQ(previous->toolTip(), "Previous puzzle, right-click for first puzzle");
  EXPECT_EQ(next->toolTip(), "Next puzzle, right-click for last puzzle");
  EXPECT_EQ(random->toolTip(), "Random puzzle");
  auto* number = w.findChild<QLineEdit*>(QStringLiteral("PuzNumNow"));
  auto* title = w.findChild<QLineEdit*>(QStringLiteral("PuzTitle"));

  Click(previous, Qt::LeftButton);
  EXPECT_EQ(number->text(), "3");
  Click(previous, Qt::RightButton);
  EXPECT_EQ(number->text(), "1");
  Click(next, Qt::RightButton);
  EXPECT_EQ(number->text(), "3");
  EXPECT_EQ(title->text(), "Sample 3");
  Click(next, Qt::LeftButton);
  EXPECT_EQ(number->text(), "1");

  number->selectAll();
  Type(number, Qt::Key_2, QStringLiteral("2"));
  EXPECT_EQ(w.State().CurrentPuzzleNumber, 1);  // typing alone does not jump
  Type(number, Qt::Key_Return);
  EXPECT_EQ(w.State().CurrentPuzzleNumber, 2);
  EXPECT_EQ(title->text(), "Sample 2");
  number->selectAll();
  Type(number, Qt::Key_9, QStringLiteral("9"));
  Type(number, Qt::Key_Return);
  EXPECT_EQ(number->text(), "9");  // out of range: the text stays
  EXPECT_EQ(w.State().CurrentPuzzleNumber, 2);

  const std::string other = folder.dir.Write("other.vlm", "#1\r\nOther one\r\n" + folder.dir.Read("puzzles.vlm").substr(14));
  FileDialogHand files;
  files.Answer(QString::fromStdString(other));
  w.findChild<QAction*>(QStringLiteral("mnuloadpuz"))->trigger();
  ASSERT_EQ(files.seen.size(), 1u);
  EXPECT_EQ(files.seen[0].title, "velmora");
  EXPECT_FALSE(files.seen[0].save);
  EXPECT_EQ(files.seen[0].directory, QString::fromStdString(folder.dir.path()));
  EXPECT_EQ(title->text(), "Other one");
  EXPECT_EQ(w.windowTitle(), QString::fromStdString("File: " + other));
  EXPECT_TRUE(hand.texts.empty());
}

}  // namespace
}  // namespace velmora
