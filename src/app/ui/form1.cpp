// Main window: the board, suit panels, puzzle fields and menus, wired to the commands.
#include "app/ui/form1.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <cstdio>

#include "app/app_commands.h"
#include "app/startup.h"
#include "app/ui/about_folder.h"
#include "app/ui/help_window.h"
#include "appearance/color_scheme.h"
#include "appearance/ui/form2.h"
#include "board/geometry.h"
#include "board/play.h"
#include "board/ui/board_view.h"
#include "controls/ui/fndialog.h"
#include "controls/ui/mouse_button.h"
#include "creation/create_commands.h"
#include "creation/ui/form3.h"
#include "files/file_commands.h"
#include "files/ui/sort_form.h"
#include "model/commands.h"
#include "printing/ui/print_menu.h"

namespace velmora {
namespace {

const QString kTitle = QStringLiteral("Velmora");

QString Q(const std::string& text) {
  QString s = QString::fromLocal8Bit(text.data(), static_cast<qsizetype>(text.size()));
  return s.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

std::string S(const QString& text) { return text.toLocal8Bit().toStdString(); }

QColor ToColor(uint32_t c) { return QColor(RedOf(c), GreenOf(c), BlueOf(c)); }
uint32_t FromColor(const QColor& c) { return Rgb(c.red(), c.green(), c.blue()); }

void SetRole(QWidget* w, QPalette::ColorRole role, const QColor& colour) {
  QPalette pal = w->palette();
  pal.setColor(role, colour);
  w->setPalette(pal);
}

}  // namespace

Form1::Form1(QWidget* parent) : QMainWindow(parent) {
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(kTitle);
  systemButtonFace_ = QApplication::palette().color(QPalette::Button);
  s_.Scheme = DefaultSchemeColors();
  BuildControls();
  BuildMenus();
}

Form1::~Form1() {
  if (busy_) QApplication::restoreOverrideCursor();
}

void Form1::BuildControls() {
  auto* central = new QWidget(this);
  auto* outer = new QVBoxLayout(central);

  // Puzzle number, count and title.
  auto* top = new QHBoxLayout;
  auto* numberCaption = new QLabel(tr("Puzzle"), central);
  puzNumNow_ = new QLineEdit(central);
  puzNumNow_->setObjectName(QStringLiteral("PuzNumNow"));
  connect(puzNumNow_, &QLineEdit::textEdited, this, [this](const QString& t) { s_.view.PuzNumNow = S(t); });
  connect(puzNumNow_, &QLineEdit::returnPressed, this, [this] { Run(PuzNumNowEnter); });
  puzNumNow_->setAlignment(Qt::AlignRight);
  puzNumNow_->setFixedWidth(puzNumNow_->fontMetrics().horizontalAdvance(QStringLiteral("00000")) + 12);
  maxPuzCount_ = new QLabel(central);
  maxPuzCount_->setObjectName(QStringLiteral("MaxPuzCount"));
  maxPuzCount_->setMinimumWidth(maxPuzCount_->fontMetrics().horizontalAdvance(QStringLiteral(" of 00000")));
  puzTitle_ = new QLineEdit(central);
  puzTitle_->setObjectName(QStringLiteral("PuzTitle"));
  connect(puzTitle_, &QLineEdit::textEdited, this, [this](const QString& t) { s_.view.PuzTitle = S(t); });
  // The `arrows` buttons: previous, next and random puzzle.
  const QString arrowTexts[3] = {QStringLiteral("<"), QStringLiteral(">"), QStringLiteral("?")};
  for (int i = 0; i < 3; ++i) {
    auto* arrow = new MouseButton(arrowTexts[i], central);
    arrow->setObjectName(QStringLiteral("arrows%1").arg(i));
    arrow->setToolTip(QString::fromLatin1(kArrowToolTips[i]));
    arrow->setAutoDefault(false);
    arrow->setFixedWidth(arrow->fontMetrics().horizontalAdvance(QStringLiteral("WW")) + 12);
    connect(arrow, &MouseButton::MouseUp, this,
            [this, i](int button) { Run([i, button](GameState& s, UserInterface& ui) { arrowsMouseUp(s, ui, i, button); }); });
    arrows_[static_cast<size_t>(i)] = arrow;
  }
  top->addWidget(arrows_[0]);
  top->addWidget(numberCaption);
  top->addWidget(puzNumNow_);
  top->addWidget(maxPuzCount_);
  top->addWidget(arrows_[1]);
  top->addWidget(arrows_[2]);
  top->addSpacing(8);
  top->addWidget(puzTitle_, 1);
  outer->addLayout(top);

  // The board and, beside it, the four suit panels and the buttons.
  auto* middle = new QHBoxLayout;
  board_ = new BoardView(s_, central);
  board_->onMouseUp = [this](int button, float x, float y) {
    // The progress panel lies over the board, so the board stays enabled
    // for its Cancel button; clicks on the board itself wait.
    if (longCommand_) return;
    placement_.start();
    const int drawsBefore = cellDraws_;
    Picture1MouseUp(s_, *this, button, x, y);
    ControlsChanged();
    // Only a click that painted a cell is timed, up to the cell on screen.
    placementPending_ = timing_ && cellDraws_ != drawsBefore;
    if (placementPending_) {
      std::fprintf(stderr, "velmora: click handled (update, check, controls) %.3f ms\n", placement_.nsecsElapsed() / 1e6);
    }
  };
  board_->onMouseMove = [this](float x, float y) {
    if (longCommand_) return;
    Picture1MouseMove(s_, *this, x, y);
    ControlsChanged();
  };
  board_->onPainted = [this] { Painted(); };
  middle->addWidget(board_, 0, Qt::AlignTop);

  auto* side = new QVBoxLayout;
  const QFontMetrics fm(font());
  QFont boldFont = font();
  boldFont.setBold(true);
  const QFontMetrics bold(boldFont);
  const QSize cell(bold.horizontalAdvance(QStringLiteral("WW")) + 12, bold.height() + 8);
  for (int i = 0; i < 4; ++i) {
    auto* list = new QListWidget(central);
    list->setObjectName(QStringLiteral("Remain%1").arg(i));
    list->setProperty("index", i);
    list->setFlow(QListView::LeftToRight);
    list->setWrapping(true);
    list->setResizeMode(QListView::Adjust);
    list->setGridSize(cell);
    list->setUniformItemSizes(true);
    list->setTextElideMode(Qt::ElideNone);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // 13 cards fit in 4 x 4
    const int frame = 2 * list->frameWidth() + 4;
    list->setFixedSize(4 * cell.width() + frame, 4 * cell.height() + frame);
    connect(list, &QListWidget::itemClicked, this, [this, i](QListWidgetItem* item) {
      if (longCommand_) return;
      RemainClick(s_, *this, i, item ? remain_[i]->row(item) : -1);
      ControlsChanged();
    });
    remain_[i] = list;
    side->addWidget(list);
  }
  side->addStretch(1);
  undoEdit_ = Button(QStringLiteral("UndoEdit"), tr("Undo"), QStringLiteral("Undo last change"), UndoEdit);
  cmdexit_ = Button(QStringLiteral("cmdexit"), tr("Exit"), QString(), nullptr);
  connect(cmdexit_, &QPushButton::clicked, this, [this] { Exit(); });
  side->addWidget(undoEdit_);
  side->addWidget(cmdexit_);
  middle->addLayout(side);
  outer->addLayout(middle);

  // Status line: what the pointer is over, and the row and column of the last click.
  auto* bottom = new QHBoxLayout;
  pb_ = new QLabel(central);
  pb_->setObjectName(QStringLiteral("pb"));
  pb_->setFrameShape(QFrame::StyledPanel);
  pb_->setFrameShadow(QFrame::Sunken);
  pb_->setMinimumWidth(1);
  label3_ = new QLabel(central);
  label3_->setObjectName(QStringLiteral("Label3"));
  label4_ = new QLabel(central);
  label4_->setObjectName(QStringLiteral("Label4"));
  for (QLabel* l : {label3_, label4_}) {
    l->setFrameShape(QFrame::StyledPanel);
    l->setFrameShadow(QFrame::Sunken);
    l->setAlignment(Qt::AlignCenter);
    l->setFixedWidth(fm.horizontalAdvance(QStringLiteral("00")) + 12);
  }
  bottom->addWidget(pb_, 1);
  bottom->addWidget(new QLabel(tr("Row"), central));
  bottom->addWidget(label3_);
  bottom->addWidget(new QLabel(tr("Col"), central));
  bottom->addWidget(label4_);
  outer->addLayout(bottom);

  // Progress panel over the board, shown while a long command runs.
  frame1_ = new QFrame(board_);
  frame1_->setObjectName(QStringLiteral("Frame1"));
  frame1_->setFrameShape(QFrame::StyledPanel);
  frame1_->setAutoFillBackground(true);
  // Over the 7x7 grid exactly, so no cell border shows beside it.
  const QPointF frameTopLeft = board_->TwipsToPixels(QPointF(kBoardMargin, kBoardMargin));
  const QPointF frameSize = board_->TwipsToPixels(QPointF(7 * kCellSize, 7 * kCellSize));
  // One pixel more takes in the grid's last line.
  frame1_->setGeometry(QRectF(frameTopLeft, QSizeF(frameSize.x(), frameSize.y())).toRect().adjusted(0, 0, 1, 1));
  auto* frameLayout = new QVBoxLayout(frame1_);
  newLab_ = new QLabel(frame1_);
  newLab_->setObjectName(QStringLiteral("NewLab"));
  newLab_->setAlignment(Qt::AlignCenter);
  newLab_->setWordWrap(true);
  // Cancel is the one command that acts while a long command runs, so it
  // does not go through Run.
  cmdcancel_ =
      Button(QStringLiteral("cmdcancel"), tr("Cancel"), QStringLiteral("Cancel current command"), nullptr);
  connect(cmdcancel_, &QPushButton::clicked, this, [this] {
    cmdcancel(s_, *this);
    ControlsChanged();
  });
  cmdcancel_->setParent(frame1_);
  frameLayout->addStretch(1);
  frameLayout->addWidget(newLab_);
  frameLayout->addWidget(cmdcancel_, 0, Qt::AlignHCenter);
  frameLayout->addStretch(1);
  frame1_->hide();

  gf1_ = new FNDialog(central);
  gf1_->setObjectName(QStringLiteral("gf1"));
  gf1_->hide();

  BuildHiddenButtons(central);
  setCentralWidget(central);
  outer->setSizeConstraint(QLayout::SetFixedSize);
}

void Form1::BuildHiddenButtons(QWidget* parent) {
  // Buttons other windows press; they are never shown.
  auto hidden = [&](const QString& name, const QString& text, Command command) {
    QPushButton* b = Button(name, text, QString(), std::move(command));
    b->setParent(parent);
    b->hide();
    hiddenButtons_.push_back(b);
    return b;
  };
  const Command applyScheme = [this](GameState&, UserInterface&) {
    SetCol();
    DrawBoard();
  };
  hidden(QStringLiteral("kickinOptions"), QStringLiteral("kickin options settings"), applyScheme);
  hidden(QStringLiteral("kickinSetCol"), QStringLiteral("kickin SetCol"), applyScheme);
  hidden(QStringLiteral("Command6"), QStringLiteral("CheckSolution"), Command6);
  hidden(QStringLiteral("Command7"), QStringLiteral("ShowSolution"), Command7);
  // The hidden Solve button acts on the release of a mouse button.
  QPushButton* solve = hidden(QStringLiteral("Autosolvex"), QStringLiteral("Solve"), nullptr);
  connect(solve, &QPushButton::released, this, [this] { Run(Autosolvex); });
  // The batch transformation remakes the current puzzle file into its "_new"
  // file at the level the create dialog shows.
  QPushButton* transform =
      hidden(QStringLiteral("cmdmakepuzzles"), QStringLiteral("MakePuzzlesFromFile"), nullptr);
  connect(transform, &QPushButton::clicked, this, [this] {
    const int level = TransformLevel();
    RunLong([level](GameState& s, UserInterface& ui) { cmdmakepuzzles(s, ui, level); });
  });
}

void Form1::BuildMenus() {
  QMenu* file = Menu(QStringLiteral("mnufile"), tr("&File"));
  AddCommand(file, QStringLiteral("mnuloadpuz"), tr("&Load"), mnuloadpuz);
  AddCommand(file, QStringLiteral("mnusaveas"), tr("&Copy"), mnusaveas);
  AddCommand(file, QStringLiteral("mnusortpuz"), tr("&Sort"), mnusortpuz);
  file->addSeparator();
  AddCommand(file, QStringLiteral("mnuexit"), tr("E&xit"), [this](GameState&, UserInterface&) { Exit(); });

  QMenu* puzzle = Menu(QStringLiteral("mnupuzzle"), tr("&Puzzle"));
  AddCommand(puzzle, QStringLiteral("mnupuzreset"), tr("&Reset"), mnupuzreset);
  AddCommand(puzzle, QStringLiteral("mnusaveassli"), tr("Sa&ve"), mnusaveassli);
  AddCommand(puzzle, QStringLiteral("mnuappend"), tr("&Append"), mnuappend);
  AddCommand(puzzle, QStringLiteral("mnudelete"), tr("&Delete"), mnudelete);
  puzzle->addSeparator();
  AddCommand(puzzle, QStringLiteral("mnuviewsol"), tr("Show &Solution"), mnuviewsol);

  QMenu* create = Menu(QStringLiteral("mnucreate"), tr("&Create"));
  AddCommand(create, QStringLiteral("mnunewrandpuzx"), tr("&One Puzzle"), mnunewrandpuzx, true);
  AddCommand(create, QStringLiteral("mnumultipuzx"), tr("&Multiple Puzzles"),
             [this](GameState&, UserInterface&) { MultiplePuzzles(); });

  QMenu* solve = Menu(QStringLiteral("mnusolve"), tr("&Solve"));
  AddCommand(solve, QStringLiteral("mnusolveall"), tr("&AutoSolve"), mnusolveall);
  AddCommand(solve, QStringLiteral("mnurestore"), tr("&Restore"), mnurestore);

  QMenu* print = Menu(QStringLiteral("mnuprint"), tr("P&rint"));
  QMenu* current = CurrentPrintMenu(print);
  AddCommand(current, QStringLiteral("mnuprintcurrentpuz"), tr("&Puzzle"),
             DesktopPrint(this, mnuprintcurrentpuz));
  AddCommand(current, QStringLiteral("mnuprintcurrentsol"), tr("&Solution"),
             DesktopPrint(this, mnuprintcurrentsol));
  AddCommand(current, QStringLiteral("mnuprintcurrent"), tr("Puzzle &and Solution"),
             DesktopPrint(this, mnuprintcurrent));
  AddCommand(print, QStringLiteral("mnuprintfile"), tr("Puzzle &File"), DesktopPrint(this, mnuprintfile));
  AddCommand(print, QStringLiteral("mnuprintpreview"), tr("Print Pre&view"), PrintPreview(this));

  AddCommand(Menu(QStringLiteral("mnuoptionsmenu"), tr("&Options")), QStringLiteral("mnuoptions"),
             tr("&Colors and Size..."), [this](GameState& s, UserInterface& ui) { ShowOptions(s, ui, this); });

  QMenu* help = Menu(QStringLiteral("mnuhelpmenu"), tr("&Help"));
  AddCommand(help, QStringLiteral("mnuhelp"), tr("&Help"), [this](GameState&, UserInterface&) { ShowHelp(); });
  AddCommand(help, QStringLiteral("mnuabout"), tr("&About"), [this](GameState&, UserInterface&) { ShowAbout(); });
}

QMenu* Form1::Menu(const QString& objectName, const QString& title) {
  if (auto* existing = menuBar()->findChild<QMenu*>(objectName)) return existing;
  QMenu* menu = menuBar()->addMenu(title);
  menu->setObjectName(objectName);
  return menu;
}

void Form1::AddCommand(QMenu* menu, const QString& objectName, const QString& text, Command command,
                       bool yields) {
  QAction* action = menu->addAction(text);
  action->setObjectName(objectName);
  connect(action, &QAction::triggered, this, [this, command = std::move(command), yields] {
    if (yields) {
      RunLong(command);
    } else {
      Run(command);
    }
  });
}

QPushButton* Form1::Button(const QString& objectName, const QString& text, const QString& tip, Command command) {
  auto* b = new QPushButton(text, this);
  b->setObjectName(objectName);
  if (!tip.isEmpty()) b->setToolTip(tip);
  b->setAutoDefault(false);
  if (command) connect(b, &QPushButton::clicked, this, [this, command = std::move(command)] { Run(command); });
  return b;
}

void Form1::Run(const Command& command) {
  if (longCommand_) return;
  command(s_, *this);
  ControlsChanged();
}

void Form1::RunLong(const Command& command) {
  if (longCommand_) return;
  longCommand_ = true;
  HoldControls(true);
  command(s_, *this);
  HoldControls(false);
  longCommand_ = false;
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
  if (CreateRefusedWhileSolving(s_, *this)) return;
  const Form3Values form = CreateDialog()->Ask(s_.CurrentPuzzleFile, s_.AppFolder);
  if (form.result != "Y") return;
  RunLong([form](GameState& s, UserInterface& ui) { mnumultipuzx(s, ui, form); });
}

int Form1::TransformLevel() const { return form3_ ? form3_->Values().level : kLevelRandom; }

void Form1::StartUp(const std::string& appFolder) {
  velmora::StartUp(s_, *this, appFolder, [this] { SetCol(); });
  ControlsChanged();
}

void Form1::SetCol() {
  const SchemeColors c = EffectiveColors(s_.Scheme, s_.ColorSchemeName, FromColor(systemButtonFace_));
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
  board_->SetColors(background, background);
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
  event->accept();
}

void Form1::ShowHelp() {
  if (!help_) {
    help_ = new Form4(QString::fromLocal8Bit((s_.ShippedFolder + "velmora.htm").c_str()), this);
    help_->setPalette(palette());
  }
  help_->show();
  help_->raise();
  help_->activateWindow();
}

void Form1::ShowAbout() {
  if (!about_) {
    about_ = NewAboutForm(this);
    ShowFolderInAbout(about_, s_.AppFolder);
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
  const ViewState& v = s_.view;
  if (puzNumNow_->text() != Q(v.PuzNumNow)) puzNumNow_->setText(Q(v.PuzNumNow));
  maxPuzCount_->setText(Q(v.MaxPuzCount));
  if (puzTitle_->text() != Q(v.PuzTitle)) puzTitle_->setText(Q(v.PuzTitle));
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
}

void Form1::FillRemain(int list) {
  QListWidget* w = remain_[list];
  const auto& items = s_.Remain[list];
  bool same = w->count() == static_cast<int>(items.size());
  for (int i = 0; same && i < w->count(); ++i) same = w->item(i)->text() == Q(items[i]);
  if (same) return;
  w->clear();
  const QColor colour = list == 1 || list == 2 ? QColor(200, 9, 9) : QColor(50, 50, 50);
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
  const QString selected = Q(s_.SelectedCard);
  for (QListWidget* w : remain_) {
    for (int i = 0; i < w->count(); ++i) {
      QListWidgetItem* item = w->item(i);
      const bool on = !selected.isEmpty() && item->text() == selected;
      if (item->isSelected() != on) item->setSelected(on);
    }
  }
}

void Form1::DrawBoard() { board_->DrawBoard(); }

void Form1::DrawCell(int rank, const std::string& suitLetter, int row, int col) {
  ++cellDraws_;
  board_->DrawCell(rank, suitLetter, row, col);
}

void Form1::ShowSolutionOverlay() { board_->ShowSolution(); }

void Form1::EnableTimingLog(QElapsedTimer sinceStart) {
  timing_ = true;
  sinceStart_ = sinceStart;
}

void Form1::Painted() {
  if (!timing_) return;
  if (!firstPaintLogged_) {
    firstPaintLogged_ = true;
    std::fprintf(stderr, "velmora: start-up to first painted board %.1f ms\n", sinceStart_.nsecsElapsed() / 1e6);
  }
  if (placementPending_) {
    placementPending_ = false;
    std::fprintf(stderr, "velmora: click to repainted cell %.3f ms\n", placement_.nsecsElapsed() / 1e6);
  }
}

}  // namespace velmora
