#pragma once

#include <span>

/// \file  Ranks with ties, for vectors and for pairs.

namespace zor::detail {

/// ranks[i] = rank of values[i], from 1, the mean for equal values; both have the same length. Returns the sum of t^3 -
/// t over all groups of t equal values.
double tied_ranks(std::span<const double> values, std::span<double> ranks);

}  // namespace zor::detail
