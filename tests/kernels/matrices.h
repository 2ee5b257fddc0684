#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

/// \file  Matrices as the kernels take them, and what tests of factorisations ask about them.
/// Residuals are computed in long double, whose exponents reach further, and told in units of eps * size * norm.

namespace zor::kernels::test {

class Matrix {
 public:
  Matrix(std::size_t rows, std::size_t cols) : rows_(rows), cells_(rows * cols) { point(cols); }
  /// Written as on paper, row after row.
  Matrix(std::initializer_list<std::initializer_list<double>> lines) : Matrix(lines.size(), lines.begin()->size()) {
    std::size_t r = 0;
    for (const auto& line : lines) {
      std::size_t c = 0;
      for (const double x : line) (*this)(r, c++) = x;
      ++r;
    }
  }
  Matrix(const Matrix& other) : rows_(other.rows_), cells_(other.cells_) { point(other.cols()); }
  Matrix& operator=(const Matrix& other) {
    rows_ = other.rows_;
    cells_ = other.cells_;
    point(other.cols());
    return *this;
  }

  std::size_t rows() const { return rows_; }
  std::size_t cols() const { return columns_.size(); }
  double& operator()(std::size_t r, std::size_t c) { return columns_[c][r]; }
  double operator()(std::size_t r, std::size_t c) const { return columns_[c][r]; }
  double* const* columns() { return columns_.data(); }
  const std::vector<double>& cells() const { return cells_; }

 private:
  void point(std::size_t cols) {
    columns_.clear();
    for (std::size_t c = 0; c < cols; ++c) columns_.push_back(cells_.data() + c * rows_);
  }
  std::size_t rows_;
  std::vector<double> cells_;
  std::vector<double*> columns_;
};

/// The norm of which a subnormal cell's last place is 2^-52.
inline constexpr long double kLeastNorm = 0x1p-1022L;

inline long double norm_of(const Matrix& a) {
  long double sum = 0;
  for (const double x : a.cells()) sum += static_cast<long double>(x) * x;
  return std::sqrt(sum);
}

/// Size of what cell(r, c) gives, in units of eps * size * norm.
template <class Cell>
double ratio(std::size_t rows, std::size_t cols, long double norm, const Cell& cell) {
  long double sum = 0;
  for (std::size_t r = 0; r < rows; ++r)
    for (std::size_t c = 0; c < cols; ++c) {
      const long double x = cell(r, c);
      sum += x * x;
    }
  const auto unit = 0x1p-52L * static_cast<long double>(std::max(rows, cols)) * norm;
  return static_cast<double>(sum == 0 ? 0.0L : std::sqrt(sum) / unit);
}

/// Distance of the columns from orthonormal ones.
inline double orthogonality_ratio(const Matrix& q) {
  return ratio(q.cols(), q.cols(), 1, [&](std::size_t i, std::size_t j) {
    long double sum = i == j ? -1 : 0;
    for (std::size_t r = 0; r < q.rows(); ++r) sum += static_cast<long double>(q(r, i)) * q(r, j);
    return sum;
  });
}

/// Kinds of matrices that methods stumble over.
struct Kind {
  std::string name;
  double (*cell)(std::size_t r, std::size_t c, double noise);
};
inline const std::vector<Kind>& kinds() {
  static const auto as_double = [](std::size_t i) { return static_cast<double>(i); };
  static const std::vector<Kind> all = {
      {"random", [](auto, auto, double x) { return x; }},
      {"zero", [](auto, auto, double) { return 0.0; }},
      {"identity", [](auto r, auto c, double) { return r == c ? 1.0 : 0.0; }},
      {"all equal", [](auto, auto, double) { return 0.7; }},
      {"repeated values", [](auto r, auto c, double) { return r == c ? 3.0 : 1.0; }},
      {"Hilbert", [](auto r, auto c, double) { return 1.0 / as_double(r + c + 1); }},
      {"falling", [](auto r, auto c, double x) { return x * std::pow(10.0, -as_double(r + c)); }},
      {"rising", [](auto r, auto c, double x) { return x * std::pow(10.0, as_double(r + c)); }},
      {"tiny", [](auto, auto, double x) { return x * 1e-305; }},
      {"subnormal", [](auto, auto, double x) { return x * 1e-310; }},
      {"huge", [](auto, auto, double x) { return x * 1e307; }},
      {"tiny beside one", [](auto r, auto c, double x) { return (r + c) % 3 == 0 ? 1.0 : x * 1e-162; }},
      {"every size", [](auto, auto, double x) { return std::ldexp(x, static_cast<int>(std::fmod(x * 1e9, 1000.0))); }},
      {"integers", [](auto, auto, double x) { return std::round(3 * x); }},
      {"triangular", [](auto r, auto c, double x) { return r > c ? 0.0 : x; }},
  };
  return all;
}
inline Matrix make(const Kind& kind, std::size_t rows, std::size_t cols, bool symmetric = false) {
  std::mt19937_64 bits(7);
  Matrix a(rows, cols);
  for (std::size_t c = 0; c < cols; ++c)
    for (std::size_t r = 0; r < rows; ++r) {
      const double noise = static_cast<double>(bits() >> 11) * 0x1p-52 - 1.0;
      a(r, c) = symmetric && r < c ? a(c, r) : kind.cell(r, c, noise);
    }
  return a;
}

}  // namespace zor::kernels::test
