// velmora-cli print: the printed pages of a puzzle file, or of one record as
// the Current commands print it, written to a PDF file.
#include <QPageSize>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cmd_print_app.h"
#include "files/puzzle_file.h"
#include "files/text_file.h"
#include "model/text.h"
#include "printed_messages.h"
#include "printing/print_commands.h"
#include "printing/ui/page_painter.h"
#include "record.h"
#include "subcommand.h"

namespace velmora::cli {
namespace {

int RunPrint(const std::vector<std::string>& args);

const Subcommand kPrint{
    "print",
    "print FILE --pdf OUT.pdf [--from A] [--to B] [--solutions] [--paper a4|letter] | "
    "print FILE --pdf OUT.pdf --current N [--what puzzle|solution|both] [--paper a4|letter]",
    "write the printed pages of records A..B of FILE (two puzzles a page, or each with its solution), or of "
    "record N alone, to a PDF file",
    80, RunPrint};
const Registration kPrintReg(kPrint);

// The answer Form5 would give, and a PDF file as the printer.
class PdfPrintJobs : public PrintJobs {
 public:
  PdfPrintJobs(std::optional<PrintFileChoice> answer, std::string out, const QPageSize& paper)
      : answer_(std::move(answer)), out_(std::move(out)), paper_(paper) {}
  std::optional<PrintFileChoice> AskPrintFile(const std::string&) override { return answer_; }
  PrintSurface* StartJob(const std::string&) override {
    job_ = std::make_unique<PdfJob>(paper_, strip_);
    return &job_->Surface();
  }
  // A run that printed nothing says so instead of "Done": an older file of
  // that name must not pass for its result.
  std::string EndJob() override {
    failed_ = !job_->Save(out_) || job_->Pages() == 0;
    if (!failed_) return "";
    return job_->Pages() == 0 ? "Nothing to print: " + out_ + " was not written" : kPdfWriteError + out_;
  }
  bool Failed() const { return failed_; }

 private:
  std::optional<PrintFileChoice> answer_;
  std::string out_;
  QPageSize paper_;
  SuitStrip strip_;
  std::unique_ptr<PdfJob> job_;
  bool failed_ = false;
};

struct PrintArgs {
  std::string file, pdf, from = "1", to, what = "both", paper = "a4";
  bool solutions = false, current = false, range = false;
  long long number = 0;
};

// An empty text when the arguments are sound, otherwise what is wrong.
std::string Parse(const std::vector<std::string>& args, PrintArgs& a) {
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    const bool hasValue = i + 1 < args.size();
    if (arg == "--solutions") {
      a.solutions = a.range = true;
    } else if (arg == "--pdf" || arg == "--from" || arg == "--to" || arg == "--paper" || arg == "--what" ||
               arg == "--current") {
      if (!hasValue) return arg + " needs a value";
      const std::string& value = args[++i];
      if (arg == "--pdf") a.pdf = value;
      if (arg == "--from") a.from = value, a.range = true;
      if (arg == "--to") a.to = value, a.range = true;
      if (arg == "--paper") a.paper = value;
      if (arg == "--what") a.what = value;
      if (arg == "--current" && !ParseInt(value, a.number)) return "N must be a whole number";
      a.current = a.current || arg == "--current";
    } else if (a.file.empty() && (arg.empty() || arg[0] != '-')) {
      a.file = arg;
    } else {
      return "unexpected argument '" + arg + "'";
    }
  }
  if (a.file.empty() || a.pdf.empty()) return "expected FILE and --pdf OUT.pdf";
  if (a.paper != "a4" && a.paper != "letter") return "--paper is a4 or letter";
  if (a.what != "puzzle" && a.what != "solution" && a.what != "both")
    return "--what is puzzle, solution or both";
  if (a.current && a.range) return "--current prints one record; --from, --to and --solutions print a range";
  return "";
}

int Failure(const std::string& text) {
  std::fprintf(stderr, "velmora-cli print: %s\n", text.c_str());
  return 1;
}

int PrintCurrent(const PrintArgs& a, PdfPrintJobs& jobs, UserInterface& ui) {
  GameState s;
  if (!LoadPuzzle(s, ui, a.file, RecordNumber(a.number), Draw::kNo)) {
    std::printf("not found\n");
    return 1;
  }
  if (a.what == "puzzle") mnuprintcurrentpuz(s, ui, jobs);
  if (a.what == "solution") mnuprintcurrentsol(s, ui, jobs);
  if (a.what == "both") mnuprintcurrent(s, ui, jobs);
  return jobs.Failed() ? 1 : 0;
}

int RunPrint(const std::vector<std::string>& args) {
  PrintArgs a;
  if (const std::string problem = Parse(args, a); !problem.empty()) return UsageError(kPrint, problem);
  // A damaged file is not printed as if its records before the damage were all.
  if (!Readable(kPrint, a.file)) return 1;
  if (SameFile(a.file, a.pdf)) return Failure(kSameFileText);
  const auto app = PageApplication();
  const QPageSize paper(a.paper == "letter" ? QPageSize::Letter : QPageSize::A4);
  PrintedMessages ui(PrintedMessages::LineBreaks::kKept);
  if (a.current) {
    PdfPrintJobs jobs(std::nullopt, a.pdf, paper);
    return PrintCurrent(a, jobs, ui);
  }
  if (a.to.empty()) a.to = NumText(CountPuzzles(a.file));
  std::optional<PrintFileChoice> answer = Form5Answer(ui, a.file, a.from, a.to, a.solutions, 1);
  if (!answer) return 1;
  if (Val(a.from) > Val(a.to))
    return Failure("nothing to print: --from " + a.from + " comes after --to " + a.to);
  PdfPrintJobs jobs(std::move(answer), a.pdf, paper);
  GameState s;
  mnuprintfile(s, ui, jobs);
  return jobs.Failed() ? 1 : 0;
}

}  // namespace
}  // namespace velmora::cli
