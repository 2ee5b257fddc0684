#include <cmath>
#include <limits>
#include <vector>

#include "zor/base/ZOR_univconst.h"
#include "zor/datatable/cell_walk_internal.h"
#include "zor/kernels/extremes.h"
#include "zor/kernels/moments.h"
#include "zor/vectors/statistics_internal.h"

namespace ZOR_datatable {

namespace kernels = zor::kernels;
using ZOR_matrix::EZORMatrixError;

template <class Takes>
Integer TTableStatistics::count_cells(Range cols, Range down, Boolean metric_only, Takes takes) const noexcept {
  std::size_t count = 0;
  for (Integer c = cols.lo; c <= cols.hi; ++c) {
    if (metric_only && !is_metric(FFrame.columns[c - 1].type.MScaleType)) continue;
    for (const Byte state : column_states(c).subspan(zor::detail::to_size(down.lo - 1), down.size())) {
      count += takes(state);
    }
  }
  return zor::detail::to_integer(count);
}

Integer TTableStatistics::CountNumCells(Integer LowCol, Integer LowRow, Integer HighCol,
                                        Integer HighRow) const noexcept {
  return count_cells(columns(LowCol, HighCol), rows(LowRow, HighRow), true, is_numeric_state);
}

Integer TTableStatistics::CountValidCells(Integer LowCol, Integer LowRow, Integer HighCol,
                                          Integer HighRow) const noexcept {
  return count_cells(columns(LowCol, HighCol), rows(LowRow, HighRow), false, is_numeric_state);
}

Integer TTableStatistics::CountEmptyCells(Integer LowCol, Integer LowRow, Integer HighCol,
                                          Integer HighRow) const noexcept {
  return count_cells(columns(LowCol, HighCol), rows(LowRow, HighRow), false,
                     [](Byte state) { return (state & kCellEmpty) != 0; });
}

Integer TTableStatistics::CountImputedCells(Integer LowCol, Integer LowRow, Integer HighCol,
                                            Integer HighRow) const noexcept {
  return count_cells(columns(LowCol, HighCol), rows(LowRow, HighRow), false,
                     [](Byte state) { return (state & kCellImputed) != 0; });
}

Double TTableStatistics::sum_of_cells(const Gate& gate, Range cols, Range down, Boolean squared, Integer& count) const {
  kernels::MomentSums sums;
  for_cells(gate, cols, down, [&](std::span<const Double> cells) { kernels::accumulate(sums, cells); });
  count = zor::detail::to_integer(sums.n);
  return kernels::fold(squared ? sums.squares : sums.sum).hi;
}

Double TTableStatistics::SumOfNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                       Integer& NumData) const {
  return sum_of_cells(Gate::numeric(true), columns(LowCol, HighCol), rows(LowRow, HighRow), false, NumData);
}

Double TTableStatistics::SumOfMarkedCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                          Byte CellState, Integer& NumData) const {
  return sum_of_cells(Gate::marked(CellState, true), columns(LowCol, HighCol), rows(LowRow, HighRow), false, NumData);
}

Double TTableStatistics::SumOfSquaredNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                              Integer& NumData) const {
  return sum_of_cells(Gate::numeric(true), columns(LowCol, HighCol), rows(LowRow, HighRow), true, NumData);
}

Double TTableStatistics::SumOfSquaredMarkedCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                                 Byte CellState, Integer& NumData) const {
  return sum_of_cells(Gate::marked(CellState, true), columns(LowCol, HighCol), rows(LowRow, HighRow), true, NumData);
}

Integer TTableStatistics::extremes(const Gate& gate, Range cols, Range down, Double& minimum, Double& maximum) const {
  kernels::Extremes<Double> found{ZOR_univconst::uc_MaxReal, -ZOR_univconst::uc_MaxReal};
  std::size_t count = 0;
  for_cells(gate, cols, down, [&](std::span<const Double> cells) {
    kernels::min_max(cells, found);
    count += cells.size();
  });
  minimum = found.minimum;
  maximum = found.maximum;
  return zor::detail::to_integer(count);
}

Integer TTableStatistics::MinMaxOfNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                           Double& Minimum, Double& Maximum) const {
  return extremes(Gate::numeric(true), columns(LowCol, HighCol), rows(LowRow, HighRow), Minimum, Maximum);
}

Integer TTableStatistics::MinMaxOfValidCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                             Double& Minimum, Double& Maximum) const {
  return extremes(Gate::numeric(false, true), columns(LowCol, HighCol), rows(LowRow, HighRow), Minimum, Maximum);
}

Integer TTableStatistics::MinMaxOfMarkedCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                              Byte CellState, Double& Minimum, Double& Maximum) const {
  return extremes(Gate::marked(CellState, false), columns(LowCol, HighCol), rows(LowRow, HighRow), Minimum, Maximum);
}

Integer TTableStatistics::mean_variance(const Gate& gate, Range cols, Range down, Double& mean,
                                        Double& variance) const {
  const kernels::MeanVar result = kernels::mean_variance_of_runs([&](auto take) { for_cells(gate, cols, down, take); });
  mean = result.mean;
  variance = result.n < 3 ? 1.0 : result.variance;
  return zor::detail::to_integer(result.n);
}

Integer TTableStatistics::MeanVarOfNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                            Double& Mean, Double& Variance) const {
  return mean_variance(Gate::numeric(true), columns(LowCol, HighCol), rows(LowRow, HighRow), Mean, Variance);
}

Integer TTableStatistics::MeanVarOfMarkedCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                               Byte CellState, Double& Mean, Double& Variance) const {
  return mean_variance(Gate::marked(CellState, true), columns(LowCol, HighCol), rows(LowRow, HighRow), Mean, Variance);
}

Double TTableStatistics::GeometricMeanOfNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                                 Integer& NumData) const {
  kernels::MomentSums sums;
  std::vector<Double> logarithms;
  bool zero = false;
  NumData = 0;
  for_cells(Gate::numeric(true), columns(LowCol, HighCol), rows(LowRow, HighRow), [&](std::span<const Double> cells) {
    logarithms.clear();
    for (const Double x : cells) {
      if (x < 0.0) zor::detail::Fail<EZORMatrixError>(*this, "negative argument passed to GeometricMean");
      zero = zero || x == 0.0;
      if (x != 0.0) logarithms.push_back(std::log(x));
    }
    kernels::accumulate(sums, logarithms);
  });
  NumData = zor::detail::to_integer(sums.n);
  return zero || sums.n == 0 ? 0.0 : std::exp(kernels::mean_of_sum(kernels::fold(sums.sum), sums.n));
}

Double TTableStatistics::HarmonicMeanOfNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                                Integer& NumData) const {
  kernels::MomentSums sums;
  std::vector<Double> reciprocals;
  NumData = 0;
  for_cells(Gate::numeric(true), columns(LowCol, HighCol), rows(LowRow, HighRow), [&](std::span<const Double> cells) {
    reciprocals.clear();
    for (const Double x : cells) {
      if (x <= 0.0) zor::detail::Fail<EZORMatrixError>(*this, "negative or zero argument passed to HarmonicMean");
      reciprocals.push_back(1.0 / x);
    }
    kernels::accumulate(sums, reciprocals);
  });
  NumData = zor::detail::to_integer(sums.n);
  return sums.n == 0 ? 0.0 : static_cast<Double>(sums.n) / kernels::fold(sums.sum).hi;
}

template <class Error>
TDoubleArray TTableStatistics::gather(const Gate& gate, Range cols, Range down) const {
  try {
    TDoubleArray work;
    zor::detail::set_length_unset(work, cols.size() * down.size());
    std::size_t n = 0;
    for_cells(gate, cols, down, [&](std::span<const Double> cells) {
      std::ranges::copy(cells, work.begin() + n);
      n += cells.size();
    });
    SetLength(work, static_cast<Int64>(n));
    return work;
  } catch (const EOutOfMemory&) {
    zor::detail::Fail<Error>(*this, "not enough memory on heap");
  }
}

Boolean TTableStatistics::quartiles(const Gate& gate, Range cols, Range down, Double& q1, Double& q2, Double& q3,
                                    Integer& count) const {
  q1 = q2 = q3 = 0.0;
  TDoubleArray work = gather<EZORDataTableError>(gate, cols, down);
  count = Length(work);
  if (count == 0) return true;
  const auto q = zor::detail::quartiles(std::span<Double>(work.begin(), work.end()));
  q1 = q[0], q2 = q[1], q3 = q[2];
  return true;
}

Boolean TTableStatistics::QuartilesOfNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                              Double& Q1, Double& Q2, Double& Q3, Integer& NumData) const {
  return quartiles(Gate::numeric(true), columns(LowCol, HighCol), rows(LowRow, HighRow), Q1, Q2, Q3, NumData);
}

Boolean TTableStatistics::QuartilesOfMarkedCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                                 Double& Q1, Double& Q2, Double& Q3, Byte CellState,
                                                 Integer& NumData) const {
  return quartiles(Gate::marked(CellState, true), columns(LowCol, HighCol), rows(LowRow, HighRow), Q1, Q2, Q3, NumData);
}

Double TTableStatistics::percentile(const Gate& gate, Range cols, Range down, Double prob, Integer& count) const {
  TDoubleArray work = gather<EZORMatrixError>(gate, cols, down);
  count = Length(work);
  if (std::isnan(prob)) return prob;
  if (work.empty()) return 0.0;
  const std::size_t last = work.size() - 1;
  const Double position = static_cast<Double>(last) * std::clamp(prob, 0.0, 100.0) / 100.0;
  const std::size_t lower = std::min(static_cast<std::size_t>(position), last);
  const std::array<std::size_t, 2> ranks{lower, std::min(lower + 1, last)};
  std::array<Double, 2> values;
  zor::detail::ranked_values<Double>({work.data(), work.size()}, ranks, values);
  return lower == last ? values[0]
                       : zor::detail::interpolate(values[0], values[1], position - static_cast<Double>(lower));
}

Double TTableStatistics::PercentileOfNumCells(Double prob, Integer LowCol, Integer LowRow, Integer HighCol,
                                              Integer HighRow, Integer& NumData) const {
  return percentile(Gate::numeric(true), columns(LowCol, HighCol), rows(LowRow, HighRow), prob, NumData);
}

Double TTableStatistics::PercentileOfMarkedCells(Double prob, Integer LowCol, Integer LowRow, Integer HighCol,
                                                 Integer HighRow, Byte CellState, Integer& NumData) const {
  return percentile(Gate::marked(CellState, true), columns(LowCol, HighCol), rows(LowRow, HighRow), prob, NumData);
}

Integer TTableStatistics::CopyCellsToVector(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                            Byte CellState, TVector* DestVect) const {
  if (!DestVect) return 0;
  const Gate gate(false, false, [=](unsigned state) { return CellState == 255 || (CellState & state) != 0; });
  const TDoubleArray cells = gather<EZORDataTableError>(gate, columns(LowCol, HighCol), rows(LowRow, HighRow));
  DestVect->Resize(std::max(Length(cells), 1));
  auto edit = DestVect->Edit();
  edit[0] = 0.0;
  std::copy_n(cells.begin(), std::min(cells.size(), edit.cells().size()), edit.begin());
  return Length(cells);
}

}  // namespace ZOR_datatable
