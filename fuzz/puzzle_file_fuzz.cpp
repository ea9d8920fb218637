// libFuzzer harness: any bytes as a puzzle file must load or fail cleanly.
#include <cstddef>
#include <cstdint>
#include <string>

#include "files/puzzle_file.h"
#include "fuzz_support.h"
#include "model/rules.h"

using namespace velmora;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string path = fuzz::PrivateFolder::Get().Write("puzzles.vlm", data, size);
  const int count = CountPuzzles(path);
  GameState state;
  SilentUserInterface ui;
  for (int n = 0; n <= 3 && n <= count + 1; ++n) {
    std::string title;
    if (LoadPuzzle(state, ui, path, n, title, 1) == 0) {
      (void)PuzzleRecordText(state, n, title);
      for (int r = 1; r <= LoopRows(state); ++r)
        for (int c = 1; c <= LoopCols(state); ++c) (void)OptionText(state.CellOptions[r][c]);
      (void)CountBlanks(state);
    }
    // A failed load may leave a damaged board; the option update must still be safe.
    (void)UpdateOptions(state, 1);
  }
  return 0;
}
