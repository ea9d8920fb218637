// Printed pages drawn on any QPainter device in twips: paper, a PDF file, an image.
#include "printing/ui/page_painter.h"

#include <QFont>
#include <QPagedPaintDevice>
#include <QPen>
#include <cmath>

#include "files/text_file.h"

namespace velmora {
namespace {

constexpr int kTwipsPerPoint = 20;
constexpr int kLineTwips = 15;

}  // namespace

QPainter& PagePainter::Mark() {
  if (!painter_.isActive() && !failed_) {
    failed_ = !painter_.begin(&device_);
    if (!failed_) {
      ScaleToTwips(painter_, device_.logicalDpiX(), device_.logicalDpiY());
      pages_ = 1;
    }
  } else if (newPage_) {
    if (auto* paged = dynamic_cast<QPagedPaintDevice*>(&device_)) paged->newPage();
    ++pages_;
  }
  newPage_ = false;
  return painter_;
}

bool PagePainter::End() {
  if (painter_.isActive()) painter_.end();
  return !failed_;
}

void PagePainter::Text(int x, int y, int points, bool bold, const std::string& text) {
  QPainter& p = Mark();
  if (!p.isActive()) return;
  // Twips as pixels of the scaled painter keep the point size true on every device.
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(points * kTwipsPerPoint);
  font.setBold(bold);
  p.setFont(font);
  p.setPen(Qt::black);
  p.drawText(QPointF(x, y + p.fontMetrics().ascent()), QString::fromLocal8Bit(text.c_str()));
}

void PagePainter::Box(int x1, int y1, int x2, int y2) {
  QPainter& p = Mark();
  if (!p.isActive()) return;
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(Qt::black, kLineTwips, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  p.drawRect(QRectF(QPointF(x1, y1), QPointF(x2, y2)));
}

void PagePainter::Symbol(int suit, int x, int y, int size) {
  QPainter& p = Mark();
  if (!p.isActive()) return;
  // Scaled once to the device's pixels and kept, so every page reuses one image per suit.
  const QRectF target = p.deviceTransform().mapRect(QRectF(x, y, size, size));
  const QRect pixels(
      static_cast<int>(std::lround(target.left())), static_cast<int>(std::lround(target.top())),
      static_cast<int>(std::lround(target.width())), static_cast<int>(std::lround(target.height())));
  const QImage& symbol = strip_.Symbol(suit, pixels.size());
  if (symbol.isNull()) return;
  p.save();
  p.setWorldMatrixEnabled(false);
  p.drawImage(pixels.topLeft(), symbol);
  p.restore();
}

PdfJob::PdfJob(const QPageSize& paper, SuitStrip& strip) : writer_(&buffer_), painter_(writer_, strip) {
  buffer_.open(QIODevice::WriteOnly);
  writer_.setPageSize(paper);
  writer_.setPageMargins(QMarginsF(0, 0, 0, 0));
  writer_.setCreator(QStringLiteral("Velmora"));
}

bool PdfJob::Save(const std::string& path) {
  if (!painter_.End()) return false;
  if (painter_.Pages() == 0) return true;
  const QByteArray& bytes = buffer_.data();
  return WriteFileAtomically(path, std::string(bytes.constData(), static_cast<size_t>(bytes.size())));
}

}  // namespace velmora
