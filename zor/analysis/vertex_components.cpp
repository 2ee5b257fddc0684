#include "zor/analysis/vertex_components.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "zor/analysis/decomposition_internal.h"
#include "zor/kernels/moments.h"
#include "zor/runtime/random.h"

namespace ZOR_math2 {

namespace {

using zor::detail::ColumnBlock;
using zor::detail::to_size;
using Column = std::vector<Double>;

Double dot(std::span<const Double> a, std::span<const Double> b) { return zor::kernels::dot_twofold(a, b).hi; }

/// The right singular vectors of the `count` largest values.
std::vector<Column> leading_directions(const ColumnBlock& x, std::size_t count) {
  const zor::detail::Decomposition d(x.copy(x.size()));
  std::vector<std::size_t> order(x.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) { return d.w[a] > d.w[b]; });
  std::vector<Column> out;
  for (std::size_t k = 0; k < count; ++k) out.emplace_back(d.v.columns[order[k]], d.v.columns[order[k]] + x.size());
  return out;
}

/// The rows of x along a direction.
Column along(const ColumnBlock& x, const Column& direction) {
  Column out(x.rows, 0.0);
  for (std::size_t c = 0; c < x.size(); ++c)
    for (std::size_t r = 0; r < x.rows; ++r) out[r] += x[c][r] * direction[c];
  return out;
}
std::vector<Column> along_all(const ColumnBlock& x, const std::vector<Column>& directions) {
  std::vector<Column> out;
  for (const Column& d : directions) out.push_back(along(x, d));
  return out;
}
Double squares(const std::vector<Column>& columns) {
  Double sum = 0.0;
  for (const Column& c : columns) sum += dot(c, c);
  return sum;
}

/// What the directions describe: sum of scores times directions, plus the means.
ColumnBlock described(const std::vector<Column>& scores, const std::vector<Column>& directions, const Column& means,
                      std::size_t rows) {
  ColumnBlock out(means.size(), rows);
  for (std::size_t c = 0; c < means.size(); ++c) {
    std::ranges::fill(out[c], means[c]);
    for (std::size_t k = 0; k < scores.size(); ++k)
      for (std::size_t r = 0; r < rows; ++r) out[c][r] += scores[k][r] * directions[k][c];
  }
  return out;
}

/// Rows that lie farthest along random directions, each orthogonal to the rows found before. y[k] is a coordinate.
std::vector<std::size_t> vertices(const std::vector<Column>& y) {
  const std::size_t p = y.size(), rows = y[0].size();
  std::vector<Column> basis(1, Column(p, 0.0));  // of length 1 and orthogonal
  basis[0][p - 1] = 1.0;
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < p; ++i) {
    Column f(p);
    for (Double& v : f) v = ZOR_runtime::Random();
    const auto orthogonalize = [&](Column& v) {
      for (int twice = 0; twice < 2; ++twice)
        for (const Column& b : basis) {
          const Double part = dot(b, v);
          for (std::size_t k = 0; k < p; ++k) v[k] -= part * b[k];
        }
    };
    orthogonalize(f);
    std::size_t best = 0;
    Double most = -1.0;
    for (std::size_t r = 0; r < rows; ++r) {
      Double sum = 0.0;
      for (std::size_t k = 0; k < p; ++k) sum += f[k] * y[k][r];
      if (std::abs(sum) > most) most = std::abs(sum), best = r;
    }
    found.push_back(best);
    Column vertex(p);
    for (std::size_t k = 0; k < p; ++k) vertex[k] = y[k][best];
    if (i == 0) basis.clear();
    orthogonalize(vertex);
    const Double length = std::sqrt(dot(vertex, vertex));
    if (!(length > 0.0)) continue;
    for (Double& v : vertex) v /= length;
    basis.push_back(std::move(vertex));
  }
  return found;
}

struct Projected {
  std::vector<Column> coordinates;
  ColumnBlock rows;
};

/// On p - 1 dimensions about the mean, and a constant beside them.
Projected centred_projection(const ColumnBlock& centred, std::vector<Column> directions, const Column& means) {
  directions.pop_back();
  Projected out{along_all(centred, directions), ColumnBlock(0, 0)};
  out.rows = described(out.coordinates, directions, means, centred.rows);
  Double longest = 0.0;
  for (std::size_t r = 0; r < centred.rows; ++r) {
    Double square = 0.0;
    for (const Column& c : out.coordinates) square += c[r] * c[r];
    longest = std::max(longest, square);
  }
  out.coordinates.emplace_back(centred.rows, std::sqrt(longest));
  return out;
}

/// On p dimensions, each row divided by its part along the mean.
Projected projective(const ColumnBlock& x, std::size_t p) {
  const std::vector<Column> directions = leading_directions(x, p);
  Projected out{along_all(x, directions), ColumnBlock(0, 0)};
  out.rows = described(out.coordinates, directions, Column(x.size(), 0.0), x.rows);
  Column means(p);
  for (std::size_t k = 0; k < p; ++k)
    means[k] = zor::kernels::mean_variance(std::span<const Double>(out.coordinates[k])).mean;
  for (std::size_t r = 0; r < x.rows; ++r) {
    Double part = 0.0;
    for (std::size_t k = 0; k < p; ++k) part += means[k] * out.coordinates[k][r];
    for (std::size_t k = 0; k < p && part != 0.0; ++k) out.coordinates[k][r] /= part;
  }
  return out;
}

Projected project(const ColumnBlock& x, std::size_t p, bool always_projective) {
  if (always_projective) return projective(x, p);
  ColumnBlock centred = x.copy();
  Column means(x.size());
  Double all = 0.0, of_mean = 0.0;
  for (std::size_t c = 0; c < x.size(); ++c) {
    means[c] = zor::kernels::mean_variance(x[c]).mean;
    all += dot(x[c], x[c]);
    of_mean += means[c] * means[c];
    for (Double& v : centred[c]) v -= means[c];
  }
  std::vector<Column> directions = leading_directions(centred, p);
  const auto rows = static_cast<Double>(x.rows), comps = static_cast<Double>(p), bands = static_cast<Double>(x.size());
  const Double power = all / rows, signal = squares(along_all(centred, directions)) / rows + of_mean;
  const Double noise = power - signal;
  const Double ratio = noise > 0.0 ? 10.0 * std::log10((signal - comps / bands * power) / noise) : HUGE_VAL;
  if (ratio < 15.0 + 10.0 * std::log10(comps)) return centred_projection(centred, std::move(directions), means);
  return projective(x, p);
}

}  // namespace

void VertexCompAnalysis(const TMatrix* InMat, Integer NumComp, Boolean Flag, TMatrix* M1,
                        ZOR_vector::TIntVector* Indices, TMatrix* M2) {
  if (!InMat || NumComp < 2 || NumComp > (std::min)(InMat->NrOfRows(), InMat->NrOfColumns()))
    zor::detail::Fail<EZORMath2Error>("VertexCompAnalysis: invalid number of components");
  const Projected projected = project(ColumnBlock(*InMat), to_size(NumComp), Flag);
  const std::vector<std::size_t> found = vertices(projected.coordinates);
  ColumnBlock pure(projected.rows.size(), found.size());
  for (std::size_t c = 0; c < pure.size(); ++c)
    for (std::size_t k = 0; k < found.size(); ++k) pure[c][k] = projected.rows[c][found[k]];
  if (M1) zor::detail::store(*M1, pure);
  if (M2) zor::detail::store(*M2, projected.rows);
  if (!Indices) return;
  Indices->SetNrOfElem(NumComp);
  auto edit = Indices->Edit();
  for (std::size_t k = 0; k < found.size(); ++k)
    edit.begin()[static_cast<std::ptrdiff_t>(k)] = static_cast<Integer>(found[k] + 1);
}

}  // namespace ZOR_math2
