#include "zor/kernels/extremes.h"

#include <gtest/gtest.h>

#include "tests/kernels/runs.h"

namespace zor::kernels {
namespace {

using test::kLengths;
using test::noise;
using test::on_every_level;

template <class T>
void expect_plain_loop(const std::vector<T>& x, T low, T high) {
  Extremes<T> plain{low, high}, ours{low, high}, halves{low, high};
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (x[i] < plain.minimum) plain.minimum = x[i], plain.min_index = i;
    if (x[i] > plain.maximum) plain.maximum = x[i], plain.max_index = i;
  }
  const std::span<const T> all = x;
  min_max(all, ours);
  min_max(all.first(x.size() / 2), halves);
  min_max(all.subspan(x.size() / 2), halves, x.size() / 2);
  for (const auto& e : {ours, halves}) {
    EXPECT_EQ(std::memcmp(&e.minimum, &plain.minimum, sizeof(T)), 0) << x.size();
    EXPECT_EQ(std::memcmp(&e.maximum, &plain.maximum, sizeof(T)), 0) << x.size();
    EXPECT_EQ(e.min_index, plain.min_index) << x.size();
    EXPECT_EQ(e.max_index, plain.max_index) << x.size();
  }
}

TEST(Extremes, AreThoseOfThePlainLoop) {
  on_every_level([] {
    for (const std::size_t n : kLengths) {
      expect_plain_loop(noise<double>(n), 1.7e308, -1.7e308);
      expect_plain_loop(test::edges(n), 1.7e308, -1.7e308);
      expect_plain_loop(noise<float>(n), 3e38f, -3e38f);
      expect_plain_loop(noise<std::int32_t>(n), 2'147'483'647, -2'147'483'647 - 1);
      std::vector<double> few = noise<double>(n);  // many equal extremes, zeros of both signs
      for (double& v : few) v = std::round(v);
      expect_plain_loop(few, 1.7e308, -1.7e308);
    }
  });
}

TEST(Extremes, TheFirstOfEqualsKeepsItsIndex) {
  Extremes<double> e{1.7e308, -1.7e308};
  min_max(std::vector<double>{2, 1, 1, 2}, e);
  EXPECT_EQ(e.min_index, 1u);
  EXPECT_EQ(e.max_index, 0u);
}

TEST(Extremes, StartValuesAreNotPassedByEqualCellsNorByNaN) {
  on_every_level([] {
    Extremes<double> e{0.0, 0.0};
    std::vector<double> x(100, test::kNaN);
    x[50] = -0.0;
    min_max(x, e);
    EXPECT_EQ(e.min_index, kNone);
    EXPECT_EQ(e.max_index, kNone);
    EXPECT_FALSE(std::signbit(e.minimum));
  });
}

}  // namespace
}  // namespace zor::kernels
