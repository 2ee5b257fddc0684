#include "zor/kernels/moving.h"

#include <algorithm>

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/moving.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(MovingTable, kMoving)

namespace {

/// Keeps the window sorted: the cell that leaves gives its place to the one that enters.
void median_of_sorted_window(std::span<const double> x, std::span<double> window, std::span<double> out) noexcept {
  const std::size_t length = window.size();
  std::copy_n(x.begin(), length, window.begin());
  std::sort(window.begin(), window.end());
  for (std::size_t i = 0;; ++i) {
    out[i] = window[length / 2];
    if (i + 1 == out.size()) return;
    const double gone = x[i], come = x[i + length];
    const auto from = std::lower_bound(window.begin(), window.end(), gone);
    if (come > gone) {
      const auto to = std::lower_bound(from, window.end(), come);
      std::move(from + 1, to, from);
      *(to - 1) = come;
    } else {
      const auto to = std::upper_bound(window.begin(), from, come);
      std::move_backward(to, from, from + 1);
      *to = come;
    }
  }
}

}  // namespace

void moving_symmetric(std::span<const double> x, std::span<const double> weights, double factor, double divisor,
                      std::span<double> out) noexcept {
  table().symmetric(x.data(), weights.data(), weights.size() - 1, factor, divisor, out.data(), out.size());
}

void moving_weighted(std::span<const double> x, std::span<const double> weights, double divisor,
                     std::span<double> out) noexcept {
  table().weighted(x.data(), weights.data(), weights.size(), divisor, out.data(), out.size());
}

void moving_median(std::span<const double> x, std::size_t length, std::span<double> out,
                   std::span<double> work) noexcept {
  if (out.empty()) return;
  if (length < 3) {
    std::copy_n(x.begin(), out.size(), out.begin());
  } else if (length <= kLongestSelectedWindow && out.size() >= kMostLanes) {
    table().median[(length - 3) / 2](x.data(), out.data(), out.size());
  } else {
    median_of_sorted_window(x, work.first(length), out);
  }
}

}  // namespace zor::kernels
