#include "zor/arrays/shuffle.h"

#include <utility>

#include "zor/runtime/random.h"

namespace ZOR_openarrays {

template <class A>
  requires Num<A, 1>
Integer ShuffleArray(A& a) {
  if (a.size() < 2) return kEmptyArray;
  for (Integer i = High(a); i > 0; --i) std::swap(a[i], a[ZOR_runtime::Random(i)]);
  return 0;
}

template Integer ShuffleArray<TDoubleArray>(TDoubleArray&);
template Integer ShuffleArray<TIntArray>(TIntArray&);

}  // namespace ZOR_openarrays
