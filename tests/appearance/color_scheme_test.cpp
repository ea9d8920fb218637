// Colour schemes: reading by name, the fallbacks, the list, and rewriting all.col.
#include "appearance/color_scheme.h"

#include <gtest/gtest.h>

#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

// A scheme whose element i is Rgb(base + i, 2 * i, 255 - i).
std::string SchemeText(const std::string& nameLine, int base) {
  std::string text = nameLine + "\r\n";
  for (int i = 0; i < 13; ++i)
    text += " " + std::to_string(base + i) + "; " + std::to_string(2 * i) + "; " + std::to_string(255 - i) +
            "\r\n";
  return text;
}

struct SchemeRun {
  explicit SchemeRun(const std::string& contents) : file(dir.Write("all.col", contents)) {
    s.AppFolder = dir.path() + "/";
    s.Scheme.fill(Rgb(1, 2, 3));
  }
  bool Read(const std::string& name) { return ReadColorScheme(s, ui, name); }
  test::TempDir dir;
  std::string file;
  GameState s;
  test::RecordingUi ui;
};

TEST(ReadColorScheme, LoadsTheNamedSchemeCopyingElementThreeToFive) {
  SchemeRun run(SchemeText("default.col", 0) + SchemeText("sea.col", 100));
  ASSERT_TRUE(run.Read("sea.col"));
  for (int i = 0; i < 13; ++i) {
    const int from = i == 5 ? 3 : i;
    EXPECT_EQ(run.s.Scheme[i], Rgb(100 + from, 2 * from, 255 - from)) << i;
  }
  EXPECT_TRUE(run.ui.messages.empty());
}

TEST(ReadColorScheme, MissingNameOrDamagedFileFallsBackToDefaultWithTheMessage) {
  std::string cut = "cut.col\r\n";  // only 5 colour lines, the fifth without its blue field
  for (int i = 0; i < 4; ++i) cut += " 9; 9; 9\r\n";
  SchemeRun run(SchemeText("default.col", 0) + cut + " 9; 9\r\n");
  run.s.ColorSchemeName = "Default.col";
  EXPECT_FALSE(run.Read("Default.col"));  // the match is exact
  EXPECT_EQ(run.s.ColorSchemeName, "default.col");
  EXPECT_EQ(run.s.Scheme[2], Rgb(1, 2, 3));  // nothing was read
  EXPECT_FALSE(run.Read("cut.col"));
  EXPECT_EQ(std::vector({run.s.Scheme[3], run.s.Scheme[4]}),
            std::vector({Rgb(9, 9, 9), Rgb(1, 2, 3)}));  // kept
  run.s.AppFolder = run.dir.path() + "/nowhere/";
  EXPECT_FALSE(run.Read("default.col"));
  EXPECT_EQ(run.ui.messages, (std::vector<std::string>{"Color Scheme: Default.col not found",
                                                       "Color Scheme: cut.col not found",
                                                       "Color Scheme: default.col not found"}));
}

TEST(EffectiveColors, DefaultSchemeTakesSystemBackgroundAndGreyButtons) {
  SchemeColors scheme;
  scheme.fill(Rgb(7, 7, 7));
  SchemeColors expected = scheme;
  expected[kSchemeBackground] = Rgb(200, 201, 202);
  expected[kSchemeButtonFace] = Rgb(240, 240, 240);
  EXPECT_EQ(EffectiveColors(scheme, "DEFAULT.COL", Rgb(200, 201, 202)), expected);
  EXPECT_EQ(EffectiveColors(scheme, "sea.col", Rgb(200, 201, 202)), scheme);
}

TEST(SchemeFile, NamesAndTheEditingFunctionsTouchOnlyTheNamedScheme) {
  SchemeRun run(SchemeText("default.col", 0) + "junk\r\n" + SchemeText("sea.col", 100));
  SchemeColors grey;
  grey.fill(Rgb(128, 128, 128));
  ASSERT_TRUE(AppendScheme(run.file, "Blue", grey));
  EXPECT_EQ(SchemeNames(run.file), (std::vector<std::string>{"default", "sea", "blue"}));
  EXPECT_NE(run.dir.Read("all.col").find("\r\nblue.col\r\n 128; 128; 128\r\n"), std::string::npos);
  ASSERT_TRUE(ReplaceScheme(run.file, run.dir.File("newall.cox"), "default.col", grey));
  ASSERT_TRUE(DeleteScheme(run.file, run.dir.File("newall.cox"), "blue.col"));
  std::string greyDefault = "default.col\r\n";
  for (int i = 0; i < 13; ++i) greyDefault += " 128; 128; 128\r\n";
  EXPECT_EQ(run.dir.Read("all.col"), greyDefault + "junk\r\n" + SchemeText("sea.col", 100));
}

}  // namespace
}  // namespace velmora
