#include "zor/scalar/ZOR_math1.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace ZOR_math1;

TEST(Math1, ExampleOfTheChiefHeaderRuns) {
  std::ostringstream out;
  Double first, step;
  Word minor;
  CalcScalePars(5, 2.5, 7.5, first, step, minor);
  out << first << ' ' << step << ' ' << minor << '\n';
  TDoubleArray heights = {1.71, 1.83, 1.66};
  SortArray(heights, true);
  out << heights[0] << ' ' << Round125(heights[2]) << '\n';
  for (const Integer p : FindPrimeFactors(12)) out << p << ' ';
  EXPECT_EQ(out.str(), "3 1 5\n1.66 2\n2 2 3 ");
}

}  // namespace
