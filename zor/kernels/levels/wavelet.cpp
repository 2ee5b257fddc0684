#include "zor/kernels/levels/wavelet.h"

#include "zor/kernels/levels/cells.h"

namespace zor::kernels::ZOR_LEVEL {
namespace {

/// A register of every other cell, and back. `split` leaves the lanes in the order that costs one instruction; `sorted`
/// puts them right, once for each result.
#if ZOR_VECTOR_BYTES == 64
inline VecD split_even(VecD a, VecD b) { return __builtin_shufflevector(a, b, 0, 2, 4, 6, 8, 10, 12, 14); }
inline VecD split_odd(VecD a, VecD b) { return __builtin_shufflevector(a, b, 1, 3, 5, 7, 9, 11, 13, 15); }
inline VecD sorted(VecD v) { return v; }
inline VecD merged_front(VecD e, VecD o) { return __builtin_shufflevector(e, o, 0, 8, 1, 9, 2, 10, 3, 11); }
inline VecD merged_back(VecD e, VecD o) { return __builtin_shufflevector(e, o, 4, 12, 5, 13, 6, 14, 7, 15); }
#elif ZOR_VECTOR_BYTES == 32
inline VecD split_even(VecD a, VecD b) { return __builtin_shufflevector(a, b, 0, 4, 2, 6); }
inline VecD split_odd(VecD a, VecD b) { return __builtin_shufflevector(a, b, 1, 5, 3, 7); }
inline VecD sorted(VecD v) { return __builtin_shufflevector(v, v, 0, 2, 1, 3); }
inline VecD merged_front(VecD e, VecD o) { return __builtin_shufflevector(e, o, 0, 4, 1, 5); }
inline VecD merged_back(VecD e, VecD o) { return __builtin_shufflevector(e, o, 2, 6, 3, 7); }
#else
inline VecD split_even(VecD a, VecD b) { return __builtin_shufflevector(a, b, 0, 2); }
inline VecD split_odd(VecD a, VecD b) { return __builtin_shufflevector(a, b, 1, 3); }
inline VecD sorted(VecD v) { return v; }
inline VecD merged_front(VecD e, VecD o) { return __builtin_shufflevector(e, o, 0, 2); }
inline VecD merged_back(VecD e, VecD o) { return __builtin_shufflevector(e, o, 1, 3); }
#endif

// Sums start from 0.0, as those of the plain loop do: that turns a negative zero into a positive one.

template <std::size_t Length>
void forward(const double* cells, std::size_t half, double* smooth, double* detail, FilterPair filters) {
  double low[Length], high[Length];
  for (std::size_t k = 0; k < Length; ++k) low[k] = filters.low[k], high[k] = filters.high[k];
  std::size_t i = half;
  for (; i >= kForwardEdge + kLanesD; i -= kLanesD) {
    const double* const x = cells + 2 * (i - kLanesD) + 2 - Length;
    VecD s = {}, d = {};
    for (std::size_t k = 0; k < Length; k += 2) {
      const VecD a = load(x + k, Register{}), b = load(x + k + kLanesD, Register{});
      const VecD even = split_even(a, b), odd = split_odd(a, b);
      s = s + low[k] * even + low[k + 1] * odd;
      d = d + high[k] * even + high[k + 1] * odd;
    }
    store(smooth + i - kLanesD, sorted(s));
    store(detail + i - kLanesD, sorted(d));
  }
  for (; i > kForwardEdge; --i) {
    const double* const x = cells + 2 * i - Length;
    double s = 0.0, d = 0.0;
    for (std::size_t k = 0; k < Length; ++k) s += low[k] * x[k], d += high[k] * x[k];
    smooth[i - 1] = s;
    detail[i - 1] = d;
  }
}

template <std::size_t Length>
void inverse(const double* smooth, const double* detail, std::size_t half, double* cells, FilterPair filters) {
  double low[Length], high[Length];
  for (std::size_t k = 0; k < Length; ++k) low[k] = filters.low[k], high[k] = filters.high[k];
  std::size_t i = kInverseEdge / 2;
  const std::size_t end = half - kInverseEdge / 2;
  for (; i + kLanesD <= end; i += kLanesD) {
    VecD even = {}, odd = {};
    for (std::size_t m = 0; m < Length / 2; ++m) {
      const VecD s = load(smooth + i + m, Register{}), d = load(detail + i + m, Register{});
      even = even + (low[Length - 2 - 2 * m] * s + high[Length - 2 - 2 * m] * d);
      odd = odd + (low[Length - 1 - 2 * m] * s + high[Length - 1 - 2 * m] * d);
    }
    store(cells + 2 * i, merged_front(even, odd));
    store(cells + 2 * i + kLanesD, merged_back(even, odd));
  }
  for (; i < end; ++i) {
    double even = 0.0, odd = 0.0;
    for (std::size_t m = 0; m < Length / 2; ++m) {
      const double s = smooth[i + m], d = detail[i + m];
      even += low[Length - 2 - 2 * m] * s + high[Length - 2 - 2 * m] * d;
      odd += low[Length - 1 - 2 * m] * s + high[Length - 1 - 2 * m] * d;
    }
    cells[2 * i] = even;
    cells[2 * i + 1] = odd;
  }
}

void forward_any(const double* cells, std::size_t half, double* smooth, double* detail, FilterPair filters) {
  const auto step = filters.length == 2 ? forward<2> : filters.length == 4 ? forward<4> : forward<6>;
  step(cells, half, smooth, detail, filters);
}

void inverse_any(const double* smooth, const double* detail, std::size_t half, double* cells, FilterPair filters) {
  const auto step = filters.length == 2 ? inverse<2> : filters.length == 4 ? inverse<4> : inverse<6>;
  step(smooth, detail, half, cells, filters);
}

}  // namespace

extern const WaveletTable kWavelet;
const WaveletTable kWavelet = {forward_any, inverse_any};

}  // namespace zor::kernels::ZOR_LEVEL
