// Puzzle generator: a random full board, the base blank pattern, and further
// blanks by level while the solver can still finish the board.
#pragma once

#include <ctime>
#include <string>

#include "creation/levels.h"
#include "model/puzzle.h"
#include "model/session.h"
#include "model/user_interface.h"

namespace velmora {

// Column attempts per column before the whole board is dealt afresh.
inline constexpr int kColumnAttempts = 50;

// The title a new puzzle gets when none is given: the level made, the date
// and the time ("VHard 15/11/2026 10:03:33").
std::string AutomaticTitle(int level, const std::tm& when);

// Makes one 7x7 puzzle in `p`: Grid holds the givens and blanks,
// SolutionGrid the full board, CardCodes marks the three undealt cards
// "00X". `difficulty` is 0..2, or 3 for a level drawn at random; on return
// it holds the level made. Returns the failure flag: 0 made, 1 cancelled
// (CancelRequest seen at the start of a column attempt).
int CreatePuzzle(Puzzle& p, Session& session, UserInterface& ui, int& difficulty);

// Blanks the 14 cells of the base pattern.
void ApplyBasePattern(Puzzle& p);

// Blanks further givens in random order while SolveGrid still completes the
// board, as many as the level's row allows; kLevelRandom draws one of the
// three and leaves it in `difficulty`. Returns false when there is no
// filled cell to start from.
bool RemoveGivens(Puzzle& p, Session& session, UserInterface& ui, int& difficulty);

// The puzzles a batch is to make, and where they go.
class PuzzleJobs {
 public:
  virtual ~PuzzleJobs() = default;
  // The next puzzle: an id for Made, its random source and its level (0..3).
  // False when there is none left.
  virtual bool Next(uint64_t& id, Random& rng, int& level) = 0;
  // A puzzle is made in `p` (Grid, SolutionGrid, CardCodes) at `level`.
  virtual void Made(uint64_t id, const Puzzle& p, int level) = 0;
};

// Makes every puzzle `jobs` hands out on the calling thread, two at a time:
// each draw of a deal waits for the one before it, and the other puzzle's
// draw fills that wait. Each puzzle comes out exactly as CreatePuzzle makes
// it from the same random source; they may finish out of order.
void CreatePuzzles(PuzzleJobs& jobs);

}  // namespace velmora
