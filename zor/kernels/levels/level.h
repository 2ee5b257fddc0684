#pragma once

#include <cstddef>
#include <cstdint>

/// \file  What a file of this folder is compiled with: ZOR_LEVEL names its namespace (v2, v3, v4, or base elsewhere).
/// No std template may be used below it: the linker keeps one copy of an inline function, and that could be the one
/// with instructions that this processor lacks. Use plain loops, pointers and the vector types of the compiler.

#if defined(__AVX512F__)
#define ZOR_VECTOR_BYTES 64
#elif defined(__AVX2__)
#define ZOR_VECTOR_BYTES 32
#else
#define ZOR_VECTOR_BYTES 16
#endif

namespace zor::kernels::ZOR_LEVEL {

/// One register of doubles; wider vector types are taken apart by GCC 12 and run slowly. Aligned as a double only:
/// an array of them is declared alignas(ZOR_VECTOR_BYTES), since Clang takes its cells for aligned ones in templates.
typedef double VecD __attribute__((vector_size(ZOR_VECTOR_BYTES), aligned(8), may_alias));
typedef std::int64_t VecL __attribute__((vector_size(ZOR_VECTOR_BYTES), aligned(8), may_alias));
/// One register of 32-bit integers.
typedef std::int32_t VecI __attribute__((vector_size(ZOR_VECTOR_BYTES), aligned(4), may_alias));

inline constexpr std::size_t kLanesD = ZOR_VECTOR_BYTES / sizeof(double);
inline constexpr std::size_t kLanesI = ZOR_VECTOR_BYTES / sizeof(std::int32_t);

// Unnamed, so that overloads of the files stand beside them.
namespace {

inline VecD load(const double* x) { return *reinterpret_cast<const VecD*>(x); }
inline void store(double* x, VecD v) { *reinterpret_cast<VecD*>(x) = v; }

}  // namespace

}  // namespace zor::kernels::ZOR_LEVEL
