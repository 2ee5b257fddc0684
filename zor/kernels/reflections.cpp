#include "zor/kernels/reflections.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/reflections.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(ReflectionsTable, kReflections)

namespace {

/// Sums of squares between these bounds have all their digits.
bool has_square_root(double sum_of_squares) { return sum_of_squares > 0x1p-900 && sum_of_squares < 0x1p1000; }

/// The power of 2 that takes a number to between 0.5 and 1, as far as the
/// exponents go.
double power_to_one(double size) {
  int exponent = 0;
  static_cast<void>(std::frexp(size, &exponent));
  return std::ldexp(1.0, std::clamp(-exponent, -1022, 1023));
}

void multiply(double* x, std::size_t n, double factor) {
  for (std::size_t i = 0; i < n; ++i) x[i] *= factor;
}

}  // namespace

double dot_in_eight(const double* x, const double* y, std::size_t n) noexcept { return table().dot(x, y, n); }

double largest_magnitude(const double* x, std::size_t n) noexcept {
  return std::bit_cast<double>(table().largest(x, n));
}

double hypotenuse(double a, double b) noexcept {
  const double sum = a * a + b * b;
  if (has_square_root(sum)) return std::sqrt(sum);
  const double largest = std::max(std::abs(a), std::abs(b));
  if (largest == 0.0 || !std::isfinite(largest)) return largest;
  const double scale = power_to_one(largest);
  a *= scale;
  b *= scale;
  return std::sqrt(a * a + b * b) / scale;
}

double scale_matrix(double* const* a, std::size_t cols, std::size_t rows) noexcept {
  std::uint64_t bits = 0;
  for (std::size_t c = 0; c < cols; ++c) bits = std::max(bits, table().largest(a[c], rows));
  const double largest = std::bit_cast<double>(bits);
  if (!std::isfinite(largest)) return std::numeric_limits<double>::quiet_NaN();
  if (largest == 0.0 || (largest > 0x1p-100 && largest < 0x1p100)) return 1.0;
  const double scale = power_to_one(largest);
  for (std::size_t c = 0; c < cols; ++c) multiply(a[c], rows, scale);
  return scale;
}

void normalize(double* x, std::size_t n) noexcept {
  multiply(x, n, power_to_one(largest_magnitude(x, n)));
  multiply(x, n, 1.0 / std::sqrt(dot_in_eight(x, x, n)));
}

Reflection make_reflection(double* x, std::size_t n) noexcept {
  double scale = 1.0;
  double rest = dot_in_eight(x + 1, x + 1, n - 1);
  if (!has_square_root(x[0] * x[0] + rest)) {
    const double largest = largest_magnitude(x, n);
    if (largest != 0.0) {
      scale = power_to_one(largest);
      multiply(x, n, scale);
      rest = dot_in_eight(x + 1, x + 1, n - 1);
    }
  }
  const double first = std::exchange(x[0], 1.0);
  if (rest == 0.0) {
    std::fill(x + 1, x + n, 0.0);
    return {0.0, first / scale};
  }
  const double image = -std::copysign(std::sqrt(first * first + rest), first);
  const double pivot = first - image;
  for (std::size_t i = 1; i < n; ++i) x[i] /= pivot;
  return {-pivot / image, image / scale};
}

void reflect_columns(const double* v, double tau, double* const* a, std::size_t cols, std::size_t row,
                     std::size_t rows) noexcept {
  if (tau != 0.0) table().from_left(v, tau, a, cols, row, rows);
}

void reflect_rows(const double* v, double tau, double* const* a, std::size_t cols, std::size_t row,
                  std::size_t rows) noexcept {
  if (tau != 0.0) table().from_right(v, tau, a, cols, row, rows);
}

namespace {
/// Reflection k of form_product joins the product of those behind it.
void join_product(double* const* a, const double* tau, std::size_t k, std::size_t cols, std::size_t row,
                  std::size_t rows) {
  double* const v = a[k] + row + k;
  const std::size_t length = rows - k;
  reflect_columns(v, tau[k], a + k + 1, cols - k - 1, row + k, length);
  for (std::size_t i = 1; i < length; ++i) v[i] *= -tau[k];
  v[0] = 1.0 - tau[k];
  std::fill(a[k], v, 0.0);
}
}  // namespace

void form_product(double* const* a, const double* tau, std::size_t cols, std::size_t row, std::size_t rows) noexcept {
  for (std::size_t k = cols; k-- > 0;) join_product(a, tau, k, cols, row, rows);
}

bool form_product(double* const* a, const double* tau, std::size_t cols, std::size_t row, std::size_t rows,
                  StepAborts step) {
  for (std::size_t k = cols; k-- > 0;) {
    if (step()) return false;
    join_product(a, tau, k, cols, row, rows);
  }
  return true;
}

void combine_columns(const double* const* a, const double* u, std::size_t cols, std::size_t row, std::size_t rows,
                     double* out) noexcept {
  table().combine(a, u, cols, row, rows, out);
}

void update_multiply(double* a, const double* v, const double* w, const double* x, double* p, std::size_t n) noexcept {
  table().update_multiply(a, v, w, x, p, n);
}

void rotate_pair(double* const* z, std::size_t rows, double c, double s) noexcept {
  table().rotate(z, 1, 1, &c, &s, 0, rows);
}

RotationLog::RotationLog(double* const* z, std::size_t rows, std::size_t cols, double* work) noexcept
    : z_(z), rows_(rows), cols_(cols), c_(work), s_(work + kChains * cols) {}

void RotationLog::begin(std::size_t first, std::ptrdiff_t step) noexcept {
  if (!z_) return;
  if (chains_ == kChains || end_ + cols_ > kChains * cols_) flush();
  chain_[chains_++] = {first, end_, step};
}

void RotationLog::flush() noexcept {
  constexpr std::size_t kRows = 64;
  chain_[chains_].start = end_;
  for (std::size_t row = 0; row < rows_ && end_ != 0; row += kRows) {
    const std::size_t rows = std::min(kRows, rows_ - row);
    for (std::size_t i = 0; i < chains_; ++i) {
      const Chain& chain = chain_[i];
      table().rotate(z_ + chain.first, chain.step, chain_[i + 1].start - chain.start, c_ + chain.start,
                     s_ + chain.start, row, rows);
    }
  }
  end_ = chains_ = 0;
}

}  // namespace zor::kernels
