#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "zor/export.h"
#include "zor/kernels/steps.h"

/// \file  Triangular factors of square matrices, and the inverse from them.
/// Columns are given by pointers, a[c][r] is the cell in row r of column c. A matrix is replaced by its factors: L
/// below the diagonal, whose own diagonal of ones is not stored, and U. Each cell is one running difference, its terms
/// in ascending order, as in the loops of Crout, whatever the blocks of the method: halves by recursion (Toledo,
/// Locality of reference in LU decomposition with partial pivoting, 1997) on the product of product.h, which also tells
/// when terms are fused. Without that, all levels give the same bits. exchanges[j] is the row that was exchanged with
/// row j before column j was divided by its pivot. The factorisations allocate some work space on the way:
/// std::bad_alloc leaves the matrix partly factored.

namespace zor::kernels {

enum class Factored { done, singular, aborted };

/// Scaled partial pivoting: the pivot is the cell with the largest |cell| / (largest magnitude of its row in the whole
/// matrix), the last one of equals. `singular` leaves the matrix alone if a row holds no magnitude above 0; else
/// pivots below 1e-100 in magnitude were replaced by 1e-100, or a column held no number to compare. `step` is called
/// before each column.
ZOR_API Factored factor_scaled(double* const* a, std::size_t n, std::size_t* exchanges, StepAborts step);

/// Partial pivoting: the largest magnitude of the column, the first of equals. A pivot 0 leaves its column undivided;
/// it then holds zeros.
ZOR_API void factor_partial(double* const* a, std::size_t n, std::size_t* exchanges);

/// The largest magnitudes that the cells of L and of U may have.
struct Growth {
  double lower, upper;
};

/// No exchange of rows. False, with the matrix partly factored, as soon as a cell of L or U is not a number within
/// `most`; so, too, where a pivot is 0 with a cell other than 0 below it.
ZOR_API bool factor_in_place(double* const* a, std::size_t n, Growth most);

/// Work space of inverse_of_factors for a matrix of n columns.
class ZOR_API InverseWork {
 public:
  explicit InverseWork(std::size_t n);

 private:
  friend bool inverse_of_factors(double* const*, std::size_t, const std::size_t*, double* const*, StepAborts,
                                 InverseWork&);
  std::unique_ptr<double[]> triangles_, block_;
  std::vector<std::size_t> unit_of_row_;
  std::vector<double*> columns_;
};

/// The inverse of the matrix whose factors are `lu`, into `inverse`; allocates nothing. `step` is called once for each
/// column of it; false if it asked for an end. Unit vectors are substituted: forward, then backward, with the terms of
/// each cell in ascending order.
ZOR_API bool inverse_of_factors(double* const* lu, std::size_t n, const std::size_t* exchanges, double* const* inverse,
                                StepAborts step, InverseWork& work);

/// The same with work space that is asked for here; std::bad_alloc, with the inverse untouched.
inline bool inverse_of_factors(double* const* lu, std::size_t n, const std::size_t* exchanges, double* const* inverse,
                               StepAborts step) {
  InverseWork work(n);
  return inverse_of_factors(lu, n, exchanges, inverse, step, work);
}

}  // namespace zor::kernels
