#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "zor/export.h"

/// \file  Names of the scalar types, and the one pair of helpers between them and `std::size_t`.

namespace ZOR_runtime {

using Integer = std::int32_t;
using Cardinal = std::uint32_t;
using Int64 = std::int64_t;
using ShortInt = std::int8_t;
using Byte = std::uint8_t;
using Word = std::uint16_t;
using Boolean = bool;
using Double = double;
using Extended = Double;
using Single = float;
using Char = char16_t;

static_assert(sizeof(Double) == 8 && std::numeric_limits<Double>::is_iec559, "IEEE 754 doubles are needed");
static_assert(sizeof(Single) == 4 && sizeof(Boolean) == 1);

}  // namespace ZOR_runtime

namespace zor::detail {

/// Size or index as the kernels take it; negative counts as 0.
constexpr std::size_t to_size(std::int64_t n) noexcept { return n < 0 ? 0 : static_cast<std::size_t>(n); }

inline constexpr std::int32_t kMaxInteger = 2147483647;

/// Size or index as the interfaces give it; at most the largest Integer.
constexpr std::int32_t to_integer(std::size_t n) noexcept {
  constexpr std::size_t kMax = kMaxInteger;
  return static_cast<std::int32_t>(n < kMax ? n : kMax);
}

}  // namespace zor::detail
