#include "zor/kernels/levels/elementwise.h"

#include "zor/kernels/levels/level.h"

namespace zor::kernels::ZOR_LEVEL {
namespace {

typedef std::uint32_t VecU __attribute__((vector_size(ZOR_VECTOR_BYTES), aligned(4), may_alias));

template <class T>
struct Register;
template <>
struct Register<double> {
  typedef VecD type;
};
template <>
struct Register<std::uint32_t> {
  typedef VecU type;
};

/// out[i] = op(i-th cells), four registers at a time. `at` gives the operands of one place as V, a register or a cell.
template <class T, class Op>
inline void for_cells(T* out, std::size_t n, Op op) {
  using V = typename Register<T>::type;
  constexpr std::size_t lanes = sizeof(V) / sizeof(T);
  std::size_t i = 0;
  for (; i + 4 * lanes <= n; i += 4 * lanes) {
    const V a = op.template at<V>(i), b = op.template at<V>(i + lanes);
    const V c = op.template at<V>(i + 2 * lanes), d = op.template at<V>(i + 3 * lanes);
    *reinterpret_cast<V*>(out + i) = a;
    *reinterpret_cast<V*>(out + i + lanes) = b;
    *reinterpret_cast<V*>(out + i + 2 * lanes) = c;
    *reinterpret_cast<V*>(out + i + 3 * lanes) = d;
  }
  for (; i + lanes <= n; i += lanes) *reinterpret_cast<V*>(out + i) = op.template at<V>(i);
  for (; i < n; ++i) out[i] = op.template at<T>(i);
}

template <class V, class T>
inline V load(const T* x) {
  return *reinterpret_cast<const V*>(x);
}

/// f(x[i]).
template <class T, class F>
struct Unary {
  const T* x;
  F f;
  template <class V>
  V at(std::size_t i) const {
    return f(load<V>(x + i));
  }
};
template <class T, class F>
Unary(const T*, F) -> Unary<T, F>;

/// f(x[i], y[i]).
template <class T, class F>
struct Binary {
  const T* x;
  const T* y;
  F f;
  template <class V>
  V at(std::size_t i) const {
    return f(load<V>(x + i), load<V>(y + i));
  }
};
template <class T, class F>
Binary(const T*, const T*, F) -> Binary<T, F>;

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
  for_cells(out, n, Binary{x, y, [](auto p, auto q) { return p + q; }});
}
template <class T>
void subtract(const T* x, const T* y, T* out, std::size_t n) {
  for_cells(out, n, Binary{x, y, [](auto p, auto q) { return p - q; }});
}
template <class T>
void multiply(const T* x, const T* y, T* out, std::size_t n) {
  for_cells(out, n, Binary{x, y, [](auto p, auto q) { return p * q; }});
}
template <class T>
void scale(const T* x, T a, T* out, std::size_t n) {
  for_cells(out, n, Unary{x, [a](auto p) { return p * a; }});
}
template <class T>
void shift(const T* x, T a, T* out, std::size_t n) {
  for_cells(out, n, Unary{x, [a](auto p) { return p + a; }});
}
template <class T>
void absolute(const T* x, T* out, std::size_t n) {
  for_cells(out, n, Unary{x, [](auto p) { return magnitude(p); }});
}
void axpy(double a, const double* x, double* y, std::size_t n) {
  for_cells(y, n, Binary{static_cast<const double*>(y), x, [a](auto p, auto q) { return p + q * a; }});
}
void shift_scale(const double* x, double a, double b, double* out, std::size_t n) {
  for_cells(out, n, Unary{x, [a, b](auto p) { return (p - a) / b; }});
}

template <class T>
constexpr ElementwiseLoops<T> kLoops = {fill<T>, add<T>, subtract<T>, multiply<T>, scale<T>, shift<T>, absolute<T>};

}  // namespace

extern const ElementwiseTable kElementwise = {kLoops<double>, kLoops<std::uint32_t>, axpy, shift_scale};

}  // namespace zor::kernels::ZOR_LEVEL
