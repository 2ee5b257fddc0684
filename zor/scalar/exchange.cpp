#include "zor/scalar/exchange.h"

#include <algorithm>
#include <functional>

namespace ZOR_math1 {

void ExChange(void* a, void* b, Word Count) noexcept {
  if (!a || !b) return;
  auto* const first = static_cast<Byte*>(a);
  auto* const second = static_cast<Byte*>(b);
  const std::less<const Byte*> before;  // a total order, also between unrelated buffers
  const bool overlap = before(first, second) ? before(second, first + Count) : before(first, second + Count);
  if (!overlap) std::swap_ranges(first, first + Count, second);
}

}  // namespace ZOR_math1
