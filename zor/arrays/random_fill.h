#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Filling arrays with random numbers.
/// Every routine calls Randomize once its arguments have passed: two calls give unrelated sequences, and a RandSeed set
/// before is lost. Cells are drawn in storage order. Results: 0; kEmptyArray; kBadLimits if High is below Low, StdDev
/// is negative, or one of them is NaN. On a negative code nothing is touched and the generator is not moved.

namespace ZOR_openarrays {

/// Most integers that FillRandomUniform draws from without duplicates.
inline constexpr Integer kMaxDistinctValues = 1'000'000;

/// Uniform deviates from Low to High. Doubles: Low + Random * (High - Low), closed by rounding: High itself may appear.
/// Where High - Low overflows the formula is Low * (1 - Random) + High * Random. Integers: Low to High - 1 with equal
/// probabilities; High itself never appears, unless Low equals High.
template <NumArray A>
ZOR_API Integer FillRandomUniform(A& a, CellOf<A> Low, CellOf<A> High);

/// Integers from Low to High, both inclusive. With AllowDuplicates every cell is drawn by itself. Without, all cells
/// differ: kTooFewValues if there are fewer integers than cells, kTooManyValues if there are more than
/// kMaxDistinctValues.
/// \warning Without duplicates the cells are the first of Low to High mixed by ShuffleArray, which moves every cell, so
/// that they are no uniform sample: Low never comes first (one cell from 1 to 2 is always 2), and with k cells out of n
/// integers the first k come with probability (k - 1) / (n - 1), the others with k / (n - 1). For a fair sample fill an
/// array with deviates, sort it with SortArray and take the first cells of its index array.
ZOR_API Integer FillRandomUniform(TIntArray& A, Integer Low, Integer High, Boolean AllowDuplicates);

/// Gaussian deviates by RandG.
template <RealArray A>
ZOR_API Integer FillRandomNormal(A& a, Double Mean, Double StdDev);

}  // namespace ZOR_openarrays
