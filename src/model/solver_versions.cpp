// Each CPU level's build of the solver trials: the generic one of solver.cpp,
// and the row-at-a-time solver of solver_rows.h built for x86-64-v4.
#include <array>
#include <cstdint>
#include <memory>

#include "model/cpu_targets.h"
#include "model/solver_trials.h"

namespace velmora::trials {
namespace generic {
namespace {
constexpr TrialFunctions kFunctions{SolveGridTrial, MakeBoard};
}  // namespace
}  // namespace generic

#ifdef VELMORA_CPU_VERSIONS
namespace {

// Eight card sets: one row of the board.
using Lanes = uint64_t __attribute__((vector_size(64)));
// What comparing two Lanes gives: all ones in a lane where it holds.
using LaneTest = int64_t __attribute__((vector_size(64)));

}  // namespace

VELMORA_BEGIN_V4
namespace v4 {
namespace {

// Bit c set where lane c of a comparison holds: one AVX-512 mask.
inline unsigned LaneBits(LaneTest t) { return _mm512_movepi64_mask(reinterpret_cast<__m512i>(t)); }

#include "model/solver_rows.h"

}  // namespace
}  // namespace v4
VELMORA_END_LEVEL
#endif

const TrialFunctions& TrialFunctionsFor(CpuLevel level) {
#ifdef VELMORA_CPU_VERSIONS
  if (level == CpuLevel::kV4) return v4::kFunctions;
    // An AVX2 row is two halves, and the shifts between neighbouring columns
    // cross them: measured, the row solver there runs at less than half the
    // generic code's speed, so x86-64-v3 keeps the generic trials.
#endif
  (void)level;
  return generic::kFunctions;
}

}  // namespace velmora::trials
