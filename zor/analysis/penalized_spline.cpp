#include "zor/analysis/penalized_spline.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace ZOR_math2 {

namespace {

/// The straight line of weighted least squares: what an infinite penalty leaves.
void fit_straight(std::span<const Double> x, std::span<const Double> y, std::span<const Double> w,
                  std::span<Double> g) {
  Double sw = 0, mx = 0, my = 0, sxx = 0, sxy = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    sw += w[i];
    mx += w[i] * x[i];
    my += w[i] * y[i];
  }
  mx /= sw;
  my /= sw;
  for (std::size_t i = 0; i < x.size(); ++i) {
    sxx += w[i] * (x[i] - mx) * (x[i] - mx);
    sxy += w[i] * (x[i] - mx) * (y[i] - my);
  }
  for (std::size_t i = 0; i < x.size(); ++i) g[i] = my + sxy / sxx * (x[i] - mx);
}

/// Values g and second derivatives m of the spline at n >= 3 points. With R the matrix of the natural spline and Q that
/// of the second differences, (s R + t Q' Q / w) m = s Q' y and g = y - (t / s) Q m / w, where s = 1 / (1 + Smooth) and
/// t = Smooth s keep large penalties finite. The matrix has five diagonals; it is factored as L D L'.
void solve(std::span<const Double> x, std::span<const Double> y, std::span<const Double> w, Double smooth,
           std::span<Double> g, std::span<Double> m) {
  const std::size_t n = x.size(), inner = n - 2;
  const Double s = 1.0 / (1.0 + smooth), t = smooth / (1.0 + smooth);
  std::vector<Double> d(inner), e(inner), f(inner), z(inner);
  const auto h = [&](std::size_t i) { return x[i + 1] - x[i]; };
  // Column j of Q: 1 / h(j), -1 / h(j) - 1 / h(j + 1), 1 / h(j + 1) in rows j, j + 1, j + 2.
  const auto q = [&](std::size_t row, std::size_t j) {
    const Double left = 1.0 / h(j), right = 1.0 / h(j + 1);
    return row == j ? left : row == j + 1 ? -left - right : right;
  };
  for (std::size_t j = 0; j < inner; ++j) {
    Double same = 0.0, next = 0.0;
    for (std::size_t row = j; row <= j + 2; ++row) same += q(row, j) * q(row, j) / w[row];
    d[j] = s * (h(j) + h(j + 1)) / 3.0 + t * same;
    if (j + 1 < inner) {
      for (std::size_t row = j + 1; row <= j + 2; ++row) next += q(row, j) * q(row, j + 1) / w[row];
      e[j] = s * h(j + 1) / 6.0 + t * next;
    }
    if (j + 2 < inner) f[j] = t * q(j + 2, j) * q(j + 2, j + 2) / w[j + 2];
    z[j] = (y[j + 2] - y[j + 1]) / h(j + 1) - (y[j + 1] - y[j]) / h(j);
  }
  for (std::size_t j = 0; j < inner; ++j) {  // e and f become the columns of L
    const Double ej = e[j], fj = f[j];
    if (j + 1 < inner) {
      e[j] = ej / d[j];
      d[j + 1] -= e[j] * ej;
      z[j + 1] -= e[j] * z[j];
      if (j + 2 < inner) e[j + 1] -= e[j] * fj;
    }
    if (j + 2 < inner) {
      f[j] = fj / d[j];
      d[j + 2] -= f[j] * fj;
      z[j + 2] -= f[j] * z[j];
    }
  }
  for (std::size_t j = inner; j-- > 0;) {
    z[j] /= d[j];
    if (j + 1 < inner) z[j] -= e[j] * z[j + 1];
    if (j + 2 < inner) z[j] -= f[j] * z[j + 2];
  }
  m[0] = m[n - 1] = 0.0;
  std::ranges::copy(y, g.begin());
  for (std::size_t j = 0; j < inner; ++j) {
    m[j + 1] = s * z[j];
    for (std::size_t row = j; row <= j + 2; ++row) g[row] -= t * q(row, j) * z[j] / w[row];
  }
}

}  // namespace

void PenalizedCubicSpline(Integer n1, Integer n2, Double Smooth, std::span<const Double> x, std::span<const Double> y,
                          std::span<const Double> w, std::span<Double> a, std::span<Double> b, std::span<Double> c,
                          std::span<Double> d) {
  using zor::detail::Fail;
  const std::size_t shortest = (std::min)({x.size(), y.size(), w.size(), a.size(), b.size(), c.size(), d.size()});
  if (n1 < 0 || n2 < n1 || static_cast<std::size_t>(n2) >= shortest) {
    Fail<EZORMath2Error>("PenalizedCubicSpline: invalid index range");
  }
  const std::size_t first = zor::detail::to_size(n1), n = zor::detail::to_size(n2 - n1 + 1);
  const auto xs = x.subspan(first, n), ys = y.subspan(first, n), ws = w.subspan(first, n);
  for (std::size_t i = 1; i < n; ++i) {
    if (!(xs[i] > xs[i - 1])) Fail<EZORMath2Error>("PenalizedCubicSpline: x values must be strictly ascending");
  }
  if (!std::ranges::all_of(ws, [](Double v) { return v > 0.0; })) {
    Fail<EZORMath2Error>("PenalizedCubicSpline: weights must be greater than 0");
  }
  if (!(Smooth >= 0.0)) Fail<EZORMath2Error>("PenalizedCubicSpline: invalid smoothing factor");

  std::vector<Double> g(ys.begin(), ys.end()), m(n, 0.0);
  if (n > 2 && std::isinf(Smooth)) {
    fit_straight(xs, ys, ws, g);
  } else if (n > 2) {
    solve(xs, ys, ws, Smooth, g, m);
  }
  const std::vector<Double> at(xs.begin(), xs.end());  // the outputs may be the inputs
  for (std::size_t i = 0; i < n; ++i) {
    const bool last = i + 1 == n;
    const std::size_t k =
        last && n > 1 ? i - 1 : i;  // the piece whose slope is taken: on its left, at the end its right
    const Double h = n > 1 ? at[k + 1] - at[k] : 1.0, rise = n > 1 ? (g[k + 1] - g[k]) / h : 0.0;
    a[first + i] = g[i];
    b[first + i] = last ? rise + (n > 1 ? h * m[k] / 6.0 : 0.0) : rise - h * (2.0 * m[i] + m[i + 1]) / 6.0;
    c[first + i] = last ? 0.0 : m[i] / 2.0;
    d[first + i] = last ? 0.0 : (m[i + 1] - m[i]) / (6.0 * h);
  }
}

}  // namespace ZOR_math2
