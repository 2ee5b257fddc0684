#include <algorithm>

#include "bits.h"
#include "zor/matrices/ZOR_matrix.h"

using namespace ZOR_matrix;
using ZOR_vector::TVector;

namespace {

constexpr Integer kCols = 37, kRows = 301;

void fill(TMatrix& m) {
  m.Resize(kCols, kRows);
  const std::vector<double> x = bits::noise(std::size_t{kCols} * kRows, 7);
  auto edit = m.Edit();
  for (Integer c = 1; c <= kCols; ++c) std::copy_n(x.begin() + kRows * (c - 1), kRows, edit.Column(c).begin());
}

std::vector<double> cells(const TMatrix& m) {
  std::vector<double> all;
  for (Integer c = 1; c <= m.NrOfColumns(); ++c) all.insert(all.end(), m.Column(c).begin(), m.Column(c).end());
  return all;
}

}  // namespace

ZOR_BITS(matrix_statistics) {
  TMatrix m;
  fill(m);
  double a = 0, b = 0, c = 0;
  m.MeanVar(2, 3, 36, 300, a, b);
  bits::print("mean and variance", std::vector{a, b});
  m.SkewKurt(2, 3, 36, 300, a, b);
  bits::print("skewness and kurtosis", std::vector{a, b});
  m.MinMax(2, 3, 36, 300, a, b);
  bits::print("extremes", std::vector{a, b, m.Sum(2, 3, 36, 300)});
  m.Quartiles(2, 3, 36, 300, a, b, c);
  bits::print("quartiles", std::vector{a, b, c, m.Percentile(31.0, 2, 3, 36, 300)});
  TVector v;
  for (const TDims dim : {dimCols, dimRows}) {
    m.MeanVec(dim, &v);
    bits::print("means", std::vector<double>(v.begin(), v.end()));
  }
  for (const TEdgeOp op : {eoMin, eoMax, eoSum, eoMean, eoStdDev}) {
    m.EdgeVector(orHorizontal, op, &v);
    bits::print("edge", std::vector<double>(v.begin(), v.end()));
  }
  TMatrix distances;
  distances.Resize(kRows, kRows);
  for (const TDistMode mode : {dmTanimoto, dmManhattan, dmEuclid, dmEuclidSqr, dmDice}) {
    m.CalcDistMat(mode, &distances);
    bits::print("distances", cells(distances));
  }
  const auto changed = [&m](const char* name, auto change) {
    fill(m);
    change();
    bits::print(name, cells(m));
  };
  changed("centred columns", [&] { m.MeanCenterColumns(nullptr); });
  changed("standardized columns", [&] { m.StandardizeColumns(nullptr, nullptr); });
  changed("standardized rows", [&] { m.StandardizeRows(nullptr, nullptr); });
  changed("normalized columns", [&] { m.QNormalizeColumns(25.0, nullptr, nullptr); });
  changed("sorted rows", [&] { m.SortRows(5, true, 0, 0, 0, 0); });
  changed("sorted columns", [&] { m.SortCols(9, false, 0, 0, 0, 0); });
  changed("differences", [&] { m.Diff(3, acrColumns); });
  TMatrix other;
  fill(other);
  fill(m);
  other.SortRows(1, true, 2, 1, kCols, kRows);
  bits::print("correlation", m.Correlate(&other));
}
