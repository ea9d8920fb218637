// The Print menu on the desktop: its commands with the installed printers,
// Form5 and a PDF file where no printer is chosen, and the print preview.
#include "printing/ui/print_menu.h"

#include <QFileInfo>
#include <QLocale>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <memory>

#include "files/file_commands.h"
#include "files/text_file.h"
#include "printing/ui/form5.h"
#include "printing/ui/page_painter.h"

namespace velmora {
namespace {

QPageSize LocalPaper() {
  return QPageSize(QLocale().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter
                                                                              : QPageSize::A4);
}

// The printer behind the menu commands: the current printer, or a PDF file
// named when the job starts.
class DesktopPrintJobs : public PrintJobs {
 public:
  DesktopPrintJobs(Form5& form5, PrinterChoice& printer, const GameState& s, UserInterface& ui)
      : form5_(form5), choice_(printer), s_(s), ui_(ui) {}

  std::optional<PrintFileChoice> AskPrintFile(const std::string& file) override {
    return form5_.Ask(ui_, file, s_.session.AppFolder);
  }

  PrintSurface* StartJob(const std::string& source) override {
    const QString name = choice_.Current();
    if (name == QString::fromLatin1(kPdfPrinterName) ||
        !QPrinterInfo::availablePrinterNames().contains(name)) {
      return StartPdf(source);
    }
    printer_ = std::make_unique<QPrinter>(QPrinterInfo::printerInfo(name), QPrinter::HighResolution);
    printer_->setFullPage(true);  // positions count from the paper's corner
    painter_ = std::make_unique<PagePainter>(*printer_, strip_);
    return painter_.get();
  }

  std::string EndJob() override {
    if (pdf_) return pdf_->Save(pdfPath_) ? "" : kPdfWriteError + pdfPath_;
    const bool ok = painter_ && painter_->End() && printer_->printerState() != QPrinter::Error;
    return ok ? "" : "Error printing to " + choice_.Current().toStdString();
  }

 private:
  PrintSurface* StartPdf(const std::string& source) {
    FileDialogRequest request{"SAVE", "Print to PDF file", "*.pdf", "PDF Files", s_.session.AppFolder};
    pdfPath_ = ui_.AskFileName(request);
    if (pdfPath_.empty()) return nullptr;
    if (QFileInfo(QString::fromLocal8Bit(pdfPath_.c_str())).suffix().isEmpty()) pdfPath_ += ".pdf";
    // The board is reloaded from the current file after printing: neither
    // puzzle file may become the PDF.
    if (SameFile(pdfPath_, source) || SameFile(pdfPath_, s_.session.CurrentPuzzleFile)) {
      ui_.ShowMessage(kSameFileText);
      return nullptr;
    }
    if (ConfirmOverwrite(ui_, pdfPath_) == 0) return nullptr;
    pdf_ = std::make_unique<PdfJob>(LocalPaper(), strip_);
    return &pdf_->Surface();
  }

  Form5& form5_;
  PrinterChoice& choice_;
  const GameState& s_;
  UserInterface& ui_;
  SuitStrip strip_;
  std::unique_ptr<QPrinter> printer_;
  std::unique_ptr<PagePainter> painter_;
  std::unique_ptr<PdfJob> pdf_;
  std::string pdfPath_;
};

}  // namespace

Form5& PrintMenu::Dialog() {
  if (!form5_) {
    form5_ = new Form5(printer_, window_);
    form5_->setPalette(window_->palette());
  }
  return *form5_;
}

std::function<void(GameState&, UserInterface&)> PrintMenu::Command(PrintCommand command) {
  return [this, command](GameState& s, UserInterface& ui) {
    DesktopPrintJobs jobs(Dialog(), printer_, s, ui);
    command(s, ui, jobs);
  };
}

void PrintMenu::Preview(const GameState& s) {
  const QString name = printer_.Current();
  QPrinter printer(QPrinterInfo::printerInfo(name), QPrinter::HighResolution);
  if (printer.outputFormat() == QPrinter::PdfFormat) printer.setPageSize(LocalPaper());
  printer.setFullPage(true);
  QPrintPreviewDialog preview(&printer, window_);
  preview.setObjectName(QStringLiteral("PrintPreview"));
  SuitStrip strip;
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview, [&](QPrinter* device) {
    PagePainter page(*device, strip);
    PrintPuzzleAndSolution(s, page);
    page.End();
  });
  preview.exec();
}

}  // namespace velmora
