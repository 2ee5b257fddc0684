#include "zor/scalar/sorted_list.h"

#include <algorithm>

#include "zor/scalar/untyped_internal.h"

namespace ZOR_math1 {
namespace {

template <class T>
void insert(std::span<T> cells, T value, Int64 pos) {
  if (pos < 0 || zor::detail::to_size(pos) >= cells.size()) return;
  const auto place = cells.begin() + pos;
  std::copy_backward(place, cells.end() - 1, cells.end());
  *place = value;
}

template <class T>
Integer sort_into(std::span<T> cells, T value, Boolean ascending, Boolean allow_duplicates) {
  const auto place = ascending ? std::find_if(cells.begin(), cells.end(), [=](T cell) { return cell >= value; })
                               : std::find_if(cells.begin(), cells.end(), [=](T cell) { return cell <= value; });
  if (place == cells.end() || (*place == value && !allow_duplicates)) return -1;
  const auto index = place - cells.begin();
  insert(cells, value, index);
  return static_cast<Integer>(index);
}

}  // namespace

Integer SortIntoArray(std::span<Double> Arr, Double Value, Boolean Ascending, Boolean AllowDuplicates) noexcept {
  return sort_into(Arr, Value, Ascending, AllowDuplicates);
}
Integer SortIntoArray(std::span<Single> Arr, Single Value, Boolean Ascending, Boolean AllowDuplicates) noexcept {
  return sort_into(Arr, Value, Ascending, AllowDuplicates);
}
Integer SortIntoArray(std::span<Integer> Arr, Integer Value, Boolean Ascending, Boolean AllowDuplicates) noexcept {
  return sort_into(Arr, Value, Ascending, AllowDuplicates);
}

Integer SortIntoArray(void* Arr, Integer Count, TVarKind Kind, const void* Value, Boolean Ascending,
                      Boolean AllowDuplicates) noexcept {
  Integer position = 0;
  if (!Value) return position;
  zor::detail::with_typed_cells(Arr, Count, Kind, [&]<class T>(std::span<T> cells) {
    position = sort_into(cells, *static_cast<const T*>(Value), Ascending, AllowDuplicates) + 1;
  });
  return position;
}

void InsertIntoArray(std::span<Double> Arr, Double Value, Integer Pos) noexcept { insert(Arr, Value, Pos); }
void InsertIntoArray(std::span<Single> Arr, Single Value, Integer Pos) noexcept { insert(Arr, Value, Pos); }
void InsertIntoArray(std::span<Integer> Arr, Integer Value, Integer Pos) noexcept { insert(Arr, Value, Pos); }

void InsertIntoArray(void* Arr, Integer Count, TVarKind Kind, const void* Value, Integer Pos) noexcept {
  if (!Value) return;
  zor::detail::with_typed_cells(Arr, Count, Kind, [&]<class T>(std::span<T> cells) {
    insert(cells, *static_cast<const T*>(Value), Int64{Pos} - 1);
  });
}

}  // namespace ZOR_math1
