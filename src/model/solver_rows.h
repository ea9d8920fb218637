// One CPU level's solver trials, a whole row of the board at a time.
// Included by solver_versions.cpp inside that level's namespace and under
// its target options, after solver_cells.h and that level's LaneBits; it has
// no include guard and includes nothing itself.
//
// It computes what the generic trial solver in solver.cpp computes: the same
// options, the same cards placed in each pass, the same answer. Only the
// layout differs: a row of the board is one vector of eight card sets, lane
// c for column c, and lane 0 stands for the board's left edge; so it takes
// boards up to seven rows and seven columns and leaves larger ones to the
// generic solver.

constexpr int kLaneCols = 7;
constexpr Lanes kLaneIndex = {0, 1, 2, 3, 4, 5, 6, 7};

// All ones in the lanes whose bit is set in `bits`, zero in the others.
inline Lanes LanesOf(unsigned bits) { return -(((Lanes{} + bits) >> kLaneIndex) & 1); }

// Each lane takes its left neighbour's set (lane 0 takes lane 7's, which
// nothing reads) or its right neighbour's (lane 7 takes lane 0's, which is 0).
inline Lanes FromLeft(Lanes v) { return __builtin_shufflevector(v, v, 7, 0, 1, 2, 3, 4, 5, 6); }
inline Lanes FromRight(Lanes v) { return __builtin_shufflevector(v, v, 1, 2, 3, 4, 5, 6, 7, 0); }

// From each lane's cards seen once and seen twice or more, the cards seen in
// exactly one cell of all the lanes.
inline CardSet InOneLaneOnly(Lanes once, Lanes twice) {
  // Halves, then quarters, then the last two lanes meet: a card already in both
  // stays twice, a card in either is once.
  Lanes o = __builtin_shufflevector(once, once, 4, 5, 6, 7, 0, 1, 2, 3);
  Lanes t = __builtin_shufflevector(twice, twice, 4, 5, 6, 7, 0, 1, 2, 3);
  twice |= t | (once & o);
  once |= o;
  o = __builtin_shufflevector(once, once, 2, 3, 0, 1, 6, 7, 4, 5);
  t = __builtin_shufflevector(twice, twice, 2, 3, 0, 1, 6, 7, 4, 5);
  twice |= t | (once & o);
  once |= o;
  return (once[0] | once[1]) & ~(twice[0] | twice[1] | (once[0] & once[1]));
}

// Cells of the board as bits of one word: bit 8 * row + col.
constexpr int CellBit(int row, int col) { return 8 * row + col; }

class RowSolver {
 public:
  explicit RowSolver(const Puzzle& s) : s_(s) {}

  // Seven rows of eight bits fill the cell word.
  static bool Takes(const Puzzle& s) {
    return s.Rows >= 1 && s.Rows <= kLaneCols && s.Cols >= 1 && s.Cols <= kLaneCols;
  }

  // The generic solver's Start, Read, Open and CopyReadFrom.
  bool Start() {
    if (!Read()) return false;
    Recompute();
    return true;
  }

  bool Read() {
    if (!Takes(s_)) return false;
    near_.fill(Lanes{});  // the edges and the lanes right of the board bar nothing
    colBars_ = Lanes{};
    CardSet placed = 0;
    for (int r = 1; r <= s_.Rows; ++r) {
      CardSet rowBars = 0;
      for (int c = 1; c <= s_.Cols; ++c) {
        const int v = s_.Grid[r][c];
        if (v < kMinCardIndex || v > kMaxCardIndex) return false;
        if (v < 1) {
          open_ |= uint64_t{1} << CellBit(r, c);
          empty_ |= static_cast<uint64_t>(v == 0) << CellBit(r, c);
          marks_ |= v != 0;
        } else {
          dupes_ |= (placed & CardBit(v)) != 0;
          placed |= CardBit(v);
        }
        near_[r][c] = s_.CardCodes.NearBars(v);
        const CardSet line = s_.CardCodes.LineBars(v);
        rowBars |= line;
        colBars_[c] |= line;
      }
      rowBars_[r] = rowBars;
    }
    avail_ = s_.CardCodes.deck & ~placed;
    return true;
  }

  void Open(int row, int col, int card) {
    open_ |= uint64_t{1} << CellBit(row, col);
    empty_ |= uint64_t{1} << CellBit(row, col);
    near_[row][col] = 0;  // an empty cell's "00X" bars nothing
    CardSet rowBars = 0, colBars = 0;
    for (int c = 1; c <= s_.Cols; ++c) rowBars |= s_.CardCodes.LineBars(s_.Grid[row][c]);
    for (int r = 1; r <= s_.Rows; ++r) colBars |= s_.CardCodes.LineBars(s_.Grid[r][col]);
    rowBars_[row] = rowBars;
    colBars_[col] = colBars;
    avail_ |= s_.CardCodes.deck & CardBit(card);
  }

  void CopyReadFrom(const RowSolver& other) {
    near_ = other.near_;
    colBars_ = other.colBars_;
    rowBars_ = other.rowBars_;
    open_ = other.open_;
    empty_ = other.empty_;
    avail_ = other.avail_;
    marks_ = other.marks_;
    dupes_ = other.dupes_;
    settled_ = false;
  }

  bool Dupes() const { return dupes_; }
  bool Stuck() const { return dead_; }
  bool AllPlaced() const { return open_ == 0; }
  bool EmptyCellLeft() const { return (open_ & empty_) != 0; }

  // Options of every open cell, row by row; returns the cards that are an
  // option of exactly one cell, and notes the cells with a single option.
  CardSet Recompute() {
    const Lanes avail = Lanes{} + avail_;
    Lanes once{}, twice{}, dead{};
    uint64_t singles = 0;
    for (int r = 1; r <= s_.Rows; ++r) {
      const Lanes here = near_[r];
      const Lanes barred =
          near_[r - 1] | near_[r + 1] | FromLeft(here) | FromRight(here) | colBars_ | rowBars_[r];
      const Lanes open = LanesOf(static_cast<unsigned>(open_ >> CellBit(r, 0)) & 0xFF);
      const Lanes m = avail & ~barred & open;
      options_[r] = m;
      twice |= once & m;
      once |= m;
      dead |= (m == 0) & open;
      singles |= uint64_t{LaneBits(((m & (m - 1)) == 0) & (m != 0))} << CellBit(r, 0);
    }
    singles_ = singles;
    dead_ = LaneBits(dead != 0) != 0 && !marks_;  // a mark without options counts as filled already
    return InOneLaneOnly(once, twice);
  }

  // Every open cell with a single option at the last recompute takes it.
  int Singles() {
    int placed = 0;
    for (uint64_t cells = singles_ & open_; cells; cells &= cells - 1) {
      const int at = __builtin_ctzll(cells);
      Put(at, __builtin_ctzll(options_[at / 8][at % 8]) + 1);
      ++placed;
    }
    return placed;
  }

  // The generic solver's Pass: singles, fresh options, then each cell with
  // cards that are options of it alone takes the highest of them.
  int Pass() {
    int changes = Singles();
    if (changes == 0 && settled_) return 0;
    const CardSet unique = Recompute();
    settled_ = unique == 0;
    if (unique == 0) return changes;
    uint64_t hits = 0;
    for (int r = 1; r <= s_.Rows; ++r)
      hits |= uint64_t{LaneBits((options_[r] & unique) != 0)} << CellBit(r, 0);
    for (hits &= open_; hits; hits &= hits - 1) {
      const int at = __builtin_ctzll(hits);
      Put(at, 64 - __builtin_clzll(options_[at / 8][at % 8] & unique));
      ++changes;
    }
    return changes;
  }

 private:
  void Put(int at, int card) {
    const int r = at / 8, c = at % 8;
    near_[r][c] = s_.CardCodes.NearBars(card);
    rowBars_[r] |= s_.CardCodes.LineBars(card);
    colBars_[c] |= s_.CardCodes.LineBars(card);
    avail_ &= ~CardBit(card);
    open_ &= ~(uint64_t{1} << at);
    settled_ = false;
  }

  const Puzzle& s_;
  std::array<Lanes, kLaneCols + 2> near_;  // rows 0 and Rows + 1 are the top and bottom edges
  std::array<Lanes, kLaneCols + 1> options_;
  Lanes colBars_{};
  std::array<CardSet, kLaneCols + 1> rowBars_{};
  uint64_t open_ = 0;     // cells that hold no card
  uint64_t empty_ = 0;    // cells that held 0 when read
  uint64_t singles_ = 0;  // cells with a single option at the last recompute
  CardSet avail_ = 0;
  bool dead_ = false, marks_ = false, dupes_ = false, settled_ = false;
};

[[gnu::flatten]] SolveResult RowsTrial(Puzzle& p, Session& session, UserInterface& ui) {
  RowSolver solver(p);
  if (!solver.Start()) return CellsTrial(p, session, ui);
  return RunTrialWith(solver, session, ui);
}

std::unique_ptr<TrialBoard> RowsBoard(Puzzle& p, Session& session) {
  if (!RowSolver::Takes(p)) return CellsBoard(p, session);
  return std::make_unique<PatchedBoard<RowSolver>>(p, session);
}

constexpr TrialFunctions kFunctions{RowsTrial, RowsBoard};
