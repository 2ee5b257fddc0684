#pragma once

#include <concepts>
#include <utility>

#include "zor/base/ZOR_zorbase.h"

/// \file  Exchange of two values.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Types that ExChange takes.
template <class T>
concept Exchangeable =
    std::same_as<T, Boolean> || std::same_as<T, Byte> || std::same_as<T, ShortInt> || std::same_as<T, Word> ||
    std::same_as<T, Char> || std::same_as<T, Integer> || std::same_as<T, Cardinal> || std::same_as<T, Int64> ||
    std::same_as<T, Single> || std::same_as<T, Double> || std::same_as<T, TString>;

/// Swaps two values.
template <Exchangeable T>
void ExChange(T& a, T& b) noexcept {
  std::swap(a, b);
}

/// Swaps Count bytes of two buffers. Nothing happens if one is null or the two overlap.
ZOR_API void ExChange(void* a, void* b, Word Count) noexcept;

}  // namespace ZOR_math1
