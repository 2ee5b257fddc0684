#include "zor/arrays/lu.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

#include "zor/arrays/column_pointers_internal.h"
#include "zor/arrays/walk_internal.h"
#include "zor/base/ZOR_zorbase.h"
#include "zor/kernels/lu.h"

namespace ZOR_openarrays {
namespace {

namespace kernels = zor::kernels;

TDouble2DArray copy_of(const TDouble2DArray& a) {
  TDouble2DArray made;
  zor::detail::set_length_unset(made, a.size(), a.size());
  for (std::size_t c = 0; c < a.size(); ++c) std::copy_n(a[c].data(), a.size(), made[c].data());
  return made;
}

/// The largest magnitude of the cells; infinite if one is not finite.
Double largest_cell(const TDouble2DArray& a) {
  Double largest = 0.0;
  for (const TDoubleArray& column : a) {
    for (const Double x : column) {
      if (!std::isfinite(x)) return std::numeric_limits<Double>::infinity();
      largest = std::max(largest, std::fabs(x));
    }
  }
  return largest;
}

/// 0, kEmptyArray or kNotFinite; and the largest magnitude of the cells.
Integer check(const TDouble2DArray& a, Double& largest) {
  const auto shape = zor::detail::shape_of(a);
  if (shape.empty() || shape.length[0] != shape.length[1]) return kEmptyArray;
  largest = largest_cell(a);
  return std::isinf(largest) ? kNotFinite : 0;
}

/// Both triangles in one square, L without its diagonal of ones, and the row of A that stands in each row.
struct Factors {
  TDouble2DArray cells;
  std::vector<std::size_t> row_of_a;
  Integer swaps = 0;
};

/// Without exchanges, if no cell grows too much.
std::optional<Factors> plain_factors(const TDouble2DArray& a, Double largest) {
  constexpr Double kMostGrowth = 1000.0;
  Factors f{copy_of(a), std::vector<std::size_t>(a.size())};
  std::iota(f.row_of_a.begin(), f.row_of_a.end(), std::size_t{0});
  if (!kernels::factor_in_place(zor::detail::column_pointers(f.cells).data(), a.size())) return {};
  const Double limit = kMostGrowth * largest;
  for (std::size_t c = 0; c < a.size(); ++c) {
    const Double* const upper = f.cells[c].data();
    if (!std::all_of(upper, upper + c + 1, [=](Double x) { return std::fabs(x) <= limit; })) return {};
  }
  return f;
}

Factors pivoted_factors(const TDouble2DArray& a) {
  const std::size_t n = a.size();
  Factors f{copy_of(a), std::vector<std::size_t>(n)};
  std::iota(f.row_of_a.begin(), f.row_of_a.end(), std::size_t{0});
  std::vector<std::size_t> exchanges(n);
  kernels::factor_partial(zor::detail::column_pointers(f.cells).data(), n, exchanges.data());
  for (std::size_t j = 0; j < n; ++j) {
    if (exchanges[j] == j) continue;
    std::swap(f.row_of_a[j], f.row_of_a[exchanges[j]]);
    ++f.swaps;
  }
  return f;
}

/// Without exchanges if that goes well.
Factors factors(const TDouble2DArray& a, Double largest) {
  std::optional<Factors> plain = plain_factors(a, largest);
  return plain ? std::move(*plain) : pivoted_factors(a);
}

/// Takes the triangles apart; row r of L goes to row to[r].
void take_apart(Factors& f, const std::vector<std::size_t>& to, TDouble2DArray& l, TDouble2DArray& u) {
  const std::size_t n = f.cells.size();
  TDouble2DArray lower;
  zor::detail::set_length_unset(lower, n, n);
  for (std::size_t c = 0; c < n; ++c) {
    Double *const cells = f.cells[c].data(), *const column = lower[c].data();
    for (std::size_t r = 0; r < c; ++r) column[to[r]] = 0.0;
    column[to[c]] = 1.0;
    for (std::size_t r = c + 1; r < n; ++r) column[to[r]] = cells[r];
    std::fill(cells + c + 1, cells + n, 0.0);
  }
  l.swap(lower), u.swap(f.cells);
}

}  // namespace

Integer LUdecomposition(const TDouble2DArray& A, TDouble2DArray& L, TDouble2DArray& U) {
  if (&L == &U) return kSizeMismatch;
  Double largest = 0.0;
  if (const Integer code = check(A, largest)) return code;
  Factors f = factors(A, largest);
  const bool odd = f.swaps % 2 != 0;
  take_apart(f, f.row_of_a, L, U);
  if (odd) {
    for (Double& x : L[0]) x = -x;
    for (TDoubleArray& column : U) column[0] = -column[0];
  }
  return 0;
}

Integer LUPdecomposition(const TDouble2DArray& A, TDouble2DArray& L, TDouble2DArray& U, TInt2DArray& P,
                         Integer& Swaps) {
  if (&L == &U) return kSizeMismatch;
  Double largest = 0.0;
  if (const Integer code = check(A, largest)) return code;
  Factors f = pivoted_factors(A);
  const std::size_t n = f.cells.size();
  TInt2DArray p;
  SetLength(p, static_cast<Int64>(n), static_cast<Int64>(n));
  for (std::size_t r = 0; r < n; ++r) p[f.row_of_a[r]][r] = 1;
  std::vector<std::size_t> same(n);
  std::iota(same.begin(), same.end(), std::size_t{0});
  take_apart(f, same, L, U);
  P.swap(p);
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
