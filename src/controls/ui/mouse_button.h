// A push button that also reports which mouse button released it, for the
// buttons that act differently on a right click.
#pragma once

#include <QPushButton>

namespace velmora {

class MouseButton : public QPushButton {
  Q_OBJECT

 public:
  using QPushButton::QPushButton;

 signals:
  // kLeftButton or kRightButton, released over the button.
  void MouseUp(int button);

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
};

}  // namespace velmora
