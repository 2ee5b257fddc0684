#include "zor/kernels/distances.h"

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/distances.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(DistancesTable, kDistances)

void euclidean(std::span<const double* const> columns, std::size_t i0, std::size_t rows, std::size_t j0,
               std::size_t cols, bool root, double* out, std::size_t stride) noexcept {
  table().euclidean({columns.data(), columns.size()}, i0, rows, j0, cols, root, out, stride);
}

}  // namespace zor::kernels
