// A push button that also reports which mouse button released it.
#include "controls/ui/mouse_button.h"

#include <QMouseEvent>

#include "board/play.h"

namespace velmora {

void MouseButton::mouseReleaseEvent(QMouseEvent* event) {
  const bool inside = rect().contains(event->position().toPoint());
  const Qt::MouseButton which = event->button();
  QPushButton::mouseReleaseEvent(event);
  if (!inside || !isEnabled()) return;
  if (which == Qt::LeftButton) emit MouseUp(kLeftButton);
  if (which == Qt::RightButton) emit MouseUp(kRightButton);
}

}  // namespace velmora
