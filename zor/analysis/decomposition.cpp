#include <algorithm>
#include <cmath>
#include <utility>

#include "zor/analysis/decomposition_internal.h"
#include "zor/arrays/column_pointers_internal.h"
#include "zor/base/feedback.h"
#include "zor/kernels/moments.h"
#include "zor/kernels/reflections.h"

namespace zor::detail {

using ZOR_matrix::TMatrix;
using ZOR_zorbase::Integer;

ColumnBlock::ColumnBlock(std::size_t column_count, std::size_t row_count) : rows(row_count) {
  ZOR_runtime::SetLength(cells, to_integer(column_count), to_integer(row_count));
  columns = column_pointers(cells);
}

ColumnBlock::ColumnBlock(const TMatrix& from, Integer first_column, std::size_t column_count, Integer first_row,
                         std::size_t row_count)
    : ColumnBlock(column_count, row_count) {
  for (std::size_t c = 0; c < column_count; ++c) {
    const auto column = from.Column(first_column + static_cast<Integer>(c));
    const auto skipped = static_cast<std::size_t>(first_row - 1);
    if (skipped < column.size())
      std::copy_n(column.begin() + first_row - 1, std::min(row_count, column.size() - skipped), columns[c]);
  }
}

ColumnBlock::ColumnBlock(const TMatrix& from, std::size_t least_rows)
    : ColumnBlock(from, 1, to_size(from.NrOfColumns()), 1, std::max(least_rows, to_size(from.NrOfRows()))) {}

ColumnBlock ColumnBlock::copy(std::size_t least_rows) const {
  ColumnBlock made(size(), std::max(rows, least_rows));
  for (std::size_t c = 0; c < size(); ++c) std::copy_n(columns[c], rows, made.columns[c]);
  return made;
}

void store(TMatrix& to, const ColumnBlock& from, std::size_t rows) {
  to.Resize(to_integer(from.size()), to_integer(rows));
  auto edit = to.Edit();
  for (std::size_t c = 0; c < from.size(); ++c) {
    const auto column = edit.Column(static_cast<Integer>(c + 1));
    std::copy_n(from.columns[c], std::min(rows, column.size()), column.begin());
  }
}

namespace {
bool step_aborts() { return feedback_step_aborts(); }
}  // namespace

Decomposition::Decomposition(ColumnBlock block) : u(std::move(block)), v(u.size(), u.size()), w(u.size()) {
  const std::size_t n = u.size();
  ColumnBlock square(n, n);
  std::vector<double> work(kernels::singular_value_decomposition_work(n));
  ended = kernels::singular_value_decomposition(u.columns.data(), u.rows, n, w.data(), v.columns.data(),
                                                square.columns.data(), work.data(), step_aborts);
}

double Decomposition::largest() const noexcept {
  double largest = 0.0;
  for (const double x : w) largest = std::max(largest, x);
  return largest;
}

bool Decomposition::drop_small_values() noexcept {
  const double limit = largest() * 1e-14;
  bool dropped = false;
  for (double& x : w) {
    if (x < limit) x = 0.0, dropped = true;
  }
  return dropped;
}

void apply_inverse(const ColumnBlock& u, const ColumnBlock& v, std::span<const double> gain, std::span<const double> b,
                   std::span<double> x, std::span<double> deviations) {
  const std::size_t n = gain.size();
  std::vector<double> t(n);
  for (std::size_t j = 0; j < n; ++j) {
    const kernels::DoubleDouble projection = kernels::dot_twofold(u[j].first(b.size()), b);
    t[j] = projection.hi * gain[j];
  }
  kernels::combine_columns(v.columns.data(), t.data(), n, 0, n, x.data());
  for (std::size_t i = 0; i < deviations.size(); ++i) {
    double sum = 0.0;
    for (std::size_t j = 0; j < n; ++j) sum += v[j][i] * v[j][i] * (gain[j] * gain[j]);
    deviations[i] = std::sqrt(sum);
  }
}

}  // namespace zor::detail
