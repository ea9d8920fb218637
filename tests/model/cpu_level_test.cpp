// Choosing the CPU version of the hot paths.
#include "model/cpu_level.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(CpuLevel, NamesAndTheStartUpChoiceNeverPassWhatTheCpuRuns) {
  for (const CpuLevel level : {CpuLevel::kGeneric, CpuLevel::kV3, CpuLevel::kV4})
    EXPECT_EQ(CpuLevelNamed(CpuLevelName(level)), level);
  EXPECT_EQ(CpuLevelNamed("V4"), std::nullopt);
  EXPECT_EQ(CpuLevelNamed(""), std::nullopt);
  // {asked, best, chosen}: nothing or nonsense asked, a lower level, a higher one
  const struct {
    const char* asked;
    CpuLevel best, chosen;
  } cases[] = {
      {nullptr, CpuLevel::kV4, CpuLevel::kV4},        {"avx", CpuLevel::kV3, CpuLevel::kV3},
      {"generic", CpuLevel::kV4, CpuLevel::kGeneric}, {"v3", CpuLevel::kV4, CpuLevel::kV3},
      {"v4", CpuLevel::kV3, CpuLevel::kV3},           {"v3", CpuLevel::kGeneric, CpuLevel::kGeneric}};
  for (const auto& c : cases)
    EXPECT_EQ(ChooseCpuLevel(c.asked, c.best), c.chosen) << (c.asked ? c.asked : "-");
}

TEST(CpuLevel, ACpuWithoutFastBitDepositOrAWholeLevelGetsTheLevelBelow) {
  const struct {
    CpuFeatures features;
    CpuLevel level;
  } cases[] = {{{false, false, false}, CpuLevel::kGeneric}, {{true, false, false}, CpuLevel::kV3},
               {{true, true, false}, CpuLevel::kV4},        {{true, false, true}, CpuLevel::kGeneric},
               {{true, true, true}, CpuLevel::kGeneric},    {{false, true, false}, CpuLevel::kGeneric}};
  for (const auto& c : cases)
    EXPECT_EQ(LevelOfFeatures(c.features), c.level)
        << c.features.v3 << c.features.v4 << c.features.slowBitDeposit;
}

TEST(CpuLevel, OnlyLevelsTheMachineRunsCanBeSwitchedTo) {
  const CpuLevel start = ActiveCpuLevel();
  const auto levels = SupportedCpuLevels();
  ASSERT_FALSE(levels.empty());
  EXPECT_EQ(levels.front(), CpuLevel::kGeneric);
  EXPECT_EQ(levels.back(), BestCpuLevel());
  if (!CpuVersionsBuilt()) {
    EXPECT_EQ(BestCpuLevel(), CpuLevel::kGeneric);
  }
  for (const CpuLevel level : levels) {
    EXPECT_TRUE(UseCpuLevel(level));
    EXPECT_EQ(ActiveCpuLevel(), level);
  }
  if (BestCpuLevel() != CpuLevel::kV4) {
    EXPECT_FALSE(UseCpuLevel(CpuLevel::kV4));
    EXPECT_EQ(ActiveCpuLevel(), levels.back());
  }
  UseCpuLevel(start);
}

}  // namespace
}  // namespace velmora
