// Which build of the hot paths runs: the generic code, or a version for a
// newer x86-64 CPU level, chosen once at start-up from what the CPU offers.
// Every version gives the same results; only the speed differs.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace velmora {

enum class CpuLevel {
  kGeneric,  // any CPU the program is built for
  kV3,       // x86-64-v3: AVX2, BMI1/2, LZCNT, POPCNT, FMA
  kV4,       // x86-64-v4: v3 plus AVX-512 F, BW, CD, DQ, VL
};

// What the level depends on in a CPU.
struct CpuFeatures {
  bool v3 = false;  // every x86-64-v3 instruction set, with the OS's support
  bool v4 = false;  // every x86-64-v4 one
  // pdep runs as slow microcode (AMD family 17h, Zen 1 and 2): the newer
  // levels' draws would be several times slower than the generic ones.
  bool slowBitDeposit = false;
};

// The level for a CPU with these features.
CpuLevel LevelOfFeatures(const CpuFeatures& f);

// Whether the versions for newer CPUs are built in at all (GCC on x86-64).
bool CpuVersionsBuilt();

// The highest level this CPU and its operating system run.
CpuLevel BestCpuLevel();

// Every level this machine runs, lowest first.
std::vector<CpuLevel> SupportedCpuLevels();

// The level the hot paths use: ChooseCpuLevel(getenv("VELMORA_CPU"),
// BestCpuLevel()) at start-up.
CpuLevel ActiveCpuLevel();

// The level `asked` names ("generic", "v3", "v4") when `best` reaches it;
// otherwise, or when nothing is asked, `best`.
CpuLevel ChooseCpuLevel(const char* asked, CpuLevel best);

// Switches the hot paths to `level`, for tests and benchmarks that run each
// version in turn; false, changing nothing, when this machine lacks it.
// Not to be called while another thread generates or solves.
bool UseCpuLevel(CpuLevel level);

std::string_view CpuLevelName(CpuLevel level);
std::optional<CpuLevel> CpuLevelNamed(std::string_view name);

}  // namespace velmora
