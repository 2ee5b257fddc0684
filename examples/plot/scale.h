#pragma once

#include <cmath>
#include <limits>
#include <string>

/// \file  Ranges of values, round numbers along an axis, and how they are written.

namespace plot {

/// Smallest range that holds all finite values included so far.
struct Range {
  double low = std::numeric_limits<double>::infinity();
  double high = -std::numeric_limits<double>::infinity();

  void include(double value) {
    if (!std::isfinite(value)) return;
    low = std::fmin(low, value);
    high = std::fmax(high, value);
  }
  void include(const Range& other) { include(other.low), include(other.high); }
  bool empty() const { return !(low <= high); }
};

/// Marks of an axis at first, first + step, ...; count of them.
struct Ticks {
  double first = 0.0, step = 1.0;
  int count = 0;

  double at(int i) const { return first + i * step; }
};

/// Chooses the marks of an axis that lie from low to high; about `wanted` of them.
using TickRule = Ticks (*)(double low, double high, int wanted);

/// Marks at multiples of 1, 2 or 5 times a power of ten, as CalcScalePars lays them out: from half as many as wanted to
/// some more. Without low < high, no marks.
Ticks ticks_125(double low, double high, int wanted);

/// The value with as many decimals as `step` needs, a true minus sign, and thin spaces in numbers of five digits or
/// more.
std::string number_text(double value, double step);

/// Value in at most `digits` significant digits, for tables and labels: "49.752", "1.7e−09".
std::string short_text(double value, int digits = 6);

/// Power of ten (a multiple of 3) taken out of the labels of an axis that reaches `largest`; 0 for everyday sizes.
int common_exponent(double largest);

/// "×10⁶", for an axis label.
std::string exponent_text(int exponent);

}  // namespace plot
