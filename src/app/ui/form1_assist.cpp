// Main window: the Assist menu's check items and keys, and keyboard play on
// the board and the suit panels.
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <cctype>

#include "app/settings.h"
#include "app/ui/form1.h"
#include "appearance/color_scheme.h"
#include "board/aids.h"
#include "board/marks.h"
#include "board/ui/board_view.h"

namespace velmora {

void Form1::BuildAssist() {
  hint_->setShortcut(QKeySequence(Qt::Key_H));
  redo_->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
  shadeFits_->setCheckable(true);
  markGivens_->setCheckable(true);
  optionsInCells_->setCheckable(true);
  keepBoards_->setCheckable(true);
  auto* undo = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z), this);
  connect(undo, &QShortcut::activated, undoEdit_, [this] {
    if (undoEdit_->isEnabled()) undoEdit_->click();
  });
  board_->onKey = [this](QKeyEvent* event) { return AssistKey(event); };
  for (QListWidget* list : remain_) list->installEventFilter(this);
  board_->installEventFilter(this);
}

void Form1::LoadAssist() {
  const Settings saved = LoadSettings(s_.session.AppFolder);
  shadeFits_->setChecked(saved.shadeFits);
  markGivens_->setChecked(saved.markGivens);
  optionsInCells_->setChecked(saved.optionsInCells);
  keepBoards_->setChecked(saved.keepBoards);
  ClockFollows();
  if (markGivens_->isChecked()) DrawBoard();
}

void Form1::ApplyAids() {
  // A file that cannot be written keeps the choice for this session only, without a word.
  ChangeSettings(s_.session.AppFolder, [this](Settings& saved) {
    saved.shadeFits = shadeFits_->isChecked();
    saved.markGivens = markGivens_->isChecked();
    saved.optionsInCells = optionsInCells_->isChecked();
  });
  DrawBoard();
}

void Form1::SetBoardColors() {
  const QColor cell = CellColor();
  board_->SetCellColor(cell);
  // Darker than the cells, lighter ones a little more, so a given stands out
  // on any scheme.
  board_->SetGivenColor(markGivens_ && markGivens_->isChecked() ? cell.darker(cell.value() > 128 ? 118 : 140)
                                                                : QColor());
}

bool Form1::AssistKey(QKeyEvent* event) {
  if (longCommand_ || event->modifiers().testFlag(Qt::ControlModifier)) return false;
  // Alt and a rank letter turns that rank's note in the cursor's cell on or off.
  if (event->modifiers().testFlag(Qt::AltModifier)) {
    const int rank = RankOfLetter(static_cast<char>(std::toupper(event->key() & 0x7f)));
    const int row = s_.session.aids.cursorRow, col = s_.session.aids.cursorCol;
    if (rank == 0 || event->key() > 0x7f || row < 1 || col < 1) return false;
    Kept([&] { NoteCell(s_, *this, row, col, s_.puzzle.Notes[row][col] ^ (1 << (rank - 1))); });
    ControlsChanged();
    return true;
  }
  switch (event->key()) {
    case Qt::Key_Left:
      MoveCursor(s_, *this, 0, -1);
      break;
    case Qt::Key_Right:
      MoveCursor(s_, *this, 0, 1);
      break;
    case Qt::Key_Up:
      MoveCursor(s_, *this, -1, 0);
      break;
    case Qt::Key_Down:
      MoveCursor(s_, *this, 1, 0);
      break;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
      Kept([this] { ClearAtCursor(s_, *this); });
      break;
    default: {
      const QString text = event->text();
      if (text.size() != 1 || !text[0].isLetterOrNumber()) return false;
      // Shift and a suit letter, with no rank typed before it, marks the
      // cursor's cell with that suit, or takes the same mark away.
      const auto suit = kSuitOrder.find(text[0].toLatin1());
      if (event->modifiers().testFlag(Qt::ShiftModifier) && s_.session.aids.pendingRank == 0 &&
          suit != std::string_view::npos) {
        const int row = s_.session.aids.cursorRow, col = s_.session.aids.cursorCol;
        const bool same = row >= 1 && col >= 1 && s_.puzzle.Grid[row][col] == -static_cast<int>(suit + 1);
        Kept([&] { MarkCell(s_, *this, row, col, same ? 0 : static_cast<int>(suit + 1)); });
        break;
      }
      Kept([&] { TypeLetter(s_, *this, text[0].toLatin1()); });
    }
  }
  ControlsChanged();
  return true;
}

bool Form1::eventFilter(QObject* watched, QEvent* event) {
  // A suit letter after a rank belongs to the card, not to the Hint key.
  if (event->type() == QEvent::ShortcutOverride && s_.session.aids.pendingRank != 0) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const QString suits = QString::fromLatin1(kSuitOrder.data(), static_cast<qsizetype>(kSuitOrder.size()));
    if (key->modifiers() == Qt::NoModifier && (suits + suits.toLower()).contains(key->text()) &&
        !key->text().isEmpty()) {
      event->accept();
      return true;
    }
  }
  // The suit panels pass the keys of keyboard play on to the board.
  if (event->type() == QEvent::KeyPress && watched != board_ && AssistKey(static_cast<QKeyEvent*>(event))) {
    return true;
  }
  return QMainWindow::eventFilter(watched, event);
}

}  // namespace velmora
