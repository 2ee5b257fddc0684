#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "zor/export.h"

/// \file  One-pass sums, sums of squares and of products with twice the precision of a double, and what follows from
/// them: mean, variance, covariance.
///
/// Cell i goes to partial sum i mod 32. A partial sum is a pair (hi, lo): `hi` takes the cells, `lo` collects the
/// rounding errors of the additions (TwoSum of Knuth and Dekker; Ogita, Rump, Oishi, Accurate sum and dot product,
/// 2005) and of the products, which are exact. The partial sums are folded in one fixed order and the formula is
/// evaluated on pairs, so that the result is rounded once. Relative error of a sum: 2^-53 + about 2^-98 sum|x| / |sum
/// x|; of a variance: 2^-52 + about 2^-98 Q / (Q - S S / n). All levels give the same bits. Products fused with a
/// subtraction appear where the processor has them: there they give the exact error, as the longer way does elsewhere.
///
/// Limits: the error of a product below 2^-960 is dropped (cells below 3e-145 are squared in plain precision). A sum
/// that overflows or meets infinity or NaN is the plain sum of its partial sums, infinity or NaN, and the formula is
/// then the plain one: infinite cells give NaN as variance. (Finite cells whose partial sums overflow with both signs
/// give NaN where a single chain might give infinity.)

namespace zor::kernels {

/// hi + lo, unevaluated; |lo| is at most half a unit in the last place of hi.
struct DoubleDouble {
  double hi = 0.0;
  double lo = 0.0;
};

/// Number of partial sums, whatever the width of the registers.
inline constexpr std::size_t kPartialSums = 32;

/// Partial sums of one quantity.
struct alignas(64) PartialSums {
  double hi[kPartialSums] = {};
  double lo[kPartialSums] = {};
};

/// Sum and sum of squares of the cells seen so far. May be fed run by run: the result is that of one long run, up to
/// the error named above.
struct MomentSums {
  PartialSums sum;
  PartialSums squares;
  std::size_t n = 0;
  double first = 0.0;     ///< the first cell seen
  bool all_equal = true;  ///< every cell has the bits of the first
};

/// n, sum / n, and (Q - S S / n) / (n - 1), never negative, exactly 0.0 for finite data that are all equal. The mean of
/// such data is their value. n = 0 gives 0.0 for both, n = 1 variance 0.0. NaN stays NaN.
struct MeanVar {
  std::size_t n = 0;
  double mean = 0.0;
  double variance = 0.0;
};

/// Takes the cells of x in.
ZOR_API void accumulate(MomentSums& sums, std::span<const double> x) noexcept;

/// Mean and variance of all cells taken in.
ZOR_API MeanVar mean_variance(const MomentSums& sums) noexcept;

/// Mean and variance of x.
ZOR_API MeanVar mean_variance(std::span<const double> x) noexcept;
ZOR_API MeanVar mean_variance(std::span<const std::int32_t> x) noexcept;

/// The total of partial sums; `lo` is 0 where `hi` is not finite.
ZOR_API DoubleDouble fold(const PartialSums& sums) noexcept;

/// Sum of x[i], with twice the precision.
ZOR_API DoubleDouble sum_twofold(std::span<const double> x) noexcept;

/// Sum of x[i] * y[i], with twice the precision. Both have the same length.
ZOR_API DoubleDouble dot_twofold(std::span<const double> x, std::span<const double> y) noexcept;

/// a - b c / n, evaluated on pairs and rounded once: a sum of squares or products less its mean part. Needs n > 0.
ZOR_API double centered(DoubleDouble a, DoubleDouble b, DoubleDouble c, std::size_t n) noexcept;

/// sum / n, rounded once. Needs n > 0.
inline double mean_of_sum(DoubleDouble sum, std::size_t n) noexcept { return centered({}, sum, {-1.0, 0.0}, n); }

/// Sums over pairs of cells. May be fed run by run.
struct PairSums {
  MomentSums x;
  MomentSums y;
  PartialSums products;
};

/// The sums Sx, Sy, Sxx, Syy, Sxy, each rounded once, and the centred ones, cxx = Sxx - Sx Sx / n and the like, each
/// evaluated on pairs and rounded once. cxx, cyy are never negative; where all x (all y) are equal and finite, cxx
/// (cyy) and cxy are exactly 0.0. n = 0 gives zeros.
struct PairMoments {
  std::size_t n = 0;
  double sx = 0.0, sy = 0.0, sxx = 0.0, syy = 0.0, sxy = 0.0;
  double cxx = 0.0, cyy = 0.0, cxy = 0.0;
};

/// Takes the pairs (x[i], y[i]) in. Both have the same length.
ZOR_API void accumulate(PairSums& sums, std::span<const double> x, std::span<const double> y) noexcept;
ZOR_API PairMoments pair_moments(const PairSums& sums) noexcept;
ZOR_API PairMoments pair_moments(std::span<const double> x, std::span<const double> y) noexcept;

/// Sums of d, d^2, d^3 = d^2 d, d^4 = d^2 d^2 with d = x[i] - mean.
struct CentralSums {
  double d1 = 0.0, d2 = 0.0, d3 = 0.0, d4 = 0.0;
};

/// Adds the cells of x in order, four plain chains: the bits of the plain loop.
ZOR_API void accumulate_in_order(CentralSums& sums, std::span<const double> x, double mean) noexcept;

}  // namespace zor::kernels
