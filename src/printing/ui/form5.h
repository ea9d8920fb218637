// Form5, "Print Puzzles From File": the printer, the file, the range and
// whether solutions print, handed back as one answer text.
#pragma once

#include <QDialog>
#include <QString>
#include <array>
#include <string>

#include "model/user_interface.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QRadioButton;

namespace velmora {

class FNDialog;

class Form5 : public QDialog {
  Q_OBJECT

 public:
  explicit Form5(QWidget* parent = nullptr);

  // Shows `file` in FileNow and runs the dialog modally; its refusals go
  // through `ui`. The answer text: "" when nothing was decided, "X" after
  // Exit, otherwise the fields joined by ",".
  std::string Ask(UserInterface& ui, const std::string& file, const std::string& appFolder);

  // The printer the print jobs use: the system's default, or "PDF file"
  // where none is installed, until "Print" makes Combo1's item the current one.
  const QString& CurrentPrinter() const { return currentPrinter_; }

 protected:
  // Text2 is set to the file's count every time the dialog comes up.
  void showEvent(QShowEvent* event) override;

 private:
  // The frames below the printer, top to bottom; each sets its controls' members.
  QWidget* BuildFileFrame();
  QWidget* BuildRangeFrame();
  QWidget* BuildSolutionFrame();
  QWidget* BuildPerPageFrame();
  void BuildPrinterList();
  void Browse();
  void Print();

  QComboBox* combo1_ = nullptr;
  QLineEdit* fileNow_ = nullptr;
  FNDialog* gf1_ = nullptr;
  QLineEdit* text1_ = nullptr;
  QLineEdit* text2_ = nullptr;
  QCheckBox* check1_ = nullptr;
  std::array<QRadioButton*, 3> option1_{};
  QString currentPrinter_;
  QString appFolder_;
  std::string answer_;
  UserInterface* ui_ = nullptr;
};

}  // namespace velmora
