// One puzzle or its solution saved as an SVG or PNG image for publishing.
#include "printing/ui/puzzle_image.h"

#include <QBuffer>
#include <QImage>
#include <QSvgGenerator>
#include <cmath>

#include "files/text_file.h"
#include "printing/book.h"
#include "printing/ui/page_painter.h"

namespace velmora {
namespace {

bool Write(const QByteArray& bytes, const std::string& path) {
  return !bytes.isEmpty() &&
         WriteFileAtomically(path, std::string_view(bytes.constData(), static_cast<size_t>(bytes.size())));
}

// The marks on `device`, whose resolution makes the image's extent `width` pixels.
bool Paint(const Puzzle& p, PageKind kind, QPaintDevice& device, bool symbolsAsText) {
  SuitStrip strip;
  PagePainter painter(device, strip);
  if (symbolsAsText) painter.SymbolsAsText();
  PrintPuzzleImage(p, painter, kind);
  return painter.End();
}

}  // namespace

bool SavePuzzleImage(const Puzzle& p, PageKind kind, ImageFormat format, int width, const std::string& path) {
  const PageOrigin extent = PuzzleImageExtent(p);
  const double dpi = static_cast<double>(width) * kTwipsPerInch / extent.x;
  const int height = static_cast<int>(std::lround(extent.y * dpi / kTwipsPerInch));
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  if (format == ImageFormat::kSvg) {
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setSize(QSize(width, height));
    svg.setViewBox(QRect(0, 0, width, height));
    svg.setResolution(static_cast<int>(std::lround(dpi)));
    svg.setTitle(QStringLiteral("Velmora puzzle"));
    if (!Paint(p, kind, svg, true)) return false;
    return Write(buffer.data(), path);
  }
  QImage image(width, height, QImage::Format_RGB32);
  if (image.isNull()) return false;
  image.fill(Qt::white);
  const int dotsPerMeter = static_cast<int>(std::lround(dpi / 0.0254));
  image.setDotsPerMeterX(dotsPerMeter);
  image.setDotsPerMeterY(dotsPerMeter);
  if (!Paint(p, kind, image, false) || !image.save(&buffer, "PNG")) return false;
  return Write(buffer.data(), path);
}

}  // namespace velmora
