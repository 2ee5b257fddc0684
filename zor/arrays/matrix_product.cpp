#include "zor/arrays/matrix_product.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "zor/arrays/column_pointers_internal.h"
#include "zor/arrays/walk_internal.h"
#include "zor/kernels/elementwise.h"
#include "zor/kernels/product.h"

namespace ZOR_openarrays {
namespace {

using zor::detail::column_pointers;
using zor::detail::Shape;

/// The matrix as doubles.
const TDouble2DArray& as_doubles(const TDouble2DArray& a) { return a; }
TDouble2DArray as_doubles(const TInt2DArray& a) {
  TDouble2DArray made;
  zor::detail::set_length_unset(made, a.size(), a[0].size());
  for (std::size_t c = 0; c < a.size(); ++c) {
    for (std::size_t r = 0; r < a[c].size(); ++r) made[c][r] = a[c][r];
  }
  return made;
}

void multiply(const TDouble2DArray& a, const TDouble2DArray& b, TDouble2DArray& c) {
  using zor::kernels::Form;
  zor::kernels::multiply(column_pointers(a).data(), Form::plain, column_pointers(b).data(), Form::plain,
                         column_pointers(c).data(), c[0].size(), c.size(), a.size());
}

void multiply(const TInt2DArray& a, const TInt2DArray& b, TInt2DArray& c) {
  const std::size_t rows = c[0].size();
  std::vector<std::uint32_t> sums(rows);
  for (std::size_t column = 0; column < c.size(); ++column) {
    sums.assign(rows, 0);
    for (std::size_t k = 0; k < a.size(); ++k) {
      const Integer* const cells = a[k].data();
      const auto factor = static_cast<std::uint32_t>(b[column][k]);
      for (std::size_t r = 0; r < rows; ++r) sums[r] += static_cast<std::uint32_t>(cells[r]) * factor;
    }
    for (std::size_t r = 0; r < rows; ++r) c[column][r] = static_cast<Integer>(sums[r]);
  }
}

/// Checks the sizes and hands the result on, which is a new array if it is one of the factors.
template <class A, class B, class C>
Integer product(const A& a, const B& b, C& c) {
  const auto shape_a = zor::detail::shape_of(a), shape_b = zor::detail::shape_of(b);
  if (shape_a.empty() || shape_b.empty()) return kEmptyArray;
  if (shape_a.length[0] != shape_b.length[1]) return kSizeMismatch;
  const Shape<2> shape{{shape_b.length[0], shape_a.length[1]}};
  const auto write = [&](C& result) {
    if constexpr (std::same_as<CellType<C>, Double>)
      multiply(as_doubles(a), as_doubles(b), result);
    else
      multiply(a, b, result);
  };
  const void* const result = &c;
  if (result == &a || result == &b) {
    C made;
    zor::detail::write_result(made, shape, write);
    c.swap(made);
  } else {
    zor::detail::write_result(c, shape, write);
  }
  return 0;
}

template <class V, class M>
Integer outer_product(const V& a, const V& b, M& c) {
  if (a.empty() || b.empty()) return kEmptyArray;
  const Shape<2> shape{{b.size(), a.size()}};
  const auto write = [&](M& result) {
    for (std::size_t column = 0; column < b.size(); ++column) zor::kernels::scale(a, b[column], result[column]);
  };
  const auto is_factor = [&](const auto& column) { return column.data() == a.data() || column.data() == b.data(); };
  if (std::any_of(std::as_const(c).begin(), std::as_const(c).end(), is_factor)) {
    M made;
    zor::detail::write_result(made, shape, write);
    c.swap(made);
  } else {
    zor::detail::write_result(c, shape, write);
  }
  return 0;
}

}  // namespace

Integer MultiplyArrays(const TDouble2DArray& A, const TDouble2DArray& B, TDouble2DArray& C) { return product(A, B, C); }
Integer MultiplyArrays(const TDouble2DArray& A, const TInt2DArray& B, TDouble2DArray& C) { return product(A, B, C); }
Integer MultiplyArrays(const TInt2DArray& A, const TDouble2DArray& B, TDouble2DArray& C) { return product(A, B, C); }
Integer MultiplyArrays(const TInt2DArray& A, const TInt2DArray& B, TInt2DArray& C) { return product(A, B, C); }
Integer MultiplyArrays(const TDoubleArray& A, const TDoubleArray& B, TDouble2DArray& C) {
  return outer_product(A, B, C);
}
Integer MultiplyArrays(const TIntArray& A, const TIntArray& B, TInt2DArray& C) { return outer_product(A, B, C); }

}  // namespace ZOR_openarrays
