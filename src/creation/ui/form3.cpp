// Form3, "Create New Puzzles": how many puzzles, into which file, with what
// title and level, or one puzzle only to display.
#include "creation/ui/form3.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "controls/ui/fndialog.h"
#include "controls/ui/frames.h"
#include "controls/ui/local_text.h"
#include "model/text.h"

namespace velmora {

Form3::Form3(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("Form3"));
  setWindowTitle(QStringLiteral("Create New Puzzles"));
  const Form3Values start;
  auto* top = new QHBoxLayout;
  top->addWidget(BuildCountFrame(start), 1);
  top->addWidget(BuildDisplayOnlyFrame(start), 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(BuildFileFrame());
  layout->addWidget(BuildTitleFrame(start));
  layout->addWidget(BuildLevelFrame(start));
  layout->addSpacing(4);
  layout->addLayout(BuildButtons());
  layout->setSizeConstraint(QLayout::SetFixedSize);
  Connect();
}

QWidget* Form3::BuildCountFrame(const Form3Values& start) {
  auto* frame1 = Frame(QStringLiteral("Frame1"), QStringLiteral("# of Puzzles"), {}, this);
  text1_ = new QLineEdit(QText(start.Text1), frame1);
  text1_->setObjectName(QStringLiteral("Text1"));
  text1_->setToolTip(QStringLiteral("Enter number of puzzles to be saved to output file"));
  text1_->setFixedWidth(text1_->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) + 16);
  auto* frame1Layout = new QHBoxLayout(frame1);
  frame1Layout->addWidget(text1_);
  frame1Layout->addStretch(1);
  return frame1;
}

QWidget* Form3::BuildDisplayOnlyFrame(const Form3Values& start) {
  auto* frame2 = Frame(QStringLiteral("Frame2"), QStringLiteral("Single Puzzle"), {}, this);
  check1_ = new QCheckBox(QStringLiteral("Display only"), frame2);
  check1_->setObjectName(QStringLiteral("Check1"));
  check1_->setToolTip(QStringLiteral("Click if one new puzzle to be displayed only"));
  check1_->setChecked(start.Check1);
  auto* frame2Layout = new QHBoxLayout(frame2);
  frame2Layout->addWidget(check1_);
  frame2Layout->addStretch(1);
  return frame2;
}

QWidget* Form3::BuildFileFrame() {
  auto* inFileFrame = Frame(QStringLiteral("InFileFrame"), QStringLiteral("Output File"), {}, this);
  fileNow_ = new FNDialog(inFileFrame);
  fileNow_->setObjectName(QStringLiteral("FileNow"));
  fileNow_->setToolTip(QStringLiteral("New Puzzles will be stored in this file"));
  fileNow_->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('x')) * 48);
  auto* inFileLayout = new QHBoxLayout(inFileFrame);
  inFileLayout->addWidget(fileNow_);
  return inFileFrame;
}

QWidget* Form3::BuildTitleFrame(const Form3Values& start) {
  auto* frame4 = Frame(QStringLiteral("Frame4"), QStringLiteral("Puzzle Title"), {}, this);
  text4_ = new QLineEdit(QText(start.Text4), frame4);
  text4_->setObjectName(QStringLiteral("Text4"));
  auto* frame4Layout = new QHBoxLayout(frame4);
  frame4Layout->addWidget(text4_);
  return frame4;
}

QWidget* Form3::BuildLevelFrame(const Form3Values& start) {
  auto* frame5 = Frame(QStringLiteral("Frame5"), QStringLiteral("Difficulty Level"), {}, this);
  auto* frame5Layout = new QHBoxLayout(frame5);
  // Shown Random first, as the level One Puzzle uses.
  for (const int level : {kLevelRandom, kLevelEasy, kLevelHard, kLevelVHard}) {
    const DifficultyLevel& row = kLevels[level];
    auto* button = new QRadioButton(QString::fromLatin1(row.caption), frame5);
    button->setObjectName(QString::fromLatin1(row.button));
    button->setChecked(level == start.level);
    options_[static_cast<size_t>(level)] = button;
    frame5Layout->addWidget(button);
  }
  frame5Layout->addStretch(1);
  return frame5;
}

QLayout* Form3::BuildButtons() {
  // The buttons stay direct children of the dialog: FileNow has a Command1 of its own.
  const CommandRow row =
      MakeCommandRow(this, QStringLiteral("Create"), QStringLiteral("Create new puzzle(s)"));
  command1_ = row.command1;
  command2_ = row.command2;
  return row.layout;
}

void Form3::Connect() {
  // Ticking "Display only" asks for one puzzle; typing a count ticks it
  // exactly when that count is 1.
  connect(check1_, &QCheckBox::clicked, this, [this](bool checked) {
    if (checked) text1_->setText(QStringLiteral("1"));
  });
  connect(text1_, &QLineEdit::textChanged, this,
          [this](const QString& text) { check1_->setChecked(Val(S(text)) == 1); });
  connect(fileNow_, &FNDialog::Browse, this, [this] { BrowseFileNow(); });
  connect(command1_, &QPushButton::clicked, this, [this] {
    created_ = true;
    accept();
  });
  connect(command2_, &QPushButton::clicked, this, [this] {
    created_ = false;
    reject();
  });
}

Form3Values Form3::Ask(const std::string& currentFile, const std::string& appFolder) {
  fileNow_->SetText(QText(currentFile));
  appFolder_ = QText(appFolder);
  created_ = false;
  text1_->setFocus();
  text1_->selectAll();
  exec();
  return Values();
}

Form3Values Form3::Values() const {
  Form3Values v;
  v.Text1 = S(text1_->text());
  v.FileNow = S(fileNow_->Text());
  v.Text4 = S(text4_->text());
  v.Check1 = check1_->isChecked();
  for (int level = kLevelEasy; level <= kLevelRandom; ++level) {
    if (options_[static_cast<size_t>(level)]->isChecked()) v.level = level;
  }
  v.created = created_;
  return v;
}

void Form3::closeEvent(QCloseEvent* event) {
  created_ = false;
  QDialog::closeEvent(event);
}

void Form3::BrowseFileNow() {
  fileNow_->ForPuzzleFiles(QStringLiteral("Select an output Puzzle file"));
  fileNow_->SetDefaultDir(appFolder_);
  const QString name = fileNow_->ShowFileDialog(QStringLiteral("SAVE"));
  if (name.isEmpty()) return;
  fileNow_->SetText(name);
  fileNow_->setToolTip(name);
}

}  // namespace velmora
