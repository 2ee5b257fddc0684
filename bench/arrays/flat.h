#pragma once

#include <Eigen/Core>
#include <vector>

#include "zor/arrays/ZOR_openarrays.h"

/// \file  All cells of a result, in storage order, for the comparison with the peer.

namespace ZOR_openarrays {

template <class T>
std::vector<T> flat(const TDynArray<T>& a) {
  return {a.begin(), a.end()};
}
inline std::vector<double> flat(const TDouble2DArray& a) {
  std::vector<double> cells;
  for (const auto& column : a) cells.insert(cells.end(), column.begin(), column.end());
  return cells;
}
template <class E>
std::vector<typename E::Scalar> flat(const Eigen::PlainObjectBase<E>& x) {
  return {x.data(), x.data() + x.size()};
}

}  // namespace ZOR_openarrays
