// Each CPU level's build of the dealing loops. The loop bodies are the
// templates of deal_loops.h; only the draw differs between the levels.
#include "creation/deal_loops.h"

#include "model/cpu_targets.h"

namespace velmora::maker {
namespace generic {

Phase DealAlone(PuzzleMaker& m, Phase phase) { return DealAloneWith<BroadwordDraw>(m, phase); }
void DealInTurn(PuzzleMaker& a, Phase& pa, PuzzleMaker& b, Phase& pb) {
  DealInTurnWith<BroadwordDraw>(a, pa, b, pb);
}
constexpr DealLoops kLoops{DealAlone, DealInTurn};

}  // namespace generic

#ifdef VELMORA_CPU_VERSIONS
// Both newer levels draw with BMI2; the x86-64-v4 loops are the same source
// compiled for that level.
VELMORA_BEGIN_V3
namespace v3 {
#include "creation/deal_version.h"
}  // namespace v3
VELMORA_END_LEVEL

VELMORA_BEGIN_V4
namespace v4 {
#include "creation/deal_version.h"
}  // namespace v4
VELMORA_END_LEVEL
#endif

const DealLoops& DealLoopsFor(CpuLevel level) {
#ifdef VELMORA_CPU_VERSIONS
  if (level == CpuLevel::kV4) return v4::kLoops;
  if (level == CpuLevel::kV3) return v3::kLoops;
#endif
  (void)level;
  return generic::kLoops;
}

}  // namespace velmora::maker
