#include "zor/kernels/product.h"

#include <algorithm>
#include <memory>

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/product.h"
#include "zor/portable_kernels.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(ProductTable, kProduct)

namespace {

/// Terms, rows and columns of a block: the panels of A stay in the second cache, one of B in the first.
constexpr std::size_t kDepthBlock = 256, kRowBlock = 96, kColumnBlock = 1024;
/// Work space up to this many cells needs no allocation.
constexpr std::size_t kCellsOnStack = 4096;
constexpr std::size_t kLargestTile = 24 * 8, kMostTileColumns = 8;

constexpr std::size_t rounded_up(std::size_t n, std::size_t step) { return (n + step - 1) / step * step; }

struct Factor {
  const double* const* columns;
  /// The panels run along the columns of the matrix: a line of a panel is a piece of a column.
  bool along;
  /// The first row of the factor in its matrix.
  std::size_t row = 0;

  /// Packs the lines first, ..., last - 1 (rows of A, columns of B), term0 and the `depth` terms from there.
  void pack(const ProductTable& kernels, std::size_t first, std::size_t last, std::size_t width, std::size_t term0,
            std::size_t depth, double* panel) const {
    for (std::size_t i = first; i < last; i += width, panel += width * depth) {
      const std::size_t used = std::min(width, last - i);
      if (along)
        kernels.pack_along(panel, width, used, columns + term0, row + i, depth);
      else
        kernels.pack_across(panel, width, used, columns + i, row + term0, depth);
    }
  }
};

struct Product {
  Factor a, b;
  double* const* c;
  std::size_t rows, columns, depth;
  /// The terms are subtracted from what the cells hold, else summed from 0.0.
  bool subtract = false;
  /// Cells whose column lies before their row are of no use.
  bool upper_only = false;
  /// The first row of the result in its matrix.
  std::size_t first_row = 0;

  void run() const {
    if (rows == 0 || columns == 0) return;
    if (depth == 0) {
      if (!subtract) std::for_each_n(c, columns, [this](double* column) { std::fill_n(column, rows, 0.0); });
      return;
    }
    const ProductTable& kernels = table();
    const std::size_t most_terms = std::min(depth, kDepthBlock);
    const std::size_t a_cells = rounded_up(std::min(rows, kRowBlock), kernels.tile_rows) * most_terms;
    const std::size_t b_cells = rounded_up(std::min(columns, kColumnBlock), kernels.tile_columns) * most_terms;
    alignas(64) double on_stack[kCellsOnStack];
    std::unique_ptr<double[]> allocated;
    if (a_cells + b_cells > kCellsOnStack) allocated.reset(new double[a_cells + b_cells]);
    double* const a_panels = allocated ? allocated.get() : on_stack;
    double* const b_panels = a_panels + a_cells;
    for (std::size_t column = 0; column < columns; column += kColumnBlock) {
      const std::size_t column_end = std::min(column + kColumnBlock, columns);
      const std::size_t row_end = upper_only ? std::min(rows, column_end) : rows;
      for (std::size_t term = 0; term < depth; term += kDepthBlock) {
        const std::size_t terms = std::min(kDepthBlock, depth - term);
        b.pack(kernels, column, column_end, kernels.tile_columns, term, terms, b_panels);
        for (std::size_t row = 0; row < row_end; row += kRowBlock) {
          const std::size_t block_end = std::min(row + kRowBlock, row_end);
          a.pack(kernels, row, block_end, kernels.tile_rows, term, terms, a_panels);
          multiply_block(kernels, row, block_end, column, column_end, terms, a_panels, b_panels, term == 0);
        }
      }
    }
  }

 private:
  void multiply_block(const ProductTable& kernels, std::size_t row, std::size_t row_end, std::size_t column,
                      std::size_t column_end, std::size_t terms, const double* a_panels, const double* b_panels,
                      bool first_terms) const {
    const ProductTiles& tiles = uses_portable_kernels() ? kernels.portable : kernels.fused;
    const ProductTile tile = subtract ? tiles.subtract : tiles.add;
    const std::size_t height = kernels.tile_rows, width = kernels.tile_columns;
    const bool from_zero = first_terms && !subtract;
    for (std::size_t j = column; j < column_end; j += width, b_panels += width * terms) {
      const double* panel = a_panels;
      for (std::size_t i = row; i < row_end; i += height, panel += height * terms) {
        if (upper_only && j + width <= i) break;
        if (i + height <= row_end && j + width <= column_end)
          tile(terms, panel, b_panels, c + j, first_row + i, from_zero);
        else
          border_tile(tile, terms, panel, b_panels, first_row + i, std::min(height, row_end - i), j,
                      std::min(width, column_end - j), height, from_zero);
      }
    }
  }

  /// A tile that reaches over the border of the result is computed aside.
  void border_tile(ProductTile tile, std::size_t terms, const double* a_panel, const double* b_panel, std::size_t row,
                   std::size_t used_rows, std::size_t column, std::size_t used_columns, std::size_t height,
                   bool from_zero) const {
    alignas(64) double cells[kLargestTile] = {};
    double* aside[kMostTileColumns];
    for (std::size_t j = 0; j < kMostTileColumns; ++j) aside[j] = cells + (j * height) % kLargestTile;
    if (!from_zero)
      for (std::size_t j = 0; j < used_columns; ++j) std::copy_n(c[column + j] + row, used_rows, aside[j]);
    tile(terms, a_panel, b_panel, aside, 0, from_zero);
    for (std::size_t j = 0; j < used_columns; ++j) std::copy_n(aside[j], used_rows, c[column + j] + row);
  }
};

}  // namespace

void multiply(const double* const* a, Form form_a, const double* const* b, Form form_b, double* const* c,
              std::size_t rows, std::size_t columns, std::size_t depth) {
  Product{{a, form_a == Form::plain}, {b, form_b == Form::transposed}, c, rows, columns, depth}.run();
}

void subtract_product(const Piece& a, const Piece& b, const Piece& c, std::size_t rows, std::size_t columns,
                      std::size_t depth) {
  Product{{a.columns, true, a.row}, {b.columns, false, b.row}, c.columns, rows, columns, depth, true, false, c.row}
      .run();
}

void gram(const double* const* a, std::size_t rows, std::size_t columns, std::size_t first, std::size_t last,
          double* const* c) {
  Product{{a + first, false}, {a + first, false}, c, last - first, columns - first, rows, false, true}.run();
}

}  // namespace zor::kernels
