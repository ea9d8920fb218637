// The play clock of the puzzle shown: milliseconds played, counted only while
// it runs.
#pragma once

#include <QElapsedTimer>

namespace velmora {

class PlayClock {
 public:
  // The time played so far; a running clock goes on from it.
  void Set(long long ms) {
    base_ = ms;
    if (running_) since_.start();
  }
  void Run(bool on) {
    if (on == running_) return;
    if (running_) {
      base_ += since_.elapsed();
    } else {
      since_.start();
    }
    running_ = on;
  }
  long long Ms() const { return base_ + (running_ ? since_.elapsed() : 0); }
  bool Running() const { return running_; }

 private:
  long long base_ = 0;
  QElapsedTimer since_;
  bool running_ = false;
};

}  // namespace velmora
