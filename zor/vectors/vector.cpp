#include "zor/vectors/vector.h"

#include <cmath>
#include <exception>

#include "zor/base/crc.h"
#include "zor/base/range_rule.h"
#include "zor/kernels/elementwise.h"
#include "zor/kernels/sums.h"

namespace ZOR_vector {

EZORVectorError::~EZORVectorError() = default;

template <Cell T>
BasicVector<T>::BasicVector(TComponent* AOwner) : TComponent(AOwner) {
  SetLength(FVec, 1);
}

template <Cell T>
const char* BasicVector<T>::ClassName() const noexcept {
  return RealCell<T> ? "TVector" : "TIntVector";
}

template <Cell T>
Boolean BasicVector<T>::Resize(Integer NE) {
  if (NE == NrOfElem()) return true;
  if (NE < 1) return false;
  try {
    SetLength(FVec, NE);
    Changed();
    Resized();
  } catch (...) {
    std::throw_with_nested(EZORVectorError(zor::detail::component_message(*this, "not enough memory")));
  }
  return true;
}

template <Cell T>
Integer BasicVector<T>::MakeValidElemRange(Integer& LowElem, Integer& HighElem) const noexcept {
  return zor::detail::make_valid_range(LowElem, HighElem, NrOfElem());
}

template <Cell T>
std::span<const T> BasicVector<T>::range(Integer LowElem, Integer HighElem) const noexcept {
  MakeValidElemRange(LowElem, HighElem);
  return Cells().subspan(static_cast<std::size_t>(LowElem - 1), static_cast<std::size_t>(HighElem - LowElem + 1));
}

template <Cell T>
void BasicVector<T>::require_same_size(const BasicVector& OtherVec) const {
  if (OtherVec.NrOfElem() != NrOfElem()) {
    zor::detail::Fail<EZORVectorError>(*this, "vectors have different dimensions");
  }
}

template <Cell T>
void BasicVector<T>::Fill(T value) {
  zor::kernels::fill(cells(), value);
  FIsEmpty = false;
  Changed();
}

template <Cell T>
void BasicVector<T>::FillSerial(T Offset, T Diff) {
  zor::kernels::fill_serial(cells(), Offset, Diff);
  FIsEmpty = false;
  Changed();
}

template <Cell T>
void BasicVector<T>::Clear() {
  zor::kernels::fill(cells(), T{0});
  FIsEmpty = true;
  Changed();
}

template <Cell T>
TString BasicVector<T>::CRCofData() const {
  return zor::detail::crc_of_cells(Cells());
}

template <Cell T>
void BasicVector<T>::Add(const BasicVector* OtherVec) {
  if (!OtherVec) return;
  require_same_size(*OtherVec);
  zor::kernels::add(cells(), OtherVec->Cells());
  Changed();
}

template <Cell T>
void BasicVector<T>::Subtract(const BasicVector* OtherVec) {
  if (!OtherVec) return;
  require_same_size(*OtherVec);
  zor::kernels::subtract(cells(), OtherVec->Cells());
  Changed();
}

template <Cell T>
void BasicVector<T>::SMult(T scalar) {
  zor::kernels::scale(cells(), scalar);
  Changed();
}

template <Cell T>
void BasicVector<T>::AbsVal() {
  zor::kernels::absolute(cells());
  Changed();
}

template <Cell T>
T BasicVector<T>::DotProduct(const BasicVector* OtherVec) const {
  if (!OtherVec) return T{0};
  require_same_size(*OtherVec);
  if constexpr (RealCell<T>) {
    return zor::kernels::dot_in_order(Cells(), OtherVec->Cells());
  } else {
    return zor::kernels::dot_wrapping(Cells(), OtherVec->Cells());
  }
}

template <Cell T>
Double BasicVector<T>::CalcVecLeng() const {
  if constexpr (RealCell<T>) {
    return std::sqrt(zor::kernels::sum_of_squares_in_order(Cells()));
  } else {
    Double sum = 0.0;
    for (const T x : Cells()) sum += static_cast<T>(static_cast<Cardinal>(x) * static_cast<Cardinal>(x));
    return sum < 0.0 ? 0.0 : std::sqrt(sum);
  }
}

template <Cell T>
void BasicVector<T>::SetVecLeng(Double NewLeng)
  requires RealCell<T>
{
  const Double length = CalcVecLeng();
  // Dividing by an infinite length would silently make all cells zero.
  if (!(length > 0.0) || !std::isfinite(length)) return;
  zor::kernels::scale(cells(), NewLeng / length);
  Changed();
}

#define ZOR_INSTANCES(T)                                                                  \
  template BasicVector<T>::BasicVector(TComponent*);                                      \
  template const char* BasicVector<T>::ClassName() const noexcept;                        \
  template Boolean BasicVector<T>::Resize(Integer);                                       \
  template Integer BasicVector<T>::MakeValidElemRange(Integer&, Integer&) const noexcept; \
  template std::span<const T> BasicVector<T>::range(Integer, Integer) const noexcept;     \
  template void BasicVector<T>::require_same_size(const BasicVector&) const;              \
  template void BasicVector<T>::Fill(T);                                                  \
  template void BasicVector<T>::FillSerial(T, T);                                         \
  template void BasicVector<T>::Clear();                                                  \
  template TString BasicVector<T>::CRCofData() const;                                     \
  template void BasicVector<T>::Add(const BasicVector*);                                  \
  template void BasicVector<T>::Subtract(const BasicVector*);                             \
  template void BasicVector<T>::SMult(T);                                                 \
  template void BasicVector<T>::AbsVal();                                                 \
  template T BasicVector<T>::DotProduct(const BasicVector*) const;                        \
  template Double BasicVector<T>::CalcVecLeng() const;

ZOR_INSTANCES(Double)
ZOR_INSTANCES(Integer)
template void BasicVector<Double>::SetVecLeng(Double);

}  // namespace ZOR_vector
