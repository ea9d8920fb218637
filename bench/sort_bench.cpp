// The sort tool on a file of 100,000 records, the way a large puzzle book is
// sorted: every key, and the random order.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "files/sort.h"
#include "files/text_file.h"
#include "model/text.h"

namespace velmora {
namespace {

constexpr int kRecords = 100000;

// A folder holding big.vlm: records numbered in scrambled order, titles of
// the generator's form, 7x7 rows with letters drawn at random. Removed when
// the benchmark ends.
class BigFile {
 public:
  BigFile() {
    std::string path = (std::filesystem::temp_directory_path() / "velmora-sort-bench-XXXXXX").string();
    if (::mkdtemp(path.data())) folder_ = path;
    WriteFileAtomically(Source(), Records());
  }
  ~BigFile() {
    std::error_code ec;
    if (!folder_.empty()) std::filesystem::remove_all(folder_, ec);
  }
  std::string Source() const { return folder_ + "/big.vlm"; }
  std::string Output() const { return folder_ + "/big_sorted.vlm"; }

 private:
  static std::string Records() {
    Random rng = Random::Seeded(1);
    static const char* const kLevels[] = {"Easy", "Hard", "VHard"};
    std::string text;
    for (int i = 0; i < kRecords; ++i) {
      const int blanks = 14 + rng.Pick(20);
      text += "#" + NumText(static_cast<long long>(i) * 7919 % kRecords + 1) + "\r\n";
      text += std::string(kLevels[rng.Pick(3) - 1]) + " " + NumText(rng.Pick(28)) +
              "/11/2026 10:" + NumText(10 + rng.Pick(49)) + ":" + NumText(10 + rng.Pick(49)) + "\r\n";
      text += " 7, 7," + Str(blanks) + "\r\n";
      for (int r = 0; r < 7; ++r) {
        std::string row(15, '|');
        for (size_t c = 0; c < 7; ++c) {
          row[8 + c] = static_cast<char>(64 + rng.Pick(52));
          row[c] = rng.Pick(49) <= blanks ? '@' : row[8 + c];
        }
        text += row + "\r\n";
      }
    }
    return text;
  }
  std::string folder_;
};

void BM_Sort100k(benchmark::State& state) {
  static const BigFile file;
  SortSettings settings;
  settings.source = file.Source();
  settings.output = file.Output();
  settings.key = static_cast<SortKey>(state.range(0));
  settings.order = static_cast<SortOrder>(state.range(1));
  Random rng = Random::Seeded(2);
  SilentUserInterface ui;
  for (auto _ : state) {
    if (SortPuzzleFile(settings, rng, ui) != kSorted) state.SkipWithError("sort failed");
  }
  state.SetItemsProcessed(state.iterations() * kRecords);
}
BENCHMARK(BM_Sort100k)
    ->ArgNames({"key", "order"})
    ->Args({static_cast<int>(SortKey::kHeader), static_cast<int>(SortOrder::kAscending)})
    ->Args({static_cast<int>(SortKey::kNumber), static_cast<int>(SortOrder::kDescending)})
    ->Args({static_cast<int>(SortKey::kHeader), static_cast<int>(SortOrder::kRandom)})
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora
