// Judging the board as it stands: impossible cells, cards outside the
// givens' options, completion.
#pragma once

#include <string>

#include "model/puzzle.h"

namespace velmora {

inline constexpr int kCheckFault = 1;
inline constexpr int kCheckDone = 99;

struct CheckResult {
  std::string message;  // the fault, or "Done"; empty when neither
  int status = 0;       // 0 no fault and not complete, 1 a fault, 99 complete
};

// Complete means exactly 49 non-empty cells, whatever the board's size;
// suit-only marks count. Given cards are never tested against options.
CheckResult CheckBoard(const Puzzle& p);

}  // namespace velmora
