#include "zor/kernels/levels/comb_sort.h"

#include "zor/kernels/levels/level.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

// How the passes of a comb sort run at once. A pass with gap g compares the cells i - g and i for rising i; when it has
// done i, the cell i - g is in its final state, and the next pass may take it as its own cell i. So one cell on its
// way down goes through all passes of a chain: it meets, for each of them, the cell one gap lower, the greater of the
// two stays behind (descending: the smaller) and the other goes on. A chain of m passes costs m + 1 loads and stores.
// All this works on blocks of cells as well as long as a block is no longer than the smallest gap.

namespace zor::kernels::ZOR_LEVEL {
namespace {

typedef std::ptrdiff_t Index;

// a < b ? a : b and a > b ? a : b, each one instruction that takes b if the cells are equal or one of them is a NaN.
// GCC 12 turns the written form into the instruction for scalars and integers, not for vectors of floating numbers.
template <class V>
[[gnu::always_inline]] inline V less(V a, V b) {
  return a < b ? a : b;
}
template <class V>
[[gnu::always_inline]] inline V greater(V a, V b) {
  return a > b ? a : b;
}
#if defined(__x86_64__)
#define ZOR_MIN_MAX(V, min, max, ...)                                                            \
  [[gnu::always_inline, maybe_unused]] inline V less(V a, V b) { return min(__VA_ARGS__ a, b); } \
  [[gnu::always_inline, maybe_unused]] inline V greater(V a, V b) { return max(__VA_ARGS__ a, b); }
ZOR_MIN_MAX(__m128d, _mm_min_pd, _mm_max_pd, )
ZOR_MIN_MAX(__m128, _mm_min_ps, _mm_max_ps, )
#if defined(__AVX2__)
ZOR_MIN_MAX(__m256d, _mm256_min_pd, _mm256_max_pd, )
ZOR_MIN_MAX(__m256, _mm256_min_ps, _mm256_max_ps, )
#endif
#if defined(__AVX512F__)  // with a full mask, since GCC 12 warns of its own unmasked forms
#define ZOR_ALL_LANES static_cast<__mmask16>(-1),
ZOR_MIN_MAX(__m512, _mm512_maskz_min_ps, _mm512_maskz_max_ps, ZOR_ALL_LANES)
#undef ZOR_ALL_LANES
#define ZOR_ALL_LANES static_cast<__mmask8>(-1),
ZOR_MIN_MAX(__m512d, _mm512_maskz_min_pd, _mm512_maskz_max_pd, ZOR_ALL_LANES)
#undef ZOR_ALL_LANES
#endif
#undef ZOR_MIN_MAX
#endif

// What compare and exchange leave in the lower cell a and in the upper cell b; equal cells and NaN stay.
template <bool up, class V>
[[gnu::always_inline]] inline V lower(V a, V b) {
  return up ? less(b, a) : greater(b, a);
}
template <bool up, class V>
[[gnu::always_inline]] inline V upper(V a, V b) {
  return up ? greater(a, b) : less(a, b);
}
template <bool up, class T>
[[gnu::always_inline]] inline bool out_of_order(T a, T b) {
  return up ? a > b : a < b;
}

template <class T, int lanes>
struct Register {
  typedef T Type __attribute__((vector_size(lanes * sizeof(T))));
  // As it lies in memory. Never the type of a variable: Clang takes a reference to it in a template for an aligned one.
  typedef T Loose __attribute__((vector_size(lanes * sizeof(T)), aligned(alignof(T)), may_alias));
};
template <class T>
struct Register<T, 1> {
  typedef T Type;
  typedef T Loose;
};

// A run of cells as the passes see it: values of one cell (lanes = 1) or of a block, and compare and exchange of two.
template <class T>
struct Keys {
  typedef T Cell;
  template <int lanes>
  using Block = typename Register<T, lanes>::Type;

  T* x;

  Keys operator+(Index i) const { return {x + i}; }
  template <int lanes>
  Block<lanes> load() const {
    return *reinterpret_cast<const typename Register<T, lanes>::Loose*>(x);
  }
  template <int lanes>
  void store(Block<lanes> v) const {
    *reinterpret_cast<typename Register<T, lanes>::Loose*>(x) = v;
  }
  template <bool up, int lanes>
  [[gnu::always_inline]] static void order(Block<lanes>& a, Block<lanes>& b) {
    const Block<lanes> first = a, second = b;
    a = lower<up>(first, second);
    b = upper<up>(first, second);
  }
};

inline std::int64_t mask(bool b) { return -std::int64_t{b}; }
template <class M>
inline M mask(M m) {
  return m;
}

// Keys that take a companion along.
struct KeysAndCompanions {
  typedef double Cell;
  template <int lanes>
  struct Block {
    typename Register<double, lanes>::Type key;
    typename Register<std::int64_t, lanes>::Type companion;
  };

  double* key;
  std::int64_t* companion;

  KeysAndCompanions operator+(Index i) const { return {key + i, companion + i}; }
  template <int lanes>
  Block<lanes> load() const {
    return {Keys<double>{key}.load<lanes>(), Keys<std::int64_t>{companion}.load<lanes>()};
  }
  template <int lanes>
  void store(Block<lanes> v) const {
    Keys<double>{key}.store<lanes>(v.key);
    Keys<std::int64_t>{companion}.store<lanes>(v.companion);
  }
  template <bool up, int lanes>
  [[gnu::always_inline]] static void order(Block<lanes>& a, Block<lanes>& b) {
    const auto change = (a.companion ^ b.companion) & mask(up ? a.key > b.key : a.key < b.key);
    a.companion ^= change;
    b.companion ^= change;
    Keys<double>::order<up, lanes>(a.key, b.key);
  }
};

// Compares and exchanges the cells i - gap and i for from <= i < to.
template <bool up, class T>
bool plain_pass(Keys<T> run, Index gap, Index from, Index to) {
  T* const x = run.x;
  bool moved = false;
  for (Index i = from; i < to; ++i) {
    const T a = x[i - gap], b = x[i];
    moved |= out_of_order<up>(a, b);
    x[i - gap] = lower<up>(a, b);
    x[i] = upper<up>(a, b);
  }
  return moved;
}
template <bool up>
bool plain_pass(KeysAndCompanions run, Index gap, Index from, Index to) {
  bool moved = false;
  for (Index i = from; i < to; ++i) {
    const KeysAndCompanions p = run + (i - gap), q = run + i;
    auto a = p.load<1>(), b = q.load<1>();
    moved |= out_of_order<up>(a.key, b.key);
    run.order<up, 1>(a, b);
    p.store<1>(a);
    q.store<1>(b);
  }
  return moved;
}

constexpr Index kLongestChain = 12;  // more passes at once touch too many places of the cache

// The passes with gaps[0 .. count), all of them at least lanes * registers, in one sweep.
template <bool up, int lanes, int registers, class Run>
void chain(Run x, Index n, const std::size_t* gaps, Index count) {
  typedef typename Run::template Block<lanes> Block;
  constexpr Index block = lanes * registers;
  Index gap[kLongestChain], offset[kLongestChain + 1];  // pass k is at top - offset[k] with its upper block
  offset[0] = 0;
  for (Index k = 0; k < count; ++k) {
    gap[k] = static_cast<Index>(gaps[k]);
    offset[k + 1] = offset[k] + gap[k];
  }
  const auto clipped = [&](Index k, Index at) {
    plain_pass<up>(x, gap[k], at < gap[k] ? gap[k] : at, at + block < n ? at + block : n);
  };
  Index first = 0, last = 0;  // the passes first .. last-1 have whole blocks; their neighbours may have parts of one
  for (Index top = gap[0]; first < count; top += block) {
    while (first < count && top - offset[first] + block > n) ++first;
    while (last < count && top - offset[last + 1] >= 0) ++last;
    if (first > 0) clipped(first - 1, top - offset[first - 1]);
    if (first < last) {
      Run p = x + (top - offset[first]);
      Block moving[registers];
      for (int r = 0; r < registers; ++r) moving[r] = (p + r * lanes).template load<lanes>();
      for (Index k = first; k < last; ++k) {
        const Run q = p + -gap[k];
        for (int r = 0; r < registers; ++r) {
          Block low = (q + r * lanes).template load<lanes>();
          Run::template order<up, lanes>(low, moving[r]);
          (p + r * lanes).template store<lanes>(moving[r]);
          moving[r] = low;
        }
        p = q;
      }
      for (int r = 0; r < registers; ++r) (p + r * lanes).template store<lanes>(moving[r]);
    }
    if (last < count && last != first - 1) clipped(last, top - offset[last]);
  }
}

// A register of 16 bytes for the passes with gap 1: each lane runs a pass of its own.
template <class T>
struct Lanes {
  typedef typename Register<T, 16 / sizeof(T)>::Type V;
  typedef decltype(V{} < V{}) Mask;
  static constexpr int count = 16 / sizeof(T);

  static V all(T v) {
    if constexpr (count == 2)
      return V{v, v};
    else
      return V{v, v, v, v};
  }
  // The lanes of `b` moved up by one, below them the last lane of `a`.
  static V shift(V a, V b) {
    if constexpr (count == 2)
      return __builtin_shufflevector(a, b, 1, 2);
    else
      return __builtin_shufflevector(a, b, 3, 4, 5, 6);
  }
};

// The passes with gaps 3 and 2 if asked for, then several passes with gap 1, in one sweep. The cells that a pass has in
// hand stay in registers, and pass k + 1 with gap 1 follows two cells behind pass k: while pass k compares cell i with
// what it carries along, pass k + 1 does so with what pass k let go one step before.
template <bool up, bool with_3_and_2, class T>
struct Bubble {
  static constexpr int kLanes = Lanes<T>::count;
  static constexpr int kRegisters = 6 / kLanes + (kLanes > 2);
  static constexpr int kPasses = kRegisters * kLanes;
  static constexpr Index kHead = with_3_and_2 ? 5 : 0;
  static constexpr Index kHeld = kHead + 2 * kPasses;

  bool moved[kPasses] = {};

  // One step of all passes through memory, at the ends of the array, where not all of them are at work.
  void step(T* x, Index n, Index top) {
    if constexpr (with_3_and_2) {
      for (Index g = 3; g > 1; top -= g--) {
        if (top < n && top >= g) plain_pass<up>(Keys<T>{x}, g, top, top + 1);
      }
    }
    for (int k = 0; k < kPasses; ++k, top -= 2) {
      if (top < n && top >= 1) moved[k] |= plain_pass<up>(Keys<T>{x}, 1, top, top + 1);
    }
  }

  void sweep(T* x, Index n) {
    typedef typename Lanes<T>::V V;
    typedef typename Lanes<T>::Mask Mask;
    Index top = 0;
    for (; top < kHeld; ++top) step(x, n, top);
    if (top < n) {
      V three[3], two[2], carried[kRegisters], let_go[kRegisters];
      Mask changed[kRegisters] = {};
      // Pass k with gap 1 carries cell base - 2 k - 1; what it lets go, cell base - 2 k - 2, waits for pass k + 1.
      T* base = x + (top - kHead);
      for (int j = 0; j < 3; ++j) three[j] = with_3_and_2 ? Lanes<T>::all(base[2 + j]) : V{};
      for (int j = 0; j < 2; ++j) two[j] = with_3_and_2 ? Lanes<T>::all(base[j]) : V{};
      for (int k = 0; k < kPasses; ++k) {
        carried[k / kLanes][k % kLanes] = base[-2 * k - 1];
        let_go[k / kLanes][k % kLanes] = base[-2 * k - 2];
      }
      for (; top < n; ++top, ++base) {
        V v = Lanes<T>::all(x[top]);
        if constexpr (with_3_and_2) {
          V a = three[0];
          three[0] = three[1];
          three[1] = three[2];
          three[2] = upper<up>(a, v);
          v = lower<up>(a, v);
          a = two[0];
          two[0] = two[1];
          two[1] = upper<up>(a, v);
          v = lower<up>(a, v);
        }
        for (int r = kRegisters - 1; r >= 0; --r) {
          const V a = carried[r], b = Lanes<T>::shift(r > 0 ? let_go[r - 1] : v, let_go[r]);
          let_go[r] = lower<up>(a, b);
          carried[r] = upper<up>(a, b);
          changed[r] |= (Mask)let_go[r] ^ (Mask)a;
        }
        base[-2 * kPasses + 1] = let_go[kRegisters - 1][kLanes - 1];
      }
      for (int j = 0; j < 3 && with_3_and_2; ++j) base[2 + j] = three[j][0];
      for (int j = 0; j < 2 && with_3_and_2; ++j) base[j] = two[j][0];
      for (int k = 0; k < kPasses; ++k) {
        base[-2 * k - 1] = carried[k / kLanes][k % kLanes];
        base[-2 * k - 2] = let_go[k / kLanes][k % kLanes];
        moved[k] |= changed[k / kLanes][k % kLanes] != 0;
      }
    }
    for (; top < n + kHeld; ++top) step(x, n, top);
  }

  // Runs the sweep; how many of its passes with gap 1 the plain loop makes, one more than there are if that isn't
  // known.
  static std::size_t run(T* x, Index n) {
    Bubble b;
    b.sweep(x, n);
    std::size_t passes = 1;
    while (passes <= kPasses && b.moved[passes - 1]) ++passes;
    return passes;
  }
};

// The passes with gaps above 3; returns how many gaps are done, those too large for any pair included.
template <bool up, class Run>
std::size_t wide_passes(Run cells, std::size_t size, const std::size_t* gaps, std::size_t count) {
  constexpr int lanes = ZOR_VECTOR_BYTES / sizeof(typename Run::Cell);
  constexpr int narrow = lanes < 4 ? lanes : 4;
  const Index n = static_cast<Index>(size);
  std::size_t k = 0;
  while (k < count && gaps[k] >= size) ++k;  // nothing to compare
  while (k < count && gaps[k] > 3) {
    const std::size_t block = gaps[k] >= 4 * lanes ? 4 * lanes : gaps[k] >= lanes ? lanes : narrow;
    std::size_t end = k;
    while (end < count && end - k < kLongestChain && gaps[end] >= block && gaps[end] > 3) ++end;
    const Index passes = static_cast<Index>(end - k);
    if (block == 4 * lanes)
      chain<up, lanes, 4>(cells, n, gaps + k, passes);
    else if (block == lanes)
      chain<up, lanes, 1>(cells, n, gaps + k, passes);
    else
      chain<up, narrow, 1>(cells, n, gaps + k, passes);
    k = end;
  }
  return k;
}

template <bool up, class T>
std::size_t sort(T* cells, std::size_t size, const std::size_t* gaps, std::size_t count) {
  const Index n = static_cast<Index>(size);
  std::size_t k = wide_passes<up>(Keys<T>{cells}, size, gaps, count);
  for (; count - k != 3 && k + 1 < count; ++k)
    plain_pass<up>(Keys<T>{cells}, static_cast<Index>(gaps[k]), static_cast<Index>(gaps[k]), n);
  constexpr std::size_t at_once = Bubble<up, false, T>::kPasses;
  std::size_t passes = count - 1;
  std::size_t more = count - k == 3 ? Bubble<up, true, T>::run(cells, n) : Bubble<up, false, T>::run(cells, n);
  for (; more > at_once; more = Bubble<up, false, T>::run(cells, n)) passes += at_once;
  return passes + more;
}

template <bool up>
std::size_t sort_pairs(KeysAndCompanions cells, std::size_t size, const std::size_t* gaps, std::size_t count) {
  const Index n = static_cast<Index>(size);
  std::size_t k = wide_passes<up>(cells, size, gaps, count);
  for (; k + 1 < count; ++k) plain_pass<up>(cells, static_cast<Index>(gaps[k]), static_cast<Index>(gaps[k]), n);
  std::size_t passes = count;
  for (; plain_pass<up>(cells, 1, 1, n); ++passes) {
  }
  return passes;
}

std::size_t sort_pairs_either(double* keys, std::int64_t* companions, std::size_t n, const std::size_t* gaps,
                              std::size_t count, bool ascending) {
  const KeysAndCompanions cells{keys, companions};
  return ascending ? sort_pairs<true>(cells, n, gaps, count) : sort_pairs<false>(cells, n, gaps, count);
}

template <class T>
std::size_t sort_either(T* x, std::size_t n, const std::size_t* gaps, std::size_t count, bool ascending) {
  return ascending ? sort<true>(x, n, gaps, count) : sort<false>(x, n, gaps, count);
}

template <bool up, class T>
bool pass(T* x, Index n, Index gap) {
  constexpr Index lanes = ZOR_VECTOR_BYTES / sizeof(T);
  typedef typename Register<T, lanes>::Type V;
  typedef decltype(V{} < V{}) Mask;
  Mask changed = {};
  Index i = gap;
  for (; gap >= lanes && i + lanes <= n; i += lanes) {
    const Keys<T> lower_cells{x + i - gap}, upper_cells{x + i};
    const V a = lower_cells.template load<lanes>(), b = upper_cells.template load<lanes>(), low = lower<up>(a, b);
    lower_cells.template store<lanes>(low);
    upper_cells.template store<lanes>(upper<up>(a, b));
    changed |= (Mask)low ^ (Mask)a;
  }
  bool moved = plain_pass<up>(Keys<T>{x}, gap, i, n);
  for (int j = 0; j < lanes; ++j) moved |= changed[j] != 0;
  return moved;
}

template <class T>
bool pass_either(T* x, std::size_t n, std::size_t gap, bool ascending) {
  const Index size = static_cast<Index>(n), g = static_cast<Index>(gap);
  return ascending ? pass<true>(x, size, g) : pass<false>(x, size, g);
}

}  // namespace

extern const CombSortTable kCombSort;
const CombSortTable kCombSort = {{sort_either<double>, pass_either<double>},
                                 {sort_either<float>, pass_either<float>},
                                 {sort_either<std::int32_t>, pass_either<std::int32_t>},
                                 sort_pairs_either};

}  // namespace zor::kernels::ZOR_LEVEL
