// CreatePuzzle per level in the seeded mode, the way velmora-cli generate
// runs it: one fresh generator per puzzle.
#include <benchmark/benchmark.h>

#include "cpu_arg.h"
#include "creation/generator.h"
#include "model/game_state.h"

namespace velmora {
namespace {

void BM_CreatePuzzle(benchmark::State& state) {
  const int level = static_cast<int>(state.range(0));
  const CpuArg cpu(state, 1);
  if (!cpu.ok()) return;
  GameState s;
  SilentUserInterface ui;
  uint64_t seed = 1;
  for (auto _ : state) {
    s.session.rng = Random::Seeded(seed++);
    int made = level;
    benchmark::DoNotOptimize(CreatePuzzle(s.puzzle, s.session, ui, made));
  }
  state.counters["puzzles/s"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_CreatePuzzle)->ArgsProduct({{0, 1, 2, 3}, {0, 1, 2}})->ArgNames({"level", "cpu"})->MinTime(2);

// The batch engine of velmora-cli generate on one thread: two puzzles dealt in turn.
class CountedJobs : public PuzzleJobs {
 public:
  CountedJobs(int level, uint64_t count, uint64_t& seed) : level_(level), left_(count), seed_(seed) {}
  bool Next(uint64_t& id, Random& rng, int& level) override {
    if (left_ == 0) return false;
    --left_;
    id = ++seed_;
    rng = Random::Seeded(seed_);
    level = level_;
    return true;
  }
  void Made(uint64_t, const Puzzle& p, int) override { benchmark::DoNotOptimize(p.Grid[1][1]); }

 private:
  int level_;
  uint64_t left_;
  uint64_t& seed_;  // carried over from batch to batch: every puzzle is new
};

void BM_CreatePuzzlesPaired(benchmark::State& state) {
  const int level = static_cast<int>(state.range(0));
  const CpuArg cpu(state, 1);
  if (!cpu.ok()) return;
  constexpr uint64_t kBatch = 200;
  uint64_t seed = 0;
  for (auto _ : state) {
    CountedJobs jobs(level, kBatch, seed);
    CreatePuzzles(jobs);
  }
  state.counters["puzzles/s"] =
      benchmark::Counter(static_cast<double>(state.iterations() * kBatch), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_CreatePuzzlesPaired)
    ->ArgsProduct({{0, 1, 2, 3}, {0, 1, 2}})
    ->ArgNames({"level", "cpu"})
    ->MinTime(2)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora
