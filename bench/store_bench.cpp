// The player's store: keeping one move, opening a store of 100,000 kept
// boards and restoring one, and the figures over 100,000 puzzles.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>

#include "board/geometry.h"
#include "board/keeping.h"
#include "board/play.h"
#include "creation/levels.h"
#include "files/player_store.h"
#include "files/puzzle_file.h"

namespace velmora {
namespace {

constexpr int kPuzzles = 100000;
const std::string kShipped = std::string(VELMORA_DATA_DIR) + "/puzzles.vlm";

// A folder removed when the benchmarks end.
class Folder {
 public:
  Folder() {
    std::string path = (std::filesystem::temp_directory_path() / "velmora-store-bench-XXXXXX").string();
    if (::mkdtemp(path.data())) path_ = path + "/";
  }
  ~Folder() {
    std::error_code ec;
    if (!path_.empty()) std::filesystem::remove_all(path_, ec);
  }
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

GameState Shown(int n = 1) {
  GameState s;
  SilentUserInterface ui;
  LoadPuzzle(s, ui, kShipped, n, Draw::kNo);
  s.session.CurrentPuzzleFile = kShipped;
  return s;
}

// A board of a few moves with their undo entries, under a key of its own.
void KeepMany(PlayerStore& store, int count, int finishedEvery) {
  const GameState s = Shown();
  KeptBoard board;
  board.grid = s.puzzle.Grid;
  board.undo = {{1, 2, 0}, {3, 4, 0}, {5, 6, 0}};
  for (int i = 0; i < count; ++i) {
    const PuzzlePlace place{PuzzleKey(s.puzzle) + std::to_string(i), kShipped, i + 1, kLevels[i % 3].name};
    if (finishedEvery && i % finishedEvery == 0) {
      store.Finish(place, 60000 + i % 600000, i % 3, i % 5);
    } else {
      board.playedMs = i;
      store.Keep(place, board);
    }
  }
}

const Folder& FilledStore(int finishedEvery) {
  static Folder kept, mixed;
  const Folder& folder = finishedEvery ? mixed : kept;
  static bool filled[2] = {false, false};
  if (!filled[finishedEvery ? 1 : 0]) {
    PlayerStore store(folder.path());
    KeepMany(store, kPuzzles, finishedEvery);
    filled[finishedEvery ? 1 : 0] = true;
  }
  return folder;
}

// One card placed or taken off again, with the keeper around it; the board
// keeps its whole undo list each time, so a game already range(0) moves long
// is timed over the next 200.
void BM_KeepOneMove(benchmark::State& state) {
  const Folder folder;
  PlayerStore store(folder.path());
  BoardKeeper keeper(store);
  SilentUserInterface ui;
  GameState s;
  keeper.Before(s);
  s = Shown();
  keeper.After(s, ui, 0);
  const int card = s.puzzle.SolutionGrid[1][2];
  long long ms = 0;
  auto move = [&] {
    keeper.Before(s);
    if (s.puzzle.Grid[1][2] == 0) {
      s.session.SelectedCard = ListText(s.puzzle, card);
      Picture1MouseUp(s, ui, kLeftButton, CellMiddle(2), CellMiddle(1));
    } else {
      Picture1MouseUp(s, ui, kRightButton, CellMiddle(2), CellMiddle(1));
    }
    keeper.After(s, ui, ms += 1000);
  };
  for (int i = 0; i < state.range(0); ++i) move();
  for (auto _ : state) move();
  if (!store.IsOpen() || s.session.UndoList.empty())
    state.SkipWithError("the store closed or nothing was kept");
}
BENCHMARK(BM_KeepOneMove)->Arg(0)->Arg(1000)->Iterations(200)->Unit(benchmark::kMicrosecond);

// Start-up with a full store: open it, show a puzzle and bring its board back.
void BM_OpenAndRestoreAmong100000(benchmark::State& state) {
  const std::string& folder = FilledStore(0).path();
  {
    PlayerStore store(folder);
    BoardKeeper keeper(store);
    SilentUserInterface ui;
    GameState s;
    keeper.Before(s);
    s = Shown(2);
    keeper.After(s, ui, 0);
    s.session.SelectedCard = ListText(s.puzzle, s.puzzle.SolutionGrid[1][2]);
    keeper.Before(s);
    Picture1MouseUp(s, ui, kLeftButton, CellMiddle(2), CellMiddle(1));
    keeper.After(s, ui, 5000);
  }
  const GameState loaded = Shown(2);
  for (auto _ : state) {
    PlayerStore store(folder);
    BoardKeeper keeper(store);
    SilentUserInterface ui;
    GameState s;
    keeper.Before(s);
    s = loaded;
    keeper.After(s, ui, 0);
    if (keeper.PlayedMs() != 5000) state.SkipWithError("the kept board did not come back");
  }
}
BENCHMARK(BM_OpenAndRestoreAmong100000)->Unit(benchmark::kMillisecond);

// velmora-cli stats: 100,000 puzzles, a third of them finished.
void BM_FiguresOf100000(benchmark::State& state) {
  const std::string& folder = FilledStore(3).path();
  for (auto _ : state) {
    PlayerStore store(folder, PlayerStore::Access::kRead);
    const StoreFigures figures = store.Figures();
    if (figures.finished + figures.inProgress != kPuzzles) state.SkipWithError("not all counted");
    benchmark::DoNotOptimize(figures);
  }
}
BENCHMARK(BM_FiguresOf100000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora
