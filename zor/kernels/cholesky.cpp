#include "zor/kernels/cholesky.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/substitution.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(SubstitutionTable, kSubstitution)

bool cholesky(const double* const* a, std::size_t n, double* const* l) {
  if (n == 0) return true;
  const std::size_t lanes = table().lanes;
  const auto substitute = table().portable.substitute;
  // The rows of L that are done, packed as `substitute` takes them; and as many new rows as there are lanes, side by
  // side, with the cells of a column of L in each line.
  const std::unique_ptr<double[]> packed(new double[n * (n + 1) / 2]);
  const std::unique_ptr<double[]> block(new double[n * lanes]);
  const auto packed_row = [&](std::size_t r) { return packed.get() + r * (r + 1) / 2; };
  for (std::size_t first = 0; first < n; first += lanes) {
    const std::size_t end = std::min(first + lanes, n), count = end - first;
    double* const last = block.get() + (end - 1) * lanes;
    const auto line = [&](std::size_t c) { return last - c * lanes; };
    const auto fill = [&](std::size_t c, std::size_t lane) {
      std::fill_n(line(c), lane, 0.0);
      std::copy(a[c] + first + lane, a[c] + end, line(c) + lane);
      std::fill(line(c) + count, line(c) + lanes, 0.0);
    };
    for (std::size_t c = 0; c < first; ++c) fill(c, 0);
    substitute(packed_row(0), 0, first, last);
    for (std::size_t c = first; c < end; ++c) {
      const std::size_t lane = c - first;
      double* const row = packed_row(c);
      row[0] = 1.0;
      for (std::size_t k = 0; k < c; ++k) row[1 + k] = line(c - 1 - k)[lane];
      fill(c, lane);
      substitute(row, c, c + 1, last);
      const double square = line(c)[lane];
      if (!(square > 0.0)) return false;
      const double pivot = std::sqrt(square);
      row[0] = pivot;
      line(c)[lane] = pivot;
      for (std::size_t i = lane + 1; i < count; ++i) line(c)[i] /= pivot;
    }
    for (std::size_t c = 0; c < end; ++c) {
      const std::size_t from = std::max(c, first);
      std::copy(line(c) + (from - first), line(c) + count, l[c] + from);
    }
  }
  return true;
}

}  // namespace zor::kernels
