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

// The printer behind the menu commands: the current printer of Form5, or a
// PDF file named when the job starts.
class DesktopPrintJobs : public PrintJobs {
 public:
  DesktopPrintJobs(QWidget* window, const GameState& s, UserInterface& ui)
      : form5_(PrintDialogOf(window)), s_(s), ui_(ui) {}

  std::string AskPrintFile(const std::string& file) override {
    return form5_->Ask(ui_, file, s_.session.AppFolder);
  }

  PrintSurface* StartJob(const std::string& source) override {
    const QString name = form5_->CurrentPrinter();
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
    return ok ? "" : "Error printing to " + form5_->CurrentPrinter().toStdString();
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

  Form5* form5_;
  const GameState& s_;
  UserInterface& ui_;
  SuitStrip strip_;
  std::unique_ptr<QPrinter> printer_;
  std::unique_ptr<PagePainter> painter_;
  std::unique_ptr<PdfJob> pdf_;
  std::string pdfPath_;
};

}  // namespace

Form5* PrintDialogOf(QWidget* window) {
  auto* form5 = window->findChild<Form5*>(QStringLiteral("Form5"), Qt::FindDirectChildrenOnly);
  if (!form5) {
    form5 = new Form5(window);
    form5->setPalette(window->palette());
  }
  return form5;
}

std::function<void(GameState&, UserInterface&)> DesktopPrint(QWidget* window, PrintCommand command) {
  return [window, command](GameState& s, UserInterface& ui) {
    DesktopPrintJobs jobs(window, s, ui);
    command(s, ui, jobs);
  };
}

void PrintPreview(GameState& s, UserInterface&, QWidget* window) {
  const QString name = PrintDialogOf(window)->CurrentPrinter();
  QPrinter printer(QPrinterInfo::printerInfo(name), QPrinter::HighResolution);
  if (printer.outputFormat() == QPrinter::PdfFormat) printer.setPageSize(LocalPaper());
  printer.setFullPage(true);
  QPrintPreviewDialog preview(&printer, window);
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
