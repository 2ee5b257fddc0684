#include "zor/kernels/lu.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "tests/kernels/matrices.h"
#include "zor/kernels/dispatch.h"
#include "zor/portable_kernels.h"

namespace zor::kernels {
namespace {

using test::Matrix;
using Exchanges = std::vector<std::size_t>;

constexpr auto kGoOn = [] { return false; };
constexpr double kInf = std::numeric_limits<double>::infinity();

/// Sizes around the widths of the recursion and of the blocks.
constexpr std::size_t kSizes[] = {1, 2, 3, 7, 8, 9, 17, 31, 64, 131};

/// Crout's loops, column by column. choose(a, j) gives the row of the pivot.
template <class Choose>
Exchanges crout(Matrix& a, Choose choose) {
  const std::size_t n = a.cols();
  Exchanges exchanges;
  for (std::size_t j = 0; j < n; ++j) {
    for (std::size_t i = 0; i < n; ++i)
      for (std::size_t k = 0; k < std::min(i, j); ++k) a(i, j) -= a(i, k) * a(k, j);
    const std::size_t best = choose(a, j);
    for (std::size_t c = 0; c < n; ++c) std::swap(a(j, c), a(best, c));
    exchanges.push_back(best);
    if (std::fabs(a(j, j)) < 1e-100) a(j, j) = 1e-100;
    for (std::size_t i = j + 1; i < n; ++i) a(i, j) /= a(j, j);
  }
  return exchanges;
}

class Scaled {
 public:
  explicit Scaled(const Matrix& a) : scale_(a.rows()) {
    for (std::size_t r = 0; r < a.rows(); ++r) {
      double largest = 0.0;
      for (std::size_t c = 0; c < a.cols(); ++c) largest = std::max(largest, std::fabs(a(r, c)));
      scale_[r] = 1.0 / largest;
    }
  }
  std::size_t operator()(const Matrix& a, std::size_t j) {
    std::size_t best = j;
    double largest = 0.0;
    for (std::size_t i = j; i < a.rows(); ++i)
      if (scale_[i] * std::fabs(a(i, j)) >= largest) largest = scale_[i] * std::fabs(a(i, j)), best = i;
    scale_[best] = scale_[j];
    return best;
  }

 private:
  std::vector<double> scale_;
};

constexpr auto kLargest = [](const Matrix& a, std::size_t j) {
  std::size_t best = j;
  for (std::size_t i = j; i < a.rows(); ++i)
    if (std::fabs(a(i, j)) > std::fabs(a(best, j))) best = i;
  return best;
};

/// Substitution of the unit vectors, each by itself.
Matrix inverse_by_loops(const Matrix& lu, const Exchanges& exchanges) {
  const std::size_t n = lu.cols();
  Matrix inverse(n, n);
  for (std::size_t j = 0; j < n; ++j) {
    double* const x = inverse.columns()[j];
    x[j] = 1.0;
    std::size_t first = n;
    for (std::size_t i = 0; i < n; ++i) {
      std::swap(x[i], x[exchanges[i]]);
      for (std::size_t k = first; k < i; ++k) x[i] -= lu(i, k) * x[k];
      if (first == n && x[i] != 0.0) first = i;
    }
    for (std::size_t i = n; i-- > 0;) {
      for (std::size_t k = i + 1; k < n; ++k) x[i] -= lu(i, k) * x[k];
      x[i] /= lu(i, i);
    }
  }
  return inverse;
}

class Lu : public testing::Test {
 protected:
  ~Lu() override {
    limit_level(Level::v4);
    use_portable_kernels(false);
  }
};

TEST_F(Lu, HasTheBitsOfCroutsLoops) {
  use_portable_kernels(true);
  const test::Kind& random = test::kinds()[0];
  for (const Level level : {Level::v2, Level::v3, Level::v4}) {
    limit_level(level);
    for (const std::size_t n : kSizes) {
      SCOPED_TRACE(n);
      const Matrix start = test::make(random, n, n);
      Exchanges exchanges(n);

      Matrix expected = start, scaled = start;
      const Exchanges scaled_exchanges = crout(expected, Scaled(start));
      EXPECT_EQ(factor_scaled(scaled.columns(), n, exchanges.data(), kGoOn), Factored::done);
      EXPECT_EQ(scaled.cells(), expected.cells());
      EXPECT_EQ(exchanges, scaled_exchanges);
      Matrix inverse(n, n);
      EXPECT_TRUE(inverse_of_factors(scaled.columns(), n, exchanges.data(), inverse.columns(), kGoOn));
      EXPECT_EQ(inverse.cells(), inverse_by_loops(scaled, exchanges).cells());

      Matrix by_largest = start, partial = start;
      const Exchanges largest_exchanges = crout(by_largest, kLargest);
      factor_partial(partial.columns(), n, exchanges.data());
      EXPECT_EQ(partial.cells(), by_largest.cells());
      EXPECT_EQ(exchanges, largest_exchanges);

      Matrix in_order = start, plain = start;
      crout(in_order, [](const Matrix&, std::size_t j) { return j; });
      EXPECT_TRUE(factor_in_place(plain.columns(), n, {1e9, 1e9}));
      EXPECT_EQ(plain.cells(), in_order.cells());
    }
  }
}

TEST_F(Lu, WithoutExchangesStopsAtACellAboveItsLimit) {
  const Matrix start = {{1, 2, 0}, {-1, 1, 0}, {0, 0, 1}};  // U = (1 2 .; . 3 .; . . 1)
  Matrix a = start, b = start, overflow = {{1e308, 1e308}, {-1e308, 1e308}};
  EXPECT_TRUE(factor_in_place(a.columns(), 3, {1.0, 3.0}));
  EXPECT_FALSE(factor_in_place(b.columns(), 3, {1.0, 2.5}));
  Matrix c = start;
  EXPECT_FALSE(factor_in_place(c.columns(), 3, {0.9, 3.0})) << "a cell of L is -1";
  EXPECT_FALSE(factor_in_place(overflow.columns(), 2, {1.0, 1.7e308}));
}

TEST_F(Lu, OfAllKindsOfMatricesLeavesASmallResidual) {
  for (const bool portable : {false, true}) {
    use_portable_kernels(portable);
    for (const test::Kind& kind : test::kinds()) {
      for (const std::size_t n : {1u, 5u, 30u, 100u}) {
        SCOPED_TRACE(testing::Message() << kind.name << ' ' << n);
        const Matrix a = test::make(kind, n, n);
        Matrix lu = a;
        Exchanges exchanges(n);
        factor_partial(lu.columns(), n, exchanges.data());
        std::vector<std::size_t> row(n);
        for (std::size_t i = 0; i < n; ++i) row[i] = i;
        for (std::size_t i = 0; i < n; ++i) std::swap(row[i], row[exchanges[i]]);
        const double residual =
            test::ratio(n, n, test::norm_of(a) + test::kLeastNorm, [&](std::size_t r, std::size_t c) {
              long double sum = -static_cast<long double>(a(row[r], c));
              for (std::size_t k = 0; k <= std::min(r, c); ++k)
                sum += (k == r ? 1.0L : static_cast<long double>(lu(r, k))) * lu(k, c);
              return sum;
            });
        EXPECT_LE(residual, 30.0);
      }
    }
  }
}

TEST_F(Lu, AsksForAnEndBeforeEachColumn) {
  static int steps;
  const auto count = [] { return ++steps > 4; };
  for (const std::size_t n : {4u, 20u}) {
    Matrix a = test::make(test::kinds()[0], n, n), inverse(n, n);
    Exchanges exchanges(n);
    steps = 0;
    EXPECT_EQ(factor_scaled(a.columns(), n, exchanges.data(), count), n == 4 ? Factored::done : Factored::aborted);
    EXPECT_EQ(steps, n == 4 ? 4 : 5);
    steps = 0;
    EXPECT_EQ(inverse_of_factors(a.columns(), 4, Exchanges{0, 1, 2, 3}.data(), inverse.columns(), count), true);
    EXPECT_EQ(steps, 4);
    EXPECT_FALSE(inverse_of_factors(a.columns(), 4, Exchanges{0, 1, 2, 3}.data(), inverse.columns(), count));
  }
}

TEST_F(Lu, TakesAnInfiniteFactorOnlyWhereTheUnitVectorHasBegun) {
  // L = (1 . .; inf 1 .; 1 1 1), U = I: the second and third unit vector never meet the infinity.
  Matrix lu = {{1, 0, 0}, {kInf, 1, 0}, {1, 1, 1}};
  Matrix inverse(3, 3);
  EXPECT_TRUE(inverse_of_factors(lu.columns(), 3, Exchanges{0, 1, 2}.data(), inverse.columns(), kGoOn));
  EXPECT_EQ(inverse(0, 1), 0.0);
  EXPECT_EQ(inverse(1, 1), 1.0);
  EXPECT_EQ(inverse(2, 1), -1.0);
  EXPECT_EQ(inverse(2, 2), 1.0);
}

}  // namespace
}  // namespace zor::kernels
