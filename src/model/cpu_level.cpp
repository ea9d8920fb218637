#include "model/cpu_level.h"

#include <array>
#include <atomic>
#include <cstdlib>

#include "model/cpu_targets.h"

namespace velmora {
namespace {

constexpr std::array<std::string_view, 3> kNames = {"generic", "v3", "v4"};

CpuLevel DetectLevel() {
#ifdef VELMORA_CPU_VERSIONS
  // libgcc's checks include the operating system's saving of the AVX and
  // AVX-512 registers, so a "yes" here means the instructions can run.
  __builtin_cpu_init();
  CpuFeatures f;
  f.v3 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2") &&
         __builtin_cpu_supports("popcnt") && __builtin_cpu_supports("lzcnt") &&
         __builtin_cpu_supports("fma") && __builtin_cpu_supports("movbe");
  f.v4 = f.v3 && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
         __builtin_cpu_supports("avx512cd") && __builtin_cpu_supports("avx512dq") &&
         __builtin_cpu_supports("avx512vl");
  f.slowBitDeposit = __builtin_cpu_is("amdfam17h");
  return LevelOfFeatures(f);
#else
  return CpuLevel::kGeneric;
#endif
}

// Read on every dispatch; relaxed is enough, as it changes only at start-up
// and between the runs of a test.
std::atomic<CpuLevel>& Active() {
  static std::atomic<CpuLevel> level{ChooseCpuLevel(std::getenv("VELMORA_CPU"), BestCpuLevel())};
  return level;
}

}  // namespace

bool CpuVersionsBuilt() {
#ifdef VELMORA_CPU_VERSIONS
  return true;
#else
  return false;
#endif
}

CpuLevel BestCpuLevel() {
  static const CpuLevel best = DetectLevel();
  return best;
}

std::vector<CpuLevel> SupportedCpuLevels() {
  std::vector<CpuLevel> levels;
  for (int i = 0; i <= static_cast<int>(BestCpuLevel()); ++i) levels.push_back(static_cast<CpuLevel>(i));
  return levels;
}

CpuLevel LevelOfFeatures(const CpuFeatures& f) {
  if (f.slowBitDeposit || !f.v3) return CpuLevel::kGeneric;
  return f.v4 ? CpuLevel::kV4 : CpuLevel::kV3;
}

CpuLevel ChooseCpuLevel(const char* asked, CpuLevel best) {
  const std::optional<CpuLevel> named = CpuLevelNamed(asked ? asked : "");
  return named && *named <= best ? *named : best;
}

CpuLevel ActiveCpuLevel() { return Active().load(std::memory_order_relaxed); }

bool UseCpuLevel(CpuLevel level) {
  if (level > BestCpuLevel()) return false;
  Active().store(level, std::memory_order_relaxed);
  return true;
}

std::string_view CpuLevelName(CpuLevel level) { return kNames[static_cast<size_t>(level)]; }

std::optional<CpuLevel> CpuLevelNamed(std::string_view name) {
  for (size_t i = 0; i < kNames.size(); ++i)
    if (kNames[i] == name) return static_cast<CpuLevel>(i);
  return std::nullopt;
}

}  // namespace velmora
