// Form5, "Print Puzzles From File": the printer, the file, the range and
// whether solutions print, handed back as one answer.
#pragma once

#include <QDialog>
#include <QString>
#include <array>
#include <optional>
#include <string>

#include "model/user_interface.h"
#include "printing/print_commands.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QRadioButton;

namespace velmora {

class FNDialog;
class PrinterChoice;

class Form5 : public QDialog {
  Q_OBJECT

 public:
  // Combo1 shows `printer`'s current printer; "Print" makes its item the current one.
  explicit Form5(PrinterChoice& printer, QWidget* parent = nullptr);

  // Shows `file` in FileNow and runs the dialog modally; its refusals go
  // through `ui`. Nothing when it was left without printing (Exit, the close box).
  std::optional<PrintFileChoice> Ask(UserInterface& ui, const std::string& file,
                                     const std::string& appFolder);

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
  PrinterChoice& printer_;
  QString appFolder_;
  std::optional<PrintFileChoice> answer_;
  UserInterface* ui_ = nullptr;
};

}  // namespace velmora
