// Form2, "Velmora Options": colour schemes (preview, add, replace, delete,
// apply) and the size of the program's text.
#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <string>

#include "app/settings.h"
#include "appearance/scheme_options.h"
#include "model/game_state.h"
#include "model/user_interface.h"

class QBoxLayout;
class QGroupBox;
class QListWidget;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace velmora {

class ColorPicker;
class SchemePreview;

// Sets the font of every window for `size`; the board keeps its size.
void ApplyTextSize(TextSize size);

class Form2 : public QDialog {
  Q_OBJECT

 public:
  // Works on `look`, the colours the windows are painted with, and on the
  // scheme file and settings in `appFolder`. `applied` runs after Apply has
  // kept the choices: the main window shows the scheme and the text size.
  Form2(const std::string& appFolder, Appearance& look, UserInterface& ui, QWidget* parent,
        std::function<void()> applied);

  // Escape, the close box and Exit: the active scheme is read again, so a
  // previewed one is dropped.
  void reject() override;

 private:
  void BuildSchemeFrame(QGroupBox* frame);
  // View, Replace, Delete and Add, one above the other.
  QBoxLayout* BuildSchemeButtons(QWidget* frame);
  int SelectedRow() const;  // -1 when no item is chosen
  void FillList();
  void Choose();
  void Apply();
  // Recolours the dialog with the current scheme ("View").
  void ShowColors();

  const std::string appFolder_;
  Appearance& look_;
  UserInterface& ui_;
  std::function<void()> applied_;
  SchemeListBox list_;
  std::string shownName_;  // the scheme the dialog shows, for its frame caption
  QPushButton* command1_ = nullptr;
  QPushButton* command2_ = nullptr;
  QGroupBox* frame_ = nullptr;
  ColorPicker* colPik1_ = nullptr;
  QScrollBar* contrastV_ = nullptr;
  QListWidget* list1_ = nullptr;
  SchemePreview* preview_ = nullptr;
  std::array<QPushButton*, 4> schemeButtons_{};
  std::array<QRadioButton*, 4> sizes_{};
};

}  // namespace velmora
