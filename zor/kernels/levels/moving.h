#pragma once

#include <cstddef>

/// \file  What levels/moving.cpp offers at each level: values of a window that moves along a signal.

namespace zor::kernels {

/// Windows up to this length have their median selected in registers.
inline constexpr std::size_t kLongestSelectedWindow = 25;

/// Doubles in the widest register.
inline constexpr std::size_t kMostLanes = 8;

struct MovingTable {
  void (*symmetric)(const double* x, const double* weights, std::size_t half, double factor, double divisor,
                    double* out, std::size_t n);
  void (*weighted)(const double* x, const double* weights, std::size_t length, double divisor, double* out,
                   std::size_t n);
  /// For windows of 3, 5, 7, ... kLongestSelectedWindow cells; n is at least kMostLanes.
  void (*median[(kLongestSelectedWindow - 1) / 2])(const double* x, double* out, std::size_t n);
};

}  // namespace zor::kernels
