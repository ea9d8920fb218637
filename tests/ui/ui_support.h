// Helpers for the desktop tests: the main window over its own program folder,
// hands that answer the real message boxes and dialogs, mouse clicks and keys.
#pragma once

#include <gtest/gtest.h>

#include <QtWidgets>  // the tests reach into most kinds of widget
#include <deque>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "app/ui/form1.h"
#include "board/ui/board_view.h"
#include "test_support.h"

namespace velmora::test {

// Runs `poll` every few milliseconds while modal dialogs wait for an answer.
struct Poller : QTimer {
  explicit Poller(std::function<void()> poll, int interval = 5) {
    connect(this, &QTimer::timeout, std::move(poll));
    start(interval);
  }
};

// The modal dialog of type T that is up, if any.
template <typename T>
T* ModalDialog() {
  auto* dialog = qobject_cast<T*>(QApplication::activeModalWidget());
  return dialog && dialog->isVisible() ? dialog : nullptr;
}

// Runs `act` once, on the first modal dialog of type T that comes up.
template <typename T>
struct OnceOn : Poller {
  explicit OnceOn(std::function<void(T*)> act)
      : Poller([this, act] {
          if (T* dialog = ModalDialog<T>(); dialog && !done) done = true, act(dialog);
        }) {}
  bool done = false;
};

// Notes the texts of modal message boxes and presses the next queued answer
// (OK when none is queued; an unexpected box must not hang the test). Notes
// how each file dialog was set up ("title|filters|folder|OPEN or SAVE") and
// answers it with the next queued name; none left cancels.
struct DialogHand {
  std::vector<std::string> texts, fileDialogs;
  std::deque<QMessageBox::StandardButton> answers;
  std::deque<std::string> names;
  Poller poller{[this] {
    if (QMessageBox* box = ModalDialog<QMessageBox>()) {
      texts.push_back(box->text().toStdString());
      QAbstractButton* button = box->button(answers.empty() ? QMessageBox::Ok : answers.front());
      if (!answers.empty()) answers.pop_front();
      button ? button->click() : box->reject();
    } else if (QFileDialog* dialog = ModalDialog<QFileDialog>()) {
      fileDialogs.push_back((dialog->windowTitle() + "|" + dialog->nameFilters().join(";") + "|" +
                             dialog->directory().absolutePath())
                                .toStdString() +
                            (dialog->acceptMode() == QFileDialog::AcceptSave ? "|SAVE" : "|OPEN"));
      if (names.empty()) return dialog->reject();
      dialog->selectFile(QString::fromStdString(names.front()));
      names.pop_front();
      QMetaObject::invokeMethod(dialog, "accept");
    }
  }};
};

// The named child; a test that needs a missing one fails.
template <typename T = QWidget>
T* Child(QObject* parent, const char* name, Qt::FindChildOptions options = Qt::FindChildrenRecursively) {
  T* child = parent->findChild<T*>(QString::fromLatin1(name), options);
  EXPECT_NE(child, nullptr) << name;
  return child;
}

// A press and release of `button` at `pos`, the widget's centre by default.
inline void Click(QWidget* w, Qt::MouseButton button = Qt::LeftButton, QPointF pos = QPointF(-1, -1)) {
  if (pos.x() < 0) pos = QPointF(w->width() / 2.0, w->height() / 2.0);
  const QPointF global = w->mapToGlobal(pos);
  QMouseEvent press(QEvent::MouseButtonPress, pos, global, button, button, Qt::NoModifier);
  QApplication::sendEvent(w, &press);
  QMouseEvent release(QEvent::MouseButtonRelease, pos, global, button, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(w, &release);
}

// A dialog's own button `name` pressed (its file field may have one of the
// same name), as a person can: only where it shows.
inline void Press(QWidget* dialog, const char* name) {
  auto* button = Child<QPushButton>(dialog, name, Qt::FindDirectChildrenOnly);
  EXPECT_TRUE(button->isVisible() && !button->visibleRegion().isEmpty()) << name;
  button->click();
}

// Every named control of `dialog` that shows has its place in its parent's
// layout: one left out sits over another in a corner of the dialog.
inline void ExpectLaidOut(QWidget* dialog) {
  const std::function<bool(QLayout*, QWidget*)> holds = [&holds](QLayout* layout, QWidget* w) {
    for (int i = 0; layout && i < layout->count(); ++i) {
      if (layout->itemAt(i)->widget() == w || holds(layout->itemAt(i)->layout(), w)) return true;
    }
    return false;
  };
  for (QWidget* w : dialog->findChildren<QWidget*>()) {
    const QString name = w->objectName();
    if (name.isEmpty() || name.startsWith("qt_") || !w->isVisibleTo(dialog) || !w->parentWidget()->layout())
      continue;
    EXPECT_TRUE(holds(w->parentWidget()->layout(), w)) << name.toStdString();
  }
}

inline void Key(QWidget* w, int key, const QString& text = {}) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QApplication::sendEvent(w, &press);
}

// The main window started over a folder laid out like the program's
// (schemes, help page, the sample puzzles as puzzles.vlm) whose
// configuration remembers puzzle `number` (none: a first run), after
// `prepare` added to the folder; then shown.
struct Window {
  explicit Window(int number = 0, const std::string& scheme = "default.col",
                  const std::function<void(const TempDir&)>& prepare = {}) {
    for (const char* name : {"all.col", "velmora.htm"})
      std::filesystem::copy_file(std::string(VELMORA_DATA_DIR) + "/" + name, dir.File(name));
    std::filesystem::copy_file(SampleFile(), Puzzles());
    if (number > 0)
      dir.Write("velmora.cfg",
                "t\r\n" + scheme + "\r\n" + Puzzles() + "\r\n " + std::to_string(number) + " \r\n");
    if (prepare) prepare(dir);
    w.StartUp(dir.path());
    w.show();
    QApplication::processEvents();
  }
  std::string Puzzles() const { return dir.File("puzzles.vlm"); }
  std::string Config() const { return dir.Read("velmora.cfg"); }
  GameState& s() { return w.State(); }
  template <typename T = QWidget>
  T* Get(const char* name) {
    return Child<T>(&w, name);
  }
  // The text of a field or a label.
  QString Text(const char* name) {
    if (auto* edit = w.findChild<QLineEdit*>(QString::fromLatin1(name))) return edit->text();
    return Get<QLabel>(name)->text();
  }
  void Trigger(const char* action) { Get<QAction>(action)->trigger(); }
  // Colour of the board picture at a twips position.
  QColor Pixel(double x, double y) {
    const QPointF px = w.Board()->TwipsToImage(QPointF(x, y));
    return w.Board()->Image().pixelColor(static_cast<int>(px.x()), static_cast<int>(px.y()));
  }

  TempDir dir;
  DialogHand hand;
  Form1 w;
};

}  // namespace velmora::test
