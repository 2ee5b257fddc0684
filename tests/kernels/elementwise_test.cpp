#include "zor/kernels/elementwise.h"

#include <gtest/gtest.h>

#include "tests/kernels/runs.h"

namespace zor::kernels {
namespace {

using test::edges;
using test::kLengths;
using test::noise;
using test::on_every_level;
using test::same;
using Int = std::int32_t;

template <class T>
std::vector<T> cells(std::size_t n, unsigned seed) {
  if constexpr (std::is_integral_v<T>) {
    return noise<T>(n, seed);
  } else {
    return edges(n, seed);
  }
}

/// Compares run(x, y, out) and in_place(x, y) with `formula` for each cell, on all levels, lengths and a shifted start.
template <class T, class Run, class InPlace, class Formula>
void check(Run run, InPlace in_place, Formula formula) {
  on_every_level([&] {
    for (const std::size_t n : kLengths) {
      for (const std::size_t start : {0u, 1u}) {
        std::vector<T> x = cells<T>(n + 1, 3), y = cells<T>(n + 1, 4), expected(n), out(n + 2, T{77});
        for (std::size_t i = 0; i < n; ++i) expected[i] = formula(x[i + start], y[i + start]);
        const auto xs = std::span(x).subspan(start, n), ys = std::span(y).subspan(start, n);
        run(xs, ys, std::span(out).subspan(1, n));
        EXPECT_TRUE(same(std::vector<T>(out.begin() + 1, out.end() - 1), expected)) << n;
        EXPECT_EQ(out.front(), T{77});
        EXPECT_EQ(out.back(), T{77});
        in_place(xs, ys);
        EXPECT_TRUE(same(std::vector<T>(xs.begin(), xs.end()), expected)) << n;
      }
    }
  });
}

#define ZOR_CHECK_BINARY(T, name, formula)                                                        \
  check<T>([](auto x, auto y, auto out) { name(x, y, out); }, [](auto x, auto y) { name(x, y); }, \
           [](T a, T b) { return formula; })
#define ZOR_CHECK_UNARY(T, call_out, call_in, formula)                              \
  check<T>([](auto x, auto, auto out) { call_out; }, [](auto x, auto) { call_in; }, \
           []([[maybe_unused]] T a, T) { return formula; })

Int wrap(std::uint64_t x) { return static_cast<Int>(static_cast<std::uint32_t>(x)); }
std::uint64_t wide(Int x) { return static_cast<std::uint64_t>(static_cast<std::int64_t>(x)); }

TEST(Elementwise, DoublesHaveTheBitsOfThePlainLoop) {
  ZOR_CHECK_BINARY(double, add, a + b);
  ZOR_CHECK_BINARY(double, subtract, a - b);
  ZOR_CHECK_BINARY(double, multiply, a* b);
  ZOR_CHECK_UNARY(double, scale(x, 1.7, out), scale(x, 1.7), a * 1.7);
  ZOR_CHECK_UNARY(double, shift(x, 0.3, out), shift(x, 0.3), a + 0.3);
  ZOR_CHECK_UNARY(double, absolute(x, out), absolute(x), std::abs(a));
  ZOR_CHECK_UNARY(double, shift_scale(x, 0.3, 3.0, out), shift_scale(x, 0.3, 3.0), (a - 0.3) / 3.0);
}

TEST(Elementwise, IntegersWrapAround) {
  ZOR_CHECK_BINARY(Int, add, wrap(wide(a) + wide(b)));
  ZOR_CHECK_BINARY(Int, subtract, wrap(wide(a) - wide(b)));
  ZOR_CHECK_BINARY(Int, multiply, wrap(wide(a) * wide(b)));
  ZOR_CHECK_UNARY(Int, scale(x, -99'999, out), scale(x, -99'999), wrap(wide(a) * wide(-99'999)));
  ZOR_CHECK_UNARY(Int, shift(x, 2'000'000'000, out), shift(x, 2'000'000'000), wrap(wide(a) + 2'000'000'000));
  ZOR_CHECK_UNARY(Int, absolute(x, out), absolute(x), wrap(a < 0 ? -wide(a) : wide(a)));
}

TEST(Elementwise, TheSmallestIntegerIsItsOwnMagnitude) {
  std::vector<Int> x(9, std::numeric_limits<Int>::min());
  absolute(x);
  EXPECT_EQ(x, std::vector<Int>(9, std::numeric_limits<Int>::min()));
}

TEST(Elementwise, AxpyRoundsProductAndSumApart) {
  // a x = 1 + 2^-29 + 2^-60 rounds to 1 + 2^-29; fused, the sum with -(1 + 2^-29) would be 2^-60.
  const double a = 1.0 + 0x1p-30;
  on_every_level([&] {
    for (const std::size_t n : kLengths) {
      const std::vector<double> x(n, a);
      std::vector<double> y(n, -(1.0 + 0x1p-29));
      axpy(a, x, y);
      EXPECT_EQ(y, std::vector<double>(n, 0.0));
    }
  });
}

TEST(Elementwise, RoundingToIntegersTakesTiesToEvenAndStopsAtTheLimits) {
  const double inf = std::numeric_limits<double>::infinity(), nan = std::numeric_limits<double>::quiet_NaN();
  constexpr Int low = std::numeric_limits<Int>::min(), high = std::numeric_limits<Int>::max();
  const std::vector<double> x = {2.5,   -2.5,         0.5,           -0.5,          1.5,  0.49999999999999994,
                                 -1.5,  2147483646.5, 2147483647.4,  -2147483648.5, 3e9,  -3e9,
                                 inf,   -inf,         -2147483647.5, nan,           -nan, -0.0,
                                 1e-310};
  const std::vector<Int> expected = {2,    -2,  0,    0,   2,   0, -2, 2147483646, high, low,
                                     high, low, high, low, low, 0, 0,  0,          0};
  on_every_level([&] {
    for (const std::size_t n : {std::size_t{1}, std::size_t{7}, x.size()}) {
      std::vector<Int> out(n + 1, 77);
      round_to_integers(std::span(x).first(n), std::span(out).first(n));
      EXPECT_TRUE(std::equal(out.begin(), out.end() - 1, expected.begin())) << n;
      EXPECT_EQ(out.back(), 77);
    }
  });
}

TEST(Elementwise, FillReachesEveryCellAndNoOther) {
  on_every_level([] {
    for (const std::size_t n : kLengths) {
      std::vector<double> x(n + 2, 1.0);
      std::vector<Int> k(n + 2, 1);
      fill(std::span(x).subspan(1, n), -0.0);
      fill(std::span(k).subspan(1, n), -7);
      std::vector<double> expected(n + 2, -0.0);
      std::vector<Int> expected_k(n + 2, -7);
      expected.front() = expected.back() = 1.0;
      expected_k.front() = expected_k.back() = 1;
      EXPECT_TRUE(same(x, expected));
      EXPECT_EQ(k, expected_k);
    }
  });
}

TEST(Elementwise, FillSerialAddsRepeatedly) {
  std::vector<double> x(11);
  fill_serial(x, 0.0, 0.1);
  EXPECT_EQ(x[10], 0.99999999999999989);
  std::vector<Int> k(3);
  fill_serial(k, 2'147'483'646, 1);
  EXPECT_EQ(k, (std::vector<Int>{2'147'483'646, 2'147'483'647, -2'147'483'647 - 1}));
}

}  // namespace
}  // namespace zor::kernels
