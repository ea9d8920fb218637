// SortForm, "Sort Puzzle File": source and output file, key, order and
// renumbering for the sort tool.
#include "files/ui/sort_form.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <functional>
#include <utility>

#include "controls/ui/fndialog.h"
#include "controls/ui/frames.h"
#include "controls/ui/local_text.h"

namespace velmora {
namespace {

const QString kStartCaption = QStringLiteral("Start#");

// A file-name box filling its frame; its text field takes the name the
// dialog knows it by.
FNDialog* FileBox(QGroupBox* frame, const char* name, const char* textName, const char* title) {
  auto* box = new FNDialog(frame);
  box->setObjectName(QString::fromLatin1(name));
  box->Field()->setObjectName(QString::fromLatin1(textName));
  box->ForPuzzleFiles(QString::fromLatin1(title));
  box->setMinimumWidth(box->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 56);
  (new QHBoxLayout(frame))->addWidget(box);
  return box;
}

struct Choice {
  const char* name;
  const char* caption;
};

// Option buttons stacked in a frame, the first one chosen.
template <size_t N>
void Options(QGroupBox* frame, const Choice (&choices)[N], std::array<QRadioButton*, N>& buttons) {
  auto* layout = new QVBoxLayout(frame);
  for (size_t i = 0; i < N; ++i) {
    buttons[i] = new QRadioButton(QString::fromLatin1(choices[i].caption), frame);
    buttons[i]->setObjectName(QString::fromLatin1(choices[i].name));
    layout->addWidget(buttons[i]);
  }
  buttons[0]->setChecked(true);
  layout->addStretch(1);
}

// Passes everything on to the window's user interface, but lets window
// events run at most once a frame: after every one of 100,000 records they
// would take a minute, and the person sees the same at a frame's pace.
class FramePaced : public UserInterface {
 public:
  FramePaced(UserInterface& ui, std::function<void()> onFrame) : ui_(ui), onFrame_(std::move(onFrame)) {
    clock_.start();
  }
  void ShowMessage(const std::string& text) override {
    onFrame_();
    ui_.ShowMessage(text);
  }
  bool AskYesNo(const std::string& text) override { return ui_.AskYesNo(text); }
  std::string AskFileName(const FileDialogRequest& request) override { return ui_.AskFileName(request); }
  std::string AskText(const std::string& prompt) override { return ui_.AskText(prompt); }
  void SetBusy(bool busy) override { ui_.SetBusy(busy); }
  void Yield() override {
    if (clock_.elapsed() < 16) return;
    onFrame_();
    ui_.Yield();
    clock_.restart();
  }
  void ControlsChanged() override { ui_.ControlsChanged(); }
  void DrawBoard() override { ui_.DrawBoard(); }
  void DrawCell(int rank, const std::string& suitLetter, int row, int col) override {
    ui_.DrawCell(rank, suitLetter, row, col);
  }
  void ShowSolutionOverlay() override { ui_.ShowSolutionOverlay(); }

 private:
  UserInterface& ui_;
  std::function<void()> onFrame_;
  QElapsedTimer clock_;
};

}  // namespace

SortForm::SortForm(Random& rng, UserInterface& ui, const std::string& appFolder, QWidget* parent)
    : QDialog(parent), rng_(rng), ui_(ui), appFolder_(QText(appFolder)) {
  setObjectName(QStringLiteral("SortForm"));
  setWindowTitle(QStringLiteral("Sort Puzzle File"));
  frames_ = {Frame("Frame4", "Source Puzzles File", "File name of the source puzzles", this),
             Frame("Frame3", "Output File", "Sorted output will be stored in this file", this),
             Frame("Frame2", "Sort Criteria", "Specify the sort criteria", this),
             Frame("Frame1", "Sort Order",
                   "Specify the sort order, random sort will reseqence the puzzle numbers", this),
             Frame("Frame5", "Puzzle#s", "Specify whether to resequence puzzle numbers", this)};
  gf2_ = FileBox(frames_[0], "gf2", "Text2", "Select sort input file");
  gf1_ = FileBox(frames_[1], "gf1", "Text1", "Select sort output file");
  Options(frames_[2],
          {{"Option3", "Header"},
           {"Option4", "Puzzle Size"},
           {"Option5", "Puzzle Number"},
           {"Option7", "No of Blanks"}},
          keys_);
  Options(frames_[3], {{"Option1", "Ascending"}, {"Option2", "Descending"}, {"Option6", "Random"}}, orders_);
  BuildNumberFrame(frames_[4]);
  BuildLayout();
  Connect();
}

void SortForm::BuildNumberFrame(QGroupBox* frame) {
  check1_ = new QCheckBox(QStringLiteral("Resequence"), frame);
  check1_->setObjectName(QStringLiteral("Check1"));
  // Label1 names the start number and shows the count while a sort runs.
  label1_ = new QLabel(kStartCaption, frame);
  label1_->setObjectName(QStringLiteral("Label1"));
  label1_->setMinimumWidth(label1_->fontMetrics().horizontalAdvance(QStringLiteral("0000000")));
  text3_ = new QLineEdit(QStringLiteral("1"), frame);
  text3_->setObjectName(QStringLiteral("Text3"));
  text3_->setFixedWidth(text3_->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) + 16);
  auto* frame5 = new QGridLayout(frame);
  frame5->addWidget(check1_, 0, 0, 1, 2);
  frame5->addWidget(label1_, 1, 0);
  frame5->addWidget(text3_, 1, 1);
  frame5->setRowStretch(2, 1);
}

void SortForm::BuildLayout() {
  const CommandRow row = MakeCommandRow(this, QStringLiteral("Sort"), QStringLiteral("Proceed with sort"));
  command1_ = row.command1;
  command1_->setAutoDefault(false);
  command2_ = row.command2;
  QHBoxLayout* buttons = row.layout;
  auto* choices = new QHBoxLayout;
  for (QGroupBox* frame : {frames_[2], frames_[3], frames_[4]}) choices->addWidget(frame, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(frames_[0]);
  layout->addWidget(frames_[1]);
  layout->addLayout(choices);
  layout->addSpacing(4);
  layout->addLayout(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

void SortForm::Connect() {
  connect(gf2_, &FNDialog::Browse, this, [this] { BrowseSource(); });
  connect(gf1_, &FNDialog::Browse, this, [this] { BrowseOutput(); });
  for (FNDialog* box : {gf1_, gf2_})
    connect(box->Field(), &QLineEdit::textChanged, this, [this] { EnableSort(); });
  connect(command1_, &QPushButton::clicked, this, [this] { Sort(); });
  connect(command2_, &QPushButton::clicked, this, [this] { reject(); });
  EnableSort();
}

void SortForm::Activate(const std::string& sourceFile) {
  gf2_->SetText(QText(sourceFile));
  Propose(QText(sourceFile));
}

void SortForm::Propose(const QString& source) {
  const QString proposed = QText(SortedOutputName(S(source)));
  if (proposed.isEmpty()) return;
  gf1_->SetText(proposed);
  gf1_->setToolTip(proposed);
}

void SortForm::BrowseSource() {
  gf2_->SetDefaultDir(appFolder_);
  const QString name = gf2_->ShowFileDialog(QStringLiteral("OPEN"));
  if (name.isEmpty()) return;
  gf2_->SetText(name);
  Propose(name);
}

void SortForm::BrowseOutput() {
  gf1_->SetDefaultDir(appFolder_);
  const QString name = gf1_->ShowFileDialog(QStringLiteral("SAVE"));
  if (name.isEmpty()) return;
  gf1_->SetText(name);
  gf1_->setToolTip(name);
}

// Neither box may be empty for a sort; blanks alone are left to the checks.
void SortForm::EnableSort() {
  command1_->setEnabled(!sorting_ && !gf1_->Text().isEmpty() && !gf2_->Text().isEmpty());
}

SortSettings SortForm::Settings() const {
  SortSettings settings;
  settings.source = S(gf2_->Text());
  settings.output = S(gf1_->Text());
  constexpr SortKey kKeys[] = {SortKey::kHeader, SortKey::kSize, SortKey::kNumber, SortKey::kBlanks};
  constexpr SortOrder kOrders[] = {SortOrder::kAscending, SortOrder::kDescending, SortOrder::kRandom};
  for (size_t i = 0; i < keys_.size(); ++i)
    if (keys_[i]->isChecked()) settings.key = kKeys[i];
  for (size_t i = 0; i < orders_.size(); ++i)
    if (orders_[i]->isChecked()) settings.order = kOrders[i];
  settings.resequence = check1_->isChecked();
  settings.start = S(text3_->text());
  return settings;
}

void SortForm::Sort() {
  if (sorting_ || !command1_->isEnabled()) return;
  SortSettings settings = Settings();
  Hold(true);
  long long count = 0;
  FramePaced ui(ui_, [&] {
    label1_->setText(QString::number(count));
    if (settings.resequence) check1_->setChecked(true);
  });
  SortPuzzleFile(settings, rng_, ui, [&count](long long n) { count = n; });
  Hold(false);
  check1_->setChecked(settings.resequence);
  text3_->setText(QText(settings.start));
  label1_->setText(kStartCaption);
}

// While a sort runs the window stays live, but nothing in it acts.
void SortForm::Hold(bool hold) {
  sorting_ = hold;
  // Frame5 stays enabled: Label1 counts in it.
  for (QWidget* w : std::initializer_list<QWidget*>{frames_[0], frames_[1], frames_[2], frames_[3], check1_,
                                                    text3_, command2_})
    w->setEnabled(!hold);
  EnableSort();
}

void SortForm::closeEvent(QCloseEvent* event) {
  if (sorting_) return event->ignore();
  QDialog::closeEvent(event);
}

void SortForm::reject() {
  if (!sorting_) QDialog::reject();
}

void mnusortpuz(GameState& s, UserInterface& ui, QWidget* mainWindow) {
  SortForm form(s.session.rng, ui, s.session.AppFolder, mainWindow);
  if (mainWindow) form.setPalette(mainWindow->palette());
  form.Activate(s.session.CurrentPuzzleFile);
  form.exec();
}

}  // namespace velmora
