#pragma once

#include <cstddef>
#include <cstdint>

#include "zor/kernels/extremes.h"

/// \file  The inner loops of extremes.h.

namespace zor::kernels {

struct ExtremesTable {
  void (*real)(const double* x, std::size_t n, std::size_t base, Extremes<double>& extremes);
  void (*single)(const float* x, std::size_t n, std::size_t base, Extremes<float>& extremes);
  void (*integer)(const std::int32_t* x, std::size_t n, std::size_t base, Extremes<std::int32_t>& extremes);
};

}  // namespace zor::kernels
