// The program's folder: --folder, a folder of its own, or a per-user folder
// filled on the first run, with a configuration that shows its puzzle 1,
// without touching what the person already has.
#include "app/app_folder.h"

#include <filesystem>

#include "test_support.h"

namespace velmora::test {
namespace {

// An unpacked installation: <root>/bin holds no data, <root>/share/velmora the shipped files.
struct Installed {
  Installed() {
    for (const char* folder : {"bin", "share/velmora"})
      std::filesystem::create_directories(root.File(folder));
    for (const std::string file : {"puzzles.vlm", "all.col", "velmora.htm"})
      root.Write("share/velmora/" + file, "shipped " + file);
  }
  TempDir root, data;
  ScopedEnv xdg{"XDG_DATA_HOME", data.path()};
};

TEST(AppFolder, FolderOptionThenOwnWritableFolderThenPerUserFolder) {
  Installed i;
  const std::string shipped = i.root.File("share/velmora/");
  const auto chosen = [](const ProgramFolders& f) { return f.app + " " + f.shipped; };
  EXPECT_EQ(chosen(SetUpProgramFolders(i.data.File("mine"), i.root.File("bin"))),
            i.data.File("mine/ ") + shipped);
  EXPECT_FALSE(std::filesystem::exists(i.data.File("Velmora")));  // --folder copies nothing
  EXPECT_EQ(chosen(SetUpProgramFolders("", i.root.File("share/velmora"))), shipped + " " + shipped);
  EXPECT_EQ(chosen(SetUpProgramFolders("", i.root.File("bin"))), i.data.File("Velmora/ ") + shipped);
  EXPECT_EQ(i.data.Read("Velmora/puzzles.vlm") + "|" + i.data.Read("Velmora/all.col"),
            "shipped puzzles.vlm|shipped all.col");
  EXPECT_FALSE(std::filesystem::exists(i.data.File("Velmora/velmora.htm")));  // read where installed
  // The new folder starts at puzzle 1 of its copy, written as Exit writes it.
  const std::string cfg = i.data.Read("Velmora/velmora.cfg");
  EXPECT_EQ(cfg.substr(cfg.find('\r')),
            "\r\ndefault.col\r\n" + i.data.File("Velmora/puzzles.vlm") + "\r\n 1 \r\n");
  // A relative XDG_DATA_HOME is no folder of the user's: ignored.
  ScopedEnv relative("XDG_DATA_HOME", "data"), home("HOME", "/home/ann");
  EXPECT_EQ(PerUserFolder(), "/home/ann/.local/share/Velmora/");
}

TEST(AppFolder, FirstRunNeitherReplacesNorWritesThroughThePersonsFilesAndLeavesNoWorkFiles) {
  for (const bool asLink : {false, true}) {  // the person's configuration, or a link in its place
    Installed i;
    std::filesystem::create_directories(i.data.File("Velmora"));
    const std::string cfg = i.data.File("Velmora/velmora.cfg");
    asLink ? std::filesystem::create_symlink(i.data.File("elsewhere"), cfg)
           : void(i.data.Write("Velmora/velmora.cfg", "mine"));
    SetUpProgramFolders("", i.root.File("bin"));  // the puzzles and schemes copied in
    i.root.Write("share/velmora/all.col", "a newer release");
    SetUpProgramFolders("", i.root.File("bin"));
    EXPECT_EQ(
        i.data.Read(asLink ? "elsewhere" : "Velmora/velmora.cfg") + "|" + i.data.Read("Velmora/all.col"),
        (asLink ? "|" : "mine|") + std::string("shipped all.col"));
    size_t files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(i.data.File("Velmora")))
      ++files;
    EXPECT_EQ(files, 3u);
  }
}

}  // namespace
}  // namespace velmora::test
