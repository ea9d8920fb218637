// Which folder the programs keep their files in, and the first run of a
// per-user folder.
#include "app/app_folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "app/startup.h"
#include "files/config.h"
#include "files/text_file.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr const char* kInstalledDataFolder = "/../share/velmora";

std::string Env(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

// As Qt takes the home folder: cleaned of doubled and trailing "/", "." and
// "..", and "/" when HOME is empty.
std::string CleanHome(const std::string& home) {
  if (home.empty()) return "/";
  std::string clean = fs::path(home).lexically_normal().string();
  while (clean.size() > 1 && clean.back() == '/') clean.pop_back();
  return clean;
}

std::string AbsoluteFolder(const std::string& folder) {
  std::error_code ec;
  const fs::path absolute = fs::absolute(folder, ec);
  return FolderWithSlash((ec ? fs::path(folder) : absolute).lexically_normal().string());
}

// A folder the program has been run from, or unpacked with its files.
bool HoldsProgramFiles(const std::string& folder) {
  if (folder.empty()) return false;
  for (const char* name : {kPuzzleFileName, kSchemeFileName, kHelpPage, kConfigFileName}) {
    if (FileExists(folder + "/" + name)) return true;
  }
  return false;
}

// Written under a temporary name and then linked under the real one: the
// link fails when that name exists, even as a link, so a file the person
// already has is never replaced or written through, and a crash never leaves
// half a file behind. True when the file was made.
bool WriteIfMissing(const std::string& folder, const std::string& name, const std::string& contents) {
  const std::string temp = folder + "." + name + "." + std::to_string(::getpid());
  const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (fd < 0) return false;
  bool written = WriteAll(fd, contents) && ::fsync(fd) == 0;
  written = ::close(fd) == 0 && written;
  const bool linked = written && ::link(temp.c_str(), (folder + name).c_str()) == 0;
  ::unlink(temp.c_str());
  return linked;
}

bool CopyIfMissing(const std::string& from, const std::string& folder, const std::string& name) {
  std::string contents;
  return !FileExists(folder + name) && ReadWholeFile(from, contents) &&
         WriteIfMissing(folder, name, contents);
}

// A folder that has just been given the shipped puzzles is new to the
// program: it starts at their puzzle 1 in the default scheme, as if saved on
// Exit, so the first start shows a puzzle rather than the first-run message.
void WriteFirstConfig(const std::string& folder) {
  Session session;
  session.CurrentPuzzleFile = folder + kPuzzleFileName;
  session.CurrentPuzzleNumber = 1;
  WriteIfMissing(folder, kConfigFileName, ConfigText(session, Appearance{}));
}

}  // namespace

std::string PerUserFolder() {
  std::string base = Env("XDG_DATA_HOME");
  // Only an absolute path counts; a relative one would follow the folder the program starts in.
  if (base.empty() || base[0] != '/') base = CleanHome(Env("HOME")) + "/.local/share";
  return base + "/" + kApplicationName + "/";
}

std::string ExecutableFolder() {
  std::error_code ec;
  const fs::path self = fs::read_symlink("/proc/self/exe", ec);
  return ec ? std::string() : self.parent_path().string();
}

ProgramFolders SetUpProgramFolders(const std::string& folderOption, const std::string& programFolder) {
  ProgramFolders folders;
  const bool holdsFiles = HoldsProgramFiles(programFolder);
  folders.shipped = AbsoluteFolder(holdsFiles ? programFolder : programFolder + kInstalledDataFolder);
  if (!folderOption.empty()) {
    folders.app = AbsoluteFolder(folderOption);
  } else if (holdsFiles && ::access(programFolder.c_str(), W_OK) == 0) {
    folders.app = folders.shipped;
  } else {
    folders.app = AbsoluteFolder(PerUserFolder());
    std::error_code ec;
    fs::create_directories(folders.app, ec);
    bool puzzlesCopied = false;
    for (const char* name : kCopiedOnFirstRun) {
      const bool copied = CopyIfMissing(folders.shipped + name, folders.app, name);
      puzzlesCopied = puzzlesCopied || (copied && std::string_view(name) == kPuzzleFileName);
    }
    if (puzzlesCopied) WriteFirstConfig(folders.app);
  }
  return folders;
}

}  // namespace velmora
