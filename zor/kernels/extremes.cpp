#include "zor/kernels/extremes.h"

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/extremes.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(ExtremesTable, kExtremes)

void min_max(std::span<const double> x, Extremes<double>& extremes, std::size_t base) noexcept {
  table().real(x.data(), x.size(), base, extremes);
}
void min_max(std::span<const float> x, Extremes<float>& extremes, std::size_t base) noexcept {
  table().single(x.data(), x.size(), base, extremes);
}
void min_max(std::span<const std::int32_t> x, Extremes<std::int32_t>& extremes, std::size_t base) noexcept {
  table().integer(x.data(), x.size(), base, extremes);
}

}  // namespace zor::kernels
