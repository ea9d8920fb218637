// velmora-cli stats: the player's figures from velmora.db in the program's folder.
#include <cstdio>
#include <string>
#include <vector>

#include "app/app_folder.h"
#include "files/player_store.h"
#include "subcommand.h"

namespace velmora::cli {
namespace {

int RunStats(const std::vector<std::string>& args);

const Subcommand kStats{
    "stats", "stats [FILE] [--folder DIR]",
    "print how many puzzles (of FILE, or all) are finished, in progress and shown, and "
    "per level the best and median time of a finish (of an even count the lower middle one)",
    45, RunStats};
const Registration kStatsReg(kStats);

int RunStats(const std::vector<std::string>& args) {
  std::string file, folder;
  for (size_t i = 0; i < args.size(); ++i) {
    if (args[i] == "--folder") {
      if (i + 1 == args.size()) return UsageError(kStats, "--folder needs a value");
      folder = args[++i];
    } else if (args[i].size() > 1 && args[i][0] == '-') {
      return UsageError(kStats, "unknown option " + args[i]);
    } else if (file.empty()) {
      file = args[i];
    } else {
      return UsageError(kStats, "one FILE at most");
    }
  }
  // A store that is not there yet has no figures; it is not made for them.
  PlayerStore store(SetUpProgramFolders(folder, ExecutableFolder()).app, PlayerStore::Access::kRead);
  const StoreFigures f = store.Figures(file.empty() ? file : StoreFileName(file));
  if (!store.Reason().empty()) {
    std::fprintf(stderr, "velmora-cli stats: %s\n", store.Reason().c_str());
    return 1;
  }
  std::printf("finished: %d\nin progress: %d\nshown: %d\n", f.finished, f.inProgress, f.shown);
  for (const LevelFigures& level : f.levels) {
    std::printf("%s: finished %d, best %s, median %s\n", level.level.c_str(), level.finished,
                ClockText(level.bestMs).c_str(), ClockText(level.medianMs).c_str());
  }
  return 0;
}

}  // namespace
}  // namespace velmora::cli
