#include "zor/kernels/sums.h"

namespace zor::kernels {
namespace {

using Word = std::uint32_t;

/// start + term(0) + term(1) + ..., one chain.
template <class Term>
double chain(std::size_t n, double start, Term term) {
  double sum = start;
  for (std::size_t i = 0; i < n; ++i) sum += term(i);
  return sum;
}

}  // namespace

double sum_in_order(std::span<const double> x, double start) noexcept {
  return chain(x.size(), start, [p = x.data()](std::size_t i) { return p[i]; });
}

double dot_in_order(std::span<const double> x, std::span<const double> y, double start) noexcept {
  return chain(x.size(), start, [p = x.data(), q = y.data()](std::size_t i) { return p[i] * q[i]; });
}

double dot_strided_in_order(const double* x, std::ptrdiff_t x_stride, const double* y, std::ptrdiff_t y_stride,
                            std::size_t n, double start) noexcept {
  return chain(n, start, [=](std::size_t i) {
    const auto k = static_cast<std::ptrdiff_t>(i);
    return x[k * x_stride] * y[k * y_stride];
  });
}

double sum_strided_in_order(const double* x, std::ptrdiff_t stride, std::size_t n, double start) noexcept {
  return chain(n, start, [=](std::size_t i) { return x[static_cast<std::ptrdiff_t>(i) * stride]; });
}

double sum_of_squares_in_order(std::span<const double> x, double start) noexcept { return dot_in_order(x, x, start); }

double squared_distance_in_order(std::span<const double> x, std::span<const double> y, double start) noexcept {
  return chain(x.size(), start, [p = x.data(), q = y.data()](std::size_t i) {
    const double d = p[i] - q[i];
    return d * d;
  });
}

std::int32_t sum_wrapping(std::span<const std::int32_t> x) noexcept {
  Word sum = 0;
  for (const std::int32_t v : x) sum += static_cast<Word>(v);
  return static_cast<std::int32_t>(sum);
}

std::int32_t dot_wrapping(std::span<const std::int32_t> x, std::span<const std::int32_t> y) noexcept {
  Word sum = 0;
  for (std::size_t i = 0; i < x.size(); ++i) sum += static_cast<Word>(x[i]) * static_cast<Word>(y[i]);
  return static_cast<std::int32_t>(sum);
}

std::int64_t sum_wide(std::span<const std::int32_t> x) noexcept {
  std::int64_t sum = 0;
  for (const std::int32_t v : x) sum += v;
  return sum;
}

}  // namespace zor::kernels
