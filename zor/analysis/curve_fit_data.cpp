#include <algorithm>
#include <cmath>
#include <exception>
#include <new>
#include <utility>

#include "zor/analysis/curve_fit.h"
#include "zor/base/ZOR_univconst.h"

namespace ZOR_math2 {

namespace {

constexpr Double kMost = ZOR_univconst::uc_MaxDouble;
constexpr Double kTiny = 1e-30;

/// The terms of a pair that are undefined.
TCurveFitErrors undefined_terms(Double x, Double y) noexcept {
  TCurveFitErrors errors;
  if (!(std::abs(x) > kTiny)) errors.include(cfeXEQ0);
  if (!(std::abs(y) > kTiny)) errors.include(cfeYEQ0);
  if (!(x > 0.0)) errors.include(cfeXLE0);
  if (!(y > 0.0) || (x > 0.0 && !(y > kTiny))) errors.include(cfeYLE0);
  return errors;
}

}  // namespace

TCurveFit::TCurveFit(TComponent* AOwner) : TComponent(AOwner) { Init(); }

const char* TCurveFit::ClassName() const noexcept { return "TCurveFit"; }

void TCurveFit::Init() {
  sums_ = {};
  FX.clear();
  FY.clear();
  FMinX = FMinY = kMost;
  FMaxX = FMaxY = -kMost;
  FErrIndic = {};
  removed_ = false;
  data_changed();
  ClearModelParams();
}

void TCurveFit::data_changed() noexcept { ranks_.valid = cubic_.valid = smoothed_.valid = false; }

void TCurveFit::adjust_sums(Double x, Double y) noexcept {
  if (x < FMinX) FMinX = x;
  if (x > FMaxX) FMaxX = x;
  if (y < FMinY) FMinY = y;
  if (y > FMaxY) FMaxY = y;
  sums_.change(x, y, 1.0);
  FErrIndic.bits = static_cast<Byte>(FErrIndic.bits | undefined_terms(x, y).bits);
}

Integer TCurveFit::EnterStatValue(Double x, Double y) { return EnterStatValues({&x, 1}, {&y, 1}); }

Integer TCurveFit::EnterStatValues(std::span<const Double> x, std::span<const Double> y) {
  const std::size_t n = (std::min)(x.size(), y.size()), before = FX.size();
  try {
    // Room first, so that nothing fails half-way; it doubles, so that single pairs stay cheap.
    if (before + n > FX.capacity() || before + n > FY.capacity()) {
      const std::size_t room = (std::max)({before + n, 2 * before, std::size_t{1000}});
      FX.reserve(room);
      FY.reserve(room);
    }
  } catch (...) {
    std::throw_with_nested(EZORMath2Error(zor::detail::component_message(*this, "not enough memory")));
  }
  FX.insert(FX.end(), x.begin(), x.begin() + static_cast<std::ptrdiff_t>(n));
  FY.insert(FY.end(), y.begin(), y.begin() + static_cast<std::ptrdiff_t>(n));
  for (std::size_t i = before; i < before + n; ++i) adjust_sums(FX[i], FY[i]);
  data_changed();
  ClearModelParams();
  return NumData();
}

Integer TCurveFit::EnterStatValues(const TVector* x, const TVector* y) {
  return x && y ? EnterStatValues(x->Cells(), y->Cells()) : NumData();
}

void TCurveFit::RemoveStatValue(Integer ix) {
  data_changed();
  if (!has(ix)) return;
  const auto at = static_cast<std::ptrdiff_t>(place(ix));
  sums_.change(FX[place(ix)], FY[place(ix)], -1.0);
  FX.erase(FX.begin() + at);
  FY.erase(FY.begin() + at);
  removed_ = true;
}

void TCurveFit::FlipXY() {
  std::swap(FMinX, FMinY);
  std::swap(FMaxX, FMaxY);
  sums_.flip();
  FX.swap(FY);
  // Tau and gamma are the same for flipped pairs, splines are not.
  std::swap(ranks_.ties_x, ranks_.ties_y);
  cubic_.valid = smoothed_.valid = false;
}

}  // namespace ZOR_math2
