// The board keeper around commands: a board left by any load comes back as
// it was, Reset forgets it, and finishes and shown solutions are recorded.
#include "board/keeping.h"

#include <gtest/gtest.h>

#include <functional>

#include "board/aids.h"
#include "board/geometry.h"
#include "board/play.h"
#include "files/file_commands.h"
#include "model/commands.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

class Keeping : public ::testing::Test {
 protected:
  // A command as the desktop runs it, its clock at `ms`.
  void Run(const std::function<void()>& command, long long ms = 0, KeeperEvent ran = KeeperEvent::kCommand) {
    keeper->Before(s);
    command();
    keeper->After(s, ui, ms, ran);
  }
  void Open(const std::string& source) {
    std::string text;
    ReadWholeFile(source, text);
    file = dir.Write("p.vlm", text);
    Run([&] { OpenPuzzleFile(s, ui, file); });
  }
  // Places the solution's card in the k-th blank cell of the givens.
  void PlaceBlank(int k, long long ms = 0) {
    for (int r = 1; r <= 7; ++r) {
      for (int c = 1; c <= 7; ++c) {
        if (s.puzzle.PuzzleGrid[r][c] != 0 || k-- != 0) continue;
        Run(
            [&] {
              ChooseCard(s, ui, CardText(s.puzzle.SolutionGrid[r][c]));
              Picture1MouseUp(s, ui, kLeftButton, CellMiddle(c), CellMiddle(r));
            },
            ms);
      }
    }
  }
  bool OnlyGivens() const { return s.puzzle.Grid == s.puzzle.PuzzleGrid && s.session.UndoList.empty(); }

  test::TempDir dir;
  PlayerStore store{dir.path() + "/"};
  BoardKeeper own{store};
  BoardKeeper* keeper = &own;
  GameState s;
  test::RecordingUi ui;
  std::string file;
};

TEST_F(Keeping, ABoardLeftByAnyLoadComesBackAsItWasAndResetForgetsIt) {
  Open(test::SampleFile());
  PlaceBlank(0);
  PlaceBlank(1);
  Run([&] { UndoEdit(s, ui); }, 7000);
  const GameState left = s;
  Run([&] { arrowsMouseUp(s, ui, kArrowNext, kLeftButton); }, 9000);
  EXPECT_TRUE(OnlyGivens() && s.session.aids.RedoList.empty() && keeper->PlayedMs() == 0);
  PlaceBlank(0);
  Run([&] { arrowsMouseUp(s, ui, kArrowPrevious, kLeftButton); });
  EXPECT_EQ(s.puzzle.Grid, left.puzzle.Grid);
  EXPECT_EQ(s.session.UndoList, left.session.UndoList);
  EXPECT_EQ(s.session.aids.RedoList.size(), 1u);
  EXPECT_EQ(s.view.Remain, left.view.Remain);
  EXPECT_EQ(keeper->PlayedMs() + keeper->Undos(), 9001) << "the clock of leaving, one undo";
  EXPECT_EQ(keeper->Status().outcome, PuzzleOutcome::kInProgress);
  Run([&] { LoadPuzzle(s, ui, file, 1); });  // printing reloads the puzzle it printed
  EXPECT_EQ(s.puzzle.Grid, left.puzzle.Grid);
  Run([&] { mnupuzreset(s, ui); }, 9000, KeeperEvent::kReset);
  Run([&] { arrowsMouseUp(s, ui, kArrowNext, kLeftButton); });
  Run([&] { arrowsMouseUp(s, ui, kArrowPrevious, kLeftButton); });
  EXPECT_TRUE(OnlyGivens() && keeper->Status().outcome == PuzzleOutcome::kNew);
  PlaceBlank(0);
  Run([&] { UndoEdit(s, ui); });  // back to the givens with nothing to undo: forgotten
  EXPECT_EQ(store.Figures().inProgress, 1) << "puzzle 2 only";
}

TEST_F(Keeping, TheLastCardFinishesAutoSolveAndTheSolutionCountAsShown) {
  Open(test::SolvableFile());
  Run([&] { mnuhint(s, ui); });
  for (int k = 0; k < 14; ++k) PlaceBlank(k, 1000 * k);
  ASSERT_EQ(ui.messages.back(), "Done");
  const PuzzleStatus done = keeper->Status();
  EXPECT_EQ(std::vector({int(done.outcome), int(done.playedMs), done.hints}), std::vector({2, 13000, 1}));
  Run([&] { mnuviewsol(s, ui); }, 0, KeeperEvent::kSolutionShown);
  EXPECT_EQ(keeper->Status().outcome, PuzzleOutcome::kFinished) << "a finish stays";
  Open(test::SampleFile());
  Run([&] { Command7(s, ui); });
  EXPECT_EQ(keeper->Status().outcome, PuzzleOutcome::kShown);
  Run([&] { arrowsMouseUp(s, ui, kArrowNext, kLeftButton); });
  PlaceBlank(0);
  Run([&] { mnusolveall(s, ui); });
  EXPECT_EQ(keeper->Status().outcome, PuzzleOutcome::kShown);
  EXPECT_EQ(store.Figures().finished * 10 + store.Figures().shown, 12);
}

TEST_F(Keeping, WithAClosedStoreCommandsActAsWithoutKeepingAndItsProblemShowsOnce) {
  const test::TempDir folder;
  std::filesystem::create_directory(folder.File(kStoreFileName));
  PlayerStore closed(folder.path() + "/");
  BoardKeeper idle(closed);
  keeper = &idle;
  Run([&] { LoadPuzzle(s, ui, test::SampleFile(), 1); });
  s.session.CurrentPuzzleNumber = 1;
  PlaceBlank(0);
  PlaceBlank(1);
  EXPECT_EQ(ui.messages, std::vector<std::string>({closed.Problem()}));
  Run([&] { LoadPuzzle(s, ui, test::SampleFile(), 2); });
  EXPECT_EQ(s.session.UndoList.size(), 2u) << "a load keeps the undo list, as without keeping";
}

}  // namespace
}  // namespace velmora
