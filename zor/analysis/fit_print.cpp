#include <array>
#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "zor/analysis/curve_fit.h"
#include "zor/distributions/t_distribution.h"
#include "zor/runtime/print.h"

namespace ZOR_math2 {

namespace {

using zor::detail::cell_text;

constexpr std::array<const char*, 16> kNames = {"no model",
                                                "straight line: y = k0 + k1 x",
                                                "parabola: y = k0 + k1 x + k2 x^2",
                                                "Gaussian: y = k0 exp(-(x - k1)^2 / k2)",
                                                "reciprocal line: y = 1 / (k0 + k1 x)",
                                                "hyperbola: y = k0 + k1 / x",
                                                "reciprocal hyperbola: y = x / (k0 x + k1)",
                                                "logarithm: y = k0 + k1 ln x",
                                                "reciprocal logarithm: y = 1 / (k0 + k1 ln x)",
                                                "power: y = k0 x^k1",
                                                "exponential: y = k0 exp(k1 x)",
                                                "Hoerl: y = k0 k1^x x^k2",
                                                "circle: centre (k0, k1), radius k2",
                                                "polynomial: y = sum of ki x^i",
                                                "centred polynomial: y = sum of ki (x - shift)^i",
                                                "line through the origin: y = k1 x"};

/// Range of the parameters of a model: first and last index.
struct Parameters {
  Integer first, last;
};
Parameters parameters(const TCurveFit& fit) {
  switch (fit.RegModel()) {
    case rmNone:
      return {0, -1};
    case rmLinearOrigin:
      return {1, 1};
    case rmPolynomial:
    case rmCenteredPoly:
      return {0, fit.PolyOrder()};
    case rmParabolic:
    case rmGaussian:
    case rmHoerl:
    case rmCircle:
      return {0, 2};
    default:
      return {0, 1};
  }
}

/// Roots of the diagonal of (A' A)^-1, A being the powers 0 to `order` of x - shift, from the polynomials that are
/// orthogonal over the x (G. E. Forsythe, J. SIAM 5 (1957), 74): their squared coefficients are added, so that nothing
/// cancels. Empty if the x are too few.
std::vector<Double> deviation_factors(std::span<const Double> x, Double shift, Integer order) {
  const auto terms = zor::detail::to_size(order) + 1;
  std::vector<Double> p(x.size(), 1.0), before(x.size(), 0.0), factors(terms, 0.0);
  std::vector<Double> c(terms + 1, 0.0), c_before(terms + 1, 0.0);
  c[0] = 1.0;
  Double norm_before = 1.0;
  for (std::size_t k = 0; k < terms; ++k) {
    Double norm = 0.0, mean = 0.0;
    for (std::size_t i = 0; i < x.size(); ++i) {
      norm += p[i] * p[i];
      mean += (x[i] - shift) * p[i] * p[i];
    }
    if (!(norm > 0.0)) return {};
    for (std::size_t j = 0; j <= k; ++j) factors[j] += c[j] * c[j] / norm;
    const Double a = mean / norm, b = k == 0 ? 0.0 : norm / norm_before;
    for (std::size_t i = 0; i < x.size(); ++i) {
      const Double next = (x[i] - shift - a) * p[i] - b * before[i];
      before[i] = p[i];
      p[i] = next;
    }
    std::vector<Double> next(terms + 1, 0.0);
    for (std::size_t j = 0; j <= k + 1 && j < terms; ++j)
      next[j] = (j == 0 ? 0.0 : c[j - 1]) - a * c[j] - b * c_before[j];
    c_before = c;
    c = next;
    norm_before = norm;
  }
  for (Double& f : factors) f = std::sqrt(f);
  return factors;
}

/// Standard errors of the parameters divided by that of the residuals, for models that are linear in their parameters.
std::vector<Double> factors_of(const TCurveFit& fit) {
  switch (fit.RegModel()) {
    case rmLinear:
    case rmParabolic:
    case rmPolynomial:
    case rmCenteredPoly:
      return deviation_factors(fit.CellsX(), fit.CPXShift(), parameters(fit).last);
    case rmLinearOrigin: {
      Double squares = 0.0;
      for (const Double x : fit.CellsX()) squares += x * x;
      return {0.0, 1.0 / std::sqrt(squares)};
    }
    default:
      return {};
  }
}

std::string name(Integer i) { return std::string("k").append(std::to_string(i)); }

}  // namespace

std::ostream& operator<<(std::ostream& out, const TCurveFit& fit) {
  const TRegModel model = fit.RegModel();
  out << kNames[model] << "; " << std::to_string(fit.NumData()) << " pairs\n";
  if (model == rmNone) return out;
  if (model == rmCenteredPoly) out << "shift " << cell_text(fit.CPXShift()) << '\n';
  const Integer first = parameters(fit).first, last = parameters(fit).last;
  const Integer df = fit.NumData() - (last - first + 1);
  Double sse = 0.0;
  for (Integer i = 1; i <= fit.NumData(); ++i) {
    const Double residual = fit.DataY(i) - fit.Evaluate(fit.DataX(i));
    sse += residual * residual;
  }
  const Double s = df >= 1 ? std::sqrt(sse / df) : 0.0;
  const std::vector<Double> factors = df >= 1 ? factors_of(fit) : std::vector<Double>();
  const std::array<const char*, 5> heads = {"", "estimate", "std. error", "t", "significance"};
  zor::detail::print_table(out, zor::detail::to_size(last - first + 2), factors.empty() ? 2 : 5,
                           [&](std::size_t row, std::size_t column) -> std::string {
                             if (row == 0) return heads[column];
                             const Integer i = first + static_cast<Integer>(row) - 1;
                             if (column == 0) return name(i);
                             const Double value = fit.ModelPar(1, i);
                             if (column == 1) return cell_text(value);
                             const Double error = s * factors[zor::detail::to_size(i)], t = value / error;
                             if (column == 2) return cell_text(error);
                             if (column == 3) return cell_text(t);
                             return cell_text(2.0 * ZOR_statis::tDistriIntegral(-std::abs(t), df));
                           });
  if (model == rmCircle) return out;
  out << "R squared " << cell_text(fit.FitQual());
  if (df >= 1) out << ", standard error " << cell_text(s) << " with " << std::to_string(df) << " degrees of freedom";
  return out << '\n';
}

}  // namespace ZOR_math2
