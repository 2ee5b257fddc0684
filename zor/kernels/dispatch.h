#pragma once

#include "zor/export.h"

/// \file  Which build of the inner loops runs.
/// Each file of zor/kernels/levels is compiled once for every level of the x86-64 instruction set, into a namespace
/// of that level, and fills one table of function pointers. The file of the same name in zor/kernels picks a table
/// with `pick` at each call. Every level gives the same bits. Elsewhere there is one level, `base`, in portable C++.

namespace zor::kernels {

/// Levels of the x86-64 instruction set; v2 stands for the portable build on other processors.
enum class Level { v2, v3, v4 };

/// Highest level that this processor runs.
ZOR_API Level best_level() noexcept;

/// Level in use: the best one unless limit_level lowered it.
ZOR_API Level active_level() noexcept;

/// Uses no level above `highest` from now on. For tests that compare levels; not while kernels run.
ZOR_API void limit_level(Level highest) noexcept;

#if defined(ZOR_X86_LEVELS)
template <class Table>
const Table& pick(const Table& v2, const Table& v3, const Table& v4) noexcept {
  const Level level = active_level();
  return level == Level::v4 ? v4 : level == Level::v3 ? v3 : v2;
}
/// Declares the tables of all levels of a topic and `table()`, the one in use.
#define ZOR_KERNEL_TABLE(Table, name)                                          \
  namespace v2 {                                                               \
  extern const Table name;                                                     \
  }                                                                            \
  namespace v3 {                                                               \
  extern const Table name;                                                     \
  }                                                                            \
  namespace v4 {                                                               \
  extern const Table name;                                                     \
  }                                                                            \
  namespace {                                                                  \
  const Table& table() noexcept { return pick(v2::name, v3::name, v4::name); } \
  }
#else
#define ZOR_KERNEL_TABLE(Table, name)                  \
  namespace base {                                     \
  extern const Table name;                             \
  }                                                    \
  namespace {                                          \
  const Table& table() noexcept { return base::name; } \
  }
#endif

}  // namespace zor::kernels
