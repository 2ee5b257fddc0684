#include "zor/kernels/levels/search.h"

#include "zor/kernels/levels/cells.h"

namespace zor::kernels::ZOR_LEVEL {
namespace {

template <class T>
std::size_t find_equal(const T* x, std::size_t n, T value) {
  return first(n, [=](std::size_t i) { return x[i] == value; });
}
template <class T>
std::size_t find_other(const T* x, std::size_t n, T value) {
  return first(n, [=](std::size_t i) { return x[i] != value; });
}
template <class T>
std::size_t first_difference(const T* x, const T* y, std::size_t n) {
  return first(n, [=](std::size_t i) { return x[i] != y[i]; });
}
template <class T>
std::size_t count_equal(const T* x, std::size_t n, T value) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < n; ++i) count += x[i] == value;
  return count;
}

inline double distance(double a, double b) { return __builtin_fabs(a - b); }
inline std::int64_t distance(std::int32_t a, std::int32_t b) {
  const std::int64_t d = std::int64_t{a} - b;
  return d < 0 ? -d : d;
}

/// Batches without a cell nearer than `difference` are passed over in registers.
template <class T, class Difference>
std::size_t nearest(const T* x, std::size_t n, T value, Difference& difference) {
  std::size_t at = n;
  for (std::size_t i = 0;; ++i) {
    const Difference limit = difference;
    i += first(n - i, [=, p = x + i](std::size_t k) { return distance(p[k], value) < limit; });
    if (i == n) return at;
    difference = distance(x[i], value);
    at = i;
  }
}

}  // namespace

extern const SearchTable kSearch = {
    {find_equal<double>, find_other<double>, first_difference<double>, count_equal<double>, nearest<double, double>},
    {find_equal<std::int32_t>, find_other<std::int32_t>, first_difference<std::int32_t>, count_equal<std::int32_t>,
     nearest<std::int32_t, std::int64_t>}};

}  // namespace zor::kernels::ZOR_LEVEL
