// Uniform random source: SplitMix64, optionally mixed with the time of day.
#pragma once

#include <cstdint>

namespace velmora {

class Random {
 public:
  // Seeded mode: a reproducible sequence with no clock mixing.
  static Random Seeded(uint64_t seed) { return Random(seed, false); }
  // Normal mode: the time of day is XOR-ed into the state before every draw,
  // which never restarts the sequence, so draws within one clock tick differ.
  static Random Clocked(uint64_t seed = 0) { return Random(seed, true); }

  Random() : Random(0, true) {}

  // u in [0, 1).
  double Next() {
    if (clocked_) state_ ^= NanosecondsSinceMidnight();
    state_ += 0x9E3779B97F4A7C15ULL;
    uint64_t z = state_;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    z = z ^ (z >> 31);
    return static_cast<double>(z >> 11) * 0x1.0p-53;
  }

  // k = floor(u * n) + 1 clamped to n: a 1-based pick among n items.
  int Pick(int n) {
    int k = static_cast<int>(Next() * n) + 1;
    return k > n ? n : k;
  }

  bool clocked() const { return clocked_; }
  uint64_t state() const { return state_; }

  static uint64_t NanosecondsSinceMidnight();

 private:
  Random(uint64_t seed, bool clocked) : state_(seed), clocked_(clocked) {}
  uint64_t state_;
  bool clocked_;
};

}  // namespace velmora
