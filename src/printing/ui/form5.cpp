// Form5, "Print Puzzles From File": the printer, the file, the range and
// whether solutions print, handed back as one answer.
#include "printing/ui/form5.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "controls/ui/fndialog.h"
#include "controls/ui/frames.h"
#include "controls/ui/local_text.h"
#include "files/puzzle_file.h"
#include "model/text.h"
#include "printing/print_commands.h"
#include "printing/ui/printer_choice.h"

namespace velmora {

Form5::Form5(PrinterChoice& printer, QWidget* parent) : QDialog(parent), printer_(printer) {
  setObjectName(QStringLiteral("Form5"));
  setWindowTitle(QStringLiteral("Print Puzzles From File"));

  auto* frame5 = Frame(QStringLiteral("Frame5"), QStringLiteral("Printer"),
                       QStringLiteral("Select a printer for output"), this);
  combo1_ = Named(new QComboBox(frame5), QStringLiteral("Combo1"));
  (new QHBoxLayout(frame5))->addWidget(combo1_);
  BuildPrinterList();

  auto* grid = new QGridLayout(this);
  grid->addWidget(frame5, 0, 0, 1, 2);
  grid->addWidget(BuildFileFrame(), 1, 0, 1, 2);
  grid->addWidget(BuildRangeFrame(), 2, 0);
  grid->addWidget(BuildSolutionFrame(), 2, 1);
  grid->addWidget(BuildPerPageFrame(), 3, 0, 1, 2);

  const CommandRow commands =
      MakeCommandRow(this, QStringLiteral("Print"), QStringLiteral("Print puzzles and exit"));
  grid->addLayout(commands.layout, 4, 0, 1, 2);
  grid->setSizeConstraint(QLayout::SetFixedSize);

  connect(gf1_, &FNDialog::Browse, this, [this] { Browse(); });
  connect(commands.command1, &QPushButton::clicked, this, [this] { Print(); });
  connect(commands.command2, &QPushButton::clicked, this, [this] {
    answer_.reset();
    reject();
  });
}

QWidget* Form5::BuildFileFrame() {
  auto* inFileFrame = Frame(QStringLiteral("InFileFrame"), QStringLiteral("Puzzles File"),
                            QStringLiteral("Puzzles to be printed are stored in this file"), this);
  fileNow_ = Named(new QLineEdit(inFileFrame), QStringLiteral("FileNow"));
  fileNow_->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('x')) * 48);
  // gf1 lends its browse button; the name itself is typed in FileNow.
  gf1_ = Named(new FNDialog(inFileFrame), QStringLiteral("gf1"));
  gf1_->Field()->hide();
  auto* inFileLayout = new QHBoxLayout(inFileFrame);
  inFileLayout->addWidget(fileNow_, 1);
  inFileLayout->addWidget(gf1_);
  return inFileFrame;
}

QWidget* Form5::BuildRangeFrame() {
  auto* frame1 = Frame(QStringLiteral("Frame1"), QStringLiteral("Number of Puzzles to Print"),
                       QStringLiteral("Specify start and end puzzle numbers"), this);
  text1_ = Named(new QLineEdit(QStringLiteral("1"), frame1), QStringLiteral("Text1"));
  text2_ = Named(new QLineEdit(QStringLiteral("1"), frame1), QStringLiteral("Text2"));
  for (QLineEdit* number : {text1_, text2_})
    number->setFixedWidth(number->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) + 16);
  auto* frame1Layout = new QHBoxLayout(frame1);
  frame1Layout->addWidget(Named(new QLabel(QStringLiteral("From"), frame1), QStringLiteral("Label1")));
  frame1Layout->addWidget(text1_);
  frame1Layout->addWidget(Named(new QLabel(QStringLiteral("To"), frame1), QStringLiteral("Label2")));
  frame1Layout->addWidget(text2_);
  return frame1;
}

QWidget* Form5::BuildSolutionFrame() {
  auto* frame2 = Frame(QStringLiteral("Frame2"), QStringLiteral("Print Solution"),
                       QStringLiteral("Print solution if it exists in file"), this);
  check1_ = Named(new QCheckBox(QStringLiteral("Yes"), frame2), QStringLiteral("Check1"));
  (new QHBoxLayout(frame2))->addWidget(check1_);
  return frame2;
}

QWidget* Form5::BuildPerPageFrame() {
  // The layout follows the solution choice alone, so this frame stays hidden.
  auto* frame3 = Frame(QStringLiteral("Frame3"), QStringLiteral("Puzzles per page"),
                       QStringLiteral("Puzzle per page"), this);
  auto* frame3Layout = new QHBoxLayout(frame3);
  const QString perPage[3] = {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("4")};
  for (size_t i = 0; i < option1_.size(); ++i) {
    option1_[i] = Named(new QRadioButton(perPage[i], frame3), QStringLiteral("Option1_%1").arg(i));
    frame3Layout->addWidget(option1_[i]);
  }
  option1_[0]->setChecked(true);
  frame3->hide();
  return frame3;
}

void Form5::BuildPrinterList() {
  const QStringList printers = QPrinterInfo::availablePrinterNames();
  combo1_->addItems(printers);
  combo1_->addItem(QString::fromLatin1(kPdfPrinterName));
  combo1_->setCurrentText(printer_.Current());
}

std::optional<PrintFileChoice> Form5::Ask(UserInterface& ui, const std::string& file,
                                          const std::string& appFolder) {
  ui_ = &ui;
  fileNow_->setText(QText(file));
  appFolder_ = QText(appFolder);
  answer_.reset();
  combo1_->setCurrentText(printer_.Current());
  exec();
  ui_ = nullptr;
  return answer_;
}

void Form5::showEvent(QShowEvent* event) {
  text2_->setText(QText(NumText(CountPuzzles(S(fileNow_->text())))));
  QDialog::showEvent(event);
}

void Form5::Browse() {
  // Titled with the program's name, as the main window's file boxes are.
  gf1_->ForPuzzleFiles(QStringLiteral("velmora"));
  gf1_->SetDefaultDir(appFolder_);
  const QString name = gf1_->ShowFileDialog(QStringLiteral("OPEN"));
  if (!name.isEmpty()) fileNow_->setText(name);
}

void Form5::Print() {
  printer_.Choose(combo1_->currentText());
  if (!ui_) return;
  const int perPage = option1_[2]->isChecked() ? 4 : (option1_[1]->isChecked() ? 2 : 1);
  answer_ = Form5Answer(*ui_, S(fileNow_->text()), S(text1_->text()), S(text2_->text()), check1_->isChecked(),
                        perPage);
  if (answer_) accept();
}

}  // namespace velmora
