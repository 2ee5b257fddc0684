#pragma once

#include <vector>

#include "zor/base/array_types.h"

/// \file  The columns of a matrix as the kernels take them.

namespace zor::detail {

template <class T>
std::vector<T*> column_pointers(ZOR_runtime::TDynArray<ZOR_runtime::TDynArray<T>>& a) {
  std::vector<T*> columns;
  columns.reserve(a.size());
  for (auto& column : a) columns.push_back(column.data());
  return columns;
}
template <class T>
std::vector<const T*> column_pointers(const ZOR_runtime::TDynArray<ZOR_runtime::TDynArray<T>>& a) {
  std::vector<const T*> columns;
  columns.reserve(a.size());
  for (const auto& column : a) columns.push_back(column.data());
  return columns;
}

}  // namespace zor::detail
