#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <type_traits>

#include "zor/base/array_types.h"
#include "zor/runtime/numbers.h"
#include "zor/runtime/text.h"

/// \file  Counting cells into the bins of a histogram.

namespace zor::detail {

/// The bins [first + b width, + width), the last of which begins at `last`, and what they count.
template <class T>
class BinCounter {
 public:
  /// Integers are counted in 64 bits, where neither limits nor distances can overflow.
  using Wide = std::conditional_t<std::is_floating_point_v<T>, double, std::int64_t>;

  /// An integer width below 1 counts as 1.
  BinCounter(T first, T last, T width, std::int64_t most) noexcept : first_(first), width_(width) {
    if constexpr (std::is_floating_point_v<T>) {
      end_ = last + width_;
      const double ratio = std::abs(last - first) / width;
      // Half a bin more would round to one bin too many.
      valid_ = width > 0.0 && std::isfinite(first_) && std::isfinite(end_) && ratio < static_cast<double>(most) - 0.5;
      if (valid_) bins_ = ZOR_runtime::Round(ratio) + 1;
    } else {
      width_ = std::max<Wide>(width, 1);
      end_ = last + width_;
      const std::int64_t distance = std::int64_t{last} - first;
      bins_ = (distance < 0 ? -distance : distance) / width_ + 1;
      valid_ = bins_ <= most;
    }
  }

  /// False for a width not above 0, limits that are not finite, or more than `most` bins.
  bool valid() const noexcept { return valid_; }

  /// Sizes and clears `histogram`, which put() counts into from then on.
  void start(ZOR_zorbase::TIntArray& histogram) {
    if (ZOR_runtime::Length(histogram) != bins_) ZOR_runtime::SetLength(histogram, bins_);
    std::ranges::fill(histogram, 0);
    counts_ = histogram.data();
  }

  /// Counts x `times` times.
  void put(Wide x, std::int64_t times = 1) noexcept {
    if (x < first_) return add(underflow, times);
    if (!(x < end_)) return add(overflow, times);
    const Wide offset = (x - first_) / width_;
    const auto bin = static_cast<std::int64_t>(offset);
    if (bin >= bins_) return add(overflow, times);  // no whole number of bins, or a quotient rounded up
    add(counts_[bin], times);
    largest = std::max(largest, counts_[bin]);
  }

  std::int32_t underflow = 0, overflow = 0, largest = 0;

 private:
  static void add(std::int32_t& counter, std::int64_t by) noexcept {
    counter = static_cast<std::int32_t>(std::min<std::int64_t>(std::int64_t{counter} + by, kMaxInteger));
  }

  Wide first_, width_, end_ = 0;
  std::int64_t bins_ = 0;
  bool valid_ = false;
  std::int32_t* counts_ = nullptr;
};

}  // namespace zor::detail
