#pragma once

#include <array>
#include <bit>
#include <concepts>
#include <utility>

#include "zor/base/ZOR_zorbase.h"

/// \file  Byte order of numbers.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Types that ConvertEndian takes; an argument of another type is an error, not a silent conversion.
template <class T>
concept EndianNumber =
    std::same_as<T, Double> || std::same_as<T, Single> || std::same_as<T, Word> || std::same_as<T, Integer>;

/// The number with its bytes in reverse order. A float made so may be any pattern of bits, a signaling NaN among them:
/// keep it as it is until it is converted back.
template <EndianNumber T>
constexpr T ConvertEndian(T value) noexcept {
  auto bytes = std::bit_cast<std::array<Byte, sizeof(T)>>(value);
  for (std::size_t i = 0; i < sizeof(T) / 2; ++i) std::swap(bytes[i], bytes[sizeof(T) - 1 - i]);
  return std::bit_cast<T>(bytes);
}

}  // namespace ZOR_math1
