#include "zor/kernels/lu.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/substitution.h"
#include "zor/kernels/product.h"
#include "zor/kernels/reflections.h"
#include "zor/portable_kernels.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(SubstitutionTable, kSubstitution)

namespace {

/// Columns that are factored one by one.
constexpr std::size_t kNarrow = 8;

constexpr std::size_t half_of(std::size_t width) { return (width / 2 + kNarrow - 1) / kNarrow * kNarrow; }

const SubstitutionLoops& loops() noexcept { return uses_portable_kernels() ? table().portable : table().fused; }

/// b = L^-1 b for `count` columns, with the factor L of unit diagonal in the rows and columns from `first`, `size` of
/// them.
void solve_lower(double* const* l, std::size_t first, std::size_t size, double* const* b, std::size_t count) {
  if (size <= kNarrow) return loops().solve_lower(l, first, first + size, b, count);
  const std::size_t upper = half_of(size), middle = first + upper;
  solve_lower(l, first, upper, b, count);
  subtract_product({l + first, middle}, {b, first}, {b, middle}, size - upper, count, upper);
  solve_lower(l, middle, size - upper, b, count);
}

/// What chooses the pivots. choose(j) gives the row of the pivot of column j, all of whose terms are subtracted;
/// accept(j) sees it in its place and tells whether the column is to be divided by it.
class NoExchange {
 public:
  NoExchange(double* const* a, std::size_t n, Growth most) : a_(a), n_(n), most_(most) {}
  bool begin_column() { return valid_; }
  std::size_t choose(std::size_t j) { return j; }
  void exchanged(std::size_t, std::size_t) {}
  bool accept(std::size_t j) {
    const double* const column = a_[j];
    const double below = j + 1 < n_ ? largest_magnitude(column + j + 1, n_ - j - 1) : 0.0;
    // A pivot 0 passes with zeros below it.
    valid_ = largest_magnitude(column, j + 1) <= most_.upper && below <= most_.lower * std::fabs(column[j]);
    return valid_ && column[j] != 0.0;
  }
  bool valid() const { return valid_; }

 private:
  double* const* a_;
  std::size_t n_;
  Growth most_;
  bool valid_ = true;
};

class LargestCell {
 public:
  explicit LargestCell(double* const* a, std::size_t n) : a_(a), n_(n) {}
  bool begin_column() { return true; }
  std::size_t choose(std::size_t j) {
    const double* const column = a_[j];
    std::size_t best = j;
    for (std::size_t r = j + 1; r < n_; ++r) {
      if (std::fabs(column[r]) > std::fabs(column[best])) best = r;
    }
    return best;
  }
  void exchanged(std::size_t, std::size_t) {}
  bool accept(std::size_t j) { return a_[j][j] != 0.0; }

 private:
  double* const* a_;
  std::size_t n_;
};

class LargestOfItsRow {
 public:
  LargestOfItsRow(double* const* a, std::size_t n, StepAborts step) : a_(a), n_(n), step_(step), scale_(n, 0.0) {
    for (std::size_t c = 0; c < n; ++c) {
      for (std::size_t r = 0; r < n; ++r) {
        const double size = std::fabs(a[c][r]);
        scale_[r] = size > scale_[r] ? size : scale_[r];
      }
    }
    empty_row_ = std::find(scale_.begin(), scale_.end(), 0.0) != scale_.end();
    for (double& x : scale_) x = 1.0 / x;
  }
  bool empty_row() const { return empty_row_; }
  bool begin_column() {
    aborted_ = step_();
    return !aborted_;
  }
  std::size_t choose(std::size_t j) {
    const double* const column = a_[j];
    double largest = 0.0;
    std::size_t best = n_;
    for (std::size_t r = j; r < n_; ++r) {
      const double size = scale_[r] * std::fabs(column[r]);
      if (size >= largest) largest = size, best = r;
    }
    if (best < n_) return best;
    singular_ = true;  // no cell of the column is a number
    return j;
  }
  void exchanged(std::size_t j, std::size_t best) { scale_[best] = scale_[j]; }
  bool accept(std::size_t j) {
    double& pivot = a_[j][j];
    if (std::fabs(pivot) < kSmallestPivot) {
      pivot = kSmallestPivot;
      singular_ = true;
    }
    return true;
  }
  Factored outcome() const { return aborted_ ? Factored::aborted : singular_ ? Factored::singular : Factored::done; }

 private:
  static constexpr double kSmallestPivot = 1e-100;
  double* const* a_;
  std::size_t n_;
  StepAborts step_;
  std::vector<double> scale_;
  bool empty_row_ = false, singular_ = false, aborted_ = false;
};

template <class Pivots>
class Factorisation {
 public:
  Factorisation(double* const* a, std::size_t n, std::size_t* exchanges, Pivots& pivots)
      : a_(a), n_(n), exchanges_(exchanges), pivots_(pivots) {}

  /// Factors the columns from `first`, whose terms of the columns before them are all subtracted.
  bool factor(std::size_t first, std::size_t width) {
    if (width <= kNarrow) return factor_narrow(first, width);
    const std::size_t left = half_of(width), middle = first + left, right = width - left;
    if (!factor(first, left)) return false;
    exchange_rows(middle, right, first, left);
    solve_lower(a_, first, left, a_ + middle, right);
    subtract_product({a_ + first, middle}, {a_ + middle, first}, {a_ + middle, middle}, n_ - middle, right, left);
    if (!factor(middle, right)) return false;
    exchange_rows(first, left, middle, right);
    return true;
  }

 private:
  /// Columns one after the other; each first gets the terms of those before it.
  bool factor_narrow(std::size_t first, std::size_t width) {
    for (std::size_t j = first; j < first + width; ++j) {
      if (!pivots_.begin_column()) return false;
      double* const column = a_[j];
      for (std::size_t k = first; k < j; ++k) {
        loops().subtract_multiple(column[k], a_[k] + k + 1, column + k + 1, n_ - k - 1);
      }
      const std::size_t best = pivots_.choose(j);
      exchanges_[j] = best;
      if (best != j) {
        for (std::size_t c = first; c < first + width; ++c) std::swap(a_[c][j], a_[c][best]);
        pivots_.exchanged(j, best);
      }
      if (!pivots_.accept(j)) continue;
      const double pivot = column[j];
      for (std::size_t r = j + 1; r < n_; ++r) column[r] /= pivot;
    }
    return true;
  }
  /// Does in `count` columns from `column` what was done when the columns from `first` on were factored.
  void exchange_rows(std::size_t column, std::size_t count, std::size_t first, std::size_t factored) {
    for (double* const* c = a_ + column; c != a_ + column + count; ++c) {
      for (std::size_t j = first; j < first + factored; ++j) std::swap((*c)[j], (*c)[exchanges_[j]]);
    }
  }

  double* const* a_;
  std::size_t n_;
  std::size_t* exchanges_;
  Pivots& pivots_;
};

template <class Pivots>
bool factor_with(double* const* a, std::size_t n, std::size_t* exchanges, Pivots& pivots) {
  return Factorisation<Pivots>(a, n, exchanges, pivots).factor(0, n);
}

constexpr std::size_t kCacheLine = 8;

/// Calls move(row, column) for rows by columns cells, a cache line of each column at a time.
template <class Move>
void for_cells(std::size_t rows, std::size_t columns, Move move) {
  for (std::size_t first = 0; first < rows; first += kCacheLine) {
    const std::size_t end = std::min(first + kCacheLine, rows);
    for (std::size_t c = 0; c < columns; ++c) {
      for (std::size_t r = first; r < end; ++r) move(r, c);
    }
  }
}

/// Both triangles by rows: those of L from the first one down, each up to its diagonal cell, which is left out, and
/// those of U from the last one up, each from its diagonal cell on.
class PackedRows {
 public:
  PackedRows(const double* const* lu, std::size_t n, double* cells) : n_(n), cells_(cells) {
    for_cells(n, n, [&](std::size_t r, std::size_t c) { *(c < r ? lower(r) + c : upper(r) + c - r) = lu[c][r]; });
  }
  double* lower(std::size_t r) { return cells_ + r * (r - 1) / 2; }
  double* upper(std::size_t r) { return cells_ + n_ * (n_ - 1) / 2 + (n_ - r) * (n_ - r - 1) / 2; }

 private:
  std::size_t n_;
  double* cells_;
};

}  // namespace

Factored factor_scaled(double* const* a, std::size_t n, std::size_t* exchanges, StepAborts step) {
  LargestOfItsRow pivots(a, n, step);
  if (pivots.empty_row()) return Factored::singular;
  factor_with(a, n, exchanges, pivots);
  return pivots.outcome();
}

void factor_partial(double* const* a, std::size_t n, std::size_t* exchanges) {
  LargestCell pivots(a, n);
  factor_with(a, n, exchanges, pivots);
}

bool factor_in_place(double* const* a, std::size_t n, Growth most) {
  NoExchange pivots(a, n, most);
  std::vector<std::size_t> exchanges(n);
  return factor_with(a, n, exchanges.data(), pivots) && pivots.valid();
}

InverseWork::InverseWork(std::size_t n)
    : triangles_(new double[n * n]), block_(new double[n * table().lanes]), unit_of_row_(n), columns_(table().lanes) {}

bool inverse_of_factors(double* const* lu, std::size_t n, const std::size_t* exchanges, double* const* inverse,
                        StepAborts step, InverseWork& work) {
  const std::size_t lanes = table().lanes;
  // A zero in front of a unit vector must not meet an infinite factor: then each unit vector is taken by itself.
  const bool finite = std::all_of(lu, lu + n, [n](const double* column) {
    return std::all_of(column, column + n, [](double x) { return std::isfinite(x); });
  });
  const std::size_t together = finite ? lanes : 1;
  PackedRows rows(lu, n, work.triangles_.get());
  double* const block = work.block_.get();
  // The row in which the 1 of each unit vector ends up: a unit vector has zeros in front of it, and so has its
  // forward substitution. Taken in the order of these rows, neighbours skip the same zeros.
  std::vector<std::size_t>& unit_of_row = work.unit_of_row_;
  for (std::size_t i = 0; i < n; ++i) unit_of_row[i] = i;
  for (std::size_t i = 0; i < n; ++i) std::swap(unit_of_row[i], unit_of_row[exchanges[i]]);
  std::vector<double*>& columns = work.columns_;
  for (std::size_t first = 0; first < n; first += together) {
    const std::size_t count = std::min(together, n - first);
    std::fill_n(block, n * lanes, 0.0);
    double* const begin = block + first * lanes;
    for (std::size_t i = 0; i < count; ++i) {
      if (step()) return false;
      columns[i] = inverse[unit_of_row[first + i]];
      begin[i * lanes + i] = 1.0;
    }
    loops().solve_lower_rows(rows.lower(first + 1), first, n - first, begin);
    loops().substitute(rows.upper(n - 1), 0, n, block + (n - 1) * lanes);
    for_cells(n, count, [&](std::size_t r, std::size_t i) { columns[i][r] = block[r * lanes + i]; });
  }
  return true;
}

}  // namespace zor::kernels
