// The board as a screen reader sees it: one accessible item per cell.
#pragma once

class QAccessibleInterface;
class QObject;
class QString;

namespace velmora {

// The accessibility factory of BoardView (installed once by the board).
QAccessibleInterface* BoardAccessibleFactory(const QString& className, QObject* object);

// Tells the screen reader that the keyboard cursor moved to cell (row, col).
void AnnounceCursor(QObject* board, int row, int col);

}  // namespace velmora
