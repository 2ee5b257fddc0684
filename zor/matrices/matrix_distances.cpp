#include <algorithm>
#include <array>
#include <cmath>

#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"

namespace ZOR_matrix {
namespace {

/// Rows that meet one row at once: their sums stay in the first cache.
constexpr std::size_t kBlock = 256;

/// The sums that a distance needs, for up to kBlock pairs of rows. Each takes the columns in order.
struct PairSums {
  std::array<Double, kBlock> xy, xx, yy;
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

/// Copies what stands below the diagonal of a square array to above it, in tiles that stay in the cache.
void mirror_lower(TDouble2DArray& a) {
  constexpr std::size_t kTile = 32;
  const std::size_t n = a.size();
  for (std::size_t c0 = 0; c0 < n; c0 += kTile) {
    for (std::size_t r0 = c0; r0 < n; r0 += kTile) {
      const std::size_t c_end = std::min(c0 + kTile, n), r_end = std::min(r0 + kTile, n);
      for (std::size_t r = r0; r < r_end; ++r)
        for (std::size_t c = c0; c < std::min(c_end, r); ++c) a[r][c] = a[c][r];
    }
  }
}

}  // namespace

template <Cell T>
Double BasicMatrix<T>::DistanceOfObjects(TDistMode Mode, Integer obj1, Integer obj2) const requires RealCell<T> {
  Double distance = 0.0;
  if (is_computed(Mode)) {
    PairSums sums;
    sums.xy[0] = sums.xx[0] = sums.yy[0] = 0.0;
    for (Integer c = 1; c <= FNCol; ++c) {
      const Double y = GetVal(c, obj2);
      add_terms(Mode, GetVal(c, obj1), &y, 1, sums);
    }
    finish(Mode, sums, 1, &distance);
  } else if (Mode == dmUserDef) {
    // The handler gets the matrix as its sender, which a call does not change.
    OnCalcDistance(const_cast<BasicMatrix*>(this), obj1, obj2, distance);
  }
  return distance;
}

template <Cell T>
Integer BasicMatrix<T>::CalcDistMat(TDistMode Mode, BasicMatrix* DMat) const requires RealCell<T> {
  const auto check = [DMat](Integer n) {
    if (!DMat) return kNotSquare;
    if (DMat->FNCol != n) return kOtherNumberOfRows;
    return DMat->FNRow != n ? kNotSquare : 0;
  };
  if (const Integer code = check(FNRow); code != 0) return code;
  const Integer rows = FNRow;
  const auto n = static_cast<std::size_t>(rows);
  T2DArray made;
  zor::detail::heap_guard(*this, [&] { SetLength(made, rows, rows); });
  if (is_computed(Mode)) {
    PairSums sums;
    for (std::size_t i = 0; i < n; ++i) {
      for (std::size_t j = i + 1; j < n; j += kBlock) {
        const std::size_t count = std::min(kBlock, n - j);
        std::fill_n(sums.xy.begin(), count, 0.0);
        std::fill_n(sums.xx.begin(), count, 0.0);
        std::fill_n(sums.yy.begin(), count, 0.0);
        for (const TArray& column : Mat) add_terms(Mode, column[i], column.data() + j, count, sums);
        finish(Mode, sums, count, made[i].data() + j);
      }
    }
  } else {
    for (std::size_t i = 0; i < n; ++i) {
      for (std::size_t j = i + 1; j < n; ++j)
        made[i][j] = DistanceOfObjects(Mode, static_cast<Integer>(i + 1), static_cast<Integer>(j + 1));
    }
    if (const Integer code = check(rows); code != 0) return code;  // a handler may have resized it
  }
  mirror_lower(made);
  DMat->set_cells(made);
  return 0;
}

template Double BasicMatrix<Double>::DistanceOfObjects(TDistMode, Integer, Integer) const;
template Integer BasicMatrix<Double>::CalcDistMat(TDistMode, BasicMatrix*) const;

}  // namespace ZOR_matrix
