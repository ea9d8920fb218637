// What the board and the printed page draw alike, in twips on a scaled QPainter.
#include "board/ui/twips_drawing.h"

#include <cmath>

namespace velmora {
namespace {

constexpr int kLineTwips = 15;  // one pixel at 96 dpi

}  // namespace

SuitStrip::SuitStrip() : strip_(QStringLiteral(":/suits.png")) {}

SuitStrip::SuitStrip(QImage strip) : strip_(std::move(strip)) {}

const QImage& SuitStrip::Symbol(int index, QSize size) {
  auto& image = scaled_[{index, {size.width(), size.height()}}];
  if (image.isNull() && !strip_.isNull() && !size.isEmpty()) {
    const int side = strip_.width() / 4;
    image = strip_.copy(index * side, 0, side, strip_.height())
                .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                .convertToFormat(QImage::Format_RGB32);
  }
  return image;
}

void ScaleToTwips(QPainter& p, double dpiX, double dpiY) {
  p.scale(dpiX / kTwipsPerInch, dpiY / kTwipsPerInch);
}

QFont TwipsFont(int twips, bool bold) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(twips);
  font.setBold(bold);
  return font;
}

QPen OutlinePen() { return QPen(Qt::black, kLineTwips, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin); }

void DrawSymbol(QPainter& p, SuitStrip& strip, int index, const QRectF& area, SymbolCopy copy) {
  const QRectF target = p.deviceTransform().mapRect(area);
  const QRect pixels(
      static_cast<int>(std::lround(target.left())), static_cast<int>(std::lround(target.top())),
      static_cast<int>(std::lround(target.width())), static_cast<int>(std::lround(target.height())));
  const QImage& symbol = strip.Symbol(index, pixels.size());
  if (symbol.isNull()) return;
  p.save();
  if (copy == SymbolCopy::kAnd) p.resetTransform();
  p.setWorldMatrixEnabled(false);
  if (copy == SymbolCopy::kAnd) p.setCompositionMode(QPainter::RasterOp_SourceAndDestination);
  p.drawImage(pixels.topLeft(), symbol);
  p.restore();
}

}  // namespace velmora
