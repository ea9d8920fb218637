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
    if (LoadPuzzle(state, ui, path, n)) {
      (void)PuzzleRecordText(state.puzzle, n, state.view.PuzTitle);
      for (int r = 1; r <= LoopRows(state.puzzle); ++r)
        for (int c = 1; c <= LoopCols(state.puzzle); ++c) (void)OptionText(state.puzzle.CellOptions[r][c]);
      (void)CountBlanks(state.puzzle);
    }
    // A failed load may leave a damaged board; the option update must still be safe.
    (void)UpdateOptions(state.puzzle, state.view.Remain);
  }
  return 0;
}
