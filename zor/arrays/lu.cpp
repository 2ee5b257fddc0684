#include "zor/arrays/lu.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>
#include <vector>

#include "zor/arrays/column_pointers_internal.h"
#include "zor/arrays/walk_internal.h"
#include "zor/base/ZOR_zorbase.h"
#include "zor/kernels/lu.h"
#include "zor/kernels/reflections.h"

namespace ZOR_openarrays {
namespace {

namespace kernels = zor::kernels;

void copy_cells(const TDouble2DArray& a, TDouble2DArray& to) {
  for (std::size_t c = 0; c < a.size(); ++c) std::copy_n(a[c].data(), a.size(), to[c].data());
}

/// The largest magnitude of the cells; infinite or NaN if one is not finite.
Double largest_cell(const TDouble2DArray& a) {
  Double largest = 0.0;
  for (const TDoubleArray& column : a) {
    const Double in_column = kernels::largest_magnitude(column.data(), column.size());
    if (!(in_column <= largest)) largest = in_column;
    if (!std::isfinite(largest)) break;
  }
  return largest;
}

/// 0, kEmptyArray or kNotFinite; and the largest magnitude of the cells.
Integer check(const TDouble2DArray& a, Double& largest) {
  const auto shape = zor::detail::shape_of(a);
  if (shape.empty() || shape.length[0] != shape.length[1]) return kEmptyArray;
  largest = largest_cell(a);
  return std::isfinite(largest) ? 0 : kNotFinite;
}

/// Both triangles in one square, L without its diagonal of ones, and the row of A that stands in each row.
struct Factors {
  TDouble2DArray cells;
  std::vector<std::size_t> row_of_a;
  Integer swaps = 0;
};

/// Room for the factors of a.
Factors unset_factors(const TDouble2DArray& a) {
  Factors f{{}, std::vector<std::size_t>(a.size())};
  zor::detail::set_length_unset(f.cells, a.size(), a.size());
  std::iota(f.row_of_a.begin(), f.row_of_a.end(), std::size_t{0});
  return f;
}

/// Without exchanges; false if a cell grows too much. A pivot of rounding noise shows in L, an unlucky one in U.
bool factor_plain(const TDouble2DArray& a, Double largest, Factors& f) {
  constexpr Double kMostGrowth = 100.0;
  const Double upper = std::min(kMostGrowth * largest, std::numeric_limits<Double>::max());
  copy_cells(a, f.cells);
  return kernels::factor_in_place(zor::detail::column_pointers(f.cells).data(), a.size(), {kMostGrowth, upper});
}

void factor_pivoted(const TDouble2DArray& a, Factors& f) {
  const std::size_t n = a.size();
  copy_cells(a, f.cells);
  std::vector<std::size_t> exchanges(n);
  kernels::factor_partial(zor::detail::column_pointers(f.cells).data(), n, exchanges.data());
  for (std::size_t j = 0; j < n; ++j) {
    if (exchanges[j] == j) continue;
    std::swap(f.row_of_a[j], f.row_of_a[exchanges[j]]);
    ++f.swaps;
  }
}

/// Without exchanges if that goes well.
Factors factors(const TDouble2DArray& a, Double largest) {
  Factors f = unset_factors(a);
  if (!factor_plain(a, largest, f)) factor_pivoted(a, f);
  return f;
}

/// Leaves U in the square and gives L; row r of it goes to row to[r].
TDouble2DArray take_out_lower(TDouble2DArray& cells, const std::vector<std::size_t>& to) {
  const std::size_t n = cells.size();
  TDouble2DArray l;
  zor::detail::set_length_unset(l, n, n);
  for (std::size_t c = 0; c < n; ++c) {
    Double* const from = cells[c].data();
    Double* const column = l[c].data();
    for (std::size_t r = 0; r < c; ++r) column[to[r]] = 0.0;
    column[to[c]] = 1.0;
    for (std::size_t r = c + 1; r < n; ++r) column[to[r]] = std::exchange(from[r], 0.0);
  }
  return l;
}

}  // namespace

Integer LUdecomposition(const TDouble2DArray& A, TDouble2DArray& L, TDouble2DArray& U) {
  if (&L == &U) return kSizeMismatch;
  Double largest = 0.0;
  if (const Integer code = check(A, largest)) return code;
  Factors f = factors(A, largest);
  if (!std::isfinite(largest_cell(f.cells))) return kNotFinite;
  TDouble2DArray l = take_out_lower(f.cells, f.row_of_a);
  if (f.swaps % 2 != 0) {
    for (Double& x : l[0]) x = 0.0 - x;
    for (TDoubleArray& column : f.cells) column[0] = 0.0 - column[0];
  }
  L.swap(l), U.swap(f.cells);
  return 0;
}

Integer LUPdecomposition(const TDouble2DArray& A, TDouble2DArray& L, TDouble2DArray& U, TInt2DArray& P,
                         Integer& Swaps) {
  if (&L == &U) return kSizeMismatch;
  Double largest = 0.0;
  if (const Integer code = check(A, largest)) return code;
  Factors f = unset_factors(A);
  factor_pivoted(A, f);
  if (!std::isfinite(largest_cell(f.cells))) return kNotFinite;
  const std::size_t n = A.size();
  std::vector<std::size_t> same(n);
  std::iota(same.begin(), same.end(), std::size_t{0});
  TDouble2DArray l = take_out_lower(f.cells, same);
  TInt2DArray p;
  SetLength(p, static_cast<Int64>(n), static_cast<Int64>(n));
  for (std::size_t r = 0; r < n; ++r) p[f.row_of_a[r]][r] = 1;
  L.swap(l), U.swap(f.cells), P.swap(p);
  Swaps = f.swaps;
  return 0;
}

Double Determinant(const TDouble2DArray& A) {
  Double largest = 0.0;
  const Integer code = check(A, largest);
  if (code == kEmptyArray) return 0.0;
  if (code != 0) return std::numeric_limits<Double>::quiet_NaN();
  const Factors f = factors(A, largest);
  Double product = f.swaps % 2 != 0 ? -1.0 : 1.0;
  for (std::size_t i = 0; i < f.cells.size(); ++i) product *= f.cells[i][i];
  return product;
}

}  // namespace ZOR_openarrays
