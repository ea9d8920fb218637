// Draws data/suits.png, the strip of four suit symbols (spade, heart, diamond,
// club) that the board copies into its cells with an AND copy: dark symbols
// on white, so the cell's background shows through the white.
//
// Build and run once from the repository root:
//   g++ -std=c++20 -fPIC tools/make_suit_strip.cpp $(pkg-config --cflags --libs Qt6Gui) -o
//   /tmp/make_suit_strip QT_QPA_PLATFORM=offscreen /tmp/make_suit_strip data/suits.png
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace {

constexpr int kSide = 220;  // pixels per symbol; the board scales it down

QPainterPath Circle(double x, double y, double r) {
  QPainterPath p;
  p.addEllipse(QPointF(x, y), r, r);
  return p;
}

QPainterPath Polygon(std::initializer_list<QPointF> points) {
  QPainterPath p;
  p.addPolygon(QPolygonF(QList<QPointF>(points)));
  p.closeSubpath();
  return p;
}

// The point where a line from `from` touches the circle (c, r); `left`
// picks which of the two tangents.
QPointF Tangent(QPointF c, double r, QPointF from, bool left) {
  const QPointF d = from - c;
  const double dist = std::hypot(d.x(), d.y());
  const double base = std::atan2(d.y(), d.x());
  const double turn = std::acos(r / dist) * (left ? 1 : -1);
  return c + QPointF(std::cos(base + turn), std::sin(base + turn)) * r;
}

// Two lobes joined to a tip by tangent lines: a heart, or upside down a spade.
QPainterPath Lobes(double lobeY, double r, QPointF tip) {
  const QPointF left(110 - 40, lobeY), right(110 + 40, lobeY);
  return Circle(left.x(), left.y(), r)
      .united(Circle(right.x(), right.y(), r))
      .united(Polygon({Tangent(left, r, tip, tip.y() > lobeY), tip, Tangent(right, r, tip, tip.y() < lobeY),
                       right, left}));
}

QPainterPath Stem() {
  QPainterPath p;
  p.moveTo(104, 120);
  p.quadTo(100, 180, 72, 202);
  p.lineTo(148, 202);
  p.quadTo(120, 180, 116, 120);
  p.closeSubpath();
  return p;
}

QPainterPath Heart() { return Lobes(76, 50, {110, 204}); }

QPainterPath Spade() { return Lobes(124, 46, {110, 14}).united(Stem()); }

QPainterPath Diamond() {
  QPainterPath p;
  p.moveTo(110, 12);
  p.quadTo(140, 70, 186, 110);
  p.quadTo(140, 150, 110, 208);
  p.quadTo(80, 150, 34, 110);
  p.quadTo(80, 70, 110, 12);
  return p;
}

QPainterPath Club() {
  return Circle(110, 62, 42)
      .united(Circle(62, 126, 42))
      .united(Circle(158, 126, 42))
      .united(Polygon({{110, 70}, {66, 136}, {154, 136}}))
      .united(Stem());
}

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication app(argc, argv);
  const QString out = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("suits.png");
  QImage strip(4 * kSide, kSide, QImage::Format_RGB32);
  strip.fill(Qt::white);
  QPainter p(&strip);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(Qt::NoPen);
  const QColor black(50, 50, 50), red(200, 9, 9);
  const QPainterPath shapes[4] = {Spade(), Heart(), Diamond(), Club()};
  const QColor colours[4] = {black, red, red, black};
  for (int i = 0; i < 4; ++i) {
    p.save();
    p.translate(i * kSide, 0);
    p.setBrush(colours[i]);
    p.drawPath(shapes[i]);
    p.restore();
  }
  p.end();
  return strip.save(out) ? 0 : 1;
}
