// A small picture of what a colour scheme paints: two board cells with a red
// and a black card, the puzzle-title box and a button face.
#include "appearance/ui/scheme_preview.h"

#include <QPainter>

#include "board/geometry.h"

namespace velmora {
namespace {

constexpr double kCellScale = 0.6;  // of the board's own size
constexpr int kCellsWidth = 2 * kCellSize + 60;

}  // namespace

SchemePreview::SchemePreview(QWidget* parent) : QWidget(parent) {
  cells_.Rows = cells_.Cols = kBoardSize;
  CalcCellPos(cells_);
}

void SchemePreview::SetColors(QColor background, QColor titleBox, QColor buttonFace) {
  background_ = background;
  titleBox_ = titleBox;
  buttonFace_ = buttonFace;
  update();
}

QSize SchemePreview::sizeHint() const {
  const double pixels = logicalDpiX() * kCellScale / kTwipsPerInch;
  return {static_cast<int>(kCellsWidth * pixels) +
              fontMetrics().horizontalAdvance(QStringLiteral("Puzzle title")) * 2,
          static_cast<int>((kCellSize + 60) * pixels)};
}

void SchemePreview::paintEvent(QPaintEvent*) {
  // The cells are painted as the board paints them, on an image of their own.
  const qreal ratio = devicePixelRatioF();
  const double pixels = logicalDpiX() * kCellScale * ratio / kTwipsPerInch;
  QImage image(static_cast<int>(kCellsWidth * pixels), static_cast<int>((kCellSize + 60) * pixels),
               QImage::Format_RGB32);
  image.fill(background_);
  {
    QPainter p(&image);
    p.setRenderHint(QPainter::TextAntialiasing);
    ScaleToTwips(p, logicalDpiX() * kCellScale * ratio, logicalDpiY() * kCellScale * ratio);
    BoardPainter board(p, strip_, background_, background_);
    board.DrawCell(cells_, 7, "H", 1, 1);
    board.DrawCell(cells_, 13, "S", 1, 2);
  }
  image.setDevicePixelRatio(ratio);
  QPainter p(this);
  p.fillRect(rect(), background_);
  p.drawImage(0, 0, image);
  // The title box and a button face beside the cells.
  const int left = static_cast<int>(image.width() / ratio) + 8, h = fontMetrics().height() + 6;
  const QRect title(left, 2, width() - left - 2, h),
      button(left, h + 8, fontMetrics().horizontalAdvance("Undo") + 24, h);
  p.setPen(Qt::black);
  for (const auto& [box, colour, text] :
       {std::tuple{title, titleBox_, tr("Puzzle title")}, {button, buttonFace_, tr("Undo")}}) {
    p.fillRect(box, colour);
    p.drawRect(box.adjusted(0, 0, -1, -1));
    p.drawText(box, Qt::AlignCenter, text);
  }
}

}  // namespace velmora
