#pragma once

#include <cstddef>
#include <cstdint>

/// \file  The inner loops of rearrange.h.

namespace zor::kernels {

struct RearrangeTable {
  void (*copy)(const double* x, double* out, std::size_t n);
  void (*reverse_real)(double* x, std::size_t n);
  void (*reverse_integer)(std::uint32_t* x, std::size_t n);
  void (*transpose)(const double* const* columns, std::size_t n_columns, double* const* rows, std::size_t n_rows);
};

}  // namespace zor::kernels
