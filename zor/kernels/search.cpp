#include "zor/kernels/search.h"

#include <cmath>
#include <cstdlib>

namespace zor::kernels {
namespace {

template <class T>
std::size_t find(std::span<const T> x, T value) {
  for (std::size_t i = 0; i < x.size(); ++i)
    if (x[i] == value) return i;
  return kNone;
}
template <class T>
std::size_t count(std::span<const T> x, T value) {
  std::size_t n = 0;
  for (const T v : x) n += v == value;
  return n;
}
template <class T>
std::size_t difference(std::span<const T> x, std::span<const T> y) {
  for (std::size_t i = 0; i < x.size(); ++i)
    if (x[i] != y[i]) return i;
  return kNone;
}

}  // namespace

std::size_t find_equal(std::span<const double> x, double value) noexcept { return find(x, value); }
std::size_t find_equal(std::span<const std::int32_t> x, std::int32_t value) noexcept { return find(x, value); }
std::size_t count_equal(std::span<const double> x, double value) noexcept { return count(x, value); }
std::size_t count_equal(std::span<const std::int32_t> x, std::int32_t value) noexcept { return count(x, value); }

std::size_t nearest(std::span<const double> x, double value, double& diff) noexcept {
  std::size_t at = kNone;
  for (std::size_t i = 0; i < x.size(); ++i)
    if (const double d = std::abs(x[i] - value); d < diff) diff = d, at = i;
  return at;
}
std::size_t nearest(std::span<const std::int32_t> x, std::int32_t value, std::int64_t& diff) noexcept {
  std::size_t at = kNone;
  for (std::size_t i = 0; i < x.size(); ++i)
    if (const std::int64_t d = std::abs(std::int64_t{x[i]} - value); d < diff) diff = d, at = i;
  return at;
}

bool all_equal(std::span<const double> x) noexcept { return x.empty() || count(x, x[0]) == x.size(); }
bool all_equal(std::span<const std::int32_t> x) noexcept { return x.empty() || count(x, x[0]) == x.size(); }

std::size_t first_difference(std::span<const double> x, std::span<const double> y) noexcept { return difference(x, y); }
std::size_t first_difference(std::span<const std::int32_t> x, std::span<const std::int32_t> y) noexcept {
  return difference(x, y);
}

bool equal(std::span<const double> x, std::span<const double> y) noexcept {
  return x.size() == y.size() && first_difference(x, y) == kNone;
}
bool equal(std::span<const std::int32_t> x, std::span<const std::int32_t> y) noexcept {
  return x.size() == y.size() && first_difference(x, y) == kNone;
}

}  // namespace zor::kernels
