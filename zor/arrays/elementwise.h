#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Arithmetic cell by cell.
/// A, B and Res have the same shape; Res is set to it. Results: 0; kEmptyArray; kSizeMismatch, if A and B differ in a
/// length. On a negative code nothing is touched. Res may be A or B. A Res that shares its cells with another handle
/// gets cells of its own; the forms in place change what all handles see. Integers wrap around at 32 bits. Doubles are
/// rounded once for each operation.

namespace ZOR_openarrays {

/// Res = A + B.
template <NumArray A>
ZOR_API Integer AddArrays(const Same<A>& a, const Same<A>& b, A& Res);
/// Res = A - B.
template <NumArray A>
ZOR_API Integer SubtractArrays(const Same<A>& a, const Same<A>& b, A& Res);
/// Res = A * B, cell by cell; for one and two dimensions.
template <class A>
  requires ArrayOf<A, 1, 2, Double, Integer>
ZOR_API Integer MultiplyArraysElemw(const Same<A>& a, const Same<A>& b, A& Res);

/// Res = A + Scalar.
template <NumArray A>
ZOR_API Integer AddScalarToArray(const Same<A>& a, CellOf<A> Scalar, A& Res);
/// A = A + Scalar.
template <NumArray A>
ZOR_API Integer IncArray(A& a, CellOf<A> Scalar);

/// Res = A * Scalar, or A = A * Scalar.
template <NumArray A>
ZOR_API Integer MultiplyArrayByScalar(const Same<A>& a, CellOf<A> Scalar, A& Res);
template <NumArray A>
ZOR_API Integer MultiplyArrayByScalar(A& a, CellOf<A> Scalar);

/// A = |A|. The smallest Integer stays as it is.
template <NumArray A>
ZOR_API Integer AbsValArray(A& a);

/// A = 1 / A. A cell that is exactly 0, of either sign, becomes ZeroValue; there is no tolerance, so that 1e-310
/// becomes infinite.
template <RealArray A>
ZOR_API Integer ReciprocalArray(A& a, Double ZeroValue);

/// Sum = Sum + Factor * A, product and sum rounded apart. Sum must have the shape of A: a null Sum gives kEmptyArray.
/// A may be Sum.
template <NumArray A>
ZOR_API Integer AccumulateArray(A& Sum, const Same<A>& a, CellOf<A> Factor);

}  // namespace ZOR_openarrays
