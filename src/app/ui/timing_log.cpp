// Start-up and click times on stderr, for VELMORA_TIMING=1 runs.
#include "app/ui/timing_log.h"

#include <cstdio>

namespace velmora {

void TimingLog::Enable(QElapsedTimer sinceStart) {
  on_ = true;
  sinceStart_ = sinceStart;
}

void TimingLog::ClickStarted() { click_.start(); }

void TimingLog::ClickHandled(bool paintedCell) {
  clickPending_ = on_ && paintedCell;
  if (clickPending_) {
    std::fprintf(stderr, "velmora: click handled (update, check, controls) %.3f ms\n",
                 click_.nsecsElapsed() / 1e6);
  }
}

void TimingLog::Painted() {
  if (!on_) return;
  if (!firstPaintLogged_) {
    firstPaintLogged_ = true;
    std::fprintf(stderr, "velmora: start-up to first painted board %.1f ms\n",
                 sinceStart_.nsecsElapsed() / 1e6);
  }
  if (clickPending_) {
    clickPending_ = false;
    std::fprintf(stderr, "velmora: click to repainted cell %.3f ms\n", click_.nsecsElapsed() / 1e6);
  }
}

}  // namespace velmora
