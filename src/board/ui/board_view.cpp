// Picture1: the board picture, a kept image that cells are painted into.
#include "board/ui/board_view.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <cmath>

#include "board/geometry.h"

namespace velmora {

BoardView::BoardView(const GameState& state, QWidget* parent) : QWidget(parent), s_(state) {
  setObjectName(QStringLiteral("Picture1"));
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize BoardView::sizeHint() const {
  const QPointF size = TwipsToPixels(QPointF(kPictureWidth, kPictureHeight));
  return {static_cast<int>(std::ceil(size.x())), static_cast<int>(std::ceil(size.y()))};
}

QPointF BoardView::PixelsToTwips(QPointF pixels) const {
  return {pixels.x() * kTwipsPerInch / logicalDpiX(), pixels.y() * kTwipsPerInch / logicalDpiY()};
}

QPointF BoardView::TwipsToPixels(QPointF twips) const {
  return {twips.x() * logicalDpiX() / kTwipsPerInch, twips.y() * logicalDpiY() / kTwipsPerInch};
}

bool BoardView::EnsureImage() {
  const qreal scale = devicePixelRatioF();
  if (!image_.isNull() && scale == imageScale_) return false;
  imageScale_ = scale;
  const QSize logical = sizeHint();
  image_ = QImage(static_cast<int>(std::ceil(logical.width() * scale)),
                  static_cast<int>(std::ceil(logical.height() * scale)), QImage::Format_RGB32);
  image_.fill(surface_);
  return true;
}

template <typename Paint>
void BoardView::PaintOnImage(Paint&& paint) {
  QPainter p(&image_);
  p.setRenderHint(QPainter::TextAntialiasing);
  ScaleToTwips(p, logicalDpiX() * imageScale_, logicalDpiY() * imageScale_);
  BoardPainter board(p, strip_, cell_, surface_);
  paint(board);
}

void BoardView::DrawBoard() {
  EnsureImage();
  PaintOnImage([this](BoardPainter& b) { b.DrawBoard(s_); });
  update();
}

void BoardView::DrawCell(int rank, const std::string& suitLetter, int row, int col) {
  // A new screen scale starts from a full picture of the grid first.
  if (EnsureImage()) PaintOnImage([this](BoardPainter& b) { b.DrawBoard(s_); });
  PaintOnImage([&](BoardPainter& b) { b.DrawCell(s_, rank, suitLetter, row, col); });
  if (row < 0 || row > kMaxIndex || col < 0 || col > kMaxIndex) return;
  const QPointF topLeft = TwipsToPixels(QPointF(s_.CellX[row][col], s_.CellY[row][col]));
  const QPointF side = TwipsToPixels(QPointF(kCellSize, kCellSize));
  update(QRectF(topLeft, QSizeF(side.x(), side.y())).toAlignedRect().adjusted(-2, -2, 2, 2));
}

void BoardView::ShowSolution() {
  if (EnsureImage()) PaintOnImage([this](BoardPainter& b) { b.DrawBoard(s_); });
  PaintOnImage([this](BoardPainter& b) { b.DrawSolution(s_); });
  update();
}

void BoardView::paintEvent(QPaintEvent* event) {
  if (EnsureImage()) PaintOnImage([this](BoardPainter& b) { b.DrawBoard(s_); });
  QPainter p(this);
  p.fillRect(event->rect(), surface_);
  p.drawImage(QRectF(QPointF(0, 0), QSizeF(image_.size()) / imageScale_), image_);
  p.end();
  if (onPainted) onPainted();
}

void BoardView::mouseReleaseEvent(QMouseEvent* event) {
  const int button = event->button() == Qt::LeftButton ? 1 : (event->button() == Qt::RightButton ? 2 : 0);
  const QPointF twips = PixelsToTwips(event->position());
  if (button != 0 && onMouseUp) onMouseUp(button, static_cast<float>(twips.x()), static_cast<float>(twips.y()));
}

void BoardView::mouseMoveEvent(QMouseEvent* event) {
  const QPointF twips = PixelsToTwips(event->position());
  if (onMouseMove) onMouseMove(static_cast<float>(twips.x()), static_cast<float>(twips.y()));
}

}  // namespace velmora
