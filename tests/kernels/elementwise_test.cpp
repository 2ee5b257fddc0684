#include "zor/kernels/elementwise.h"

#include <gtest/gtest.h>

#include <vector>

namespace zor::kernels {
namespace {

TEST(Elementwise, FillSerialAddsRepeatedly) {
  std::vector<double> x(11);
  fill_serial(x, 0.0, 0.1);
  EXPECT_EQ(x[10], 0.1 + 0.1 + 0.1 + 0.1 + 0.1 + 0.1 + 0.1 + 0.1 + 0.1 + 0.1);
  EXPECT_NE(x[10], 1.0);
}

}  // namespace
}  // namespace zor::kernels
