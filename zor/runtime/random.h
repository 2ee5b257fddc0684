#pragma once

#include <atomic>
#include <cstdint>
#include <span>

#include "zor/runtime/numbers.h"
#include "zor/runtime/types.h"

/// \file  The one generator of random numbers, shared by all.
/// A 64-bit counter generator (Steele, Lea, Flood: Fast splittable pseudorandom number generators, OOPSLA 2014):
/// RandSeed is its whole state, and setting it to s starts the sequence of s. Each draw is one atomic step, so draws
/// from several threads never interfere. The generator starts from a fixed state; Randomize takes another one.
///
///     RandSeed = 42;
///     const Double u = Random();         // in [0, 1)
///     const Integer die = Random(6) + 1;
///     const Int64 kept = RandSeed;       // saved, to go on from here later

namespace zor::detail {

inline constexpr std::uint64_t kRandomStep = 0x9E3779B97F4A7C15U;

/// The 64 random bits that belong to a state.
constexpr std::uint64_t random_bits(std::uint64_t state) noexcept {
  std::uint64_t z = state;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
  return z ^ (z >> 31);
}

/// Number in [0, 1), a multiple of 2^-53, made of 64 random bits.
constexpr double unit_interval(std::uint64_t bits) noexcept {
  return static_cast<double>(static_cast<std::int64_t>(bits >> 11)) * 0x1p-53;
}

/// Start of the program: three draws behind state 0. The first three draws seed the generator LongRand of ZOR_math1.
inline constexpr std::uint64_t kStartDraws = 3;
struct StartWords {
  ZOR_runtime::Integer word[kStartDraws];
};
consteval StartWords start_words() {
  StartWords words{};
  for (std::uint64_t i = 0; i < kStartDraws; ++i)
    words.word[i] = round_to_integer(unit_interval(random_bits((i + 1) * kRandomStep)) * 990000.0);
  return words;
}

}  // namespace zor::detail

namespace ZOR_runtime {

/// The state of the generator: read and written like a variable of type Int64.
class TRandSeed {
 public:
  constexpr explicit TRandSeed(std::uint64_t state) noexcept : state_(state) {}
  TRandSeed(const TRandSeed&) = delete;
  TRandSeed& operator=(const TRandSeed&) = delete;
  Int64 operator=(Int64 seed) noexcept {
    state_.store(static_cast<std::uint64_t>(seed), std::memory_order_relaxed);
    return seed;
  }
  operator Int64() const noexcept { return static_cast<Int64>(state_.load(std::memory_order_relaxed)); }

  /// Takes `count` draws in one step; the states of the draws are the result plus 1, 2, ... times kRandomStep.
  std::uint64_t advance(std::uint64_t count) noexcept {
    return state_.fetch_add(count * zor::detail::kRandomStep, std::memory_order_relaxed);
  }

 private:
  std::atomic<std::uint64_t> state_;
};

extern ZOR_API TRandSeed RandSeed;

/// Number in [0, 1), one draw.
ZOR_API Double Random() noexcept;
/// Integer from 0 to n - 1, one draw; 0 if n is not positive. The probabilities differ by less than n / 2^64.
ZOR_API Integer Random(Integer n) noexcept;
/// Sets RandSeed from the clock and a count of the calls, so that two calls in one tick differ.
ZOR_API void Randomize() noexcept;
/// Gaussian deviate with the given mean and standard deviation, by the polar method of Marsaglia; nothing is kept from
/// one call to the next.
ZOR_API Double RandG(Double Mean, Double StdDev) noexcept;

}  // namespace ZOR_runtime

namespace zor::detail {

/// Fills the cells with low + width * Random, one draw a cell in order: the numbers that as many calls of Random give.
ZOR_API void fill_random(std::span<double> cells, double low, double width) noexcept;

}  // namespace zor::detail
