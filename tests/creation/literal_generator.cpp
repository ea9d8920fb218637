// The generator written word for word over sorted text lists.
#include "creation/literal_generator.h"

#include <algorithm>
#include <string>
#include <vector>

#include "model/rules.h"
#include "model/solver.h"
#include "model/text.h"
#include "rule_texts.h"

namespace velmora::test {
namespace {

// A list kept in ascending text order.
struct SortedList : std::vector<std::string> {
  void Add(const std::string& item) { insert(std::upper_bound(begin(), end(), item), item); }
};

std::string TwoDigits(int n) { return (n < 10 ? "0" : "") + std::to_string(n); }

std::string PlainCode(int k) { return TwoDigits((k - 1) / 4 + 1) + "SHDC"[(k - 1) % 4]; }

int Pick(GameState& s, SortedList& list3, const std::string& excludedRanks,
         const std::string& excludedSuits) {
  SortedList list4;
  for (const std::string& item : list3) {
    const int rank = static_cast<int>(Val(item.substr(0, 2)));
    if (excludedSuits.find(item.substr(2, 1)) == std::string::npos &&
        excludedRanks.find(Str(rank) + ",") == std::string::npos) {
      list4.Add(item);
    }
  }
  if (list4.empty()) return 0;
  const std::string chosen =
      list4[static_cast<size_t>(s.session.rng.Pick(static_cast<int>(list4.size())) - 1)];
  list3.erase(std::find(list3.begin(), list3.end(), chosen));
  return static_cast<int>(Val(chosen.substr(3)));
}

}  // namespace

bool LiteralRemoveGivens(GameState& s, UserInterface& ui, int& difficulty) {
  if (difficulty == 3) difficulty = s.session.rng.Pick(3) - 1;  // 1 Easy, 2 Hard, 3 Very Hard
  if (difficulty == 0) return true;
  const int limit = difficulty == 1 ? 4 : -1;
  SortedList list6;
  for (int r = 1; r <= s.puzzle.Rows; ++r) {
    for (int c = 1; c <= s.puzzle.Cols; ++c) {
      if (s.puzzle.Grid[r][c] > 0)
        list6.Add(TwoDigits(s.session.rng.Pick(98)) + Str(s.puzzle.CellNumber(r, c)));
    }
  }
  if (list6.empty()) return false;
  int removed = 0;
  for (const std::string& item : list6) {  // taken from the top, one by one
    ui.Yield();
    const int number = static_cast<int>(Val(item.substr(2)));
    const int row = s.puzzle.CellRow(number), col = s.puzzle.CellCol(number);
    const Board<int32_t> grid = s.puzzle.Grid;
    const Board<CardSet> options = s.puzzle.CellOptions;
    s.puzzle.Grid[row][col] = 0;
    const SolveResult result = SolveGrid(s.puzzle, s.session, ui);
    s.puzzle.Grid = grid;
    s.puzzle.CellOptions = options;
    if (result != SolveResult::kCellsLeft) {
      s.puzzle.Grid[row][col] = 0;
      ++removed;
      if (limit != -1 && removed >= limit) break;
    }
  }
  return true;
}

int LiteralCreatePuzzle(GameState& s, UserInterface& ui, int& difficulty) {
  SortedList list3;
  Board<int32_t> patternMask{};
  for (;;) {
    list3.clear();
    for (int k = 1; k <= 52; ++k) {
      s.puzzle.CardCodes.Set(k, (k - 1) / 4 + 1, (k - 1) % 4 + 1);
      list3.Add(PlainCode(k) + TwoDigits(k));
    }
    s.session.CancelRequest = 0;
    for (int r = 1; r <= s.puzzle.Rows; ++r)
      for (int c = 1; c <= s.puzzle.Cols; ++c) s.puzzle.Grid[r][c] = 0;
    bool fresh = false;
    for (int c = 1; c <= s.puzzle.Cols && !fresh; ++c) {
      for (int attempt = 1;; ++attempt) {
        if (s.session.CancelRequest == 1) return 1;
        fresh = attempt == 51;
        if (fresh) break;
        ui.Yield();
        for (int r = 1; r <= s.puzzle.Rows; ++r) s.puzzle.Grid[r][c] = 0;
        bool dealt = true;
        for (int r = s.puzzle.Rows; r >= 1 && dealt; --r) {
          s.puzzle.Grid[r][c] = Pick(s, list3, ExcludedRanks(s, r, c), NeighbourSuits(s, r, c));
          dealt = s.puzzle.Grid[r][c] != 0;  // 0: no pooled card fits
        }
        if (dealt) break;
      }
    }
    if (fresh) continue;
    s.puzzle.SolutionGrid = s.puzzle.Grid;
    RebuildCardCodes(s.puzzle);
    for (int r = 1; r <= s.puzzle.Rows; ++r) {
      for (int c : r % 2 ? std::vector<int>{2, 6} : std::vector<int>{3, 5}) {
        s.puzzle.Grid[r][c] = 0;
        patternMask[r][c] = 1;
      }
    }
    if (SolveGrid(s.puzzle, s.session, ui) == SolveResult::kCellsLeft) continue;
    for (int r = 1; r <= s.puzzle.Rows; ++r)
      for (int c = 1; c <= s.puzzle.Cols; ++c)
        if (patternMask[r][c] == 1) s.puzzle.Grid[r][c] = 0;
    LiteralRemoveGivens(s, ui, difficulty);
    return 0;
  }
}

}  // namespace velmora::test
