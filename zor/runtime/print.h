#pragma once

#include <algorithm>
#include <functional>
#include <iosfwd>
#include <string>

#include "zor/runtime/dyn_array.h"
#include "zor/runtime/tstring.h"

/// \file  Arrays and containers as text for people: at most 20 rows, and as many columns as the line is wide. What is
/// left out is said.
///
///     std::cout << TDoubleArray{1.0, 2.5, -3.0};    // 1  2.5  -3

namespace zor::detail {

/// Rows that are printed of anything.
inline constexpr std::size_t kPrintedRows = 20;

/// Characters of a line: the variable COLUMNS of the environment if it is a number from 20 on, else the width of the
/// terminal that shows the standard output, else 80.
ZOR_API std::size_t line_width();

/// A number in at most six significant digits.
ZOR_API std::string cell_text(double x);
ZOR_API std::string cell_text(std::int64_t x);
ZOR_API std::string cell_text(const ZOR_runtime::TString& text);
inline std::string cell_text(float x) { return cell_text(static_cast<double>(x)); }
inline std::string cell_text(std::int32_t x) { return cell_text(static_cast<std::int64_t>(x)); }
inline std::string cell_text(bool x) { return x ? "true" : "false"; }

/// Prints rows by columns of texts, right-aligned, each row on a line; `cell(row, column)` counts from 0.
ZOR_API void print_table(std::ostream& out, std::size_t rows, std::size_t columns,
                         const std::function<std::string(std::size_t row, std::size_t column)>& cell);

/// Prints texts in one line, "(empty)" if there are none.
ZOR_API void print_line(std::ostream& out, std::size_t count, const std::function<std::string(std::size_t)>& cell);

template <class T>
concept Printable = requires(const T& x) { cell_text(x); };

}  // namespace zor::detail

namespace ZOR_runtime {

/// The cells in one line.
template <zor::detail::Printable T>
std::ostream& operator<<(std::ostream& out, const TDynArray<T>& a) {
  zor::detail::print_line(out, a.size(), [&](std::size_t i) { return zor::detail::cell_text(a[i]); });
  return out;
}

/// The cells as a table, the outer index being the column; a cell that a shorter inner array lacks is blank.
template <zor::detail::Printable T>
std::ostream& operator<<(std::ostream& out, const TDynArray<TDynArray<T>>& a) {
  std::size_t rows = 0;
  for (const auto& column : a) rows = (std::max)(rows, column.size());
  zor::detail::print_table(out, rows, a.size(), [&](std::size_t row, std::size_t column) {
    return row < a[column].size() ? zor::detail::cell_text(a[column][row]) : std::string();
  });
  return out;
}

}  // namespace ZOR_runtime
