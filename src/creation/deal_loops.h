// The dealing loops of CreatePuzzle and of a batch, built once for each CPU
// level: the draws are the hottest code of the generator.
#pragma once

#include "creation/puzzle_maker.h"
#include "model/cpu_level.h"

namespace velmora::maker {

using Phase = PuzzleMaker::Phase;

// Steps the maker until its deal ends, from `phase` as Begin or the last
// step left it; returns the phase it ends in.
template <class Draw>
[[gnu::always_inline]] inline Phase DealAloneWith(PuzzleMaker& m, Phase phase) {
  while (phase == Phase::kDealing) phase = m.StepWith<Draw>();
  return phase;
}

// Steps two makers a cell each in turn until either deal ends; the two
// puzzles' draws do not wait on each other.
template <class Draw>
[[gnu::always_inline]] inline void DealInTurnWith(PuzzleMaker& a, Phase& pa, PuzzleMaker& b, Phase& pb) {
  while (pa == Phase::kDealing && pb == Phase::kDealing) {
    pa = a.StepWith<Draw>();
    pb = b.StepWith<Draw>();
  }
}

struct DealLoops {
  Phase (*alone)(PuzzleMaker& m, Phase phase);
  void (*inTurn)(PuzzleMaker& a, Phase& pa, PuzzleMaker& b, Phase& pb);
};

// The loops built for `level`; a level that is not built in gives the generic ones.
const DealLoops& DealLoopsFor(CpuLevel level);
inline const DealLoops& ActiveDealLoops() { return DealLoopsFor(ActiveCpuLevel()); }

}  // namespace velmora::maker
