// Colour schemes: reading by name, the fallbacks, the list, and rewriting all.col.
#include "appearance/color_scheme.h"

#include <gtest/gtest.h>

#include <vector>

#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::TempDir;

// A scheme whose element i is Rgb(base + i, 2 * i, 255 - i).
std::string SchemeText(const std::string& nameLine, int base) {
  std::string text = nameLine + "\r\n";
  for (int i = 0; i < 13; ++i) {
    text += " " + std::to_string(base + i) + "; " + std::to_string(2 * i) + "; " + std::to_string(255 - i) +
            "\r\n";
  }
  return text;
}

struct SchemeRun {
  TempDir dir;
  GameState s;
  test::RecordingUi ui;
  explicit SchemeRun(const std::string& contents) {
    s.AppFolder = dir.path() + "/";
    dir.Write("all.col", contents);
    s.Scheme.fill(Rgb(1, 2, 3));
  }
};

TEST(ReadColorScheme, LoadsTheNamedSchemeAndCopiesElementThreeToFive) {
  SchemeRun run(SchemeText("default.col", 0) + SchemeText("sea.col", 100));
  ASSERT_TRUE(ReadColorScheme(run.s, run.ui, "sea.col"));
  EXPECT_TRUE(run.ui.messages.empty());
  for (int i = 0; i < 13; ++i) {
    const int expectedIndex = i == 5 ? 3 : i;
    EXPECT_EQ(run.s.Scheme[i], Rgb(100 + expectedIndex, 2 * expectedIndex, 255 - expectedIndex)) << i;
  }
}

TEST(ReadColorScheme, ReadsBlankPaddedFieldsAndToleratesLfAndOddValues) {
  std::string text = "odd.col\n 10; 20; 30\n300;-5; 7.6\n";  // clamped and rounded
  for (int i = 2; i < 13; ++i) text += " 1; 1; 1\n";
  SchemeRun run(text);
  ASSERT_TRUE(ReadColorScheme(run.s, run.ui, "odd.col"));
  EXPECT_EQ(run.s.Scheme[0], Rgb(10, 20, 30));
  EXPECT_EQ(run.s.Scheme[1], Rgb(255, 0, 8));
}

TEST(ReadColorScheme, MissingNameFallsBackToDefaultWithTheMessage) {
  SchemeRun run(SchemeText("default.col", 0));
  run.s.ColorSchemeName = "gone.col";
  EXPECT_FALSE(ReadColorScheme(run.s, run.ui, "gone.col"));
  EXPECT_EQ(run.ui.messages, std::vector<std::string>{"Color Scheme: gone.col not found"});
  EXPECT_EQ(run.s.ColorSchemeName, "default.col");
  EXPECT_EQ(run.s.Scheme[2], Rgb(1, 2, 3));                     // nothing was read
  EXPECT_FALSE(ReadColorScheme(run.s, run.ui, "Default.col"));  // the match is exact
}

TEST(ReadColorScheme, DamagedOrMissingFilesFailWithoutThrowing) {
  std::string cut = "cut.col\r\n";  // only 5 colour lines, the fifth without its blue field
  for (int i = 0; i < 4; ++i) cut += " 9; 9; 9\r\n";
  SchemeRun run(cut + " 9; 9\r\n");
  EXPECT_FALSE(ReadColorScheme(run.s, run.ui, "cut.col"));
  EXPECT_EQ(run.s.Scheme[3], Rgb(9, 9, 9));  // kept what was read
  EXPECT_EQ(run.s.Scheme[4], Rgb(1, 2, 3));
  run.s.AppFolder = run.dir.path() + "/nowhere/";
  EXPECT_FALSE(ReadColorScheme(run.s, run.ui, "default.col"));
  EXPECT_EQ(run.ui.messages.size(), 2u);
}

TEST(EffectiveColors, DefaultSchemeTakesSystemBackgroundAndGreyButtons) {
  SchemeColors scheme;
  scheme.fill(Rgb(7, 7, 7));
  const auto def = EffectiveColors(scheme, "DEFAULT.COL", Rgb(200, 201, 202));
  EXPECT_EQ(def[kSchemeBackground], Rgb(200, 201, 202));
  EXPECT_EQ(def[kSchemeButtonFace], Rgb(240, 240, 240));
  EXPECT_EQ(def[kSchemeTitleBox], Rgb(7, 7, 7));
  EXPECT_EQ(EffectiveColors(scheme, "sea.col", Rgb(200, 201, 202)), scheme);
}

TEST(SchemeFile, NamesAreTheTextBeforeTheFirstDotCol) {
  TempDir dir;
  const std::string file =
      dir.Write("all.col", SchemeText("default.col", 0) + "junk\r\n" + SchemeText("a.col.col", 5));
  EXPECT_EQ(SchemeNames(file), (std::vector<std::string>{"default", "a"}));
  EXPECT_TRUE(SchemeNames(dir.File("none.col")).empty());
}

TEST(SchemeFile, AppendWritesLowerCaseNameAndBlankPaddedLinesThatReadBack) {
  SchemeRun run(SchemeText("default.col", 0));
  SchemeColors colors;
  for (int i = 0; i < 13; ++i) colors[i] = Rgb(i, 100 + i, 200 + i);
  ASSERT_TRUE(AppendScheme(run.dir.File("all.col"), "Blue", colors));
  const std::string text = run.dir.Read("all.col");
  EXPECT_NE(text.find("\r\nblue.col\r\n 0; 100; 200\r\n 1; 101; 201\r\n"), std::string::npos);
  EXPECT_EQ(SchemeNames(run.dir.File("all.col")), (std::vector<std::string>{"default", "blue"}));
  ASSERT_TRUE(ReadColorScheme(run.s, run.ui, "blue.col"));
  EXPECT_EQ(run.s.Scheme[12], colors[12]);
  EXPECT_EQ(run.s.Scheme[5], colors[3]);
}

TEST(SchemeFile, ReplaceAndDeleteTouchOnlyTheNamedScheme) {
  SchemeRun run(SchemeText("default.col", 0) + SchemeText("sea.col", 100) + SchemeText("sun.col", 50));
  const std::string all = run.dir.File("all.col"), work = run.dir.File("newall.cox");
  SchemeColors grey;
  grey.fill(Rgb(128, 128, 128));
  ASSERT_TRUE(ReplaceScheme(all, work, "sea.col", grey));
  ASSERT_TRUE(ReadColorScheme(run.s, run.ui, "sea.col"));
  EXPECT_EQ(run.s.Scheme[0], Rgb(128, 128, 128));
  ASSERT_TRUE(ReadColorScheme(run.s, run.ui, "sun.col"));
  EXPECT_EQ(run.s.Scheme[12], Rgb(62, 24, 243));
  EXPECT_EQ(run.dir.Read("newall.cox"), run.dir.Read("all.col"));  // the work file stays behind

  ASSERT_TRUE(DeleteScheme(all, work, "sea.col"));
  EXPECT_EQ(run.dir.Read("all.col"), SchemeText("default.col", 0) + SchemeText("sun.col", 50));
  EXPECT_FALSE(ReplaceScheme(run.dir.File("none.col"), work, "sea.col", grey));
}

TEST(SchemeFile, ShippedFileHasDefaultAndThreeMoreCompleteSchemes) {
  const auto names = SchemeNames(std::string(VELMORA_DATA_DIR) + "/all.col");
  ASSERT_GE(names.size(), 4u);
  EXPECT_EQ(names[0], "default");
  GameState s;
  s.AppFolder = std::string(VELMORA_DATA_DIR) + "/";
  test::RecordingUi ui;
  for (const auto& name : names) EXPECT_TRUE(ReadColorScheme(s, ui, name + ".col")) << name;
  EXPECT_TRUE(ui.messages.empty());
}

}  // namespace
}  // namespace velmora
