// What the board and the printed page draw alike, in twips on a scaled
// QPainter: the suit symbols, the text face and the line width.
#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QRectF>
#include <QSize>
#include <map>
#include <utility>

namespace velmora {

inline constexpr int kTwipsPerInch = 1440;
inline constexpr int kTwipsPerPoint = 20;

// The strip of four suit symbols, scaled once per device size and kept.
class SuitStrip {
 public:
  SuitStrip();  // the strip built into the program
  explicit SuitStrip(QImage strip);
  // Symbol `index` (0 S, 1 H, 2 D, 3 C) at `size` device pixels.
  const QImage& Symbol(int index, QSize size);

 private:
  QImage strip_;
  std::map<std::pair<int, std::pair<int, int>>, QImage> scaled_;
};

// Scales a painter on a device of `dpiX` x `dpiY` physical pixels per inch so
// that one unit is one twip.
void ScaleToTwips(QPainter& p, double dpiX, double dpiY);

// The sans-serif face of every text, `twips` high: twips as pixels of the
// scaled painter keep the point size true on every device.
QFont TwipsFont(int twips, bool bold);

// Cell outlines and printed boxes: black, one pixel at 96 dpi.
QPen OutlinePen();

// How a symbol meets what is under it: the board ANDs it in (the screen's
// old copy mode), paper takes it as it is.
enum class SymbolCopy { kAnd, kPlain };

// Symbol `index` of `strip` over the twips square `area`, scaled once to the
// device pixels the square covers, so it stays sharp at any scale.
void DrawSymbol(QPainter& p, SuitStrip& strip, int index, const QRectF& area, SymbolCopy copy);

}  // namespace velmora
