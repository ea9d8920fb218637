// velmora.ini: the form earlier versions wrote, lines this version does not
// know kept, and files that are no settings left alone.
#include "app/settings.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "test_support.h"

namespace velmora::test {
namespace {

const auto kHugeText = [](Settings& s) { s.textSize = kHuge; };

TEST(Settings, ReadsAndChangesTheEarlierFormKeepingEveryOtherLine) {
  TempDir dir;
  const std::string folder = dir.path() + "/";
  EXPECT_TRUE(ChangeSettings(folder, [](Settings&) {}));
  EXPECT_FALSE(FileExists(dir.File("velmora.ini")));  // nothing changed, nothing made
  ASSERT_TRUE(ChangeSettings(folder, [](Settings& s) { s.shadeFits = true; }));
  ASSERT_TRUE(ChangeSettings(folder, kHugeText));
  EXPECT_EQ(dir.Read("velmora.ini"), "[Assist]\nShadeFits=true\n\n[Options]\nSize=Huge\n");

  // The earlier form (here with CR LF), with a newer version's keys and a value this one does not know.
  dir.Write("velmora.ini",
            "[Assist]\r\nMarkGivens=false\r\nShadeFits = true\r\nStepAid=@Variant(\\0\\0\\0\\x7f)\r\n\r\n"
            "[Options]\r\nSize=Tiny\r\n; a note\r\n");
  EXPECT_EQ(LoadSettings(folder), (Settings{kMedium, true, false}));
  ASSERT_TRUE(ChangeSettings(folder, [](Settings& s) { s.markGivens = true; }));
  ASSERT_TRUE(ChangeSettings(folder, [](Settings& s) { s.textSize = kSmall; }));
  EXPECT_EQ(dir.Read("velmora.ini"),
            "[Assist]\nMarkGivens=true\nShadeFits = true\nStepAid=@Variant(\\0\\0\\0\\x7f)\n\n"
            "[Options]\nSize=Small\n; a note\n");
  EXPECT_EQ(LoadSettings(folder), (Settings{kSmall, true, true}));
}

// A pipe, a folder, a huge file, a file just over the limit and garbled ones
// give the defaults at once; a pipe and a folder stay as they are, and the
// damaged files are made anew by the next change.
TEST(Settings, FilesThatAreNoSettingsGiveTheDefaultsAndOnlyDamagedOnesAreMadeAnew) {
  TempDir dir;
  const std::string ini = dir.File("velmora.ini");
  const auto make = [&](int kind) {
    std::filesystem::remove_all(ini);
    std::string text = "[Options]\nSize=Large\n";
    if (kind == 0) return ::mkfifo(ini.c_str(), 0600) == 0;
    if (kind == 1) return std::filesystem::create_directory(ini);
    if (kind == 3) text.append(64 * 1024, '\n');  // well formed, but too long
    if (kind == 4) text += "Size=\x01Large\n";
    if (kind == 5) text += "Size Large\n";
    dir.Write("velmora.ini", text);
    return kind != 2 || ::truncate(ini.c_str(), 50LL << 30) == 0;  // sparse: no disk used
  };
  for (int kind = 0; kind < 6; ++kind) {
    ASSERT_TRUE(make(kind)) << kind;
    const auto status = std::filesystem::status(ini).type();
    const long long size = FileLength(ini);  // -1 for a pipe or a folder
    EXPECT_EQ(LoadSettings(dir.path() + "/"), Settings{}) << kind;
    EXPECT_EQ(ChangeSettings(dir.path() + "/", kHugeText), kind >= 2) << kind;
    EXPECT_EQ(std::filesystem::status(ini).type(), status) << kind;
    const std::string after = kind < 2 ? std::to_string(FileLength(ini)) : dir.Read("velmora.ini");
    EXPECT_EQ(after, kind < 2 ? std::to_string(size) : "[Options]\nSize=Huge\n") << kind;
  }
}

}  // namespace
}  // namespace velmora::test
