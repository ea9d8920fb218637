// Painting the board in twips onto any QPainter: cells, the whole board, the solution text.
#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QSize>
#include <map>
#include <string>
#include <utility>

#include "model/game_state.h"

namespace velmora {

inline constexpr int kTwipsPerInch = 1440;
// Picture1 is wide enough for the board and its margins, and 5820 twips high.
inline constexpr int kPictureWidth = 5760;
inline constexpr int kPictureHeight = 5820;
inline constexpr int kSymbolSize = 550;

// Suit colours are fixed; they are not part of a colour scheme.
inline QColor ToQColor(SuitColor c) { return QColor(c.red, c.green, c.blue); }
inline QColor SuitQColor(int suit) { return ToQColor(ColorOfSuit(suit)); }

// The strip of four suit symbols, scaled once per device size and kept.
class SuitStrip {
 public:
  SuitStrip();  // the strip built into the program
  explicit SuitStrip(QImage strip);
  bool IsNull() const { return strip_.isNull(); }
  // Symbol `index` (0 S, 1 H, 2 D, 3 C) at `size` device pixels.
  const QImage& Symbol(int index, QSize size);

 private:
  QImage strip_;
  std::map<std::pair<int, std::pair<int, int>>, QImage> scaled_;
};

// Scales a painter on a device of `dpiX` x `dpiY` physical pixels per inch so
// that one unit is one twip.
void ScaleToTwips(QPainter& p, double dpiX, double dpiY);

// Painting on a painter already scaled to twips. `cellColor` fills the cells
// DrawCell paints (colour 2 of the current scheme); `surfaceColor` is the
// picture's own background, which DrawBoard clears to and which shows inside
// empty cells.
class BoardPainter {
 public:
  // `givenColor`, when valid, fills the cells whose card is still the
  // puzzle's given instead of `cellColor`.
  BoardPainter(QPainter& p, SuitStrip& strip, QColor cellColor, QColor surfaceColor, QColor givenColor = {})
      : p_(p), strip_(strip), cell_(cellColor), surface_(surfaceColor), given_(givenColor) {}

  // One cell: filled and outlined; with a suit letter also its symbol and
  // the rank letter (rank -1 shows "?").
  void DrawCell(const GameState& s, int rank, const std::string& suitLetter, int row, int col);
  // The whole picture cleared, then every cell from the grid.
  void DrawBoard(const GameState& s);
  // The stored solution written small into every cell.
  void DrawSolution(const GameState& s);

 private:
  void Outline(const QRectF& r);
  QPainter& p_;
  SuitStrip& strip_;
  QColor cell_, surface_, given_;
};

}  // namespace velmora
