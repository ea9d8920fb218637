// velmora-cli export: one puzzle or its solution, with its Not used line, as
// an SVG or PNG image for a newspaper or a web page.
#include <cstdio>
#include <string>
#include <vector>

#include "cmd_print_app.h"
#include "files/puzzle_file.h"
#include "files/text_file.h"
#include "model/text.h"
#include "printing/ui/puzzle_image.h"
#include "record.h"
#include "subcommand.h"

namespace velmora::cli {
namespace {

int RunExport(const std::vector<std::string>& args);

const Subcommand kExport{
    "export", "export FILE N --svg OUT.svg | --png OUT.png [--solution] [--size PX]",
    "write record N of FILE (or with --solution its solution) with its Not used line as an "
    "SVG or PNG image PX pixels wide (default 1000)",
    82, RunExport};
const Registration kExportReg(kExport);

struct ExportArgs {
  std::vector<std::string> record;  // FILE N
  std::string out;
  ImageFormat format = ImageFormat::kPng;
  int outputs = 0;
  bool solution = false;
  long long size = kDefaultImageWidth;
};

// An empty text when the arguments are sound, otherwise what is wrong.
std::string Parse(const std::vector<std::string>& args, ExportArgs& a) {
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    if (arg == "--solution") {
      a.solution = true;
    } else if (arg == "--svg" || arg == "--png" || arg == "--size") {
      if (i + 1 >= args.size()) return arg + " needs a value";
      const std::string& value = args[++i];
      if (arg == "--size" && !ParseInt(value, a.size)) a.size = 0;
      if (arg == "--size") continue;
      a.out = value;
      a.format = arg == "--svg" ? ImageFormat::kSvg : ImageFormat::kPng;
      ++a.outputs;
    } else if (a.record.size() < 2 && (arg.empty() || arg[0] != '-' || a.record.size() == 1)) {
      a.record.push_back(arg);
    } else {
      return "unexpected argument '" + arg + "'";
    }
  }
  if (a.record.size() != 2) return "expected FILE and N";
  if (a.outputs != 1) return "expected one of --svg OUT.svg and --png OUT.png";
  if (a.size < kMinImageWidth || a.size > kMaxImageWidth)
    return "--size is " + NumText(kMinImageWidth) + " to " + NumText(kMaxImageWidth) + " pixels";
  return "";
}

int RunExport(const std::vector<std::string>& args) {
  ExportArgs a;
  if (const std::string problem = Parse(args, a); !problem.empty()) return UsageError(kExport, problem);
  const std::string& file = a.record[0];
  long long n = 0;
  if (!ParseInt(a.record[1], n)) return UsageError(kExport, "N must be a whole number");
  if (!Readable(kExport, file)) return 1;
  if (SameFile(file, a.out)) {
    std::fprintf(stderr, "velmora-cli export: %s\n", kSameFileText);
    return 1;
  }
  Puzzle puzzle;
  RemainLists lists;
  if (!ReadPuzzle(puzzle, lists, file, RecordNumber(n))) {
    std::printf("not found\n");
    return 1;
  }
  const auto app = PageApplication();
  if (!SavePuzzleImage(puzzle, a.solution ? PageKind::kSolution : PageKind::kPuzzle, a.format,
                       static_cast<int>(a.size), a.out)) {
    std::printf("Error writing file: %s\n", a.out.c_str());
    return 1;
  }
  std::printf("Done\n");
  return 0;
}

}  // namespace
}  // namespace velmora::cli
