// Main window: its controls laid out and wired to the commands.
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/app_commands.h"
#include "app/ui/form1.h"
#include "board/geometry.h"
#include "board/marks.h"
#include "board/play.h"
#include "board/ui/board_view.h"
#include "controls/ui/fndialog.h"
#include "controls/ui/local_text.h"
#include "controls/ui/mouse_button.h"
#include "creation/create_commands.h"
#include "files/file_commands.h"
#include "model/commands.h"

namespace velmora {

void Form1::BuildControls() {
  auto* central = new QWidget(this);
  auto* outer = new QVBoxLayout(central);
  outer->addLayout(BuildTopRow(central));
  // The board, taking what room the window gives at its twips layout scaled,
  // and beside it the four suit panels and the buttons.
  auto* middle = new QHBoxLayout;
  BuildBoard(central);
  middle->addWidget(board_, 1);
  middle->addLayout(BuildSidePanel(central));
  outer->addLayout(middle, 1);
  outer->addLayout(BuildStatusLine(central));
  BuildProgressPanel();

  gf1_ = new FNDialog(central);
  gf1_->setObjectName(QStringLiteral("gf1"));
  gf1_->hide();

  BuildHiddenButtons(central);
  setCentralWidget(central);
}

QLayout* Form1::BuildTopRow(QWidget* parent) {
  // Puzzle number, count and title.
  auto* numberCaption = new QLabel(tr("Puzzle"), parent);
  puzNumNow_ = new QLineEdit(parent);
  puzNumNow_->setObjectName(QStringLiteral("PuzNumNow"));
  connect(puzNumNow_, &QLineEdit::textEdited, this, [this](const QString& t) { s_.view.PuzNumNow = S(t); });
  connect(puzNumNow_, &QLineEdit::returnPressed, this, [this] { Run(PuzNumNowEnter); });
  puzNumNow_->setAlignment(Qt::AlignRight);
  puzNumNow_->setFixedWidth(puzNumNow_->fontMetrics().horizontalAdvance(QStringLiteral("00000")) + 12);
  maxPuzCount_ = new QLabel(parent);
  maxPuzCount_->setObjectName(QStringLiteral("MaxPuzCount"));
  maxPuzCount_->setMinimumWidth(maxPuzCount_->fontMetrics().horizontalAdvance(QStringLiteral(" of 00000")));
  puzTitle_ = new QLineEdit(parent);
  puzTitle_->setObjectName(QStringLiteral("PuzTitle"));
  // Room for a title the program gives, at any text size.
  puzTitle_->setMinimumWidth(
      puzTitle_->fontMetrics().horizontalAdvance(QStringLiteral("VHard 00/00/0000 00:00:00")) + 16);
  connect(puzTitle_, &QLineEdit::textEdited, this, [this](const QString& t) { s_.view.PuzTitle = S(t); });
  // The `arrows` buttons: previous, next and random puzzle.
  const QString arrowTexts[3] = {QStringLiteral("<"), QStringLiteral(">"), QStringLiteral("?")};
  for (int i = 0; i < 3; ++i) {
    auto* arrow = new MouseButton(arrowTexts[i], parent);
    arrow->setObjectName(QStringLiteral("arrows%1").arg(i));
    arrow->setToolTip(QString::fromLatin1(kArrowToolTips[i]));
    arrow->setAutoDefault(false);
    arrow->setFixedWidth(arrow->fontMetrics().horizontalAdvance(QStringLiteral("WW")) + 12);
    connect(arrow, &MouseButton::MouseUp, this, [this, i](int button) {
      Run([i, button](GameState& s, UserInterface& ui) { arrowsMouseUp(s, ui, i, button); });
    });
    arrows_[static_cast<size_t>(i)] = arrow;
  }
  auto* top = new QHBoxLayout;
  top->addWidget(arrows_[0]);
  top->addWidget(numberCaption);
  top->addWidget(puzNumNow_);
  top->addWidget(maxPuzCount_);
  top->addWidget(arrows_[1]);
  top->addWidget(arrows_[2]);
  top->addSpacing(8);
  top->addWidget(puzTitle_, 1);
  return top;
}

void Form1::BuildBoard(QWidget* parent) {
  board_ = new BoardView(s_, parent);
  board_->onMouseUp = [this](int button, float x, float y) {
    // The progress panel lies over the board, so the board stays enabled
    // for its Cancel button; clicks on the board itself wait.
    if (longCommand_) return;
    timing_.ClickStarted();
    const int drawsBefore = cellDraws_;
    Kept([&] { Picture1MouseUp(s_, *this, button, x, y); });
    ControlsChanged();
    timing_.ClickHandled(cellDraws_ != drawsBefore);
  };
  board_->onMarkClick = [this](float x, float y) {
    if (longCommand_) return;
    Kept([&] { CycleMark(s_, *this, x, y); });
    ControlsChanged();
  };
  board_->onNoteClick = [this](float x, float y) {
    if (longCommand_) return;
    Kept([&] { NoteChosenRank(s_, *this, x, y); });
    ControlsChanged();
  };
  board_->onMouseMove = [this](float x, float y) {
    if (longCommand_) return;
    Picture1MouseMove(s_, *this, x, y);
    ControlsChanged();
  };
  board_->onPainted = [this] { timing_.Painted(); };
  board_->onResized = [this] { PlaceProgressPanel(); };  // the board repaints itself
}

QLayout* Form1::BuildSidePanel(QWidget* parent) {
  auto* side = new QVBoxLayout;
  QFont boldFont = font();
  boldFont.setBold(true);
  const QFontMetrics bold(boldFont);
  const QSize cell(bold.horizontalAdvance(QStringLiteral("WW")) + 12, bold.height() + 8);
  for (int i = 0; i < 4; ++i) {
    auto* list = new QListWidget(parent);
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
  return side;
}

QLayout* Form1::BuildStatusLine(QWidget* parent) {
  // What the pointer is over, and the row and column of the last click.
  auto* bottom = new QHBoxLayout;
  pb_ = new QLabel(parent);
  pb_->setObjectName(QStringLiteral("pb"));
  pb_->setFrameShape(QFrame::StyledPanel);
  pb_->setFrameShadow(QFrame::Sunken);
  pb_->setMinimumWidth(1);
  label3_ = new QLabel(parent);
  label3_->setObjectName(QStringLiteral("Label3"));
  label4_ = new QLabel(parent);
  label4_->setObjectName(QStringLiteral("Label4"));
  const QFontMetrics fm(font());
  for (QLabel* l : {label3_, label4_}) {
    l->setFrameShape(QFrame::StyledPanel);
    l->setFrameShadow(QFrame::Sunken);
    l->setAlignment(Qt::AlignCenter);
    l->setFixedWidth(fm.horizontalAdvance(QStringLiteral("00")) + 12);
  }
  bottom->addWidget(pb_, 1);
  bottom->addWidget(BuildClockLabel(parent));
  bottom->addWidget(new QLabel(tr("Row"), parent));
  bottom->addWidget(label3_);
  bottom->addWidget(new QLabel(tr("Col"), parent));
  bottom->addWidget(label4_);
  return bottom;
}

void Form1::BuildProgressPanel() {
  // Over the board, shown while a long command runs.
  frame1_ = new QFrame(board_);
  frame1_->setObjectName(QStringLiteral("Frame1"));
  frame1_->setFrameShape(QFrame::StyledPanel);
  frame1_->setAutoFillBackground(true);
  PlaceProgressPanel();
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
}

void Form1::PlaceProgressPanel() {
  if (!frame1_) return;
  // Over the 7x7 grid exactly, so no cell border shows beside it.
  const QPointF topLeft = board_->TwipsToPixels(QPointF(kBoardMargin, kBoardMargin));
  const QPointF bottomRight = board_->TwipsToPixels(
      QPointF(kBoardMargin + kBoardSize * kCellSize, kBoardMargin + kBoardSize * kCellSize));
  // One pixel more takes in the grid's last line.
  frame1_->setGeometry(QRectF(topLeft, bottomRight).toRect().adjusted(0, 0, 1, 1));
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
  kickinOptions_ =
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

QPushButton* Form1::Button(const QString& objectName, const QString& text, const QString& tip,
                           Command command) {
  auto* b = new QPushButton(text, this);
  b->setObjectName(objectName);
  if (!tip.isEmpty()) b->setToolTip(tip);
  b->setAutoDefault(false);
  if (command)
    connect(b, &QPushButton::clicked, this, [this, command = std::move(command)] { Run(command); });
  return b;
}

}  // namespace velmora
