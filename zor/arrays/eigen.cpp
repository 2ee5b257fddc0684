#include "zor/arrays/eigen.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

#include "zor/arrays/walk_internal.h"
#include "zor/kernels/eigen_general.h"
#include "zor/kernels/eigen_symmetric.h"

namespace ZOR_openarrays {
namespace {

namespace kernels = zor::kernels;

/// n columns of n cells, with pointers to them for the kernels.
struct Square {
  TDouble2DArray cells;
  std::vector<Double*> columns;

  explicit Square(std::size_t n) {
    zor::detail::set_length_unset(cells, n, n);
    for (TDoubleArray& column : cells) columns.push_back(column.data());
  }
};

/// What tells whether a matrix is symmetric.
struct Symmetry {
  bool finite = true;
  Double largest = 0.0;     ///< magnitude of a cell
  Double difference = 0.0;  ///< between opposite cells

  explicit Symmetry(const TDouble2DArray& a) {
    for (std::size_t c = 0; c < a.size(); ++c) {
      for (std::size_t r = 0; r <= c; ++r) {
        const Double x = a[c][r], y = a[r][c];
        finite = finite && std::isfinite(x) && std::isfinite(y);
        largest = std::max({largest, std::abs(x), std::abs(y)});
        difference = std::max(difference, std::abs(x - y));
      }
    }
  }
  bool exact() const { return difference == 0.0; }
  bool within_rounding() const { return difference <= 1e-12 * largest; }
};

/// Copies the matrix, opposite cells that differ as their mean.
void copy_symmetric(const TDouble2DArray& a, Square& to) {
  for (std::size_t c = 0; c < a.size(); ++c) {
    for (std::size_t r = 0; r <= c; ++r) {
      const Double x = a[c][r], y = a[r][c];
      to.cells[c][r] = to.cells[r][c] = x == y ? x : x / 2.0 + y / 2.0;
    }
  }
}

/// Eigenvalues and vectors as a kernel gives them: in `vectors` and `values`, of the right sizes.
Integer decompose_symmetric(const TDouble2DArray& a, Square& vectors, TDoubleArray& values) {
  TDoubleArray work;
  zor::detail::set_length_unset(work, kernels::symmetric_eigen_work(a.size()));
  copy_symmetric(a, vectors);
  const bool found = kernels::symmetric_eigen(vectors.columns.data(), a.size(), values.data(), work.data());
  return found ? 0 : kNoConvergence;
}
Integer decompose_general(const TDouble2DArray& a, Square& vectors, TDoubleArray& values) {
  const std::size_t n = a.size();
  TDoubleArray work;
  zor::detail::set_length_unset(work, kernels::general_eigen_work(n));
  std::vector<std::size_t> exchanges(n);
  Square copy(n);
  for (std::size_t c = 0; c < n; ++c) std::copy_n(a[c].data(), n, copy.columns[c]);
  switch (kernels::general_eigen(copy.columns.data(), n, values.data(), vectors.columns.data(), work.data(),
                                 exchanges.data())) {
    case kernels::EigenState::found:
      return 0;
    case kernels::EigenState::not_finite:
      return kNotSymmetric;
    case kernels::EigenState::complex_values:
      return kComplexValues;
    case kernels::EigenState::not_converged:
      break;
  }
  return kNoConvergence;
}

/// -1.0 if the first of the components of largest magnitude is negative, else 1.0.
Double sign_of(const TDoubleArray& x) {
  Double largest = 0.0;
  for (const Double v : x) largest = std::max(largest, std::abs(v));
  const auto first = std::find_if(x.begin(), x.end(), [=](Double v) { return std::abs(v) >= (1.0 - 1e-8) * largest; });
  return first != x.end() && *first < 0.0 ? -1.0 : 1.0;
}

}  // namespace

Integer EigenDecomposition(const TDouble2DArray& A, Boolean Flag, TDouble2DArray& Vectors, TDoubleArray& Values) {
  const auto shape = zor::detail::shape_of(A);
  const std::size_t n = shape.length[0];
  if (shape.empty() || shape.length[1] != n) return kEmptyArray;
  // The columns of Vectors are replaced, and with them a handle that is one of them.
  if (std::any_of(std::as_const(Vectors).begin(), std::as_const(Vectors).end(),
                  [&](const TDoubleArray& column) { return &column == &Values; })) {
    return kValuesInVectors;
  }
  const Symmetry symmetry(A);
  if (!symmetry.finite || (Flag && !symmetry.within_rounding())) return kNotSymmetric;

  Square found(n);
  TDoubleArray values;
  zor::detail::set_length_unset(values, n);
  const bool symmetric = Flag || symmetry.exact();
  const Integer code = symmetric ? decompose_symmetric(A, found, values) : decompose_general(A, found, values);
  if (code != 0) return code;

  std::vector<std::size_t> order(n);
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](std::size_t i, std::size_t k) { return values[i] > values[k]; });
  Square sorted(n);
  TDoubleArray sorted_values;
  zor::detail::set_length_unset(sorted_values, n);
  for (std::size_t i = 0; i < n; ++i) {
    const TDoubleArray& from = found.cells[order[i]];
    const Double sign = sign_of(from);
    sorted_values[i] = values[order[i]];
    std::transform(from.begin(), from.end(), sorted.columns[i], [sign](Double x) { return sign * x; });
  }
  Values.swap(sorted_values);
  Vectors.swap(sorted.cells);
  return 0;
}

}  // namespace ZOR_openarrays
