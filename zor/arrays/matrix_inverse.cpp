#include "zor/arrays/matrix_inverse.h"

#include <new>
#include <vector>

#include "zor/arrays/column_pointers_internal.h"
#include "zor/arrays/copy_cells_internal.h"
#include "zor/arrays/matrix_product.h"
#include "zor/arrays/shape.h"
#include "zor/arrays/walk_internal.h"
#include "zor/base/feedback.h"
#include "zor/kernels/lu.h"

namespace ZOR_openarrays {

namespace kernels = zor::kernels;

namespace {
bool step_aborts() { return zor::detail::feedback_step_aborts(); }

/// The factors of columns in place. The work space of the products in it is asked for on the way: without it the
/// columns get back what they held, which `aside`, of the same size, keeps so long.
kernels::Factored factor_or_restore(const std::vector<Double*>& columns, const std::vector<Double*>& aside,
                                    std::vector<std::size_t>& exchanges) {
  const std::size_t n = columns.size();
  for (std::size_t c = 0; c < n; ++c) zor::detail::copy_run(columns[c], n, aside[c]);
  try {
    return kernels::factor_scaled(columns.data(), n, exchanges.data(), step_aborts);
  } catch (const std::bad_alloc&) {
    for (std::size_t c = 0; c < n; ++c) zor::detail::copy_run(aside[c], n, columns[c]);
    throw;
  }
}
}  // namespace

Integer InvertArray(TDouble2DArray& A) {
  const auto shape = zor::detail::shape_of(A);
  const std::size_t n = shape.length[0];
  if (n == 0 || n != shape.length[1]) return kNotInvertible;
  if (AbortMathProc) return kInverseAborted;
  // A feedback procedure may give A or its columns another size: the work keeps hold of the cells of now.
  std::vector<TDoubleArray> held(A.begin(), A.end());
  std::vector<Double*> columns;
  for (TDoubleArray& column : held) columns.push_back(column.data());
  TDouble2DArray inverse;
  zor::detail::set_length_unset(inverse, n, n);
  const std::vector<Double*> to = zor::detail::column_pointers(inverse);
  std::vector<std::size_t> exchanges(n);
  kernels::InverseWork work(n);
  switch (factor_or_restore(columns, to, exchanges)) {
    case kernels::Factored::singular:
      return kSingular;
    case kernels::Factored::aborted:
      return kInverseAborted;
    case kernels::Factored::done:
      break;
  }
  if (!kernels::inverse_of_factors(columns.data(), n, exchanges.data(), to.data(), step_aborts, work))
    return kInverseAborted;
  if (zor::detail::shape_of(A) != shape) return kNotInvertible;
  for (std::size_t c = 0; c < n; ++c) zor::detail::copy_run(inverse[c].data(), n, A[c].data());
  return 0;
}

Integer CalcHatMatrix(const TDouble2DArray& X, TDouble2DArray& H) {
  if (&X == &H) return kSizeMismatch;
  const auto shape = zor::detail::shape_of(X);
  if (shape.empty()) return kEmptyArray;
  if (shape.length[1] < shape.length[0]) return kSingular;
  const TDouble2DArray x = X;  // a feedback procedure may reassign X
  TDouble2DArray turned, gram, left, hat;
  zor::detail::set_length_unset(turned, shape.length[1], shape.length[0]);
  for (std::size_t c = 0; c < x.size(); ++c) {
    for (std::size_t r = 0; r < x[c].size(); ++r) turned[r][c] = x[c][r];
  }
  MultiplyArrays(turned, x, gram);
  if (const Integer code = InvertArray(gram)) return code;
  // The inversion's feedback may have given a column of X another size.
  if (const Integer code = MultiplyArrays(x, gram, left)) return code;
  if (const Integer code = MultiplyArrays(left, turned, hat)) return code;
  H.swap(hat);
  return 0;
}

}  // namespace ZOR_openarrays
