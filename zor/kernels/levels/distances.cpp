#include "zor/kernels/levels/distances.h"

#include "zor/kernels/levels/level.h"

#if defined(__SSE2__)
#include <immintrin.h>
#endif

namespace zor::kernels::ZOR_LEVEL {
namespace {

// A tile of pairs, some rows by two registers of columns, keeps its sums in the processor.
constexpr std::size_t kTileRows = 4;
constexpr std::size_t kTileCols = 2 * kLanesD;

// The loop over the lanes would ask each for a sign, because of errno.
inline VecD square_root(VecD v) {
#if defined(__AVX512F__)
  return _mm512_maskz_sqrt_pd(0xff, v);  // the form without a mask warns of GCC's own header
#elif defined(__AVX__)
  return _mm256_sqrt_pd(v);
#elif defined(__SSE2__)
  return _mm_sqrt_pd(v);
#else
  for (std::size_t k = 0; k < kLanesD; ++k) v[k] = __builtin_sqrt(v[k]);
  return v;
#endif
}

inline void full_tile(Features f, std::size_t i, std::size_t j, bool root, double* out, std::size_t stride) {
  alignas(ZOR_VECTOR_BYTES) VecD left[kTileRows] = {}, right[kTileRows] = {};
  for (std::size_t c = 0; c < f.count; ++c) {
    const double *x = f.columns[c] + i, *y = f.columns[c] + j;
    const VecD y0 = load(y), y1 = load(y + kLanesD);
    for (std::size_t r = 0; r < kTileRows; ++r) {
      const VecD d0 = x[r] - y0, d1 = x[r] - y1;
      left[r] += d0 * d0;
      right[r] += d1 * d1;
    }
  }
  for (std::size_t r = 0; r < kTileRows; ++r) {
    store(out + r * stride, root ? square_root(left[r]) : left[r]);
    store(out + r * stride + kLanesD, root ? square_root(right[r]) : right[r]);
  }
}

inline double one_pair(Features f, std::size_t i, std::size_t j, bool root) {
  double sum = 0.0;
  for (std::size_t c = 0; c < f.count; ++c) {
    const double d = f.columns[c][i] - f.columns[c][j];
    sum += d * d;
  }
  return root ? __builtin_sqrt(sum) : sum;
}

void euclidean(Features f, std::size_t i0, std::size_t rows, std::size_t j0, std::size_t cols, bool root, double* out,
               std::size_t stride) {
  const std::size_t tiled_rows = rows - rows % kTileRows, tiled_cols = cols - cols % kTileCols;
  for (std::size_t i = 0; i < tiled_rows; i += kTileRows)
    for (std::size_t j = 0; j < tiled_cols; j += kTileCols)
      full_tile(f, i0 + i, j0 + j, root, out + i * stride + j, stride);
  for (std::size_t i = 0; i < rows; ++i)
    for (std::size_t j = i < tiled_rows ? tiled_cols : 0; j < cols; ++j)
      out[i * stride + j] = one_pair(f, i0 + i, j0 + j, root);
}

}  // namespace

extern const DistancesTable kDistances = {euclidean};

}  // namespace zor::kernels::ZOR_LEVEL
