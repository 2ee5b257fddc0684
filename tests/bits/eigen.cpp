#include <utility>
#include <vector>

#include "bits.h"
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
}
