// Where the records of a puzzle file begin, kept per version of the file.
#include "files/record_index.h"

#include <algorithm>
#include <chrono>
#include <list>
#include <mutex>

namespace velmora {
namespace {

constexpr size_t kKeptFiles = 4;
// File times are only as fine as the file system's clock (a few milliseconds,
// two seconds on some), so a file written this recently could be written
// again without its stamp changing: its index serves the one reading only.
constexpr long long kSettleNs = 2'000'000'000;

// One line read: a header opens a record, the line after it is the record's
// title whatever it holds; `start` is where the line begins.
void Step(RecordIndex& index, long long start, bool header) {
  if (index.titleMissing) {
    index.titles.push_back(start);
    index.titleMissing = false;
  } else if (header) {
    index.titleMissing = true;
  }
  if (header) ++index.headerLines;
}

void ReadRecords(LineReader& reader, RecordIndex& index) {
  std::string line;
  long long start = reader.Seek(0) ? 0 : -1;
  while (start >= 0 && reader.ReadLine(line)) {
    Step(index, start, !line.empty() && line[0] == '#');
    start = reader.Tell();
  }
  index.complete = start >= 0 && reader.error() == 0;
}

// The lines of text written at `base`, read the way LineReader reads them;
// false at a line it would refuse.
bool StepThrough(RecordIndex& index, const std::string& text, long long base) {
  for (size_t pos = 0; pos < text.size();) {
    const size_t end = text.find('\n', pos);
    const size_t stop = end == std::string::npos ? text.size() : end;
    if (stop - pos > kMaxLineLength) return false;
    const size_t next = end == std::string::npos ? text.size() : end + 1;
    Step(index, base + static_cast<long long>(pos), text[pos] == '#');
    pos = next;
  }
  return true;
}

long long NowNs() {
  using namespace std::chrono;
  return duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
}

// The kept indexes, most recently used first, one per file (device and inode).
class Kept {
 public:
  std::shared_ptr<const RecordIndex> Find(const FileStamp& stamp) {
    std::lock_guard<std::mutex> hold(mutex_);
    const auto it = Position(stamp);
    if (it == entries_.end() || !((*it)->stamp == stamp)) return nullptr;
    entries_.splice(entries_.begin(), entries_, it);
    return entries_.front();
  }
  void Keep(std::shared_ptr<const RecordIndex> index) {
    std::lock_guard<std::mutex> hold(mutex_);
    const auto it = Position(index->stamp);
    if (it != entries_.end()) entries_.erase(it);
    entries_.push_front(std::move(index));
    if (entries_.size() > kKeptFiles) entries_.pop_back();
  }
  void Drop(const FileStamp& stamp) {
    std::lock_guard<std::mutex> hold(mutex_);
    const auto it = Position(stamp);
    if (it != entries_.end()) entries_.erase(it);
  }

 private:
  using Entries = std::list<std::shared_ptr<const RecordIndex>>;
  Entries::iterator Position(const FileStamp& stamp) {
    return std::find_if(entries_.begin(), entries_.end(), [&stamp](const auto& e) {
      return e->stamp.device == stamp.device && e->stamp.inode == stamp.inode;
    });
  }
  std::mutex mutex_;
  Entries entries_;
};

Kept& TheKept() {
  static Kept kept;
  return kept;
}

}  // namespace

std::shared_ptr<const RecordIndex> IndexRecords(LineReader& reader) {
  FileStamp stamp;
  const bool stamped = reader.Stamp(stamp);
  if (stamped) {
    if (auto kept = TheKept().Find(stamp)) return kept;
  }
  const long long started = NowNs();
  auto index = std::make_shared<RecordIndex>();
  index->stamp = stamp;
  ReadRecords(reader, *index);
  FileStamp after;
  const bool settled = stamp.modified < started - kSettleNs;
  const bool unchanged = reader.Stamp(after) && after == stamp;
  // A read error may not happen again; an over-long line will.
  const bool repeatable = index->complete || reader.error() == kLineTooLong;
  if (stamped && settled && unchanged && repeatable) TheKept().Keep(index);
  return index;
}

void IndexAppended(const FileStamp& before, const FileStamp& after, const std::string& text) {
  const auto kept = TheKept().Find(before);
  if (!kept) return;
  // The text went in as it is (no line end added before it) onto the same file.
  const bool whole = kept->complete && after.device == before.device && after.inode == before.inode &&
                     after.size == before.size + static_cast<long long>(text.size());
  auto grown = whole ? std::make_shared<RecordIndex>(*kept) : nullptr;
  if (grown && StepThrough(*grown, text, before.size)) {
    grown->stamp = after;
    TheKept().Keep(std::move(grown));
  } else {
    TheKept().Drop(before);
  }
}

void IndexWritten(const FileStamp& stamp, const std::string& text) {
  auto index = std::make_shared<RecordIndex>();
  index->stamp = stamp;
  if (stamp.size == static_cast<long long>(text.size()) && StepThrough(*index, text, 0)) {
    TheKept().Keep(std::move(index));
  }
}

}  // namespace velmora
