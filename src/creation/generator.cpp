// Puzzle generator: a random full board, the base blank pattern, and further
// blanks by level while the solver can still finish the board.
#include "creation/generator.h"

#include <algorithm>
#include <array>

#include "board/geometry.h"
#include "creation/deal_loops.h"
#include "creation/puzzle_maker.h"
#include "model/solver.h"
#include "model/text.h"

namespace velmora {
namespace maker {

namespace {

// CardCodes 1..52 back to the plain codes; only the "00X" ones need it.
void PlainCardCodes(CardCodeTable& codes) {
  for (CardSet absent = kAllCards & ~codes.deck; absent; absent &= absent - 1) {
    const int k = __builtin_ctzll(absent) + 1;
    codes.Set(k, (k - 1) / 4 + 1, (k - 1) % 4 + 1);
  }
}

}  // namespace

PuzzleMaker::Phase PuzzleMaker::FreshDeal() {
  PlainCardCodes(p_.CardCodes);
  session_.CancelRequest = 0;
  pool_ = kAllCards;  // all 52 items
  for (int r = 1; r <= kSize; ++r)
    for (int c = 1; c <= kSize; ++c) p_.Grid[r][c] = 0;
  rowRanks_.fill(0);
  base_.fill(0);  // column 1: nothing to its left, no ranks in its rows
  col_ = 1;
  grid_ = &p_.Grid[0][col_];
  return BeginAttempt(1);
}

PuzzleMaker::Phase PuzzleMaker::Cancelled() {
  session_.rng = rng_;
  return Phase::kCancelled;
}

PuzzleMaker::Phase PuzzleMaker::BeginAttempt(int attempt) {
  if (session_.CancelRequest == 1) return Cancelled();
  if (attempt > kColumnAttempts) return FreshDeal();
  attempt_ = attempt;
  ui_.Yield();
  // Cards of a failed attempt stay out of the pool until the next deal.
  for (int r = 1; r <= kSize; ++r) grid_[r * kGridDim] = 0;
  colRanks_ = below_ = 0;
  row_ = kSize;
  return Phase::kDealing;
}

PuzzleMaker::Phase PuzzleMaker::AttemptFailed() {
  if (row_ == kSize) {
    // Nothing fits the bottom cell and nothing was drawn, so every attempt
    // left would fail the same way: only a cancel pressed during this
    // attempt's yield can still end the call.
    if (session_.CancelRequest == 1) return Cancelled();
    return FreshDeal();
  }
  return BeginAttempt(attempt_ + 1);
}

PuzzleMaker::Phase PuzzleMaker::ColumnDealt() {
  for (int r = 1; r <= kSize; ++r) {
    rowRanks_[r] |= ranks_[r];
    base_[r] = rowRanks_[r] | near_[r];  // for the next column
  }
  if (++col_ > kSize) return BoardDealt();
  grid_ = &p_.Grid[0][col_];
  return BeginAttempt(1);
}

PuzzleMaker::Phase PuzzleMaker::BoardDealt() {
  session_.rng = rng_;  // RemoveGivens draws from the session's source
  p_.SolutionGrid = p_.Grid;
  RebuildCardCodes(p_);  // the three undealt cards become "00X"
  ApplyBasePattern(p_);
  // The solver's fill is not kept: the pattern cells stay blank.
  if (SolveGridTrial(p_, session_, ui_) != SolveResult::kFilled)
    return FreshDeal();  // rng_ is still the session's
  // What the solver run leaves: a full board has no options.
  for (int r = 1; r <= kSize; ++r)
    for (int c = 1; c <= kSize; ++c) p_.CellOptions[r][c] = 0;
  RemoveGivens(p_, session_, ui_, level_);
  return Phase::kMade;
}

}  // namespace maker

namespace {

// Text order of a cell number's leading-blank form: " 1" < " 10" < " 19" < " 2".
constexpr uint16_t CellTextOrder(int n) {
  return static_cast<uint16_t>(n < 10 ? n * 11 : (n / 10) * 11 + n % 10 + 1);
}

// The removal queue (List6): one item per filled cell, a random key 1..98
// and the cell number, kept in the ascending text order of the items
// ("37 12" before "37 5").
struct RemovalQueue {
  struct Item {
    uint8_t key;
    uint8_t cell;
    uint16_t order;  // sorts as the item's text does
  };
  std::array<Item, kMaxCellNumber> items{};
  int count = 0;
  int top = 0;  // items before it have been taken off the list
};

void ShuffleFilledCells(const Puzzle& p, Random& rng, RemovalQueue& q) {
  q.count = q.top = 0;
  const int rows = LoopRows(p), cols = LoopCols(p);
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= cols; ++c) {
      if (p.Grid[r][c] <= 0) continue;
      const int key = rng.Pick(98);
      const int cell = p.CellNumber(r, c);
      q.items[q.count++] = {static_cast<uint8_t>(key), static_cast<uint8_t>(cell),
                            static_cast<uint16_t>(key * 128 + CellTextOrder(cell))};
    }
  }
  std::sort(q.items.begin(), q.items.begin() + q.count,
            [](const RemovalQueue::Item& a, const RemovalQueue::Item& b) { return a.order < b.order; });
}

}  // namespace

void ApplyBasePattern(Puzzle& p) {
  const int rows = LoopRows(p);
  for (int r = 1; r <= rows; ++r) {
    for (const int c : r % 2 == 1 ? std::array<int, 2>{2, 6} : std::array<int, 2>{3, 5}) {
      if (c > kMaxIndex) continue;
      p.Grid[r][c] = 0;
    }
  }
}

bool RemoveGivens(Puzzle& p, Session& session, UserInterface& ui, int& difficulty) {
  if (difficulty == kLevelRandom) difficulty = session.rng.Pick(3) - 1;
  const DifficultyLevel* row = FindLevel(difficulty);
  // "Easy", and any value that is no level: the base pattern is the puzzle.
  if (row == nullptr || row->extraBlanks == 0) return true;
  const int limit = row->extraBlanks;
  RemovalQueue q;
  ShuffleFilledCells(p, session.rng, q);
  if (q.count == 0) return false;  // no top item to take
  int removed = 0;
  BlankTrials trials(p, session);
  while (q.top < q.count) {
    const RemovalQueue::Item item = q.items[q.top++];
    ui.Yield();
    const int row = p.CellRow(item.cell), col = p.CellCol(item.cell);
    const int given = p.Grid[row][col];
    p.Grid[row][col] = 0;
    if (trials.Try(ui, row, col, given) == SolveResult::kCellsLeft) {
      p.Grid[row][col] = given;  // without it the board is no longer solvable by deduction
      continue;
    }
    trials.Keep(row, col, given);
    ++removed;
    if (limit != kAsManyAsHold && removed >= limit) break;
  }
  return true;
}

std::string AutomaticTitle(int level, const std::tm& when) {
  return std::string(LevelName(level)) + " " + DateTimeText(when);
}

int CreatePuzzle(Puzzle& p, Session& session, UserInterface& ui, int& difficulty) {
  // A 7x7 board, whatever size the last load left.
  p.Rows = p.Cols = maker::kSize;
  maker::PuzzleMaker maker(p, session, ui, difficulty);
  const auto phase = maker::ActiveDealLoops().alone(maker, maker.Begin());
  if (phase == maker::PuzzleMaker::Phase::kCancelled) return 1;
  difficulty = maker.level();
  return 0;
}

}  // namespace velmora
