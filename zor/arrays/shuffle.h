#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Mixing the cells of an array.

namespace ZOR_openarrays {

/// Mixes the cells in place by a cyclic permutation: for i from the last index down to 1, cell i is exchanged with cell
/// Random(i). Each of the (n - 1)! cyclic permutations is equally likely, every cell moves, and two cells are always
/// exchanged. Draws n - 1 numbers from the generator; Randomize is not called. Result 0, or kEmptyArray for fewer than
/// two cells.
/// \warning This is not the uniform shuffle: of the six orders of three cells only two occur. For a uniform one sort an
/// array of random deviates with SortArray and use its index array.
/// Source: S. Sattolo, An algorithm to generate a random cyclic permutation, Inf. Process. Lett. 22 (1986).
template <class A>
  requires Num<A, 1>
ZOR_API Integer ShuffleArray(A& a);

}  // namespace ZOR_openarrays
