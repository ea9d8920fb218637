// The board as a screen reader sees it: one accessible item per cell,
// named by SpokenCellName, the keyboard cursor's cell holding the focus.
#include "board/ui/board_accessible.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <QWindow>
#include <map>

#include "board/cell_names.h"
#include "board/geometry.h"
#include "board/ui/board_view.h"

namespace velmora {
namespace {

class CellAccessible : public QAccessibleInterface {
 public:
  CellAccessible(BoardView* board, int row, int col) : board_(board), row_(row), col_(col) {}
  bool isValid() const override { return !board_.isNull(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return board_ ? board_->window()->windowHandle() : nullptr; }
  QVector<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
      QAccessible::Relation) const override {
    return {};
  }
  QAccessibleInterface* focusChild() const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(board_); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QString text(QAccessible::Text t) const override {
    if (!board_ || t != QAccessible::Name) return {};
    return QString::fromStdString(SpokenCellName(board_->State().puzzle, row_, col_));
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override {
    if (!board_) return {};
    const QPointF a = board_->TwipsToPixels(QPointF(CellX(col_), CellY(row_)));
    const QPointF b = board_->TwipsToPixels(QPointF(CellX(col_) + kCellSize, CellY(row_) + kCellSize));
    return QRect(board_->mapToGlobal(a.toPoint()), board_->mapToGlobal(b.toPoint()));
  }
  QAccessible::Role role() const override { return QAccessible::Cell; }
  QAccessible::State state() const override {
    QAccessible::State s;
    s.focusable = true;
    const PlayAids& a = board_ ? board_->State().session.aids : PlayAids{};
    s.focused = board_ && board_->hasFocus() && a.cursorRow == row_ && a.cursorCol == col_;
    return s;
  }

 private:
  QPointer<BoardView> board_;
  int row_, col_;
};

// Cells are numbered from 0, rows outer, over the board as it stands.
class BoardAccessible : public QAccessibleWidget {
 public:
  explicit BoardAccessible(BoardView* board) : QAccessibleWidget(board, QAccessible::Table), board_(board) {}
  ~BoardAccessible() override {
    for (const auto& [index, id] : cells_) QAccessible::deleteAccessibleInterface(id);
  }
  int childCount() const override { return Rows() * Cols(); }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    const int key = (index / Cols() + 1) * kGridDim + index % Cols() + 1;  // stays with its cell
    auto found = cells_.find(key);
    if (found == cells_.end())
      found = cells_
                  .emplace(key, QAccessible::registerAccessibleInterface(
                                    new CellAccessible(board_, key / kGridDim, key % kGridDim)))
                  .first;
    return QAccessible::accessibleInterface(found->second);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    for (int i = 0; i < childCount(); ++i)
      if (this->child(i) == child) return i;
    return -1;
  }
  QAccessibleInterface* focusChild() const override {
    const PlayAids& a = board_->State().session.aids;
    if (a.cursorRow < 1 || a.cursorRow > Rows() || a.cursorCol < 1 || a.cursorCol > Cols()) return nullptr;
    return child((a.cursorRow - 1) * Cols() + a.cursorCol - 1);
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const QPointF twips = board_->PixelsToTwips(board_->mapFromGlobal(QPoint(x, y)));
    int row = 0, col = 0;
    FindCell(board_->State().puzzle, static_cast<float>(twips.x()), static_cast<float>(twips.y()), row, col);
    return row >= 1 && col >= 1 ? child((row - 1) * Cols() + col - 1) : nullptr;
  }

 private:
  int Rows() const { return LoopRows(board_->State().puzzle); }
  int Cols() const { return LoopCols(board_->State().puzzle); }
  BoardView* board_;
  mutable std::map<int, QAccessible::Id> cells_;
};

}  // namespace

QAccessibleInterface* BoardAccessibleFactory(const QString& className, QObject* object) {
  if (className == QLatin1String("velmora::BoardView") && object && object->isWidgetType())
    return new BoardAccessible(static_cast<BoardView*>(object));
  return nullptr;
}

void AnnounceCursor(QObject* board, int row, int col) {
  auto* view = static_cast<BoardView*>(board);
  const int cols = LoopCols(view->State().puzzle);
  if (row < 1 || col < 1 || col > cols) return;
  QAccessibleEvent event(board, QAccessible::Focus);
  event.setChild((row - 1) * cols + col - 1);
  QAccessible::updateAccessibility(&event);
}

}  // namespace velmora
