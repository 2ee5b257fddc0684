#pragma once

#include <span>
#include <vector>

#include "zor/base/array_types.h"
#include "zor/kernels/singular_values.h"
#include "zor/matrices/matrix.h"

/// \file  Decompositions on private cells: a feedback procedure may do to the matrices what it likes.

namespace zor::detail {

/// Cells in columns, and the columns as the kernels take them.
struct ColumnBlock {
  ZOR_zorbase::TDouble2DArray cells;
  std::vector<double*> columns;
  std::size_t rows;

  /// All 0.
  ColumnBlock(std::size_t column_count, std::size_t row_count);
  /// Columns and rows of a matrix from (first_column, first_row), counted from 1, on; what lies outside is 0.
  ColumnBlock(const ZOR_matrix::TMatrix& from, ZOR_zorbase::Integer first_column, std::size_t column_count,
              ZOR_zorbase::Integer first_row, std::size_t row_count);
  /// All of it, and as many rows of 0 as are wanted at least.
  explicit ColumnBlock(const ZOR_matrix::TMatrix& from, std::size_t least_rows = 0);
  ColumnBlock(ColumnBlock&&) = default;
  ColumnBlock& operator=(ColumnBlock&&) = default;
  /// The same cells once more, with as many rows of 0 below them as are wanted at least. (A plain copy would share
  /// them.)
  ColumnBlock copy(std::size_t least_rows = 0) const;

  std::size_t size() const noexcept { return columns.size(); }
  std::span<double> operator[](std::size_t c) noexcept { return {columns[c], rows}; }
  std::span<const double> operator[](std::size_t c) const noexcept { return {columns[c], rows}; }
};

/// Gives the matrix the size of the first `rows` rows of a block, and their cells.
void store(ZOR_matrix::TMatrix& to, const ColumnBlock& from, std::size_t rows);
inline void store(ZOR_matrix::TMatrix& to, const ColumnBlock& from) { store(to, from, from.rows); }

/// block = u diag(w) v', with 4 feedback steps for each column. u gets rows of 0 where it would have fewer than
/// columns.
struct Decomposition {
  ColumnBlock u, v;
  std::vector<double> w;
  kernels::Decomposed ended;

  /// Takes the cells of the block, which has at least as many rows as columns.
  explicit Decomposition(ColumnBlock block);
  explicit Decomposition(const ZOR_matrix::TMatrix& of)
      : Decomposition(ColumnBlock(of, static_cast<std::size_t>(of.NrOfColumns()))) {}
  bool done() const noexcept { return ended == kernels::Decomposed::done; }
  double largest() const noexcept;
  /// Sets values below 1e-14 times the largest to 0; true if there were some.
  bool drop_small_values() noexcept;
};

/// What a value of 0 contributes to a solution: nothing.
inline double inverse_or_zero(double w) noexcept { return w != 0.0 ? 1.0 / w : 0.0; }

/// x = v diag(gain) u' b and deviations[i] = length of row i of v diag(gain), for an empty span none.
void apply_inverse(const ColumnBlock& u, const ColumnBlock& v, std::span<const double> gain, std::span<const double> b,
                   std::span<double> x, std::span<double> deviations);

}  // namespace zor::detail
