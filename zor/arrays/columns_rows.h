#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Columns and rows out of and into arrays of two dimensions.
/// A[col][row], indices from 0, ranges inclusive. An argument may be a column of the other one: the cells arrive as
/// they were. On a negative code nothing is touched.

namespace ZOR_openarrays {

inline constexpr Integer kBadSource = -1;       ///< The source is empty, or the range of it lies outside.
inline constexpr Integer kBadColumnOrRow = -3;  ///< The fixed column or row lies outside.
inline constexpr Integer kBadDestIndex = -4;    ///< The index into the destination lies outside.

/// The array of two dimensions whose columns have type R.
template <class R>
using ColumnsOf = std::type_identity_t<TDynArray<R>>;
/// The type of a column of A.
template <class A>
using ColumnOf = typename A::value_type;

/// Arrays of one dimension that columns and rows are taken into.
template <class R>
concept LineArray = ArrayOf<R, 1, 1, Double, Integer, Boolean>;
/// Arrays of two dimensions that columns and rows are put into.
template <class A>
concept PlaneArray = ArrayOf<A, 2, 2, Double, Integer, Boolean>;

/// Res[i] = A[Col][FirstRow + i] for the rows up to LastRow; Res gets their number as its length. Results, the first
/// test that fails: kEmptyArray if A is empty; kBadRange if FirstRow is above LastRow or one of them lies outside;
/// kBadColumnOrRow if Col lies outside.
template <LineArray R>
ZOR_API Integer CopyArrayColumn(const ColumnsOf<R>& A, Integer Col, Integer FirstRow, Integer LastRow, R& Res);
/// Res[i] = A[FirstCol + i][Row] for the columns up to LastCol; Res gets their number as its length. Results likewise:
/// the range runs along the columns, and kBadColumnOrRow speaks of Row.
template <LineArray R>
ZOR_API Integer CopyArrayRow(const ColumnsOf<R>& A, Integer Row, Integer FirstCol, Integer LastCol, R& Res);

/// Dest[DestIx + i] = A[Col][FirstRow + i] for the rows up to LastRow, as far as Dest reaches; Dest keeps its length
/// and its other cells. Results as for CopyArrayColumn, at last kBadDestIndex if DestIx lies outside Dest. A range that
/// does not fit is cut without a code.
ZOR_API Integer Copy2DColTo1DArray(const TDouble2DArray& A, Integer Col, Integer FirstRow, Integer LastRow,
                                   TDoubleArray& Dest, Integer DestIx);
/// Dest[DestIx + i] = A[FirstCol + i][Row], likewise.
ZOR_API Integer Copy2DRowTo1DArray(const TDouble2DArray& A, Integer Row, Integer FirstCol, Integer LastCol,
                                   TDoubleArray& Dest, Integer DestIx);

/// Dest[DestCol][DestRow + i] = Src[First + i] up to Last, as far as the column of Dest reaches; a range that does not
/// fit is cut without a code. First = 0 and Last = 0 together mean all of Src, so that its first cell alone cannot be
/// copied. First above Last, both within Src, copies nothing and gives 0. Results, the test made last wins: kBadSource
/// if Src is empty or First or Last lies outside it; kBadRange if DestCol or DestRow lies outside Dest or Dest is
/// empty.
template <PlaneArray A>
ZOR_API Integer CopyToArrayColumn(const ColumnOf<A>& Src, Integer First, Integer Last, Integer DestCol, Integer DestRow,
                                  A& Dest);
/// Dest[DestCol + i][DestRow] = Src[First + i], likewise along the row.
template <PlaneArray A>
ZOR_API Integer CopyToArrayRow(const ColumnOf<A>& Src, Integer First, Integer Last, Integer DestCol, Integer DestRow,
                               A& Dest);

/// Always raises EZORError.
/// \deprecated Use CopyToArrayColumn, which takes the same arguments.
template <PlaneArray A>
ZOR_API Integer CopyVectorToArrayColumn(const ColumnOf<A>& Src, Integer First, Integer Last, Integer DestCol,
                                        Integer DestRow, A& Dest);
/// Always raises EZORError.
/// \deprecated Use CopyToArrayRow, which takes the same arguments.
template <PlaneArray A>
ZOR_API Integer CopyVectorToArrayRow(const ColumnOf<A>& Src, Integer First, Integer Last, Integer DestCol,
                                     Integer DestRow, A& Dest);

}  // namespace ZOR_openarrays
