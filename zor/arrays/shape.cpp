#include "zor/arrays/shape.h"

#include <algorithm>
#include <concepts>
#include <vector>

#include "zor/arrays/copy_cells_internal.h"
#include "zor/kernels/rearrange.h"

namespace ZOR_openarrays {
namespace {

using zor::detail::shape_of;

/// Exchanges the cells of two arrays of one shape; their handles stay, and with them the layout of the block.
template <class A>
void swap_cells(A& x, A& y) noexcept {
  if constexpr (kRank<A> == 0) {
    std::swap(x, y);
  } else if constexpr (kRank<A> == 1) {
    std::swap_ranges(x.begin(), x.end(), y.begin());
  } else {
    for (std::size_t i = 0; i < x.size(); ++i) swap_cells(x[i], y[i]);
  }
}

/// Reverses the order along the dimension `depth` levels below the outer one.
template <class A>
void flip(A& a, Integer depth) noexcept {
  if (depth == 0) {
    if constexpr (kRank<A> == 1) return zor::kernels::reverse(std::span<CellType<A>>(a));
    for (std::size_t i = 0, j = a.size(); i + 1 < j; ++i) swap_cells(a[i], a[--j]);
  } else if constexpr (kRank<A> != 1) {
    for (auto& inner : a) flip(inner, depth - 1);
  }
}

/// Puts cell a[c][r] at row(r)[c]; block by block, so that the cache lines of columns and of rows are both used to the
/// end.
template <class A, class Row>
void transpose(const A& a, std::size_t rows, Row row) {
  if constexpr (std::same_as<CellType<A>, Double>) {
    std::vector<const Double*> columns(a.size());
    std::ranges::transform(a, columns.begin(), [](const TDoubleArray& column) { return column.data(); });
    std::vector<Double*> lines(rows);
    for (std::size_t r = 0; r < rows; ++r) lines[r] = row(r);
    return zor::kernels::transpose(columns.data(), columns.size(), lines.data(), rows);
  }
  constexpr std::size_t kBlock = 32;
  const std::size_t cols = a.size();
  for (std::size_t r0 = 0; r0 < rows; r0 += kBlock) {
    const std::size_t r1 = (std::min)(rows, r0 + kBlock);
    for (std::size_t c0 = 0; c0 < cols; c0 += kBlock) {
      const std::size_t c1 = (std::min)(cols, c0 + kBlock);
      const CellType<A>* columns[kBlock];
      for (std::size_t c = c0; c < c1; ++c) columns[c - c0] = a[c].data();
      for (std::size_t r = r0; r < r1; ++r) {
        CellType<A>* out = row(r) + c0;
        for (std::size_t c = 0; c < c1 - c0; ++c) out[c] = columns[c][r];
      }
    }
  }
}

/// Takes out line `index` of dimension `dim`: what lies before it and what lies behind it go into a new array.
template <class A>
Boolean remove(A& a, std::size_t dim, Integer index) {
  const auto shape = shape_of(a);
  if (index < 0 || static_cast<std::size_t>(index) >= shape.length[dim]) return false;
  std::array<std::size_t, 2> size = shape.length;
  --size[dim];
  A made;
  zor::detail::set_length_unset(made, size[0], size[1]);
  std::array<std::size_t, 2> from{}, to{}, count = size;
  count[dim] = static_cast<std::size_t>(index);
  zor::detail::copy_block(a, from.data(), made, to.data(), count.data());
  to[dim] = count[dim];
  from[dim] = to[dim] + 1;
  count[dim] = size[dim] - to[dim];
  zor::detail::copy_block(a, from.data(), made, to.data(), count.data());
  a.swap(made);
  return true;
}

}  // namespace

template <NumArray A>
Integer FlipDimArray(A& a, Integer Dim) {
  if (shape_of(a).empty()) return kEmptyArray;
  if (Dim < 1 || Dim > kRank<A>) return kNoSuchDimension;
  flip(a, Dim - 1);
  return 0;
}

template <class A>
  requires ArrayOf<A, 2, 2, Double, Integer, Boolean>
Integer TransposeArray(A& a) {
  const auto [cols, rows] = shape_of(a).length;
  if (cols == 0) return kEmptyArray;
  A made;
  zor::detail::set_length_unset(made, rows, cols);
  transpose(a, rows, [&](std::size_t r) { return made[r].data(); });
  a.swap(made);
  return 0;
}

template <NumPlane A>
void SerializeArray(const A& a, Boolean ColumnWise, typename A::value_type& Res) {
  using Line = typename A::value_type;
  const auto shape = shape_of(a);
  if (shape.empty()) return;
  const auto [cols, rows] = shape.length;
  Line made;
  zor::detail::set_length_unset(made, shape.cells());
  CellType<A>* out = made.data();
  if (ColumnWise) {
    for (std::size_t c = 0; c < cols; ++c) zor::detail::copy_run(a[c].data(), rows, out + rows * c);
  } else {
    transpose(a, rows, [out, n = cols](std::size_t r) { return out + n * r; });
  }
  Res.swap(made);
}

template <NumPlane A>
Boolean RemoveRow(A& a, Integer Row) {
  return remove(a, 1, Row);
}

template <NumPlane A>
Boolean RemoveColumn(A& a, Integer Col) {
  return remove(a, 0, Col);
}

#define ZOR_PLANE_INSTANCES(A)                                                 \
  template Integer FlipDimArray<A>(A&, Integer);                               \
  template Integer TransposeArray<A>(A&);                                      \
  template void SerializeArray<A>(const A&, Boolean, typename A::value_type&); \
  template Boolean RemoveRow<A>(A&, Integer);                                  \
  template Boolean RemoveColumn<A>(A&, Integer);

ZOR_PLANE_INSTANCES(TDouble2DArray)
ZOR_PLANE_INSTANCES(TInt2DArray)
template Integer TransposeArray<TBool2DArray>(TBool2DArray&);
template Integer FlipDimArray<TDoubleArray>(TDoubleArray&, Integer);
template Integer FlipDimArray<TDouble3DArray>(TDouble3DArray&, Integer);
template Integer FlipDimArray<TDouble4DArray>(TDouble4DArray&, Integer);
template Integer FlipDimArray<TIntArray>(TIntArray&, Integer);
template Integer FlipDimArray<TInt3DArray>(TInt3DArray&, Integer);
template Integer FlipDimArray<TInt4DArray>(TInt4DArray&, Integer);

}  // namespace ZOR_openarrays
