#include "zor/vectors/vector.h"

#include <cmath>

#include "zor/base/crc.h"
#include "zor/base/memory_guard.h"
#include "zor/base/range_rule.h"
#include "zor/kernels/elementwise.h"
#include "zor/kernels/sums.h"

namespace ZOR_vector {

EZORVectorError::~EZORVectorError() = default;

TVector::TVector(TComponent* AOwner) : TComponent(AOwner) { SetLength(FVec, 1); }

const char* TVector::ClassName() const noexcept { return "TVector"; }

TIntVector::TIntVector(TComponent* AOwner) : TComponent(AOwner) { SetLength(FVec, 1); }

const char* TIntVector::ClassName() const noexcept { return "TIntVector"; }

template <class Self, Cell T>
Boolean VectorCore<Self, T>::Resize(Integer NE) {
  if (NE == NrOfElem()) return true;
  if (NE < 1) return false;
  zor::detail::guard_all<EZORVectorError>(self(), zor::detail::kNoMemory, [&] {
    SetLength(FVec, NE);
    Changed();
    Resized();
  });
  return true;
}

template <class Self, Cell T>
Integer VectorCore<Self, T>::MakeValidElemRange(Integer& LowElem, Integer& HighElem) const noexcept {
  return zor::detail::make_valid_range(LowElem, HighElem, NrOfElem());
}

template <class Self, Cell T>
std::span<const T> VectorCore<Self, T>::range(Integer LowElem, Integer HighElem) const noexcept {
  MakeValidElemRange(LowElem, HighElem);
  return Cells().subspan(static_cast<std::size_t>(LowElem - 1), static_cast<std::size_t>(HighElem - LowElem + 1));
}

template <class Self, Cell T>
void VectorCore<Self, T>::require_same_size(const Self& OtherVec) const {
  if (OtherVec.NrOfElem() != NrOfElem()) {
    zor::detail::Fail<EZORVectorError>(self(), "vectors have different dimensions");
  }
}

template <class Self, Cell T>
void VectorCore<Self, T>::Fill(T value) {
  zor::kernels::fill(cells(), value);
  FIsEmpty = false;
  Changed();
}

template <class Self, Cell T>
void VectorCore<Self, T>::FillSerial(T Offset, T Diff) {
  zor::kernels::fill_serial(cells(), Offset, Diff);
  FIsEmpty = false;
  Changed();
}

template <class Self, Cell T>
void VectorCore<Self, T>::Clear() {
  zor::kernels::fill(cells(), T{0});
  FIsEmpty = true;
  Changed();
}

template <class Self, Cell T>
TString VectorCore<Self, T>::CRCofData() const {
  return zor::detail::crc_of_cells(Cells());
}

template <class Self, Cell T>
void VectorCore<Self, T>::Add(const Self* OtherVec) {
  if (!OtherVec) return;
  require_same_size(*OtherVec);
  zor::kernels::add(cells(), OtherVec->Cells());
  Changed();
}

template <class Self, Cell T>
void VectorCore<Self, T>::Subtract(const Self* OtherVec) {
  if (!OtherVec) return;
  require_same_size(*OtherVec);
  zor::kernels::subtract(cells(), OtherVec->Cells());
  Changed();
}

template <class Self, Cell T>
void VectorCore<Self, T>::SMult(T scalar) {
  zor::kernels::scale(cells(), scalar);
  Changed();
}

template <class Self, Cell T>
void VectorCore<Self, T>::AbsVal() {
  zor::kernels::absolute(cells());
  Changed();
}

template <class Self, Cell T>
T VectorCore<Self, T>::DotProduct(const Self* OtherVec) const {
  if (!OtherVec) return T{0};
  require_same_size(*OtherVec);
  if constexpr (RealCell<T>) {
    return zor::kernels::dot_in_order(Cells(), OtherVec->Cells());
  } else {
    return zor::kernels::dot_wrapping(Cells(), OtherVec->Cells());
  }
}

template <class Self, Cell T>
Double VectorCore<Self, T>::CalcVecLeng() const {
  if constexpr (RealCell<T>) {
    return std::sqrt(zor::kernels::sum_of_squares_in_order(Cells()));
  } else {
    Double sum = 0.0;
    for (const T x : Cells()) sum += static_cast<T>(static_cast<Cardinal>(x) * static_cast<Cardinal>(x));
    return sum < 0.0 ? 0.0 : std::sqrt(sum);
  }
}

void TVector::SetVecLeng(Double NewLeng) {
  const Double length = CalcVecLeng();
  // Dividing by an infinite length would silently make all cells zero.
  if (!(length > 0.0) || !std::isfinite(length)) return;
  zor::kernels::scale(cells(), NewLeng / length);
  Changed();
}

#define ZOR_INSTANCES(V, T)                                                                 \
  template Boolean VectorCore<V, T>::Resize(Integer);                                       \
  template Integer VectorCore<V, T>::MakeValidElemRange(Integer&, Integer&) const noexcept; \
  template std::span<const T> VectorCore<V, T>::range(Integer, Integer) const noexcept;     \
  template void VectorCore<V, T>::require_same_size(const V&) const;                        \
  template void VectorCore<V, T>::Fill(T);                                                  \
  template void VectorCore<V, T>::FillSerial(T, T);                                         \
  template void VectorCore<V, T>::Clear();                                                  \
  template TString VectorCore<V, T>::CRCofData() const;                                     \
  template void VectorCore<V, T>::Add(const V*);                                            \
  template void VectorCore<V, T>::Subtract(const V*);                                       \
  template void VectorCore<V, T>::SMult(T);                                                 \
  template void VectorCore<V, T>::AbsVal();                                                 \
  template T VectorCore<V, T>::DotProduct(const V*) const;                                  \
  template Double VectorCore<V, T>::CalcVecLeng() const;

ZOR_INSTANCES(TVector, Double)
ZOR_INSTANCES(TIntVector, Integer)

}  // namespace ZOR_vector
