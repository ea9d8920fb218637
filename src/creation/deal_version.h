// One CPU level's dealing loops. Included once per level by deal_loops.cpp,
// inside that level's namespace and under its target options, so it has no
// include guard and includes nothing itself.

// DrawFromPool with the CPU's bit count and bit deposit: the k-th fitting
// item is the one set bit of pdep(1 << (k - 1), fitting).
struct PdepDraw {
  static int From(Random& rng, CardSet& pool, CardSet excluded) {
    const CardSet fitting = pool & ~excluded;
    if (fitting == 0) return -1;
    const uint64_t bits = rng.Bits53();  // does not wait for the fitting set
    const int k = Random::PickOfFew(bits, __builtin_popcountll(fitting));
    const CardSet drawn = _pdep_u64(CardSet{1} << (k - 1), fitting);
    pool &= ~drawn;
    return __builtin_ctzll(drawn);
  }
};

// `flatten` inlines the whole step, the draw included, so all of it is
// compiled for this level.
[[gnu::flatten]] Phase DealAlone(PuzzleMaker& m, Phase phase) { return DealAloneWith<PdepDraw>(m, phase); }

[[gnu::flatten]] void DealInTurn(PuzzleMaker& a, Phase& pa, PuzzleMaker& b, Phase& pb) {
  DealInTurnWith<PdepDraw>(a, pa, b, pb);
}

constexpr DealLoops kLoops{DealAlone, DealInTurn};
