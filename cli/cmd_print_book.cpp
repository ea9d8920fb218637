// velmora-cli book: a range of a puzzle file as a book in a PDF file, several
// puzzles a page, the answers at the back, page numbers and a cover.
#include <QPageSize>
#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "cmd_print_app.h"
#include "files/puzzle_file.h"
#include "files/text_file.h"
#include "model/text.h"
#include "printed_messages.h"
#include "printing/book.h"
#include "printing/ui/page_painter.h"
#include "record.h"
#include "subcommand.h"

namespace velmora::cli {
namespace {

int RunBook(const std::vector<std::string>& args);

const Subcommand kBook{
    "book",
    "book FILE --pdf OUT.pdf [--from A] [--to B] [--per-page 1|2|4|6] [--answers back|none] "
    "[--answers-per-page K] [--title TEXT] [--paper a4|letter]",
    "write records A..B of FILE as a puzzle book to a PDF file: a cover with --title, the "
    "puzzles, the answers at the back",
    81, RunBook};
const Registration kBookReg(kBook);

struct BookArgs {
  std::string file, pdf, from = "1", to, paper = "a4", answers = "back", title;
  long long perPage = 4, answersPerPage = 6;
};

bool IsValueOption(const std::string& arg) {
  for (const char* o :
       {"--pdf", "--from", "--to", "--per-page", "--answers", "--answers-per-page", "--title", "--paper"})
    if (arg == o) return true;
  return false;
}

std::string Check(const BookArgs& a) {
  if (a.file.empty() || a.pdf.empty()) return "expected FILE and --pdf OUT.pdf";
  if (a.paper != "a4" && a.paper != "letter") return "--paper is a4 or letter";
  if (a.answers != "back" && a.answers != "none") return "--answers is back or none";
  if (std::ranges::count(kBookPerPage, a.perPage) == 0) return "--per-page is 1, 2, 4 or 6";
  if (a.answersPerPage < 1 || a.answersPerPage > kMaxAnswersPerPage)
    return "--answers-per-page is 1 to " + NumText(kMaxAnswersPerPage);
  return "";
}

// An empty text when the arguments are sound, otherwise what is wrong.
std::string Parse(const std::vector<std::string>& args, BookArgs& a) {
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    if (IsValueOption(arg)) {
      if (i + 1 >= args.size()) return arg + " needs a value";
      const std::string& value = args[++i];
      if (arg == "--pdf") a.pdf = value;
      if (arg == "--from") a.from = value;
      if (arg == "--to") a.to = value;
      if (arg == "--paper") a.paper = value;
      if (arg == "--answers") a.answers = value;
      if (arg == "--title") a.title = value;
      if (arg == "--per-page" && !ParseInt(value, a.perPage)) return "--per-page is 1, 2, 4 or 6";
      if (arg == "--answers-per-page" && !ParseInt(value, a.answersPerPage)) a.answersPerPage = 0;
    } else if (a.file.empty() && (arg.empty() || arg[0] != '-')) {
      a.file = arg;
    } else {
      return "unexpected argument '" + arg + "'";
    }
  }
  return Check(a);
}

int Failure(const std::string& text) {
  std::fprintf(stderr, "velmora-cli book: %s\n", text.c_str());
  return 1;
}

int Write(const BookChoice& c, const BookContents& contents, const std::string& pdf,
          const std::string& paper) {
  const auto app = PageApplication();
  SuitStrip strip;
  PdfJob job(QPageSize(paper == "letter" ? QPageSize::Letter : QPageSize::A4), strip);
  // A record that loaded a moment ago and no longer does: the file changed,
  // and a book whose answers may not match its puzzles is not written.
  if (!PrintBook(c, contents, job.Surface())) return Failure(c.file + " changed while the book was made");
  if (!job.Save(pdf)) {
    std::printf("%s%s\n", kPdfWriteError, pdf.c_str());
    return 1;
  }
  const int n = static_cast<int>(contents.records.size());
  std::printf("Done: %d %s, %d %s\n", n, n == 1 ? "puzzle" : "puzzles", job.Pages(),
              job.Pages() == 1 ? "page" : "pages");
  if (contents.unreadable > 0) std::printf("%s\n", LeftOutText(contents.unreadable).c_str());
  return 0;
}

int RunBook(const std::vector<std::string>& args) {
  BookArgs a;
  if (const std::string problem = Parse(args, a); !problem.empty()) return UsageError(kBook, problem);
  if (!Readable(kBook, a.file)) return 1;
  if (SameFile(a.file, a.pdf)) return Failure(kSameFileText);
  if (a.to.empty()) a.to = NumText(CountPuzzles(a.file));
  PrintedMessages ui(PrintedMessages::LineBreaks::kKept);
  const std::optional<PrintFileChoice> range = Form5Answer(ui, a.file, a.from, a.to, false, 1);
  if (!range) return 1;
  if (range->first > range->last)
    return Failure("nothing to print: --from " + a.from + " comes after --to " + a.to);
  const BookChoice c{a.file,
                     range->first,
                     range->last,
                     static_cast<int>(a.perPage),
                     a.answers == "back",
                     static_cast<int>(a.answersPerPage),
                     a.title};
  const BookContents contents = ReadBookContents(c);
  if (contents.records.empty())
    return Failure("nothing to print: no record from " + a.from + " to " + a.to + " could be read");
  return Write(c, contents, a.pdf, a.paper);
}

}  // namespace
}  // namespace velmora::cli
