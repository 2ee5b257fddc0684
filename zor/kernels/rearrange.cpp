#include "zor/kernels/rearrange.h"

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/rearrange.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(RearrangeTable, kRearrange)

void copy(std::span<const double> x, std::span<double> out) noexcept { table().copy(x.data(), out.data(), out.size()); }

void reverse(std::span<double> x) noexcept { table().reverse_real(x.data(), x.size()); }
void reverse(std::span<std::int32_t> x) noexcept {
  table().reverse_integer(reinterpret_cast<std::uint32_t*>(x.data()), x.size());
}

void transpose(const double* const* columns, std::size_t n_columns, double* const* rows, std::size_t n_rows) noexcept {
  table().transpose(columns, n_columns, rows, n_rows);
}

}  // namespace zor::kernels
