#include "zor/arrays/matrix_inverse.h"

#include <algorithm>
#include <array>
#include <vector>

#include "zor/arrays/column_pointers_internal.h"
#include "zor/arrays/matrix_product.h"
#include "zor/arrays/shape.h"
#include "zor/arrays/walk_internal.h"
#include "zor/base/feedback.h"
#include "zor/kernels/lu.h"

namespace ZOR_openarrays {

namespace kernels = zor::kernels;

namespace {
bool step_aborts() { return zor::detail::feedback_step_aborts(); }
}  // namespace

Integer InvertArray(TDouble2DArray& A) {
  const auto shape = zor::detail::shape_of(A);
  const std::size_t n = shape.length[0];
  if (n == 0 || n != shape.length[1]) return kNotInvertible;
  if (AbortMathProc) return kInverseAborted;
  // A feedback procedure may reassign A: the work goes on in cells of its own.
  TDouble2DArray factors, inverse;
  if (zor::detail::DynArrayAccess::has_own(A, n, n)) {
    factors = A;
  } else {
    zor::detail::set_length_unset(factors, n, n);
    for (std::size_t c = 0; c < n; ++c) std::copy_n(A[c].data(), n, factors[c].data());
  }
  zor::detail::set_length_unset(inverse, n, n);
  const std::vector<Double*> columns = zor::detail::column_pointers(factors);
  std::vector<std::size_t> exchanges(n);
  const kernels::Factored outcome = kernels::factor_scaled(columns.data(), n, exchanges.data(), step_aborts);
  const bool done = outcome == kernels::Factored::done &&
                    kernels::inverse_of_factors(columns.data(), n, exchanges.data(),
                                                zor::detail::column_pointers(inverse).data(), step_aborts);
  A.swap(done ? inverse : factors);
  return done ? 0 : outcome == kernels::Factored::singular ? kSingular : kInverseAborted;
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
  MultiplyArrays(x, gram, left);
  MultiplyArrays(left, turned, hat);
  H.swap(hat);
  return 0;
}

}  // namespace ZOR_openarrays
