#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "zor/runtime/streams.h"

/// Reports a broken claim to the fuzzer.
inline void require(bool claim) {
  if (!claim) __builtin_trap();
}

/// Stream over bytes in memory that hands out a few at a time, so that readers meet the border of their buffer
/// everywhere.
class SlowStream : public ZOR_runtime::TStream {
 public:
  explicit SlowStream(std::string_view bytes) : bytes_(bytes) {}
  std::int64_t Read(void* to, std::int64_t count) override {
    const auto left = std::max<std::int64_t>(0, Size() - position_);
    const auto n = std::min({count, left, std::int64_t{1} + position_ % 7});
    std::copy_n(bytes_.data() + position_, n, static_cast<char*>(to));
    position_ += n;
    return n;
  }
  std::int64_t Write(const void*, std::int64_t) override { return 0; }
  std::int64_t Seek(std::int64_t offset, ZOR_runtime::TSeekOrigin origin) override {
    const std::int64_t from = origin == ZOR_runtime::soBeginning ? 0
                              : origin == ZOR_runtime::soEnd     ? Size()
                                                                 : position_;
    return position_ = std::clamp<std::int64_t>(from + offset, 0, Size());
  }
  std::int64_t Size() override { return static_cast<std::int64_t>(bytes_.size()); }
  void SetSize(std::int64_t) override {}

 private:
  std::string_view bytes_;
  std::int64_t position_ = 0;
};
