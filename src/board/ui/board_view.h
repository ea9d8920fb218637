// Picture1: the board picture, a kept image that cells are painted into.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>
#include <array>
#include <functional>
#include <string>

#include "board/ui/board_painter.h"
#include "model/game_state.h"

class QKeyEvent;

namespace velmora {

class BoardView : public QWidget {
  Q_OBJECT

 public:
  explicit BoardView(const GameState& state, QWidget* parent = nullptr);
  // What the board shows, for the screen reader's cells.
  const GameState& State() const { return s_; }

  // The fill of the cells painted from now on: scheme colour 2.
  void SetCellColor(QColor color) { cell_ = color; }
  // The picture's own background, which shows around the board and inside
  // empty cells: the window's background as the scheme was last applied.
  void SetSurfaceColor(QColor color) { surface_ = color; }
  // Givens painted from now on in `color`; an invalid colour paints them
  // as every other card.
  void SetGivenColor(QColor color) { given_ = color; }
  // The aids drawn over the picture, never into it: the cells where the
  // selected card fits (when `shade`), the hint's cell, the keyboard cursor,
  // and (when `options`) what each empty cell can still take. Repaints when
  // what they show has changed.
  void ShowAids(bool shade, bool options = false);
  void DrawBoard();
  void DrawCell(int rank, const std::string& suitLetter, int row, int col);
  void ShowSolution();

  // What is on the picture now, one image pixel per device pixel, and where
  // a twips position is on it.
  const QImage& Image() const { return image_; }
  QPointF TwipsToImage(QPointF twips) const;
  // Twips <-> widget pixels: the board keeps its twips layout, scaled to the
  // widget's size, at its top and centred across it.
  QPointF PixelsToTwips(QPointF pixels) const;
  QPointF TwipsToPixels(QPointF twips) const;

  // Its size at 100 %, and the smallest it may become.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint() / 2; }

  // Called when the board's scale or place in the widget changed.
  std::function<void()> onResized;

  // Mouse events in twips; button 1 left, 2 right.
  std::function<void(int button, float x, float y)> onMouseUp;
  std::function<void(float x, float y)> onMouseMove;
  // A left click with Shift held, in twips: the player's suit mark.
  std::function<void(float x, float y)> onMarkClick;
  // A left click with Ctrl held, in twips: the chosen card's rank noted.
  std::function<void(float x, float y)> onNoteClick;
  // Called after each paint of the widget (start-up and placement timing).
  std::function<void()> onPainted;
  // Keys pressed on the board; true when the key was used.
  std::function<bool(QKeyEvent* event)> onKey;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // Makes the image match the screen; true when it had to be made anew.
  bool EnsureImage();
  template <typename Paint>
  void PaintOnImage(Paint&& paint);
  void PaintAids(QPainter& p, const QRect& dirty) const;
  void PaintOptions(QPainter& p, const QRectF& dirty) const;
  void PaintNotes(QPainter& p, const QRectF& dirty) const;

  // What the aids show: shaded cells, and the hint's and the cursor's cells.
  struct Aids {
    std::array<bool, kGridDim * kGridDim> shaded{};
    // The options of each empty cell, with kOptionsShown set; 0 shows none.
    std::array<CardSet, kGridDim * kGridDim> options{};
    // The rank notes of each cell without a card; kNotesMarked when it holds a mark.
    std::array<uint16_t, kGridDim * kGridDim> notes{};
    int hint = 0, cursor = 0;  // row * kGridDim + col; 0 for none
    bool operator==(const Aids&) const = default;
  };

  const GameState& s_;
  SuitStrip strip_;
  QImage image_;
  qreal imageScale_ = 0;
  double zoom_ = 1;  // the board's size over its size at 100 %
  QPointF offset_;   // where the board's top-left corner is in the widget
  QColor cell_{240, 240, 240}, surface_{240, 240, 240}, given_;
  Aids aids_;
};

}  // namespace velmora
