#include "zor/arrays/elementwise.h"

#include <cstdint>

#include "zor/arrays/walk_internal.h"
#include "zor/kernels/elementwise.h"

namespace ZOR_openarrays {
namespace {

namespace kernels = zor::kernels;
using zor::detail::for_runs;
using zor::detail::shape_of;

/// Res = operation(A, B).
template <class A, class Operation>
Integer combine(const A& a, const A& b, A& res, Operation operation) {
  const auto shape = shape_of(a), other = shape_of(b);
  if (shape.empty() || other.empty()) return kEmptyArray;
  if (shape != other) return kSizeMismatch;
  zor::detail::write_result(res, shape, [&](A& out) { for_runs(shape, operation, a, b, out); });
  return 0;
}

/// Res = operation(A).
template <class A, class Operation>
Integer map(const A& a, A& res, Operation operation) {
  const auto shape = shape_of(a);
  if (shape.empty()) return kEmptyArray;
  zor::detail::write_result(res, shape, [&](A& out) { for_runs(shape, operation, a, out); });
  return 0;
}

/// A = operation(A).
template <class A, class Operation>
Integer change(A& a, Operation operation) {
  const auto shape = shape_of(a);
  if (shape.empty()) return kEmptyArray;
  for_runs(shape, operation, a);
  return 0;
}

/// Whether a row of `written` may be another row of `read`.
template <class A>
bool may_cross(const A& written, const A& read) noexcept {
  if constexpr (kRank<A> == 1) {
    return !written.IsUnique() && written.data() != read.data();
  } else {
    for (std::size_t i = 0; i < written.size(); ++i) {
      if (may_cross(written[i], read[i])) return true;
    }
    return false;
  }
}

void multiply_add(Double factor, std::span<const Double> x, std::span<Double> y) { kernels::axpy(factor, x, y); }

void multiply_add(Integer factor, std::span<const Integer> x, std::span<Integer> y) {
  const auto f = static_cast<std::uint32_t>(factor);
  for (std::size_t i = 0; i < y.size(); ++i) {
    y[i] = static_cast<Integer>(static_cast<std::uint32_t>(y[i]) + f * static_cast<std::uint32_t>(x[i]));
  }
}

}  // namespace

template <NumArray A>
Integer AddArrays(const Same<A>& a, const Same<A>& b, A& Res) {
  return combine<A>(a, b, Res, [](auto x, auto y, auto out) { kernels::add(x, y, out); });
}

template <NumArray A>
Integer SubtractArrays(const Same<A>& a, const Same<A>& b, A& Res) {
  return combine<A>(a, b, Res, [](auto x, auto y, auto out) { kernels::subtract(x, y, out); });
}

template <class A>
  requires ArrayOf<A, 1, 2, Double, Integer>
Integer MultiplyArraysElemw(const Same<A>& a, const Same<A>& b, A& Res) {
  return combine<A>(a, b, Res, [](auto x, auto y, auto out) { kernels::multiply(x, y, out); });
}

template <NumArray A>
Integer AddScalarToArray(const Same<A>& a, CellOf<A> Scalar, A& Res) {
  return map<A>(a, Res, [&](auto x, auto out) { kernels::shift(x, Scalar, out); });
}

template <NumArray A>
Integer IncArray(A& a, CellOf<A> Scalar) {
  return change(a, [&](auto x) { kernels::shift(x, Scalar); });
}

template <NumArray A>
Integer MultiplyArrayByScalar(const Same<A>& a, CellOf<A> Scalar, A& Res) {
  return map<A>(a, Res, [&](auto x, auto out) { kernels::scale(x, Scalar, out); });
}

template <NumArray A>
Integer MultiplyArrayByScalar(A& a, CellOf<A> Scalar) {
  return change(a, [&](auto x) { kernels::scale(x, Scalar); });
}

template <NumArray A>
Integer AbsValArray(A& a) {
  return change(a, [](auto x) { kernels::absolute(x); });
}

template <RealArray A>
Integer ReciprocalArray(A& a, Double ZeroValue) {
  return change(a, [=](std::span<Double> x) {
    for (Double& cell : x) {
      const Double reciprocal = 1.0 / cell;
      cell = cell == 0.0 ? ZeroValue : reciprocal;
    }
  });
}

template <NumArray A>
Integer AccumulateArray(A& Sum, const Same<A>& a, CellOf<A> Factor) {
  const auto shape = shape_of(Sum), other = shape_of(a);
  if (shape.empty() || other.empty()) return kEmptyArray;
  if (shape != other) return kSizeMismatch;
  // A row that stands at different places in the two arrays would be read after it was written.
  const A source = kRank<A> > 1 && may_cross<A>(Sum, a) ? CopyOf(a) : a;
  for_runs(
      shape, [&](auto x, auto sum) { multiply_add(Factor, x, sum); }, source, Sum);
  return 0;
}

#define ZOR_INSTANCES(A)                                              \
  template Integer AddArrays<A>(const A&, const A&, A&);              \
  template Integer SubtractArrays<A>(const A&, const A&, A&);         \
  template Integer AddScalarToArray<A>(const A&, CellOf<A>, A&);      \
  template Integer IncArray<A>(A&, CellOf<A>);                        \
  template Integer MultiplyArrayByScalar<A>(const A&, CellOf<A>, A&); \
  template Integer MultiplyArrayByScalar<A>(A&, CellOf<A>);           \
  template Integer AbsValArray<A>(A&);                                \
  template Integer AccumulateArray<A>(A&, const A&, CellOf<A>);

ZOR_INSTANCES(TDoubleArray)
ZOR_INSTANCES(TDouble2DArray)
ZOR_INSTANCES(TDouble3DArray)
ZOR_INSTANCES(TDouble4DArray)
ZOR_INSTANCES(TIntArray)
ZOR_INSTANCES(TInt2DArray)
ZOR_INSTANCES(TInt3DArray)
ZOR_INSTANCES(TInt4DArray)

template Integer MultiplyArraysElemw<TDoubleArray>(const TDoubleArray&, const TDoubleArray&, TDoubleArray&);
template Integer MultiplyArraysElemw<TDouble2DArray>(const TDouble2DArray&, const TDouble2DArray&, TDouble2DArray&);
template Integer MultiplyArraysElemw<TIntArray>(const TIntArray&, const TIntArray&, TIntArray&);
template Integer MultiplyArraysElemw<TInt2DArray>(const TInt2DArray&, const TInt2DArray&, TInt2DArray&);
template Integer ReciprocalArray<TDoubleArray>(TDoubleArray&, Double);
template Integer ReciprocalArray<TDouble2DArray>(TDouble2DArray&, Double);
template Integer ReciprocalArray<TDouble3DArray>(TDouble3DArray&, Double);
template Integer ReciprocalArray<TDouble4DArray>(TDouble4DArray&, Double);

}  // namespace ZOR_openarrays
