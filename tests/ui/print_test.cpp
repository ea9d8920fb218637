// Printed pages rendered into images at known resolutions, and the Print
// menu with its file dialog, a PDF file standing in for the printer.
#include <QPrintPreviewDialog>
#include <cmath>

#include "printing/ui/book_form.h"
#include "printing/ui/form5.h"
#include "printing/ui/page_painter.h"
#include "ui_support.h"

namespace velmora::test {
namespace {

// The page of "Puzzle and Solution" on white paper at `dpi`.
struct RenderedPage {
  RenderedPage(const GameState& s, int dpi)
      : image(12240 * dpi / 1440, 15840 * dpi / 1440, QImage::Format_RGB32) {
    image.fill(Qt::white);
    image.setDotsPerMeterX(static_cast<int>(std::lround(dpi / 0.0254)));
    image.setDotsPerMeterY(static_cast<int>(std::lround(dpi / 0.0254)));
    SuitStrip strip;
    PagePainter page(image, strip);
    PrintPuzzleAndSolution(s, page);
    page.End();
  }
  bool Dark(int x, int y) const {
    return qGray(image.pixel(x * image.width() / 12240, y * image.height() / 15840)) < 128;
  }
  // Whether anything is marked inside the twips rectangle.
  bool Ink(int x1, int y1, int x2, int y2) const {
    for (int y = y1; y <= y2; y += 5)
      for (int x = x1; x <= x2; x += 5)
        if (Dark(x, y)) return true;
    return false;
  }
  // Height in twips of the ink inside a column of the rectangle.
  int InkHeight(int x1, int y1, int x2, int y2) const {
    int top = y1, bottom = y2;
    while (top < y2 && !Ink(x1, top, x2, top)) top += 5;
    while (bottom > top && !Ink(x1, bottom, x2, bottom)) bottom -= 5;
    return bottom - top;
  }
  QImage image;
};

TEST(PrintedPage, GeometryAndPointSizesHoldAtEveryResolution) {
  const GameState s = Loaded(SampleFile(), 1);
  for (int dpi : {144, 300}) {
    SCOPED_TRACE(dpi);
    const RenderedPage page(s, dpi);
    // The first cells' boxes: puzzle at (1830, 1630), solution at (1830, 8730).
    for (int top : {1630, 8730}) {
      EXPECT_TRUE(page.Dark(2200, top) && page.Dark(1830, top + 400));
      EXPECT_FALSE(page.Ink(1850, top - 60, 2500, top - 30) || page.Ink(1770, top + 100, 1800, top + 700));
    }
    EXPECT_TRUE(page.Ink(2660, 8750, 3430, 9520));  // the solution's card in its place
    EXPECT_TRUE(page.Ink(1900, 1690, 2240, 2030));  // the first cell's suit symbol in its place
    // A 14-point digit stands about 10 points (200 twips) high; 8-point heading capitals about 115.
    EXPECT_NEAR(page.InkHeight(2400, 2090, 2620, 2410), 200, 30);
    EXPECT_NEAR(page.InkHeight(1800, 1380, 1880, 1600), 115, 30);
  }
}

TEST(Form1Print, TheMenusEntriesEachWithItsDialogsAndAPdfFile) {
  Window win(2);
  QStringList entries;
  for (const char* menu : {"mnuprint", "mnuprintcur"})
    for (QAction* a : win.Get<QMenu>(menu)->actions()) entries << a->text();
  EXPECT_EQ(entries.join('|'),
            "&Current|Puzzle &File|Puzzle &Book...|Print Pre&view|&Puzzle|&Solution|Puzzle &and Solution");
  win.hand.answers = {QMessageBox::No, QMessageBox::Yes};
  win.hand.names = {win.dir.File("current"), win.dir.File("file.pdf")};
  win.Trigger("mnuprintcurrentsol");
  win.Trigger("mnuprintcurrent");
  std::string seen;
  OnceOn<Form5> hand([&](Form5* f) {
    ExpectLaidOut(f);
    seen = (f->windowTitle() + "|" + Child<QComboBox>(f, "Combo1")->currentText() + "|" +
            Child<QLineEdit>(f, "FileNow")->text() + "|" + Child<QLineEdit>(f, "Text2")->text())
               .toStdString();
    EXPECT_FALSE(Child<QGroupBox>(f, "Frame3")->isVisibleTo(f));
    Child<QLineEdit>(f, "Text1")->setText("0");
    Press(f, "Command1");  // refused when "From" is 0, and the dialog stays
    Child<QLineEdit>(f, "Text1")->setText("2");
    Child<QCheckBox>(f, "Check1")->setChecked(true);
    Press(f, "Command1");
  });
  win.Trigger("mnuprintfile");
  EXPECT_EQ(seen, "Print Puzzles From File|PDF file|" + win.Puzzles() + "|3");
  const std::string pdf = "Print to PDF file|PDF Files (*.pdf)|" + win.dir.path() + "|SAVE";
  EXPECT_EQ(win.hand.fileDialogs, (std::vector<std::string>{pdf, pdf}));
  EXPECT_EQ(win.hand.texts,
            (std::vector<std::string>{"Print Current solution?", "Print Current Puzzle and Solution?", "Done",
                                      "Invalid from or to puzzle number", "Done"}));
  EXPECT_EQ(win.dir.Read("current.pdf").substr(0, 5) + win.dir.Read("file.pdf").substr(0, 5), "%PDF-%PDF-");
  OnceOn<QPrintPreviewDialog> preview([](QPrintPreviewDialog* d) { d->reject(); });
  win.Trigger("mnuprintpreview");
  EXPECT_TRUE(preview.done);
}

TEST(Form1Print, PuzzleBookToAPdfFileAndAnImageOfThePuzzle) {
  Window win(2);
  win.hand.names = {win.dir.File("book"), win.Puzzles(), win.dir.File("puzzle.svg")};
  OnceOn<BookForm> hand([&](BookForm* f) {
    ExpectLaidOut(f);
    EXPECT_EQ(Child<QLineEdit>(f, "BookTo")->text(), "3");
    Child<QLineEdit>(f, "BookFrom")->setText("4");
    Press(f, "BookPdf");  // refused, and the dialog stays
    Child<QLineEdit>(f, "BookFrom")->setText("1");
    Child<QComboBox>(f, "BookPerPage")->setCurrentText("1");
    Child<QLineEdit>(f, "BookTitle")->setText("Cards");
    Press(f, "BookPdf");
    Press(f, "BookPdf");  // the puzzle file is never the PDF
    Press(f, "BookClose");
  });
  win.Trigger("mnuprintbook");
  win.Trigger("mnuexportimage");
  EXPECT_EQ(win.hand.texts, (std::vector<std::string>{
                                "Nothing to print: puzzle 4 comes after puzzle 3", "Done", kSameFileText,
                                "Export the solution? (No exports the puzzle)", "Done"}));
  // The cover, three puzzle pages and an answer page.
  EXPECT_NE(win.dir.Read("book.pdf").find("/Count 5"), std::string::npos);
  EXPECT_NE(win.dir.Read("puzzle.svg").find(">Not used: "), std::string::npos);
}

}  // namespace
}  // namespace velmora::test
