#include <utility>
#include <vector>

#include "bits.h"
#include "zor/kernels/eigen_general.h"
#include "zor/kernels/eigen_symmetric.h"
#include "zor/kernels/singular_values.h"

namespace {

/// Columns of cells of one matrix.
struct Columns {
  std::vector<double> cells;
  std::vector<double*> at;
  Columns(std::size_t rows, std::size_t cols, std::vector<double> fill) : cells(std::move(fill)) {
    cells.resize(rows * cols);
    for (std::size_t c = 0; c < cols; ++c) at.push_back(cells.data() + c * rows);
  }
};

}  // namespace

ZOR_BITS(eigen) {
  using namespace zor::kernels;
  // Sizes that leave a remainder in every loop.
  for (const std::size_t m : {67u, 31u}) {
    constexpr std::size_t kCols = 29;
    Columns u(m, kCols, bits::noise(m * kCols, 7)), v(kCols, kCols, {}), square(kCols, kCols, {});
    std::vector<double> values(kCols), work(singular_value_decomposition_work(kCols));
    singular_value_decomposition(u.at.data(), m, kCols, values.data(), v.at.data(), square.at.data(), work.data());
    bits::print("singular values", values);
    bits::print("left vectors", u.cells);
    bits::print("right vectors", v.cells);
  }

  constexpr std::size_t kSize = 43;
  const std::vector<double> x = bits::noise(kSize * kSize, 8);
  Columns symmetric(kSize, kSize, {}), real(kSize, kSize, {}), vectors(kSize, kSize, {});
  for (std::size_t r = 0; r < kSize; ++r)
    for (std::size_t c = 0; c <= r; ++c) {
      symmetric.at[c][r] = symmetric.at[r][c] = x[r * kSize + c];
      // Rows of a symmetric matrix times positive numbers: not symmetric, with real values.
      real.at[c][r] = x[r * kSize + c] * static_cast<double>(r + 1);
      real.at[r][c] = x[r * kSize + c] * static_cast<double>(c + 1);
    }
  std::vector<double> values(kSize), work(symmetric_eigen_work(kSize));
  symmetric_eigen(symmetric.at.data(), kSize, values.data(), work.data());
  bits::print("symmetric eigenvalues", values);
  bits::print("symmetric eigenvectors", symmetric.cells);
  std::vector<std::size_t> exchanges(kSize);
  general_eigen(real.at.data(), kSize, values.data(), vectors.at.data(), work.data(), exchanges.data());
  bits::print("eigenvalues", values);
  bits::print("eigenvectors", vectors.cells);
}
