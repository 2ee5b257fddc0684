#pragma once

#include <bit>

#include "zor/base/ZOR_zorbase.h"

/// \file  Routines on bits; bit 0 is the lowest one.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Gray code of n: bit k of the result is bit k xor bit k + 1 of n.
constexpr Word GrayCode(Word n) noexcept { return static_cast<Word>(n ^ (n >> 1)); }

/// The byte with its bits in reverse order.
constexpr Byte BitReversal(Byte b) noexcept {
  unsigned v = b;
  v = (v & 0xF0U) >> 4 | (v & 0x0FU) << 4;
  v = (v & 0xCCU) >> 2 | (v & 0x33U) << 2;
  v = (v & 0xAAU) >> 1 | (v & 0x55U) << 1;
  return static_cast<Byte>(v);
}

/// Number of set bits.
constexpr Integer CountBits(Byte b) noexcept { return std::popcount(b); }

/// 2^i for i from 0 to 7, else 0.
constexpr Integer DecodeBit(Integer i) noexcept { return i >= 0 && i <= 7 ? 1 << i : 0; }

/// 2^i for i from 0 to 31, else 0; bit 31 is the sign, so DecodeLong(31) is -2147483648.
constexpr Integer DecodeLong(Integer i) noexcept { return i >= 0 && i <= 31 ? static_cast<Integer>(1U << i) : 0; }

/// Index of the lowest set bit; 31 if none is set below bit 31, so also for 0.
constexpr Integer EncodeLong(Integer n) noexcept { return std::countr_zero(static_cast<Cardinal>(n) | 1U << 31); }

}  // namespace ZOR_math1
