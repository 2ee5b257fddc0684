#include "zor/scalar/random_deviates.h"

#include <cmath>
#include <cstdlib>
#include <numbers>

#include "zor/runtime/random.h"

namespace ZOR_math1 {
namespace {

constinit Boolean g_waiting = false;
constinit Double g_deviate = 0.0;

// What three draws of the generator at the start of the program give.
constinit zor::detail::StartWords g_state = zor::detail::start_words();

constexpr Integer kModulus1 = 1001003, kModulus2 = 990923, kModulus3 = 1400423;

/// |(a << shift) xor a| mod kModulus2, the high bits of the 32-bit word being lost.
Integer scrambled(Integer a, unsigned shift) {
  const auto word = static_cast<Cardinal>(a);
  const auto mixed = static_cast<Integer>((word << shift) ^ word);
  return std::abs(mixed % kModulus2);
}

}  // namespace

Double GRandom() noexcept {
  if (g_waiting) {
    g_waiting = false;
    return g_deviate;
  }
  for (;;) {
    const Double u = 2.0 * ZOR_runtime::Random() - 1.0;
    const Double v = 2.0 * ZOR_runtime::Random() - 1.0;
    const Double s = u * u + v * v;
    if (!(s > 0.0 && s < 1.0)) continue;
    const Double f = std::sqrt(-2.0 * std::log(s) / s);
    g_deviate = u * f;
    g_waiting = true;
    return v * f;
  }
}

Double CRandom(Double m, Double s) noexcept {
  return m + s * std::tan((ZOR_runtime::Random() - 0.5) * std::numbers::pi);
}

Boolean BRandom(Double p) noexcept { return p >= 1.0 || ZOR_runtime::Random() < p; }

Double LongRand(Integer Seed) noexcept {
  Integer* const s = g_state.word;
  if (Seed != 0) {
    const Integer a = Seed % kModulus2;
    s[0] = std::abs(a);
    s[1] = scrambled(a, 8);
    s[2] = scrambled(a, 16);
    for (Integer i = 0; i < 3; ++i) s[i] = s[i] == 0 ? 1 : s[i];
  }
  s[0] = s[0] * 1187 % kModulus1;
  s[1] = s[1] * 983 % kModulus2;
  s[2] = s[2] * 1283 % kModulus3;
  const Double r = s[0] / Double{kModulus1} + s[1] / Double{kModulus2} + s[2] / Double{kModulus3};
  return r - std::trunc(r);
}

}  // namespace ZOR_math1

namespace zor::detail {

void fill_gauss(std::span<double> cells, double mean, double stddev) noexcept {
  for (double& cell : cells) cell = mean + stddev * ZOR_math1::GRandom();
}

}  // namespace zor::detail
