#include <algorithm>
#include <numeric>

#include "zor/arrays/random_fill.h"
#include "zor/kernels/elementwise.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"
#include "zor/matrices/store_block_internal.h"

namespace ZOR_matrix {
namespace {

namespace kernels = zor::kernels;

/// Round(n percent / 100); 0 unless that is a number of columns or rows.
Integer share(Integer n, Double percent) {
  const Double exact = n * percent / 100.0;
  return exact > 0.0 && exact < zor::detail::kMaxInteger ? static_cast<Integer>(ZOR_runtime::Round(exact)) : 0;
}

}  // namespace

Integer TMatrix::Diff(Integer Order, TApplyColRow Mode) {
  if (Order < 1 || Order > 10) return kBadOrder;
  const Boolean down = Mode == acrColumns;
  if ((down ? FNRow : FNCol) <= Order) return kTooFewCells;
  const Integer cols = down ? FNCol : FNCol - Order, rows = down ? FNRow - Order : FNRow;
  zor::detail::heap_guard(*this, [&] {
    T2DArray work;
    zor::detail::set_length_unset(work, Mat.size(), Mat[0].size());
    for (Integer c = 0; c < FNCol; ++c) std::copy(Mat[c].begin(), Mat[c].end(), work[c].begin());
    for (Integer pass = 1; pass <= Order; ++pass) {
      for (Integer c = 0; c < FNCol; ++c) {
        const std::span<Double> column(work[c]);
        if (down) {
          for (std::size_t r = 0; r + 1 < column.size(); ++r) column[r] = column[r + 1] - column[r];
        } else if (c + 1 < FNCol) {
          const std::span<const Double> next(work[c + 1]);
          for (std::size_t r = 0; r < column.size(); ++r) column[r] = next[r] - column[r];
        }
      }
    }
    SetLength(work, cols, rows);
    renew_cells(work);
  });
  Changed();
  Resized();
  return 0;
}

Integer TMatrix::ResampleExtMat(const TMatrix* SrcMat, Double colpct, Double rowpct, Boolean BootStrap,
                                TIntArray& RndColIx, TIntArray& RndRowIx) {
  if (!SrcMat) return kNoSourceMatrix;
  const T2DArray source = SrcMat->Mat;  // the same cells: this matrix gets new ones
  const Integer source_cols = Length(source), source_rows = Length(source[0]);
  const Integer cols = share(source_cols, colpct), rows = share(source_rows, rowpct);
  Integer code = RndColIx.empty() || RndRowIx.empty() ? kNoIndexArray : 0;
  if (cols < 1 || colpct > 100.0) code = kBadColumnShare;
  if (rows < 1 || rowpct > 100.0) code = kBadRowShare;
  if (code != 0) return code;

  TIntArray col_ix, row_ix;
  SetLength(col_ix, cols);
  SetLength(row_ix, rows);
  if (cols == source_cols) {
    std::iota(col_ix.begin(), col_ix.end(), 1);
  } else if (ZOR_openarrays::FillRandomUniform(col_ix, 1, source_cols, false) != 0) {
    return kTooManyDistinct;
  }
  if (ZOR_openarrays::FillRandomUniform(row_ix, 1, source_rows, BootStrap) != 0) return kTooManyDistinct;
  T2DArray drawn;
  zor::detail::heap_guard(*this, [&] { zor::detail::set_length_unset(drawn, col_ix.size(), row_ix.size()); });
  for (Integer i = 0; i < cols; ++i) {
    const Double* const from = source[col_ix[i] - 1].data();
    std::transform(row_ix.begin(), row_ix.end(), drawn[i].begin(), [from](Integer row) { return from[row - 1]; });
  }
  RndColIx.swap(col_ix);
  RndRowIx.swap(row_ix);
  Resize(cols, rows);
  write_block(
      cols, rows, [&](Int64 i) { return drawn[i].data(); }, 1, 1);
  Changed();
  Resized();
  return 0;
}

}  // namespace ZOR_matrix
