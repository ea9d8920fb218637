// Painting the board in twips onto any QPainter: cells, the whole board, the solution text.
#include "board/ui/board_painter.h"

#include <QFont>
#include <QPen>
#include <algorithm>
#include <cmath>

#include "board/geometry.h"

namespace velmora {
namespace {

constexpr int kRankFontTwips = 14 * 20;     // 14 points
constexpr int kSolutionFontTwips = 8 * 20;  // 8 points
constexpr int kLineTwips = 15;              // one pixel at 96 dpi

bool InBoard(int row, int col) { return row >= 0 && row <= kMaxIndex && col >= 0 && col <= kMaxIndex; }

QFont BoardFont(int twips, bool bold) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(twips);
  font.setBold(bold);
  return font;
}

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

void BoardPainter::Outline(const QRectF& r) {
  p_.setBrush(Qt::NoBrush);
  p_.setPen(QPen(Qt::black, kLineTwips, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  p_.drawRect(r);
}

void BoardPainter::DrawCell(const GameState& s, int rank, const std::string& suitLetter, int row, int col) {
  if (!InBoard(row, col)) return;
  const int x = s.CellX[row][col], y = s.CellY[row][col];
  const QRectF cell(x, y, kCellSize, kCellSize);
  p_.setPen(Qt::NoPen);
  const bool given = given_.isValid() && !suitLetter.empty() && s.PuzzleGrid[row][col] != 0 &&
                     s.Grid[row][col] == s.PuzzleGrid[row][col];
  p_.fillRect(cell, given ? given_ : cell_);
  Outline(cell);
  if (suitLetter.empty()) return;

  // A letter other than S, H, D, C keeps symbol 0 and plain black.
  const int index = std::max(0, SuitListIndex(suitLetter));
  const QColor colour = SuitListIndex(suitLetter) < 0 ? QColor(Qt::black) : SuitQColor(index + 1);

  // The AND copy is made in device pixels from a symbol scaled to fit, so it
  // stays sharp at any screen scale.
  const QRectF target = p_.deviceTransform().mapRect(QRectF(x + 60, y + 50, kSymbolSize, kSymbolSize));
  const QRect pixels(
      static_cast<int>(std::lround(target.left())), static_cast<int>(std::lround(target.top())),
      static_cast<int>(std::lround(target.width())), static_cast<int>(std::lround(target.height())));
  const QImage& symbol = strip_.Symbol(index, pixels.size());
  if (!symbol.isNull()) {
    p_.save();
    p_.resetTransform();
    p_.setWorldMatrixEnabled(false);
    p_.setCompositionMode(QPainter::RasterOp_SourceAndDestination);
    p_.drawImage(pixels.topLeft(), symbol);
    p_.restore();
  }

  if (rank < -1 || rank > 13) return;
  p_.setFont(BoardFont(kRankFontTwips, true));
  p_.setPen(colour);
  p_.drawText(QPointF(s.TextX[row][col] + 310, s.TextY[row][col] + 325 + p_.fontMetrics().ascent()),
              QString::fromLatin1(RankLetter(rank)));
}

void BoardPainter::DrawBoard(const GameState& s) {
  p_.fillRect(QRectF(0, 0, kPictureWidth, kPictureHeight), surface_);
  for (int row = 1; row <= LoopRows(s); ++row) {
    for (int col = 1; col <= LoopCols(s); ++col) {
      const int v = s.Grid[row][col];
      if (v < 0) {
        // Marks beyond -4 find no letter and give a blank cell.
        const std::string suit = v >= -4 ? std::string(1, kSuitLetters[-v]) : std::string();
        DrawCell(s, -1, suit, row, col);
      }
      if (v < 1) {
        Outline(QRectF(s.CellX[row][col], s.CellY[row][col], kCellSize, kCellSize));
      } else if (v <= kMaxCardIndex) {
        DrawCell(s, s.CardCodes.Rank(v), std::string(1, s.CardCodes.SuitLetter(v)), row, col);
      }
    }
  }
}

void BoardPainter::DrawSolution(const GameState& s) {
  p_.setFont(BoardFont(kSolutionFontTwips, false));
  p_.setPen(ToQColor(kBlackSuitColor));
  const int ascent = p_.fontMetrics().ascent();
  for (int row = 1; row <= LoopRows(s); ++row) {
    for (int col = 1; col <= LoopCols(s); ++col) {
      const int v = s.SolutionGrid[row][col];
      if (v < 1 || v > kMaxCardIndex) continue;
      p_.drawText(QPointF(s.TextX[row][col] - 200, s.TextY[row][col] + 450 + ascent),
                  QString::fromLatin1(CardText(v).c_str()));
    }
  }
}

}  // namespace velmora
