#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <utility>

#include "zor/runtime/numbers.h"
#include "zor/runtime/types.h"

/// \file  Values that a reader delivers one by one, handed on in runs.

namespace zor::detail {

/// Collects values for consecutive elements and hands them to store(span, first element) in runs: a container without
/// observers then copies blocks. What is collected goes out with flush, which the reader calls at its end.
template <class T>
class RunWriter {
 public:
  using Store = std::function<void(std::span<const T>, std::int64_t)>;
  explicit RunWriter(Store store) : store_(std::move(store)) {}

  void put(std::int64_t elem, T value) {
    if (used_ == run_.size() || elem != first_ + static_cast<std::int64_t>(used_)) flush();
    if (used_ == 0) first_ = elem;
    run_[used_++] = value;
  }
  void flush() {
    const std::size_t n = used_;
    used_ = 0;
    if (n != 0) store_(std::span<const T>(run_.data(), n), first_);
  }

 private:
  Store store_;
  std::array<T, 512> run_;
  std::size_t used_ = 0;
  std::int64_t first_ = 0;
};

}  // namespace zor::detail
