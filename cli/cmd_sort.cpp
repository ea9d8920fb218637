// velmora-cli sort: the sort dialog's run from the command line.
#include <random>
#include <string>
#include <vector>

#include "files/sort.h"
#include "printed_messages.h"
#include "subcommand.h"

namespace velmora::cli {
namespace {

int RunSort(const std::vector<std::string>& args);

const Subcommand kSort{"sort",
                       "sort SRC OUT [--by header|size|number|blanks] [--order asc|desc|random] "
                       "[--renumber START] [--seed S]",
                       "write the records of SRC to OUT ordered by a key (random order renumbers from START, "
                       "default 1)",
                       52, RunSort};
const Registration kSortReg(kSort);

template <typename T, size_t N>
bool Choose(const std::string& text, const char* const (&names)[N], const T (&values)[N], T& value) {
  for (size_t i = 0; i < N; ++i) {
    if (text != names[i]) continue;
    value = values[i];
    return true;
  }
  return false;
}

struct SortOptions {
  SortSettings settings;
  bool seeded = false;
  uint64_t seed = 0;
};

int ParseSort(const std::vector<std::string>& args, SortOptions& o) {
  static const char* const kKeys[] = {"header", "size", "number", "blanks"};
  static const SortKey kKeyValues[] = {SortKey::kHeader, SortKey::kSize, SortKey::kNumber, SortKey::kBlanks};
  static const char* const kOrders[] = {"asc", "desc", "random"};
  static const SortOrder kOrderValues[] = {SortOrder::kAscending, SortOrder::kDescending, SortOrder::kRandom};
  std::vector<std::string> files;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a.rfind("--", 0) != 0) {
      files.push_back(a);
      continue;
    }
    if (i + 1 >= args.size()) return UsageError(kSort, a + " needs a value");
    const std::string& v = args[++i];
    long long n = 0;
    if (a == "--by") {
      if (!Choose(v, kKeys, kKeyValues, o.settings.key)) return UsageError(kSort, "unknown key '" + v + "'");
    } else if (a == "--order") {
      if (!Choose(v, kOrders, kOrderValues, o.settings.order))
        return UsageError(kSort, "unknown order '" + v + "'");
    } else if (a == "--renumber") {
      if (!ParseInt(v, n)) return UsageError(kSort, "--renumber must be a whole number");
      o.settings.resequence = true;
      o.settings.start = v;
    } else if (a == "--seed") {
      if (!ParseInt(v, n) || n < 0) return UsageError(kSort, "--seed must be a whole number from 0");
      o.seeded = true;
      o.seed = static_cast<uint64_t>(n);
    } else {
      return UsageError(kSort, "unknown option " + a);
    }
  }
  if (files.size() != 2) return UsageError(kSort, "expected SRC and OUT");
  o.settings.source = files[0];
  o.settings.output = files[1];
  return 0;
}

int RunSort(const std::vector<std::string>& args) {
  SortOptions o;
  if (const int bad = ParseSort(args, o); bad != 0) return bad;
  Random rng = o.seeded ? Random::Seeded(o.seed) : Random::Clocked(std::random_device{}());
  // The dialog's message, its CR LF as one line break.
  PrintedMessages ui(PrintedMessages::LineBreaks::kOneBreak);
  return SortPuzzleFile(o.settings, rng, ui) == kSorted ? 0 : 1;
}

}  // namespace
}  // namespace velmora::cli
