// Benchmarks of the hot paths run once per CPU level: the "cpu" argument is
// 0 for the generic code, 1 for x86-64-v3 and 2 for x86-64-v4. A level this
// machine lacks is reported as skipped.
#pragma once

#include <benchmark/benchmark.h>

#include "model/cpu_level.h"

namespace velmora {

// Switches the hot paths to the level the benchmark names, for as long as it lives.
class CpuArg {
 public:
  CpuArg(benchmark::State& state, int argIndex) : before_(ActiveCpuLevel()) {
    const auto level = static_cast<CpuLevel>(state.range(argIndex));
    ok_ = UseCpuLevel(level);
    if (!ok_) state.SkipWithError("this CPU lacks the level");
  }
  ~CpuArg() { UseCpuLevel(before_); }
  CpuArg(const CpuArg&) = delete;
  CpuArg& operator=(const CpuArg&) = delete;
  bool ok() const { return ok_; }

 private:
  CpuLevel before_;
  bool ok_ = false;
};

}  // namespace velmora
