#include "zor/arrays/standardize.h"

#include <algorithm>
#include <cmath>
#include <type_traits>
#include <vector>

#include "zor/arrays/walk_internal.h"
#include "zor/kernels/moments.h"
#include "zor/kernels/sums.h"
#include "zor/scalar/correlation_internal.h"

namespace ZOR_openarrays {
namespace {

namespace kernels = zor::kernels;
using Series = std::span<Double>;

enum class Along { kColumns, kRows };

/// Calls change(cells of column c) for each column.
template <class Change>
void for_series_along(std::integral_constant<Along, Along::kColumns>, TDouble2DArray& a, Change change) {
  for (TDoubleArray& column : a) change(Series(column.data(), column.size()));
}
/// The same for rows. As many as share a cache line are gathered, changed, and put back.
template <class Change>
void for_series_along(std::integral_constant<Along, Along::kRows>, TDouble2DArray& a, Change change) {
  constexpr std::size_t kBlock = 8;
  const std::size_t columns = a.size(), rows = a[0].size();
  std::vector<Double> work(kBlock * columns);
  for (std::size_t from = 0; from < rows; from += kBlock) {
    const std::size_t count = std::min(kBlock, rows - from);
    for (std::size_t c = 0; c < columns; ++c) {
      for (std::size_t r = 0; r < count; ++r) work[r * columns + c] = a[c][from + r];
    }
    for (std::size_t r = 0; r < count; ++r) change(Series(work).subspan(r * columns, columns));
    for (std::size_t c = 0; c < columns; ++c) {
      for (std::size_t r = 0; r < count; ++r) a[c][from + r] = work[r * columns + c];
    }
  }
}
template <Along along, class Change>
void for_series(TDouble2DArray& a, Change change) {
  for_series_along(std::integral_constant<Along, along>{}, a, change);
}

template <Along along>
Integer normalize(TDouble2DArray& a) {
  if (zor::detail::shape_of(a).empty()) return kEmptyArray;
  Integer code = 0;
  for_series<along>(a, [&](Series x) {
    const Double squares = kernels::sum_of_squares_in_order(x);
    if (squares == 0.0) {
      code = kZeroSeries;
      return;
    }
    const Double length = std::sqrt(squares);
    for (Double& cell : x) cell /= length;
  });
  return code;
}

template <Along along>
void center(TDouble2DArray& a, TDoubleArray& result) {
  const auto shape = zor::detail::shape_of(a);
  if (shape.empty()) return;
  TDoubleArray means;
  zor::detail::set_length_unset(means, shape.length[along == Along::kRows ? 1 : 0]);
  Double* to = means.data();
  for_series<along>(a, [&](Series x) {
    const Double mean = kernels::mean_of_sum(kernels::sum_twofold(x), x.size());
    for (Double& cell : x) cell -= mean;
    *to++ = mean;
  });
  if (!result.empty()) result.swap(means);
}

}  // namespace

Integer NormalizeColumns(TDouble2DArray& A) { return normalize<Along::kColumns>(A); }
Integer NormalizeRows(TDouble2DArray& A) { return normalize<Along::kRows>(A); }

void MeanCenterColumnsOfArray(TDouble2DArray A, TDoubleArray& Means) { center<Along::kColumns>(A, Means); }
void MeanCenterRowsOfArray(TDouble2DArray A, TDoubleArray& Means) { center<Along::kRows>(A, Means); }

Double PearsonCorrCoeffColsOfArray(const TDouble2DArray& A, Integer Col1, Integer Col2) {
  const auto shape = zor::detail::shape_of(A);
  const auto outside = [&](Integer c) { return c < 0 || static_cast<std::size_t>(c) >= shape.length[0]; };
  if (shape.length[1] < 3 || outside(Col1) || outside(Col2)) return 0.0;
  const kernels::PairMoments moments = kernels::pair_moments(A[Col1], A[Col2]);
  if (!(moments.sxx > 0.0) || !(moments.syy > 0.0)) return 0.0;
  return zor::detail::correlation(moments);
}

}  // namespace ZOR_openarrays
