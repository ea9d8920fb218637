// Loading the record a subcommand names, and printing the board.
#include "record.h"

#include <cstdio>

#include "files/puzzle_file.h"

namespace velmora::cli {

bool Readable(const Subcommand& command, const std::string& file, int* count) {
  int error = 0;
  const int n = CountPuzzles(file, &error);
  if (count) *count = n;
  if (error == 0) return true;
  std::fprintf(stderr, "velmora-cli %s: cannot read %s: %s\n", command.name, file.c_str(),
               FileErrorText(error).c_str());
  return false;
}

int LoadRecordArgs(const Subcommand& command, const std::vector<std::string>& args, GameState& s,
                   UserInterface& ui) {
  if (args.size() != 2) return UsageError(command, "expected FILE and N");
  long long n = 0;
  if (!ParseInt(args[1], n)) return UsageError(command, "N must be a whole number");
  const int wanted = RecordNumber(n);
  if (!Readable(command, args[0])) return 1;
  if (!LoadPuzzle(s, ui, args[0], wanted)) {
    std::printf("not found\n");
    return 1;
  }
  return 0;
}

std::string BoardText(const GameState& s) {
  std::string text;
  for (int r = 1; r <= LoopRows(s.puzzle); ++r) {
    for (int c = 1; c <= LoopCols(s.puzzle); ++c) text += static_cast<char>(64 + s.puzzle.Grid[r][c]);
    text += '\n';
  }
  return text;
}

}  // namespace velmora::cli
