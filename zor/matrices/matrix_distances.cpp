#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "zor/kernels/distances.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"
#include "zor/matrices/transpose_block_internal.h"

namespace ZOR_matrix {
namespace {

/// Distances are made in square tiles: one stays in the first cache while it goes to both sides of the diagonal.
constexpr std::size_t kTile = 32;

/// The sums that a distance needs, for up to kTile pairs of rows. Each takes the columns in order.
struct PairSums {
  std::array<Double, kTile> xy, xx, yy;
};

/// Sxy, Sxx, Syy of similarities.
Double similarity(TDistMode mode, Double xy, Double xx, Double yy) {
  if (xx == 0.0 && yy == 0.0) return 1.0;  // two rows of zeros are identical
  return mode == dmDice ? 2.0 * xy / (xx + yy) : xy / (xx + yy - xy);
}

/// Adds the terms of one column to the sums of n pairs (x, y[i]).
void add_terms(TDistMode mode, Double x, const Double* y, std::size_t n, PairSums& sums) {
  switch (mode) {
    case dmManhattan:
      for (std::size_t i = 0; i < n; ++i) sums.xy[i] += std::abs(x - y[i]);
      break;
    case dmEuclid:
    case dmEuclidSqr:
      for (std::size_t i = 0; i < n; ++i) sums.xy[i] += (x - y[i]) * (x - y[i]);
      break;
    default:
      for (std::size_t i = 0; i < n; ++i) {
        sums.xy[i] += x * y[i];
        sums.xx[i] += x * x;
        sums.yy[i] += y[i] * y[i];
      }
  }
}

/// The distances that the sums of n pairs give.
void finish(TDistMode mode, const PairSums& sums, std::size_t n, Double* distances) {
  switch (mode) {
    case dmManhattan:
    case dmEuclidSqr:
      std::copy_n(sums.xy.begin(), n, distances);
      break;
    case dmEuclid:
      for (std::size_t i = 0; i < n; ++i) distances[i] = std::sqrt(sums.xy[i]);
      break;
    default:
      for (std::size_t i = 0; i < n; ++i) distances[i] = similarity(mode, sums.xy[i], sums.xx[i], sums.yy[i]);
  }
}

constexpr bool is_computed(TDistMode mode) { return mode <= dmDice; }

/// Distances of the rows i0 + i and j0 + j, for i < rows and j < cols, in tile[i * kTile + j].
void make_tile(TDistMode mode, std::span<const Double* const> columns, std::size_t i0, std::size_t rows, std::size_t j0,
               std::size_t cols, Double* tile) {
  if (mode == dmEuclid || mode == dmEuclidSqr) {
    zor::kernels::euclidean(columns, i0, rows, j0, cols, mode == dmEuclid, tile, kTile);
    return;
  }
  for (std::size_t i = 0; i < rows; ++i) {
    PairSums sums{};
    for (const Double* column : columns) add_terms(mode, column[i0 + i], column + j0, cols, sums);
    finish(mode, sums, cols, tile + i * kTile);
  }
}

/// Stores the distances of all pairs of n rows in a square array, zeros on its diagonal.
void store_distances(TDistMode mode, std::span<const Double* const> columns, std::size_t n, TDouble2DArray& out) {
  std::array<Double, kTile * kTile> tile;
  for (std::size_t i0 = 0; i0 < n; i0 += kTile) {
    const std::size_t rows = std::min(kTile, n - i0);
    for (std::size_t j0 = i0; j0 < n; j0 += kTile) {
      const std::size_t cols = std::min(kTile, n - j0);
      make_tile(mode, columns, i0, rows, j0, cols, tile.data());
      for (std::size_t i = 0; i < rows; ++i) std::copy_n(tile.data() + i * kTile, cols, out[i0 + i].data() + j0);
      zor::detail::transpose_block(
          rows, cols, [&](std::size_t i) { return tile.data() + i * kTile; },
          [&](std::size_t j) { return out[j0 + j].data() + i0; });
    }
    for (std::size_t i = i0; i < i0 + rows; ++i) out[i][i] = 0.0;
  }
}

}  // namespace

Double TMatrix::DistanceOfObjects(TDistMode Mode, Integer obj1, Integer obj2) const {
  Double distance = 0.0;
  if (is_computed(Mode)) {
    PairSums sums{};
    for (Integer c = 1; c <= FNCol; ++c) {
      const Double y = GetVal(c, obj2);
      add_terms(Mode, GetVal(c, obj1), &y, 1, sums);
    }
    finish(Mode, sums, 1, &distance);
  } else if (Mode == dmUserDef) {
    // The handler gets the matrix as its sender, which a call does not change.
    OnCalcDistance(const_cast<TMatrix*>(this), obj1, obj2, distance);
  }
  return distance;
}

Integer TMatrix::CalcDistMat(TDistMode Mode, TMatrix* DMat) const {
  const auto check = [DMat](Integer n) {
    if (!DMat) return kNotSquare;
    if (DMat->FNCol != n) return kOtherNumberOfRows;
    return DMat->FNRow != n ? kNotSquare : 0;
  };
  if (const Integer code = check(FNRow); code != 0) return code;
  const Integer rows = FNRow;
  const auto n = static_cast<std::size_t>(rows);
  T2DArray made;  // what takes the place of the cells, where they are still needed
  if (DMat == this || !is_computed(Mode)) zor::detail::heap_guard(*this, [&] { SetLength(made, rows, rows); });
  if (is_computed(Mode)) {
    store_distances(Mode, column_pointers(), n, DMat == this ? made : DMat->Mat);
  } else {
    for (std::size_t i = 0; i < n; ++i) {
      for (std::size_t j = i + 1; j < n; ++j)
        made[i][j] = made[j][i] = DistanceOfObjects(Mode, static_cast<Integer>(i + 1), static_cast<Integer>(j + 1));
    }
    if (const Integer code = check(rows); code != 0) return code;  // a handler may have resized it
  }
  if (!made.empty()) DMat->swap_cells(made);
  return 0;
}

}  // namespace ZOR_matrix
