#include "zor/analysis/ranks.h"

#include <cstdint>
#include <numeric>

#include "zor/analysis/ranks_internal.h"
#include "zor/kernels/comb_sort.h"
#include "zor/runtime/dyn_array.h"
#include "zor/vectors/store_internal.h"

namespace zor::detail {

double tied_ranks(std::span<const double> values, std::span<double> ranks) {
  const std::size_t n = values.size();
  ZOR_runtime::TDynArray<double> sorted;
  ZOR_runtime::TDynArray<std::int64_t> places;
  set_length_unset(sorted, n);
  set_length_unset(places, n);
  std::ranges::copy(values, sorted.begin());
  std::iota(places.begin(), places.end(), std::int64_t{0});
  // Equal values share a rank, so it does not matter in which order the sort leaves them.
  kernels::comb_sort_pairs(sorted, places, n == 0 ? 0 : n - 1, true);
  double ties = 0.0;
  for (std::size_t i = 0, end = 0; i < n; i = end) {
    for (end = i + 1; end < n && sorted[end] == sorted[i];) ++end;
    const auto group = static_cast<double>(end - i);
    const double rank = (static_cast<double>(i + 1) + static_cast<double>(end)) / 2.0;
    for (std::size_t k = i; k < end; ++k) ranks[static_cast<std::size_t>(places[k])] = rank;
    ties += group * (group * group - 1.0);
  }
  return ties;
}

}  // namespace zor::detail

namespace ZOR_math2 {

Double CalcRanks(const TVector* SourceVec, TVector* RankVec) {
  if (!SourceVec || !RankVec) return 0.0;
  TDoubleArray ranks;
  zor::detail::set_length_unset(ranks, SourceVec->Cells().size());
  const Double ties = zor::detail::tied_ranks(SourceVec->Cells(), ranks);
  zor::detail::store(*RankVec, ranks);
  return ties;
}

}  // namespace ZOR_math2
