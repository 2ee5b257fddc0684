#include "zor/distributions/shapiro_wilk.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <numbers>

#include "zor/kernels/gamma_function.h"

namespace ZOR_statis {

namespace {

Double polynomial(std::initializer_list<Double> from_highest, Double x) noexcept {
  Double sum = 0.0;
  for (const Double c : from_highest) sum = sum * x + c;
  return sum;
}

zor::kernels::Tails tails(Double w, Integer n) noexcept {
  if (!(w > 0.0)) return std::isnan(w) ? zor::kernels::Tails{w, w} : zor::kernels::Tails{0.0, 1.0};
  if (w >= 1.0) return {1.0, 0.0};
  if (n == 3) {
    const Double p =
        std::clamp(6.0 / std::numbers::pi * (std::asin(std::sqrt(w)) - std::asin(std::sqrt(0.75))), 0.0, 1.0);
    return {p, 1.0 - p};
  }
  Double y = std::log1p(-w), mean, deviation;
  if (n <= 11) {
    const Double x = n, gamma = polynomial({0.459, -2.273}, x);
    if (y >= gamma) return {0.0, 1.0};
    y = -std::log(gamma - y);
    mean = polynomial({-6.714e-4, 0.025054, -0.39978, 0.5440}, x);
    deviation = std::exp(polynomial({-0.0020322, 0.062767, -0.77857, 1.3822}, x));
  } else {
    const Double x = std::log(n);
    mean = polynomial({0.0038915, -0.083751, -0.31082, -1.5861}, x);
    deviation = std::exp(polynomial({0.0030302, -0.082676, -0.4803}, x));
  }
  const auto of = zor::kernels::normal_tails((y - mean) / deviation);
  return {of.upper, of.lower};
}

}  // namespace

Double ShapiroWilkIntegral(Double w, Integer n, Integer level) noexcept {
  if (n < 3 || n > 5000 || level < 0 || level > 1) return -1.0;
  const auto of = tails(w, n);
  return level == 0 ? of.lower : of.upper;
}

}  // namespace ZOR_statis
