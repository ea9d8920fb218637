// SolveGrid on puzzles made the way the generator makes them: a full valid
// grid with givens taken away while the solver can still finish the board.
#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <vector>

#include "board/geometry.h"
#include "cpu_arg.h"
#include "model/game_state.h"
#include "model/rules.h"
#include "model/solver.h"

namespace velmora {
namespace {

// A valid 7x7 solution (one letter per cell, 64 + card index) whose base
// blank pattern the solver completes.
constexpr const char* kSolution[7] = {"Lci_fPm", "YDSeWjG", "CN\\sIdU", "pEgV`BO",
                                      "Rl^Kr[b", "tZAnaTk", "FqXMoJQ"};

class PassCounter : public UserInterface {
 public:
  void Yield() override { ++passes; }
  int passes = 0;
};

bool Solves(const GameState& s) {
  GameState copy = s;
  SilentUserInterface ui;
  return SolveGrid(copy.puzzle, copy.session, ui) == SolveResult::kFilled;
}

// The "Easy" puzzle: the full board with the base pattern's 14 cells blank.
GameState BasePuzzle() {
  GameState s;
  s.puzzle.Rows = s.puzzle.Cols = 7;
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c)
      s.puzzle.SolutionGrid[r][c] = s.puzzle.Grid[r][c] = kSolution[r - 1][c - 1] - 64;
  RebuildCardCodes(s.puzzle);
  for (int r = 1; r <= 7; ++r) {
    s.puzzle.Grid[r][r % 2 ? 2 : 3] = 0;
    s.puzzle.Grid[r][r % 2 ? 6 : 5] = 0;
  }
  return s;
}

// The harder levels: further givens blanked in a scrambled order, each kept
// blank only while the solver still completes the board, until `extra` more
// are blank (0: every given is tried once, as "VHard" does).
GameState MakePuzzle(int extra, uint32_t seed) {
  GameState s = BasePuzzle();
  std::vector<int> order;
  for (int k = 1; k <= 49; ++k) order.push_back(k);
  uint32_t x = seed;
  for (int i = 48; i > 0; --i) {
    x = x * 1103515245u + 12345u;
    std::swap(order[i], order[(x >> 16) % (i + 1)]);
  }
  int made = 0;
  for (int k : order) {
    if (extra != 0 && made == extra) break;
    int& cell = s.puzzle.Grid[s.puzzle.CellRow(k)][s.puzzle.CellCol(k)];
    if (cell == 0) continue;
    const int keep = cell;
    cell = 0;
    if (Solves(s)) {
      ++made;
    } else {
      cell = keep;
    }
  }
  s.puzzle.PuzzleGrid = s.puzzle.Grid;
  return s;
}

int Blanks(const GameState& s) {
  int empty = 0;
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c) empty += s.puzzle.PuzzleGrid[r][c] == 0;
  return empty;
}

// Of a few scrambled orders, the one that leaves the most blanks.
GameState FewestGivens() {
  GameState best = MakePuzzle(0, 1);
  for (uint32_t seed = 2; seed <= 40; ++seed) {
    GameState s = MakePuzzle(0, seed);
    if (Blanks(s) > Blanks(best)) best = s;
  }
  return best;
}

// A "VHard"-like puzzle: the first scrambled order that reaches 23 blanks.
GameState TwentyThreeBlanks() {
  for (uint32_t seed = 1; seed <= 200; ++seed) {
    GameState s = MakePuzzle(9, seed);
    if (Blanks(s) == 23) return s;
  }
  return FewestGivens();
}

void RunSolve(benchmark::State& state, GameState s) {
  s.puzzle.PuzzleGrid = s.puzzle.Grid;
  PassCounter counter;
  GameState probe = s;
  if (SolveGrid(probe.puzzle, probe.session, counter) == SolveResult::kCellsLeft) {
    state.SkipWithError("puzzle not solvable by deduction");
    return;
  }
  SilentUserInterface ui;
  for (auto _ : state) {
    s.puzzle.Grid = s.puzzle.PuzzleGrid;
    benchmark::DoNotOptimize(SolveGrid(s.puzzle, s.session, ui));
    benchmark::ClobberMemory();
  }
  state.counters["blanks"] = Blanks(s);
  state.counters["passes"] = counter.passes;
}

void BM_SolveGrid35Givens(benchmark::State& state) { RunSolve(state, BasePuzzle()); }
BENCHMARK(BM_SolveGrid35Givens);

void BM_SolveGrid23Blanks(benchmark::State& state) { RunSolve(state, TwentyThreeBlanks()); }
BENCHMARK(BM_SolveGrid23Blanks);

void BM_SolveGridFewestGivens(benchmark::State& state) { RunSolve(state, FewestGivens()); }
BENCHMARK(BM_SolveGridFewestGivens);

// An empty board: nothing to deduce, so the cost of setting up and one pass.
void BM_SolveGridOnePassEmptyBoard(benchmark::State& state) {
  GameState s = BasePuzzle();
  for (int r = 1; r <= 7; ++r)
    for (int c = 1; c <= 7; ++c) s.puzzle.Grid[r][c] = 0;
  s.puzzle.PuzzleGrid = s.puzzle.Grid;
  SilentUserInterface ui;
  for (auto _ : state) {
    s.puzzle.Grid = s.puzzle.PuzzleGrid;
    benchmark::DoNotOptimize(SolveGrid(s.puzzle, s.session, ui));
  }
}
BENCHMARK(BM_SolveGridOnePassEmptyBoard);

// The removal trials of "VHard": from the base puzzle, every given blanked
// in turn, kept blank while the trial still completes the board.
void BM_BlankTrialsEveryGiven(benchmark::State& state) {
  const CpuArg cpu(state, 0);
  if (!cpu.ok()) return;
  const GameState start = BasePuzzle();
  SilentUserInterface ui;
  int kept = 0;
  for (auto _ : state) {
    GameState s = start;
    BlankTrials trials(s.puzzle, s.session);
    kept = 0;
    for (int r = 1; r <= 7; ++r) {
      for (int c = 1; c <= 7; ++c) {
        const int given = s.puzzle.Grid[r][c];
        if (given <= 0) continue;
        s.puzzle.Grid[r][c] = 0;
        if (trials.Try(ui, r, c, given) == SolveResult::kFilled) {
          trials.Keep(r, c, given);
          ++kept;
        } else {
          s.puzzle.Grid[r][c] = given;
        }
      }
    }
    benchmark::DoNotOptimize(kept);
  }
  state.counters["kept"] = kept;
}
BENCHMARK(BM_BlankTrialsEveryGiven)->DenseRange(0, 2)->ArgName("cpu");

}  // namespace
}  // namespace velmora
