// The program's folder: --folder, a folder of its own, or a per-user folder
// filled on the first run without touching what the person already has.
#include "app/app_folder.h"

#include <filesystem>

#include "app/startup.h"
#include "files/file_commands.h"
#include "test_support.h"

namespace velmora::test {
namespace {

// An unpacked installation: <root>/bin holds no data, <root>/share/velmora the shipped files.
struct Installed {
  Installed() {
    std::filesystem::create_directories(root.File("bin"));
    std::filesystem::create_directories(root.File("share/velmora"));
    root.Write("share/velmora/puzzles.vlm", "shipped puzzles");
    root.Write("share/velmora/all.col", "shipped schemes");
    root.Write("share/velmora/velmora.htm", "help");
  }
  TempDir root, data;
  ScopedEnv xdg{"XDG_DATA_HOME", data.path()};
};

TEST(AppFolder, FolderOptionThenOwnWritableFolderThenPerUserFolder) {
  Installed i;
  const ProgramFolders chosen = SetUpProgramFolders(i.data.File("mine"), i.root.File("bin"));
  EXPECT_EQ(chosen.app, i.data.File("mine/"));
  EXPECT_EQ(chosen.shipped, i.root.File("share/velmora/"));
  EXPECT_FALSE(std::filesystem::exists(i.data.File("Velmora")));  // --folder copies nothing

  const ProgramFolders portable = SetUpProgramFolders("", i.root.File("share/velmora"));
  EXPECT_EQ(portable.app, i.root.File("share/velmora/"));
  EXPECT_EQ(portable.shipped, portable.app);

  const ProgramFolders installed = SetUpProgramFolders("", i.root.File("bin"));
  EXPECT_EQ(installed.app, i.data.File("Velmora/"));
  EXPECT_EQ(installed.shipped, i.root.File("share/velmora/"));
  EXPECT_EQ(i.data.Read("Velmora/puzzles.vlm"), "shipped puzzles");
  EXPECT_EQ(i.data.Read("Velmora/all.col"), "shipped schemes");
  EXPECT_FALSE(std::filesystem::exists(i.data.File("Velmora/velmora.htm")));  // read where installed
}

TEST(AppFolder, FirstRunNeverReplacesThePersonsFilesAndLeavesNoWorkFiles) {
  Installed i;
  std::filesystem::create_directories(i.data.File("Velmora"));
  i.data.Write("Velmora/puzzles.vlm", "my own puzzles");
  SetUpProgramFolders("", i.root.File("bin"));
  i.root.Write("share/velmora/all.col", "a newer release");
  SetUpProgramFolders("", i.root.File("bin"));
  EXPECT_EQ(i.data.Read("Velmora/puzzles.vlm"), "my own puzzles");
  EXPECT_EQ(i.data.Read("Velmora/all.col"), "shipped schemes");
  size_t files = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(i.data.File("Velmora"))) ++files;
  EXPECT_EQ(files, 2u);
}

TEST(AppFolder, AFileNamedAtStartIsShownAtItsFirstPuzzleAndBecomesCurrent) {
  TempDir dir;
  GameState s;
  SilentUserInterface ui;
  StartUp(s, ui, dir.path(), {});
  OpenPuzzleFile(s, ui, SampleFile());
  EXPECT_EQ(s.CurrentPuzzleFile + "|" + s.view.PuzNumNow + "|" + s.view.Caption,
            SampleFile() + "|1|File: " + SampleFile());
  EXPECT_EQ(s.ShippedFolder, s.AppFolder);
}

}  // namespace
}  // namespace velmora::test
