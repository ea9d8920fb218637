// Main window: running commands, the UserInterface they speak through, colours and dialogs.
#include "app/ui/form1.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include "app/app_commands.h"
#include "app/startup.h"
#include "app/ui/about_form.h"
#include "app/ui/help_window.h"
#include "appearance/color_scheme.h"
#include "appearance/ui/form2.h"
#include "board/ui/board_view.h"
#include "controls/ui/colors.h"
#include "controls/ui/fndialog.h"
#include "controls/ui/local_text.h"
#include "creation/create_commands.h"
#include "creation/ui/form3.h"
#include "model/commands.h"
#include "printing/ui/print_menu.h"

namespace velmora {
namespace {

const QString kTitle = QStringLiteral("Velmora");

}  // namespace

Form1::Form1(QWidget* parent) : QMainWindow(parent) {
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(kTitle);
  systemButtonFace_ = QApplication::palette().color(QPalette::Button);
  s_.look.Scheme = DefaultSchemeColors();
  printMenu_ = std::make_unique<PrintMenu>(this);
  BuildControls();
  BuildMenus();
  BuildAssist();
  // It opens with the board at its own size (Qt would hold a new window to
  // two thirds of the screen); then the person may make it larger or smaller.
  if (const QScreen* screen = QGuiApplication::primaryScreen())
    resize(sizeHint().boundedTo(screen->availableSize()));
}

Form1::~Form1() {
  if (busy_) QApplication::restoreOverrideCursor();
}

void Form1::Run(const Command& command) {
  if (longCommand_) return;
  Kept([&] { command(s_, *this); });
  ControlsChanged();
}

void Form1::RunLong(const Command& command) {
  if (longCommand_) return;
  longCommand_ = true;
  HoldControls(true);
  ClockFollows();
  Kept([&] { command(s_, *this); });
  HoldControls(false);
  longCommand_ = false;
  ClockFollows();
  ControlsChanged();
  if (closeAfterLong_) close();
}

void Form1::HoldControls(bool hold) {
  if (!hold) {
    for (const QPointer<QAction>& a : heldActions_) {
      if (a) a->setEnabled(true);
    }
    for (const QPointer<QWidget>& w : heldWidgets_) {
      if (w) w->setEnabled(true);
    }
    heldActions_.clear();
    heldWidgets_.clear();
    return;
  }
  // Only what is enabled now is disabled, and later enabled again.
  auto holdAction = [this](QAction* a) {
    if (!a->isEnabled()) return;
    a->setEnabled(false);
    heldActions_.emplace_back(a);
  };
  for (QAction* top : menuBar()->actions()) {
    holdAction(top);
    if (QMenu* menu = top->menu()) {
      for (QAction* a : menu->actions()) holdAction(a);
    }
  }
  std::vector<QWidget*> widgets{puzNumNow_, puzTitle_, undoEdit_, cmdexit_};
  widgets.insert(widgets.end(), arrows_.begin(), arrows_.end());
  widgets.insert(widgets.end(), remain_.begin(), remain_.end());
  widgets.insert(widgets.end(), hiddenButtons_.begin(), hiddenButtons_.end());
  for (QWidget* w : widgets) {
    if (!w->isEnabled()) continue;
    w->setEnabled(false);
    heldWidgets_.emplace_back(w);
  }
}

Form3* Form1::CreateDialog() {
  if (!form3_) {
    form3_ = new Form3(this);
    form3_->setPalette(palette());
  }
  return form3_;
}

void Form1::MultiplePuzzles() {
  if (RefusedWhileSolving(s_.session, *this)) return;
  const Form3Values form = CreateDialog()->Ask(s_.session.CurrentPuzzleFile, s_.session.AppFolder);
  if (!form.created) return;
  RunLong([form](GameState& s, UserInterface& ui) { mnumultipuzx(s, ui, form); });
}

void Form1::ShowOptions() {
  Form2 dialog(s_.session.AppFolder, s_.look, *this, this, [this] { kickinOptions_->click(); });
  dialog.exec();
}

void Form1::PrintPreview() { printMenu_->Preview(s_); }

int Form1::TransformLevel() const { return form3_ ? form3_->Values().level : kLevelRandom; }

void Form1::StartUp(const std::string& appFolder) {
  // Open before the first load, so that its kept board comes back with it.
  OpenKeeping(FolderWithSlash(appFolder));
  Kept([&] { velmora::StartUp(s_, *this, appFolder, [this] { SetCol(); }); });
  LoadAssist();
  ControlsChanged();
}

void Form1::SetCol() {
  const SchemeColors c =
      EffectiveColors(s_.look.Scheme, s_.look.ColorSchemeName, FromColor(systemButtonFace_));
  const QColor background = ToColor(c[kSchemeBackground]);
  const QColor buttonFace = ToColor(c[kSchemeButtonFace]);
  QPalette pal = palette();
  pal.setColor(QPalette::Window, background);
  pal.setColor(QPalette::Button, background);
  setPalette(pal);
  SetRole(puzTitle_, QPalette::Base, ToColor(c[kSchemeTitleBox]));
  for (QPushButton* b : {undoEdit_, cmdexit_, cmdcancel_, arrows_[0], arrows_[1], arrows_[2]}) {
    SetRole(b, QPalette::Button, buttonFace);
  }
  board_->SetSurfaceColor(background);
  if (help_) help_->setPalette(pal);
  if (about_) about_->setPalette(pal);
  if (form3_) form3_->setPalette(pal);
}

void Form1::Exit() {
  if (!cmdexit(s_, *this)) return;
  close();
}

void Form1::closeEvent(QCloseEvent* event) {
  // A long command is still using the window from its yields: the close box
  // presses Cancel, and the window closes as soon as the command returns,
  // with nothing more shown.
  if (longCommand_) {
    event->ignore();
    closeAfterLong_ = true;
    cmdcancel(s_, *this);
    ControlsChanged();
    return;
  }
  if (help_) help_->close();
  if (about_) about_->close();
  if (keeper_) keeper_->Close(clock_.Ms());
  event->accept();
}

void Form1::ShowHelp() {
  if (!help_) {
    help_ = new Form4(QString::fromLocal8Bit((s_.session.ShippedFolder + kHelpPage).c_str()), this);
    help_->setPalette(palette());
  }
  help_->show();
  help_->raise();
  help_->activateWindow();
}

void Form1::ShowAbout() {
  if (!about_) {
    about_ = NewAboutForm(this, s_.session.AppFolder);
    about_->setPalette(palette());
  }
  about_->show();
  about_->raise();
}

void Form1::ShowMessage(const std::string& text) {
  if (closeAfterLong_) return;  // the person has asked to leave
  QMessageBox box(QMessageBox::NoIcon, kTitle, Q(text), QMessageBox::Ok, isVisible() ? this : nullptr);
  box.exec();
}

bool Form1::AskYesNo(const std::string& text) {
  if (closeAfterLong_) return false;
  QMessageBox box(QMessageBox::Question, kTitle, Q(text), QMessageBox::Yes | QMessageBox::No,
                  isVisible() ? this : nullptr);
  box.setDefaultButton(QMessageBox::Yes);
  return box.exec() == QMessageBox::Yes;
}

std::string Form1::AskFileName(const FileDialogRequest& request) {
  gf1_->SetTitle(Q(request.title));
  gf1_->SetFileTypes(Q(request.fileTypes));
  gf1_->SetFileTypesName(Q(request.fileTypesName));
  gf1_->SetDefaultDir(Q(request.defaultDir));
  return S(gf1_->ShowFileDialog(Q(request.mode)));
}

std::string Form1::AskText(const std::string& prompt) {
  bool ok = false;
  const QString text = QInputDialog::getText(this, kTitle, Q(prompt), QLineEdit::Normal, QString(), &ok);
  return ok ? S(text) : std::string();
}

void Form1::SetBusy(bool busy) {
  if (busy == busy_) return;
  busy_ = busy;
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void Form1::Yield() { QCoreApplication::processEvents(); }

void Form1::ControlsChanged() {
  const WindowTexts& v = s_.view;
  if (puzNumNow_->text() != Q(v.PuzNumNow)) puzNumNow_->setText(Q(v.PuzNumNow));
  maxPuzCount_->setText(Q(v.MaxPuzCount));
  if (puzTitle_->text() != Q(v.PuzTitle)) {
    puzTitle_->setText(Q(v.PuzTitle));
    puzTitle_->setCursorPosition(0);  // a title too long for the box shows its beginning
  }
  puzTitle_->setToolTip(Q(v.PuzTitle));
  setWindowTitle(v.Caption.empty() ? kTitle : Q(v.Caption));
  pb_->setText(Q(v.pb));
  label3_->setText(Q(v.Label3));
  label4_->setText(Q(v.Label4));
  // A long output path has no blank to wrap at; its middle gives way so the
  // panel keeps both ends, and the tool tip has the whole text.
  const QString newLab = Q(v.NewLab);
  QStringList lines = newLab.split(QLatin1Char('\n'));
  const int room = frame1_->contentsRect().width() - 2 * frame1_->layout()->contentsMargins().left();
  for (QString& line : lines) line = newLab_->fontMetrics().elidedText(line, Qt::ElideMiddle, room);
  newLab_->setText(lines.join(QLatin1Char('\n')));
  newLab_->setToolTip(newLab);
  if (v.Frame1Visible && !frame1_->isVisible()) frame1_->raise();
  frame1_->setVisible(v.Frame1Visible);
  for (int i = 0; i < 4; ++i) FillRemain(i);
  ShowSelection();
  board_->ShowAids(shadeFits_ && shadeFits_->isChecked(), optionsInCells_ && optionsInCells_->isChecked());
}

void Form1::FillRemain(int list) {
  QListWidget* w = remain_[list];
  const auto& items = s_.view.Remain[list];
  bool same = w->count() == static_cast<int>(items.size());
  for (int i = 0; same && i < w->count(); ++i) same = w->item(i)->text() == Q(items[i]);
  if (same) return;
  w->clear();
  const QColor colour = SuitQColor(list + 1);
  for (const std::string& text : items) {
    auto* item = new QListWidgetItem(Q(text), w);
    item->setTextAlignment(Qt::AlignCenter);
    item->setForeground(colour);
    QFont boldFont = item->font();
    boldFont.setBold(true);
    item->setFont(boldFont);
  }
}

void Form1::ShowSelection() {
  // At most one item of the four lists is selected: the selected card's.
  const QString selected = Q(s_.session.SelectedCard);
  for (QListWidget* w : remain_) {
    for (int i = 0; i < w->count(); ++i) {
      QListWidgetItem* item = w->item(i);
      const bool on = !selected.isEmpty() && item->text() == selected;
      if (item->isSelected() != on) item->setSelected(on);
    }
  }
}

QColor Form1::CellColor() const {
  // Read when painting: a colour picked in the options dialog shows on the
  // cells painted next, before the scheme is applied to the windows.
  const SchemeColors c =
      EffectiveColors(s_.look.Scheme, s_.look.ColorSchemeName, FromColor(systemButtonFace_));
  return ToColor(c[kSchemeBackground]);
}

void Form1::DrawBoard() {
  SetBoardColors();
  board_->DrawBoard();
}

void Form1::DrawCell(int rank, const std::string& suitLetter, int row, int col) {
  ++cellDraws_;
  SetBoardColors();
  // An undo paints its cell blank; a mark of the player's own shows again.
  const bool inBoard = row >= 1 && row <= LoopRows(s_.puzzle) && col >= 1 && col <= LoopCols(s_.puzzle);
  const int v = inBoard ? s_.puzzle.Grid[row][col] : 0;
  if (suitLetter.empty() && v < 0 && v >= -4 && s_.puzzle.PuzzleGrid[row][col] == 0) {
    board_->DrawCell(-1, std::string(1, kSuitLetters[-v]), row, col);
    return;
  }
  board_->DrawCell(rank, suitLetter, row, col);
}

void Form1::ShowSolutionOverlay() {
  nextEvent_ = KeeperEvent::kSolutionShown;
  SetBoardColors();
  board_->ShowSolution();
}

void Form1::EnableTimingLog(QElapsedTimer sinceStart) { timing_.Enable(sinceStart); }

}  // namespace velmora
