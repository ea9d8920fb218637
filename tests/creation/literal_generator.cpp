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
class SortedList {
 public:
  void Clear() { items_.clear(); }
  void Add(const std::string& item) {
    if (items_.empty() || !(item < items_.back())) {
      items_.push_back(item);  // most items arrive in order
    } else {
      items_.insert(std::upper_bound(items_.begin(), items_.end(), item), item);
    }
  }
  void Remove(size_t index) { items_.erase(items_.begin() + static_cast<long>(index)); }
  long Find(const std::string& item) const {
    const auto it = std::find(items_.begin(), items_.end(), item);
    return it == items_.end() ? -1 : it - items_.begin();
  }
  size_t Count() const { return items_.size(); }
  const std::string& Item(size_t index) const { return items_[index]; }

 private:
  std::vector<std::string> items_;
};

std::string TwoDigits(int n) {
  return std::string(1, static_cast<char>('0' + n / 10)) + static_cast<char>('0' + n % 10);
}

std::string PlainCode(int k) { return TwoDigits((k - 1) / 4 + 1) + "SHDC"[(k - 1) % 4]; }

int Pick(GameState& s, SortedList& list3, const std::string& excludedRanks,
         const std::string& excludedSuits) {
  SortedList list4;
  for (size_t i = 0; i < list3.Count(); ++i) {
    const std::string& item = list3.Item(i);
    const int rank = static_cast<int>(Val(item.substr(0, 2)));
    const std::string suit = item.substr(2, 1);
    if (excludedSuits.find(suit) == std::string::npos &&
        excludedRanks.find(Str(rank) + ",") == std::string::npos) {
      list4.Add(item);
    }
  }
  const size_t n = list4.Count();
  if (n == 0) return 0;
  const std::string chosen = list4.Item(static_cast<size_t>(s.rng.Pick(static_cast<int>(n)) - 1));
  list3.Remove(static_cast<size_t>(list3.Find(chosen)));
  return static_cast<int>(Val(chosen.substr(3)));
}

}  // namespace

bool LiteralRemoveGivens(GameState& s, UserInterface& ui, int& difficulty) {
  int limit = -1;
  if (difficulty == 0) return true;
  if (difficulty == 1) limit = 4;
  if (difficulty == 3) {
    const int k = s.rng.Pick(3);
    if (k == 1) {
      difficulty = 0;
      return true;
    }
    difficulty = k == 2 ? 1 : 2;
    limit = k == 2 ? 4 : -1;
  }
  SortedList list6;
  for (int r = 1; r <= s.Rows; ++r) {
    for (int c = 1; c <= s.Cols; ++c) {
      if (s.Grid[r][c] > 0) list6.Add(TwoDigits(s.rng.Pick(98)) + Str(s.CellNumber[r][c]));
    }
  }
  if (list6.Count() == 0) return false;
  std::string item = list6.Item(0);
  list6.Remove(0);
  int removed = 0;
  for (;;) {
    ui.Yield();
    const int number = static_cast<int>(Val(item.substr(2)));
    const int row = s.CellRow[number], col = s.CellCol[number];
    const Board<int32_t> grid = s.Grid;
    const Board<CardSet> options = s.CellOptions;
    s.Grid[row][col] = 0;
    const int result = SolveGrid(s, ui);
    s.Grid = grid;
    s.CellOptions = options;
    if (result != 1) {
      s.Grid[row][col] = 0;
      ++removed;
      if (limit != -1 && removed >= limit) break;
    }
    if (list6.Count() == 0) break;
    item = list6.Item(0);
    list6.Remove(0);
  }
  return true;
}

int LiteralCreatePuzzle(GameState& s, UserInterface& ui, int& difficulty) {
  SortedList list3;
  for (;;) {
    for (int k = 1; k <= 52; ++k) s.CardCodes.Set(k, (k - 1) / 4 + 1, (k - 1) % 4 + 1);
    s.CancelRequest = 0;
    list3.Clear();
    for (int k = 1; k <= 52; ++k) list3.Add(PlainCode(k) + TwoDigits(k));
    for (int r = 1; r <= s.Rows; ++r)
      for (int c = 1; c <= s.Cols; ++c) s.Grid[r][c] = 0;
    bool fresh = false;
    for (int c = 1; c <= s.Cols && !fresh; ++c) {
      for (int attempt = 1;; ++attempt) {
        if (s.CancelRequest == 1) return 1;
        if (attempt == 51) {
          fresh = true;
          break;
        }
        ui.Yield();
        for (int r = 1; r <= s.Rows; ++r) s.Grid[r][c] = 0;
        bool dealt = true;
        for (int r = s.Rows; r >= 1 && dealt; --r) {
          const int card = Pick(s, list3, ExcludedRanks(s, r, c), NeighbourSuits(s, r, c));
          if (card == 0)
            dealt = false;
          else
            s.Grid[r][c] = card;
        }
        if (dealt) break;
      }
    }
    if (fresh) continue;
    s.SolutionGrid = s.Grid;
    RebuildCardCodes(s);
    for (int r = 1; r <= s.Rows; ++r) {
      for (int c : r % 2 ? std::vector<int>{2, 6} : std::vector<int>{3, 5}) {
        s.Grid[r][c] = 0;
        s.PatternMask[r][c] = 1;
      }
    }
    if (SolveGrid(s, ui) == 1) continue;
    for (int r = 1; r <= s.Rows; ++r)
      for (int c = 1; c <= s.Cols; ++c)
        if (s.PatternMask[r][c] == 1) s.Grid[r][c] = 0;
    LiteralRemoveGivens(s, ui, difficulty);
    return 0;
  }
}

}  // namespace velmora::test
