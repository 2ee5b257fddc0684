#pragma once

/// \file  The gamma function and its incomplete forms for distributions, both tails.
/// Numbers alone, no allocation. Densities go through the saddle point expansion of C. Loader (Fast and Accurate
/// Computation of Binomial Probabilities, 2000), which cancels nothing; tails through series and continued fractions
/// (A. R. DiDonato, A. H. Morris, ACM TOMS 12 (1986), 377), near the mode of parameters above 1e5 through N. M. Temme's
/// uniform expansion. Relative errors are below 1e-12; small upper tails of a parameter a below 0.05 have 5e-14 / a.

namespace zor::kernels {

/// Both tails of a distribution function. They add up to 1; the smaller one keeps its relative precision.
struct Tails {
  double lower, upper;
};

/// ln gamma(x) for x > 0.
double log_gamma(double x) noexcept;

/// ln gamma(x + 1) less its Stirling approximation (x + 1/2) ln x - x + ln(2 pi) / 2, for x > 0.
double stirling_error(double x) noexcept;

/// x ln(x / m) + m - x, right where x is near m. x >= 0, m > 0.
double deviance(double x, double m) noexcept;

/// exp(-m) m^x / gamma(x + 1): the Poisson density of mean m at a real x >= 0.
double poisson_term(double x, double m) noexcept;

/// P(a, x) and Q(a, x) for a > 0, x >= 0; finite or not, never NaN for such arguments.
Tails incomplete_gamma(double a, double x) noexcept;

/// The normal distribution function, both tails.
Tails normal_tails(double z) noexcept;

/// ln of the normal tail beyond z >= 2, also where the tail underflows.
double log_normal_tail(double z) noexcept;

}  // namespace zor::kernels
