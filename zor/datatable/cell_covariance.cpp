#include <algorithm>
#include <cmath>
#include <vector>

#include "zor/datatable/cell_walk_internal.h"
#include "zor/kernels/moments.h"
#include "zor/matrices/matrix_cells_internal.h"
#include "zor/scalar/correlation_internal.h"

namespace ZOR_datatable {

namespace {

namespace kernels = zor::kernels;
using zor::detail::to_size;

/// A column as the covariance sees it: numbers and which of them take part.
struct Series {
  std::vector<Double> cells;
  std::vector<std::uint8_t> numeric;
  bool complete = true;
};

/// Calls f with runs of the pairs in which both cells are numeric.
template <class F>
void for_pairs(const Series& a, const Series& b, F f) {
  if (a.complete && b.complete) return f(std::span<const Double>(a.cells), std::span<const Double>(b.cells));
  constexpr std::size_t kBlock = 1024;
  std::array<Double, kBlock + 1> x, y;
  for (std::size_t i = 0; i < a.cells.size();) {
    const std::size_t end = std::min(i + kBlock, a.cells.size());
    std::size_t n = 0;
    for (; i < end; ++i) {
      x[n] = a.cells[i];
      y[n] = b.cells[i];
      n += a.numeric[i] & b.numeric[i];
    }
    f(std::span<const Double>(x.data(), n), std::span<const Double>(y.data(), n));
  }
}

Double pearson(const Series& a, const Series& b) {
  kernels::PairSums sums;
  for_pairs(a, b, [&](auto x, auto y) { kernels::accumulate(sums, x, y); });
  const kernels::PairMoments m = kernels::pair_moments(sums);
  return m.n < 3 ? 0.0 : std::clamp(zor::detail::correlation(m), -1.0, 1.0);
}

/// Sum of term(x, y) / (n - 1), with twice the precision.
template <class Term>
Double mean_of_terms(const Series& a, const Series& b, Term term) {
  kernels::PairSums sums;
  std::vector<Double> p, q;
  for_pairs(a, b, [&](std::span<const Double> x, std::span<const Double> y) {
    p.resize(x.size()), q.resize(x.size());
    for (std::size_t i = 0; i < x.size(); ++i) term(x[i], y[i], p[i], q[i]);
    kernels::accumulate(sums, p, q);
  });
  if (sums.x.n < 2) return 0.0;
  const kernels::DoubleDouble sum = kernels::fold(sums.products);
  return sum.hi / static_cast<Double>(sums.x.n - 1);
}

Double pair_value(const Series& a, const Series& b, Double mean_a, Double mean_b, Integer mode) {
  switch (mode) {
    case 0:
      return mean_of_terms(a, b, [](Double x, Double y, Double& p, Double& q) { p = x, q = y; });
    case 1:
      return mean_of_terms(a, b, [=](Double x, Double y, Double& p, Double& q) { p = x - mean_a, q = y - mean_b; });
    case 2:
      return pearson(a, b);
    case 3: {
      const Double r = pearson(a, b);
      return r * r;
    }
    case 4:
      return mean_of_terms(a, b, [](Double x, Double y, Double& p, Double& q) { p = q = x - y; });
    default:
      return 0.0;
  }
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
  std::vector<Series> series(to_size(n));
  for (Int64 i = 0; i < n; ++i) {
    const Int64 place = Int64{LoC} + i;
    if (place < 1 || place > NrOfColumns() || first_row > last_row) continue;
    const auto col = static_cast<Integer>(place);
    const std::span<const Byte> states = column_states(col).subspan(to_size(first_row - 1), height);
    Series& s = series[to_size(i)];
    for (Integer r = first_row; r <= last_row; ++r) s.cells.push_back(GetElem(col, r));
    for (const Byte state : states) s.numeric.push_back(is_numeric_state(state));
    s.complete = std::ranges::all_of(s.numeric, [](std::uint8_t flag) { return flag != 0; });
  }
  for (Series& s : series) {  // of columns outside nothing is numeric
    if (s.cells.size() == height) continue;
    s = {std::vector<Double>(height), std::vector<std::uint8_t>(height), height == 0};
  }
  std::vector<Double> means(to_size(n));
  for (Int64 i = 0; Mode > 0 && i < n; ++i) {
    Double variance = 0.0;
    const auto col = static_cast<Integer>(LoC + i);
    MeanVarOfNumCells(col, LoR, col, HiR, means[to_size(i)], variance);
    zor::detail::feedback_step();
  }
  for (Integer i = 0; i < n && !AbortMathProc; ++i) {
    zor::detail::feedback_step();
    if (!fits()) return false;
    for (Integer j = 0; j <= i; ++j) {
      Double value = pair_value(series[to_size(i)], series[to_size(j)], means[to_size(i)], means[to_size(j)], Mode);
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
