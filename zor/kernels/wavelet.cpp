#include "zor/kernels/wavelet.h"

#include <algorithm>
#include <utility>

#include "zor/kernels/dispatch.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(WaveletTable, kWavelet)

namespace {

constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

/// Place in a block of n cells of factor k of value i; the one place where indices are mapped.
std::size_t place(std::size_t i, std::size_t k, std::size_t n, const WaveletFilters& filters) {
  const std::size_t x = 2 * i + 2 + k, length = filters.pair.length;
  if (x >= length) return x - length;
  switch (filters.edge) {
    case LeftEdge::wrap:
      return (x - length) & (n - 1);  // in unsigned arithmetic, which wraps at a multiple of n
    case LeftEdge::mirror:
      return (length - x - 1) & (n - 1);
    default:
      return kNowhere;
  }
}

void forward_step(const double* cells, std::size_t n, double* smooth, double* detail, const WaveletFilters& filters) {
  const std::size_t half = n / 2, edge = std::min(half, kForwardEdge);
  double edge_smooth[kForwardEdge] = {}, edge_detail[kForwardEdge] = {};
  for (std::size_t i = 0; i < edge; ++i) {
    for (std::size_t k = 0; k < filters.pair.length; ++k) {
      const std::size_t p = place(i, k, n, filters);
      if (p == kNowhere) continue;
      edge_smooth[i] += filters.pair.low[k] * cells[p];
      edge_detail[i] += filters.pair.high[k] * cells[p];
    }
  }
  if (half > edge) table().forward(cells, half, smooth, detail, filters.pair);
  std::copy_n(edge_smooth, edge, smooth);
  std::copy_n(edge_detail, edge, detail);
}

void inverse_step(const double* smooth, const double* detail, std::size_t n, double* cells,
                  const WaveletFilters& filters) {
  const std::size_t half = n / 2, both = std::min(n, 2 * kInverseEdge), front = std::min(n, kInverseEdge);
  double edges[2 * kInverseEdge] = {};  // the first and the last cells of the block, or all of them
  const auto add = [&](std::size_t i) {
    for (std::size_t k = 0; k < filters.pair.length; ++k) {
      const std::size_t p = place(i, k, n, filters);
      if (p == kNowhere) continue;
      const double term = filters.pair.low[k] * smooth[i] + filters.pair.high[k] * detail[i];
      if (p < front) {
        edges[p] += term;
      } else if (p >= n - (both - front)) {
        edges[p - (n - both)] += term;
      }
    }
  };
  // Only these reach the edges: the first ones, which may also lead to the right end, and the last ones.
  const std::size_t first = std::min(half, kInverseEdge);
  for (std::size_t i = 0; i < first; ++i) add(i);
  for (std::size_t i = std::max(first, half - std::min(half, kInverseEdge / 2)); i < half; ++i) add(i);
  if (n > both) table().inverse(smooth, detail, half, cells, filters.pair);
  std::copy_n(edges, front, cells);
  std::copy_n(edges + front, both - front, cells + n - (both - front));
}

}  // namespace

void wavelet_forward(std::span<double> block, std::size_t steps, const WaveletFilters& filters,
                     std::span<double> work) noexcept {
  double *from = block.data(), *to = work.data();
  std::size_t n = block.size();
  for (; steps > 0; --steps, n /= 2) {
    forward_step(from, n, to, block.data() + n / 2, filters);
    std::swap(from, to);
  }
  if (from != block.data()) std::copy_n(from, n, block.data());
}

void wavelet_inverse(std::span<double> block, std::size_t steps, const WaveletFilters& filters,
                     std::span<double> work) noexcept {
  if (steps == 0) return;
  double *from = block.data(), *to = work.data();
  std::size_t n = block.size() >> (steps - 1);
  if (steps % 2 != 0) {  // so that the last step writes into the block
    std::copy_n(from, n / 2, to);
    std::swap(from, to);
  }
  for (; n <= block.size(); n *= 2) {
    inverse_step(from, block.data() + n / 2, n, to, filters);
    std::swap(from, to);
  }
}

}  // namespace zor::kernels
