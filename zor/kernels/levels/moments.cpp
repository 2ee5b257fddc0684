#include "zor/kernels/levels/moments.h"

#include "zor/kernels/levels/level.h"

#if defined(__FMA__)
#include <immintrin.h>
#endif

namespace zor::kernels::ZOR_LEVEL {
namespace {

// Aligned as the register: passed by value only.
typedef double Wide __attribute__((vector_size(ZOR_VECTOR_BYTES)));
typedef std::int64_t Bits __attribute__((vector_size(ZOR_VECTOR_BYTES)));

inline Wide constant(double x) { return x - Wide{}; }
inline Wide magnitude(Wide x) { return (Wide)((Bits)x & INT64_MAX); }

inline Wide only_if(Bits condition, Wide x) { return (Wide)(condition & (Bits)x); }

/// x * y - part, rounded once, where part is the upper part of `product` = x * y rounded or 0.0, so that the difference
/// of both is exact. The error of a product below 2^-960 may not be a double: a difference from 0.0 is then `product`.
#if defined(__FMA__)
inline Wide product_rest(Wide x, Wide y, Wide, Wide part) {
#if defined(__AVX512F__)
  return _mm512_fmsub_pd(x, y, part);
#else
  return _mm256_fmsub_pd(x, y, part);
#endif
}
#else
/// The upper 26 bits of x, rounded, so that the rest has 26 bits and a sign.
inline Wide upper_half(Wide x) { return (Wide)(((Bits)x + (std::int64_t{1} << 26)) & -(std::int64_t{1} << 27)); }
inline Wide choose(Bits condition, Wide a, Wide b) { return (Wide)((condition & (Bits)a) | (~condition & (Bits)b)); }

inline Wide product_rest(Wide x, Wide y, Wide product, Wide part) {
  // A factor above 2^500 is scaled down, so that no part of a finite product overflows. The scale is a power of 2.
  const Wide large = constant(0x1p500), one = constant(1.0), down = constant(0x1p-300), up = constant(0x1p300);
  const Bits x_large = magnitude(x) > large, y_large = magnitude(y) > large;
  const Wide xs = x * choose(x_large, down, one), ys = y * choose(y_large, down, one);
  const Wide ps = product * choose(x_large, down, one) * choose(y_large, down, one);
  const Wide xh = upper_half(xs), xl = xs - xh, yh = upper_half(ys), yl = ys - yh;
  const Wide error =
      (((xh * yh - ps) + xh * yl + xl * yh) + xl * yl) * choose(x_large, up, one) * choose(y_large, up, one);
  return (product - part) + only_if(magnitude(product) >= 0x1p-960, error);
}
#endif

/// A register of partial sums.
struct Sum {
  Wide hi, lo;
};

inline Sum load(const PartialSums& s, std::size_t lane) { return {load(s.hi + lane), load(s.lo + lane)}; }
inline void store(PartialSums& s, std::size_t lane, Sum v) {
  store(s.hi + lane, v.hi);
  store(s.lo + lane, v.lo);
}

/// Adds x, whatever its size (Knuth).
inline void add(Sum& s, Wide x) {
  const Wide total = s.hi + x, part = total - s.hi;
  s.lo += (s.hi - (total - part)) + (x - part);
  s.hi = total;
}

/// Adds x * y, whatever its size.
inline void add_product(Sum& s, Wide x, Wide y) {
  const Wide product = x * y;
  s.lo += only_if(magnitude(product) >= 0x1p-960, product_rest(x, y, product, product));
  add(s, product);
}

/// a + b. On processors of level v3 the units for products are idle half the time; 1 * b + a has the same bits.
#if defined(__FMA__) && !defined(__AVX512F__)
inline Wide plus(Wide a, Wide b) { return _mm256_fmadd_pd(b, constant(1.0), a); }
#else
inline Wide plus(Wide a, Wide b) { return a + b; }
#endif

/// Adds x, which is not larger than s.hi (Dekker).
inline void add_smaller(Sum& s, Wide x) {
  const Wide total = plus(s.hi, x);
  s.lo = plus(s.lo, x - (total - s.hi));
  s.hi = total;
}

/// Adds x * y, which is not larger than s.hi.
inline void add_smaller_product(Sum& s, Wide x, Wide y) {
  const Wide product = x * y, total = s.hi + product;
  s.lo += product_rest(x, y, product, total - s.hi);
  s.hi = total;
}

// Cells are taken in batches that stay in the first cache. A partial sum of a batch starts at a power of 2, `bias`, so
// large that it stays above every cell to come: an error-free addition then takes three operations instead of six, and
// the bias comes off again without error. Two registers of partial sums stay in the processor while the batch passes.
constexpr std::size_t kStep = 2 * kLanesD;
constexpr std::size_t kBatch = 64;  // blocks
static_assert(kPartialSums % kStep == 0);

/// Largest |x[i]|; NaN does not count.
double largest(const double* x, std::size_t n) {
  Wide a{}, b{};
  for (std::size_t i = 0; i < n; i += kStep) {
    const Wide p = magnitude(load(x + i)), q = magnitude(load(x + i + kLanesD));
    a = p > a ? p : a;
    b = q > b ? q : b;
  }
  a = b > a ? b : a;
  double result = a[0];
  for (std::size_t i = 1; i < kLanesD; ++i) result = a[i] > result ? a[i] : result;
  return result;
}

/// Whether squares and biased sums of cells up to `size` stay far from overflow and underflow.
inline bool moderate(double size) { return size >= 0x1p-400 && size <= 0x1p400; }

/// The power of 2 above x, for moderate x, times 2^exponent.
inline double power_above(double x, int exponent) {
  std::int64_t bits;
  __builtin_memcpy(&bits, &x, sizeof x);
  bits = ((bits >> 52) + 1 + exponent) << 52;
  __builtin_memcpy(&x, &bits, sizeof x);
  return x;
}

// A sum of cells of both signs stays above half its bias, which must be at least the sum of kBatch of them.
constexpr int kSigned = 7;
static_assert(kBatch * 2 <= 1 << kSigned);

/// Adds batch sums that began at `bias`.
inline void settle(PartialSums& sums, std::size_t lane, Sum batch, double bias) {
  Sum s = load(sums, lane);
  add(s, batch.hi - bias);
  s.lo += batch.lo;
  store(sums, lane, s);
}

/// For each group of `registers`: take(partial sums, offset of their cells in the batch). As many chains run at once.
template <std::size_t registers, class Take>
inline void sum_blocks(PartialSums& sums, std::size_t blocks, double bias, Take take) {
  static_assert(kPartialSums % (registers * kLanesD) == 0);
  for (std::size_t lane = 0; lane < kPartialSums; lane += registers * kLanesD) {
    const bool biased = bias > 0.0;
    Sum group[registers];
#pragma GCC unroll 4
    for (std::size_t k = 0; k < registers; ++k) {
      group[k] = biased ? Sum{constant(bias), Wide{}} : load(sums, lane + k * kLanesD);
    }
    for (std::size_t i = 0; i < blocks; ++i) {
#pragma GCC unroll 4
      for (std::size_t k = 0; k < registers; ++k) take(group[k], i * kPartialSums + lane + k * kLanesD);
    }
#pragma GCC unroll 4
    for (std::size_t k = 0; k < registers; ++k) {
      biased ? settle(sums, lane + k * kLanesD, group[k], bias) : store(sums, lane + k * kLanesD, group[k]);
    }
  }
}

/// batch(offset of its first cell, number of blocks) for all batches.
template <class Batch>
inline void for_batches(std::size_t blocks, Batch batch) {
  for (std::size_t b = 0; b < blocks; b += kBatch) batch(b * kPartialSums, blocks - b < kBatch ? blocks - b : kBatch);
}

/// Sums alone leave room for more chains.
constexpr std::size_t kSumRegisters = kPartialSums / kLanesD < 4 ? kPartialSums / kLanesD : 4;

void sum(const double* cells, std::size_t all_blocks, PartialSums& sums) {
  for_batches(all_blocks, [&](std::size_t start, std::size_t blocks) {
    const double* x = cells + start;
    const double size = largest(x, blocks * kPartialSums);
    if (moderate(size)) {
      sum_blocks<kSumRegisters>(sums, blocks, power_above(size, kSigned),
                                [=](Sum& s, std::size_t i) { add_smaller(s, load(x + i)); });
    } else {
      sum_blocks<kSumRegisters>(sums, blocks, 0.0, [=](Sum& s, std::size_t i) { add(s, load(x + i)); });
    }
  });
}

void dot(const double* x_cells, const double* y_cells, std::size_t all_blocks, PartialSums& sums) {
  for_batches(all_blocks, [&](std::size_t start, std::size_t blocks) {
    const double *x = x_cells + start, *y = y_cells + start;
    const double x_size = largest(x, blocks * kPartialSums), y_size = largest(y, blocks * kPartialSums);
    if (moderate(x_size) && moderate(y_size)) {
      const double bias = power_above(x_size, 0) * power_above(y_size, kSigned);
      sum_blocks<2>(sums, blocks, bias,
                    [=](Sum& s, std::size_t i) { add_smaller_product(s, load(x + i), load(y + i)); });
    } else {
      sum_blocks<2>(sums, blocks, 0.0, [=](Sum& s, std::size_t i) { add_product(s, load(x + i), load(y + i)); });
    }
  });
}

/// Sums and sums of squares of one batch.
struct Batch {
  Sum sum[kPartialSums / kLanesD];
  Sum squares[kPartialSums / kLanesD];
};

/// Sums a batch with `square_bias`, an even power of 2. False where the bias is too small for the cells: where no sum
/// of squares reaches it, no square did, and by Cauchy's inequality no sum of cells came above 8 sqrt(square_bias).
bool sum_batch(const double* x, std::size_t blocks, double square_bias, double bias, Batch& batch) {
  const Wide limit = constant(2.0 * square_bias);
  Bits below = limit > 0.0;
  for (std::size_t lane = 0; lane < kPartialSums; lane += kStep) {
    Sum s0{constant(bias), Wide{}}, s1 = s0, q0{constant(square_bias), Wide{}}, q1 = q0;
    const double* p = x + lane;
    for (std::size_t i = 0; i < blocks; ++i, p += kPartialSums) {
      __builtin_prefetch(p + kBatch * kPartialSums);
      const Wide a = load(p), b = load(p + kLanesD);
      add_smaller(s0, a);
      add_smaller(s1, b);
      add_smaller_product(q0, a, a);
      add_smaller_product(q1, b, b);
    }
    below &= (q0.hi < limit) & (q1.hi < limit);
    const std::size_t k = lane / kLanesD;
    batch.sum[k] = s0, batch.sum[k + 1] = s1;
    batch.squares[k] = q0, batch.squares[k + 1] = q1;
  }
  std::int64_t all = -1;
  for (std::size_t k = 0; k < kLanesD; ++k) all &= below[k];
  return all != 0;
}

void moments(const double* cells, std::size_t all_blocks, PartialSums& sums, PartialSums& squares) {
  static_assert(kBatch <= 64);
  double root = 0.0, square_bias = 0.0;
  for_batches(all_blocks, [&](std::size_t start, std::size_t blocks) {
    const double* x = cells + start;
    Batch batch;
    if (root == 0.0 || !sum_batch(x, blocks, square_bias, 16.0 * root, batch)) {
      const double size = largest(x, blocks * kPartialSums);
      root = moderate(size) ? power_above(size, 3) : 0.0;
      square_bias = root * root;
      if (root == 0.0 || !sum_batch(x, blocks, square_bias, 16.0 * root, batch)) {
        sum_blocks<2>(sums, blocks, 0.0, [=](Sum& s, std::size_t i) { add(s, load(x + i)); });
        sum_blocks<2>(squares, blocks, 0.0, [=](Sum& s, std::size_t i) { add_product(s, load(x + i), load(x + i)); });
        return;
      }
    }
    for (std::size_t lane = 0; lane < kPartialSums; lane += kLanesD) {
      settle(sums, lane, batch.sum[lane / kLanesD], 16.0 * root);
      settle(squares, lane, batch.squares[lane / kLanesD], square_bias);
    }
  });
}

bool same_bits(const double* x, std::size_t n, double value) {
  const Bits bits = (Bits)constant(value);
  std::size_t i = 0;
  for (; i + kStep <= n; i += kStep) {
    const Bits other = ((Bits)load(x + i) ^ bits) | ((Bits)load(x + i + kLanesD) ^ bits);
    std::int64_t any = 0;
    for (std::size_t k = 0; k < kLanesD; ++k) any |= other[k];
    if (any != 0) return false;
  }
  for (; i < n; ++i)
    if (__builtin_memcmp(x + i, &value, sizeof value) != 0) return false;
  return true;
}

}  // namespace

extern const MomentsTable kMoments = {moments, sum, dot, same_bits};

}  // namespace zor::kernels::ZOR_LEVEL
