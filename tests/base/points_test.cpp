#include "zor/base/points.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace {

template <class P>
std::string printed(const P& point) {
  std::ostringstream out;
  out << point;
  return out.str();
}

// Outside ZOR_zorbase, so that only the type of the argument can lead to the operator.
TEST(Points, PrintAsAPairOfCoordinates) {
  EXPECT_EQ(printed(ZOR_zorbase::TPointDouble{1.5, -2.0}), "(1.5, -2)");
  EXPECT_EQ(printed(ZOR_zorbase::TPointDouble{1.0 / 3.0, std::numeric_limits<double>::quiet_NaN()}), "(0.333333, NaN)");
  EXPECT_EQ(printed(ZOR_zorbase::TPoint{-7, 2147483647}), "(-7, 2147483647)");
}

TEST(Points, PrintWhateverTheStreamIsSetTo) {
  std::ostringstream out;
  out.precision(2);
  out << std::hex << ZOR_zorbase::TPoint{255, 16} << ZOR_zorbase::TPointDouble{1234.5, 0.0};
  EXPECT_EQ(out.str(), "(255, 16)(1234.5, 0)");
}

}  // namespace
