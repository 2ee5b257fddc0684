#include "zor/analysis/covariance.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "zor/analysis/decomposition_internal.h"
#include "zor/base/feedback.h"
#include "zor/kernels/moments.h"
#include "zor/kernels/product.h"
#include "zor/kernels/sums.h"

namespace ZOR_math2 {
namespace {

using zor::detail::ColumnBlock;
using zor::detail::to_size;

enum CovarMode { raw_moments, covariance, correlation, squared_correlation, squared_differences };

/// The cells (i, j), j <= i, in blocks of rows i that are computed at once.
class Covariances {
 public:
  Covariances(const ColumnBlock& x, Integer mode, std::span<const Double> deviations)
      : x_(x), mode_(mode), deviations_(deviations), reversed_(x.columns.rbegin(), x.columns.rend()) {}

  Double cell(std::size_t i, std::size_t j) {
    const Double divisor = static_cast<Double>(x_.rows - 1);
    switch (mode_) {
      case raw_moments:
      case covariance:
        return sum_of_products(i, j) / divisor;
      case correlation:
        return i == j ? 1.0 : pearson(i, j, divisor);
      case squared_correlation: {
        const Double r = pearson(i, j, divisor);
        return r * r;
      }
      case squared_differences:
        return zor::kernels::squared_distance_in_order(x_[i], x_[j]) / divisor;
      default:
        return 0.0;
    }
  }

 private:
  static constexpr std::size_t kBlock = 32;

  Double pearson(std::size_t i, std::size_t j, Double divisor) {
    const Double d = deviations_[i] * deviations_[j];
    return d == 0.0 ? 0.0 : sum_of_products(i, j) / d / divisor;
  }

  Double sum_of_products(std::size_t i, std::size_t j) {
    const std::size_t count = x_.size(), low = i / kBlock * kBlock;
    const std::size_t high = std::min(low + kBlock, count);
    if (low != block_) {
      block_ = low;
      // The kernel gives each column with those behind it: with the columns in reverse, with those in front of it.
      products_ = ColumnBlock(high, high - low);
      zor::kernels::gram(reversed_.data(), x_.rows, count, count - high, count - low, products_.columns.data());
    }
    // The pair (a, b), a >= b, of reversed columns from count - high on.
    return products_.columns[high - 1 - j][high - 1 - i];
  }

  const ColumnBlock& x_;
  Integer mode_;
  std::span<const Double> deviations_;
  std::vector<const Double*> reversed_;
  ColumnBlock products_{0, 0};
  std::size_t block_ = static_cast<std::size_t>(-1);
};

/// Leaves x centred where the mode wants it; the standard deviations of its columns, 0.0 of constant ones.
std::vector<Double> center(ColumnBlock& x, bool change) {
  std::vector<Double> deviations(x.size());
  for (std::size_t c = 0; c < x.size(); ++c) {
    const zor::kernels::MeanVar moments = zor::kernels::mean_variance(x[c]);
    deviations[c] = std::sqrt(moments.variance);
    if (!change) continue;
    for (Double& cell : x[c]) cell -= moments.mean;
  }
  return deviations;
}

struct Range {
  Integer first, last;
  /// (0, 0) means all.
  Range(Integer low, Integer high, Integer size) : first(low), last(high) {
    if (low == 0 && high == 0) first = 1, last = size;
    if (first < 1 || last > size || first > last) last = first - 1;
  }
  std::size_t size() const { return static_cast<std::size_t>(last - first + 1); }
};

}  // namespace

Boolean CalcCovar(const TMatrix* InMat, TMatrix* CovMat, Integer FirstCol, Integer LastCol, Integer FirstRow,
                  Integer LastRow, Integer Mode) {
  AbortMathProc = false;
  if (!InMat || !CovMat || InMat == CovMat) return false;
  const Range cols(FirstCol, LastCol, InMat->NrOfColumns()), rows(FirstRow, LastRow, InMat->NrOfRows());
  const std::size_t c = cols.size(), n = rows.size();
  if (c < 1 || n < 2 || to_size(CovMat->NrOfColumns()) < c || to_size(CovMat->NrOfRows()) < c) return false;

  ColumnBlock x(*InMat, cols.first, c, rows.first, n);
  std::vector<Double> deviations;
  if (Mode > 0) {
    zor::detail::feedback_steps(n);
    deviations = center(x, Mode <= squared_correlation);
  }
  ColumnBlock results(c, c);
  Covariances covariances(x, Mode, deviations);
  std::size_t found = 0;
  for (std::size_t i = 0; i < c && !AbortMathProc; ++i) {
    for (std::size_t j = 0; j <= i && !AbortMathProc; ++j, ++found) {
      zor::detail::feedback_step(static_cast<Double>(n));
      results.columns[i][j] = covariances.cell(i, j);
    }
  }
  // A feedback procedure may have made CovMat smaller.
  if (to_size(CovMat->NrOfColumns()) < c || to_size(CovMat->NrOfRows()) < c) return false;
  auto edit = CovMat->Edit();
  for (std::size_t i = 0, left = found; i < c; ++i) {
    for (std::size_t j = 0; j <= i && left > 0; ++j, --left) {
      edit.Column(static_cast<Integer>(i + 1))[j] = edit.Column(static_cast<Integer>(j + 1))[i] = results.columns[i][j];
    }
  }
  return !AbortMathProc;
}

}  // namespace ZOR_math2
