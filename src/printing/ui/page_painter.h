// Printed pages drawn on any QPainter device in twips: paper, a PDF file, an image.
#pragma once

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <memory>
#include <string>

#include "board/ui/twips_drawing.h"
#include "printing/print_commands.h"

namespace velmora {

// What a print job says when its PDF file cannot be written, before the name.
inline constexpr const char* kPdfWriteError = "Error writing file: ";

// A print surface on `device` (a QPrinter, a QPdfWriter, a QImage). The
// painter opens at the first mark, so a job that marks nothing prints
// nothing; a page break waits for a mark on the new page.
class PagePainter : public PrintSurface {
 public:
  PagePainter(QPaintDevice& device, SuitStrip& strip) : device_(device), strip_(strip) {}
  // Suit symbols as the font's suit characters in the suits' colours: an SVG
  // file then holds them as text, sharp at any size, not as pictures.
  void SymbolsAsText() { symbolsAsText_ = true; }

  void Text(int x, int y, int points, bool bold, const std::string& text) override;
  void Box(int x1, int y1, int x2, int y2) override;
  void Symbol(int suit, int x, int y, int size) override;
  void NewPage() override { newPage_ = pages_ > 0; }
  int RightEdge() const override;
  int BottomEdge() const override;

  // Ends the painting; false when the device refused it or memory ran out.
  bool End();
  int Pages() const { return pages_; }

 private:
  // The painter, opened and on the right page for a new mark; nullptr once
  // the painting failed.
  QPainter* Mark();
  void DrawText(int x, int y, int points, bool bold, const std::string& text);
  void DrawBox(int x1, int y1, int x2, int y2);
  void DrawSymbol(int suit, int x, int y, int size);
  template <typename Draw>
  void Guarded(Draw draw);

  QPaintDevice& device_;
  SuitStrip& strip_;
  std::unique_ptr<QPainter> painter_ = std::make_unique<QPainter>();
  int pages_ = 0;
  bool newPage_ = false;
  bool failed_ = false;
  bool symbolsAsText_ = false;
};

// Pages collected as a PDF document in memory, then saved in one piece.
class PdfJob {
 public:
  PdfJob(const QPageSize& paper, SuitStrip& strip);
  PrintSurface& Surface() { return painter_; }
  // Ends the document and writes it to `path` through a temporary file and a
  // rename; a job without pages writes nothing. False on a write error.
  bool Save(const std::string& path);
  int Pages() const { return painter_.Pages(); }

 private:
  QBuffer buffer_;
  QPdfWriter writer_;
  PagePainter painter_;
};

}  // namespace velmora
