#include "zor/kernels/levels/elementwise.h"

#include "zor/kernels/levels/cells.h"

namespace zor::kernels::ZOR_LEVEL {
namespace {

/// out[i] = cell(i), four registers at a time.
template <class T, class CellAt>
inline void for_cells(T* out, std::size_t n, CellAt cell) {
  constexpr std::size_t lanes = kLanes<T>;
  constexpr Register wide;
  std::size_t i = 0;
  for (; i + 4 * lanes <= n; i += 4 * lanes) {
    const auto a = cell(i, wide), b = cell(i + lanes, wide);
    const auto c = cell(i + 2 * lanes, wide), d = cell(i + 3 * lanes, wide);
    store(out + i, a);
    store(out + i + lanes, b);
    store(out + i + 2 * lanes, c);
    store(out + i + 3 * lanes, d);
  }
  for (; i + lanes <= n; i += lanes) store(out + i, cell(i, wide));
  for (; i < n; ++i) out[i] = cell(i, Cell{});
}

/// out[i] = f(x[i]).
template <class T, class F>
inline void map(const T* x, T* out, std::size_t n, F f) {
  for_cells(out, n, [=](std::size_t i, auto as) { return f(load(x + i, as)); });
}

/// out[i] = f(x[i], y[i]).
template <class T, class F>
inline void map(const T* x, const T* y, T* out, std::size_t n, F f) {
  for_cells(out, n, [=](std::size_t i, auto as) { return f(load(x + i, as), load(y + i, as)); });
}

inline double magnitude(double x) { return __builtin_fabs(x); }
inline VecD magnitude(VecD x) { return (VecD)((VecL)x & INT64_MAX); }
inline std::uint32_t magnitude(std::uint32_t x) { return x >> 31 ? 0u - x : x; }
inline VecU magnitude(VecU x) {
  const VecU sign = (VecU)((VecI)x >> 31);
  return (x ^ sign) - sign;
}

template <class T>
void fill(T* out, T value, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) out[i] = value;
}
template <class T>
void add(const T* x, const T* y, T* out, std::size_t n) {
  map(x, y, out, n, [](auto p, auto q) { return p + q; });
}
template <class T>
void subtract(const T* x, const T* y, T* out, std::size_t n) {
  map(x, y, out, n, [](auto p, auto q) { return p - q; });
}
template <class T>
void multiply(const T* x, const T* y, T* out, std::size_t n) {
  map(x, y, out, n, [](auto p, auto q) { return p * q; });
}
template <class T>
void scale(const T* x, T a, T* out, std::size_t n) {
  map(x, out, n, [a](auto p) { return p * a; });
}
template <class T>
void shift(const T* x, T a, T* out, std::size_t n) {
  map(x, out, n, [a](auto p) { return p + a; });
}
template <class T>
void absolute(const T* x, T* out, std::size_t n) {
  map(x, out, n, [](auto p) { return magnitude(p); });
}
/// As many integers as a register has doubles.
typedef std::int32_t Half __attribute__((vector_size(ZOR_VECTOR_BYTES / 2), aligned(4), may_alias));

inline Half truncated(VecD v) { return __builtin_convertvector(v, Half); }
inline std::int32_t truncated(double v) { return static_cast<std::int32_t>(v); }
inline VecD number_or_zero(VecD v) { return (VecD)((VecL)v & (VecL)(v == v)); }
inline double number_or_zero(double v) { return v == v ? v : 0.0; }

// The limits come before the rounding, so that no cell takes a branch; adding 1.5 * 2^52 rounds, ties to even.
inline auto round_saturated(auto x, auto low, auto high, auto whole) {
  auto y = number_or_zero(x);
  y = y < low ? low : y;
  y = y > high ? high : y;
  return truncated((y + whole) - whole);
}
void round_to_integers(const double* x, std::int32_t* out, std::size_t n) {
  constexpr double low = INT32_MIN, high = INT32_MAX, whole = 0x1.8p52;
  const VecD lows = low - VecD{}, highs = high - VecD{}, wholes = whole - VecD{};
  std::size_t i = 0;
  for (; i + kLanesD <= n; i += kLanesD) {
    *reinterpret_cast<Half*>(out + i) = round_saturated(load(x + i, Register{}), lows, highs, wholes);
  }
  for (; i < n; ++i) out[i] = round_saturated(x[i], low, high, whole);
}
void axpy(double a, const double* x, double* y, std::size_t n) {
  map<double>(y, x, y, n, [a](auto p, auto q) { return p + q * a; });
}
void shift_scale(const double* x, double a, double b, double* out, std::size_t n) {
  map(x, out, n, [a, b](auto p) { return (p - a) / b; });
}

template <class T>
constexpr ElementwiseLoops<T> kLoops = {fill<T>, add<T>, subtract<T>, multiply<T>, scale<T>, shift<T>, absolute<T>};

}  // namespace

extern const ElementwiseTable kElementwise = {kLoops<double>, kLoops<std::uint32_t>, round_to_integers, axpy,
                                              shift_scale};

}  // namespace zor::kernels::ZOR_LEVEL
