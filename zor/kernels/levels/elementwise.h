#pragma once

#include <cstddef>
#include <cstdint>

/// \file  The inner loops of elementwise.h. Integers are unsigned here, so that they wrap around.

namespace zor::kernels {

template <class T>
struct ElementwiseLoops {
  void (*fill)(T* out, T value, std::size_t n);
  void (*add)(const T* x, const T* y, T* out, std::size_t n);
  void (*subtract)(const T* x, const T* y, T* out, std::size_t n);
  void (*multiply)(const T* x, const T* y, T* out, std::size_t n);
  void (*scale)(const T* x, T a, T* out, std::size_t n);
  void (*shift)(const T* x, T a, T* out, std::size_t n);
  void (*absolute)(const T* x, T* out, std::size_t n);
};

struct ElementwiseTable {
  ElementwiseLoops<double> real;
  ElementwiseLoops<std::uint32_t> integer;
  void (*round_to_integers)(const double* x, std::int32_t* out, std::size_t n);
  void (*axpy)(double a, const double* x, double* y, std::size_t n);
  void (*shift_scale)(const double* x, double a, double b, double* out, std::size_t n);
};

}  // namespace zor::kernels
