#include "zor/kernels/distances.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace zor::kernels {
namespace {

// Against the plain loop, for all sizes around the tiles and shifted starts; cells beside the block stay.
TEST(Euclidean, HasTheBitsOfThePlainLoopAtEverySize) {
  constexpr std::size_t n = 60, stride = 40;
  std::vector<std::vector<double>> features(3, std::vector<double>(n));
  std::vector<const double*> columns;
  double x = 0.3;
  for (auto& feature : features) {
    for (double& cell : feature) cell = x = 3.9 * x * (1.0 - x);
    columns.push_back(feature.data());
  }
  for (const bool root : {false, true}) {
    for (std::size_t rows = 0; rows <= 9; ++rows) {
      for (std::size_t cols = 0; cols <= 37; ++cols) {
        std::vector<double> out(10 * stride, -1.0);
        euclidean(columns, 5, rows, 21, cols, root, out.data(), stride);
        for (std::size_t i = 0; i < 10; ++i) {
          for (std::size_t j = 0; j < stride; ++j) {
            double sum = 0.0;
            const bool inside = i < rows && j < cols;
            for (const auto& feature : features) {
              const double d = inside ? feature[5 + i] - feature[21 + j] : 0.0;
              sum += d * d;  // std::pow(d, 2) may differ in its last bit
            }
            const double expected = inside ? (root ? std::sqrt(sum) : sum) : -1.0;
            ASSERT_EQ(out[i * stride + j], expected) << rows << ' ' << cols << ' ' << i << ' ' << j;
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace zor::kernels
