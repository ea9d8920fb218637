// Which folder the programs keep their files in: a build tree or portable
// folder keeps its own, an installed program a folder of the user's own.
#pragma once

#include <string>

#include "model/file_names.h"

namespace velmora {

// The application name the desktop program gives Qt; it names the per-user folder.
inline constexpr const char* kApplicationName = "Velmora";
// The shipped files a per-user folder starts with; the help page is read
// where it was installed.
inline constexpr const char* kCopiedOnFirstRun[] = {kPuzzleFileName, kSchemeFileName};

// The folder Qt's AppDataLocation names on Linux for this program:
// $XDG_DATA_HOME, else $HOME/.local/share, then the application name; with
// a "/" at its end. The desktop program and velmora-cli both use it, and
// velmora-cli has no Qt. Unlike Qt, a relative $XDG_DATA_HOME is ignored, as
// the XDG rules say.
std::string PerUserFolder();

// The folder the running executable lies in; "" when it cannot be told.
std::string ExecutableFolder();

struct ProgramFolders {
  std::string app;      // AppFolder: configuration, puzzle files, colour schemes
  std::string shipped;  // the files installed with the program (the help page)
};

// `folderOption` (--folder DIR) wins. Otherwise a writable `programFolder`
// with the program's files beside it is used as it is; else the per-user
// folder, which is made when missing and given the shipped files it lacks
// (an existing file is never replaced); one that has just been given the
// shipped puzzles and has no configuration gets one naming their puzzle 1,
// so a first start shows it. Both folders come back absolute and
// ending in "/". Never fails: a folder that cannot be made or filled shows
// later as missing files, which every reader handles.
ProgramFolders SetUpProgramFolders(const std::string& folderOption, const std::string& programFolder);

}  // namespace velmora
