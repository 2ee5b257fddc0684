#pragma once

#include <cstddef>

/// \file  What levels/fft.cpp offers at each level.

namespace zor::kernels {

struct FftTable {
  void (*butterflies)(double* data, std::size_t n, const double* twiddles);
};

}  // namespace zor::kernels
