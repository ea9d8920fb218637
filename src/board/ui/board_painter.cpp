// Painting the board in twips onto any QPainter: cells, the whole board, the solution text.
#include "board/ui/board_painter.h"

#include "board/geometry.h"

namespace velmora {
namespace {

constexpr int kRankFontTwips = 14 * kTwipsPerPoint;
constexpr int kSolutionFontTwips = 8 * kTwipsPerPoint;

bool InBoard(int row, int col) { return row >= 0 && row <= kMaxIndex && col >= 0 && col <= kMaxIndex; }

}  // namespace

void BoardPainter::Outline(const QRectF& r) {
  p_.setBrush(Qt::NoBrush);
  p_.setPen(OutlinePen());
  p_.drawRect(r);
}

void BoardPainter::DrawCell(const Puzzle& puzzle, int rank, const std::string& suitLetter, int row, int col) {
  if (!InBoard(row, col)) return;
  const int x = CellX(col), y = CellY(row);
  const QRectF cell(x, y, kCellSize, kCellSize);
  p_.setPen(Qt::NoPen);
  const bool given = given_.isValid() && !suitLetter.empty() && puzzle.PuzzleGrid[row][col] != 0 &&
                     puzzle.Grid[row][col] == puzzle.PuzzleGrid[row][col];
  p_.fillRect(cell, given ? given_ : cell_);
  Outline(cell);
  if (suitLetter.empty()) return;

  // A letter other than S, H, D, C keeps symbol 0 and plain black.
  const int index = std::max(0, SuitListIndex(suitLetter));
  const QColor colour = SuitListIndex(suitLetter) < 0 ? QColor(Qt::black) : SuitQColor(index + 1);

  DrawSymbol(p_, strip_, index, QRectF(x + 60, y + 50, kSymbolSize, kSymbolSize), SymbolCopy::kAnd);

  if (rank < -1 || rank > 13) return;
  p_.setFont(TwipsFont(kRankFontTwips, true));
  p_.setPen(colour);
  p_.drawText(QPointF(TextX(col) + 310, TextY(row) + 325 + p_.fontMetrics().ascent()),
              QString::fromLatin1(RankLetter(rank)));
}

void BoardPainter::DrawBoard(const Puzzle& puzzle) {
  p_.fillRect(QRectF(0, 0, kPictureWidth, kPictureHeight), surface_);
  for (int row = 1; row <= LoopRows(puzzle); ++row) {
    for (int col = 1; col <= LoopCols(puzzle); ++col) {
      const int v = puzzle.Grid[row][col];
      if (v < 0) {
        // Marks beyond -4 find no letter and give a blank cell.
        const std::string suit = v >= -4 ? std::string(1, kSuitLetters[-v]) : std::string();
        DrawCell(puzzle, -1, suit, row, col);
      }
      if (v < 1) {
        Outline(QRectF(CellX(col), CellY(row), kCellSize, kCellSize));
      } else if (v <= kMaxCardIndex) {
        DrawCell(puzzle, puzzle.CardCodes.Rank(v), std::string(1, puzzle.CardCodes.SuitLetter(v)), row, col);
      }
    }
  }
}

void BoardPainter::DrawSolution(const Puzzle& puzzle) {
  p_.setFont(TwipsFont(kSolutionFontTwips, false));
  p_.setPen(ToQColor(kBlackSuitColor));
  const int ascent = p_.fontMetrics().ascent();
  for (int row = 1; row <= LoopRows(puzzle); ++row) {
    for (int col = 1; col <= LoopCols(puzzle); ++col) {
      const int v = puzzle.SolutionGrid[row][col];
      if (v < 1 || v > kMaxCardIndex) continue;
      p_.drawText(QPointF(TextX(col) - 200, TextY(row) + 450 + ascent),
                  QString::fromLatin1(CardText(v).c_str()));
    }
  }
}

}  // namespace velmora
