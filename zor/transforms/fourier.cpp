#include "zor/transforms/fourier.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <ostream>
#include <utility>

#include "zor/base/ZOR_univconst.h"
#include "zor/base/memory_guard.h"
#include "zor/kernels/fft.h"
#include "zor/runtime/numbers.h"
#include "zor/runtime/print.h"

namespace ZOR_fourier {

EZORFourierError::~EZORFourierError() = default;

namespace {

constexpr Integer kMaxSize = 1 << 23;
constexpr double kPi = std::numbers::pi;

/// Zeros; out of memory becomes the message of the component.
TDynArray<Double> zeros(const TComponent& component, std::size_t n) {
  TDynArray<Double> cells;
  zor::detail::guard_memory<EZORFourierError>(component, zor::detail::kNoHeap,
                                              [&] { SetLength(cells, static_cast<Integer>(n)); });
  return cells;
}

}  // namespace

TFastFourier::TFastFourier(TComponent* AOwner) : TComponent(AOwner) {
  SetNumData(256);
  std::fill(FUserWgt.begin(), FUserWgt.end(), 1.0);
}

const char* TFastFourier::ClassName() const noexcept { return "TFastFourier"; }

void TFastFourier::SetNumData(Integer v) {
  if (v < 1 || v > kMaxSize || !std::has_single_bit(static_cast<Cardinal>(v))) {
    zor::detail::Fail<EZORFourierError>(*this, "data length must be power of 2");
  }
  const std::size_t n = zor::detail::to_size(v);
  Cells1D data = zeros(*this, 2 * n), weights = zeros(*this, n);
  FData = std::move(data);
  FUserWgt = std::move(weights);
  if (v != FNumData) forward_twiddles_ = inverse_twiddles_ = Cells1D();
  FNumData = v;
  Changed();
}

void TFastFourier::SetRealVal(Integer ix, Double v) noexcept {
  if (!has(ix)) return;
  FData[cell(ix)] = v;
  Changed();
}

void TFastFourier::SetImagVal(Integer ix, Double v) noexcept {
  if (!has(ix)) return;
  FData[cell(ix) + 1] = v;
  Changed();
}

void TFastFourier::SetWgtVal(Integer ix, Double v) noexcept {
  if (has(ix)) FUserWgt[cell(ix) / 2] = v;
}

void TFastFourier::Clear() noexcept {
  std::fill(FData.begin(), FData.end(), 0.0);
  Changed();
}

void TFastFourier::ClearReal() noexcept {
  Double* const data = FData.data();
  for (std::size_t i = 0; i < FData.size(); i += 2) data[i] = 0.0;
  Changed();
}

void TFastFourier::ClearImag() noexcept {
  Double* const data = FData.data();
  for (std::size_t i = 1; i < FData.size(); i += 2) data[i] = 0.0;
  Changed();
}

template <class F>
void TFastFourier::multiply_window(F weight) noexcept {
  Double* data = FData.data();
  for (Integer i = 1; i <= FNumData; ++i, data += 2) {
    const double w = weight(i);
    data[0] *= w;
    data[1] *= w;
  }
}

void TFastFourier::Transform() {
  twiddles_for(false);  // before the window changes a sample
  const double n = FNumData, half = n / 2.0;
  // a0 + a1 cos(2 pi c / N) + a2 cos(4 pi c / N) + a3 cos(6 pi c / N)
  const auto cosines = [&](double a0, double a1, double a2, double a3) {
    multiply_window([=](Integer i) {
      const double c = i - half;
      double w = a0 + a1 * std::cos(2.0 * kPi * c / n);
      if (a2 != 0.0) w += a2 * std::cos(4.0 * kPi * c / n);
      if (a3 != 0.0) w += a3 * std::cos(6.0 * kPi * c / n);
      return w;
    });
  };
  switch (FWgtWin) {
    case fwRectangle:
      break;
    case fwTriangle:
      if (FNumData > 1) {
        multiply_window([=](Integer i) { return 2.0 * (i <= half ? i : n - i + 1.0) / n; });
      }
      break;
    case fwCos2:
      multiply_window([=](Integer i) {
        const double w = std::cos(kPi * (i - half) / n);
        return w * w;
      });
      break;
    case fwGauss:
      multiply_window([=](Integer i) {
        const double u = 2.0 * 3.0 * (i - half) / n;
        return std::exp(-0.5 * u * u);
      });
      break;
    case fwHamming:
      cosines(0.543478261, 1.0 - 0.543478261, 0.0, 0.0);
      break;
    case fwBlackman:
      cosines(0.42659, 0.49656, 0.076848, 0.0);
      break;
    case fwBlkmHarris:
      cosines(0.35875, 0.48829, 0.14128, 0.01168);
      break;
    case fwBlkmNuttall:
      cosines(0.3635819, 0.4891775, 0.1365995, 0.0106411);
      break;
    case fwTukey: {
      const double alpha = FTukAlpha, slope = alpha * n / 2.0;
      multiply_window([=](Integer i) {
        if (i >= slope && i <= n - slope) return 1.0;
        return 0.5 * (1.0 - std::cos(2.0 * kPi * (i < slope ? i : n - i) / (alpha * n)));
      });
      break;
    }
    case fwUserDef:
      multiply_window([weights = std::as_const(FUserWgt).data()](Integer i) { return weights[i - 1]; });
      break;
  }
  DoFFT(1);
}

TFastFourier::Cells1D& TFastFourier::twiddles_for(bool inverse) {
  Cells1D& twiddles = inverse ? inverse_twiddles_ : forward_twiddles_;
  if (twiddles.size() == 0) {
    Cells1D made = zeros(*this, FData.size());
    zor::kernels::make_twiddles({made.data(), made.size()}, inverse ? -1 : 1);
    twiddles = std::move(made);
  }
  return twiddles;
}

void TFastFourier::DoFFT(Integer ISign) {
  const bool inverse = ISign < 0;
  const Cells1D& twiddles = twiddles_for(inverse);
  Double* const data = FData.data();
  zor::kernels::transform_radix2({data, FData.size()}, {twiddles.data(), twiddles.size()});
  if (inverse) {
    const double scale = 1.0 / FNumData;  // a power of two: the product has the bits of the quotient
    for (std::size_t i = 0; i < FData.size(); ++i) data[i] *= scale;
  }
  Changed();
}

Double TFastFourier::energy(Integer line) const noexcept {
  const Double* const x = FData.data() + 2 * static_cast<std::size_t>(line);
  const Double own = x[0] * x[0] + x[1] * x[1];
  if (line == 0) return own;
  const Double* const m = FData.data() + 2 * static_cast<std::size_t>(FNumData - line);
  return own + m[0] * m[0] + m[1] * m[1];
}

Double TFastFourier::GetPowerSpec(Integer ix) const noexcept {
  return ix >= 0 && ix <= FNumData / 2 ? energy(ix) / FNumData : 0.0;
}

Double TFastFourier::GetMagnitude(Integer ix) const noexcept {
  if (ix == 0) return std::sqrt(energy(0)) / FNumData;
  if (ix < 0 || ix > FNumData / 2) return 0.0;
  const Integer k = ix + 1, mirror = FNumData - ix + 1;
  const Double re = GetRealVal(k) + GetRealVal(mirror), im = GetImagVal(k) - GetImagVal(mirror);
  return std::sqrt(re * re + im * im) / FNumData;
}

Double TFastFourier::GetPhase(Integer ix) const noexcept {
  if (ix < 1 || ix > FNumData / 2) return 0.0;
  const Double re = GetRealVal(ix + 1), im = GetImagVal(ix + 1);
  if (re == 0.0) return im > 0.0 ? kPi / 2.0 : -kPi / 2.0;
  return std::atan(im / re);
}

Double TFastFourier::GetFSerSin(Integer n) const noexcept {
  if (n < 1 || n > FNumData / 2) return 0.0;
  return (GetImagVal(n + 1) - GetImagVal(FNumData - n + 1)) / FNumData;
}

Double TFastFourier::GetFSerCos(Integer n) const noexcept {
  if (n == 0) return GetRealVal(1) / FNumData;
  if (n < 1 || n > FNumData / 2) return 0.0;
  return (GetRealVal(n + 1) + GetRealVal(FNumData - n + 1)) / FNumData;
}

Double TFastFourier::RMS(Integer FirstIx, Integer LastIx) const noexcept {
  Integer first = std::clamp(FirstIx, 0, FNumData / 2), last = std::clamp(LastIx, 0, FNumData / 2);
  if (first > last) std::swap(first, last);
  Double sum = first == 0 ? energy(0) : 0.0;
  const Double* const x = FData.data();
  const auto n = static_cast<std::size_t>(FNumData), end = static_cast<std::size_t>(last);
  for (auto k = static_cast<std::size_t>(std::max(first, 1)); k <= end; ++k) {
    const Double *const own = x + 2 * k, *const mirror = x + 2 * (n - k);
    sum += own[0] * own[0] + own[1] * own[1] + mirror[0] * mirror[0] + mirror[1] * mirror[1];
  }
  return std::sqrt(sum) / FNumData;
}

Double TFastFourier::FreqOfLine(Integer ix, Double SampleTime) const noexcept {
  if (ix < 1 || ix > FNumData / 2 || SampleTime == 0.0 || !std::isfinite(SampleTime)) return 0.0;
  return ix / SampleTime / FNumData;
}

Integer TFastFourier::LineOfFreq(Double f, Double SampleTime) const noexcept {
  if (!std::isfinite(SampleTime)) return 0;
  const Integer line = zor::detail::saturate<Integer>(zor::detail::round_to_even(f * FNumData * SampleTime));
  return line < 1 || line > FNumData / 2 ? 0 : line;
}

void TFastFourier::CalcMaxValues() noexcept {
  constexpr Double huge = ZOR_univconst::uc_MaxDouble;
  Double max_re = -huge, max_im = -huge, min_re = huge, min_im = huge;
  const Double* const data = FData.data();
  for (std::size_t i = 0; i < FData.size(); i += 2) {
    const Double re = data[i], im = data[i + 1];
    max_re = re > max_re ? re : max_re;
    max_im = im > max_im ? im : max_im;
    min_re = re < min_re ? re : min_re;
    min_im = im < min_im ? im : min_im;
  }
  // Of line k and its mirror: the largest energy of the lines between the ends, and the largest square of N times the
  // magnitude, whose root is the root of the largest.
  Double power = 0.0, square = 0.0;
  const auto lines = static_cast<std::size_t>(FNumData / 2), n = static_cast<std::size_t>(FNumData);
  for (std::size_t k = 1; k <= lines; ++k) {
    const Double *const x = data + 2 * k, *const m = data + 2 * (n - k);
    const Double re = x[0] + m[0], im = x[1] - m[1];
    const Double energy = x[0] * x[0] + x[1] * x[1] + m[0] * m[0] + m[1] * m[1];
    if (k < lines && energy > power) power = energy;
    const Double length = re * re + im * im;
    if (length > square) square = length;
  }
  FMaxReal = max_re;
  FMaxImag = max_im;
  FMinReal = min_re;
  FMinImag = min_im;
  FMaxPower = power / FNumData;
  FMaxMagni = std::sqrt(square) / FNumData;
}

std::ostream& operator<<(std::ostream& out, const TFastFourier& f) {
  zor::detail::print_table(out, static_cast<std::size_t>(f.SpectrumSize() / 2) + 1, 4,
                           [&](std::size_t row, std::size_t column) {
                             const auto line = static_cast<Integer>(row);
                             switch (column) {
                               case 0:
                                 return zor::detail::cell_text(line);
                               case 1:
                                 return zor::detail::cell_text(f.Magnitude(line));
                               case 2:
                                 return zor::detail::cell_text(f.PowerSpec(line));
                               default:
                                 return zor::detail::cell_text(f.Phase(line));
                             }
                           });
  return out;
}

}  // namespace ZOR_fourier
