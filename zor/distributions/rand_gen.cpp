#include "zor/distributions/rand_gen.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <new>

#include "zor/distributions/chi2_distribution.h"
#include "zor/distributions/f_distribution.h"
#include "zor/distributions/t_distribution.h"
#include "zor/distributions/weibull_distribution.h"
#include "zor/runtime/random.h"

namespace ZOR_statis {

namespace {

constexpr Integer kFewest = 10, kMost = 4000, kDefault = 500;
constexpr int kTries = 100001;

}  // namespace

TRandGen::TRandGen(TComponent* AOwner) : TComponent(AOwner) { make_table(kDefault, "not enough memory on heap"); }

const char* TRandGen::ClassName() const noexcept { return "TRandGen"; }

void TRandGen::make_table(Integer size, std::string_view failure) {
  try {
    FDistVec = std::vector<Double>(zor::detail::to_size(size), 1.0);
  } catch (const std::bad_alloc&) {
    std::throw_with_nested(EZORStatisError(zor::detail::component_message(*this, failure)));
  }
}

void TRandGen::SetResolution(Integer v) { make_table(std::clamp(v, kFewest, kMost), "not enough memory"); }

void TRandGen::SetProbability(Integer Idx, Double v) noexcept {
  if (has(Idx)) FDistVec[place(Idx)] = v > 0.0 ? (std::min)(v, 1.0) : 0.0;
}

Double TRandGen::Lambda(Integer ix) const noexcept {
  if (ix < 1) return LowBorder;
  if (ix > Resolution()) return HighBorder;
  return LowBorder + (ix - 1) * (HighBorder - LowBorder) / Resolution();
}

Integer TRandGen::IndexOfLambda(Double Lambda) const noexcept {
  if (!(Lambda >= LowBorder)) return 0;
  if (Lambda > HighBorder) return Resolution() + 1;
  if (LowBorder == HighBorder) return 1;
  const Double steps = std::floor((Lambda - LowBorder) * Resolution() / (HighBorder - LowBorder));
  return std::isnan(steps) ? 0 : static_cast<Integer>(std::clamp<Double>(steps, 0.0, Resolution())) + 1;
}

Double TRandGen::Random() const {
  const Integer size = Resolution();
  Integer i = 1;
  Double f = 0.0;
  for (int k = 0; k < kTries; ++k) {
    i = ZOR_runtime::Random(size) + 1;
    f = ZOR_runtime::Random();
    const Double at = FDistVec[place(i)];
    const Double p = i < size ? at + f * (FDistVec[place(i + 1)] - at) : at * (1.0 - f);
    if (p >= 1.0 || p > ZOR_runtime::Random()) break;
  }
  return LowBorder + (i + f - 1.0) * (HighBorder - LowBorder) / size;
}

void TRandGen::Normalize() noexcept {
  const auto [low, high] = std::ranges::minmax(FDistVec);
  if (high == low) return;
  for (Double& p : FDistVec) p = (p - low) / (high - low);
}

Boolean TRandGen::Standardize() noexcept {
  const Double most = std::ranges::max(FDistVec);
  if (!(most > 0.0)) return false;
  for (Double& p : FDistVec) p /= most;
  return true;
}

template <class Density>
void TRandGen::fill(Density density) noexcept {
  for (Integer i = 1; i <= Resolution(); ++i) {
    const Double p = density(Lambda(i));
    FDistVec[place(i)] = std::isfinite(p) ? p : 0.0;
  }
}

void TRandGen::UniformDistri() noexcept { std::ranges::fill(FDistVec, 1.0); }

void TRandGen::NormalDistri(Double m, Double s) noexcept {
  if (!(s * s > 0.0)) return fill([m](Double x) { return x == m ? 1.0 : 0.0; });
  fill([=](Double x) { return std::exp(-(x - m) * (x - m) / 2.0 / (s * s)); });
}

void TRandGen::tDistri(Integer df) noexcept {
  fill([df](Double x) { return tDistriDensity(x, df); });
}

void TRandGen::Chi2Distri(Integer df) noexcept {
  fill([df](Double x) { return Chi2DistriDensity(x, df); });
}

void TRandGen::FDistri(Integer df1, Integer df2) noexcept {
  fill([=](Double x) { return x <= 0.0 ? 0.0 : FDistriDensity(x, df1, df2); });
}

void TRandGen::WeibullDistri(Double beta, Double eta) noexcept {
  fill([=](Double x) { return WeibullDensity(x, beta, eta); });
}

}  // namespace ZOR_statis
