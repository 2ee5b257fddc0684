#include "zor/matrices/matrix.h"

#include <algorithm>

#include "zor/base/crc.h"
#include "zor/base/range_rule.h"
#include "zor/kernels/elementwise.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/runtime/random.h"
#include "zor/scalar/random_deviates.h"

namespace ZOR_matrix {

namespace kernels = zor::kernels;

EZORMatrixError::~EZORMatrixError() = default;

TMatrix::TMatrix(TComponent* AOwner) : TComponent(AOwner) {
  zor::detail::heap_guard(*this, [&] { SetLength(Mat, 1, 1); });
}

const char* TMatrix::ClassName() const noexcept { return "TMatrix"; }

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::Resize(Integer Nc, Integer Nr) {
  if (Nc < 1 || Nr < 1 || (Nc == FNCol && Nr == FNRow)) return false;
  zor::detail::heap_guard(self(), [&] {
    T2DArray made = Mat;
    SetLength(made, Nc, Nr);
    renew_cells(made);
  });
  return true;
}

template <class Self, Cell T>
void MatrixCore<Self, T>::renew_cells(T2DArray& made) {
  swap_cells(made);
  Changed();
  Resized();
}

template <class Self, Cell T>
void MatrixCore<Self, T>::renew_as_read(T2DArray& made) {
  const bool resized = Length(made) != FNCol || Length(made[0]) != FNRow;
  swap_cells(made);
  Changed();
  if (resized) Resized();
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::ResizeAndClear(Integer Nc, Integer Nr) {
  if (!Resize(Nc, Nr)) return false;
  Fill(T{0});
  Changed();
  Resized();
  return true;
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::MakeValidColRange(Integer& LowCol, Integer& HighCol) const noexcept {
  return zor::detail::make_valid_range(LowCol, HighCol, FNCol);
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::MakeValidRowRange(Integer& LowRow, Integer& HighRow) const noexcept {
  const bool reversed = FNRow > 0 && std::clamp(LowRow, 1, FNRow) > std::clamp(HighRow, 1, FNRow);
  const Integer moved = zor::detail::make_valid_range(LowRow, HighRow, FNRow);
  return reversed ? kRangeClamped : moved;
}

template <class Self, Cell T>
auto MatrixCore<Self, T>::columns(Integer LowCol, Integer HighCol) const noexcept -> Bounds {
  zor::detail::make_valid_range(LowCol, HighCol, dense_columns());
  return {LowCol, HighCol};
}

template <class Self, Cell T>
auto MatrixCore<Self, T>::rows(Integer LowRow, Integer HighRow) const noexcept -> Bounds {
  zor::detail::make_valid_range(LowRow, HighRow, dense_rows());
  return {LowRow, HighRow};
}

template <class Self, Cell T>
void MatrixCore<Self, T>::Fill(T value) {
  for_columns([&](std::span<T> column) { kernels::fill(column, value); });
  Changed();
}

template <class Self, Cell T>
void MatrixCore<Self, T>::Fill(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, T value) {
  for_columns(columns(LowCol, HighCol), rows(LowRow, HighRow),
              [&](std::span<T> column) { kernels::fill(column, value); });
  Changed();
}

template <class Self, Cell T>
void MatrixCore<Self, T>::FillDiag(T value) {
  for (Integer i = 0; i < std::min(dense_columns(), dense_rows()); ++i) Mat[i][i] = value;
  Changed();
}

void TMatrix::FillRandomUniform(Double RangeLow, Double RangeHigh) {
  FillRandomUniform(0, 0, 0, 0, RangeLow, RangeHigh);
}

void TMatrix::FillRandomUniform(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, Double RangeLow,
                                Double RangeHigh) {
  for_columns(columns(LowCol, HighCol), rows(LowRow, HighRow),
              [&](std::span<Double> column) { zor::detail::fill_random(column, RangeLow, RangeHigh - RangeLow); });
  Changed();
}

void TMatrix::FillRandomGauss(Double Mean, Double StdDev) { FillRandomGauss(0, 0, 0, 0, Mean, StdDev); }

void TMatrix::FillRandomGauss(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, Double Mean,
                              Double StdDev) {
  for_columns(columns(LowCol, HighCol), rows(LowRow, HighRow),
              [&](std::span<Double> column) { zor::detail::fill_gauss(column, Mean, StdDev); });
  Changed();
}

template <class Self, Cell T>
void MatrixCore<Self, T>::FillSerial(T Offset, T Diff) {
  const T step[] = {Diff};  // added as the cells are: integers wrap
  for_columns([&](std::span<T> column) {
    kernels::fill_serial(column, Offset, Diff);
    Offset = column.back();
    kernels::add(std::span<T>(&Offset, 1), step);
  });
}

template <class Self, Cell T>
TString MatrixCore<Self, T>::CRCofData() const {
  zor::detail::CellChecksum<T> checksum;
  for (Integer c = 1; c <= dense_columns(); ++c) checksum.add(Column(c));
  return checksum.text();
}

#define ZOR_INSTANCES(M, T)                                                                \
  template Boolean MatrixCore<M, T>::Resize(Integer, Integer);                             \
  template void MatrixCore<M, T>::renew_cells(T2DArray&);                                  \
  template void MatrixCore<M, T>::renew_as_read(T2DArray&);                                \
  template Boolean MatrixCore<M, T>::ResizeAndClear(Integer, Integer);                     \
  template Integer MatrixCore<M, T>::MakeValidColRange(Integer&, Integer&) const noexcept; \
  template Integer MatrixCore<M, T>::MakeValidRowRange(Integer&, Integer&) const noexcept; \
  template auto MatrixCore<M, T>::columns(Integer, Integer) const noexcept -> Bounds;      \
  template auto MatrixCore<M, T>::rows(Integer, Integer) const noexcept -> Bounds;         \
  template void MatrixCore<M, T>::Fill(T);                                                 \
  template void MatrixCore<M, T>::Fill(Integer, Integer, Integer, Integer, T);             \
  template void MatrixCore<M, T>::FillDiag(T);                                             \
  template void MatrixCore<M, T>::FillSerial(T, T);                                        \
  template TString MatrixCore<M, T>::CRCofData() const;

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix
