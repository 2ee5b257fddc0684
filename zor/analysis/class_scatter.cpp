#include "zor/analysis/class_scatter.h"

#include <cmath>
#include <span>
#include <vector>

#include "zor/kernels/moments.h"

namespace ZOR_math2 {

namespace {

using zor::detail::to_integer;
using zor::detail::to_size;

/// Objects of one class after the other.
struct Groups {
  std::vector<std::size_t> order, first;
};
Groups groups(const TIntArray& classes, const TIntArray& counts) {
  Groups g{std::vector<std::size_t>(classes.size()), std::vector<std::size_t>(counts.size() + 1, 0)};
  for (std::size_t c = 0; c < counts.size(); ++c) g.first[c + 1] = g.first[c] + to_size(counts[to_integer(c)]);
  std::vector<std::size_t> next = g.first;
  for (std::size_t k = 0; k < classes.size(); ++k) g.order[next[to_size(classes[to_integer(k)] - 1)]++] = k;
  return g;
}

}  // namespace

Integer ClassScatterMatrices(const TDouble2DArray& Data, const TIntArray& Classes, Integer& NumClasses,
                             TIntArray& ClassCount, TDouble2DArray& ClassMeans, TDouble2DArray& ClassVars,
                             TDouble2DArray& Sb, TDouble2DArray& Sw) {
  NumClasses = 0;
  const Integer p = Length(Data), m = p == 0 ? 0 : Length(Data[0]);
  if (m == 0 || Length(Classes) != m) return kOtherNumberOfObjects;
  for (const auto& variable : Data)
    if (Length(variable) != m) return kOtherNumberOfObjects;
  TIntArray counts;
  SetLength(counts, m);
  for (const Integer c : Classes) {
    if (c < 1 || c > m) return kBadClassNumber;
    ++counts[c - 1];
  }
  Integer classes = 0;
  while (classes < m && counts[classes] > 0) ++classes;
  for (Integer c = classes; c < m; ++c)
    if (counts[c] > 0) return kEmptyClass;
  SetLength(counts, classes);

  const Groups by_class = groups(Classes, counts);
  TDouble2DArray means, variances, between, within, rest;  // rest[v]: x - mean of its class, class after class
  SetLength(means, p, classes);
  SetLength(variances, p, classes);
  SetLength(between, p, p);
  SetLength(within, p, p);
  SetLength(rest, p, m);
  std::vector<Double> centre(to_size(p));
  for (Integer v = 0; v < p; ++v) {
    const std::span<Double> x(rest[v].data(), to_size(m));
    for (std::size_t k = 0; k < x.size(); ++k) x[k] = Data[v][to_integer(by_class.order[k])];
    centre[to_size(v)] = zor::kernels::mean_variance(std::span<const Double>(x)).mean;
    for (Integer c = 0; c < classes; ++c) {
      const std::span<Double> own = x.subspan(by_class.first[to_size(c)], to_size(counts[c]));
      const auto of = zor::kernels::mean_variance(std::span<const Double>(own));
      means[v][c] = of.mean;
      variances[v][c] = own.size() < 2 ? 0.0 : std::abs(of.variance);
      for (Double& value : own) value -= of.mean;
    }
  }
  for (Integer i = 0; i < p; ++i)
    for (Integer j = 0; j < p; ++j) {
      Double b = 0.0, w = 0.0;
      for (Integer c = 0; c < classes; ++c)
        b += counts[c] * (means[i][c] - centre[to_size(i)]) * (means[j][c] - centre[to_size(j)]);
      for (Integer k = 0; k < m; ++k) w += rest[i][k] * rest[j][k];
      between[i][j] = b;
      within[i][j] = w;
    }
  NumClasses = classes;
  ClassCount = counts;
  ClassMeans = means;
  ClassVars = variances;
  Sb = between;
  Sw = within;
  return 0;
}

Double MahalanobisDistance(const ZOR_vector::TVector* V1, const ZOR_vector::TVector* V2,
                           const ZOR_matrix::TMatrix* InvCov) {
  using zor::detail::Fail;
  using ZOR_vector::EZORVectorError;
  const Integer n = V1 ? V1->NrOfElem() : 0;
  if (n != (V2 ? V2->NrOfElem() : 0)) Fail<EZORVectorError>("MahalanobisDistance: dimensions of vectors do not match");
  const Integer columns = InvCov ? InvCov->NrOfColumns() : 0;
  if (columns != (InvCov ? InvCov->NrOfRows() : 0))
    Fail<EZORVectorError>("MahalanobisDistance: inverse covariance matrix is not quadratric");
  if (n != columns)
    Fail<EZORVectorError>("MahalanobisDistance: dimension of vectors and inverse covariance matrix do not match");
  Double square = 0.0;
  for (Integer i = 1; i <= n; ++i) {
    Double sum = 0.0;
    for (Integer j = 1; j <= n; ++j) sum += (V1->GetVal(j) - V2->GetVal(j)) * InvCov->GetVal(j, i);
    square += sum * (V1->GetVal(i) - V2->GetVal(i));
  }
  if (square < 0.0)
    Fail<EZORVectorError>("MahalanobisDistance: the inverse covariance matrix must be symmetric and positive definite");
  return std::sqrt(square);
}

}  // namespace ZOR_math2
