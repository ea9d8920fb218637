// A small picture of what a colour scheme paints: two board cells with a red
// and a black card, the puzzle-title box and a button face.
#pragma once

#include <QColor>
#include <QWidget>

#include "board/ui/board_painter.h"
#include "model/game_state.h"

namespace velmora {

class SchemePreview : public QWidget {
  Q_OBJECT

 public:
  explicit SchemePreview(QWidget* parent = nullptr);

  void SetColors(QColor background, QColor titleBox, QColor buttonFace);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Puzzle cells_;  // the two sample cards' board
  SuitStrip strip_;
  QColor background_, titleBox_, buttonFace_;
};

}  // namespace velmora
