// Start-up and click times on stderr, for VELMORA_TIMING=1 runs.
#pragma once

#include <QElapsedTimer>

namespace velmora {

class TimingLog {
 public:
  // Logs from now on; `sinceStart` runs from the program's start.
  void Enable(QElapsedTimer sinceStart);

  // A click on the board begins.
  void ClickStarted();
  // The click is handled; only one that painted a cell is timed, up to the
  // cell on screen.
  void ClickHandled(bool paintedCell);
  // The board has been painted on screen.
  void Painted();

 private:
  bool on_ = false;
  bool firstPaintLogged_ = false;
  bool clickPending_ = false;
  QElapsedTimer sinceStart_;
  QElapsedTimer click_;
};

}  // namespace velmora
