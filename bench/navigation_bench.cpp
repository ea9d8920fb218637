// Stepping through a puzzle file of 1,000,000 records: Next, a typed number
// and Delete, near the start and at the end of the file.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "board/play.h"
#include "files/file_commands.h"
#include "files/puzzle_file.h"
#include "files/text_file.h"
#include "model/text.h"

namespace velmora {
namespace {

constexpr int kRecords = 1000000;
const std::string kPuzzles = std::string(VELMORA_DATA_DIR) + "/puzzles.vlm";

// A folder holding big.vlm, made of the first record of puzzles.vlm written
// kRecords times (about 90 MB); removed when the benchmarks end.
class BigFile {
 public:
  BigFile() {
    std::string path = (std::filesystem::temp_directory_path() / "velmora-nav-bench-XXXXXX").string();
    if (::mkdtemp(path.data())) folder_ = path;
    GameState s;
    SilentUserInterface ui;
    if (!LoadPuzzle(s, ui, kPuzzles, 1, Draw::kNo)) return;
    std::string text;
    text.reserve(static_cast<size_t>(kRecords) * 100);
    const std::string record = PuzzleRecordText(s.puzzle, 1, s.view.PuzTitle);
    const std::string body = record.substr(record.find('\n') + 1);  // all but the header
    for (int i = 1; i <= kRecords; ++i) text += "#" + NumText(i) + "\r\n" + body;
    ok_ = WriteFileAtomically(Path(), text);
    // A file being browsed was written a while ago; a file changed within the
    // last moments is read afresh at every step.
    std::this_thread::sleep_for(std::chrono::milliseconds(2100));
  }
  ~BigFile() {
    std::error_code ec;
    if (!folder_.empty()) std::filesystem::remove_all(folder_, ec);
  }
  bool ok() const { return ok_; }
  const std::string& Folder() const { return folder_; }
  std::string Path() const { return folder_ + "/big.vlm"; }

 private:
  std::string folder_;
  bool ok_ = false;
};

// One for stepping, one for deleting from.
const BigFile& TheFile(bool forDelete = false) {
  static const BigFile file;
  if (!forDelete) return file;
  static const BigFile deleted;
  return deleted;
}

// A state showing record m of the big file, as the arrows find it.
bool Showing(GameState& s, int m, bool forDelete = false) {
  const BigFile& file = TheFile(forDelete);
  SilentUserInterface ui;
  s.session.CurrentPuzzleFile = file.Path();
  return file.ok() && LoadPuzzle(s, ui, file.Path(), m, Draw::kNo);
}

// Next from record m to m + 1, m = the argument.
void BM_NextIn1MRecords(benchmark::State& state) {
  GameState s;
  SilentUserInterface ui;
  const int m = static_cast<int>(state.range(0));
  if (!Showing(s, m)) return state.SkipWithError("cannot make the big file");
  for (auto _ : state) {
    s.session.CurrentPuzzleNumber = m;
    arrowsMouseUp(s, ui, kArrowNext, kLeftButton);
  }
  if (s.session.CurrentPuzzleNumber != m + 1) state.SkipWithError("Next did not step");
}
BENCHMARK(BM_NextIn1MRecords)->Arg(1)->Arg(kRecords - 1)->Unit(benchmark::kMillisecond);

// The typed number n = the argument, from record 1.
void BM_GotoIn1MRecords(benchmark::State& state) {
  GameState s;
  SilentUserInterface ui;
  const int n = static_cast<int>(state.range(0));
  if (!Showing(s, 1)) return state.SkipWithError("cannot make the big file");
  for (auto _ : state) {
    s.view.PuzNumNow = NumText(n);
    PuzNumNowEnter(s, ui);
  }
  if (s.session.CurrentPuzzleNumber != n) state.SkipWithError("the typed number did not load");
}
BENCHMARK(BM_GotoIn1MRecords)->Arg(2)->Arg(kRecords)->Unit(benchmark::kMillisecond);

// Delete of record n, or of the record 100 before the end: the whole file is
// rewritten either way, then the neighbour shown.
void BM_DeleteIn1MRecords(benchmark::State& state) {
  GameState s;
  SilentUserInterface ui;
  const int n = state.range(0) == 1 ? 1 : kRecords - 100;
  if (!Showing(s, n, true)) return state.SkipWithError("cannot make the big file");
  std::error_code ec;
  const auto here = std::filesystem::current_path(ec);
  std::filesystem::current_path(TheFile(true).Folder(), ec);  // for velmora.tmp
  for (auto _ : state) {
    s.view.PuzNumNow = NumText(n);
    s.session.PuzzleCount = kRecords;
    mnudelete(s, ui);
  }
  std::filesystem::current_path(here, ec);
  if (s.session.CurrentPuzzleNumber != (n == 1 ? 1 : n - 1))
    state.SkipWithError("Delete did not show the neighbour");
}
BENCHMARK(BM_DeleteIn1MRecords)->Arg(1)->Arg(kRecords)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora
