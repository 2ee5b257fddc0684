#include "zor/arrays/clone.h"

#include <algorithm>
#include <concepts>

#include "zor/arrays/walk_internal.h"
#include "zor/kernels/elementwise.h"
#include "zor/kernels/rearrange.h"

namespace ZOR_openarrays {
namespace {

template <class S, class D>
Integer clone(const S& src, D& dest) {
  using From = CellType<S>;
  using To = CellType<D>;
  const auto shape = zor::detail::shape_of(src);
  if (shape.empty()) return kEmptyArray;
  const auto convert = [](std::span<const From> x, std::span<To> out) {
    if constexpr (std::same_as<From, Double> && std::same_as<To, Integer>) {
      zor::kernels::round_to_integers(x, out);
    } else if constexpr (std::same_as<From, Double> && std::same_as<To, Double>) {
      zor::kernels::copy(x, out);
    } else {
      std::ranges::transform(x, out.begin(), [](From cell) { return static_cast<To>(cell); });
    }
  };
  zor::detail::write_result(dest, shape, [&](D& out) { zor::detail::for_runs(shape, convert, src, out); });
  return 0;
}

template <class S, class D>
Integer clone_reversed(const S& src, D& dest) {
  // With this handle a Dest that is Src shares its cells, and is not written in place.
  const S source = src;
  const auto shape = zor::detail::shape_of(source);
  if (shape.empty()) return kEmptyArray;
  zor::detail::write_result(dest, shape, [&](D& out) {
    if constexpr (std::same_as<CellType<S>, CellType<D>>) {
      std::ranges::reverse_copy(source, out.begin());
    } else {
      clone(source, out);
      std::ranges::reverse(out);
    }
  });
  return 0;
}

}  // namespace

template <ClonableArray A>
Integer CloneArray(const Same<A>& Src, A& Dest) {
  return clone(Src, Dest);
}
template <class S, class D>
  requires OtherNumArray<S, D>
Integer CloneArray(const S& Src, D& Dest) {
  return clone(Src, Dest);
}
template <std::same_as<TSingleArray> S>
Integer CloneArray(const S& Src, TDoubleArray& Dest) {
  return clone(Src, Dest);
}
template <std::same_as<TSingleArray> D>
Integer CloneArray(const TDoubleArray& Src, D& Dest) {
  return clone(Src, Dest);
}

template <class A>
  requires ArrayOf<A, 1, 1, Double, Integer, Boolean>
Integer CloneAndReverseArray(const Same<A>& Src, A& Dest) {
  return clone_reversed(Src, Dest);
}
template <class S, class D>
  requires(OtherNumArray<S, D> && kRank<S> == 1)
Integer CloneAndReverseArray(const S& Src, D& Dest) {
  return clone_reversed(Src, Dest);
}
template <std::same_as<TSingleArray> S>
Integer CloneAndReverseArray(const S& Src, TDoubleArray& Dest) {
  return clone_reversed(Src, Dest);
}
template <std::same_as<TSingleArray> D>
Integer CloneAndReverseArray(const TDoubleArray& Src, D& Dest) {
  return clone_reversed(Src, Dest);
}

#define ZOR_INSTANCES(D, I)                        \
  template Integer CloneArray<D>(const D&, D&);    \
  template Integer CloneArray<I>(const I&, I&);    \
  template Integer CloneArray<D, I>(const D&, I&); \
  template Integer CloneArray<I, D>(const I&, D&);

ZOR_INSTANCES(TDoubleArray, TIntArray)
ZOR_INSTANCES(TDouble2DArray, TInt2DArray)
ZOR_INSTANCES(TDouble3DArray, TInt3DArray)
ZOR_INSTANCES(TDouble4DArray, TInt4DArray)
template Integer CloneArray<TBoolArray>(const TBoolArray&, TBoolArray&);
template Integer CloneArray<TBool2DArray>(const TBool2DArray&, TBool2DArray&);
template Integer CloneArray<TSingleArray>(const TSingleArray&, TDoubleArray&);
template Integer CloneArray<TSingleArray>(const TDoubleArray&, TSingleArray&);

template Integer CloneAndReverseArray<TDoubleArray>(const TDoubleArray&, TDoubleArray&);
template Integer CloneAndReverseArray<TIntArray>(const TIntArray&, TIntArray&);
template Integer CloneAndReverseArray<TBoolArray>(const TBoolArray&, TBoolArray&);
template Integer CloneAndReverseArray<TDoubleArray, TIntArray>(const TDoubleArray&, TIntArray&);
template Integer CloneAndReverseArray<TIntArray, TDoubleArray>(const TIntArray&, TDoubleArray&);
template Integer CloneAndReverseArray<TSingleArray>(const TSingleArray&, TDoubleArray&);
template Integer CloneAndReverseArray<TSingleArray>(const TDoubleArray&, TSingleArray&);

}  // namespace ZOR_openarrays
