// Form3, "Create New Puzzles": how many puzzles, into which file, with what
// title and level, or one puzzle only to display.
#pragma once

#include <QDialog>
#include <QString>
#include <array>
#include <string>

#include "creation/create_commands.h"

class QCheckBox;
class QLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace velmora {

class FNDialog;

class Form3 : public QDialog {
  Q_OBJECT

 public:
  explicit Form3(QWidget* parent = nullptr);

  // Shows `currentFile` in FileNow and runs the dialog modally; the save dialog of FileNow starts in
  // `appFolder`. The other controls keep what they held last time.
  Form3Values Ask(const std::string& currentFile, const std::string& appFolder);

  // What the controls hold now, and whether Create closed the dialog.
  Form3Values Values() const;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // The frames and buttons, top to bottom; each sets its controls' members.
  QWidget* BuildCountFrame(const Form3Values& start);
  QWidget* BuildDisplayOnlyFrame(const Form3Values& start);
  QWidget* BuildFileFrame();
  QWidget* BuildTitleFrame(const Form3Values& start);
  QWidget* BuildLevelFrame(const Form3Values& start);
  QLayout* BuildButtons();
  void Connect();
  void BrowseFileNow();

  QLineEdit* text1_ = nullptr;
  FNDialog* fileNow_ = nullptr;
  QLineEdit* text4_ = nullptr;
  QCheckBox* check1_ = nullptr;
  // Option1..Option4 by generator level: Easy, Hard, Very Hard, Random.
  std::array<QRadioButton*, 4> options_{};
  QPushButton* command1_ = nullptr;
  QPushButton* command2_ = nullptr;
  QString appFolder_;
  bool created_ = false;  // Create pressed; Exit and the close box leave it false
};

}  // namespace velmora
