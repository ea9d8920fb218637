// velmora-cli count and options: record counting and option texts.
#include <cstdio>
#include <string>
#include <vector>

#include "files/puzzle_file.h"
#include "model/game_state.h"
#include "model/user_interface.h"
#include "record.h"
#include "subcommand.h"

namespace velmora::cli {
namespace {

int RunCount(const std::vector<std::string>& args);
int RunOptions(const std::vector<std::string>& args);

const Subcommand kCount{"count", "count FILE", "print the number of puzzle records in FILE", 10, RunCount};
const Subcommand kOptions{"options", "options FILE N", "load record N and print every cell's options", 20,
                          RunOptions};
const Registration kCountReg(kCount);
const Registration kOptionsReg(kOptions);

int RunCount(const std::vector<std::string>& args) {
  if (args.size() != 1) return UsageError(kCount, "expected one FILE argument");
  int count = 0;
  if (!Readable(kCount, args[0], &count)) return 1;
  std::printf("%d\n", count);
  return 0;
}

int RunOptions(const std::vector<std::string>& args) {
  if (args.size() != 2) return UsageError(kOptions, "expected FILE and N");
  long long n = 0;
  if (!ParseInt(args[1], n)) return UsageError(kOptions, "N must be a whole number");
  if (!Readable(kOptions, args[0])) return 1;
  GameState state;
  SilentUserInterface ui;
  const int wanted = RecordNumber(n);
  if (!LoadPuzzle(state, ui, args[0], wanted, Draw::kNo)) {
    std::printf("not found\n");
    return 1;
  }
  std::string out;
  for (int r = 1; r <= LoopRows(state.puzzle); ++r) {
    for (int c = 1; c <= LoopCols(state.puzzle); ++c) {
      out += std::to_string(r) + "," + std::to_string(c) + ":" + OptionText(state.puzzle.CellOptions[r][c]) +
             "\n";
    }
  }
  std::fwrite(out.data(), 1, out.size(), stdout);
  return 0;
}

}  // namespace
}  // namespace velmora::cli
