#include "zor/analysis/partial_least_squares.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "zor/analysis/decomposition_internal.h"
#include "zor/kernels/moments.h"
#include "zor/vectors/store_internal.h"

namespace ZOR_math2 {

namespace {

using zor::detail::ColumnBlock;
using zor::detail::to_size;
using Column = std::vector<Double>;

Double dot(std::span<const Double> a, std::span<const Double> b) { return zor::kernels::dot_twofold(a, b).hi; }

/// A' x.
Column project(const ColumnBlock& a, std::span<const Double> x) {
  Column out(a.size());
  for (std::size_t c = 0; c < a.size(); ++c) out[c] = dot(a[c], x);
  return out;
}
/// A x.
Column combine(const ColumnBlock& a, std::span<const Double> x) {
  Column out(a.rows, 0.0);
  for (std::size_t c = 0; c < a.size(); ++c)
    for (std::size_t r = 0; r < a.rows; ++r) out[r] += a[c][r] * x[c];
  return out;
}
void scale(Column& x, Double factor) {
  for (Double& v : x) v *= factor;
}
/// x less what it has of columns of length 1.
void orthogonalize(Column& x, const std::vector<Column>& unit) {
  for (const Column& u : unit) {
    const Double part = dot(u, x);
    for (std::size_t i = 0; i < x.size(); ++i) x[i] -= part * u[i];
  }
}

struct Centred {
  ColumnBlock cells;
  Column means, deviations;
  Double squares = 0.0;

  Centred(const TMatrix& from, bool to_unit_variance) : cells(from) {
    for (std::size_t c = 0; c < cells.size(); ++c) {
      const auto of = zor::kernels::mean_variance(std::span<const Double>(cells[c]));
      const Double deviation = to_unit_variance && of.variance > 0.0 ? std::sqrt(of.variance) : 1.0;
      for (Double& x : cells[c]) x = (x - of.mean) / deviation;
      means.push_back(of.mean);
      deviations.push_back(deviation);
      squares += dot(cells[c], cells[c]);
    }
  }
};

/// The left singular vector of the largest value; nothing if that is rounding noise beside the first one.
Column dominant(const ColumnBlock& s, Double& first) {
  const zor::detail::Decomposition d(s.copy(s.size()));
  const std::size_t best = static_cast<std::size_t>(std::ranges::max_element(d.w) - d.w.begin());
  if (!d.done() || !(d.w[best] > 1e-14 * first)) return {};
  if (first == 0.0) first = d.w[best];
  Column r(d.u.columns[best], d.u.columns[best] + s.rows);
  const Double largest = *std::ranges::max_element(r, {}, [](Double v) { return std::abs(v); });
  if (largest < 0.0) scale(r, -1.0);
  return r;
}

struct Factors {
  std::vector<Column> weights, scores, x_loadings, y_loadings, y_scores, basis;
};

void store(TMatrix* to, const std::vector<Column>& columns) {
  if (!to) return;
  ColumnBlock block(columns.size(), columns[0].size());
  for (std::size_t c = 0; c < columns.size(); ++c) std::ranges::copy(columns[c], block.columns[c]);
  zor::detail::store(*to, block);
}

Factors find_factors(const Centred& x, const Centred& y, std::size_t wanted) {
  Factors f;
  ColumnBlock s(y.cells.size(), x.cells.size());
  for (std::size_t c = 0; c < s.size(); ++c) std::ranges::copy(project(x.cells, y.cells[c]), s.columns[c]);
  Double first = 0.0, first_value = 0.0;
  for (std::size_t a = 0; a < wanted; ++a) {
    Column r = dominant(s, first_value);
    if (r.empty()) break;
    Column t = combine(x.cells, r);
    const Double length = std::sqrt(dot(t, t));
    if (a == 0) first = length;
    if (!(length > 1e-13 * first)) break;
    scale(t, 1.0 / length);
    scale(r, 1.0 / length);
    Column p = project(x.cells, t), q = project(y.cells, t), u = combine(y.cells, q), v = p;
    orthogonalize(v, f.basis);
    orthogonalize(v, f.basis);  // twice is enough
    orthogonalize(u, f.scores);
    const Double norm = std::sqrt(dot(v, v));
    if (!(norm > 0.0)) break;
    scale(v, 1.0 / norm);
    for (std::size_t c = 0; c < s.size(); ++c) {
      const Double part = dot(v, s[c]);
      for (std::size_t i = 0; i < s.rows; ++i) s[c][i] -= part * v[i];
    }
    f.weights.push_back(std::move(r));
    f.scores.push_back(std::move(t));
    f.x_loadings.push_back(std::move(p));
    f.y_loadings.push_back(std::move(q));
    f.y_scores.push_back(std::move(u));
    f.basis.push_back(std::move(v));
  }
  return f;
}

/// Coefficients in units of the data, the constant last, a column for each of Y.
std::vector<Column> coefficients(const Factors& f, const Centred& x, const Centred& y) {
  const std::size_t p = x.cells.size();
  std::vector<Column> b(y.cells.size(), Column(p + 1, 0.0));
  for (std::size_t k = 0; k < b.size(); ++k) {
    b[k][p] = y.means[k];
    for (std::size_t j = 0; j < p; ++j) {
      Double sum = 0.0;
      for (std::size_t a = 0; a < f.weights.size(); ++a) sum += f.weights[a][j] * f.y_loadings[a][k];
      b[k][j] = sum * y.deviations[k] / x.deviations[j];
      b[k][p] -= b[k][j] * x.means[j];
    }
  }
  return b;
}

std::vector<Column> fitted(const Factors& f, const Centred& y) {
  std::vector<Column> out(y.cells.size(), Column(y.cells.rows));
  for (std::size_t k = 0; k < out.size(); ++k)
    for (std::size_t i = 0; i < out[k].size(); ++i) {
      Double sum = 0.0;
      for (std::size_t a = 0; a < f.scores.size(); ++a) sum += f.scores[a][i] * f.y_loadings[a][k];
      out[k][i] = y.means[k] + sum * y.deviations[k];
    }
  return out;
}

Column shares(const std::vector<Column>& loadings, Double squares) {
  Column out;
  for (const Column& l : loadings) out.push_back(squares > 0.0 ? dot(l, l) / squares : 0.0);
  return out;
}

}  // namespace

void SimPLS(const TMatrix* X, const TMatrix* Y, Integer NumFactors, Boolean Flag, TMatrix* M1, TMatrix* M2, TMatrix* M3,
            TMatrix* M4, TMatrix* M5, TMatrix* M6, TVector* V1, TVector* V2, TMatrix* M7) {
  using zor::detail::Fail;
  if (!X || !Y || X->NrOfRows() != Y->NrOfRows()) Fail<EZORMath2Error>("SimPLS: numbers of rows do not match");
  if (NumFactors < 1 || NumFactors > (std::min)(X->NrOfRows() - 1, X->NrOfColumns()))
    Fail<EZORMath2Error>("SimPLS: invalid number of factors");
  const Centred x(*X, Flag), y(*Y, Flag);
  const Factors f = find_factors(x, y, to_size(NumFactors));
  store(M6, coefficients(f, x, y));
  store(M7, fitted(f, y));
  if (f.weights.empty()) return;
  store(M1, f.scores);
  store(M2, f.y_scores);
  store(M3, f.x_loadings);
  store(M4, f.y_loadings);
  store(M5, f.weights);
  if (V1) zor::detail::store(*V1, shares(f.x_loadings, x.squares));
  if (V2) zor::detail::store(*V2, shares(f.y_loadings, y.squares));
}

}  // namespace ZOR_math2
