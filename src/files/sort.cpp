// Sort tool: every record is read as text and keyed; the keyed texts are
// ordered as text and the records written back in that order.
#include "files/sort.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <vector>

#include "files/puzzle_file.h"
#include "files/text_file.h"
#include "model/text.h"

namespace velmora {
namespace {

// A damaged size line may ask for rows millions of blanks wide; past this
// much padding the file is taken as unreadable rather than filling memory.
constexpr size_t kPaddingBudget = size_t{64} << 20;

// One record as the sort keeps it.
struct SortItem {
  std::string text;    // key, header, title, size line and rows joined by CR: the order
  std::string header;  // the header line as read
  std::string body;    // title, size line and rows, each with its CR LF
};

// A record's lines and the numbers its size line gives.
struct RecordLines {
  std::string header, title, size;
  std::vector<std::string> rows;
  int rowCount = 0, colCount = 0;
  double blanks = 0;
};

// n rounded half away from zero, its digits padded with zeros to `width`,
// a minus sign before them when negative: -1 in five places is "-00001".
std::string ZeroPadded(double n, size_t width) {
  const double rounded = std::round(n);
  char digits[400];  // the largest double has 309 digits
  std::snprintf(digits, sizeof digits, "%.0f", std::fabs(rounded));
  std::string text = digits;
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return rounded < 0 ? "-" + text : text;
}

std::vector<std::string_view> SplitFields(std::string_view line) {
  std::vector<std::string_view> fields;
  for (size_t at = 0;;) {
    const size_t comma = line.find(',', at);
    fields.push_back(line.substr(at, comma == std::string_view::npos ? line.npos : comma - at));
    if (comma == std::string_view::npos) return fields;
    at = comma + 1;
  }
}

// Reads what follows a header line: title, size line and the grid rows. Rows
// are padded with blanks to the row width and every blank becomes "." A size
// line without a blanks count (or with 0) gets the count of "B" and "W"
// appended. False when the file ends inside the record or its size cannot be
// read.
bool ReadRecord(LineReader& in, RecordLines& r, size_t& padding) {
  if (!in.ReadLine(r.title) || !in.ReadLine(r.size)) return false;
  const std::vector<std::string_view> fields = SplitFields(r.size);
  const auto rows = ValInt(fields[0]);
  const auto cols = fields.size() > 1 ? ValInt(fields[1]) : std::nullopt;
  if (!rows || !cols) return false;
  r.rowCount = *rows;
  r.colCount = *cols;
  r.blanks = fields.size() > 2 ? Val(fields[2]) : 0;
  const size_t width = static_cast<size_t>(std::max(0, r.colCount));
  long long marked = 0;
  r.rows.clear();
  for (int i = 0; i < r.rowCount; ++i) {
    std::string line;
    if (!in.ReadLine(line)) return false;
    if (line.size() < width) {
      padding += width - line.size();
      if (padding > kPaddingBudget) return false;
      line.resize(width, ' ');
    }
    std::replace(line.begin(), line.end(), ' ', '.');
    marked += std::count_if(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(width), [](char c) {
      return c == 'B' || c == 'W' || c == 'b' || c == 'w';
    });
    r.rows.push_back(std::move(line));
  }
  if (r.blanks == 0) {
    r.blanks = static_cast<double>(marked);
    r.size += "," + Str(marked);
  }
  return true;
}

// The key tests run in this order and a later one that applies replaces an
// earlier one, so "No of Blanks" wins over a random order.
std::string Key(const RecordLines& r, SortSettings& settings, Random& rng) {
  std::string key;
  if (settings.key == SortKey::kHeader) key = r.title;
  if (settings.key == SortKey::kSize) key = ZeroPadded(static_cast<double>(r.rowCount) * r.colCount, 3);
  if (settings.key == SortKey::kNumber) key = ZeroPadded(Val(std::string_view(r.header).substr(1)), 5);
  if (settings.order == SortOrder::kRandom) {
    settings.resequence = true;  // random order always renumbers
    key = ZeroPadded(rng.Pick(99999) - 2, 5);  // floor(u * 99999) - 1
  }
  if (settings.key == SortKey::kBlanks) key = ZeroPadded(r.blanks, 5);
  return key;
}

SortItem MakeItem(const RecordLines& r, std::string key) {
  SortItem item{std::move(key), r.header, r.title + "\r\n" + r.size + "\r\n"};
  for (const std::string* line : {&r.header, &r.title, &r.size}) item.text += '\r' + *line;
  for (const std::string& row : r.rows) {
    item.text += '\r' + row;
    item.body += row + "\r\n";
  }
  return item;
}

// Every record of the source, in file order. False when one is cut short.
bool ReadItems(SortSettings& settings, Random& rng, UserInterface& ui, const SortProgress& progress,
               std::vector<SortItem>& items) {
  LineReader in(settings.source);
  if (!in.IsOpen()) return false;
  RecordLines r;
  size_t padding = 0;
  while (in.ReadLine(r.header)) {
    if (Trim(r.header).empty()) continue;
    if (!ReadRecord(in, r, padding)) return false;
    items.push_back(MakeItem(r, Key(r, settings, rng)));
    if (progress) progress(static_cast<long long>(items.size()));
    ui.Yield();
  }
  return true;
}

// The records in the chosen order, renumbered when asked. False when Text3's
// number is too large to count on from.
bool OutputText(SortSettings& settings, const std::vector<SortItem>& items, UserInterface& ui,
                const SortProgress& progress, std::string& out) {
  long long number = 0;
  if (settings.resequence) {
    const auto start = ValInt(settings.start);
    if (Val(settings.start) < 1) {
      settings.start = "1";
      number = 1;
    } else if (!start) {
      return false;
    } else {
      number = *start;
    }
  }
  size_t size = 0;
  for (const SortItem& item : items) size += item.header.size() + item.body.size() + 16;
  out.reserve(size);
  const bool descending = settings.order == SortOrder::kDescending;
  const size_t n = items.size();
  for (size_t i = 0; i < n; ++i) {
    const SortItem& item = items[descending ? n - 1 - i : i];
    out += settings.resequence ? "#" + NumText(number++) : item.header;
    out += "\r\n";
    out += item.body;
    if (progress) progress(static_cast<long long>(n - 1 - i));
    ui.Yield();
  }
  return true;
}

bool SameFile(const std::string& a, const std::string& b) {
  std::error_code ec;
  return std::filesystem::equivalent(a, b, ec) && !ec;
}

const char* Refusal(const SortSettings& settings) {
  if (Trim(settings.output).empty()) return "Specify output file name";
  if (!FileExists(settings.source)) return "Input file does not exist";
  // Two spellings of one file would also overwrite the source.
  if (ToLower(settings.source) == ToLower(settings.output) || SameFile(settings.source, settings.output))
    return "Input and output files cannot be same";
  if (CountPuzzles(settings.source) == 0) return "There are no puzzles in this file";
  return nullptr;
}

}  // namespace

SortStatus SortPuzzleFile(SortSettings& settings, Random& rng, UserInterface& ui, const SortProgress& progress) {
  if (const char* refusal = Refusal(settings)) {
    ui.ShowMessage(refusal);
    return kSortRefused;
  }
  ui.SetBusy(true);
  std::vector<SortItem> items;
  std::string out;
  bool ok = ReadItems(settings, rng, ui, progress, items);
  if (ok) {
    std::sort(items.begin(), items.end(), [](const SortItem& a, const SortItem& b) { return a.text < b.text; });
    ok = OutputText(settings, items, ui, progress, out) && WriteFileAtomically(settings.output, out);
  }
  ui.SetBusy(false);
  if (!ok) {
    ui.ShowMessage("Unable to sort file:" + settings.output);
    return kSortFailed;
  }
  ui.ShowMessage(NumText(static_cast<long long>(items.size())) + " puzzles sorted to file:" + kNewLine +
                 settings.output);
  return kSorted;
}

std::string SortedOutputName(const std::string& source) {
  const size_t dot = source.rfind('.');
  if (dot == std::string::npos) return {};
  return source.substr(0, dot) + "_sorted" + source.substr(dot);
}

}  // namespace velmora
