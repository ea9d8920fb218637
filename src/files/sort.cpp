// Sort tool: every record is read as text and keyed; the records are ordered
// by their sort texts (key, CR, then the record's lines joined by CR) and
// written back in that order.
#include "files/sort.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <exception>
#include <optional>
#include <string_view>
#include <vector>

#include "files/sort_buffer.h"
#include "files/text_file.h"
#include "model/text.h"

namespace velmora {
namespace {

using sorting::LineEnd;
using sorting::RecordLines;
using sorting::SortBuffer;
using sorting::StoredText;
using sorting::ZeroPadded;

// A damaged size line may ask for rows millions of blanks wide. Rows cut
// short pad a real file to a few times its own size at most; past that (and
// past 64 MiB in any case) the file is taken as unreadable rather than
// filling memory and the output with dots.
constexpr size_t kPaddingBudget = size_t{64} << 20;
size_t PaddingBudget(long long sourceBytes) {
  const size_t bytes = sourceBytes > 0 ? static_cast<size_t>(sourceBytes) : 0;
  return std::min(kPaddingBudget, (size_t{64} << 10) + 16 * std::min(bytes, kPaddingBudget));
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
bool ReadRecord(LineReader& in, RecordLines& r, size_t& padding, size_t budget) {
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
    std::string& line = r.line;
    if (!in.ReadLine(line)) return false;
    if (line.size() < width) {
      padding += width - line.size();
      if (padding > budget) return false;
      line.resize(width, ' ');
    }
    std::replace(line.begin(), line.end(), ' ', '.');
    marked += std::count_if(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(width),
                            [](char c) { return c == 'B' || c == 'W' || c == 'b' || c == 'w'; });
    (r.rows += '\n') += line;
  }
  r.appended = -1;
  if (r.blanks == 0) {
    r.blanks = static_cast<double>(marked);
    r.appended = marked;  // "," and Str(marked) after the size line
  }
  return true;
}

// The key tests run in this order and a later one that applies replaces an
// earlier one, so "No of Blanks" wins over a random order. A number key is
// formatted into `number`.
std::string_view Key(const RecordLines& r, SortSettings& settings, Random& rng, std::string& number) {
  std::string_view key;
  if (settings.key == SortKey::kHeader) key = r.title;
  if (settings.key == SortKey::kSize)
    key = number = ZeroPadded(static_cast<double>(r.rowCount) * r.colCount, 3);
  if (settings.key == SortKey::kNumber)
    key = number = ZeroPadded(Val(std::string_view(r.header).substr(1)), 5);
  if (settings.order == SortOrder::kRandom) {
    settings.resequence = true;                         // random order always renumbers
    key = number = ZeroPadded(rng.Pick(99999) - 2, 5);  // floor(u * 99999) - 1
  }
  if (settings.key == SortKey::kBlanks) key = number = ZeroPadded(r.blanks, 5);
  return key;
}

// Every record of the source, in file order. False when one is cut short or
// the reading stops early.
bool ReadItems(SortSettings& settings, Random& rng, UserInterface& ui, const SortProgress& progress,
               SortBuffer& items) {
  LineReader in(settings.source);
  if (!in.IsOpen()) return false;
  const long long bytes = FileLength(settings.source);
  RecordLines r;
  std::string number;
  size_t padding = 0;
  while (in.ReadLine(r.header)) {
    if (Trim(r.header).empty()) continue;
    if (!ReadRecord(in, r, padding, PaddingBudget(bytes))) return false;
    items.Add(Key(r, settings, rng, number), r);
    if (progress) progress(static_cast<long long>(items.size()));
    ui.Yield();
  }
  return in.error() == 0;  // a read error or a line over 1 MiB: the records after it would be lost
}

// The sorted text, handed to the file layer a piece at a time so that it is
// never held whole in memory.
class Pieces {
 public:
  explicit Pieces(const PieceWriter& write) : write_(write) {}
  // Room for `bytes` more of the text at its end; Wrote() then tells where
  // the text now ends. False once a piece could not be written.
  char* Room(size_t bytes) {
    // Grown by doubling up to two pieces: a small file needs no more.
    if (text_.size() < used_ + bytes)
      text_.resize(std::max(used_ + bytes, std::min(2 * kPiece, 2 * text_.size() + 4096)));
    return text_.data() + used_;
  }
  bool Wrote(const char* end) {
    used_ = static_cast<size_t>(end - text_.data());
    return used_ < kPiece || Send();
  }
  bool Send() {
    const bool sent = write_(std::string_view(text_.data(), used_));
    used_ = 0;
    return sent;
  }

 private:
  static constexpr size_t kPiece = size_t{1} << 20;
  const PieceWriter& write_;
  std::string text_;  // text_[0, used_) is still to be sent
  size_t used_ = 0;
};

// Copies stored lines to `to`, each LF as CR LF, eight bytes a step where it
// can; `to` has room for twice their length and eight bytes more.
char* CopyLines(std::string_view lines, char* to) {
  const char* from = lines.data();
  const char* const end = from + lines.size();
  while (from < end) {
    if (std::endian::native == std::endian::little && end - from >= 8) {
      constexpr uint64_t kOnes = 0x0101010101010101, kLf = kOnes * '\n', kHigh = kOnes * 0x80;
      uint64_t x;
      std::memcpy(&x, from, 8);
      std::memcpy(to, &x, 8);
      x ^= kLf;
      const uint64_t lf = (x - kOnes) & ~x & kHigh;
      if (lf == 0) {
        from += 8;
        to += 8;
        continue;
      }
      const size_t k = static_cast<size_t>(std::countr_zero(lf)) / 8;
      from += k + 1;
      to += k;
    } else if (*from != '\n') {
      *to++ = *from++;
      continue;
    } else {
      ++from;
    }
    *to++ = '\r';
    *to++ = '\n';
  }
  return to;
}

// Writes the records in the chosen order, renumbered when asked. False when
// Text3's number is too large to count on from or the output cannot be
// written.
bool WriteOutput(SortSettings& settings, const SortBuffer& items, UserInterface& ui,
                 const SortProgress& progress) {
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
  return WriteFileAtomically(settings.output, [&](const PieceWriter& write) {
    Pieces output(write);
    for (size_t i = 0; i < n; ++i) {
      const StoredText record = items.Lines(descending ? n - 1 - i : i);
      std::string_view lines = record.lines;
      // Beside the lines: the new header, the appended count and the eight
      // bytes CopyLines may write past its end, under 64 together.
      char* to = output.Room(2 * (lines.size() + record.rest.size()) + 64);
      if (settings.resequence) {
        const std::string header = "#" + NumText(number++) + "\r\n";
        to = std::copy(header.begin(), header.end(), to);
        lines.remove_prefix(LineEnd(lines, 0) + 1);
      }
      to = CopyLines(lines, to);
      to = std::copy(record.appended + record.appendedFrom, record.appended + record.appendedTo, to);
      to = CopyLines(record.rest, to);
      *to++ = '\r';
      *to++ = '\n';
      if (!output.Wrote(to)) return false;
      if (progress) progress(static_cast<long long>(n - 1 - i));
      ui.Yield();
    }
    return output.Send();
  });
}

// Whether the source has a line beginning with "#", read no further than the
// first (an index of a huge file would stay in memory through the sort). A
// file whose reading stops counts as having one: it fails as a sort.
bool HasHeader(const std::string& file) {
  LineReader in(file);
  std::string line;
  while (in.ReadLine(line)) {
    if (!line.empty() && line[0] == '#') return true;
  }
  return in.error() != 0;
}

const char* Refusal(const SortSettings& settings) {
  if (Trim(settings.output).empty()) return "Specify output file name";
  if (!FileExists(settings.source)) return "Input file does not exist";
  // Two spellings of one file would also overwrite the source.
  if (SameFile(settings.source, settings.output)) return "Input and output files cannot be same";
  if (!HasHeader(settings.source)) return "There are no puzzles in this file";
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
  SortBuffer items(settings, FileLength(settings.source));
  bool ok = false;
  try {
    ok = ReadItems(settings, rng, ui, progress, items);
    if (ok) {
      items.Sort();
      ok = WriteOutput(settings, items, ui, progress);
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
  // The last "." of the file's own name, not of a folder above it.
  const size_t dot = source.rfind('.');
  const size_t slash = source.rfind('/');
  if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return {};
  return source.substr(0, dot) + "_sorted" + source.substr(dot);
}

}  // namespace velmora
