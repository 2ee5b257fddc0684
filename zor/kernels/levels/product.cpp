#include "zor/kernels/levels/product.h"

#include "zor/kernels/levels/level.h"

#if defined(__FMA__)
#include <immintrin.h>
#endif

namespace zor::kernels::ZOR_LEVEL {
namespace {

#if defined(__AVX512F__)
constexpr std::size_t kTileRegisters = 3, kTileColumns = 8;
inline VecD fused_add(VecD a, VecD b, VecD sum) { return (VecD)_mm512_fmadd_pd(a, b, sum); }
inline VecD fused_subtract(VecD a, VecD b, VecD sum) { return (VecD)_mm512_fnmadd_pd(a, b, sum); }
#elif defined(__FMA__)
constexpr std::size_t kTileRegisters = 3, kTileColumns = 4;
inline VecD fused_add(VecD a, VecD b, VecD sum) { return (VecD)_mm256_fmadd_pd(a, b, sum); }
inline VecD fused_subtract(VecD a, VecD b, VecD sum) { return (VecD)_mm256_fnmadd_pd(a, b, sum); }
#else
constexpr std::size_t kTileRegisters = 2, kTileColumns = 4;
#endif
constexpr std::size_t kTileRows = kTileRegisters * kLanesD;

inline VecD add(VecD a, VecD b, VecD sum) { return sum + a * b; }
inline VecD subtract(VecD a, VecD b, VecD sum) { return sum - a * b; }

/// The running cells stay in registers while the terms pass.
template <VecD Add(VecD, VecD, VecD)>
void tile(std::size_t depth, const double* a, const double* b, double* const* columns, std::size_t row,
          bool from_zero) {
  alignas(ZOR_VECTOR_BYTES) VecD sum[kTileColumns][kTileRegisters];
#pragma GCC unroll 8
  for (std::size_t j = 0; j < kTileColumns; ++j) {
#pragma GCC unroll 3
    for (std::size_t i = 0; i < kTileRegisters; ++i)
      sum[j][i] = from_zero ? VecD{} : load(columns[j] + row + i * kLanesD);
  }
  for (std::size_t k = 0; k < depth; ++k, a += kTileRows, b += kTileColumns) {
    alignas(ZOR_VECTOR_BYTES) VecD lines[kTileRegisters];
#pragma GCC unroll 3
    for (std::size_t i = 0; i < kTileRegisters; ++i) lines[i] = load(a + i * kLanesD);
#pragma GCC unroll 8
    for (std::size_t j = 0; j < kTileColumns; ++j) {
      const VecD factor = b[j] - VecD{};
#pragma GCC unroll 3
      for (std::size_t i = 0; i < kTileRegisters; ++i) sum[j][i] = Add(lines[i], factor, sum[j][i]);
    }
  }
#pragma GCC unroll 8
  for (std::size_t j = 0; j < kTileColumns; ++j) {
#pragma GCC unroll 3
    for (std::size_t i = 0; i < kTileRegisters; ++i) store(columns[j] + row + i * kLanesD, sum[j][i]);
  }
}

void pack_along(double* panel, std::size_t width, std::size_t used, const double* const* lines, std::size_t from,
                std::size_t depth) {
  if (used == kTileRows && width == kTileRows) {
    for (std::size_t k = 0; k < depth; ++k, panel += kTileRows) {
      const double* line = lines[k] + from;
#pragma GCC unroll 3
      for (std::size_t i = 0; i < kTileRegisters; ++i) store(panel + i * kLanesD, load(line + i * kLanesD));
    }
    return;
  }
  for (std::size_t k = 0; k < depth; ++k, panel += width) {
    for (std::size_t i = 0; i < used; ++i) panel[i] = lines[k][from + i];
    for (std::size_t i = used; i < width; ++i) panel[i] = 0.0;
  }
}

/// Four cells of four lines, turned.
inline void turn_four(double* panel, std::size_t width, const double* p, const double* q, const double* r,
                      const double* s) {
#if defined(__AVX2__)
  typedef double Four __attribute__((vector_size(32), aligned(8), may_alias));
  const Four a = *reinterpret_cast<const Four*>(p), b = *reinterpret_cast<const Four*>(q);
  const Four c = *reinterpret_cast<const Four*>(r), d = *reinterpret_cast<const Four*>(s);
  const Four ab_even = __builtin_shufflevector(a, b, 0, 4, 2, 6), ab_odd = __builtin_shufflevector(a, b, 1, 5, 3, 7);
  const Four cd_even = __builtin_shufflevector(c, d, 0, 4, 2, 6), cd_odd = __builtin_shufflevector(c, d, 1, 5, 3, 7);
  *reinterpret_cast<Four*>(panel) = __builtin_shufflevector(ab_even, cd_even, 0, 1, 4, 5);
  *reinterpret_cast<Four*>(panel + width) = __builtin_shufflevector(ab_odd, cd_odd, 0, 1, 4, 5);
  *reinterpret_cast<Four*>(panel + 2 * width) = __builtin_shufflevector(ab_even, cd_even, 2, 3, 6, 7);
  *reinterpret_cast<Four*>(panel + 3 * width) = __builtin_shufflevector(ab_odd, cd_odd, 2, 3, 6, 7);
#else
  for (std::size_t k = 0; k < 4; ++k, panel += width)
    panel[0] = p[k], panel[1] = q[k], panel[2] = r[k], panel[3] = s[k];
#endif
}

void pack_across(double* panel, std::size_t width, std::size_t used, const double* const* lines, std::size_t from,
                 std::size_t depth) {
  std::size_t i = 0;
  for (; i + 4 <= used; i += 4) {
    const double *p = lines[i] + from, *q = lines[i + 1] + from, *r = lines[i + 2] + from, *s = lines[i + 3] + from;
    double* to = panel + i;
    std::size_t k = 0;
    for (; k + 4 <= depth; k += 4, to += 4 * width) turn_four(to, width, p + k, q + k, r + k, s + k);
    for (; k < depth; ++k, to += width) to[0] = p[k], to[1] = q[k], to[2] = r[k], to[3] = s[k];
  }
  for (; i < width; ++i) {
    for (std::size_t k = 0; k < depth; ++k) panel[k * width + i] = i < used ? lines[i][from + k] : 0.0;
  }
}

}  // namespace

extern const ProductTable kProduct;
const ProductTable kProduct = {kTileRows,
                               kTileColumns,
#if defined(__FMA__)
                               {tile<fused_add>, tile<fused_subtract>},
#else
                               {tile<add>, tile<subtract>},
#endif
                               {tile<add>, tile<subtract>},
                               pack_along,
                               pack_across};

}  // namespace zor::kernels::ZOR_LEVEL
