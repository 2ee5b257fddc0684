#include "zor/arrays/copy.h"

#include "zor/arrays/copy_cells_internal.h"

namespace ZOR_openarrays {
namespace {

using zor::detail::Box;
using zor::detail::Shape;
using zor::detail::shape_of;

/// Copies the box that select(shape of src, box) finds, or returns kBadRange where it finds none.
template <std::size_t N, class A, class Select>
Integer copy_box(const A& src, Select select, const std::array<Integer, N>& offset, A& dest) {
  const Shape<N> from = shape_of(src), to = shape_of(dest);
  if (from.empty() || to.empty()) return kEmptyArray;
  Box<N> box;
  if (!select(from, box)) return kBadRange;
  std::array<std::size_t, N> at;
  for (std::size_t d = 0; d < N; ++d) {
    at[d] = static_cast<std::size_t>(offset[d]);
    if (offset[d] < 0 || at[d] >= to.length[d] || box.count[d] > to.length[d] - at[d]) return kBadRange;
  }
  // No order of the walk is right where inner arrays of the source stand at other places of the target.
  const A source = zor::detail::shares_inner(src) ? CopyOf(src) : src;
  zor::detail::copy_block(source, box.low.data(), dest, at.data(), box.count.data());
  return 0;
}

template <std::size_t N, class A>
Integer copy_whole(const A& src, const std::array<Integer, N>& offset, A& dest) {
  const auto all = [](const Shape<N>& shape, Box<N>& box) {
    box = zor::detail::whole(shape);
    return true;
  };
  return copy_box<N>(src, all, offset, dest);
}

template <std::size_t N, class A>
Integer copy_range(const A& src, const std::array<Integer, N>& low, const std::array<Integer, N>& high,
                   const std::array<Integer, N>& offset, A& dest) {
  const auto range = [&](const Shape<N>& shape, Box<N>& box) { return zor::detail::box_of(shape, low, high, box); };
  return copy_box<N>(src, range, offset, dest);
}

}  // namespace

template <class A>
  requires ArrayOf<A, 1, 1, Double, Integer, Boolean>
Integer CopyArray(const Same<A>& Src, Integer DestIx, A& Dest) {
  return copy_whole<1>(Src, {DestIx}, Dest);
}

template <class A>
  requires ArrayOf<A, 2, 2, Double, Integer, Boolean>
Integer CopyArray(const Same<A>& Src, Integer DestCol, Integer DestRow, A& Dest) {
  return copy_whole<2>(Src, {DestCol, DestRow}, Dest);
}

template <class A>
  requires Num<A, 3>
Integer CopyArray(const Same<A>& Src, Integer DestCol, Integer DestRow, Integer DestLayer, A& Dest) {
  return copy_whole<3>(Src, {DestCol, DestRow, DestLayer}, Dest);
}

template <class A>
  requires Num<A, 4>
Integer CopyArray(const Same<A>& Src, Integer DestCol, Integer DestRow, Integer DestLayer, Integer DestSlot, A& Dest) {
  return copy_whole<4>(Src, {DestCol, DestRow, DestLayer, DestSlot}, Dest);
}

template <class A>
  requires Num<A, 1>
Integer CopyArray(const Same<A>& Src, Integer Low, Integer High, Integer DestIx, A& Dest) {
  return copy_range<1>(Src, {Low}, {High}, {DestIx}, Dest);
}

template <class A>
  requires Num<A, 2>
Integer CopyArray(const Same<A>& Src, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Integer DestCol,
                  Integer DestRow, A& Dest) {
  return copy_range<2>(Src, {LowCol, LowRow}, {HighCol, HighRow}, {DestCol, DestRow}, Dest);
}

template <class A>
  requires Num<A, 3>
Integer CopyArray(const Same<A>& Src, Integer LowCol, Integer LowRow, Integer LowLayer, Integer HighCol,
                  Integer HighRow, Integer HighLayer, Integer DestCol, Integer DestRow, Integer DestLayer, A& Dest) {
  return copy_range<3>(Src, {LowCol, LowRow, LowLayer}, {HighCol, HighRow, HighLayer}, {DestCol, DestRow, DestLayer},
                       Dest);
}

template <class A>
  requires Num<A, 4>
Integer CopyArray(const Same<A>& Src, Integer LowCol, Integer LowRow, Integer LowLayer, Integer LowSlot,
                  Integer HighCol, Integer HighRow, Integer HighLayer, Integer HighSlot, Integer DestCol,
                  Integer DestRow, Integer DestLayer, Integer DestSlot, A& Dest) {
  return copy_range<4>(Src, {LowCol, LowRow, LowLayer, LowSlot}, {HighCol, HighRow, HighLayer, HighSlot},
                       {DestCol, DestRow, DestLayer, DestSlot}, Dest);
}

#define ZOR_WHOLE(A, ...) template Integer CopyArray<A>(const A&, __VA_ARGS__, A&);
#define ZOR_INSTANCES(A, ...) \
  ZOR_WHOLE(A, __VA_ARGS__)   \
  template Integer CopyArray<A>(const A&, __VA_ARGS__, __VA_ARGS__, __VA_ARGS__, A&);
#define ZOR_EACH(C)                                    \
  ZOR_INSTANCES(C##Array, Integer)                     \
  ZOR_INSTANCES(C##2DArray, Integer, Integer)          \
  ZOR_INSTANCES(C##3DArray, Integer, Integer, Integer) \
  ZOR_INSTANCES(C##4DArray, Integer, Integer, Integer, Integer)

ZOR_EACH(TDouble)
ZOR_EACH(TInt)
ZOR_WHOLE(TBoolArray, Integer)
ZOR_WHOLE(TBool2DArray, Integer, Integer)

}  // namespace ZOR_openarrays
