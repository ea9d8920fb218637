// The board painted into an image (each suit's symbol and colour, where the rank
// and the solution text sit), played with the mouse and the keyboard through the
// main window, and the Assist menu.
#include "board/play.h"

#include "board/geometry.h"
#include "board/marks.h"
#include "board/ui/board_painter.h"
#include "model/hint.h"
#include "model/text.h"
#include "ui_support.h"

namespace velmora::test {
namespace {

const QColor kSurface(240, 240, 240), kBlackSuit(50, 50, 50), kRedSuit(200, 9, 9);
const QColor kStrip[4] = {QColor(0, 200, 200), QColor(200, 0, 200), QColor(200, 200, 0), QColor(0, 0, 200)};

// A board painted at 96 dpi (a pixel is 15 twips), cells filled white, with a
// strip of four plain colours so that a painted symbol names its index.
struct Rendered {
  explicit Rendered(const GameState& s, bool solution = false) {
    QImage plain(4 * 55, 55, QImage::Format_RGB32);
    for (int i = 0; i < 4; ++i) QPainter(&plain).fillRect(i * 55, 0, 55, 55, kStrip[i]);
    SuitStrip strip(plain);
    image.fill(Qt::magenta);
    QPainter p(&image);
    ScaleToTwips(p, 96, 96);
    BoardPainter painter(p, strip, Qt::white, kSurface);
    painter.DrawBoard(s.puzzle);
    if (solution) painter.DrawSolution(s.puzzle);
  }
  // Pixels in a twips rectangle for which `test` holds.
  int Count(double x, double y, double w, double h, const std::function<bool(QColor)>& test) const {
    int n = 0;
    for (int py = static_cast<int>(y / 15); py < static_cast<int>((y + h) / 15); ++py)
      for (int px = static_cast<int>(x / 15); px < static_cast<int>((x + w) / 15); ++px)
        n += test(image.pixelColor(px, py));
    return n;
  }
  int Count(double x, double y, double w, double h, QColor colour) const {
    return Count(x, y, w, h, [colour](QColor c) { return c == colour; });
  }
  QImage image{static_cast<int>(kPictureWidth / 15) + 1, static_cast<int>(kPictureHeight / 15) + 1,
               QImage::Format_RGB32};
};

TEST(BoardPainter, EachSuitHasItsSymbolAndColourWithTheRankAtTheLowerRight) {
  struct Case {
    int grid;  // a ten of the suit, or a suit-only mark
    int symbol;
    QColor colour;
  };
  const Case cases[] = {{37, 0, kBlackSuit}, {38, 1, kRedSuit},   {39, 2, kRedSuit},
                        {40, 3, kBlackSuit}, {-1, 0, kBlackSuit}, {-3, 2, kRedSuit}};
  for (const Case& c : cases) {
    GameState s;
    s.puzzle.Grid[2][3] = c.grid;
    const Rendered r(s);
    const double x = CellX(3), y = CellY(2);
    SCOPED_TRACE(c.grid);
    EXPECT_EQ(r.Count(x + 335, y + 325, 15, 15, kStrip[c.symbol]), 1);  // the symbol's centre
    const int rank = r.Count(x + 560, y + 475, 250, 335, c.colour);
    EXPECT_GT(rank, 5);
    EXPECT_EQ(r.Count(x, y, 810, 810, c.colour), rank);  // nowhere else in the cell
    EXPECT_EQ(r.Count(x, y, 810, 810, c.colour == kRedSuit ? kBlackSuit : kRedSuit), 0);
  }
}

TEST(BoardPainter, SolutionTextSitsAtTheLowerLeftOfEveryCellInTheBlackSuitColour) {
  GameState s;
  for (int k = 0; k < 49; ++k)
    s.puzzle.SolutionGrid[k / 7 + 1][k % 7 + 1] = 4 * (k % 7) + (k / 7) % 4 + 1;  // from 1S
  s.puzzle.SolutionGrid[7][7] = 52;                                               // to KC
  const Rendered r(s, true);
  const auto ink = [](QColor c) { return c != kSurface; };
  // Small text blends the suit colour with the surface: grey, darker at the core.
  const auto notGrey = [](QColor c) { return c.red() != c.green() || c.green() != c.blue(); };
  for (int k = 0; k < 49; ++k) {
    const double x = CellX(k % 7 + 1), y = CellY(k / 7 + 1);
    const int text = r.Count(x + 50, y + 600, 450, 200, ink);
    EXPECT_GT(text, 5) << k;
    EXPECT_EQ(r.Count(x + 30, y + 30, 750, 750, ink), text) << k;  // the only ink in the cell
    EXPECT_EQ(r.Count(x + 50, y + 600, 450, 200, notGrey), 0) << k;
    EXPECT_GT(r.Count(x + 50, y + 600, 450, 200, [](QColor c) { return c.red() < 120; }), 0) << k;
  }
}

TEST(Play, MouseKeysAndTheAssistMenuReachTheBoard) {
  Window win(1);
  GameState& s = win.s();
  BoardView* board = win.w.Board();
  const QList<QAction*> menus = win.w.menuBar()->actions();
  EXPECT_EQ(menus.indexOf(win.Get<QMenu>("mnuassist")->menuAction()), menus.size() - 2);  // just before Help
  EXPECT_TRUE(win.Get<QAction>("mnushadefits")->isCheckable() &&
              win.Get<QAction>("mnumarkgivens")->isCheckable());
  win.Trigger("mnuhint");
  const Hint hint = FindHint(s.puzzle);
  ASSERT_EQ(win.Text("pb").toStdString(), HintText(hint));
  const int row = hint.row, col = hint.col, card = hint.card;
  const double x = CellX(col), y = CellY(row);
  const QPoint frame = board->TwipsToPixels(QPointF(x + 405, y + 30)).toPoint();
  EXPECT_EQ(board->grab().toImage().pixelColor(frame), QColor(230, 140, 0));  // the hint's cell framed
  const QPointF centre = board->TwipsToPixels(QPointF(x + 405, y + 405));
  QMouseEvent move(QEvent::MouseMove, centre, board->mapToGlobal(centre), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QApplication::sendEvent(board, &move);
  EXPECT_TRUE(win.Text("pb").endsWith(
      QString::fromStdString(", Options=" + OptionText(s.puzzle.CellOptionsSaved[row][col]))));

  // Keyboard: the cursor to the cell, then its card typed; Delete empties it again.
  Key(board, Qt::Key_Up);  // shows the cursor on 1, 1
  for (int r = 1; r < row; ++r) Key(board, Qt::Key_Down);
  for (int c = 1; c < col; ++c) Key(board, Qt::Key_Right);
  const QPoint dash = board->TwipsToPixels(QPointF(x + 70, y + 30)).toPoint();
  EXPECT_EQ(board->grab().toImage().pixelColor(dash),
            QColor(20, 90, 210));  // the cursor's frame, over the hint's
  const std::string name = ListText(s.puzzle, card);
  for (const char letter : name) Key(board, Qt::Key_A, QString(QChar::fromLatin1(letter)));
  EXPECT_EQ(s.puzzle.Grid[row][col], card);
  Key(board, Qt::Key_Delete);
  EXPECT_EQ(s.puzzle.Grid[row][col], 0);

  // Mouse: the card chosen in its list (shading, painted over the kept picture,
  // shows where it fits), then the cell clicked, emptied, and undone.
  const auto shown = [&] {
    return board->grab().toImage().pixelColor(board->TwipsToPixels({x + 200, y + 200}).toPoint());
  };
  auto* list = win.Get<QListWidget>(("Remain" + std::to_string(CardSuit(card) - 1)).c_str());
  const auto item = list->findItems(QString::fromStdString(name), Qt::MatchExactly);
  ASSERT_EQ(item.size(), 1);
  Click(list->viewport(), Qt::LeftButton, list->visualItemRect(item[0]).center());
  const QColor plain = shown();
  win.Trigger("mnushadefits");
  EXPECT_NE(shown(), plain);
  EXPECT_NE(win.dir.Read("velmora.ini").find("ShadeFits=true"), std::string::npos);
  const auto marks = [&] {  // pixels of the kept picture inside the cell that differ from its background
    int n = 0;
    for (int dy = 60; dy < 780; dy += 30)
      for (int dx = 60; dx < 780; dx += 30) n += win.Pixel(x + dx, y + dy) != win.Pixel(x + 40, y + 40);
    return n;
  };
  Click(board, Qt::LeftButton, centre);
  EXPECT_EQ(s.puzzle.Grid[row][col], card);
  EXPECT_GT(marks(), 20);  // symbol and rank painted
  Click(board, Qt::RightButton, centre);
  EXPECT_EQ(s.puzzle.Grid[row][col] + marks(), 0);
  win.Get<QPushButton>("UndoEdit")->click();
  EXPECT_EQ(s.puzzle.Grid[row][col], card);
  win.Get<QPushButton>("UndoEdit")->click();
  win.Trigger("mnuviewsol");
  EXPECT_GT(marks(), 0);  // the solution's letters in the empty cell
}

}  // namespace
TEST(Play, OptionsInCellsArePaintedOverTheBoardAndChangeNothing) {
  Window win(1);
  const Puzzle& p = win.s().puzzle;
  BoardView* board = win.w.Board();
  int row = 1, col = 1;
  while (p.Grid[row][col] != 0) col = col % p.Cols + 1, row += col == 1;
  const Puzzle before = p;
  const QImage kept = board->Image(), plain = board->grab().toImage();
  const QString status = win.Text("pb");
  win.Trigger("mnuoptionsincells");
  const QImage shown = board->grab().toImage();
  const auto changed = [&](int r, int c) {
    int n = 0;
    for (int dy = 30; dy < 780; dy += 15)
      for (int dx = 30; dx < 780; dx += 15) {
        const QPoint at =
            (board->TwipsToPixels(QPointF(CellX(c) + dx, CellY(r) + dy)) * plain.devicePixelRatio())
                .toPoint();
        n += plain.pixelColor(at) != shown.pixelColor(at);
      }
    return n;
  };
  EXPECT_GT(changed(row, col), 10);
  EXPECT_EQ(changed(row, col == 1 ? 2 : 1) == 0,
            p.Grid[row][col == 1 ? 2 : 1] != 0);  // a card's cell untouched
  EXPECT_EQ(board->Image(), kept);
  EXPECT_EQ(win.Text("pb"), status);
  EXPECT_TRUE(p.CellOptions == before.CellOptions && p.Grid == before.Grid);
  EXPECT_NE(win.dir.Read("velmora.ini").find("OptionsInCells=true"), std::string::npos);
}

TEST(Play, MarksAndRankNotesFromTheKeyboardAndTheMouse) {
  Window win(1);
  const Puzzle& p = win.s().puzzle;
  BoardView* board = win.w.Board();
  Key(board, Qt::Key_Up);  // the cursor on 1, 1
  int col = 1;
  while (p.Grid[1][col] != 0) Key(board, Qt::Key_Right), ++col;
  QKeyEvent shiftH(QEvent::KeyPress, Qt::Key_H, Qt::ShiftModifier, QStringLiteral("H"));
  QApplication::sendEvent(board, &shiftH);
  EXPECT_EQ(p.Grid[1][col], -2);
  QApplication::sendEvent(board, &shiftH);  // the same suit again takes it away
  EXPECT_EQ(p.Grid[1][col], 0);
  const QPointF centre = board->TwipsToPixels(QPointF(CellX(col) + 405, CellY(1) + 405));
  for (const int mark : {-1, -2}) {
    QMouseEvent press(QEvent::MouseButtonPress, centre, board->mapToGlobal(centre), Qt::LeftButton,
                      Qt::LeftButton, Qt::ShiftModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, centre, board->mapToGlobal(centre), Qt::LeftButton,
                        Qt::NoButton, Qt::ShiftModifier);
    QApplication::sendEvent(board, &press);
    QApplication::sendEvent(board, &release);
    EXPECT_EQ(p.Grid[1][col], mark);
  }
  const QColor spade = win.Pixel(CellX(col) + 330, CellY(1) + 330);  // the symbol's middle, painted again
  win.Get<QPushButton>("UndoEdit")->click();
  EXPECT_EQ(p.Grid[1][col], -1);
  EXPECT_NE(win.Pixel(CellX(col) + 330, CellY(1) + 330), spade);
  // Alt and a rank notes it at the cursor; Ctrl and a click notes the chosen card's rank.
  const QImage unnoted = board->grab().toImage();
  QKeyEvent altQ(QEvent::KeyPress, Qt::Key_Q, Qt::AltModifier, QStringLiteral("q"));
  QApplication::sendEvent(board, &altQ);
  ChooseCard(win.s(), win.w, win.s().view.Remain[0].front());
  QMouseEvent ctrl(QEvent::MouseButtonRelease, centre, board->mapToGlobal(centre), Qt::LeftButton,
                   Qt::NoButton, Qt::ControlModifier);
  QApplication::sendEvent(board, &ctrl);
  EXPECT_EQ(p.Notes[1][col], (1 << 11) | (1 << (RankOfLetter(win.s().view.Remain[0].front()[0]) - 1)));
  EXPECT_NE(board->grab().toImage(), unnoted);
}

TEST(Play, EveryCellIsNamedForAScreenReaderAndTheCursorMovesTheFocus) {
  Window win(1);
  BoardView* board = win.w.Board();
  QAccessibleInterface* cells = QAccessible::queryAccessibleInterface(board);
  ASSERT_EQ(cells->childCount(), 49);
  const auto name = [&](int i) { return cells->child(i)->text(QAccessible::Name).toStdString(); };
  EXPECT_EQ(name(0), "row 1, column 1: five of hearts, given");
  EXPECT_EQ(name(1), "row 1, column 2: empty, 4 options");
  MarkCell(win.s(), win.w, 1, 2, 2);
  NoteCell(win.s(), win.w, 1, 2, 0x301);
  EXPECT_EQ(name(1), "row 1, column 2: empty, marked hearts, notes 19T");
  win.w.activateWindow();
  board->setFocus();
  Key(board, Qt::Key_Up);
  Key(board, Qt::Key_Right);
  EXPECT_EQ(cells->focusChild(), cells->child(1));
  EXPECT_TRUE(cells->child(1)->state().focused && !cells->child(0)->state().focused);
}

}  // namespace velmora::test
