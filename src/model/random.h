// Uniform random source: SplitMix64, optionally mixed with the time of day.
#pragma once

#include <cstdint>

namespace velmora {

class Random {
 public:
  // Seeded mode: a reproducible sequence with no clock mixing.
  static Random Seeded(uint64_t seed) { return Random(seed, nullptr); }
  // Normal mode: the time of day is XOR-ed into the state before every draw,
  // which never restarts the sequence, so draws within one clock tick differ.
  // `clock` gives nanoseconds since midnight.
  static Random Clocked(uint64_t seed = 0, uint64_t (*clock)() = NanosecondsSinceMidnight) {
    return Random(seed, clock);
  }

  Random() : Random(0, NanosecondsSinceMidnight) {}

  // The 53 random bits behind one draw: u = Bits53() * 2^-53.
  uint64_t Bits53() {
    if (clock_) state_ ^= clock_();
    state_ += 0x9E3779B97F4A7C15ULL;
    uint64_t z = state_;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    z = z ^ (z >> 31);
    return z >> 11;
  }

  // k = floor(u * n) + 1 clamped to n: a 1-based pick among n items.
  int Pick(int n) { return PickOf(Bits53(), n); }

  // The pick that the bits of one draw make among n items.
  static int PickOf(uint64_t bits, int n) {
    // For n up to 256, bits * n is exact in 64 bits (below 2^61) and the
    // double product rounds it to 53 bits, moving it by at most 128; only a
    // product that close to the next multiple of 2^53 needs the double form.
    if (n >= 1 && n <= 256) return PickOfFew(bits, n);
    return PickByDouble(bits, n);
  }

  // PickOf for 1 <= n <= 256.
  static int PickOfFew(uint64_t bits, int n) {
    constexpr uint64_t kLow = (uint64_t{1} << 53) - 1;
    const uint64_t product = bits * static_cast<uint64_t>(n);
    if ((product & kLow) < kLow - 256) [[likely]]
      return static_cast<int>(product >> 53) + 1;
    return PickByDouble(bits, n);
  }

  uint64_t state() const { return state_; }

  static uint64_t NanosecondsSinceMidnight();

 private:
  static double ToUnit(uint64_t bits) { return static_cast<double>(static_cast<int64_t>(bits)) * 0x1.0p-53; }
  static int PickByDouble(uint64_t bits, int n) {
    const int k = static_cast<int>(ToUnit(bits) * n) + 1;
    return k > n ? n : k;
  }
  Random(uint64_t seed, uint64_t (*clock)()) : state_(seed), clock_(clock) {}
  uint64_t state_;
  uint64_t (*clock_)();
};

}  // namespace velmora
