// Printed pages drawn on any QPainter device in twips: paper, a PDF file, an image.
#include "printing/ui/page_painter.h"

#include <QPagedPaintDevice>

#include "files/text_file.h"
#include "model/cards.h"

namespace velmora {

QPainter* PagePainter::Mark() {
  if (failed_) return nullptr;
  if (!painter_->isActive()) {
    failed_ = !painter_->begin(&device_);
    if (failed_) return nullptr;
    ScaleToTwips(*painter_, device_.logicalDpiX(), device_.logicalDpiY());
    pages_ = 1;
  } else if (newPage_) {
    if (auto* paged = dynamic_cast<QPagedPaintDevice*>(&device_)) paged->newPage();
    ++pages_;
  }
  newPage_ = false;
  return painter_.get();
}

// A PDF grows in memory; where memory runs out, the job fails instead of the
// program. The painter is then left unended on purpose: ending it would write
// the document's tail, which needs the memory that just ran out.
template <typename Draw>
void PagePainter::Guarded(Draw draw) {
  try {
    draw();
  } catch (const std::bad_alloc&) {
    failed_ = true;
    [[maybe_unused]] QPainter* abandoned = painter_.release();
  }
}

namespace {
constexpr int kUnprintable = 360;  // a quarter inch, more than most printers leave

int EdgeTwips(int pixels, int dpi) {
  return static_cast<int>(static_cast<long long>(pixels) * 1440 / std::max(1, dpi)) - kUnprintable;
}
}  // namespace

int PagePainter::RightEdge() const { return EdgeTwips(device_.width(), device_.logicalDpiX()); }

int PagePainter::BottomEdge() const { return EdgeTwips(device_.height(), device_.logicalDpiY()); }

bool PagePainter::End() {
  Guarded([this] {
    if (painter_ && painter_->isActive()) painter_->end();
  });
  return !failed_;
}

void PagePainter::Text(int x, int y, int points, bool bold, const std::string& text) {
  Guarded([&] { DrawText(x, y, points, bold, text); });
}

void PagePainter::DrawText(int x, int y, int points, bool bold, const std::string& text) {
  QPainter* painter = Mark();
  if (!painter) return;
  QPainter& p = *painter;
  p.setFont(TwipsFont(points * kTwipsPerPoint, bold));
  p.setPen(Qt::black);
  p.drawText(QPointF(x, y + p.fontMetrics().ascent()), QString::fromLocal8Bit(text.c_str()));
}

void PagePainter::Box(int x1, int y1, int x2, int y2) {
  Guarded([&] { DrawBox(x1, y1, x2, y2); });
}

void PagePainter::DrawBox(int x1, int y1, int x2, int y2) {
  QPainter* painter = Mark();
  if (!painter) return;
  QPainter& p = *painter;
  p.setBrush(Qt::NoBrush);
  p.setPen(OutlinePen());
  p.drawRect(QRectF(QPointF(x1, y1), QPointF(x2, y2)));
}

void PagePainter::Symbol(int suit, int x, int y, int size) {
  Guarded([&] { DrawSymbol(suit, x, y, size); });
}

void PagePainter::DrawSymbol(int suit, int x, int y, int size) {
  QPainter* painter = Mark();
  if (!painter) return;
  if (symbolsAsText_) {
    static const char16_t kSuitCharacters[] = u"\u2660\u2665\u2666\u2663";
    const SuitColor c = ColorOfSuit(std::clamp(suit, 0, 3) + 1);
    painter->setPen(QColor(c.red, c.green, c.blue));
    painter->setFont(TwipsFont(size, false));
    painter->drawText(QRectF(x, y, size, size), Qt::AlignCenter,
                      QString(QChar(kSuitCharacters[std::clamp(suit, 0, 3)])));
    return;
  }
  // The strip keeps each size it scaled, so every page reuses one image per suit.
  velmora::DrawSymbol(*painter, strip_, suit, QRectF(x, y, size, size), SymbolCopy::kPlain);
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
  return WriteFileAtomically(path, std::string_view(bytes.constData(), static_cast<size_t>(bytes.size())));
}

}  // namespace velmora
