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

template <Cell T>
BasicMatrix<T>::BasicMatrix(TComponent* AOwner) : TComponent(AOwner) {
  zor::detail::heap_guard(*this, [&] { SetLength(Mat, 1, 1); });
}

template <Cell T>
const char* BasicMatrix<T>::ClassName() const noexcept {
  return RealCell<T> ? "TMatrix" : "TIntMatrix";
}

template <Cell T>
Boolean BasicMatrix<T>::Resize(Integer Nc, Integer Nr) {
  if (Nc < 1 || Nr < 1 || (Nc == FNCol && Nr == FNRow)) return false;
  zor::detail::heap_guard(*this, [&] {
    T2DArray made = Mat;
    SetLength(made, Nc, Nr);
    replace_cells(made);
  });
  return true;
}

template <Cell T>
void BasicMatrix<T>::replace_cells(T2DArray& made) {
  set_cells(made);
  Changed();
  Resized();
}

template <Cell T>
void BasicMatrix<T>::take_over(T2DArray& made) {
  const bool resized = made.size() != Mat.size() || made[0].size() != Mat[0].size();
  set_cells(made);
  Changed();
  if (resized) Resized();
}

template <Cell T>
Boolean BasicMatrix<T>::ResizeAndClear(Integer Nc, Integer Nr) {
  if (!Resize(Nc, Nr)) return false;
  Fill(T{0});
  Changed();
  Resized();
  return true;
}

template <Cell T>
Integer BasicMatrix<T>::MakeValidColRange(Integer& LowCol, Integer& HighCol) const noexcept {
  return zor::detail::make_valid_range(LowCol, HighCol, FNCol);
}

template <Cell T>
Integer BasicMatrix<T>::MakeValidRowRange(Integer& LowRow, Integer& HighRow) const noexcept {
  const bool reversed = std::clamp(LowRow, 1, FNRow) > std::clamp(HighRow, 1, FNRow);
  const Integer moved = zor::detail::make_valid_range(LowRow, HighRow, FNRow);
  return reversed ? kRangeClamped : moved;
}

template <Cell T>
void BasicMatrix<T>::Fill(T value) {
  for_columns([&](std::span<T> column) { kernels::fill(column, value); });
  Changed();
}

template <Cell T>
void BasicMatrix<T>::Fill(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, T value) {
  for_columns(columns(LowCol, HighCol), rows(LowRow, HighRow),
              [&](std::span<T> column) { kernels::fill(column, value); });
  Changed();
}

template <Cell T>
void BasicMatrix<T>::FillDiag(T value) {
  for (Integer i = 0; i < std::min(FNCol, FNRow); ++i) Mat[i][i] = value;
  Changed();
}

template <Cell T>
void BasicMatrix<T>::FillRandomUniform(Double RangeLow, Double RangeHigh)
  requires RealCell<T>
{
  FillRandomUniform(0, 0, 0, 0, RangeLow, RangeHigh);
}

template <Cell T>
void BasicMatrix<T>::FillRandomUniform(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow,
                                       Double RangeLow, Double RangeHigh)
  requires RealCell<T>
{
  for_columns(columns(LowCol, HighCol), rows(LowRow, HighRow),
              [&](std::span<T> column) { zor::detail::fill_random(column, RangeLow, RangeHigh - RangeLow); });
  Changed();
}

template <Cell T>
void BasicMatrix<T>::FillRandomGauss(Double Mean, Double StdDev)
  requires RealCell<T>
{
  FillRandomGauss(0, 0, 0, 0, Mean, StdDev);
}

template <Cell T>
void BasicMatrix<T>::FillRandomGauss(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, Double Mean,
                                     Double StdDev)
  requires RealCell<T>
{
  for_columns(columns(LowCol, HighCol), rows(LowRow, HighRow),
              [&](std::span<T> column) { zor::detail::fill_gauss(column, Mean, StdDev); });
  Changed();
}

template <Cell T>
void BasicMatrix<T>::FillSerial(T Offset, T Diff) {
  const T step[] = {Diff};  // added as the cells are: integers wrap
  for_columns([&](std::span<T> column) {
    kernels::fill_serial(column, Offset, Diff);
    Offset = column.back();
    kernels::add(std::span<T>(&Offset, 1), step);
  });
}

template <Cell T>
TString BasicMatrix<T>::CRCofData() const {
  zor::detail::CellChecksum<T> checksum;
  for (Integer c = 1; c <= FNCol; ++c) checksum.add(Column(c));
  return checksum.text();
}

#define ZOR_INSTANCES(T)                                                                 \
  template BasicMatrix<T>::BasicMatrix(TComponent*);                                     \
  template const char* BasicMatrix<T>::ClassName() const noexcept;                       \
  template Boolean BasicMatrix<T>::Resize(Integer, Integer);                             \
  template void BasicMatrix<T>::replace_cells(T2DArray&);                                \
  template void BasicMatrix<T>::take_over(T2DArray&);                                    \
  template Boolean BasicMatrix<T>::ResizeAndClear(Integer, Integer);                     \
  template Integer BasicMatrix<T>::MakeValidColRange(Integer&, Integer&) const noexcept; \
  template Integer BasicMatrix<T>::MakeValidRowRange(Integer&, Integer&) const noexcept; \
  template void BasicMatrix<T>::Fill(T);                                                 \
  template void BasicMatrix<T>::Fill(Integer, Integer, Integer, Integer, T);             \
  template void BasicMatrix<T>::FillDiag(T);                                             \
  template void BasicMatrix<T>::FillSerial(T, T);                                        \
  template TString BasicMatrix<T>::CRCofData() const;

ZOR_INSTANCES(Double)
template void BasicMatrix<Double>::FillRandomUniform(Double, Double);
template void BasicMatrix<Double>::FillRandomUniform(Integer, Integer, Integer, Integer, Double, Double);
template void BasicMatrix<Double>::FillRandomGauss(Double, Double);
template void BasicMatrix<Double>::FillRandomGauss(Integer, Integer, Integer, Integer, Double, Double);

}  // namespace ZOR_matrix
