// The target options of each CPU level's build of a hot path. Code between
// VELMORA_BEGIN_V3 (or _V4) and VELMORA_END_LEVEL is compiled for that level;
// it is only run once the CPU has been seen to support it (cpu_level.h).
// Standard headers must be included before, so that nothing they define
// inline is built for a newer CPU than the program's.
#pragma once

#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)
#include <immintrin.h>
#define VELMORA_CPU_VERSIONS 1
#define VELMORA_BEGIN_V3 \
  _Pragma("GCC push_options") _Pragma("GCC target(\"avx2,bmi,bmi2,popcnt,lzcnt,fma,movbe\")")
#define VELMORA_BEGIN_V4               \
  _Pragma("GCC push_options") _Pragma( \
      "GCC target(\"avx2,bmi,bmi2,popcnt,lzcnt,fma,movbe,avx512f,avx512bw,avx512cd,avx512dq,avx512vl\")")
#define VELMORA_END_LEVEL _Pragma("GCC pop_options")
#endif
