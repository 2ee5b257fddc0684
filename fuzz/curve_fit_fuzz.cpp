// Any bytes read as an ASC file of pairs: no more pairs than the file can hold, all of them or none, and the means are
// those of the pairs.
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "fuzz/heap_bound.h"
#include "fuzz/memory_file.h"
#include "zor/analysis/curve_fit.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace ZOR_math2;
  const fuzz::MemoryFile file(data, size);
  const fuzz::HeapBound bound(size);
  TCurveFit fit;
  fit.EnterStatValue(1.0, 2.0);
  try {
    const Integer code = fit.ImportASC(file.name());
    fuzz::require(code == 0 || fit.NumData() == 1);
    fuzz::require(static_cast<std::size_t>(fit.NumData()) <= size + 1);
  } catch (const Exception&) {
    fuzz::require(fit.NumData() == 1 && fit.DataX(1) == 1.0 && fit.MeanY() == 2.0);
  }
  return 0;
}
