#include "zor/analysis/chebyshev_filter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <span>

namespace ZOR_math2 {

namespace {

constexpr Double kPi = std::numbers::pi;
constexpr Integer kMostPoles = 20;

/// y = a0 x + a1 x[-1] + a2 x[-2] + b1 y[-1] + b2 y[-2].
struct Biquad {
  Double a0, a1, a2, b1, b2;
};

/// The filter of one pair of poles.
Biquad pole_pair(Integer pair, Integer poles, bool high_pass, Double cut_off, Double ripple) {
  const Double angle = kPi / (2.0 * poles) + (pair - 1) * kPi / poles;
  Double rp = -std::cos(angle), ip = std::sin(angle);
  if (ripple != 0.0) {  // from the circle of Butterworth's poles to the ellipse of Chebyshev's
    const Double peak = 100.0 / (100.0 - ripple), es = std::sqrt(peak * peak - 1.0);
    const Double vx = std::log(1.0 / es + std::sqrt(1.0 / (es * es) + 1.0)) / poles;
    const Double kx = std::cosh(std::log(1.0 / es + std::sqrt(1.0 / (es * es) - 1.0)) / poles);
    rp = rp * std::sinh(vx) / kx;
    ip = ip * std::cosh(vx) / kx;
  }
  // From the s to the z domain, at a cut-off of 1 radian.
  const Double t = 2.0 * std::tan(0.5), m = rp * rp + ip * ip;
  Double d = 4.0 - 4.0 * rp * t + m * t * t;
  const Double x0 = t * t / d, x1 = 2.0 * t * t / d, x2 = x0;
  const Double y1 = (8.0 - 2.0 * m * t * t) / d, y2 = (-4.0 - 4.0 * rp * t - m * t * t) / d;
  // To the cut-off asked for, and to a high-pass.
  const Double w = 2.0 * kPi * cut_off;
  const Double k = high_pass ? -std::cos(w / 2.0 + 0.5) / std::cos(w / 2.0 - 0.5)
                             : std::sin(0.5 - w / 2.0) / std::sin(0.5 + w / 2.0);
  d = 1.0 + y1 * k - y2 * k * k;
  Biquad b{(x0 - x1 * k + x2 * k * k) / d, (-2.0 * x0 * k + x1 + x1 * k * k - 2.0 * x2 * k) / d,
           (x0 * k * k - x1 * k + x2) / d, (2.0 * k + y1 + y1 * k * k - 2.0 * y2 * k) / d, (-k * k - y1 * k + y2) / d};
  if (high_pass) {
    b.a1 = -b.a1;
    b.b1 = -b.b1;
  }
  return b;
}

/// Weights of the input and, by those of the output, at delays 0, 1, 2, ...
struct Coefficients {
  std::array<Double, kMostPoles + 1> a, b;
};

Coefficients recursive_filter(Integer poles, bool high_pass, Double cut_off, Double ripple) {
  constexpr std::size_t places = kMostPoles + 3;  // two more in front, for the delays of a pair
  std::array<Double, places> a{}, b{};
  a[2] = b[2] = 1.0;
  for (Integer pair = 1; pair <= poles / 2; ++pair) {
    const Biquad q = pole_pair(pair, poles, high_pass, cut_off, ripple);
    const auto ta = a, tb = b;
    for (std::size_t i = 2; i < places; ++i) {
      a[i] = q.a0 * ta[i] + q.a1 * ta[i - 1] + q.a2 * ta[i - 2];
      b[i] = tb[i] - q.b1 * tb[i - 1] - q.b2 * tb[i - 2];
    }
  }
  b[2] = 0.0;
  Coefficients of;
  Double sa = 0.0, sb = 0.0;
  for (std::size_t i = 0; i < of.a.size(); ++i) {
    of.a[i] = a[i + 2];
    of.b[i] = -b[i + 2];
    const Double sign = high_pass && i % 2 != 0 ? -1.0 : 1.0;
    sa += sign * of.a[i];
    sb += sign * of.b[i];
  }
  const Double gain = sa / (1.0 - sb);
  for (Double& weight : of.a) weight /= gain;
  return of;
}

}  // namespace

void CalcChebFilterCoeffs(Integer NPoles, Boolean HighPass, Double CutOff, Double Ripple, Double& A0, TMatrix* Coeffs) {
  A0 = 0.0;
  using zor::detail::Fail;
  if (NPoles % 2 != 0) Fail<EZORMath2Error>("CalcChebFilterCoeffs: NPoles must be even");
  if (NPoles > kMostPoles) Fail<EZORMath2Error>("CalcChebFilterCoeffs: NPoles must not be greater than 20");
  if (!(Ripple >= 0.0 && Ripple <= 29.0)) Fail<EZORMath2Error>("CalcChebFilterCoeffs: invalid Ripple value");
  if (!(CutOff >= 0.0 && CutOff <= 0.5)) Fail<EZORMath2Error>("CalcChebFilterCoeffs: invalid cutoff frequency");
  if (!Coeffs) Fail<EZORMath2Error>("CalcChebFilterCoeffs: argument is undefined");
  if (NPoles > 0) Coeffs->Resize(2, NPoles);
  const bool passes_nothing = NPoles > 0 && CutOff == (HighPass ? 0.5 : 0.0);
  Coefficients of{};
  if (!passes_nothing) of = recursive_filter((std::max)(NPoles, 0), HighPass, CutOff, Ripple);
  A0 = of.a[0];
  if (NPoles <= 0) return Coeffs->Fill(0.0);
  auto edit = Coeffs->Edit();
  const std::size_t rows = (std::min)(edit.Column(1).size(), zor::detail::to_size(NPoles));
  std::copy_n(of.a.begin() + 1, rows, edit.Column(1).begin());
  std::copy_n(of.b.begin() + 1, (std::min)(rows, edit.Column(2).size()), edit.Column(2).begin());
}

void ChebychevFilter(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec, Double A0,
                     const TMatrix* Coeffs) {
  if (!SourceVec || !DestVec || !Coeffs) {
    zor::detail::Fail<EZORMath2Error>("ChebychevFilter: SourceVec, DestVec and/or Coeffs is undefined");
  }
  const std::span<const Double> source = SourceVec->Cells();
  const Integer size = SourceVec->NrOfElem();
  const Integer lo = std::clamp(FirstElem, 1, size), hi = std::clamp(LastElem, 1, size);
  const std::size_t first = zor::detail::to_size((std::min)(lo, hi)), last = zor::detail::to_size((std::max)(lo, hi));
  const std::span<const Double> a = Coeffs->Column(1), b = Coeffs->Column(2);
  const std::size_t poles = a.size(), lead = poles + 1, n = last + 2 * lead;
  TDoubleArray weights;  // of the output; 0 where the matrix has no second column
  SetLength(weights, zor::detail::to_integer(poles));
  std::ranges::copy(b.first((std::min)(b.size(), poles)), weights.begin());

  // Place `poles` + i is element i, from 0; what lies in front of it and behind n is 0. x begins `lead` places late.
  TDoubleArray x, u, v;
  for (TDoubleArray* cells : {&x, &u, &v}) SetLength(*cells, zor::detail::to_integer(n + 2 * poles));
  const std::size_t known = (std::min)(source.size(), n - lead);
  std::copy_n(source.begin(), known, x.begin() + static_cast<std::ptrdiff_t>(poles + lead));
  for (std::size_t i = poles; i < poles + n; ++i) {
    Double sum = A0 * x[i];
    for (std::size_t k = 1; k <= poles; ++k) sum += a[k - 1] * x[i - k] + weights[k - 1] * u[i - k];
    u[i] = sum;
  }
  for (std::size_t i = poles + n; i-- > poles;) {
    Double sum = A0 * u[i];
    for (std::size_t k = 1; k <= poles; ++k) sum += a[k - 1] * u[i + k] + weights[k - 1] * v[i + k];
    v[i] = sum;
  }
  const auto edit = DestVec->Edit();
  const std::size_t end = (std::min)(last, edit.cells().size());
  for (std::size_t i = first; i <= end; ++i) edit[i - 1] = v[poles + i - 1 + lead];
}

}  // namespace ZOR_math2
