// Helpers for the desktop tests: a program folder per test and a hand that
// answers the real message boxes.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <deque>
#include <filesystem>
#include <string>
#include <vector>

#include "test_support.h"

namespace velmora::test {

// A folder laid out like the program's: schemes, help page and sample puzzles.
class ProgramFolder {
 public:
  ProgramFolder() {
    for (const char* name : {"all.col", "velmora.htm"}) {
      std::filesystem::copy_file(std::string(VELMORA_DATA_DIR) + "/" + name, dir.File(name));
    }
    std::filesystem::copy_file(SampleFile(), dir.File("puzzles.vlm"));
  }
  // A configuration that remembers `number` of the folder's puzzles.vlm.
  void Remember(int number, const std::string& scheme = "default.col") {
    dir.Write("velmora.cfg", "t\r\n" + scheme + "\r\n" + dir.File("puzzles.vlm") + "\r\n " +
                                 std::to_string(number) + " \r\n");
  }
  std::string Config() const { return dir.Read("velmora.cfg"); }
  TempDir dir;
};

// Watches for modal message boxes, notes their texts and presses the next
// queued answer (OK when none is queued).
class DialogHand {
 public:
  DialogHand() {
    timer_.setInterval(5);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Poll(); });
    timer_.start();
  }
  void Answer(QMessageBox::StandardButton b) { answers_.push_back(b); }
  std::vector<std::string> texts;

 private:
  void Poll() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box || !box->isVisible()) return;
    texts.push_back(box->text().toStdString());
    QMessageBox::StandardButton b = QMessageBox::Ok;
    if (!answers_.empty()) {
      b = answers_.front();
      answers_.pop_front();
    }
    if (QAbstractButton* button = box->button(b)) {
      button->click();
    } else {
      box->reject();
    }
  }
  QTimer timer_;
  std::deque<QMessageBox::StandardButton> answers_;
};

}  // namespace velmora::test
