// Making many puzzles on one thread, two deals in turn.
#include <optional>

#include "creation/deal_loops.h"
#include "creation/generator.h"
#include "creation/puzzle_maker.h"

namespace velmora {
namespace {

using maker::PuzzleMaker;
using Phase = PuzzleMaker::Phase;

struct Slot {
  Puzzle puzzle;
  Session session;
  std::optional<PuzzleMaker> maker;
  uint64_t id = 0;
  Phase phase = Phase::kMade;
  bool busy = false;

  Slot() { puzzle.Rows = puzzle.Cols = maker::kSize; }

  // Takes the next job, if any, and starts its first deal.
  void Start(PuzzleJobs& jobs, UserInterface& ui) {
    int level = kLevelRandom;
    busy = jobs.Next(id, session.rng, level);
    if (!busy) return;
    maker.emplace(puzzle, session, ui, level);
    phase = maker->Begin();
  }

  // Hands a finished puzzle over and starts the next one.
  void Settle(PuzzleJobs& jobs, UserInterface& ui) {
    // Nothing sets CancelRequest in a batch, so a puzzle that ends is made.
    if (!busy || phase == Phase::kDealing) return;
    jobs.Made(id, puzzle, maker->level());
    Start(jobs, ui);
  }
};

// Deals two puzzles in turn, one cell each, until either ends its deal.
void StepInTurn(Slot& a, Slot& b, const maker::DealLoops& loops) {
  if (a.busy && b.busy) {
    loops.inTurn(*a.maker, a.phase, *b.maker, b.phase);
    return;
  }
  Slot& only = a.busy ? a : b;
  only.phase = loops.alone(*only.maker, only.phase);
}

}  // namespace

void CreatePuzzles(PuzzleJobs& jobs) {
  SilentUserInterface ui;
  const maker::DealLoops& loops = maker::ActiveDealLoops();
  Slot a, b;
  a.Start(jobs, ui);
  b.Start(jobs, ui);
  while (a.busy || b.busy) {
    StepInTurn(a, b, loops);
    a.Settle(jobs, ui);
    b.Settle(jobs, ui);
  }
}

}  // namespace velmora
