#pragma once

#include <cstddef>

#include "zor/export.h"

/// \file  Products of matrices given by pointers to their columns: a[c][r] is the cell in row r of column c.
/// Each cell of a result is one running sum of its terms, with the index of the term ascending, whatever the blocks of
/// the method (Goto, van de Geijn, Anatomy of high-performance matrix multiplication, 2008). Multiplication and
/// addition are fused where the processor can, unless use_portable_kernels (zor/portable_kernels.h) forbids it; then
/// all levels give the same bits. The result shares no cell with the factors. The functions allocate some work space:
/// std::bad_alloc, with the result untouched.

namespace zor::kernels {

/// How a factor of a product enters: as it is, or with rows and columns exchanged.
enum class Form { plain, transposed };

/// c = A B, with `rows` rows, `columns` columns and `depth` terms for each cell, summed from 0.0.
/// A has rows x depth cells (transposed: depth x rows), B depth x columns (transposed: columns x depth).
ZOR_API void multiply(const double* const* a, Form form_a, const double* const* b, Form form_b, double* const* c,
                      std::size_t rows, std::size_t columns, std::size_t depth);

/// A piece of a matrix: its columns, from a row on.
struct Piece {
  double* const* columns;
  std::size_t row;
};

/// c = c - A B: each term is subtracted from the running cell. The pieces may lie in one matrix.
ZOR_API void subtract_product(const Piece& a, const Piece& b, const Piece& c, std::size_t rows, std::size_t columns,
                              std::size_t depth);

/// Dot products of the columns first, ..., last - 1 of `a` with themselves and the columns behind them:
/// c[j - first][i - first] = sum over r < rows of a[i][r] * a[j][r], for first <= i < last, i <= j < columns. Other
/// cells of c, which has last - first rows and columns - first columns, may be overwritten.
ZOR_API void gram(const double* const* a, std::size_t rows, std::size_t columns, std::size_t first, std::size_t last,
                  double* const* c);

}  // namespace zor::kernels
