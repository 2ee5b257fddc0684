#include "zor/kernels/selection.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/selection.h"

// Selection by a window: two cells of a sorted sample enclose the ranks asked for; one sweep over all cells counts what
// lies below, at, and above them, and brings those strictly between to the front, where the search goes on. Cells equal
// to a bound of the window are an answer at once, so that equal cells never cost more. A window that misses is tried
// again with another sample; input that defeats that, too, ends in the bisection of select_unmoved.
// After R. W. Floyd, R. L. Rivest, Expected time bounds for selection, Commun. ACM 18 (1975).

namespace zor::kernels {

ZOR_KERNEL_TABLE(SelectionTable, kSelection)

namespace {

const SelectionLoops<double>& loops(double) { return table().of_double; }
const SelectionLoops<std::int32_t>& loops(std::int32_t) { return table().of_int32; }

constexpr std::size_t kFewCells = 1024;  // a sample doesn't pay below
constexpr int kRounds = 24;

// Integers in the order of the cells; both zeros have key 0.
std::int64_t key(std::int32_t v) { return v; }
std::int64_t key(double v) {
  const auto bits = std::bit_cast<std::int64_t>(v);
  return bits < 0 ? std::numeric_limits<std::int64_t>::min() - bits : bits;
}
void of_key(std::int64_t k, std::int32_t& v) { v = static_cast<std::int32_t>(k); }
void of_key(std::int64_t k, double& v) {
  v = std::bit_cast<double>(k < 0 ? std::numeric_limits<std::int64_t>::min() - k : k);
}

template <class T>
constexpr T kLeast =
    std::numeric_limits<T>::has_infinity ? -std::numeric_limits<T>::infinity() : std::numeric_limits<T>::lowest();
template <class T>
constexpr T kGreatest =
    std::numeric_limits<T>::has_infinity ? std::numeric_limits<T>::infinity() : std::numeric_limits<T>::max();

template <class T>
std::size_t count_upto(std::span<const T> x, T bound) {
  std::size_t count = 0;
  for (const T v : x) count += v <= bound;
  return count;
}

template <class T>
T unmoved(std::span<const T> x, std::size_t k) {
  if (x.empty()) return T(0);
  k = std::min(k, x.size() - 1);
  if (k >= count_upto(x, kGreatest<T>)) return *std::find_if(x.begin(), x.end(), [](T v) { return v != v; });
  std::int64_t low = key(kLeast<T>), high = key(kGreatest<T>);  // the least key with more than k cells up to it
  T bound = T(0);
  while (low < high) {
    const std::int64_t middle = std::midpoint(low, high);
    of_key(middle, bound);
    if (count_upto(x, bound) > k)
      high = middle;
    else
      low = middle + 1;
  }
  of_key(low, bound);
  return *std::find(x.begin(), x.end(), bound);  // a zero of the cells, not of the key
}

// Brings s cells from pseudo-random places to the front.
template <class T>
void draw_sample(T* x, std::size_t n, std::size_t s, std::uint64_t seed) {
  for (std::size_t i = 0; i < s; ++i) {
    seed = seed * 6364136223846793005u + 1442695040888963407u;
    const double u = static_cast<double>(seed >> 11) * 0x1p-53;
    std::swap(x[i], x[i + static_cast<std::size_t>(u * static_cast<double>(n - i))]);
  }
}

// values[j] = cell of rank ranks[j] - base among x[0 .. n), which holds no NaN. The ranks ascend and exist.
template <class T>
void solve(T* x, std::size_t n, std::size_t base, std::span<const std::size_t> ranks, T* values, int rounds) {
  if (ranks.empty()) return;
  if (n <= kFewCells) {
    T *from = x, *const end = x + n;
    for (const std::size_t rank : ranks) {
      T* const at = x + (rank - base);
      if (at >= from) std::nth_element(from, at, end);
      *values++ = *at;
      from = at + 1;
    }
    return;
  }
  if (rounds == 0) {
    for (const std::size_t rank : ranks) *values++ = unmoved(std::span<const T>(x, n), rank - base);
    return;
  }
  --rounds;

  // Window of three standard deviations of the sample's ranks to both sides.
  const double cells = static_cast<double>(n), root = std::cbrt(cells), size = std::floor(root * root);
  const std::size_t s = static_cast<std::size_t>(size);
  draw_sample(x, n, s, n + static_cast<std::size_t>(rounds));
  const double reach = 1.5 * std::sqrt(size) + 1.0;
  const double from = static_cast<double>(ranks.front() - base) / cells * size - reach;
  const double to = static_cast<double>(ranks.back() - base) / cells * size + reach;
  T window[2] = {kLeast<T>, kGreatest<T>};
  const std::size_t bounds[2] = {from < 0.0 ? 0 : static_cast<std::size_t>(from),
                                 to < size ? static_cast<std::size_t>(to) : s};
  const std::size_t skip = from < 0.0 ? 1 : 0, take = (to < size ? 2u : 1u) - skip;
  solve(x, s, 0, std::span(bounds + skip, take), window + skip, rounds);

  const WindowCounts c = loops(T{}).window(x, n, window[0], window[1]);
  const auto ranks_below = [&](std::size_t count) {
    return static_cast<std::size_t>(std::lower_bound(ranks.begin(), ranks.end(), base + count) - ranks.begin());
  };
  const std::size_t below = ranks_below(c.below), low = ranks_below(c.upto_low),
                    inside = ranks_below(c.upto_low + c.between), high = ranks_below(c.upto_high);
  std::fill(values + below, values + low, window[0]);
  std::fill(values + inside, values + high, window[1]);
  solve(x, c.between, base + c.upto_low, ranks.subspan(low, inside - low), values + low, rounds);
  solve(x, n, base, ranks.first(below), values, rounds);
  solve(x, n, base, ranks.subspan(high), values + high, rounds);
}

// Ranks that lie within this part of the cells share their windows.
constexpr std::size_t kShare = 32;

template <class T>
void many(std::span<T> x, std::span<const std::size_t> ranks, std::span<T> values) {
  const std::size_t count = std::min(ranks.size(), values.size()), n = x.size();
  if (n == 0) std::fill_n(values.begin(), count, T(0));
  if (n == 0 || count == 0) return;
  const std::size_t numbers = loops(T{}).numbers_first(x.data(), n);
  for (std::size_t j = 0; j < count;) {
    const std::size_t first = std::min(ranks[j], n - 1);
    std::size_t end = j + 1;
    if (first >= numbers) {
      values[j] = x[numbers];
    } else {
      while (end < count && ranks[end] >= ranks[end - 1] && ranks[end] < numbers && ranks[end] - first <= n / kShare)
        ++end;
      const auto group = first == ranks[j] ? ranks.subspan(j, end - j) : std::span<const std::size_t>(&first, 1);
      solve(x.data(), numbers, 0, group, values.data() + j, kRounds);
    }
    j = end;
  }
}

template <class T>
T kth(std::span<T> x, std::size_t k) {
  T value = T(0);
  many(x, std::span<const std::size_t>(&k, 1), std::span<T>(&value, 1));
  return value;
}

template <class T>
Neighbours<T> pair(std::span<T> x, std::size_t k) {
  k = std::min(k, x.size());
  const std::size_t ranks[] = {k, k + 1};
  T values[2] = {};
  many(x, ranks, std::span<T>(values));
  return {values[0], values[1]};
}

// Splits lo to hi about the cell at m; returns where that cell ends up. Equal cells go to its right.
std::int64_t partition(double* x, std::int64_t lo, std::int64_t hi, std::int64_t m) {
  const double pivot = x[m];
  std::swap(x[m], x[lo]);
  std::int64_t i = lo + 1;
  while (i <= hi && x[i] < pivot) ++i;
  for (std::int64_t j = i + 1; j <= hi; ++j) {
    if (x[j] < pivot) std::swap(x[j], x[i++]);
  }
  x[lo] = x[i - 1];
  x[i - 1] = pivot;
  return i - 1;
}

}  // namespace

double select_kth(std::span<double> x, std::size_t k) noexcept { return kth(x, k); }
std::int32_t select_kth(std::span<std::int32_t> x, std::size_t k) noexcept { return kth(x, k); }
Neighbours<double> select_pair(std::span<double> x, std::size_t k) noexcept { return pair(x, k); }
Neighbours<std::int32_t> select_pair(std::span<std::int32_t> x, std::size_t k) noexcept { return pair(x, k); }
double select_unmoved(std::span<const double> x, std::size_t k) noexcept { return unmoved(x, k); }
std::int32_t select_unmoved(std::span<const std::int32_t> x, std::size_t k) noexcept { return unmoved(x, k); }
void select_many(std::span<double> x, std::span<const std::size_t> ranks, std::span<double> values) noexcept {
  many(x, ranks, values);
}
void select_many(std::span<std::int32_t> x, std::span<const std::size_t> ranks,
                 std::span<std::int32_t> values) noexcept {
  many(x, ranks, values);
}

double quick_select(std::span<double> cells, std::int64_t k, std::int64_t lo, std::int64_t hi) noexcept {
  lo = std::max<std::int64_t>(lo, 0);
  hi = std::min(hi, static_cast<std::int64_t>(cells.size()) - 1);
  if (hi < lo) return 0.0;
  k = std::max(k, lo);
  double* const x = cells.data();
  const double first = x[lo];
  std::int64_t i = lo + 1;
  while (i <= hi && x[i] == first) ++i;
  if (i > hi) return first;
  while (true) {
    const std::int64_t p = partition(x, lo, hi, lo + (hi - lo) / 2);
    if (k == p) return x[k];
    if (k < p) {
      hi = p;
    } else {
      lo = p + 1;
      if (lo > hi) return first;
    }
  }
}

}  // namespace zor::kernels
