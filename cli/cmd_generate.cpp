// velmora-cli generate and transform: new puzzles appended to a file, made on
// every core and written in order; and the batch transformation of a file.
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <map>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "creation/generator.h"
#include "creation/transform.h"
#include "files/puzzle_file.h"
#include "model/text.h"
#include "printed_messages.h"
#include "record.h"
#include "subcommand.h"

namespace velmora::cli {
namespace {

int RunGenerate(const std::vector<std::string>& args);
int RunTransform(const std::vector<std::string>& args);

const Subcommand kGenerate{
    "generate",
    "generate FILE [--count N] [--level easy|hard|vhard|random] [--title TEXT] [--seed S] "
    "[--jobs K]",
    "append N new puzzles to FILE (with --seed S, puzzle i draws from seed S + i)", 50, RunGenerate};
const Subcommand kTransform{
    "transform", "transform FILE [--level easy|hard|vhard|random] [--seed S]",
    "make a new puzzle from every record of a numeric-form FILE into FILE's \"_new\" file", 51, RunTransform};
const Registration kGenerateReg(kGenerate);
const Registration kTransformReg(kTransform);

std::atomic<bool> gStop{false};

extern "C" void OnInterrupt(int) { gStop.store(true); }

bool ParseLevel(const std::string& text, int& level) {
  for (const DifficultyLevel& row : kLevels) {
    if (text == row.word) {
      level = row.level;
      return true;
    }
  }
  return false;
}

struct GenerateOptions {
  std::string file;
  long long count = 1;
  int level = kLevelRandom;
  std::string title;
  bool seeded = false;
  uint64_t seed = 0;
  int jobs = 0;
};

// Parses FILE and the options; returns 0 or the usage error's exit code.
int ParseGenerate(const Subcommand& command, const std::vector<std::string>& args, GenerateOptions& o,
                  bool allowAll) {
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a.rfind("--", 0) != 0) {
      if (!o.file.empty()) return UsageError(command, "more than one FILE");
      o.file = a;
      continue;
    }
    if (i + 1 >= args.size()) return UsageError(command, a + " needs a value");
    const std::string& v = args[++i];
    long long n = 0;
    if (a == "--level") {
      if (!ParseLevel(v, o.level)) return UsageError(command, "unknown level '" + v + "'");
    } else if (a == "--seed") {
      if (!ParseInt(v, n) || n < 0) return UsageError(command, "--seed must be a whole number from 0");
      o.seeded = true;
      o.seed = static_cast<uint64_t>(n);
    } else if (allowAll && a == "--count") {
      if (!ParseInt(v, n) || n < 0) return UsageError(command, "--count must be a whole number from 0");
      o.count = n;
    } else if (allowAll && a == "--title") {
      if (!IsTitleLine(v)) return UsageError(command, "--title cannot begin with \"#\" or hold a line break");
      o.title = v;
    } else if (allowAll && a == "--jobs") {
      if (!ParseInt(v, n) || n < 1 || n > 1024)
        return UsageError(command, "--jobs must be a number from 1 to 1024");
      o.jobs = static_cast<int>(n);
    } else {
      return UsageError(command, "unknown option " + a);
    }
  }
  if (o.file.empty()) return UsageError(command, "expected FILE");
  return 0;
}

// The puzzles of one run: handed out to the worker threads by number and
// written to the file strictly in that order by the calling thread.
class GenerateRun : public PuzzleJobs {
 public:
  GenerateRun(const GenerateOptions& o, LockedFile& file, int base)
      : o_(o), file_(file), base_(base), stamp_(LocalTimeNow()) {
    if (!o.seeded) clockSeed_ = std::random_device{}() * 0x100000001ULL ^ std::random_device{}();
  }

  // Workers: the next puzzle number, unless the run is over. Never waits:
  // the other puzzle of the asking thread may be the one the writer needs.
  bool Next(uint64_t& id, Random& rng, int& level) override {
    std::lock_guard lock(mutex_);
    if (Over()) return false;
    id = ++handedOut_;
    // Each puzzle has its own source, so the file does not depend on which
    // thread made which puzzle.
    rng = o_.seeded ? Random::Seeded(o_.seed + id) : Random::Clocked(clockSeed_ + id);
    level = o_.level;
    return true;
  }

  void Made(uint64_t id, const Puzzle& p, int level) override {
    const std::string title = Trim(o_.title).empty() ? AutomaticTitle(level, stamp_) : o_.title;
    std::string record = PuzzleRecordText(p, base_ + static_cast<int>(id), title);
    std::lock_guard lock(mutex_);
    made_.emplace(id, std::move(record));
  }

  // The calling thread: writes records in order until all are written, the
  // run is interrupted or a write fails. Returns the number written.
  uint64_t WriteAll() {
    std::string chunk;
    uint64_t inChunk = 0;
    auto lastProgress = std::chrono::steady_clock::now();
    for (;;) {
      std::unique_lock lock(mutex_);
      if (written_ + inChunk == Total() || gStop.load() || failed_) {
        lock.unlock();
        Flush(chunk, inChunk);
        break;
      }
      const auto next = made_.find(written_ + inChunk + 1);
      if (next == made_.end()) {
        lock.unlock();
        Flush(chunk, inChunk);  // nothing more to take now: let the file catch up
        // Waking the writer for every record would cost more than making it:
        // it looks again after a short sleep and takes all that is there.
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        continue;
      }
      chunk += next->second;
      made_.erase(next);
      ++inChunk;
      lock.unlock();
      if (chunk.size() >= (1 << 16)) Flush(chunk, inChunk);
      if (progress_ && std::chrono::steady_clock::now() - lastProgress > std::chrono::milliseconds(100)) {
        lastProgress = std::chrono::steady_clock::now();
        ShowProgress();
      }
    }
    {
      std::lock_guard lock(mutex_);
      finished_ = true;
    }
    if (progress_) std::fprintf(stderr, "\r\033[K");
    return written_;
  }

  void ShowProgressBar(bool on) { progress_ = on; }
  bool failed() const { return failed_; }

 private:
  uint64_t Total() const { return static_cast<uint64_t>(o_.count); }
  bool Over() const { return finished_ || gStop.load() || failed_ || handedOut_ >= Total(); }

  // Whole records or none: an interrupted run never leaves half a record; a
  // failed write is undone by the caller, back to the file before the run.
  void Flush(std::string& chunk, uint64_t& inChunk) {
    const bool appended = chunk.empty() || file_.Append(chunk);
    std::lock_guard lock(mutex_);
    if (!appended) failed_ = true;
    if (!failed_) written_ += inChunk;
    chunk.clear();
    inChunk = 0;
  }

  void ShowProgress() {
    const uint64_t total = std::max<uint64_t>(Total(), 1);
    const int width = 40;
    const int filled = static_cast<int>(written_ * width / total);
    std::fprintf(stderr, "\r[%s%s] %llu/%llu", std::string(static_cast<size_t>(filled), '#').c_str(),
                 std::string(static_cast<size_t>(width - filled), ' ').c_str(),
                 static_cast<unsigned long long>(written_), static_cast<unsigned long long>(Total()));
    std::fflush(stderr);
  }

  const GenerateOptions& o_;
  LockedFile& file_;
  const int base_;
  const std::tm stamp_;  // one date and time for the automatic titles of the run
  uint64_t clockSeed_ = 0;
  std::mutex mutex_;
  std::map<uint64_t, std::string> made_;  // records made and not yet written
  uint64_t handedOut_ = 0, written_ = 0;
  bool finished_ = false, failed_ = false, progress_ = false;
};

int RunGenerate(const std::vector<std::string>& args) {
  GenerateOptions o;
  if (const int bad = ParseGenerate(kGenerate, args, o, true); bad != 0) return bad;
  // Locked for the whole run: the records are numbered from the count taken here.
  LockedFile file(o.file, true);
  int error = file.error();
  // A new file is made by the first record written.
  const int base = file.Exists() ? CountPuzzles(file.path(), &error) : 0;
  if (!file.ok() || error != 0) {
    std::fprintf(stderr, "velmora-cli generate: cannot write to %s: %s\n", o.file.c_str(),
                 FileErrorText(error).c_str());
    return 1;
  }
  if (o.count > 2147483647LL - base)
    return UsageError(kGenerate, "--count is too large for the record numbers");
  const int jobs = o.jobs > 0 ? o.jobs : static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
  std::signal(SIGINT, OnInterrupt);
  GenerateRun run(o, file, base);
  run.ShowProgressBar(::isatty(STDERR_FILENO) == 1);
  std::vector<std::thread> workers;
  workers.reserve(static_cast<size_t>(jobs));
  for (int k = 0; k < jobs; ++k) workers.emplace_back([&run] { CreatePuzzles(run); });
  const long long before = file.Length();
  uint64_t written = run.WriteAll();
  for (auto& w : workers) w.join();
  // A full disk or another write error: the run adds nothing, so the file is
  // exactly what it was before the command.
  if (run.failed() && file.CutBack(before)) written = 0;
  if (written == 0) file.RemoveIfCreated();
  std::signal(SIGINT, SIG_DFL);
  std::printf("%s new puzzles added to file:\n%s\n", Str(static_cast<long long>(written)).c_str(),
              o.file.c_str());
  if (run.failed()) {
    std::fprintf(stderr, "velmora-cli generate: writing to %s failed: %s\n", o.file.c_str(),
                 FileErrorText(file.error()).c_str());
    return 1;
  }
  return gStop.load() ? 130 : 0;
}

int RunTransform(const std::vector<std::string>& args) {
  GenerateOptions o;
  if (const int bad = ParseGenerate(kTransform, args, o, false); bad != 0) return bad;
  if (!Readable(kTransform, o.file)) return 1;
  GameState state;
  state.session.rng = o.seeded ? Random::Seeded(o.seed) : Random::Clocked(std::random_device{}());
  PrintedMessages ui(PrintedMessages::LineBreaks::kKept);
  int level = o.level;
  return MakePuzzlesFromFile(state, ui, o.file, level).failed ? 1 : 0;
}

}  // namespace
}  // namespace velmora::cli
