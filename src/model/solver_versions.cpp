// Each CPU level's build of the solver trials: the generic solver of
// solver_cells.h (built for the generic level in solver.cpp, and here for
// x86-64-v3), and the row-at-a-time solver of solver_rows.h for x86-64-v4.
#include <array>
#include <cstdint>
#include <memory>

#include "model/cpu_targets.h"
#include "model/rules.h"
#include "model/solver_trials.h"

namespace velmora::trials {
namespace generic {
namespace {
constexpr TrialFunctions kFunctions{CellsTrial, CellsBoard};
}  // namespace
}  // namespace generic

#ifdef VELMORA_CPU_VERSIONS
namespace {

// Eight card sets: one row of the board.
using Lanes = uint64_t __attribute__((vector_size(64)));
// What comparing two Lanes gives: all ones in a lane where it holds.
using LaneTest = int64_t __attribute__((vector_size(64)));

}  // namespace

// An AVX2 row is two halves that the shifts between neighbouring columns
// cross: measured, the row solver ran there at less than half the generic
// solver's speed, so x86-64-v3 builds the generic one.
VELMORA_BEGIN_V3
namespace v3 {
#include "model/solver_cells.h"
constexpr TrialFunctions kFunctions{CellsTrial, CellsBoard};
}  // namespace v3
VELMORA_END_LEVEL

VELMORA_BEGIN_V4
namespace v4 {
#include "model/solver_cells.h"

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
  if (level == CpuLevel::kV3) return v3::kFunctions;
#endif
  (void)level;
  return generic::kFunctions;
}

}  // namespace velmora::trials
