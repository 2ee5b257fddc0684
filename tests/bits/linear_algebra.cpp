#include <vector>

#include "bits.h"
#include "zor/arrays/ZOR_openarrays.h"
#include "zor/portable_kernels.h"

namespace {

ZOR_openarrays::TDouble2DArray matrix(int columns, int rows, unsigned seed) {
  const std::vector<double> x = bits::noise(static_cast<std::size_t>(columns * rows), seed);
  ZOR_openarrays::TDouble2DArray a;
  SetLength(a, columns, rows);
  for (int i = 0; i < columns * rows; ++i) a[i / rows][i % rows] = x[static_cast<std::size_t>(i)];
  return a;
}

void print(const char* name, const ZOR_openarrays::TDouble2DArray& a) {
  std::vector<double> cells;
  for (const auto& column : a) cells.insert(cells.end(), column.begin(), column.end());
  bits::print(name, cells);
}

}  // namespace

ZOR_BITS(linear_algebra) {
  using namespace ZOR_openarrays;
  // Fused terms depend on the processor.
  zor::use_portable_kernels(true);
  TDouble2DArray a = matrix(301, 53, 1), c, l, u;
  MultiplyArrays(a, matrix(67, 301, 2), c);
  print("product", c);
  const TDouble2DArray square = matrix(97, 97, 3);
  LUdecomposition(square, l, u);
  print("lower triangle", l);
  print("upper triangle", u);
  TInt2DArray p;
  Integer swaps = 0;
  LUPdecomposition(square, l, u, p, swaps);
  print("pivoted upper triangle", u);
  c = square;
  InvertArray(c);
  print("inverse", c);
  CalcHatMatrix(matrix(7, 53, 4), c);
  print("hat matrix", c);
  bits::print("determinant", std::vector{Determinant(square)});
  zor::use_portable_kernels(false);
}
