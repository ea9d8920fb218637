// Option updates and puzzle-file loading.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <string>

#include "board/geometry.h"
#include "cpu_arg.h"
#include "files/puzzle_file.h"
#include "model/rules.h"

namespace velmora {
namespace {

const std::string kPuzzles = std::string(VELMORA_DATA_DIR) + "/puzzles.vlm";

void BM_UpdateOptionsLoadedPuzzle(benchmark::State& state) {
  const CpuArg cpu(state, 0);
  if (!cpu.ok()) return;
  GameState s;
  SilentUserInterface ui;
  if (!LoadPuzzle(s, ui, kPuzzles, 1, Draw::kNo)) {
    state.SkipWithError("cannot load puzzles.vlm");
    return;
  }
  for (auto _ : state) {
    UpdateOptions(s.puzzle);
    benchmark::DoNotOptimize(s.puzzle.CellOptions);
  }
}
BENCHMARK(BM_UpdateOptionsLoadedPuzzle)->DenseRange(0, 2)->ArgName("cpu");

void BM_UpdateOptionsEmptyBoard(benchmark::State& state) {
  const CpuArg cpu(state, 0);
  if (!cpu.ok()) return;
  GameState s;
  s.puzzle.Rows = s.puzzle.Cols = 7;
  for (auto _ : state) {
    UpdateOptions(s.puzzle);
    benchmark::DoNotOptimize(s.puzzle.CellOptions);
  }
}
BENCHMARK(BM_UpdateOptionsEmptyBoard)->DenseRange(0, 2)->ArgName("cpu");

// Loads records from the middle and the end of a 1,000-record file.
void BM_LoadPuzzleFrom1000Records(benchmark::State& state) {
  GameState s;
  SilentUserInterface ui;
  if (!LoadPuzzle(s, ui, kPuzzles, 1, Draw::kNo)) {
    state.SkipWithError("cannot load puzzles.vlm");
    return;
  }
  const std::string file = "/tmp/velmora-bench-" + std::to_string(::getpid()) + ".vlm";
  std::string text;
  for (int i = 1; i <= 1000; ++i) text += PuzzleRecordText(s.puzzle, i, "Benchmark record");
  WriteFileAtomically(file, text);
  const int n = static_cast<int>(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(LoadPuzzle(s, ui, file, n, Draw::kNo));
  }
  ::unlink(file.c_str());
}
BENCHMARK(BM_LoadPuzzleFrom1000Records)->Arg(500)->Arg(1000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velmora
