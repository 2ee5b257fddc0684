#include "zor/kernels/levels/selection.h"

#include "zor/kernels/levels/level.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace zor::kernels::ZOR_LEVEL {
namespace {

// The cells side by side in a register, and what a comparison of two registers gives: 0 or -1 in each lane.
inline VecD register_of(double v) { return v - VecD{}; }
inline VecI register_of(std::int32_t v) { return v - VecI{}; }

// One bit for each lane that is set.
template <class Mask>
[[gnu::always_inline]] inline unsigned bits_of(Mask m) {
  [[maybe_unused]] constexpr bool wide = sizeof m[0] == sizeof(double);
#if defined(__AVX512F__)
  return wide ? _mm512_movepi64_mask((__m512i)m) : _mm512_movepi32_mask((__m512i)m);
#elif defined(__AVX2__)
  return static_cast<unsigned>(wide ? _mm256_movemask_pd((__m256d)m) : _mm256_movemask_ps((__m256)m));
#elif defined(__x86_64__)
  return static_cast<unsigned>(wide ? _mm_movemask_pd((__m128d)m) : _mm_movemask_ps((__m128)m));
#else
  unsigned bits = 0;
  for (unsigned i = 0; i < sizeof m / sizeof m[0]; ++i) bits |= static_cast<unsigned>(m[i] & 1) << i;
  return bits;
#endif
}

template <class T>
WindowCounts window(T* x, std::size_t n, T low, T high) {
  typedef decltype(register_of(T{})) V;
  typedef decltype(V{} < V{}) Mask;
  constexpr std::size_t lanes = sizeof(V) / sizeof(T), registers = 4, block = lanes * registers;
  WindowCounts c = {};
  const auto to_front = [&](std::size_t i) {
    const T v = x[i];
    x[i] = x[c.between];
    x[c.between++] = v;
  };
  const V lows = register_of(low), highs = register_of(high);
  std::size_t i = 0;
  while (n - i >= block) {
    // The lanes count down in the width of a cell: so many blocks at a time that they cannot overflow.
    const std::size_t blocks = (n - i) / block;
    const std::size_t end = i + (blocks < (1u << 20) ? blocks : (1u << 20)) * block;
    Mask below = {}, upto_low = {}, upto_high = {};
    for (; i < end; i += block) {
      std::uint64_t inside = 0;
      for (std::size_t r = 0; r < registers; ++r) {
        const V v = *reinterpret_cast<const V*>(x + i + r * lanes);
        const Mask above_low = v > lows;
        below += v < lows;
        upto_low += ~above_low;
        upto_high += v <= highs;
        inside |= static_cast<std::uint64_t>(bits_of(above_low & (v < highs))) << (r * lanes);
      }
      for (; inside != 0; inside &= inside - 1) to_front(i + static_cast<std::size_t>(__builtin_ctzll(inside)));
    }
    for (std::size_t j = 0; j < lanes; ++j) {
      c.below += static_cast<std::size_t>(-below[j]);
      c.upto_low += static_cast<std::size_t>(-upto_low[j]);
      c.upto_high += static_cast<std::size_t>(-upto_high[j]);
    }
  }
  for (; i < n; ++i) {
    const T v = x[i];
    c.below += v < low;
    c.upto_low += v <= low;
    c.upto_high += v <= high;
    if (low < v && v < high) to_front(i);
  }
  return c;
}

template <class T>
std::size_t numbers_first(T* x, std::size_t n) {
  typedef decltype(register_of(T{})) V;
  typedef decltype(V{} < V{}) Mask;
  constexpr std::size_t lanes = sizeof(V) / sizeof(T), registers = 8, block = lanes * registers;
  for (std::size_t i = 0; i < n;) {
    if (n - i >= block) {
      Mask nan = {};
      for (std::size_t r = 0; r < registers; ++r) {
        const V v = *reinterpret_cast<const V*>(x + i + r * lanes);
        nan |= v != v;
      }
      if (bits_of(nan) == 0) {
        i += block;
        continue;
      }
    }
    const T v = x[i];
    if (v == v) {
      ++i;
    } else {
      x[i] = x[--n];
      x[n] = v;
    }
  }
  return n;
}

std::size_t all_numbers(std::int32_t*, std::size_t n) { return n; }

}  // namespace

extern const SelectionTable kSelection;
const SelectionTable kSelection = {{window<double>, numbers_first<double>}, {window<std::int32_t>, all_numbers}};

}  // namespace zor::kernels::ZOR_LEVEL
