#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "zor/datatable/cell_walk_internal.h"
#include "zor/kernels/moments.h"
#include "zor/matrices/matrix_cells_internal.h"
#include "zor/scalar/correlation_internal.h"

namespace ZOR_datatable {

namespace {

namespace kernels = zor::kernels;
using zor::detail::to_size;

/// A column as the covariance sees it: numbers less their shift, 0.0 where a cell is not numeric; which ones are not,
/// as a list and as bits; sums.
struct Series {
  std::vector<Double> cells;
  std::vector<std::size_t> gaps;
  std::vector<std::uint64_t> numeric;
  Double sum = 0.0, squares = 0.0;
  bool finite = true;
};

bool is_numeric_at(const Series& s, std::size_t i) noexcept { return (s.numeric[i / 64] >> (i % 64) & 1) != 0; }

/// Rows in which both are numeric.
std::size_t common_rows(const Series& a, const Series& b) noexcept {
  std::size_t n = a.cells.size() - a.gaps.size();
  for (const std::size_t i : b.gaps) n -= is_numeric_at(a, i);
  return n;
}

/// Calls f with runs of the pairs in which both cells are numeric.
template <class F>
void for_pairs(const Series& a, const Series& b, F f) {
  if (a.gaps.empty() && b.gaps.empty()) return f(std::span<const Double>(a.cells), std::span<const Double>(b.cells));
  constexpr std::size_t kBlock = 1024;
  std::array<Double, kBlock + 1> x, y;
  for (std::size_t i = 0; i < a.cells.size();) {
    const std::size_t end = std::min(i + kBlock, a.cells.size());
    std::size_t n = 0;
    for (; i < end; ++i) {
      x[n] = a.cells[i];
      y[n] = b.cells[i];
      n += is_numeric_at(a, i) && is_numeric_at(b, i);
    }
    f(std::span<const Double>(x.data(), n), std::span<const Double>(y.data(), n));
  }
}

Double pearson_by_pairs(const Series& a, const Series& b) {
  kernels::PairSums sums;
  for_pairs(a, b, [&](auto x, auto y) { kernels::accumulate(sums, x, y); });
  return zor::detail::correlation(kernels::pair_moments(sums));
}

/// Sums of the cells of a that have a partner in b: those of all, less those in the gaps of b.
void leave_out(const Series& a, const Series& b, Double& sum, Double& squares) {
  sum = a.sum;
  squares = a.squares;
  for (const std::size_t i : b.gaps) {
    sum -= a.cells[i];  // 0.0 in a gap of its own
    squares -= a.cells[i] * a.cells[i];
  }
}

/// Sums of products of some columns with all columns up to them, with twice the precision; rows are taken in blocks
/// that stay in the cache for all pairs.
class Products {
 public:
  static constexpr std::size_t kGroup = 8;
  explicit Products(const std::vector<Series>& series) : series_(series), sums_(kGroup * series.size()) {}
  /// Sums of the columns first to first + kGroup - 1, as far as they exist.
  void compute(std::size_t first) {
    constexpr std::size_t kRows = 2048;
    const std::size_t height = series_[first].cells.size(), last = std::min(first + kGroup, series_.size());
    std::ranges::fill(sums_, kernels::DoubleDouble());
    for (std::size_t r = 0; r < height; r += kRows) {
      const auto part = [&](std::size_t i) {
        return std::span<const Double>(series_[i].cells).subspan(r, std::min(kRows, height - r));
      };
      for (std::size_t j = 0; j < last; ++j) {
        for (std::size_t i = std::max(first, j); i < last; ++i) add(sum(i, j), kernels::dot_twofold(part(i), part(j)));
      }
    }
  }
  /// Of columns i of the group and j <= i.
  Double operator()(std::size_t i, std::size_t j) { return sum(i, j).hi + sum(i, j).lo; }

 private:
  kernels::DoubleDouble& sum(std::size_t i, std::size_t j) { return sums_[i % kGroup * series_.size() + j]; }
  static void add(kernels::DoubleDouble& to, kernels::DoubleDouble x) {
    const Double hi = to.hi + x.hi, back = hi - to.hi;
    to.lo += (to.hi - (hi - back)) + (x.hi - back) + x.lo;
    to.hi = hi;
  }
  const std::vector<Series>& series_;
  std::vector<kernels::DoubleDouble> sums_;
};

// The series are centred by their means, so that sums over the common rows lose no digits to them; where little of the
// variance is left, the pairs are summed by themselves.
Double pearson(const Series& a, const Series& b, Double products) {
  constexpr Double kLittle = 1e-6;
  const std::size_t n = common_rows(a, b);
  if (n < 3) return 0.0;
  const Double count = static_cast<Double>(n);
  if (a.finite && b.finite) {
    Double sa, sb, saa, sbb;
    leave_out(a, b, sa, saa);
    leave_out(b, a, sb, sbb);
    const Double cxx = saa - sa * sa / count, cyy = sbb - sb * sb / count;
    if (cxx > kLittle * a.squares && cyy > kLittle * b.squares && std::isnormal(cxx * cyy)) {
      const Double cxy = products - sa * sb / count;
      return std::clamp(cxy / std::sqrt(cxx * cyy), -1.0, 1.0);
    }
  }
  return std::clamp(pearson_by_pairs(a, b), -1.0, 1.0);
}

/// Sum of a b / (n - 1), with twice the precision. Gaps add 0.0, unless the other cell is not finite.
Double mean_product(const Series& a, const Series& b, Double products) {
  const std::size_t n = common_rows(a, b);
  if (n < 2) return 0.0;
  if (a.finite && b.finite) return products / static_cast<Double>(n - 1);
  kernels::PairSums sums;
  for_pairs(a, b, [&](auto x, auto y) { kernels::accumulate(sums, x, y); });
  return kernels::fold(sums.products).hi / static_cast<Double>(n - 1);
}

Double mean_squared_difference(const Series& a, const Series& b) {
  kernels::MomentSums sums;
  std::vector<Double> differences;
  for_pairs(a, b, [&](std::span<const Double> x, std::span<const Double> y) {
    differences.resize(x.size());
    for (std::size_t i = 0; i < x.size(); ++i) differences[i] = x[i] - y[i];
    kernels::accumulate(sums, differences);
  });
  return sums.n < 2 ? 0.0 : kernels::fold(sums.squares).hi / static_cast<Double>(sums.n - 1);
}

Double pair_value(const Series& a, const Series& b, Double products, Integer mode) {
  switch (mode) {
    case 0:
    case 1:
      return mean_product(a, b, products);
    case 2:
      return pearson(a, b, products);
    case 3: {
      const Double r = pearson(a, b, products);
      return r * r;
    }
    case 4:
      return mean_squared_difference(a, b);
    default:
      return 0.0;
  }
}

/// The numbers less the shift, and what belongs to them.
Series make_series(std::vector<Double> cells, std::span<const Byte> states, std::optional<Double> shift) {
  Series s;
  s.numeric.resize((cells.size() + 63) / 64);
  kernels::MomentSums own;
  std::vector<Double> numbers;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i < states.size() && is_numeric_state(states[i])) {
      s.numeric[i / 64] |= std::uint64_t{1} << (i % 64);
      numbers.push_back(cells[i]);
    } else {
      s.gaps.push_back(i);
    }
  }
  const Double by = shift ? *shift : kernels::mean_variance(numbers).mean;
  for (Double& x : cells) x -= by;
  for (const std::size_t i : s.gaps) cells[i] = 0.0;
  s.cells = std::move(cells);
  kernels::accumulate(own, s.cells);
  s.sum = kernels::fold(own.sum).hi;
  s.squares = kernels::fold(own.squares).hi;
  s.finite = std::isfinite(s.squares);
  return s;
}

}  // namespace

// The cells are copied first: a feedback procedure may change the table, and the result may be its own matrix.
Boolean TTableStatistics::CalcCovar(TMatrix* CovarMat, Integer LoC, Integer HiC, Integer LoR, Integer HiR,
                                    Integer Mode) const {
  AbortMathProc = false;
  const Int64 n = Int64{HiC} - LoC + 1;
  const auto fits = [&] { return CovarMat->NrOfColumns() >= n && CovarMat->NrOfRows() >= n; };
  if (!CovarMat || !fits()) return false;
  if (n < 1) return true;
  const Integer first_row = std::max(LoR, 1), last_row = std::min(HiR, NrOfRows());
  const std::size_t height = to_size(Int64{last_row} - first_row + 1);
  const auto place_of = [&](Int64 i) { return Int64{LoC} + i; };
  const auto exists = [&](Int64 i) { return place_of(i) >= 1 && place_of(i) <= NrOfColumns() && height > 0; };
  std::vector<std::vector<Double>> numbers(to_size(n));
  std::vector<std::vector<Byte>> states(to_size(n));
  for (Int64 i = 0; i < n; ++i) {
    numbers[to_size(i)].resize(height);
    if (!exists(i)) continue;
    const auto col = static_cast<Integer>(place_of(i));
    std::vector<Double>& cells = numbers[to_size(i)];
    const std::span<const Double> column = ColumnView(col);
    const std::size_t begin = std::min(to_size(first_row - 1), column.size());
    std::ranges::copy(column.subspan(begin, std::min(height, column.size() - begin)), cells.begin());
    if (column_is_categorial(col)) std::ranges::transform(cells, cells.begin(), zor::detail::round_to_even);
    const std::span<const Byte> all = column_states(col).subspan(to_size(first_row - 1), height);
    states[to_size(i)].assign(all.begin(), all.end());
  }
  std::vector<Double> means(to_size(n));
  for (Int64 i = 0; Mode > 0 && i < n; ++i) {
    Double variance = 0.0;
    const auto col = static_cast<Integer>(place_of(i));
    MeanVarOfNumCells(col, LoR, col, HiR, means[to_size(i)], variance);
    zor::detail::feedback_step();
  }
  std::vector<Series> series;
  for (Int64 i = 0; i < n; ++i) {
    std::optional<Double> shift;  // none: the mean of the column itself
    if (Mode == 1) shift = means[to_size(i)];
    if (Mode == 0 || Mode == 4) shift = 0.0;
    series.push_back(make_series(std::move(numbers[to_size(i)]), states[to_size(i)], shift));
  }
  Products products(series);
  for (Integer i = 0; i < n && !AbortMathProc; ++i) {
    zor::detail::feedback_step();
    if (!fits()) return false;
    if (to_size(i) % Products::kGroup == 0 && Mode >= 0 && Mode <= 3) products.compute(to_size(i));
    for (Integer j = 0; j <= i; ++j) {
      Double value = pair_value(series[to_size(i)], series[to_size(j)], products(to_size(i), to_size(j)), Mode);
      if (i == j && (Mode == 2 || Mode == 3)) value = 1.0;
      zor::detail::MatrixCells::column(*CovarMat, j + 1)[to_size(i)] = value;
      zor::detail::MatrixCells::column(*CovarMat, i + 1)[to_size(j)] = value;
    }
  }
  CovarMat->Changed();
  return !AbortMathProc;
}

void TTableStatistics::scale_cells(Integer col, Integer first_row, Integer last_row, Double shift,
                                   Double scale) noexcept {
  const std::span<Double> cells = column_cells(col);
  const std::span<const Byte> states = column_states(col);
  const std::size_t end = std::min({to_size(last_row), cells.size(), states.size()});
  for (std::size_t r = to_size(first_row - 1); r < end; ++r) {
    if (is_numeric_state(states[r])) cells[r] = (cells[r] - shift) / scale;
  }
}

void TTableStatistics::StandardizeNumCellColumns(TVector* Means, TVector* StdDevs) {
  bool scaled = false;
  for (Integer c = 1; c <= NrOfColumns(); ++c) {
    if (!is_metric(MScaleType(c))) continue;
    Double mean = 0.0, variance = 0.0;
    MeanVarOfNumCells(c, 1, c, NrOfRows(), mean, variance);
    if (variance > 0.0) {
      scale_cells(c, 1, NrOfRows(), mean, std::sqrt(variance));
      scaled = true;
    }
    if (Means) Means->SetVal(c, mean);
    if (StdDevs) StdDevs->SetVal(c, std::sqrt(variance));
  }
  if (scaled) ChangedData();
}

void TTableStatistics::need_metric_rows(std::string_view message) const {
  for (const TColumnRecord& column : FFrame.columns) {
    if (is_categorial(column.type.MScaleType)) zor::detail::Fail<EZORDataTableError>(message);
  }
}

void TTableStatistics::StandardizeNumCellRows(TVector* Means, TVector* StdDevs) {
  need_metric_rows("standardization of rows is not possible with nominal or ordinal variables");
  for (Integer r = 1; r <= NrOfRows(); ++r) {
    Double mean = 0.0, variance = 0.0;
    MeanVarOfNumCells(1, r, NrOfColumns(), r, mean, variance);
    for (Integer c = 1; c <= NrOfColumns() && variance > 0.0; ++c) scale_cells(c, r, r, mean, std::sqrt(variance));
    if (Means) Means->SetVal(r, mean);
    if (StdDevs) StdDevs->SetVal(r, std::sqrt(variance));
  }
  ChangedData();
}

void TTableStatistics::MeanCenterNumCellColumns(TVector* Means) {
  for (Integer c = 1; c <= NrOfColumns(); ++c) {
    if (!is_metric(MScaleType(c))) continue;
    Double mean = 0.0, variance = 0.0;
    MeanVarOfNumCells(c, 1, c, NrOfRows(), mean, variance);
    scale_cells(c, 1, NrOfRows(), mean, 1.0);
    if (Means) Means->SetVal(c, mean);
  }
  ChangedData();
}

void TTableStatistics::MeanCenterNumCellRows(TVector* Means) {
  need_metric_rows("mean centering of rows is not possible with nominal or ordinal variables");
  for (Integer r = 1; r <= NrOfRows(); ++r) {
    Double mean = 0.0, variance = 0.0;
    MeanVarOfNumCells(1, r, NrOfColumns(), r, mean, variance);
    for (Integer c = 1; c <= NrOfColumns(); ++c) scale_cells(c, r, r, mean, 1.0);
    if (Means) Means->SetVal(r, mean);
  }
  ChangedData();
}

}  // namespace ZOR_datatable
