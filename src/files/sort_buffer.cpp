// The sort tool's buffer: records kept once in blocks, ordered by codes of
// their sort texts and, where codes tie, by the texts a few bytes at a time.
#include "files/sort_buffer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "model/text.h"

namespace velmora::sorting {

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

// Where the line of `text` that begins at `from` ends: its LF, or npos.
// Lines are short as a rule: eight bytes a step, with no call.
size_t LineEnd(std::string_view text, size_t from) {
  size_t i = from;
  if constexpr (std::endian::native == std::endian::little) {
    constexpr uint64_t kOnes = 0x0101010101010101, kLf = kOnes * '\n', kHigh = kOnes * 0x80;
    for (; i + 8 <= text.size(); i += 8) {
      uint64_t x;
      std::memcpy(&x, text.data() + i, 8);
      x ^= kLf;  // an LF byte is now 0; the lowest flagged byte is the first such
      const uint64_t zero = (x - kOnes) & ~x & kHigh;
      if (zero != 0) return i + static_cast<size_t>(std::countr_zero(zero)) / 8;
    }
  }
  for (; i < text.size(); ++i) {
    if (text[i] == '\n') return i;
  }
  return std::string_view::npos;
}

namespace {

// Every record's text, kept once for both the sorting and the writing: its
// lines joined by LF, which no line holds, so the LF stands for the CR that
// joins them in the sort text and for the CR LF that ends them in the output.
// A record lies whole inside one block behind a head: its length, whether a
// key line comes first and the blanks count its size line gets, if any (kept
// as a number, two bytes less a record for a file of sizes without counts).
// Blocks never move, so a record is known by a 36-bit place.
class RecordStore {
 public:
  static constexpr int kPlaceBits = 36;

  // Room for about `expected` bytes of records at first.
  void Expect(size_t expected) { firstBlock_ = std::clamp<size_t>(expected, 4096, kBlockSize); }

  struct Record {
    std::string_view text;
    bool keyed;
    long long appended;  // -1: none
  };

  // The place of a record made of these pieces, one after the other.
  uint64_t Add(bool keyed, long long appended, std::initializer_list<std::string_view> pieces) {
    size_t length = 0;
    for (const std::string_view piece : pieces) length += piece.size();
    char head[20];
    size_t headLength = PutNumber(length << 2 | (keyed ? 2 : 0) | (appended >= 0 ? 1 : 0), head);
    if (appended >= 0) headLength += PutNumber(static_cast<uint64_t>(appended), head + headLength);
    char* at = Room(headLength + length);
    const uint64_t place = next_;
    std::memcpy(at, head, headLength);
    at += headLength;
    for (const std::string_view piece : pieces) {
      if (!piece.empty()) std::memcpy(at, piece.data(), piece.size());
      at += piece.size();
    }
    next_ += headLength + length;
    return place;
  }
  // Asks for a record's first bytes ahead of their use: records are visited
  // in sorted order, which is no order in memory. Inlined at once, or the
  // compiler takes a call that only prefetches for one that does nothing.
  [[gnu::always_inline]] void Prefetch(uint64_t place) const {
#if defined(__GNUC__)
    const char* at = blocks_[place >> kBlockBits] + (place & kBlockMask);
    __builtin_prefetch(at);
    __builtin_prefetch(at + 64);  // a title may end in the next cache line
#endif
  }
  Record At(uint64_t place) const {
    const auto* at =
        reinterpret_cast<const unsigned char*>(blocks_[place >> kBlockBits] + (place & kBlockMask));
    const uint64_t head = TakeNumber(at);
    const long long appended = (head & 1) != 0 ? static_cast<long long>(TakeNumber(at)) : -1;
    return {{reinterpret_cast<const char*>(at), head >> 2}, (head & 2) != 0, appended};
  }

 private:
  static constexpr int kBlockBits = 24;
  static constexpr size_t kBlockSize = size_t{1} << kBlockBits;
  static constexpr uint64_t kBlockMask = kBlockSize - 1;

  // Seven bits a byte, low first: a small number takes one byte.
  static size_t PutNumber(uint64_t n, char* out) {
    size_t length = 0;
    for (; n >= 0x80; n >>= 7) out[length++] = static_cast<char>(0x80 | (n & 0x7f));
    out[length++] = static_cast<char>(n);
    return length;
  }
  static uint64_t TakeNumber(const unsigned char*& at) {
    uint64_t n = 0;
    for (int shift = 0;; shift += 7) {
      n |= static_cast<uint64_t>(*at & 0x7f) << shift;
      if (*at++ < 0x80) return n;
    }
  }
  // Room for `bytes` at next_: in the current block, else in a new one; a
  // record longer than a block gets a block of its own that spans as many
  // places. Pages of a block are only touched as records fill them.
  // The first block is only as large as the records expected, which spares
  // a small file a block of 16 MiB.
  char* Room(size_t bytes) {
    if (next_ + bytes > limit_) {
      const size_t count = std::max<size_t>(1, (bytes + kBlockSize - 1) / kBlockSize);
      if (blocks_.size() + count > (size_t{1} << (kPlaceBits - kBlockBits)))
        throw std::length_error("sort records");
      const size_t size = blocks_.empty() && bytes <= firstBlock_ ? firstBlock_ : count * kBlockSize;
      owned_.push_back(std::unique_ptr<char[]>(new char[size]));
      next_ = blocks_.size() * kBlockSize;
      limit_ = next_ + size;
      for (size_t i = 0; i < count; ++i) blocks_.push_back(owned_.back().get() + i * kBlockSize);
    }
    return blocks_[next_ >> kBlockBits] + (next_ & kBlockMask);
  }

  std::vector<std::unique_ptr<char[]>> owned_;
  std::vector<char*> blocks_;      // one per kBlockSize of places
  uint64_t next_ = 0, limit_ = 0;  // the next place, and the end of the block it is in
  size_t firstBlock_ = kBlockSize;
};

// How the records are keyed in this run: by the title line, or by a number
// formatted in `width` places. The same choices as Key() makes.
struct KeyForm {
  bool title = false;
  int width = 5;
};

KeyForm FormOf(const SortSettings& settings) {
  if (settings.key == SortKey::kBlanks) return {false, 5};
  if (settings.order == SortOrder::kRandom) return {false, 5};
  if (settings.key == SortKey::kHeader) return {true, 0};
  return {false, settings.key == SortKey::kSize ? 3 : 5};
}

// A number key's code. The usual key, exactly `width` digits, is coded as
// itself (even codes), so equal codes are equal keys. Any other key text
// (more digits, a sign) gets the odd code between the width-digit keys around
// it and is kept with the record for the comparisons its code ties.
uint64_t NumberCode(std::string_view key, int width, bool& kept) {
  uint64_t value = 0, limit = 1;
  for (int i = 0; i < width; ++i) limit *= 10;
  kept = key.size() != static_cast<size_t>(width);
  for (const char c : key) {
    kept = kept || c < '0' || c > '9';
    value = value * 10 + static_cast<unsigned char>(c - '0');
  }
  if (!kept) return 2 * value + 2;
  const std::string text = std::string(key) + '\r';
  uint64_t below = 0;  // the width-digit keys before it, found by halving
  for (uint64_t high = limit; below < high;) {
    const uint64_t mid = below + (high - below) / 2;
    if (ZeroPadded(static_cast<double>(mid), static_cast<size_t>(width)) + '\r' < text) {
      below = mid + 1;
    } else {
      high = mid;
    }
  }
  return 2 * below + 1;
}

// The first place where two texts of `n` bytes differ, eight bytes a step.
size_t Mismatch(const char* a, const char* b, size_t n) {
  size_t i = 0;
  if constexpr (std::endian::native == std::endian::little) {
    for (; i + 8 <= n; i += 8) {
      uint64_t x, y;
      std::memcpy(&x, a + i, 8);
      std::memcpy(&y, b + i, 8);
      if (x != y) return i + static_cast<size_t>(std::countr_zero(x ^ y)) / 8;
    }
  }
  while (i < n && a[i] == b[i]) ++i;
  return i;
}

unsigned char AsSorted(char c) { return static_cast<unsigned char>(c == '\n' ? '\r' : c); }

// The line of `text` that begins at `from`, with its LF.
std::string_view LineAt(std::string_view text, size_t from) {
  return text.substr(from, LineEnd(text, from) + 1 - from);
}

// A record's lines from the header on, its appended count placed after the
// size line (the third line; a record may end with it).
StoredText Split(std::string_view lines, long long appended) {
  StoredText t;
  t.lines = lines;
  if (appended >= 0) {
    size_t end = LineEnd(lines, 0);
    end = LineEnd(lines, end + 1);
    end = LineEnd(lines, end + 1);
    if (end != std::string_view::npos) {
      t.lines = lines.substr(0, end);
      t.rest = lines.substr(end);
    }
    t.appended[0] = ',';
    t.appended[1] = ' ';
    t.appendedTo =
        static_cast<uint8_t>(std::to_chars(t.appended + 2, std::end(t.appended), appended).ptr - t.appended);
  }
  return t;
}

// <0, 0 or >0 as text a sorts before, with or after text b; `common` gets
// the length of the part they share.
int CompareStored(const StoredText& a, const StoredText& b, size_t* common = nullptr) {
  const auto pa = a.Pieces(), pb = b.Pieces();
  size_t ia = 0, ib = 0, shared = 0;
  std::string_view x = pa[0], y = pb[0];
  for (;;) {
    while (x.empty() && ia + 1 < pa.size()) x = pa[++ia];
    while (y.empty() && ib + 1 < pb.size()) y = pb[++ib];
    if (x.empty() || y.empty()) {
      if (common) *common = shared;
      return x.empty() ? (y.empty() ? 0 : -1) : 1;
    }
    const size_t n = std::min(x.size(), y.size());
    size_t i = Mismatch(x.data(), y.data(), n);
    if (i < n) {
      const unsigned char c = AsSorted(x[i]), d = AsSorted(y[i]);
      if (c != d) {
        if (common) *common = shared + i;
        return c < d ? -1 : 1;
      }
      ++i;
    }
    x.remove_prefix(i);
    y.remove_prefix(i);
    shared += i;
  }
}

// The stored text from byte `depth` on.
StoredText From(StoredText t, size_t depth) {
  for (std::string_view* piece : {&t.key, &t.lines}) {
    const size_t skip = std::min(depth, piece->size());
    piece->remove_prefix(skip);
    depth -= skip;
  }
  const size_t skip = std::min<size_t>(depth, t.appendedTo - t.appendedFrom);
  t.appendedFrom = static_cast<uint8_t>(t.appendedFrom + skip);
  t.rest.remove_prefix(std::min(depth - skip, t.rest.size()));
  return t;
}

// Up to `n` bytes of a stored text from byte `from` on, as sorted; how many
// there are.
size_t Peek(const StoredText& t, size_t from, size_t n, unsigned char* out) {
  if (from + n <= t.key.size()) {  // most often
    std::transform(t.key.begin() + static_cast<std::ptrdiff_t>(from),
                   t.key.begin() + static_cast<std::ptrdiff_t>(from + n), out, AsSorted);
    return n;
  }
  size_t got = 0;
  for (const std::string_view piece : t.Pieces()) {
    for (size_t i = from; i < piece.size() && got < n; ++i) out[got++] = AsSorted(piece[i]);
    from -= std::min(from, piece.size());
  }
  return got;
}

// The first eight bytes of a stored text as one number, 0 past the end: a
// smaller number is a smaller text, an equal one tells nothing.
uint64_t Prefix(const StoredText& t) {
  unsigned char bytes[8] = {};
  Peek(t, 0, 8, bytes);
  uint64_t prefix = 0;
  for (const unsigned char c : bytes) prefix = prefix << 8 | c;
  return prefix;
}

// Three bytes of a stored text from `depth` on, nine bits each: the byte plus
// one, 0 past the end (so a text that ends first comes first).
constexpr int kWindowBytes = 3;
uint64_t Window(const StoredText& t, size_t depth) {
  unsigned char bytes[kWindowBytes];
  const size_t got = Peek(t, depth, kWindowBytes, bytes);
  uint64_t code = 0;
  for (size_t i = 0; i < kWindowBytes; ++i) code = code << 9 | (i < got ? bytes[i] + 1u : 0u);
  return code;
}

bool WindowEnds(uint64_t code) {
  for (int i = 0; i < kWindowBytes; ++i, code >>= 9) {
    if ((code & 0x1ff) == 0) return true;
  }
  return false;
}

}  // namespace

// The records, each once, and their sort order. An item is a record's code
// above its place in the store; codes keep the order of the sort texts (a
// smaller code, a smaller text), so most comparisons never look at the texts.
class SortBuffer::Impl {
 public:
  Impl(const KeyForm& form, long long sourceBytes) : form_(form) {
    // Room for the most records the source can hold: a record takes four
    // bytes at least. Pages the items do not reach are never touched, and the
    // items never move to a larger array while every record is held.
    if (sourceBytes > 0) Reserve(static_cast<size_t>(sourceBytes) / 4 + 1, true);
    // Heads, dots for short rows and keys take a little more than the source.
    if (sourceBytes > 0) store_.Expect(static_cast<size_t>(sourceBytes) * 5 / 4 + 4096);
  }

  void Add(std::string_view key, const RecordLines& r) {
    bool kept = false;
    const uint64_t number = form_.title ? 0 : NumberCode(key, form_.width, kept);
    const uint64_t place = store_.Add(
        kept, r.appended,
        {kept ? key : std::string_view(), kept ? "\n" : "", r.header, "\n", r.title, "\n", r.size, r.rows});
    const uint64_t code = form_.title ? Window(Text(place), 0) : number;
    if (count_ == capacity_) Reserve(std::max<size_t>(1024, 2 * capacity_));
    items_[count_++] = code << kCodeShift | place;
    // A CR inside a line lets two records with different lines have one sort text.
    for (const std::string* part : {&r.header, &r.title, &r.size, &r.rows})
      crInLines_ = crInLines_ || part->find('\r') != std::string::npos;
  }
  // Ascending order of the sort texts.
  void Sort() {
    Item* const items = items_.get();
    if (crInLines_) {
      // Records with one sort text may then differ: one comparison sort from
      // file order, as the list always had, keeps the order they come out in.
      std::sort(items, items + count_,
                [this](Item a, Item b) { return Code(a) != Code(b) ? a < b : Less(a, b); });
      return;
    }
    // Records with one sort text are the same record, so any order of them
    // will do: the items are ordered by code, then each run of one code by the
    // next bytes of the texts, three at a time, until it comes apart. A few
    // items, or texts alike this far, are compared whole.
    SortByCode(items, items + count_);
    std::vector<Run> runs;
    SplitRuns(0, count_, form_.title ? kWindowBytes : 0, false, runs);
    while (!runs.empty()) {
      const Run run = runs.back();
      runs.pop_back();
      Refine(run, runs);
    }
  }
  size_t size() const { return count_; }
  // Record i's lines, from the header line on, as stored (no key).
  StoredText Lines(size_t i) const {
    if (i + kAhead < count_) store_.Prefetch(items_[i + kAhead] & kPlaceMask);
    if (i >= kAhead) store_.Prefetch(items_[i - kAhead] & kPlaceMask);  // for a descending walk
    const RecordStore::Record record = store_.At(items_[i] & kPlaceMask);
    const std::string_view text = record.text;
    return Split(record.keyed ? text.substr(LineEnd(text, 0) + 1) : text, record.appended);
  }

 private:
  struct Run {
    size_t begin, end, depth;
  };

  // Orders the runs of one code in [begin, end) that are short and keeps
  // the others for their next bytes; texts that end inside their window are
  // alike. Items that tie with a neighbour are looked up ahead.
  void SplitRuns(size_t begin, size_t end, size_t depth, bool windows, std::vector<Run>& runs) {
    Item* const items = items_.get();
    const auto tied = [&](size_t i) {
      return (i > begin && Code(items[i]) == Code(items[i - 1])) ||
             (i + 1 < end && Code(items[i]) == Code(items[i + 1]));
    };
    size_t ahead = begin;
    for (size_t b = begin, e; b < end; b = e) {
      for (; ahead < std::min(end, b + kAhead); ++ahead) {
        if (tied(ahead)) store_.Prefetch(items[ahead] & kPlaceMask);
      }
      for (e = b + 1; e < end && Code(items[e]) == Code(items[b]);) ++e;
      if (e - b == 1 || (windows && WindowEnds(Code(items[b])))) continue;
      if (e - b <= kFew || depth >= kDeep) {
        SortWhole(items + b, items + e, depth);
      } else {
        runs.push_back({b, e, depth});
      }
    }
  }

  // One run's items coded by their next window of bytes, and ordered or
  // split by it.
  void Refine(const Run& run, std::vector<Run>& runs) {
    Item* const items = items_.get();
    if (run.depth >= kDeep) {
      SortWhole(items + run.begin, items + run.end, run.depth);
      return;
    }
    bool alike = true;
    for (size_t i = run.begin; i < run.end; ++i) {
      if (i + kAhead < run.end) store_.Prefetch(items[i + kAhead] & kPlaceMask);
      items[i] = Window(Text(items[i] & kPlaceMask), run.depth) << kCodeShift | (items[i] & kPlaceMask);
      alike = alike && Code(items[i]) == Code(items[run.begin]);
    }
    if (alike && !WindowEnds(Code(items[run.begin]))) {
      runs.push_back({run.begin, run.end, run.depth + kWindowBytes});
      return;
    }
    SortByCode(items + run.begin, items + run.end);
    SplitRuns(run.begin, run.end, run.depth + kWindowBytes, true, runs);
  }

  using Item = uint64_t;
  static constexpr int kCodeShift = RecordStore::kPlaceBits;
  static constexpr uint64_t kPlaceMask = (uint64_t{1} << kCodeShift) - 1;
  // Runs this short, or alike this deep, are sorted by whole comparisons;
  // items are looked up this far ahead.
  static constexpr size_t kFew = 4096, kDeep = 96, kAhead = 16;
  static constexpr int kDigitBits = 7;
  static constexpr size_t kDigits = size_t{1} << kDigitBits;

  static uint64_t Code(Item item) { return item >> kCodeShift; }
  // Orders items by code alone, in place, seven bits of the code at a time
  // from the top, each bucket then on its own: a pass over the items for
  // each seven bits instead of a comparison sort's many.
  static void SortByCode(Item* begin, Item* end, int low = 64 - kDigitBits) {
    if (end - begin <= 64) {
      std::sort(begin, end);
      return;
    }
    const auto digit = [low](Item item) { return static_cast<size_t>(item >> low) & (kDigits - 1); };
    std::array<size_t, kDigits> count{}, next{};
    for (const Item* item = begin; item != end; ++item) ++count[digit(*item)];
    for (size_t d = 1; d < kDigits; ++d) next[d] = next[d - 1] + count[d - 1];
    // Each item is swapped into its bucket's next free place.
    for (size_t d = 0, bucketEnd = 0; d < kDigits; ++d) {
      bucketEnd += count[d];
      while (next[d] < bucketEnd) {
        Item item = begin[next[d]];
        for (size_t to = digit(item); to != d; to = digit(item)) std::swap(item, begin[next[to]++]);
        begin[next[d]++] = item;
      }
    }
    if (low <= kCodeShift) return;
    for (size_t d = 0; d < kDigits; ++d) {
      Item* const bucket = begin + (next[d] - count[d]);
      if (count[d] > 1) SortByCode(bucket, bucket + count[d], std::max(low - kDigitBits, kCodeShift));
    }
  }
  // False when there is no such room, where the system does not promise
  // memory beyond what it has.
  bool Reserve(size_t capacity, bool mayFail = false) {
    std::unique_ptr<Item[]> items(mayFail ? new (std::nothrow) Item[capacity] : new Item[capacity]);
    if (!items) return false;
    std::copy(items_.get(), items_.get() + count_, items.get());
    items_ = std::move(items);
    capacity_ = capacity;
    return true;
  }
  StoredText Text(uint64_t place) const {
    const RecordStore::Record record = store_.At(place);
    std::string_view text = record.text, key;
    if (record.keyed) {
      key = LineAt(text, 0);
      text.remove_prefix(key.size());
    } else if (form_.title) {
      key = LineAt(text, LineEnd(text, 0) + 1);
    }
    StoredText t = Split(text, record.appended);
    t.key = key;
    return t;
  }
  // Sorts items whose texts begin with the same `depth` bytes by comparing
  // the rest, each text looked up once. The bytes all of them share are
  // skipped, and the next eight, kept beside each text, settle most
  // comparisons.
  void SortWhole(Item* begin, Item* end, size_t depth) {
    texts_.clear();
    size_t shared = std::string_view::npos;
    bool same = true;
    for (Item* item = begin; item != end; ++item) {
      if (end - item > static_cast<std::ptrdiff_t>(kAhead)) store_.Prefetch(item[kAhead] & kPlaceMask);
      const StoredText text = From(Text(*item & kPlaceMask), depth);
      size_t common = shared;
      if (!texts_.empty()) same = CompareStored(texts_.front().text, text, &common) == 0 && same;
      shared = std::min(shared, common);
      texts_.push_back({0, text, *item});
    }
    if (same) return;  // copies of one record, in any order
    for (auto& t : texts_) {
      t.text = From(t.text, shared);
      t.prefix = Prefix(t.text);
    }
    std::sort(texts_.begin(), texts_.end(), [](const Whole& a, const Whole& b) {
      return a.prefix != b.prefix ? a.prefix < b.prefix : CompareStored(a.text, b.text) < 0;
    });
    for (const Whole& t : texts_) *begin++ = t.item;
  }
  bool Less(Item a, Item b) const { return CompareStored(Text(a & kPlaceMask), Text(b & kPlaceMask)) < 0; }

  KeyForm form_;
  RecordStore store_;
  std::unique_ptr<Item[]> items_;
  size_t count_ = 0, capacity_ = 0;
  bool crInLines_ = false;
  struct Whole {
    uint64_t prefix;
    StoredText text;
    Item item;
  };
  std::vector<Whole> texts_;
};

SortBuffer::SortBuffer(const SortSettings& settings, long long sourceBytes)
    : impl_(std::make_unique<Impl>(FormOf(settings), sourceBytes)) {}
SortBuffer::~SortBuffer() = default;
void SortBuffer::Add(std::string_view key, const RecordLines& r) { impl_->Add(key, r); }
void SortBuffer::Sort() { impl_->Sort(); }
size_t SortBuffer::size() const { return impl_->size(); }
StoredText SortBuffer::Lines(size_t i) const { return impl_->Lines(i); }

}  // namespace velmora::sorting
