// Picture1: the board picture, a kept image that cells are painted into.
#include "board/ui/board_view.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "board/geometry.h"
#include "board/ui/board_accessible.h"
#include "model/rules.h"

namespace velmora {
namespace {

// Above every card's bit: the cell shows its options, even none.
constexpr CardSet kOptionsShown = CardSet{1} << 63;
// The cards of suit 1 (1S, 2S, ...); suit s is this shifted by s - 1.
constexpr CardSet kFirstSuitCards = 0x1111111111111ULL;
// Above every rank's bit: the cell's notes make room for its suit mark.
constexpr uint16_t kNotesMarked = 1U << 15;
// The suits as the text face draws them, to stay sharp at every scale.
const QString kSuitGlyphs[] = {QStringLiteral("\u2660"), QStringLiteral("\u2665"), QStringLiteral("\u2666"),
                               QStringLiteral("\u2663")};

}  // namespace

BoardView::BoardView(const GameState& state, QWidget* parent) : QWidget(parent), s_(state) {
  setObjectName(QStringLiteral("Picture1"));
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setFocusPolicy(Qt::StrongFocus);  // keyboard play
  static const bool factory = (QAccessible::installFactory(BoardAccessibleFactory), true);
  (void)factory;
}

QSize BoardView::sizeHint() const {
  return {static_cast<int>(std::ceil(kPictureWidth * logicalDpiX() / double(kTwipsPerInch))),
          static_cast<int>(std::ceil(kPictureHeight * logicalDpiY() / double(kTwipsPerInch)))};
}

QPointF BoardView::PixelsToTwips(QPointF pixels) const {
  const QPointF p = (pixels - offset_) / zoom_;
  return {p.x() * kTwipsPerInch / logicalDpiX(), p.y() * kTwipsPerInch / logicalDpiY()};
}

QPointF BoardView::TwipsToPixels(QPointF twips) const {
  return offset_ +
         QPointF(twips.x() * logicalDpiX() / kTwipsPerInch, twips.y() * logicalDpiY() / kTwipsPerInch) *
             zoom_;
}

QPointF BoardView::TwipsToImage(QPointF twips) const {
  return (TwipsToPixels(twips) - offset_) * imageScale_;
}

void BoardView::resizeEvent(QResizeEvent*) {
  const QSize natural = sizeHint();
  zoom_ = std::min(width() / double(natural.width()), height() / double(natural.height()));
  // A whole number of pixels a cell, so every grid line is drawn alike.
  const double cell = kCellSize * logicalDpiX() / double(kTwipsPerInch);
  if (zoom_ * cell >= 1) zoom_ = std::floor(zoom_ * cell + 1e-9) / cell;
  offset_ = QPointF((width() - natural.width() * zoom_) / 2, 0);  // at the top, as the suit panels
  image_ = QImage();                                              // painted anew at the new scale
  if (onResized) onResized();
}

bool BoardView::EnsureImage() {
  const qreal scale = devicePixelRatioF();
  if (!image_.isNull() && scale == imageScale_) return false;
  imageScale_ = scale;
  const QSize logical = sizeHint();
  image_ = QImage(static_cast<int>(std::ceil(logical.width() * zoom_ * scale)),
                  static_cast<int>(std::ceil(logical.height() * zoom_ * scale)), QImage::Format_RGB32);
  image_.fill(surface_);
  return true;
}

template <typename Paint>
void BoardView::PaintOnImage(Paint&& paint) {
  QPainter p(&image_);
  p.setRenderHint(QPainter::TextAntialiasing);
  ScaleToTwips(p, logicalDpiX() * imageScale_ * zoom_, logicalDpiY() * imageScale_ * zoom_);
  BoardPainter board(p, strip_, cell_, surface_, given_);
  paint(board);
}

void BoardView::DrawBoard() {
  EnsureImage();
  PaintOnImage([this](BoardPainter& b) { b.DrawBoard(s_.puzzle); });
  update();
}

void BoardView::DrawCell(int rank, const std::string& suitLetter, int row, int col) {
  // A new screen scale starts from a full picture of the grid first.
  if (EnsureImage()) PaintOnImage([this](BoardPainter& b) { b.DrawBoard(s_.puzzle); });
  PaintOnImage([&](BoardPainter& b) { b.DrawCell(s_.puzzle, rank, suitLetter, row, col); });
  if (row < 0 || row > kMaxIndex || col < 0 || col > kMaxIndex) return;
  const QPointF topLeft = TwipsToPixels(QPointF(CellX(col), CellY(row)));
  const QPointF side = TwipsToPixels(QPointF(kCellSize, kCellSize));
  update(QRectF(topLeft, QSizeF(side.x(), side.y())).toAlignedRect().adjusted(-2, -2, 2, 2));
}

void BoardView::ShowSolution() {
  if (EnsureImage()) PaintOnImage([this](BoardPainter& b) { b.DrawBoard(s_.puzzle); });
  PaintOnImage([this](BoardPainter& b) { b.DrawSolution(s_.puzzle); });
  update();
}

void BoardView::paintEvent(QPaintEvent* event) {
  if (EnsureImage()) PaintOnImage([this](BoardPainter& b) { b.DrawBoard(s_.puzzle); });
  QPainter p(this);
  p.fillRect(event->rect(), surface_);
  p.drawImage(QRectF(offset_, QSizeF(image_.size()) / imageScale_), image_);
  if (aids_ != Aids{}) PaintAids(p, event->rect());
  p.end();
  if (onPainted) onPainted();
}

void BoardView::ShowAids(bool shade, bool options) {
  Aids aids;
  const PlayAids& a = s_.session.aids;
  const int card = shade && !s_.session.SelectedCard.empty() ? FindCardIndex(s_.session.SelectedCard) : -1;
  for (int r = 1; card >= 1 && r <= LoopRows(s_.puzzle); ++r) {
    for (int c = 1; c <= LoopCols(s_.puzzle); ++c) {
      aids.shaded[static_cast<size_t>(r) * kGridDim + static_cast<size_t>(c)] =
          s_.puzzle.Grid[r][c] < 1 && (s_.puzzle.CellOptions[r][c] & CardBit(card));
    }
  }
  for (int r = 1; options && r <= LoopRows(s_.puzzle); ++r) {
    for (int c = 1; c <= LoopCols(s_.puzzle); ++c) {
      if (s_.puzzle.Grid[r][c] == 0)
        aids.options[static_cast<size_t>(r) * kGridDim + static_cast<size_t>(c)] =
            s_.puzzle.CellOptions[r][c] | kOptionsShown;
    }
  }
  for (int r = 1; r <= LoopRows(s_.puzzle); ++r) {
    for (int c = 1; c <= LoopCols(s_.puzzle); ++c) {
      const int v = s_.puzzle.Grid[r][c];
      if (v <= 0 && s_.puzzle.Notes[r][c] != 0)
        aids.notes[static_cast<size_t>(r) * kGridDim + static_cast<size_t>(c)] =
            s_.puzzle.Notes[r][c] | (v < 0 ? kNotesMarked : 0);
    }
  }
  // A hint frames its cell while the board is the one it was given for.
  if (a.hintKind != 0 && a.hintRow >= 1 && a.gridAtHint == s_.puzzle.Grid)
    aids.hint = a.hintRow * kGridDim + a.hintCol;
  if (a.cursorRow >= 1 && a.cursorRow <= LoopRows(s_.puzzle) && a.cursorCol >= 1 &&
      a.cursorCol <= LoopCols(s_.puzzle))
    aids.cursor = a.cursorRow * kGridDim + a.cursorCol;
  if (aids == aids_) return;
  if (aids.cursor != aids_.cursor && aids.cursor != 0) AnnounceCursor(this, a.cursorRow, a.cursorCol);
  aids_ = aids;
  update();
}

void BoardView::PaintAids(QPainter& p, const QRect& dirty) const {
  p.save();
  p.translate(offset_);
  ScaleToTwips(p, logicalDpiX() * zoom_, logicalDpiY() * zoom_);
  const QRectF dirtyTwips = p.transform().inverted().mapRect(QRectF(dirty));
  PaintOptions(p, dirtyTwips);
  PaintNotes(p, dirtyTwips);
  auto cell = [](int at, int inset) {
    const int r = at / kGridDim, c = at % kGridDim;
    return QRectF(CellX(c) + inset, CellY(r) + inset, kCellSize - 2 * inset, kCellSize - 2 * inset);
  };
  for (size_t at = 0; at < aids_.shaded.size(); ++at) {
    if (aids_.shaded[at]) p.fillRect(cell(static_cast<int>(at), 15), QColor(40, 120, 230, 55));
  }
  p.setBrush(Qt::NoBrush);
  if (aids_.hint) {
    p.setPen(QPen(QColor(230, 140, 0), 40, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    p.drawRect(cell(aids_.hint, 30));
  }
  if (aids_.cursor) {
    p.setPen(QPen(QColor(20, 90, 210), 30, Qt::DashLine, Qt::SquareCap, Qt::MiterJoin));
    p.drawRect(cell(aids_.cursor, 30));
  }
  p.restore();
}

void BoardView::PaintOptions(QPainter& p, const QRectF& dirty) const {
  const QFont small = TwipsFont(180, true);
  const QFont rank = TwipsFont(14 * kTwipsPerPoint, true);
  const QFont symbol = TwipsFont(560, false), suits = TwipsFont(230, false);
  for (size_t at = 0; at < aids_.options.size(); ++at) {
    const CardSet set = aids_.options[at] & ~kOptionsShown;
    const int r = static_cast<int>(at) / kGridDim, c = static_cast<int>(at) % kGridDim;
    const QRectF cell(CellX(c), CellY(r), kCellSize, kCellSize);
    if (aids_.options[at] == 0 || !dirty.intersects(cell)) continue;
    const int count = __builtin_popcountll(set);
    p.setFont(small);
    p.setPen(count == 0 ? QColor(200, 9, 9) : QColor(90, 90, 90));
    p.drawText(cell.adjusted(40, 25, -50, 0), Qt::AlignRight | Qt::AlignTop, QString::number(count));
    if (count == 1) {
      // The one card it can take, faintly where a placed card would stand.
      const int card = __builtin_ctzll(set) + 1;
      p.setOpacity(0.3);
      p.setPen(SuitQColor(CardSuit(card)));
      p.setFont(symbol);
      p.drawText(QRectF(cell.x() + 60, cell.y() + 10, 550, 620), Qt::AlignCenter,
                 kSuitGlyphs[CardSuit(card) - 1]);
      p.setFont(rank);
      p.drawText(QPointF(TextX(c) + 310, TextY(r) + 325 + p.fontMetrics().ascent()),
                 QString::fromLatin1(RankLetter(CardRank(card))));
      p.setOpacity(1);
      continue;
    }
    for (int suit = 1; suit <= 4; ++suit) {
      if ((set & (kFirstSuitCards << (suit - 1))) == 0) continue;
      p.setPen(SuitQColor(suit));
      p.setFont(suits);
      p.drawText(QRectF(cell.x() + 55 + (suit - 1) * 175, cell.bottom() - 260, 175, 240), Qt::AlignCenter,
                 kSuitGlyphs[suit - 1]);
    }
  }
}

void BoardView::PaintNotes(QPainter& p, const QRectF& dirty) const {
  p.setPen(QColor(20, 90, 210));
  // Small enough that two neighbouring ranks never touch (a bold "Q" is the widest).
  const QFont small = TwipsFont(130, true), pencil = TwipsFont(135, true);
  for (size_t at = 0; at < aids_.notes.size(); ++at) {
    const int r = static_cast<int>(at) / kGridDim, c = static_cast<int>(at) % kGridDim;
    const QRectF cell(CellX(c), CellY(r), kCellSize, kCellSize);
    const unsigned notes = aids_.notes[at];
    if (notes == 0 || !dirty.intersects(cell)) continue;
    if (notes & kNotesMarked) {
      // One line under the mark's symbol, left of its "?".
      QString text;
      for (int rank = 1; rank <= 13; ++rank)
        if (notes & (1U << (rank - 1))) text += QLatin1String(RankLetter(rank));
      p.setFont(small);
      const QRectF line = cell.adjusted(35, 615, -290, -20);
      p.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                 p.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(line.width())));
      continue;
    }
    // Pencil marks: each rank in its own place, 1-7 above 8-K, between the
    // option count and the option suits.
    p.setFont(pencil);
    for (int rank = 1; rank <= 13; ++rank) {
      if ((notes & (1U << (rank - 1))) == 0) continue;
      const int column = (rank - 1) % 7, line = (rank - 1) / 7;
      const QRectF place(cell.x() + 40 + column * 104, cell.y() + 215 + line * 185, 104, 185);
      p.drawText(place, Qt::AlignCenter, QLatin1String(RankLetter(rank)));
    }
  }
}

void BoardView::keyPressEvent(QKeyEvent* event) {
  if (!onKey || !onKey(event)) QWidget::keyPressEvent(event);
}

void BoardView::mouseReleaseEvent(QMouseEvent* event) {
  const int button = event->button() == Qt::LeftButton ? 1 : (event->button() == Qt::RightButton ? 2 : 0);
  const QPointF twips = PixelsToTwips(event->position());
  if (button == 1 && event->modifiers().testFlag(Qt::ShiftModifier) && onMarkClick) {
    onMarkClick(static_cast<float>(twips.x()), static_cast<float>(twips.y()));
    return;
  }
  if (button == 1 && event->modifiers().testFlag(Qt::ControlModifier) && onNoteClick) {
    onNoteClick(static_cast<float>(twips.x()), static_cast<float>(twips.y()));
    return;
  }
  if (button != 0 && onMouseUp)
    onMouseUp(button, static_cast<float>(twips.x()), static_cast<float>(twips.y()));
}

void BoardView::mouseMoveEvent(QMouseEvent* event) {
  const QPointF twips = PixelsToTwips(event->position());
  if (onMouseMove) onMouseMove(static_cast<float>(twips.x()), static_cast<float>(twips.y()));
}

}  // namespace velmora
