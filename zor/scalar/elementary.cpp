#include "zor/scalar/elementary.h"

#include <cmath>

namespace zor::detail {

double hyperbolic_sine(double x) noexcept { return std::sinh(x); }
double hyperbolic_cosine(double x) noexcept { return std::cosh(x); }

}  // namespace zor::detail

namespace ZOR_math1 {
namespace {

Double checked_argument(Double x) {
  if (!(x > 0.0)) zor::detail::Fail<EMathError>("logarithm: invalid argument");
  return x;
}

Double quotient(Double numerator, Double denominator, const char* message) {
  if (denominator == 0.0) zor::detail::Fail<EMathError>(message);
  return numerator / denominator;
}

}  // namespace

Double lg(Double x) { return std::log10(checked_argument(x)); }
Double ld(Double x) { return std::log2(checked_argument(x)); }
Double tgh(Double x) noexcept { return std::tanh(x); }
Double tg(Double x) { return quotient(std::sin(x), std::cos(x), "tangens overflow"); }
Double cot(Double x) { return quotient(std::cos(x), std::sin(x), "cotangens overflow"); }

}  // namespace ZOR_math1
