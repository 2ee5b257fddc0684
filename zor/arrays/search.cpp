#include "zor/arrays/search.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "zor/arrays/walk_internal.h"
#include "zor/kernels/search.h"
#include "zor/runtime/text.h"

namespace ZOR_openarrays {
namespace {

using zor::detail::to_integer;

Integer shifted(std::size_t index, Integer offset) {
  return static_cast<Integer>(static_cast<std::uint32_t>(index) + static_cast<std::uint32_t>(offset));
}

/// Calls hit(number, index) for the cells equal to value, numbered on from `from` and ending before `most`; returns the
/// next number.
template <class Hit>
std::size_t first_hits(std::size_t from, std::span<const Boolean> x, Boolean value, std::size_t most, Hit hit) {
  std::size_t hits = from;
  for (std::size_t i = 0; i < x.size() && hits < most; ++i) {
    if (x[i] == value) hit(hits++, i);
  }
  return hits;
}

/// Number of hits that are listed.
template <class A, std::size_t N>
std::size_t listed(const A& a, const zor::detail::Shape<N>& shape, Boolean value, Integer max_count) {
  std::size_t hits = 0;
  zor::detail::for_runs(
      shape, [&](std::span<const Boolean> x) { hits += static_cast<std::size_t>(std::ranges::count(x, value)); }, a);
  const std::size_t most = max_count < 1 ? zor::detail::kMaxInteger : zor::detail::to_size(max_count);
  return std::min(hits, most);
}

}  // namespace

Integer FindInArray(Integer Value, const TIntArray& A) {
  if (A.empty()) return kEmptyArray;
  const std::size_t index = zor::kernels::find_equal(A, Value);
  return index == zor::kernels::kNone ? kNotFound : to_integer(index);
}

Integer FindInArray(const TString& S, const TStrArray& A, Boolean IgnoreCase, Boolean Partial) {
  if (A.empty()) return kEmptyArray;
  const TString wanted = IgnoreCase ? ZOR_runtime::LowerCase(S) : S;
  const auto matches = [&](const TString& cell) {
    return Partial ? cell.units().find(wanted.units()) != std::u16string_view::npos : cell == wanted;
  };
  for (std::size_t i = 0; i < A.size(); ++i) {
    if (matches(IgnoreCase ? ZOR_runtime::LowerCase(A[i]) : A[i])) return to_integer(i);
  }
  return kNotFound;
}

Integer FindInSortedArray(Double Value, const TDoubleArray& A, Boolean Ascending) {
  if (A.empty()) return kEmptyArray;
  std::size_t lo = 0, hi = A.size() - 1;
  const Double least = Ascending ? A[lo] : A[hi], most = Ascending ? A[hi] : A[lo];
  if (!(least <= Value && Value <= most)) return kOutsideData;
  while (hi - lo > 1) {
    const std::size_t mid = lo + (hi - lo) / 2;
    if (A[mid] == Value) return to_integer(mid);
    ((Value < A[mid]) == Ascending ? hi : lo) = mid;
  }
  // Equality first: the distance of equal infinities is no number.
  if (A[hi] == Value) return to_integer(hi);
  if (A[lo] == Value) return to_integer(lo);
  return to_integer(std::abs(A[lo] - Value) < std::abs(A[hi] - Value) ? lo : hi);
}

Integer ListCellPositions(const TBoolArray& A, Boolean Value, Integer MaxCount, Integer Offset, TIntArray& Res) {
  const auto shape = zor::detail::shape_of(A);
  if (shape.empty()) return kEmptyArray;
  const std::size_t count = listed(A, shape, Value, MaxCount);
  TIntArray found;
  zor::detail::set_length_unset(found, count);
  first_hits(0, A, Value, count, [&](std::size_t hit, std::size_t i) { found[hit] = shifted(i, Offset); });
  Res.swap(found);
  return to_integer(count);
}

Integer ListCellPositions(const TBool2DArray& A, Boolean Value, Integer MaxCount, Integer Offset, TInt2DArray& Res) {
  const auto shape = zor::detail::shape_of(A);
  if (shape.empty()) return kEmptyArray;
  const std::size_t count = listed(A, shape, Value, MaxCount);
  TInt2DArray found;
  zor::detail::set_length_unset(found, 2, count);
  std::size_t hits = 0;
  for (std::size_t c = 0; c < shape.length[0]; ++c) {
    hits = first_hits(hits, A[c], Value, count, [&](std::size_t hit, std::size_t r) {
      found[0][hit] = shifted(c, Offset);
      found[1][hit] = shifted(r, Offset);
    });
  }
  Res.swap(found);
  return to_integer(count);
}

}  // namespace ZOR_openarrays
