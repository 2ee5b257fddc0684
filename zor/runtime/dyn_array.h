#pragma once

#include <algorithm>
#include <atomic>
#include <cassert>
#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "zor/runtime/cell_memory.h"
#include "zor/runtime/types.h"

/// \file  Dynamic arrays: counted handles of runs of cells.
/// A variable is a handle. Copying it shares the cells: who writes through one handle is seen through all of them.
/// SetLength makes the cells this handle's own. A null handle has length 0. Indices count from 0. Arrays of more
/// dimensions are arrays of arrays, the outer index being the column; SetLength(a, n, m) takes the cells of all inner
/// arrays from one allocation, equally spaced, so that they can be seen as one block as long as no inner array is
/// replaced.
///
///     TDoubleArray a = {1.0, 2.0}, b = a;   // two handles, one run of cells
///     b[0] = 7.0;                           // a[0] is 7.0 too
///     SetLength(b, 3);                      // b = {7, 2, 0} has its own cells now
/// A const handle reads only; a handle passed by value may write the caller's cells.

namespace ZOR_runtime {

template <class T>
class TDynArray;

}  // namespace ZOR_runtime

namespace zor::detail {

/// Reference count of one run of cells. Several runs may lie in one allocation, which goes when the last of them does.
struct CellRun {
  std::atomic<std::ptrdiff_t> handles;
  struct CellBlock* block;
  std::size_t capacity;
};

struct CellBlock {
  std::atomic<std::ptrdiff_t> runs;
};

template <class T>
inline constexpr bool is_dyn_array = false;
template <class T>
inline constexpr bool is_dyn_array<ZOR_runtime::TDynArray<T>> = true;

/// Bytes of a cell of the innermost dimension.
template <class T>
inline constexpr std::size_t innermost_size = sizeof(T);
template <class T>
inline constexpr std::size_t innermost_size<ZOR_runtime::TDynArray<T>> = innermost_size<T>;

/// Cells for which all bits zero is the zero value and no destructor runs.
template <class T>
inline constexpr bool is_plain_cell = std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>;

/// Distance in cells between the starts of neighbouring runs of `length` cells in one block. Runs of at least a cache
/// line start at one; distances that are a multiple of a page are one line longer, since such runs would all compete
/// for the same cache lines.
template <class T>
constexpr std::size_t run_stride(std::size_t length) noexcept {
  constexpr std::size_t kLine = kCellAlignment / (sizeof(T) < kCellAlignment ? sizeof(T) : kCellAlignment);
  if (kCellAlignment % sizeof(T) != 0 || length < kLine) return length;
  const std::size_t lines = (length + kLine - 1) / kLine;
  return (lines % 64 == 0 ? lines + 1 : lines) * kLine;
}

/// Cells that SetLength leaves unset because the caller overwrites all of them.
enum class Fresh { kZero, kUnset };

struct DynArrayAccess;

}  // namespace zor::detail

namespace ZOR_runtime {

template <class T>
class TDynArray {
 public:
  using value_type = T;
  using size_type = std::size_t;
  using difference_type = std::ptrdiff_t;
  using reference = T&;
  using const_reference = const T&;
  using iterator = T*;
  using const_iterator = const T*;

  TDynArray() noexcept = default;
  TDynArray(std::nullptr_t) noexcept {}
  TDynArray(std::initializer_list<T> cells) : TDynArray(cells.begin(), cells.end()) {}
  /// Array of its own with copies of the cells from first to last.
  template <class It>
    requires(!std::is_arithmetic_v<It>)
  TDynArray(It first, It last) {
    TDynArray made = with_length(static_cast<std::size_t>(last - first));
    std::copy(first, last, made.data_);
    swap(made);
  }
  TDynArray(const TDynArray& other) noexcept : data_(other.data_), size_(other.size_), run_(other.run_) {
    if (run_) run_->handles.fetch_add(1, std::memory_order_relaxed);
  }
  TDynArray(TDynArray&& other) noexcept { swap(other); }
  TDynArray& operator=(const TDynArray& other) noexcept {
    TDynArray(other).swap(*this);
    return *this;
  }
  TDynArray& operator=(TDynArray&& other) noexcept {
    TDynArray(std::move(other)).swap(*this);
    return *this;
  }
  ~TDynArray() { release(); }

  void swap(TDynArray& other) noexcept {
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
    std::swap(run_, other.run_);
  }

  std::size_t size() const noexcept { return size_; }
  bool empty() const noexcept { return size_ == 0; }
  T* data() noexcept { return data_; }
  const T* data() const noexcept { return data_; }
  T* begin() noexcept { return data_; }
  T* end() noexcept { return data_ + size_; }
  const T* begin() const noexcept { return data_; }
  const T* end() const noexcept { return data_ + size_; }

  /// Cell i, from 0; the index is not checked in an optimised build.
  template <std::integral I>
  T& operator[](I i) noexcept {
    assert(static_cast<std::size_t>(i) < size_);
    return data_[static_cast<std::size_t>(i)];
  }
  template <std::integral I>
  const T& operator[](I i) const noexcept {
    assert(static_cast<std::size_t>(i) < size_);
    return data_[static_cast<std::size_t>(i)];
  }

  /// True if no other handle shares the cells. Inner arrays are judged on their own.
  bool IsUnique() const noexcept { return !run_ || run_->handles.load(std::memory_order_acquire) == 1; }
  /// True if both handles name the same cells, or both are empty.
  bool SharesWith(const TDynArray& other) const noexcept { return data_ == other.data_ && size_ == other.size_; }

  /// Equal lengths and equal cells.
  friend bool operator==(const TDynArray& a, const TDynArray& b)
    requires std::equality_comparable<T>
  {
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
  }
  friend bool operator==(const TDynArray& a, std::nullptr_t) noexcept { return a.empty(); }

 private:
  friend struct zor::detail::DynArrayAccess;

  static TDynArray with_length(std::size_t n, zor::detail::Fresh fresh = zor::detail::Fresh::kZero) {
    TDynArray made;
    make_runs(1, n, fresh, [&](std::size_t) -> TDynArray& { return made; });
    return made;
  }

  // Gives `count` handles runs of `length` cells out of one allocation. Cells that need it are value-constructed.
  template <class HandleAt>
  static void make_runs(std::size_t count, std::size_t length, zor::detail::Fresh fresh, HandleAt handle_at) {
    using namespace zor::detail;
    if (count == 0 || length == 0) return;
    static_assert(alignof(T) <= kCellAlignment);
    const std::size_t stride = count == 1 ? length : run_stride<T>(length);
    const std::size_t runs_at = sizeof(CellRun);  // the block's own count takes the place of one run
    const std::size_t heads = checked_sum(runs_at, checked_bytes(count, sizeof(CellRun)));
    const std::size_t cells_at = checked_sum(heads, kCellAlignment - 1) / kCellAlignment * kCellAlignment;
    const std::size_t bytes = checked_sum(cells_at, checked_bytes(checked_bytes(count, stride), sizeof(T)));
    const bool zeroed = is_plain_cell<T> && fresh == Fresh::kZero;
    auto* memory = static_cast<std::byte*>(allocate_cells(bytes, zeroed));
    auto* block = new (memory) CellBlock{static_cast<std::ptrdiff_t>(count)};
    for (std::size_t i = 0; i < count; ++i) {
      auto* run = new (memory + runs_at + i * sizeof(CellRun)) CellRun{1, block, length};
      T* cells = reinterpret_cast<T*>(memory + cells_at) + i * stride;
      if constexpr (!is_plain_cell<T>) {
        static_assert(std::is_nothrow_default_constructible_v<T>, "a cell that throws would leave the block behind");
        std::uninitialized_value_construct_n(cells, length);
      }
      TDynArray made;
      made.data_ = cells, made.size_ = length, made.run_ = run;
      made.swap(handle_at(i));
    }
  }

  void release() noexcept {
    using namespace zor::detail;
    if (!run_) return;
    if (run_->handles.fetch_sub(1, std::memory_order_acq_rel) == 1) {
      if constexpr (!is_plain_cell<T>) std::destroy_n(data_, size_);
      CellBlock* block = run_->block;
      if (block->runs.fetch_sub(1, std::memory_order_acq_rel) == 1) free_cells(block);
    }
    run_ = nullptr, data_ = nullptr, size_ = 0;
  }

  T* data_ = nullptr;
  std::size_t size_ = 0;
  zor::detail::CellRun* run_ = nullptr;
};

}  // namespace ZOR_runtime

namespace zor::detail {

/// The inner side of SetLength.
struct DynArrayAccess {
  template <class T>
  static void set_length(ZOR_runtime::TDynArray<T>& a, std::size_t n, Fresh fresh) {
    if (n == 0) {
      a = nullptr;
      return;
    }
    if (a.IsUnique() && a.run_ && n <= a.run_->capacity && n >= a.run_->capacity / 2) {
      if constexpr (is_plain_cell<T>) {
        if (fresh == Fresh::kZero && n > a.size_)
          std::memset(static_cast<void*>(a.data_ + a.size_), 0, (n - a.size_) * sizeof(T));
      } else if (n > a.size_) {
        std::uninitialized_value_construct_n(a.data_ + a.size_, n - a.size_);
      } else {
        std::destroy_n(a.data_ + n, a.size_ - n);
      }
      a.size_ = n;
      return;
    }
    const std::size_t kept = fresh == Fresh::kZero ? (std::min)(n, a.size_) : 0;
    auto made = ZOR_runtime::TDynArray<T>::with_length(n, kept == n ? Fresh::kUnset : fresh);
    if constexpr (is_plain_cell<T>) {
      if (kept) std::memcpy(static_cast<void*>(made.data_), a.data_, kept * sizeof(T));
    } else {
      std::copy_n(a.data_, kept, made.data_);
    }
    made.swap(a);
  }

  /// True if `a` is a block of its own of exactly this shape: nobody shares any part of it.
  template <class T>
  static bool has_own(const ZOR_runtime::TDynArray<T>& a, std::size_t n) noexcept {
    return a.size_ == n && a.IsUnique();
  }
  template <class T, class... Inner>
  static bool has_own(const ZOR_runtime::TDynArray<ZOR_runtime::TDynArray<T>>& a, std::size_t n,
                      Inner... inner) noexcept {
    if (a.size_ != n || !a.IsUnique()) return false;
    return std::all_of(a.begin(), a.end(), [&](const auto& row) { return has_own(row, inner...); });
  }

  /// Gives every handle of `rows` (count of them, found by handle_at) runs of the given shape.
  template <class T, class HandleAt>
  static void carve(std::size_t count, HandleAt handle_at, Fresh fresh, std::size_t n) {
    ZOR_runtime::TDynArray<T>::make_runs(count, n, fresh, handle_at);
  }
  template <class T, class HandleAt, class... Inner>
  static void carve(std::size_t count, HandleAt handle_at, Fresh fresh, std::size_t n, Inner... inner) {
    ZOR_runtime::TDynArray<T>::make_runs(count, n, Fresh::kZero, handle_at);
    if (n == 0) return;
    carve<typename T::value_type>(
        checked_bytes(count, n), [&](std::size_t i) -> T& { return handle_at(i / n).data_[i % n]; }, fresh, inner...);
  }

  template <class T>
  static void copy_common(const ZOR_runtime::TDynArray<T>& from, ZOR_runtime::TDynArray<T>& to) {
    const std::size_t n = (std::min)(from.size_, to.size_);
    if constexpr (is_dyn_array<T>) {
      for (std::size_t i = 0; i < n; ++i) copy_common(from.data_[i], to.data_[i]);
    } else {
      std::copy_n(from.data_, n, to.data_);
    }
  }

  template <class A, class... Inner>
  static void set_shape(A& a, Fresh fresh, std::size_t n, Inner... inner) {
    if (has_own(a, n, inner...)) return;
    // The outer dimensions alone may fit where the whole does not: refuse before touching memory for them.
    std::size_t cells = n;
    ((cells = checked_bytes(cells, inner)), ...);
    checked_bytes(cells, innermost_size<A>);
    A made;
    carve<typename A::value_type>(
        1, [&](std::size_t) -> A& { return made; }, fresh, n, inner...);
    if (fresh == Fresh::kZero) copy_common(a, made);
    made.swap(a);
  }
};

/// SetLength for a result of which every cell is about to be written: the cells are not cleared, and a block that
/// already has the shape and belongs to this handle alone is kept.
template <class T>
void set_length_unset(ZOR_runtime::TDynArray<T>& a, std::size_t n) {
  DynArrayAccess::set_length(a, n, Fresh::kUnset);
}
template <class T, class... Inner>
void set_length_unset(ZOR_runtime::TDynArray<ZOR_runtime::TDynArray<T>>& a, std::size_t n, std::size_t m,
                      Inner... inner) {
  DynArrayAccess::set_shape(a, Fresh::kUnset, n, m, static_cast<std::size_t>(inner)...);
}

}  // namespace zor::detail

namespace ZOR_runtime {

/// Sets the length of an array and makes its cells this handle's own: cells that stay keep their values, new ones are
/// zero. A negative length counts as 0. Throws EOutOfMemory and leaves the array as it was.
template <class T>
void SetLength(TDynArray<T>& a, Int64 n) {
  zor::detail::DynArrayAccess::set_length(a, zor::detail::to_size(n), zor::detail::Fresh::kZero);
}

/// The same for two to four dimensions, outer dimension first. All inner arrays become private as well, also where no
/// length changes.
template <class T, std::same_as<Int64>... Inner>
void set_length_of_dimensions(TDynArray<T>& a, Int64 n, Inner... inner) {
  zor::detail::DynArrayAccess::set_shape(a, zor::detail::Fresh::kZero, zor::detail::to_size(n),
                                         zor::detail::to_size(inner)...);
}
template <class T>
void SetLength(TDynArray<TDynArray<T>>& a, Int64 n, Int64 m) {
  set_length_of_dimensions(a, n, m);
}
template <class T>
void SetLength(TDynArray<TDynArray<TDynArray<T>>>& a, Int64 n, Int64 m, Int64 k) {
  set_length_of_dimensions(a, n, m, k);
}
template <class T>
void SetLength(TDynArray<TDynArray<TDynArray<TDynArray<T>>>>& a, Int64 n, Int64 m, Int64 k, Int64 l) {
  set_length_of_dimensions(a, n, m, k, l);
}

/// Number of cells of the outer dimension.
template <class T>
Integer Length(const TDynArray<T>& a) noexcept {
  return zor::detail::to_integer(a.size());
}

/// Highest valid index; -1 for an empty array.
template <class T>
Integer High(const TDynArray<T>& a) noexcept {
  return Length(a) - 1;
}

/// Array of the same shape with cells of its own, in every dimension.
template <class T>
TDynArray<T> CopyOf(const TDynArray<T>& a) {
  TDynArray<T> copy(a.begin(), a.end());
  if constexpr (zor::detail::is_dyn_array<T>) {
    for (T& inner : copy) inner = CopyOf(inner);
  }
  return copy;
}

}  // namespace ZOR_runtime
