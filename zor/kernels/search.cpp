#include "zor/kernels/search.h"

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/search.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(SearchTable, kSearch)

namespace {

using Int = std::int32_t;

std::size_t or_none(std::size_t i, std::size_t n) { return i < n ? i : kNone; }

}  // namespace

std::size_t find_equal(std::span<const double> x, double value) noexcept {
  return or_none(table().real.find_equal(x.data(), x.size(), value), x.size());
}
std::size_t find_equal(std::span<const Int> x, Int value) noexcept {
  return or_none(table().integer.find_equal(x.data(), x.size(), value), x.size());
}

std::size_t count_equal(std::span<const double> x, double value) noexcept {
  return table().real.count_equal(x.data(), x.size(), value);
}
std::size_t count_equal(std::span<const Int> x, Int value) noexcept {
  return table().integer.count_equal(x.data(), x.size(), value);
}

std::size_t nearest(std::span<const double> x, double value, double& difference) noexcept {
  return or_none(table().real.nearest(x.data(), x.size(), value, difference), x.size());
}
std::size_t nearest(std::span<const Int> x, Int value, std::int64_t& difference) noexcept {
  return or_none(table().integer.nearest(x.data(), x.size(), value, difference), x.size());
}

bool all_equal(std::span<const double> x) noexcept {
  return x.empty() || table().real.find_other(x.data(), x.size(), x[0]) == x.size();
}
bool all_equal(std::span<const Int> x) noexcept {
  return x.empty() || table().integer.find_other(x.data(), x.size(), x[0]) == x.size();
}

std::size_t first_difference(std::span<const double> x, std::span<const double> y) noexcept {
  return or_none(table().real.first_difference(x.data(), y.data(), x.size()), x.size());
}
std::size_t first_difference(std::span<const Int> x, std::span<const Int> y) noexcept {
  return or_none(table().integer.first_difference(x.data(), y.data(), x.size()), x.size());
}

bool equal(std::span<const double> x, std::span<const double> y) noexcept {
  return x.size() == y.size() && first_difference(x, y) == kNone;
}
bool equal(std::span<const Int> x, std::span<const Int> y) noexcept {
  return x.size() == y.size() && first_difference(x, y) == kNone;
}

}  // namespace zor::kernels
