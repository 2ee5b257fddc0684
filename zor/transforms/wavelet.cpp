#include "zor/transforms/wavelet.h"

#include <algorithm>
#include <bit>
#include <ostream>
#include <utility>

#include "zor/base/memory_guard.h"
#include "zor/kernels/wavelet.h"
#include "zor/runtime/numbers.h"
#include "zor/runtime/print.h"

namespace ZOR_wavelet {

EZORWaveletError::~EZORWaveletError() = default;

namespace {

constexpr Integer kMaxSize = 1 << 23;

/// Low-pass filters of orders 1 to 3, with a sum of sqrt(2). I. Daubechies, Ten Lectures on Wavelets, SIAM 1992, Table
/// 6.1.
constexpr double kDaubechies[3][6] = {
    {0.7071067811865476, 0.7071067811865476},
    {0.48296291314453416, 0.8365163037378079, 0.2241438680420134, -0.12940952255126037},
    {0.33267055295008263, 0.8068915093110925, 0.45987750211849154, -0.13501102001025458, -0.08544127388202666,
     0.03522629188570953}};

/// Zeros; out of memory becomes the message of the component.
TDynArray<Double> zeros(const TComponent& component, Integer n) {
  TDynArray<Double> cells;
  zor::detail::guard_memory<EZORWaveletError>(component, zor::detail::kNoHeap, [&] { SetLength(cells, n); });
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
    high[length - i] = i % 2 == 0 ? c : -c;  // quadrature mirror
  }
  FCoeffsLP = std::move(low);
  FCoeffsHP = std::move(high);
  FOrder = v;
}

void TWavelet1D::SetNumData(Integer v) {
  if (v < 1 || v > kMaxSize || !std::has_single_bit(static_cast<Cardinal>(v))) {
    zor::detail::Fail<EZORWaveletError>(*this, "data length must be power of 2");
  }
  FData = zeros(*this, v);
  work_ = {};
  FNumData = v;
}

void TWavelet1D::Clear() noexcept { std::fill(FData.begin(), FData.end(), 0.0); }

void TWavelet1D::run_steps(std::size_t offset, std::size_t size, std::size_t steps, bool inverse) {
  if (work_.size() == 0) work_ = zeros(*this, FNumData / 2);
  using zor::kernels::LeftEdge;
  const LeftEdge edge = FWLSigExtMode == wseZeroPad     ? LeftEdge::zero
                        : FWLSigExtMode == wseSymmetric ? LeftEdge::mirror
                                                        : LeftEdge::wrap;
  const auto transform = inverse ? zor::kernels::wavelet_inverse : zor::kernels::wavelet_forward;
  transform({FData.data() + offset, size}, steps, {{FCoeffsLP.data(), FCoeffsHP.data(), FCoeffsLP.size()}, edge},
            {work_.data(), work_.size()});
}

void TWavelet1D::DoWLT(Integer Level, Boolean inverse) {
  if (FNumData < 2) return;
  const auto all = static_cast<Integer>(std::countr_zero(static_cast<Cardinal>(FNumData)));
  const std::size_t steps = zor::detail::to_size(std::clamp(Level, 1, all));
  run_steps(0, inverse ? std::size_t{1} << steps : FData.size(), steps, inverse);
}

void TWavelet1D::PartialWLT(Integer NumPts, Integer Offset, Boolean inverse) {
  if (NumPts < 2 || !std::has_single_bit(static_cast<Cardinal>(NumPts)) || NumPts > FNumData || Offset < 0 ||
      Offset > FNumData - NumPts) {
    return;
  }
  run_steps(zor::detail::to_size(Offset), zor::detail::to_size(NumPts), 1, inverse);
}

std::ostream& operator<<(std::ostream& out, const TWavelet1D& w) {
  const auto cells = w.Cells();
  zor::detail::print_table(out, cells.size(), 1,
                           [&](std::size_t row, std::size_t) { return zor::detail::cell_text(cells[row]); });
  return out;
}

}  // namespace ZOR_wavelet
