#include "zor/arrays/vector_products.h"

#include <cstdint>

#include "zor/kernels/sums.h"

namespace ZOR_openarrays {
namespace {

Double dot(const TDoubleArray& a, const TDoubleArray& b) { return zor::kernels::dot_in_order(a, b); }
Integer dot(const TIntArray& a, const TIntArray& b) { return zor::kernels::dot_wrapping(a, b); }

/// a d - b c.
Double determinant(Double a, Double b, Double c, Double d) { return a * d - b * c; }
Integer determinant(Integer a, Integer b, Integer c, Integer d) {
  const auto bits = [](Integer x) { return static_cast<std::uint32_t>(x); };
  return static_cast<Integer>(bits(a) * bits(d) - bits(b) * bits(c));
}

}  // namespace

template <class A>
  requires Num<A, 1>
Integer VectorDotProduct(const A& a, const Same<A>& b, CellType<A>& Dot) {
  if (a.empty() || b.empty()) return kEmptyArray;
  if (a.size() != b.size()) return kSizeMismatch;
  Dot = dot(a, b);
  return 0;
}

template <class A>
  requires Num<A, 1>
Integer VectorCrossProduct(const Same<A>& a, const Same<A>& b, A& C) {
  if (a.empty() || b.empty()) return kEmptyArray;
  if (a.size() != 3 || b.size() != 3) return kNotThreeCells;
  C = {determinant(a[1], a[2], b[1], b[2]), determinant(a[2], a[0], b[2], b[0]), determinant(a[0], a[1], b[0], b[1])};
  return 0;
}

#define ZOR_VECTOR_INSTANCES(A)                                           \
  template Integer VectorDotProduct<A>(const A&, const A&, CellType<A>&); \
  template Integer VectorCrossProduct<A>(const A&, const A&, A&);

ZOR_VECTOR_INSTANCES(TDoubleArray)
ZOR_VECTOR_INSTANCES(TIntArray)

}  // namespace ZOR_openarrays
