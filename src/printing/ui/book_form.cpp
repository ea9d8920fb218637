// Print > "Puzzle Book..." and File > "Export Puzzle Image...".
#include "printing/ui/book_form.h"

#include <QComboBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QLocale>
#include <QPageSize>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSpinBox>

#include "files/file_commands.h"
#include "files/puzzle_file.h"
#include "files/text_file.h"
#include "model/commands.h"
#include "model/text.h"
#include "printing/ui/page_painter.h"
#include "printing/ui/puzzle_image.h"

namespace velmora {
namespace {

QString Q(const std::string& text) { return QString::fromLocal8Bit(text.c_str()); }

template <typename Widget>
Widget* Named(Widget* w, const char* name) {
  w->setObjectName(QString::fromLatin1(name));
  return w;
}

QComboBox* Combo(QWidget* parent, const char* name, const QStringList& items, int chosen) {
  auto* box = Named(new QComboBox(parent), name);
  box->addItems(items);
  box->setCurrentIndex(chosen);
  return box;
}

// A file name the person chose for an output, with `suffix` when it has
// none; "" when cancelled or refused (a puzzle file, or No to replacing).
std::string OutputName(UserInterface& ui, const GameState& s, const std::string& source,
                       const FileDialogRequest& request, const char* suffix) {
  std::string path = ui.AskFileName(request);
  if (path.empty()) return "";
  if (QFileInfo(Q(path)).suffix().isEmpty()) path += suffix;
  if (SameFile(path, source) || SameFile(path, s.session.CurrentPuzzleFile)) {
    ui.ShowMessage(kSameFileText);
    return "";
  }
  return ConfirmOverwrite(ui, path) == 0 ? "" : path;
}

}  // namespace

BookForm::BookForm(const GameState& s, UserInterface& ui, QWidget* parent) : QDialog(parent), s_(s), ui_(ui) {
  setObjectName(QStringLiteral("BookForm"));
  setWindowTitle(QStringLiteral("Puzzle Book"));
  auto* form = new QFormLayout(this);
  const std::string& file = s.session.CurrentPuzzleFile;
  form->addRow(QStringLiteral("File:"), file_ = Named(new QLineEdit(Q(file), this), "BookFile"));
  file_->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('x')) * 48);
  auto* browse = Named(new QPushButton(QStringLiteral("Browse..."), this), "BookBrowse");
  form->addRow(QString(), browse);
  form->addRow(QStringLiteral("From puzzle:"),
               from_ = Named(new QLineEdit(QStringLiteral("1"), this), "BookFrom"));
  form->addRow(QStringLiteral("To puzzle:"),
               to_ = Named(new QLineEdit(Q(NumText(CountPuzzles(file))), this), "BookTo"));
  form->addRow(QStringLiteral("Puzzles a page:"),
               perPage_ = Combo(this, "BookPerPage", {"1", "2", "4", "6"}, 2));
  form->addRow(QStringLiteral("Answers:"), answers_ = Combo(this, "BookAnswers", {"At the back", "None"}, 0));
  answersPerPage_ = Named(new QSpinBox(this), "BookAnswersPerPage");
  answersPerPage_->setRange(1, kMaxAnswersPerPage);
  answersPerPage_->setValue(6);
  form->addRow(QStringLiteral("Answers a page:"), answersPerPage_);
  form->addRow(QStringLiteral("Title (a cover page):"), title_ = Named(new QLineEdit(this), "BookTitle"));
  const bool letter = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
  form->addRow(QStringLiteral("Paper:"), paper_ = Combo(this, "BookPaper", {"A4", "Letter"}, letter ? 1 : 0));
  auto* buttons = new QHBoxLayout;
  const auto add = [&](const char* name, const char* text, auto act) {
    auto* b = Named(new QPushButton(QString::fromLatin1(text), this), name);
    buttons->addWidget(b);
    connect(b, &QPushButton::clicked, this, act);
  };
  add("BookPreview", "Pre&view...", &BookForm::Preview);
  add("BookPrint", "&Print...", &BookForm::Print);
  add("BookPdf", "P&DF File...", &BookForm::Pdf);
  add("BookClose", "&Close", &QDialog::reject);
  form->addRow(buttons);
  connect(browse, &QPushButton::clicked, this, [this] {
    const std::string name = ui_.AskFileName(
        {"OPEN", "Puzzle file of the book", "*.vlm;*.txt;*.dat", "velmora Files", s_.session.AppFolder});
    if (name.empty()) return;
    file_->setText(Q(name));
    to_->setText(Q(NumText(CountPuzzles(name))));
  });
}

std::optional<BookForm::Book> BookForm::Read() {
  const std::string file = file_->text().toLocal8Bit().toStdString();
  const std::optional<PrintFileChoice> range =
      Form5Answer(ui_, file, from_->text().toStdString(), to_->text().toStdString(), false, 1);
  if (!range) return std::nullopt;
  if (range->first > range->last) {
    ui_.ShowMessage("Nothing to print: puzzle" + Str(range->first) + " comes after puzzle" +
                    Str(range->last));
    return std::nullopt;
  }
  Book book{{file, range->first, range->last, perPage_->currentText().toInt(), answers_->currentIndex() == 0,
             answersPerPage_->value(), title_->text().toLocal8Bit().toStdString()},
            {}};
  ui_.SetBusy(true);
  book.contents = ReadBookContents(book.choice);
  ui_.SetBusy(false);
  if (book.contents.records.empty()) {
    ui_.ShowMessage("Nothing to print: no record from" + Str(range->first) + " to" + Str(range->last) +
                    " could be read");
    return std::nullopt;
  }
  return book;
}

QPageSize BookForm::Paper() const {
  return QPageSize(paper_->currentIndex() == 1 ? QPageSize::Letter : QPageSize::A4);
}

void BookForm::Done(const Book& book, const std::string& failure) {
  const std::string leftOut = LeftOutText(book.contents.unreadable);
  ui_.ShowMessage(!failure.empty() ? failure
                                   : (leftOut.empty() ? "Done" : "Done" + std::string(kNewLine) + leftOut));
}

void BookForm::Preview() {
  const std::optional<Book> book = Read();
  if (!book) return;
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageSize(Paper());
  printer.setFullPage(true);  // positions count from the paper's corner
  QPrintPreviewDialog preview(&printer, this);
  preview.setObjectName(QStringLiteral("BookPreview"));
  SuitStrip strip;
  connect(&preview, &QPrintPreviewDialog::paintRequested, &preview, [&](QPrinter* device) {
    PagePainter page(*device, strip);
    PrintBook(book->choice, book->contents, page);
    page.End();
  });
  preview.exec();
}

void BookForm::Print() {
  const std::optional<Book> book = Read();
  if (!book) return;
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageSize(Paper());
  printer.setFullPage(true);
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() != QDialog::Accepted) return;
  SuitStrip strip;
  PagePainter page(printer, strip);
  const bool printed = PrintBook(book->choice, book->contents, page);
  const bool ended = page.End() && printer.printerState() != QPrinter::Error;
  Done(*book, !printed ? book->choice.file + " changed while the book was made"
                       : (ended ? "" : "Error printing to " + printer.printerName().toStdString()));
}

void BookForm::Pdf() {
  const std::optional<Book> book = Read();
  if (!book) return;
  const std::string path =
      OutputName(ui_, s_, book->choice.file,
                 {"SAVE", "Puzzle book PDF file", "*.pdf", "PDF Files", s_.session.AppFolder}, ".pdf");
  if (path.empty()) return;
  SuitStrip strip;
  PdfJob job(Paper(), strip);
  // A file that changed while the book was laid out is not written half right.
  if (!PrintBook(book->choice, book->contents, job.Surface()))
    return Done(*book, book->choice.file + " changed while the book was made");
  Done(*book, job.Save(path) ? "" : kPdfWriteError + path);
}

void mnuprintbook(GameState& s, UserInterface& ui, QWidget* mainWindow) {
  if (RefusedWhileSolving(s.session, ui)) return;
  BookForm form(s, ui, mainWindow);
  if (mainWindow) form.setPalette(mainWindow->palette());
  form.exec();
}

void mnuexportimage(GameState& s, UserInterface& ui) {
  if (s.session.CurrentPuzzleFile.empty()) return ui.ShowMessage("No puzzle to export");
  const bool solution = ui.AskYesNo("Export the solution? (No exports the puzzle)");
  const std::string path = OutputName(
      ui, s, s.session.CurrentPuzzleFile,
      {"SAVE", "Export Puzzle Image", "*.png;*.svg", "PNG or SVG Images", s.session.AppFolder}, ".png");
  if (path.empty()) return;
  // The puzzle as given, not the board in play.
  Puzzle shown = s.puzzle;
  shown.Grid = shown.PuzzleGrid;
  const ImageFormat format =
      QFileInfo(Q(path)).suffix().toLower() == QLatin1String("svg") ? ImageFormat::kSvg : ImageFormat::kPng;
  const bool saved = SavePuzzleImage(shown, solution ? PageKind::kSolution : PageKind::kPuzzle, format,
                                     kDefaultImageWidth, path);
  ui.ShowMessage(saved ? "Done" : kPdfWriteError + path);
}

}  // namespace velmora
