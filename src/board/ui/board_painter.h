// Painting the board in twips onto any QPainter: cells, the whole board, the solution text.
#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <string>

#include "board/ui/twips_drawing.h"
#include "model/game_state.h"

namespace velmora {

// Picture1 is wide enough for the board and its margins, and 5820 twips high.
inline constexpr int kPictureWidth = 5760;
inline constexpr int kPictureHeight = 5820;
inline constexpr int kSymbolSize = 550;

// Suit colours are fixed; they are not part of a colour scheme.
inline QColor ToQColor(SuitColor c) { return QColor(c.red, c.green, c.blue); }
inline QColor SuitQColor(int suit) { return ToQColor(ColorOfSuit(suit)); }

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
  void DrawCell(const Puzzle& p, int rank, const std::string& suitLetter, int row, int col);
  // The whole picture cleared, then every cell from the grid.
  void DrawBoard(const Puzzle& p);
  // The stored solution written small into every cell.
  void DrawSolution(const Puzzle& p);

 private:
  void Outline(const QRectF& r);
  QPainter& p_;
  SuitStrip& strip_;
  QColor cell_, surface_, given_;
};

}  // namespace velmora
