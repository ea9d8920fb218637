// The generic deduction solver, on a list of the board's open cells.
// Included once per CPU level (solver.cpp for the generic build,
// solver_versions.cpp for the others), inside that level's namespace and
// under its target options; it has no include guard and includes nothing
// itself.
//
// Each pass works as if UpdateOptions without the lists ran between its two
// steps, but the bars behind the options (ranks taken in each row and column,
// what each cell bars its neighbours from, the cards still free) are kept up
// to date as cards go down instead of being rebuilt from the whole grid. The
// options it leaves in CellOptions are the ones UpdateOptions would compute.

SolveResult CellsTrial(Puzzle& p, Session& session, UserInterface& ui);

namespace {

// Padded board: one ring of cells around the grid that bars nothing, so
// neighbour reads need no bounds tests.
constexpr int kStride = kGridDim + 1;
constexpr int kPadded = kStride * (kGridDim + 1);

inline int LowestCard(CardSet m) { return __builtin_ctzll(m) + 1; }
inline int HighestCard(CardSet m) { return 64 - __builtin_clzll(m); }

struct OpenCell {
  uint8_t row, col;
  uint16_t at;  // index into the padded board
};

// The solver on the state's board. SolveGrid's solver writes every card it
// deduces into Grid and keeps CellOptions; a trial writes nothing and only
// tells whether the board would be completed.
template <bool kTrial>
class Solver {
 public:
  explicit Solver(Puzzle& s) : s_(s) {}

  // Takes the board as it stands; false when UpdateOptions without the lists fails on it.
  bool Begin() {
    if (Start()) return true;
    if (kTrial || !UpdateOptions(s_)) return false;
    Reset();
    StartFromOptions();
    return true;
  }

  // Reads the grid as UpdateOptions without the lists does and computes the first options.
  // False, with nothing changed, when Rows or Cols or a value lies outside
  // what the fast path handles; UpdateOptions then decides.
  bool Start() {
    if (!Read()) return false;
    if (!kTrial) {
      for (int r = 1; r <= s_.Rows; ++r)
        for (int c = 1; c <= s_.Cols; ++c) s_.CellOptions[r][c] = 0;
    }
    Recompute();
    return true;
  }

  // The bars and open cells of the board, without the options. False, with
  // Reset() to clear what was read, when the fast path cannot take it.
  bool Read() {
    const int rows = s_.Rows, cols = s_.Cols;
    if (rows < 1 || cols < 1 || rows > kMaxIndex || cols > kMaxIndex) return false;
    // The ring around the board bars nothing; every cell inside is written below.
    for (int c = 0; c <= cols + 1; ++c) near_[c] = near_[(rows + 1) * kStride + c] = 0;
    CardSet placed = 0;
    for (int r = 1; r <= rows; ++r) {
      near_[r * kStride] = near_[r * kStride + cols + 1] = 0;
      CardSet rowBars = 0;
      for (int c = 1; c <= cols; ++c) {
        const int v = s_.Grid[r][c];
        if (v < kMinCardIndex || v > kMaxCardIndex) return false;
        const int at = r * kStride + c;
        if (v < 1) {
          open_[count_++] =
              OpenCell{static_cast<uint8_t>(r), static_cast<uint8_t>(c), static_cast<uint16_t>(at)};
          marks_ |= v != 0;
        } else {
          dupes_ |= (placed & CardBit(v)) != 0;
          placed |= CardBit(v);
        }
        near_[at] = s_.CardCodes.NearBars(v);
        const CardSet line = s_.CardCodes.LineBars(v);
        rowBars |= line;
        colBars_[c] |= line;
      }
      rowBars_[r] = rowBars;
    }
    avail_ = s_.CardCodes.deck & ~placed;
    return true;
  }

  // What Read() would give with the card at (row, col) taken off, the
  // state's Grid already holding 0 there. Needs a board read without
  // duplicate cards, so the card leaves the placed cards.
  void Open(int row, int col, int card) {
    const int at = row * kStride + col;
    open_[count_++] =
        OpenCell{static_cast<uint8_t>(row), static_cast<uint8_t>(col), static_cast<uint16_t>(at)};
    near_[at] = 0;  // an empty cell's "00X" bars nothing
    CardSet rowBars = 0, colBars = 0;
    for (int c = 1; c <= s_.Cols; ++c) rowBars |= s_.CardCodes.LineBars(s_.Grid[row][c]);
    for (int r = 1; r <= s_.Rows; ++r) colBars |= s_.CardCodes.LineBars(s_.Grid[r][col]);
    rowBars_[row] = rowBars;
    colBars_[col] = colBars;
    avail_ |= s_.CardCodes.deck & CardBit(card);
  }

  // Takes over what another solver of the same state has read.
  void CopyReadFrom(const Solver& other) {
    const int used = (s_.Rows + 2) * kStride;
    std::copy(other.near_.begin(), other.near_.begin() + used, near_.begin());
    rowBars_ = other.rowBars_;
    colBars_ = other.colBars_;
    std::copy(other.open_.begin(), other.open_.begin() + other.count_, open_.begin());
    count_ = other.count_;
    avail_ = other.avail_;
    marks_ = other.marks_;
    dupes_ = other.dupes_;
    settled_ = false;
  }

  bool Dupes() const { return dupes_; }

  // The slow path for a board with values that have no code: UpdateOptions
  // has judged it readable and left its options.
  void StartFromOptions() {
    const int rows = s_.Rows, cols = s_.Cols;
    avail_ = s_.AvailableCards;
    for (int r = 1; r <= rows; ++r) {
      for (int c = 1; c <= cols; ++c) {
        const int v = s_.Grid[r][c];
        const int at = r * kStride + c;
        if (v < 1) {
          open_[count_] =
              OpenCell{static_cast<uint8_t>(r), static_cast<uint8_t>(c), static_cast<uint16_t>(at)};
          options_[count_++] = s_.CellOptions[r][c];
        }
        // A value below -4 bars nothing; UpdateOptions has already refused
        // the boards where any cell's test would read it.
        if (v < kMinCardIndex) continue;
        near_[at] = s_.CardCodes.NearBars(v);
        rowBars_[r] |= s_.CardCodes.LineBars(v);
        colBars_[c] |= s_.CardCodes.LineBars(v);
      }
    }
  }

  // Single options, all from the options as they stood at the pass's start.
  int Singles() {
    int placed = 0;
    for (int i = 0; i < count_;) {
      const CardSet m = options_[i];
      if (m == 0 || (m & (m - 1)) != 0) {
        ++i;
        continue;
      }
      Put(i, LowestCard(m));
      ++placed;
    }
    return placed;
  }

  // One pass: every single option of the options as they stand goes down,
  // then fresh options, and every card that is an option of exactly one
  // cell goes to that cell. Returns the cards placed.
  int Pass() {
    int changes = Singles();
    // Nothing went down since a recompute that found no unique card: the
    // options would come out the same, with no unique card again.
    if (changes == 0 && settled_) return 0;
    const CardSet unique = Recompute();
    settled_ = unique == 0;
    // Every unique card goes to its cell in increasing card order with no
    // test of the cell, so of several unique to one cell the highest stays.
    for (int i = 0; unique != 0 && i < count_;) {
      const CardSet u = options_[i] & unique;
      if (u == 0) {
        ++i;
        continue;
      }
      Put(i, HighestCard(u));
      ++changes;
    }
    return changes;
  }

  bool AllPlaced() const { return count_ == 0; }

  void Reset() {
    // Only the rows the board uses, with the ring around them.
    const int used = (LoopRows(s_) + 2) * kStride;
    for (int i = 0; i < used; ++i) near_[i] = 0;
    rowBars_.fill(0);
    colBars_.fill(0);
    count_ = 0;
    marks_ = dupes_ = settled_ = false;
  }

  // Options of every open cell from the bars; returns the cards that are an
  // option of exactly one cell.
  CardSet Recompute() {
    CardSet once = 0, twice = 0;
    bool dead = false;
    const CardSet avail = avail_;
    for (int i = 0; i < count_; ++i) {
      const OpenCell cell = open_[i];
      const CardSet* near = near_.data() + cell.at;
      const CardSet barred =
          rowBars_[cell.row] | colBars_[cell.col] | near[-1] | near[1] | near[-kStride] | near[kStride];
      const CardSet m = avail & ~barred;
      dead |= m == 0;
      options_[i] = m;
      twice |= once & m;
      once |= m;
    }
    dead_ = dead && !marks_;  // a mark without options counts as filled already
    return once & ~twice;
  }

  // Leaves CellOptions and AvailableCards as UpdateOptions without the lists would.
  void Finish() {
    for (int i = 0; i < count_; ++i) s_.CellOptions[open_[i].row][open_[i].col] = options_[i];
    s_.AvailableCards = avail_;
  }

  // An empty cell had no options at the last recompute. Bars only grow
  // while the solver runs, so that cell can never be filled.
  bool Stuck() const { return dead_; }

  // After the last pass: whether an empty cell is left (a suit-only mark
  // counts as filled).
  bool EmptyCellLeft() const {
    for (int i = 0; i < count_; ++i) {
      if (s_.Grid[open_[i].row][open_[i].col] == 0) return true;
    }
    return false;
  }

 private:
  // Cell i takes the card and leaves the open list; the last open cell moves
  // into its place, which the sweeps over the list then visit next. A trial
  // leaves Grid as it was, so the board keeps the start values.
  void Put(int i, int card) {
    const OpenCell cell = open_[i];
    if (!kTrial) {
      s_.Grid[cell.row][cell.col] = card;
      s_.CellOptions[cell.row][cell.col] = 0;
    }
    // The card comes from the deck, so its code is the plain one.
    near_[cell.at] = s_.CardCodes.NearBars(card);
    rowBars_[cell.row] |= s_.CardCodes.LineBars(card);
    colBars_[cell.col] |= s_.CardCodes.LineBars(card);
    avail_ &= ~CardBit(card);
    settled_ = false;
    --count_;
    open_[i] = open_[count_];
    options_[i] = options_[count_];
  }

  Puzzle& s_;
  CardSet avail_ = 0;
  bool dead_ = false;
  bool marks_ = false;  // the board has suit-only marks
  bool dupes_ = false;  // a card stands on the board more than once
  // The last recompute found no unique card, and nothing went down since.
  bool settled_ = false;
  std::array<CardSet, kPadded> near_;
  std::array<CardSet, kGridDim + 1> rowBars_{}, colBars_{};
  std::array<OpenCell, kMaxCellNumber> open_;
  std::array<CardSet, kMaxCellNumber> options_;
  int count_ = 0;
};

// BlankTrials' board with trial solver S: the board read once, each trial a
// patched copy of it.
template <class S>
class PatchedBoard final : public TrialBoard {
 public:
  PatchedBoard(Puzzle& p, Session& session) : p_(p), session_(session), read_(p), trial_(p) {
    patchable_ = read_.Read() && !read_.Dupes();
  }
  [[gnu::flatten]] SolveResult Try(UserInterface& ui, int row, int col, int card) override {
    if (!patchable_) return CellsTrial(p_, session_, ui);
    trial_.CopyReadFrom(read_);
    trial_.Open(row, col, card);
    trial_.Recompute();
    return RunTrialWith(trial_, session_, ui);
  }
  void Keep(int row, int col, int card) override {
    if (patchable_) read_.Open(row, col, card);
  }

 private:
  Puzzle& p_;
  Session& session_;
  S read_;   // the board as it stands between trials
  S trial_;  // one trial's working copy
  bool patchable_ = false;
};

}  // namespace

[[gnu::flatten]] SolveResult CellsTrial(Puzzle& p, Session& session, UserInterface& ui) {
  Solver<true> solver(p);
  if (!solver.Start()) {
    // Values without a code: the literal way, on the state itself.
    const Board<int32_t> grid = p.Grid;
    const Board<CardSet> options = p.CellOptions;
    const SolveResult result = SolveGrid(p, session, ui);
    p.Grid = grid;
    p.CellOptions = options;
    return result;
  }
  return RunTrialWith(solver, session, ui);
}

std::unique_ptr<TrialBoard> CellsBoard(Puzzle& p, Session& session) {
  return std::make_unique<PatchedBoard<Solver<true>>>(p, session);
}
