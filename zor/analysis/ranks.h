#pragma once

#include "zor/analysis/math2_errors.h"
#include "zor/vectors/vector.h"

/// \file  Ranks of the elements of a vector.

namespace ZOR_math2 {

using namespace ZOR_zorbase;
using ZOR_vector::TVector;

/// Puts into RankVec the rank of each element of SourceVec in ascending order, from 1; equal elements share the mean of
/// their ranks. RankVec gets the size of SourceVec and may be SourceVec: OnChange, OnResize of a new size, OnChange.
/// Returns the sum of t^3 - t over all groups of t equal elements, 0.0 without ties and for a null argument. A NaN is
/// equal to nothing; the sort leaves it where it stands, so the ranks of elements around it follow no order.
ZOR_API Double CalcRanks(const TVector* SourceVec, TVector* RankVec);

}  // namespace ZOR_math2
