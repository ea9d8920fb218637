// Option updates and puzzle-file loading.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <string>

#include "board/geometry.h"
#include "files/puzzle_file.h"
#include "model/rules.h"

namespace velmora {
namespace {

const std::string kPuzzles = std::string(VELMORA_DATA_DIR) + "/puzzles.vlm";

void BM_UpdateOptionsLoadedPuzzle(benchmark::State& state) {
  GameState s;
  SilentUserInterface ui;
  std::string title;
  if (LoadPuzzle(s, ui, kPuzzles, 1, title, 0) != 0) {
    state.SkipWithError("cannot load puzzles.vlm");
    return;
  }
  for (auto _ : state) {
    UpdateOptions(s, 0);
    benchmark::DoNotOptimize(s.CellOptions);
  }
}
BENCHMARK(BM_UpdateOptionsLoadedPuzzle);

void BM_UpdateOptionsEmptyBoard(benchmark::State& state) {
  GameState s;
  s.Rows = s.Cols = 7;
  CalcCellPos(s);
  for (auto _ : state) {
    UpdateOptions(s, 0);
    benchmark::DoNotOptimize(s.CellOptions);
  }
}
BENCHMARK(BM_UpdateOptionsEmptyBoard);

// Loads records from the middle and the end of a 1,000-record file.
void BM_LoadPuzzleFrom1000Records(benchmark::State& state) {
  GameState s;
  SilentUserInterface ui;
  std::string title;
  if (LoadPuzzle(s, ui, kPuzzles, 1, title, 0) != 0) {
    state.SkipWithError("cannot load puzzles.vlm");
    return;
  }
  const std::string file = "/tmp/velmora-bench-" + std::to_string(::getpid()) + ".vlm";
  std::string text;
  for (int i = 1; i <= 1000; ++i) text += PuzzleRecordText(s, i, "Benchmark record");
  WriteFileAtomically(file, text);
  const int n = static_cast<int>(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(LoadPuzzle(s, ui, file, n, title, 0));
  }
  ::unlink(file.c_str());
}
BENCHMARK(BM_LoadPuzzleFrom1000Records)->Arg(500)->Arg(1000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velmora
