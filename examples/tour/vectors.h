#pragma once

#include <span>
#include <vector>

#include "zor/vectors/ZOR_vector.h"

/// \file  Between the vectors of the library and what files and charts work on.

namespace tour {

/// Makes the values the elements of the vector.
inline void fill(ZOR_vector::TVector& vector, std::span<const double> values) {
  vector.SetNrOfElem(static_cast<ZOR_zorbase::Integer>(values.size()));
  for (std::size_t i = 0; i < values.size(); ++i) vector.SetVal(static_cast<ZOR_zorbase::Integer>(i) + 1, values[i]);
}

/// The elements of the vector.
inline std::vector<double> values(const ZOR_vector::TVector& vector) {
  std::vector<double> out;
  for (ZOR_zorbase::Integer i = 1; i <= vector.NrOfElem(); ++i) out.push_back(vector.GetVal(i));
  return out;
}

}  // namespace tour
