#include "zor/arrays/resample.h"

#include "zor/arrays/random_fill.h"
#include "zor/arrays/walk_internal.h"
#include "zor/base/ZOR_zorbase.h"
#include "zor/runtime/numbers.h"

namespace ZOR_openarrays {
namespace {

/// `percent` of n, rounded; 0 if that is none, more than all, or not a number.
Integer share(std::size_t n, Double percent) noexcept {
  if (!(percent <= 100.0)) return 0;
  const Integer count = zor::detail::round_to_integer(static_cast<Double>(n) * percent / 100.0);
  return count < 1 ? 0 : count;
}

TIntArray drawn(Integer count, std::size_t n, bool repeat) {
  TIntArray numbers;
  SetLength(numbers, count);
  FillRandomUniform(numbers, 1, zor::detail::to_integer(n), repeat);
  return numbers;
}

TIntArray serial(Integer count) {
  TIntArray numbers;
  SetLength(numbers, count);
  for (Integer i = 0; i < count; ++i) numbers[i] = i + 1;
  return numbers;
}

}  // namespace

Integer Resample2DArray(const TDouble2DArray& Src, TDouble2DArray& Dest, Double ColPct, Double RowPct,
                        Boolean BootStrap, TIntArray& ColIx, TIntArray& RowIx) {
  const auto [cols, rows] = zor::detail::shape_of(Src).length;
  if (cols == 0) return kNoSampleSource;
  if (Dest.empty()) return kNoSampleDest;
  if (ColIx.empty() || RowIx.empty() || &ColIx == &RowIx) return kNoSampleIndices;
  const Integer n_cols = share(cols, ColPct), n_rows = share(rows, RowPct);
  if (n_rows == 0) return kBadRowShare;
  if (n_cols == 0) return kBadColumnShare;
  const bool all_cols = static_cast<std::size_t>(n_cols) == cols;
  constexpr auto kMost = static_cast<std::size_t>(kMaxDistinctValues);
  if ((!all_cols && cols > kMost) || (!BootStrap && rows > kMost)) return kSampleTooLarge;

  TIntArray col_ix = all_cols ? serial(n_cols) : drawn(n_cols, cols, false);
  TIntArray row_ix = drawn(n_rows, rows, BootStrap);
  TDouble2DArray dest;
  zor::detail::set_length_unset(dest, col_ix.size(), row_ix.size());
  for (std::size_t c = 0; c < dest.size(); ++c) {
    const Double* const from = Src[col_ix[c] - 1].data();
    Double* const to = dest[c].data();
    for (std::size_t r = 0; r < row_ix.size(); ++r) to[r] = from[row_ix[r] - 1];
  }
  Dest.swap(dest), ColIx.swap(col_ix), RowIx.swap(row_ix);
  return 0;
}

}  // namespace ZOR_openarrays
