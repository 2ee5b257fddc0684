#pragma once

#include "zor/kernels/levels/level.h"

/// \file  Registers and cells of any type under one name, for loops that are written once for all of them.
/// The type of a register is never a template argument: it would lose the alignment that VecD and its like state.

namespace zor::kernels::ZOR_LEVEL {
namespace {

/// One register of unsigned 32-bit integers, of 32-bit floats.
typedef std::uint32_t VecU __attribute__((vector_size(ZOR_VECTOR_BYTES), aligned(4), may_alias));
typedef float VecF __attribute__((vector_size(ZOR_VECTOR_BYTES), aligned(4), may_alias));

// Tags: what a place of a run is read as.
struct Register {};
struct Cell {};

inline VecD load(const double* x, Register) { return load(x); }
inline VecF load(const float* x, Register) { return *reinterpret_cast<const VecF*>(x); }
inline VecU load(const std::uint32_t* x, Register) { return *reinterpret_cast<const VecU*>(x); }
inline VecI load(const std::int32_t* x, Register) { return *reinterpret_cast<const VecI*>(x); }

template <class T>
inline T load(const T* x, Cell) {
  return *x;
}

inline void store(std::uint32_t* out, VecU v) { *reinterpret_cast<VecU*>(out) = v; }

/// Cells in a register.
template <class T>
inline constexpr std::size_t kLanes = ZOR_VECTOR_BYTES / sizeof(T);

/// Index of the first place for which hit(i) holds, else n.
template <class Hit>
inline std::size_t first(std::size_t n, Hit hit) {
  constexpr std::size_t batch = 64;
  std::size_t i = 0;
  for (; i + batch <= n; i += batch) {
    // Without a branch for each cell, so that a register is compared at once.
    std::int32_t any = 0;
    for (std::size_t k = 0; k < batch; ++k) any |= hit(i + k);
    if (any != 0) break;
  }
  while (i < n && !hit(i)) ++i;
  return i;
}

}  // namespace
}  // namespace zor::kernels::ZOR_LEVEL
