// Colour schemes: reading by name, damaged files, and the dialog's list,
// add, replace and delete commands on all.col.
#include "appearance/color_scheme.h"

#include <gtest/gtest.h>

#include "appearance/scheme_options.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using Strings = std::vector<std::string>;

// A scheme whose element i is Rgb(base + i, 2 * i, 255 - i), as the program writes it.
std::string SchemeText(const std::string& nameLine, int base) {
  std::string text = nameLine + "\r\n";
  for (int i = 0; i < 13; ++i)
    text += " " + std::to_string(base + i) + "; " + std::to_string(2 * i) + "; " + std::to_string(255 - i) +
            "\r\n";
  return text;
}

struct SchemeRun {
  explicit SchemeRun(const std::string& contents) {
    dir.Write("all.col", contents);
    s.session.AppFolder = dir.path() + "/";
    s.look.Scheme.fill(Rgb(1, 2, 3));
    FillSchemeList(s.session.AppFolder, list);
  }
  bool Read(const std::string& name) { return ReadColorScheme(s.session.AppFolder, s.look, ui, name); }
  std::string File() const { return dir.Read("all.col"); }
  test::TempDir dir;
  GameState s;
  test::RecordingUi ui;
  SchemeListBox list;
};

TEST(ReadColorScheme, LoadsTheNamedSchemeWithElementFiveFromThree) {
  SchemeRun run(SchemeText("default.col", 0) + SchemeText("sea.col", 100) + SchemeText("x.col", 200));
  ASSERT_TRUE(run.Read("sea.col"));
  SchemeColors expected;
  for (int i = 0; i < 13; ++i) expected[i] = Rgb(100 + i, 2 * i, 255 - i);
  expected[5] = expected[3];
  EXPECT_EQ(run.s.look.Scheme, expected);
  EXPECT_TRUE(run.ui.messages.empty());
}

// What each kind of damage gives: found or not (then the message and the
// fallback to "default.col"), and elements 0 and 1 afterwards.
TEST(ReadColorScheme, DamagedFilesNeverStopTheProgram) {
  const std::string twelve = SchemeText("cut.col", 0).substr(0, SchemeText("cut.col", 0).rfind(" 12;"));
  std::string eleven;
  for (int i = 0; i < 11; ++i) eleven += " 1; 1; 1\r\n";
  const struct {
    const char* what;
    std::string file;
    bool found;
    uint32_t first, second;
  } cases[] = {
      {"short scheme at the end", twelve, false, Rgb(0, 0, 255), Rgb(1, 2, 254)},
      {"two fields", "cut.col\r\n 7; 8; 9\r\n 4; 5\r\n", false, Rgb(7, 8, 9), Rgb(1, 2, 3)},
      {"not numbers, too big, negative", "cut.col\r\n a; 12x; 300\r\n-5;0.5;1.5;9\r\n" + eleven, true,
       Rgb(0, 12, 255), Rgb(0, 0, 2)},
      {"no final line end", twelve + " 1; 1; 1", true, Rgb(0, 0, 255), Rgb(1, 2, 254)},
      {"0 bytes", "", false, Rgb(1, 2, 3), Rgb(1, 2, 3)},
  };
  for (const auto& c : cases) {
    SchemeRun run(c.file);
    run.s.look.ColorSchemeName = "cut.col";
    EXPECT_EQ(run.Read("cut.col"), c.found) << c.what;
    EXPECT_EQ(run.ui.messages, c.found ? Strings{} : Strings{"Color Scheme: cut.col not found"}) << c.what;
    EXPECT_EQ(run.s.look.ColorSchemeName, c.found ? "cut.col" : "default.col") << c.what;
    EXPECT_EQ(std::vector({run.s.look.Scheme[0], run.s.look.Scheme[1]}), std::vector({c.first, c.second}))
        << c.what;
  }
}

TEST(EffectiveColors, DefaultSchemeTakesSystemBackgroundAndGreyButtons) {
  SchemeColors scheme, expected;
  scheme.fill(Rgb(7, 7, 7));
  expected = scheme;
  expected[kSchemeBackground] = Rgb(200, 201, 202), expected[kSchemeButtonFace] = Rgb(240, 240, 240);
  EXPECT_EQ(EffectiveColors(scheme, "DEFAULT.COL", Rgb(200, 201, 202)), expected);
  EXPECT_EQ(EffectiveColors(scheme, "sea.col", Rgb(200, 201, 202)), scheme);
}

TEST(AddSch, AppendsTheLowerCaseNameOnlyWhenNewAndNamed) {
  SchemeRun run(SchemeText("default.col", 0) + " 9; 9; 9");  // no final line end
  run.s.look.Scheme[4] = Rgb(10, 20, 30);
  run.ui.texts = {"Blue", "blue", "My.COLours", ""};  // a name with ".col" could never be found again
  EXPECT_TRUE(AddSch(run.s.session.AppFolder, run.s.look, run.ui, run.list));
  EXPECT_EQ(run.list.items, (Strings{"default", "blue"}));
  for (int i = 0; i < 3; ++i)
    EXPECT_FALSE(AddSch(run.s.session.AppFolder, run.s.look, run.ui, run.list));  // an empty answer ends it
  EXPECT_EQ(run.ui.prompts, Strings(4, "Enter new Color Scheme name"));
  EXPECT_EQ(run.ui.messages, (Strings{"Color Scheme: Blue added", "Color Scheme: blue already exists",
                                      "Color Scheme: My.COLours not added: a name cannot hold \".col\""}));
  std::string blue = "blue.col\r\n";
  for (int i = 0; i < 13; ++i) blue += i == 4 ? " 10; 20; 30\r\n" : " 1; 2; 3\r\n";
  EXPECT_EQ(run.File(), SchemeText("default.col", 0) + " 9; 9; 9\r\n" + blue);
  std::filesystem::remove(run.dir.File("all.col"));  // a folder in its place cannot be added to
  std::filesystem::create_directory(run.dir.File("all.col"));
  run.ui.texts = {"green"};
  EXPECT_FALSE(AddSch(run.s.session.AppFolder, run.s.look, run.ui, run.list));
  EXPECT_EQ(run.ui.messages.back(), "Error in adding Color Scheme:\r\n" + run.dir.File("all.col"));
}

TEST(RepSch, ReplacesOnlyTheChosenSchemesColourLinesThroughTheWorkFile) {
  const std::string a = SchemeText("a.col", 0), c = SchemeText("c.col", 20);
  SchemeRun run(a + SchemeText("b.col", 10) + c);
  EXPECT_FALSE(RepSch(run.s.session.AppFolder, run.s.look, run.ui, run.list));
  run.list.Select("b");
  run.ui.answer = false;
  EXPECT_FALSE(RepSch(run.s.session.AppFolder, run.s.look, run.ui, run.list));
  EXPECT_EQ(run.File(), a + SchemeText("b.col", 10) + c);
  run.ui.answer = true;
  EXPECT_TRUE(RepSch(run.s.session.AppFolder, run.s.look, run.ui, run.list));
  std::string b = "b.col\r\n";
  for (int i = 0; i < 13; ++i) b += " 1; 2; 3\r\n";
  EXPECT_EQ(run.File(), a + b + c);
  EXPECT_EQ(run.ui.questions, Strings(2, "Replace color scheme: b"));
  EXPECT_EQ(run.ui.messages, (Strings{"Select a color scheme to replace", "Color Scheme: b replaced"}));
}

TEST(DelSch, RefusesTheActiveSchemeAfterTheQuestionAndRemovesOthers) {
  const std::string a = SchemeText("a.col", 0), c = SchemeText("c.col", 20);
  SchemeRun run(a + SchemeText("b.col", 10) + c);
  run.s.look.ColorSchemeName = "b.col";
  EXPECT_FALSE(DelSch(run.s.session.AppFolder, run.s.look, run.ui, run.list));
  run.list.Select("b");
  EXPECT_FALSE(DelSch(run.s.session.AppFolder, run.s.look, run.ui, run.list));
  run.s.look.ColorSchemeName = "a.col";
  EXPECT_TRUE(DelSch(run.s.session.AppFolder, run.s.look, run.ui, run.list));
  EXPECT_EQ(run.File(), a + c);
  EXPECT_EQ(run.list.items, (Strings{"a", "c"}));
  EXPECT_EQ(run.ui.questions, Strings(2, "Delete color scheme: b"));
  EXPECT_EQ(run.ui.messages,
            (Strings{"Select a color scheme to delete", "Cannot delete currently active Color Scheme",
                     "Color Scheme: b deleted"}));
  // A short scheme goes without taking the next one's name line.
  run.dir.Write("all.col", "s.col\r\n 1; 1; 1\r\n" + c);
  FillSchemeList(run.s.session.AppFolder, run.list);
  run.list.Select("s");
  EXPECT_TRUE(DelSch(run.s.session.AppFolder, run.s.look, run.ui, run.list));
  EXPECT_EQ(run.File(), c);
  run.dir.Write("all.col", c + "s.col\r\n 1; 1; 1\r\n");  // and the last one, short
  FillSchemeList(run.s.session.AppFolder, run.list);
  run.list.Select("s");
  EXPECT_TRUE(DelSch(run.s.session.AppFolder, run.s.look, run.ui, run.list));
  EXPECT_EQ(run.File(), c);
  // A name line that holds ".col" before its end lists as a name that no
  // line equals: nothing is deleted, and nothing is said to be.
  run.dir.Write("all.col", SchemeText("my.colours.col", 0) + c);
  FillSchemeList(run.s.session.AppFolder, run.list);
  run.list.Select("my");
  EXPECT_FALSE(DelSch(run.s.session.AppFolder, run.s.look, run.ui, run.list));
  EXPECT_EQ(run.ui.messages.back() + "|" + run.File(),
            "Color Scheme: my not found|" + SchemeText("my.colours.col", 0) + c);
  // Without a readable all.col nothing is written.
  std::filesystem::remove(run.dir.File("all.col"));
  run.list.Select("c");
  EXPECT_FALSE(DelSch(run.s.session.AppFolder, run.s.look, run.ui, run.list));
  EXPECT_EQ(run.ui.messages.back(), "Error in updating Color Scheme:\r\n" + run.dir.File("all.col"));
  EXPECT_FALSE(std::filesystem::exists(run.dir.File("all.col")));
}

TEST(ButtonContrast, MovesTheButtonFaceTowardsWhiteOrBlackAndReadsBack) {
  SchemeColors colors{};
  colors[kSchemeBackground] = Rgb(100, 150, 200);
  for (const int contrast : {100, 30, 0, -40, -100}) {
    SetButtonContrast(colors, contrast);
    EXPECT_NEAR(ButtonContrast(colors), contrast, 1) << contrast;
  }
  EXPECT_EQ(colors[kSchemeButtonFace], Rgb(0, 0, 0));
  colors[kSchemeBackground] = colors[kSchemeButtonFace] = Rgb(255, 255, 255);
  EXPECT_EQ(ButtonContrast(colors), 0);  // nothing lighter than white to move towards
}

}  // namespace
}  // namespace velmora
