#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <span>
#include <vector>

#include "zor/kernels/dispatch.h"

/// \file  Runs of cells for the tests of the kernels.

namespace zor::kernels::test {

/// Calls check() on every level of this processor.
template <class Check>
void on_every_level(Check check) {
  for (const Level level : {Level::v2, Level::v3, Level::v4}) {
    limit_level(level);
    check();
  }
}

/// 0 to 3, around the widths of registers and of batches, and some long runs.
inline const std::vector<std::size_t> kLengths{0,  1,  2,  3,  4,  5,   7,   8,   9,    15,   16,   17,   31,
                                               32, 33, 63, 64, 65, 127, 128, 129, 1000, 2047, 2048, 2049, 5000};

/// Uniform numbers in [-1, 1); integers over the whole range.
template <class T>
std::vector<T> noise(std::size_t n, unsigned seed = 1) {
  std::mt19937 bits(seed);
  std::vector<T> x(n);
  for (T& v : x) {
    if constexpr (std::is_integral_v<T>) {
      v = static_cast<T>(bits());
    } else {
      v = static_cast<T>(static_cast<double>(bits()) * 0x1p-31 - 1.0);
    }
  }
  return x;
}

inline constexpr double kInf = std::numeric_limits<double>::infinity();
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Noise with what doubles have at their edges strewn in.
inline std::vector<double> edges(std::size_t n, unsigned seed = 2) {
  const double special[] = {0.0, -0.0, kInf, -kInf, kNaN, 5e-324, -2.2e-308, 1.7e308, -1.7e308, 1e-200, 1.0};
  std::vector<double> x = noise<double>(n, seed);
  for (std::size_t i = 0; i < n; i += 3) x[i] = special[(i / 3 + seed) % std::size(special)];
  return x;
}

/// Same bits, or both NaN.
inline bool same(double a, double b) { return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0; }
inline bool same(std::int32_t a, std::int32_t b) { return a == b; }
template <class T>
bool same(const std::vector<T>& a, const std::vector<T>& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (!same(a[i], b[i])) return false;
  return true;
}

}  // namespace zor::kernels::test
