#pragma once

#include <cstddef>

/// \file  The inner loops of product.h. Factors are packed into panels: for each term a line of `width` cells, those of
/// the rows (or columns) of one tile of the result.

namespace zor::kernels {

/// One tile of the result gets `depth` terms added or subtracted, in order: the tile has tile_rows x tile_columns
/// cells, those from `row` on in each of its columns, and is read and written there. A tile that begins with this sum
/// starts from 0.0.
using ProductTile = void (*)(std::size_t depth, const double* a, const double* b, double* const* columns,
                             std::size_t row, bool from_zero);

struct ProductTiles {
  ProductTile add, subtract;
};

struct ProductTable {
  std::size_t tile_rows, tile_columns;
  ProductTiles fused, portable;
  /// panel[k * width + i] = lines[k][from + i] for i < used; the other cells of a line become 0.0.
  void (*pack_along)(double* panel, std::size_t width, std::size_t used, const double* const* lines, std::size_t from,
                     std::size_t depth);
  /// panel[k * width + i] = lines[i][from + k] for i < used; the other cells of a line become 0.0.
  void (*pack_across)(double* panel, std::size_t width, std::size_t used, const double* const* lines, std::size_t from,
                      std::size_t depth);
};

}  // namespace zor::kernels
