#include <algorithm>
#include <cmath>
#include <vector>

#include "zor/kernels/elementwise.h"
#include "zor/kernels/moments.h"
#include "zor/matrices/matrix.h"
#include "zor/matrices/percentile_internal.h"
#include "zor/matrices/row_blocks_internal.h"

namespace ZOR_matrix {
namespace {

namespace kernels = zor::kernels;

/// What is reported of a column or row, and how its cells change: (x - center) / scale, x - center, or not at all.
struct Scaling {
  enum class Kind { kDivide, kCenter, kKeep };
  Double center = 0.0, scale = 1.0;
  Kind kind = Kind::kKeep;
};

Scaling centering(std::span<const Double> cells) {
  return {kernels::mean_variance(cells).mean, 1.0, Scaling::Kind::kCenter};
}

Scaling standardizing(std::span<const Double> cells) {
  const kernels::MeanVar m = kernels::mean_variance(cells);
  const Double variance = m.n < 3 ? 1.0 : m.variance;
  return {m.mean, std::sqrt(variance), variance > 0.0 ? Scaling::Kind::kDivide : Scaling::Kind::kKeep};
}

/// Of the quantiles; `work` holds a copy of the cells while they are selected.
class QuantileNormalizing {
 public:
  QuantileNormalizing(Double reference, Integer most_cells) : reference_(reference) {
    work_.reserve(static_cast<std::size_t>(most_cells));  // nothing may fail once cells have changed
  }

  Scaling operator()(std::span<const Double> cells) {
    work_.assign(cells.begin(), cells.end());
    const Double median = zor::detail::nearest_percentile(work_, 50.0);
    const Double difference =
        std::isnan(reference_) ? reference_ : std::abs(median - zor::detail::nearest_percentile(work_, reference_));
    return {median, difference, difference > 0.0 ? Scaling::Kind::kDivide : Scaling::Kind::kKeep};
  }

 private:
  Double reference_;
  std::vector<Double> work_;
};

/// Asks for the room in result vectors while nothing has been changed.
void make_room(TVector* centers, TVector* scales, Integer n) {
  if (centers) centers->SetNrOfElem(n);
  if (scales) scales->SetNrOfElem(n);
}

/// Gives a vector, if there is one, the values used. Nothing may fail here: the cells have changed.
void report(TVector* vector, const std::vector<Scaling>& used, Double Scaling::*value) {
  if (!vector) return;
  vector->SetNrOfElem(zor::detail::to_integer(used.size()));  // a handler may have changed it since
  const auto edit = vector->Edit();
  const std::size_t n = std::min(used.size(), edit.cells().size());
  for (std::size_t i = 0; i < n; ++i) edit[i] = used[i].*value;
}

}  // namespace

template <class Self, Cell T>
TDynArray<const T*> MatrixCore<Self, T>::column_pointers() const {
  TDynArray<const T*> pointers;
  SetLength(pointers, dense_columns());
  for (Integer c = 0; c < dense_columns(); ++c) pointers[c] = Mat[c].data();
  return pointers;
}

template <class Rule>
void TMatrix::scale_columns(TVector* centers, TVector* scales, Rule&& rule) {
  std::vector<Scaling> used;
  used.reserve(Mat.size());
  make_room(centers, scales, FNCol);
  for_columns([&](std::span<Double> column) {
    const Scaling s = used.emplace_back(rule(column));
    if (s.kind == Scaling::Kind::kDivide) kernels::shift_scale(column, s.center, s.scale);
    if (s.kind == Scaling::Kind::kCenter) kernels::shift(column, -s.center);
  });
  report(centers, used, &Scaling::center);
  report(scales, used, &Scaling::scale);
  Changed();
}

template <class Rule>
void TMatrix::scale_rows(TVector* centers, TVector* scales, Rule&& rule) {
  make_room(centers, scales, FNRow);
  const TDynArray<const Double*> columns = column_pointers();
  const auto n = static_cast<std::size_t>(FNRow);
  std::vector<Scaling> used;
  used.reserve(n);
  zor::detail::for_rows(std::span<const Double* const>(columns), 0, n,
                        [&](std::size_t, std::span<const Double> row) { used.push_back(rule(row)); });
  // A row that stays is centred at 0 and divided by 1, which keeps every bit; so is nothing asked for a cell.
  std::vector<Double> center(n), scale(n);
  for (std::size_t r = 0; r < n; ++r) {
    center[r] = used[r].kind == Scaling::Kind::kKeep ? 0.0 : used[r].center;
    scale[r] = used[r].kind == Scaling::Kind::kDivide ? used[r].scale : 1.0;
  }
  for_columns([&](std::span<Double> column) {
    for (std::size_t r = 0; r < n; ++r) column[r] = (column[r] - center[r]) / scale[r];
  });
  report(centers, used, &Scaling::center);
  report(scales, used, &Scaling::scale);
  Changed();
}

void TMatrix::MeanCenterColumns(TVector* Means) { scale_columns(Means, nullptr, centering); }

void TMatrix::MeanCenterRows(TVector* Means) { scale_rows(Means, nullptr, centering); }

void TMatrix::StandardizeColumns(TVector* Means, TVector* StdDevs) { scale_columns(Means, StdDevs, standardizing); }

void TMatrix::StandardizeRows(TVector* Means, TVector* StdDevs) { scale_rows(Means, StdDevs, standardizing); }

void TMatrix::QNormalizeColumns(Double RefQuant, TVector* Medians, TVector* QuantDiffs) {
  scale_columns(Medians, QuantDiffs, QuantileNormalizing(RefQuant, FNRow));
}

void TMatrix::QNormalizeRows(Double RefQuant, TVector* Medians, TVector* QuantDiffs) {
  scale_rows(Medians, QuantDiffs, QuantileNormalizing(RefQuant, FNCol));
}

#define ZOR_INSTANCES(M, T) template TDynArray<const T*> MatrixCore<M, T>::column_pointers() const;

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix
