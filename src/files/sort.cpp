// Sort tool: every record is read as text and keyed; the keyed texts are
// ordered as text and the records written back in that order.
#include "files/sort.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <exception>
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

// A record's lines and the numbers its size line gives. The rows are kept
// twice, as the sort text joins them (each after a CR) and as the output
// writes them (each with its CR LF).
struct RecordLines {
  std::string header, title, size, keyedRows, rows, line;
  int rowCount = 0, colCount = 0;
  double blanks = 0;
};

// The sort buffer (the dialog's List1): every record's sort text and output
// lines live in two long texts, so a large file costs few allocations.
class SortBuffer {
 public:
  // Room for a source of this many bytes, plus the keys and the padding of
  // a file of well-formed records.
  void Reserve(long long bytes) {
    if (bytes <= 0) return;
    const size_t room = static_cast<size_t>(bytes) + static_cast<size_t>(bytes) / 8;
    keyed_.reserve(room);
    lines_.reserve(room);
  }
  void Add(const std::string& key, const RecordLines& r) {
    Item item{};
    item.text = keyed_.size();
    item.lines = lines_.size();
    item.headerLength = r.header.size();
    for (const std::string* part : {&key, &r.header, &r.title}) keyed_ += *part + '\r';
    keyed_ += r.size;
    keyed_ += r.keyedRows;
    item.textLength = keyed_.size() - item.text;
    for (const std::string* part : {&r.header, &r.title, &r.size}) lines_ += *part + "\r\n";
    lines_ += r.rows;
    item.linesLength = lines_.size() - item.lines;
    for (size_t i = 0; i < 8; ++i)
      item.prefix =
          item.prefix << 8 | (i < item.textLength ? static_cast<unsigned char>(keyed_[item.text + i]) : 0);
    items_.push_back(item);
  }
  // Ascending text order; the first eight bytes, compared as one number,
  // settle most comparisons.
  void Sort() {
    const std::string_view all = keyed_;
    std::sort(items_.begin(), items_.end(), [all](const Item& a, const Item& b) {
      if (a.prefix != b.prefix) return a.prefix < b.prefix;
      return all.substr(a.text, a.textLength) < all.substr(b.text, b.textLength);
    });
  }
  size_t size() const { return items_.size(); }
  size_t LinesSize() const { return lines_.size(); }
  // Record i's lines, from the header line or from the title line on.
  std::string_view Lines(size_t i, bool withHeader) const {
    const Item& item = items_[i];
    const size_t skip = withHeader ? 0 : item.headerLength + 2;
    return std::string_view(lines_).substr(item.lines + skip, item.linesLength - skip);
  }

 private:
  struct Item {
    uint64_t prefix;
    size_t text, lines, textLength, linesLength, headerLength;
  };
  std::string keyed_, lines_;
  std::vector<Item> items_;
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
  r.keyedRows.clear();
  r.rows.clear();
  for (int i = 0; i < r.rowCount; ++i) {
    std::string& line = r.line;
    if (!in.ReadLine(line)) return false;
    if (line.size() < width) {
      padding += width - line.size();
      if (padding > kPaddingBudget) return false;
      line.resize(width, ' ');
    }
    std::replace(line.begin(), line.end(), ' ', '.');
    marked += std::count_if(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(width),
                            [](char c) { return c == 'B' || c == 'W' || c == 'b' || c == 'w'; });
    (r.keyedRows += '\r') += line;
    (r.rows += line) += "\r\n";
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
    settings.resequence = true;                // random order always renumbers
    key = ZeroPadded(rng.Pick(99999) - 2, 5);  // floor(u * 99999) - 1
  }
  if (settings.key == SortKey::kBlanks) key = ZeroPadded(r.blanks, 5);
  return key;
}

// Every record of the source, in file order. False when one is cut short or
// the reading stops early.
bool ReadItems(SortSettings& settings, Random& rng, UserInterface& ui, const SortProgress& progress,
               SortBuffer& items) {
  LineReader in(settings.source);
  if (!in.IsOpen()) return false;
  items.Reserve(FileLength(settings.source));
  RecordLines r;
  size_t padding = 0;
  while (in.ReadLine(r.header)) {
    if (Trim(r.header).empty()) continue;
    if (!ReadRecord(in, r, padding)) return false;
    items.Add(Key(r, settings, rng), r);
    if (progress) progress(static_cast<long long>(items.size()));
    ui.Yield();
  }
  return in.error() == 0;  // a read error or a line over 1 MiB: the records after it would be lost
}

// The records in the chosen order, renumbered when asked. False when Text3's
// number is too large to count on from.
bool OutputText(SortSettings& settings, const SortBuffer& items, UserInterface& ui,
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
  const bool descending = settings.order == SortOrder::kDescending;
  const size_t n = items.size();
  out.reserve(items.LinesSize() + 16 * n);
  for (size_t i = 0; i < n; ++i) {
    const size_t item = descending ? n - 1 - i : i;
    if (settings.resequence) ((out += '#') += NumText(number++)) += "\r\n";
    out += items.Lines(item, !settings.resequence);
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

SortStatus SortPuzzleFile(SortSettings& settings, Random& rng, UserInterface& ui,
                          const SortProgress& progress) {
  if (const char* refusal = Refusal(settings)) {
    ui.ShowMessage(refusal);
    return kSortRefused;
  }
  ui.SetBusy(true);
  SortBuffer items;
  bool ok = false;
  try {
    std::string out;
    ok = ReadItems(settings, rng, ui, progress, items);
    if (ok) {
      items.Sort();
      ok = OutputText(settings, items, ui, progress, out) && WriteFileAtomically(settings.output, out);
    }
  } catch (const std::exception&) {  // no memory for a source far beyond any puzzle book
    ok = false;
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
