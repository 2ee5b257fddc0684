#include "zor/transforms/wavelet.h"

#include <algorithm>
#include <bit>
#include <exception>
#include <utility>

namespace ZOR_wavelet {

EZORWaveletError::~EZORWaveletError() = default;

namespace {

constexpr double kDaubechies[3][6] = {
    {0.7071067811865476, 0.7071067811865476},
    {0.48296291314453416, 0.8365163037378079, 0.2241438680420134, -0.12940952255126037},
    {0.33267055295008263, 0.8068915093110925, 0.45987750211849154, -0.13501102001025458, -0.08544127388202666,
     0.03522629188570953}};

TDynArray<Double> zeros(const TComponent& component, Integer n) {
  TDynArray<Double> cells;
  try {
    SetLength(cells, n);
  } catch (...) {
    std::throw_with_nested(EZORWaveletError(zor::detail::component_message(component, "not enough memory on heap")));
  }
  return cells;
}

}  // namespace

TWavelet1D::TWavelet1D(TComponent* AOwner) : TComponent(AOwner) {
  SetOrder(2);
  SetNumData(256);
}

const char* TWavelet1D::ClassName() const noexcept { return "TWavelet1D"; }

void TWavelet1D::SetOrder(Integer v) {
  if (v < 1 || v > 3) {
    zor::detail::Fail<EZORWaveletError>(*this, "invalid order of Daubechies wavelet family");
  }
  TDynArray<Double> low = zeros(*this, 2 * v), high = zeros(*this, 2 * v);
  const std::size_t length = low.size();
  for (std::size_t i = 1; i <= length; ++i) {
    const double c = kDaubechies[v - 1][i - 1];
    low[i - 1] = c;
    high[length - i] = i % 2 == 0 ? c : -c;
  }
  FCoeffsLP = std::move(low);
  FCoeffsHP = std::move(high);
  FOrder = v;
}

void TWavelet1D::SetNumData(Integer v) {
  if (v < 1 || v > 1 << 23 || !std::has_single_bit(static_cast<Cardinal>(v))) {
    zor::detail::Fail<EZORWaveletError>(*this, "data length must be power of 2");
  }
  FData = zeros(*this, v);
  FNumData = v;
}

void TWavelet1D::Clear() noexcept { std::fill(FData.begin(), FData.end(), 0.0); }

void TWavelet1D::DoWLT(Integer Level, Boolean inverse) {
  if (FNumData < 2) return;
  Integer p = inverse ? 2 : FNumData;
  for (Integer step = std::max(Level, 1); step > 0 && p >= 2 && p <= FNumData; --step) {
    PartialWLT(p, 0, inverse);
    p = inverse ? 2 * p : p / 2;
  }
}

void TWavelet1D::PartialWLT(Integer NumPts, Integer Offset, Boolean inverse) {
  if (NumPts < 2 || !std::has_single_bit(static_cast<Cardinal>(NumPts)) || Offset < 0 || NumPts > FNumData ||
      Offset > FNumData - NumPts) {
    return;
  }
  TDynArray<Double> work = zeros(*this, NumPts);
  Double *const t = work.data(), *const data = FData.data() + Offset;
  const Double *const low = FCoeffsLP.data(), *const high = FCoeffsHP.data();
  const Integer h = NumPts / 2, length = 2 * FOrder, mask = NumPts - 1;
  for (Integer i = 0; i < h; ++i) {
    for (Integer k = 0; k < length; ++k) {
      Integer x = 2 * (i + 1) - length + k;
      if (x < 0 && FWLSigExtMode == wseZeroPad) continue;
      if (x < 0 && FWLSigExtMode == wseSymmetric) x = -x - 1;
      const Integer p = x & mask;
      if (inverse) {
        t[p] += low[k] * data[i] + high[k] * data[i + h];
      } else {
        t[i] += low[k] * data[p];
        t[i + h] += high[k] * data[p];
      }
    }
  }
  std::copy(t, t + NumPts, data);
}

}  // namespace ZOR_wavelet
