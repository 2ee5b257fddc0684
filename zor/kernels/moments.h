#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "zor/export.h"

/// \file  Sums, sums of squares and of products with twice the precision of a double, and what follows from them: mean,
/// variance, covariance. One pass, and a second one over data whose spread is small beside their size.
///
/// Cell i goes to partial sum i mod 32. A partial sum is a pair (hi, lo): `hi` takes the cells, `lo` collects the
/// rounding errors of the additions (TwoSum of Knuth and Dekker; Ogita, Rump, Oishi, Accurate sum and dot product,
/// 2005) and of the products, which are exact. The partial sums are folded in one fixed order and the formula is
/// evaluated on pairs, so that the result is rounded once. Relative error of a sum: 2^-53 + about 2^-98 sum|x| / |sum
/// x|; of a variance in one pass: 2^-52 + about 2^-98 Q / (Q - S S / n). Where the second term comes above 2^-53, the
/// functions that see the cells pass over them again, taken about their mean as a double: those differences are exact,
/// and the variance has 2^-52 whatever the offset. All levels give the same bits. Products fused with a
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

/// Takes the cells of x in; or x[i] - origin.
ZOR_API void accumulate(MomentSums& sums, std::span<const double> x) noexcept;
ZOR_API void accumulate(MomentSums& sums, std::span<const double> x, double origin) noexcept;
ZOR_API void accumulate(MomentSums& sums, std::span<const std::int32_t> x, double origin = 0.0) noexcept;

/// Mean and variance of all cells taken in, in one pass.
ZOR_API MeanVar mean_variance(const MomentSums& sums) noexcept;

/// Whether one pass leaves the variance fewer than 53 bits: the deviations are below 2^-45 of the squares.
ZOR_API bool loses_bits(const MomentSums& sums) noexcept;

/// Mean and variance of the cells that for_runs(take) hands to take(span of doubles or integers), run by run. Where one
/// pass loses bits, for_runs is called once more and must hand out the same cells.
template <class ForRuns>
MeanVar mean_variance_of_runs(ForRuns for_runs) {
  MomentSums sums;
  for_runs([&](auto x) { accumulate(sums, x); });
  MeanVar result = mean_variance(sums);
  if (!loses_bits(sums)) return result;
  MomentSums about_mean;
  for_runs([&](auto x) { accumulate(about_mean, x, result.mean); });
  result.variance = mean_variance(about_mean).variance;
  return result;
}

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

/// Takes the pairs (x[i], y[i]) in; or (x[i] - x_origin, y[i] - y_origin). Both have the same length.
ZOR_API void accumulate(PairSums& sums, std::span<const double> x, std::span<const double> y) noexcept;
ZOR_API void accumulate(PairSums& sums, std::span<const double> x, std::span<const double> y, double x_origin,
                        double y_origin) noexcept;
/// In one pass.
ZOR_API PairMoments pair_moments(const PairSums& sums) noexcept;

/// The moments of the pairs that for_runs(take) hands to take(x, y), run by run. Where one pass leaves a centred sum of
/// squares fewer than 53 bits, for_runs is called once more and must hand out the same cells.
template <class ForRuns>
PairMoments pair_moments_of_runs(ForRuns for_runs) {
  PairSums sums;
  for_runs([&](std::span<const double> x, std::span<const double> y) { accumulate(sums, x, y); });
  PairMoments m = pair_moments(sums);
  const bool x_loses = loses_bits(sums.x), y_loses = loses_bits(sums.y);
  if (!x_loses && !y_loses) return m;
  // Only where the spread is small are differences from the mean exact.
  const double x_origin = x_loses ? mean_variance(sums.x).mean : 0.0;
  const double y_origin = y_loses ? mean_variance(sums.y).mean : 0.0;
  PairSums about;
  for_runs([&](std::span<const double> x, std::span<const double> y) { accumulate(about, x, y, x_origin, y_origin); });
  const PairMoments centred = pair_moments(about);
  m.cxx = centred.cxx, m.cyy = centred.cyy, m.cxy = centred.cxy;
  return m;
}

ZOR_API PairMoments pair_moments(std::span<const double> x, std::span<const double> y) noexcept;

/// Sums of d, d^2, d^3 = d^2 d, d^4 = d^2 d^2 with d = x[i] - mean.
struct CentralSums {
  double d1 = 0.0, d2 = 0.0, d3 = 0.0, d4 = 0.0;
};

/// Adds the cells of x in order, four plain chains: the bits of the plain loop.
ZOR_API void accumulate_in_order(CentralSums& sums, std::span<const double> x, double mean) noexcept;

}  // namespace zor::kernels
