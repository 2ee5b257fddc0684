#include "zor/distributions/u_distribution.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <new>
#include <vector>

#include "zor/kernels/gamma_function.h"
#include "zor/runtime/exception.h"

namespace ZOR_statis {

namespace {

constexpr Int64 kExactProduct = 10'000;

Int64 largest(Integer n1, Integer n2) noexcept { return Int64{n1} * n2; }

/// The probabilities of U = 0 to n1 n2, by sizes: f(a, b, u) = a / (a + b) f(a - 1, b, u - b) + b / (a + b) f(a, b - 1,
/// u).
std::vector<Double> exact(Integer n1, Integer n2) {
  try {
    const std::size_t small = zor::detail::to_size((std::min)(n1, n2)),
                      large = zor::detail::to_size((std::max)(n1, n2));
    std::vector<std::vector<Double>> row(small + 1);  // row[a]: the probabilities for sizes a and b
    for (std::size_t a = 0; a <= small; ++a) row[a].assign(1, 1.0);
    for (std::size_t b = 1; b <= large; ++b) {
      for (std::size_t a = 1; a <= small; ++a) {
        const Double n = static_cast<Double>(a + b), left = static_cast<Double>(a) / n,
                     right = static_cast<Double>(b) / n;
        std::vector<Double> next(a * b + 1, 0.0);
        const auto &without_a = row[a - 1], &without_b = row[a];
        for (std::size_t u = 0; u < without_b.size(); ++u) next[u] = right * without_b[u];
        for (std::size_t u = 0; u < without_a.size(); ++u) next[u + b] += left * without_a[u];
        row[a] = std::move(next);
      }
    }
    return std::move(row[small]);
  } catch (const std::bad_alloc&) {
    std::throw_with_nested(ZOR_runtime::EOutOfMemory("not enough memory"));
  }
}

/// P(U <= u) from the normal distribution, its fourth moment corrected.
Double approximate(Integer n1, Integer n2, Int64 u) noexcept {
  const Double m = n1, n = n2, all = m + n + 1.0, sd = std::sqrt(m * n * all / 12.0);
  const Double z = (static_cast<Double>(u) + 0.5 - m * n / 2.0) / sd;
  const Double kurtosis = -1.2 * (m * m + n * n + m * n + m + n) / (m * n * all);
  const Double density = std::exp(-z * z / 2.0) / 2.5066282746310002;
  const Double p = zor::kernels::normal_tails(z).lower - density * kurtosis / 24.0 * (z * z * z - 3.0 * z);
  return std::clamp(p, 0.0, 1.0);
}

bool exact_is_cheap(Integer n1, Integer n2) noexcept { return largest(n1, n2) <= kExactProduct; }

Double lower_tail(const std::vector<Double>& density, Int64 u) noexcept {
  const Int64 last = static_cast<Int64>(density.size()) - 1;
  // The distribution is symmetric: the shorter side is added.
  Double sum = 0.0;
  const Int64 terms = (std::min)(u, last - 1 - u);
  for (Int64 i = 0; i <= terms; ++i) sum += density[static_cast<std::size_t>(i)];
  return u <= last - 1 - u ? sum : 1.0 - sum;
}

}  // namespace

Double UDistriDensity(Integer n1, Integer n2, Integer u) {
  if (n1 < 1 || n2 < 1 || u < 0 || u > largest(n1, n2)) return 0.0;
  if (exact_is_cheap(n1, n2)) return exact(n1, n2)[zor::detail::to_size(u)];
  return approximate(n1, n2, u) - approximate(n1, n2, Int64{u} - 1);
}

Double UDistriIntegral(Integer n1, Integer n2, Integer u) {
  if (n1 < 1 || n2 < 1 || u < 0) return 0.0;
  if (u >= largest(n1, n2)) return 1.0;
  return exact_is_cheap(n1, n2) ? lower_tail(exact(n1, n2), u) : approximate(n1, n2, u);
}

Integer UDistriQuantile(Integer n1, Integer n2, Double p) {
  if (n1 < 1 || n2 < 1 || !(p > 0.0 && p < 1.0)) return -1;
  std::vector<Double> density;
  if (exact_is_cheap(n1, n2)) density = exact(n1, n2);
  const auto below = [&](Int64 u) { return (density.empty() ? approximate(n1, n2, u) : lower_tail(density, u)) < p; };
  Int64 low = -1, high = (std::min)(largest(n1, n2), Int64{2147483647});
  while (high - low > 1) {
    const Int64 middle = low + (high - low) / 2;
    (below(middle) ? low : high) = middle;
  }
  return static_cast<Integer>(high);
}

}  // namespace ZOR_statis
