// SortForm, "Sort Puzzle File": source and output file, key, order and
// renumbering for the sort tool.
#pragma once

#include <QDialog>
#include <QString>
#include <array>
#include <string>

#include "files/sort.h"
#include "model/game_state.h"
#include "model/user_interface.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace velmora {

class FNDialog;

class SortForm : public QDialog {
  Q_OBJECT

 public:
  // Sorts with `rng` as the random source and tells the person through `ui`.
  SortForm(Random& rng, UserInterface& ui, const std::string& appFolder, QWidget* parent = nullptr);

  // Activation: the source box shows `sourceFile` and the output box the
  // name proposed for it.
  void Activate(const std::string& sourceFile);
  // What the controls hold now.
  SortSettings Settings() const;
  // Command1: sorts as the controls say.
  void Sort();
  bool Sorting() const { return sorting_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void reject() override;

 private:
  // The parts below the option frames, each setting its controls' members.
  void BuildNumberFrame(QGroupBox* frame);  // Frame5: Check1, Label1 and Text3
  void BuildLayout();                       // the frames and the command row
  void Connect();
  void Propose(const QString& source);
  void BrowseSource();
  void BrowseOutput();
  void EnableSort();
  void Hold(bool hold);

  Random& rng_;
  UserInterface& ui_;
  QString appFolder_;
  FNDialog* gf1_ = nullptr;
  FNDialog* gf2_ = nullptr;
  std::array<QRadioButton*, 4> keys_{};    // Option3, Option4, Option5, Option7
  std::array<QRadioButton*, 3> orders_{};  // Option1, Option2, Option6
  QCheckBox* check1_ = nullptr;
  QLabel* label1_ = nullptr;
  QLineEdit* text3_ = nullptr;
  std::array<QGroupBox*, 5> frames_{};
  QPushButton* command1_ = nullptr;
  QPushButton* command2_ = nullptr;
  bool sorting_ = false;
};

// File > "Sort": the sort dialog over the current puzzle file, modal.
void mnusortpuz(GameState& s, UserInterface& ui, QWidget* mainWindow);

}  // namespace velmora
