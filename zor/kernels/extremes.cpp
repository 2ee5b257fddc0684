#include "zor/kernels/extremes.h"

namespace zor::kernels {
namespace {

template <class T>
void search(std::span<const T> x, Extremes<T>& e, std::size_t base) {
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (x[i] < e.minimum) e.minimum = x[i], e.min_index = base + i;
    if (x[i] > e.maximum) e.maximum = x[i], e.max_index = base + i;
  }
}

}  // namespace

void min_max(std::span<const double> x, Extremes<double>& e, std::size_t base) noexcept { search(x, e, base); }
void min_max(std::span<const float> x, Extremes<float>& e, std::size_t base) noexcept { search(x, e, base); }
void min_max(std::span<const std::int32_t> x, Extremes<std::int32_t>& e, std::size_t base) noexcept {
  search(x, e, base);
}

}  // namespace zor::kernels
