#include "zor/kernels/singular_values.h"

#include <limits>

#include "tests/kernels/matrices.h"
#include "tests/kernels/runs.h"

namespace zor::kernels {
namespace {

using namespace test;

struct Decomposition {
  bool found;
  Matrix u, v;
  std::vector<double> values;
};
Decomposition decompose(const Matrix& a) {
  const std::size_t n = a.cols();
  Decomposition d{false, a, Matrix(n, n), std::vector<double>(n)};
  Matrix square(n, n);
  std::vector<double> work(singular_value_decomposition_work(n));
  d.found = singular_value_decomposition(d.u.columns(), a.rows(), n, d.values.data(), d.v.columns(), square.columns(),
                                         work.data());
  return d;
}

std::vector<double> sorted(std::vector<double> values) {
  std::sort(values.rbegin(), values.rend());
  return values;
}
std::vector<double> values_of(Matrix a) {
  std::vector<double> values(a.cols()), work(singular_values_work(a.cols()));
  EXPECT_TRUE(singular_values(a.columns(), a.rows(), a.cols(), values.data(), work.data()));
  return sorted(values);
}

TEST(SingularValues, AreThoseOfThePublishedExamples) {
  // Golub and Reinsch, 1970, examples 1 and 2.
  const Matrix a = {{22, 10, 2, 3, 7}, {14, 7, 10, 0, 8}, {-1, 13, -1, -11, 3}, {-3, -2, 13, -2, 4},
                    {9, 8, 1, -2, 4},  {9, 1, -7, 5, -1}, {2, -6, 6, 5, 1},     {4, 5, 0, -2, 2}};
  const double wanted[] = {std::sqrt(1248.0), 20.0, std::sqrt(384.0), 0.0, 0.0};
  const auto values = values_of(a);
  for (std::size_t k = 0; k < 5; ++k) EXPECT_NEAR(values[k], wanted[k], 1e-13);

  Matrix b(21, 20);
  for (std::size_t i = 0; i < 20; ++i)
    for (std::size_t j = i; j < 21; ++j) b(j, i) = j == i ? 20.0 - static_cast<double>(i) : -1.0;
  const auto roots = values_of(b);
  for (std::size_t k = 0; k < 20; ++k) {
    const double i = 20.0 - static_cast<double>(k);
    EXPECT_NEAR(roots[k], std::sqrt(i * (i + 1)), 1e-13);
  }
}

TEST(SingularValues, WithVectorsMakeUpTheMatrixAgain) {
  for (const Kind& kind : kinds()) {
    for (const auto& [m, n] : std::vector<std::pair<std::size_t, std::size_t>>{
             {1, 1}, {2, 1}, {2, 2}, {9, 1}, {7, 6}, {8, 8}, {13, 5}, {33, 31}, {70, 18}, {40, 40}}) {
      SCOPED_TRACE(kind.name + ", " + std::to_string(m) + " x " + std::to_string(n));
      const Matrix a = make(kind, m, n);
      const Decomposition d = decompose(a);
      ASSERT_TRUE(d.found);
      const auto rest = [&](std::size_t r, std::size_t c) {
        long double sum = -a(r, c);
        for (std::size_t k = 0; k < d.values.size(); ++k)
          sum += static_cast<long double>(d.u(r, k)) * d.values[k] * d.v(c, k);
        return sum;
      };
      EXPECT_LT(ratio(m, n, std::max(norm_of(a), kLeastNorm), rest), 30.0);
      EXPECT_LT(orthogonality_ratio(d.u), 30.0);
      EXPECT_LT(orthogonality_ratio(d.v), 30.0);
      const auto alone = values_of(a), together = sorted(d.values);
      for (std::size_t k = 0; k < n; ++k) {
        EXPECT_GE(together[k], 0.0);
        EXPECT_NEAR(alone[k], together[k], 1e-14 * static_cast<double>(n) * together[0]);
      }
    }
  }
}

TEST(SingularValues, OfADiagonalAreItsMagnitudes) {
  Matrix a(4, 4);
  const double diagonal[] = {3.0, -1e-200, 0.0, -5.0};
  for (std::size_t i = 0; i < 4; ++i) a(i, i) = diagonal[i];
  EXPECT_EQ(values_of(a), (std::vector<double>{5.0, 3.0, 1e-200, 0.0}));
}

TEST(SingularValues, AreRefusedForCellsThatAreNotFinite) {
  for (const double bad : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    for (std::size_t at = 0; at < 40; ++at) {
      Matrix a = make(kinds()[0], 8, 5);
      a.columns()[at / 8][at % 8] = -bad;
      const Decomposition d = decompose(a);
      EXPECT_FALSE(d.found);
      EXPECT_TRUE(std::isnan(d.values[0]) && std::isnan(d.values[4]));
      EXPECT_TRUE(same(d.u.cells(), a.cells()));
    }
  }
}

TEST(SingularValues, AreTheSameBitsOnEveryLevel) {
  const Matrix a = make(kinds()[0], 53, 21);
  const Decomposition d = decompose(a);
  on_every_level([&] {
    const Decomposition other = decompose(a);
    EXPECT_TRUE(same(other.values, d.values));
    EXPECT_TRUE(same(other.u.cells(), d.u.cells()));
    EXPECT_TRUE(same(other.v.cells(), d.v.cells()));
  });
}

}  // namespace
}  // namespace zor::kernels
