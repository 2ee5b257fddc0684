#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <tuple>
#include <type_traits>
#include <utility>

#include "zor/arrays/array_concepts.h"

/// \file  The walk over arrays of one to four dimensions as a sequence of contiguous runs of cells.
/// Sizes are measured once; then a loop sees raw cells only. Rows that lie one behind the other in all arrays of a call
/// become one run, so that an array of one block is one run.

namespace zor::detail {

template <class A>
inline constexpr std::size_t kDims = static_cast<std::size_t>(ArrayTraits<std::remove_const_t<A>>::kRank);

/// The cells of an array as they may be used through it.
template <class A>
using RunCell = std::conditional_t<std::is_const_v<A>, const typename ArrayTraits<std::remove_const_t<A>>::Cell,
                                   typename ArrayTraits<A>::Cell>;

/// Number of cells in each dimension, outer one first; all 0 if the array is empty.
template <std::size_t N>
struct Shape {
  std::array<std::size_t, N> length{};
  bool empty() const noexcept { return length[0] == 0; }
  std::size_t cells() const noexcept {
    std::size_t product = 1;
    for (const std::size_t n : length) product *= n;
    return product;
  }
  friend bool operator==(const Shape&, const Shape&) = default;
};

/// Cells from `low`, `count` in each dimension.
template <std::size_t N>
struct Box {
  std::array<std::size_t, N> low{};
  std::array<std::size_t, N> count{};
};

template <class A, std::size_t N>
bool has_lengths(const A& a, const std::array<std::size_t, N>& length) noexcept {
  if (a.size() != length[N - kDims<A>]) return false;
  if constexpr (kDims < A >> 1) {
    for (const auto& inner : a) {
      if (!has_lengths(inner, length)) return false;
    }
  }
  return true;
}

template <class A, std::size_t N>
void first_lengths(const A& a, std::array<std::size_t, N>& length) noexcept {
  length[N - kDims<A>] = a.size();
  if constexpr (kDims < A >> 1) {
    if (!a.empty()) first_lengths(a[0], length);
  }
}

/// The shape of an array; a null handle, a length of 0 and inner arrays of different lengths count as empty.
template <class A>
Shape<kDims<A>> shape_of(const A& a) noexcept {
  Shape<kDims<A>> shape;
  first_lengths(a, shape.length);
  if (shape.cells() == 0 || !has_lengths(a, shape.length)) return {};
  return shape;
}

template <std::size_t N>
Box<N> whole(const Shape<N>& shape) noexcept {
  return {{}, shape.length};
}

/// Joins rows of equal length that follow each other in memory, and hands the runs on.
template <class Take, class... Cell>
class RunJoiner {
 public:
  RunJoiner(Take& take, std::size_t row) noexcept : take_(take), row_(row) {}
  void operator()(Cell*... row) {
    if (length_ != 0 && follows(std::index_sequence_for<Cell...>{}, row...)) {
      length_ += row_;
      return;
    }
    flush();
    start_ = {row...};
    length_ = row_;
  }
  void flush() {
    if (length_ == 0) return;
    std::apply([&](Cell*... start) { take_(std::span<Cell>(start, length_)...); }, start_);
  }

 private:
  // Runs of different blocks never touch: a block begins with its counts.
  template <std::size_t... I>
  bool follows(std::index_sequence<I...>, Cell*... row) const noexcept {
    return ((std::get<I>(start_) + length_ == row) && ...);
  }

  Take& take_;
  std::size_t row_, length_ = 0;
  std::tuple<Cell*...> start_;
};

template <std::size_t N, class Sink, class First, class... Rest>
void for_rows(const Box<N>& box, Sink& sink, First& first, Rest&... rest) {
  constexpr std::size_t kDim = N - kDims<First>;
  if constexpr (kDims<First> == 1) {
    sink(first.data() + box.low[kDim], rest.data() + box.low[kDim]...);
  } else {
    const std::size_t end = box.low[kDim] + box.count[kDim];
    for (std::size_t i = box.low[kDim]; i < end; ++i) for_rows(box, sink, first[i], rest[i]...);
  }
}

/// Calls take(run of a, run of b, ...) for the cells of the box in storage order (last index fastest). All arrays have
/// the shape that the box was cut from. A const array gives runs of const cells.
template <std::size_t N, class Take, class... A>
void for_runs(const Box<N>& box, Take take, A&... arrays) {
  RunJoiner<Take, RunCell<A>...> joiner(take, box.count[N - 1]);
  for (const std::size_t n : box.count) {
    if (n == 0) return;
  }
  for_rows(box, joiner, arrays...);
  joiner.flush();
}
template <std::size_t N, class Take, class... A>
void for_runs(const Shape<N>& shape, Take take, A&... arrays) {
  for_runs(whole(shape), std::move(take), arrays...);
}

template <class A, std::size_t N, std::size_t... I>
void set_lengths_unset(A& a, const Shape<N>& shape, std::index_sequence<I...>) {
  set_length_unset(a, shape.length[I]...);
}
template <class A, std::size_t N, std::size_t... I>
bool has_own_shape(const A& a, const Shape<N>& shape, std::index_sequence<I...>) noexcept {
  return DynArrayAccess::has_own(a, shape.length[I]...);
}

/// Gives `result` the shape and calls write(cells) with the array to write, of which every cell must be written. Cells
/// that belong to `result` alone are written in place, so that it may be one of the arrays that are read cell for cell;
/// otherwise a new array is written, which takes the place of the old one at the end.
template <class R, std::size_t N, class Write>
void write_result(R& result, const Shape<N>& shape, Write write) {
  constexpr std::make_index_sequence<N> kEach;
  if (has_own_shape(result, shape, kEach)) return write(result);
  R made;
  set_lengths_unset(made, shape, kEach);
  write(made);
  result.swap(made);
}

/// The cells from lows to highs, inclusive; false if a low is above its high or an index lies outside.
template <std::size_t N>
bool box_of(const Shape<N>& shape, const std::array<std::int32_t, N>& low, const std::array<std::int32_t, N>& high,
            Box<N>& box) noexcept {
  for (std::size_t d = 0; d < N; ++d) {
    if (low[d] < 0 || low[d] > high[d] || static_cast<std::size_t>(high[d]) >= shape.length[d]) return false;
    box.low[d] = static_cast<std::size_t>(low[d]);
    box.count[d] = static_cast<std::size_t>(high[d]) - box.low[d] + 1;
  }
  return true;
}

}  // namespace zor::detail
