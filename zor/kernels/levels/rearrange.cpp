#include "zor/kernels/levels/rearrange.h"

#include "zor/kernels/levels/cells.h"

namespace zor::kernels::ZOR_LEVEL {
namespace {

#if ZOR_VECTOR_BYTES == 64
inline VecD reversed(VecD v) { return __builtin_shufflevector(v, v, 7, 6, 5, 4, 3, 2, 1, 0); }
inline VecU reversed(VecU v) {
  return __builtin_shufflevector(v, v, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0);
}
#elif ZOR_VECTOR_BYTES == 32
inline VecD reversed(VecD v) { return __builtin_shufflevector(v, v, 3, 2, 1, 0); }
inline VecU reversed(VecU v) { return __builtin_shufflevector(v, v, 7, 6, 5, 4, 3, 2, 1, 0); }
#else
inline VecD reversed(VecD v) { return __builtin_shufflevector(v, v, 1, 0); }
inline VecU reversed(VecU v) { return __builtin_shufflevector(v, v, 3, 2, 1, 0); }
#endif

void copy(const double* x, double* out, std::size_t n) {
  constexpr Register wide;
  std::size_t i = 0;
  for (; i + 4 * kLanesD <= n; i += 4 * kLanesD) {
    const VecD a = load(x + i, wide), b = load(x + i + kLanesD, wide);
    const VecD c = load(x + i + 2 * kLanesD, wide), d = load(x + i + 3 * kLanesD, wide);
    store(out + i, a);
    store(out + i + kLanesD, b);
    store(out + i + 2 * kLanesD, c);
    store(out + i + 3 * kLanesD, d);
  }
  for (; i < n; ++i) out[i] = x[i];
}

/// Exchanges registers from both ends until less than two are left in the middle.
template <class T>
void reverse(T* x, std::size_t n) {
  constexpr std::size_t lanes = kLanes<T>;
  std::size_t i = 0, end = n;
  for (; i + 2 * lanes <= end; i += lanes, end -= lanes) {
    const auto front = load(x + i, Register{}), back = load(x + end - lanes, Register{});
    store(x + i, reversed(back));
    store(x + end - lanes, reversed(front));
  }
  for (; i + 1 < end; ++i) {
    const T cell = x[i];
    x[i] = x[--end];
    x[end] = cell;
  }
}

// The tile of a transposition in registers.
#if ZOR_VECTOR_BYTES >= 32
constexpr std::size_t kTile = 4;
typedef double Line __attribute__((vector_size(32), aligned(8), may_alias));

inline void transpose_tile(const double* const* columns, std::size_t r, double* const* rows, std::size_t c) {
  const auto line = [=](std::size_t k) { return *reinterpret_cast<const Line*>(columns[k] + r); };
  const Line x0 = line(0), x1 = line(1), x2 = line(2), x3 = line(3);
  const Line even01 = __builtin_shufflevector(x0, x1, 0, 4, 2, 6), odd01 = __builtin_shufflevector(x0, x1, 1, 5, 3, 7);
  const Line even23 = __builtin_shufflevector(x2, x3, 0, 4, 2, 6), odd23 = __builtin_shufflevector(x2, x3, 1, 5, 3, 7);
  const auto put = [=](std::size_t k, Line v) { *reinterpret_cast<Line*>(rows[r + k] + c) = v; };
  put(0, __builtin_shufflevector(even01, even23, 0, 1, 4, 5));
  put(1, __builtin_shufflevector(odd01, odd23, 0, 1, 4, 5));
  put(2, __builtin_shufflevector(even01, even23, 2, 3, 6, 7));
  put(3, __builtin_shufflevector(odd01, odd23, 2, 3, 6, 7));
}
#else
constexpr std::size_t kTile = 2;

inline void transpose_tile(const double* const* columns, std::size_t r, double* const* rows, std::size_t c) {
  const VecD x0 = load(columns[0] + r, Register{}), x1 = load(columns[1] + r, Register{});
  store(rows[r] + c, __builtin_shufflevector(x0, x1, 0, 2));
  store(rows[r + 1] + c, __builtin_shufflevector(x0, x1, 1, 3));
}
#endif

/// Tile by tile within blocks whose cache lines, of columns and of rows, are used to the end while they are near.
void transpose(const double* const* columns, std::size_t n_columns, double* const* rows, std::size_t n_rows) {
  constexpr std::size_t block = 32;
  for (std::size_t r0 = 0; r0 < n_rows; r0 += block) {
    const std::size_t r1 = r0 + block < n_rows ? r0 + block : n_rows;
    for (std::size_t c0 = 0; c0 < n_columns; c0 += block) {
      const std::size_t c1 = c0 + block < n_columns ? c0 + block : n_columns;
      std::size_t c = c0;
      for (; c + kTile <= c1; c += kTile) {
        std::size_t r = r0;
        for (; r + kTile <= r1; r += kTile) transpose_tile(columns + c, r, rows, c);
        for (; r < r1; ++r) {
          for (std::size_t k = c; k < c + kTile; ++k) rows[r][k] = columns[k][r];
        }
      }
      for (; c < c1; ++c) {
        for (std::size_t r = r0; r < r1; ++r) rows[r][c] = columns[c][r];
      }
    }
  }
}

}  // namespace

extern const RearrangeTable kRearrange = {copy, reverse<double>, reverse<std::uint32_t>, transpose};

}  // namespace zor::kernels::ZOR_LEVEL
