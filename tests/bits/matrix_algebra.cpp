#include <algorithm>

#include "bits.h"
#include "zor/matrices/ZOR_matrix.h"
#include "zor/portable_kernels.h"

using namespace ZOR_matrix;

namespace {

void fill(TMatrix& m, Integer columns, Integer rows, unsigned seed) {
  m.Resize(columns, rows);
  const auto n = static_cast<std::size_t>(rows);
  const std::vector<double> x = bits::noise(static_cast<std::size_t>(columns) * n, seed);
  auto edit = m.Edit();
  for (Integer c = 1; c <= columns; ++c)
    std::copy_n(&x[static_cast<std::size_t>(c - 1) * n], n, edit.Column(c).begin());
}

void print(const char* name, const TMatrix& m) {
  std::vector<double> all;
  for (Integer c = 1; c <= m.NrOfColumns(); ++c) all.insert(all.end(), m.Column(c).begin(), m.Column(c).end());
  bits::print(name, all);
}

}  // namespace

ZOR_BITS(matrix_algebra) {
  // Fused terms depend on the processor.
  zor::use_portable_kernels(true);
  TMatrix a, b, c;
  fill(a, 61, 83, 1), fill(b, 61, 29, 2);
  a.MultiplyTransposed(&b, &c);
  print("times turned", c);
  a.TransposeAndMultiply(&a, &c);
  print("turned times", c);
  a.Square(&b, 60.0, 2);
  print("Gram matrix", b);
  b.CholeskyDecomp(&c);
  print("Cholesky", c);
  fill(a, 47, 47, 3);
  a.Balance(1.001);
  print("balanced", a);
  bits::print("norms", std::vector{a.Norm(ntColwise), a.Norm(ntRowwise), a.Norm(ntSpectral), a.Norm(ntFrobenius)});
  bits::print("determinant", std::vector{a.Determinant()});
  a.Invert();
  print("inverse", a);
  TVector x, y;
  x.SetNrOfElem(47);
  for (Integer i = 1; i <= 47; ++i) x.SetVal(i, 1.0 / i);
  a.Multiply(&x, &y);
  a.TransposeAndMultiply(&y, &x);
  bits::print("vector", std::vector<double>(x.Cells().begin(), x.Cells().end()));
  zor::use_portable_kernels(false);
}
