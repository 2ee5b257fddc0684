#include "zor/kernels/eigen_general.h"

#include "tests/kernels/matrices.h"
#include "tests/kernels/runs.h"

namespace zor::kernels {
namespace {

using namespace test;

struct Eigen {
  EigenState state;
  Matrix vectors;
  std::vector<double> values;
};
Eigen eigen_of(Matrix a) {
  const std::size_t n = a.cols();
  Eigen e{EigenState::found, Matrix(n, n), std::vector<double>(n)};
  std::vector<double> work(general_eigen_work(n));
  std::vector<std::size_t> exchanges(n);
  e.state = general_eigen(a.columns(), n, e.values.data(), e.vectors.columns(), work.data(), exchanges.data());
  return e;
}
std::vector<double> sorted_values(const Matrix& a) {
  Eigen e = eigen_of(a);
  EXPECT_EQ(e.state, EigenState::found);
  std::sort(e.values.begin(), e.values.end());
  return e.values;
}
double residual(const Matrix& a, const Eigen& e) {
  const std::size_t n = a.cols();
  return ratio(n, n, std::max(norm_of(a), kLeastNorm), [&](std::size_t r, std::size_t k) {
    long double sum = -static_cast<long double>(e.values[k]) * e.vectors(r, k);
    for (std::size_t c = 0; c < n; ++c) sum += static_cast<long double>(a(r, c)) * e.vectors(c, k);
    return sum;
  });
}
void expect_unit_vectors(const Eigen& e) {
  for (std::size_t k = 0; k < e.values.size(); ++k) {
    long double squares = 0;
    for (std::size_t r = 0; r < e.values.size(); ++r)
      squares += static_cast<long double>(e.vectors(r, k)) * e.vectors(r, k);
    EXPECT_NEAR(static_cast<double>(squares), 1.0, 1e-14);
  }
}

/// S D S^-1 for S = I - 2 x y' with x'y = 1, which is its own inverse.
Matrix similar_to(const std::vector<double>& d) {
  const std::size_t n = d.size();
  std::vector<double> x(n), y(n);
  double xy = 0;
  for (std::size_t i = 0; i < n; ++i) {
    x[i] = 1.0 + 0.3 * std::sin(static_cast<double>(i));
    y[i] = 1.0 + 0.3 * std::cos(static_cast<double>(i));
    xy += x[i] * y[i];
  }
  const auto s = [&](std::size_t r, std::size_t c) { return (r == c ? 1.0 : 0.0) - 2.0 * x[r] * y[c] / xy; };
  Matrix a(n, n);
  for (std::size_t r = 0; r < n; ++r)
    for (std::size_t c = 0; c < n; ++c)
      for (std::size_t k = 0; k < n; ++k) a(r, c) += s(r, k) * d[k] * s(k, c);
  return a;
}

TEST(GeneralEigen, FindsKnownValues) {
  // Clement, 1959: 0 on the diagonal, n - 1, ..., 1 above, 1, ..., n - 1 below has the values n - 1, n - 3, ..., 1 - n.
  constexpr std::size_t kSize = 14;
  Matrix a(kSize, kSize);
  for (std::size_t i = 1; i < kSize; ++i) {
    a(i, i - 1) = static_cast<double>(i);
    a(i - 1, i) = static_cast<double>(kSize - i);
  }
  const auto values = sorted_values(a);
  for (std::size_t k = 0; k < kSize; ++k) EXPECT_NEAR(values[k], 2.0 * static_cast<double>(k) - 13.0, 1e-10);

  // The companion matrix of (x - 1)(x - 2)(x - 3)(x - 4).
  const auto roots = sorted_values({{10, -35, 50, -24}, {1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}});
  for (std::size_t k = 0; k < 4; ++k) EXPECT_NEAR(roots[k], static_cast<double>(k + 1), 1e-12);
}

TEST(GeneralEigen, VectorsSolveTheEquation) {
  for (const std::size_t n : {1u, 2u, 3u, 4u, 7u, 12u, 30u, 61u}) {
    std::vector<double> d(n);
    for (std::size_t i = 0; i < n; ++i) d[i] = static_cast<double>(i) - 3.25;
    Matrix far_apart = similar_to(d), badly_scaled = far_apart, tiny = far_apart, huge = far_apart;
    for (std::size_t r = 0; r < n; ++r)
      for (std::size_t c = 0; c < n; ++c) {
        badly_scaled(r, c) *= std::pow(10.0, static_cast<double>(r % 7) - static_cast<double>(c % 7));
        tiny(r, c) *= 1e-300;
        huge(r, c) *= 1e300;
      }
    for (const Matrix& a : {far_apart, badly_scaled, tiny, huge}) {
      const Eigen e = eigen_of(a);
      ASSERT_EQ(e.state, EigenState::found) << n;
      EXPECT_LT(residual(a, e), 30.0) << n;
      expect_unit_vectors(e);
    }
    const auto values = sorted_values(badly_scaled);
    for (std::size_t i = 0; i < n; ++i) EXPECT_NEAR(values[i], d[i], 1e-10) << "balancing keeps the small ones";
  }
}

TEST(GeneralEigen, BalancesOnlyWhereThatDoesNotSpoilTheVectors) {
  const Matrix a = {{4e-39, -1e-64}, {3e15, -3e18}};
  const Eigen e = eigen_of(a);
  ASSERT_EQ(e.state, EigenState::found);
  EXPECT_LT(residual(a, e), 30.0);
  EXPECT_NEAR(e.vectors(1, e.values[0] > -1 ? 0 : 1) / e.vectors(0, e.values[0] > -1 ? 0 : 1), 1e-3, 1e-18);
}

TEST(GeneralEigen, TakesEveryKindOfSymmetricMatrixToo) {
  for (const Kind& kind : kinds()) {
    for (const std::size_t n : {1u, 2u, 5u, 16u, 33u}) {
      SCOPED_TRACE(kind.name + ", " + std::to_string(n));
      const Matrix a = make(kind, n, n, true);
      const Eigen e = eigen_of(a);
      ASSERT_EQ(e.state, EigenState::found);
      EXPECT_LT(residual(a, e), 60.0);
      expect_unit_vectors(e);
    }
  }
}

TEST(GeneralEigen, KeepsTheValuesOfPermutedTriangularMatricesExact) {
  // Lower triangular, with a value of multiplicity 4 and one vector: rounding would scatter it by eps^(1/4).
  Matrix a(6, 6);
  for (std::size_t r = 0; r < 6; ++r)
    for (std::size_t c = 0; c <= r; ++c) a(r, c) = r == c ? (r < 4 ? 0.3 : 0.7) : 1.0 + static_cast<double>(r + c);
  Matrix b(6, 6);
  const std::size_t order[] = {3, 0, 5, 1, 4, 2};
  for (std::size_t r = 0; r < 6; ++r)
    for (std::size_t c = 0; c < 6; ++c) b(r, c) = a(order[r], order[c]);
  for (const Matrix& m : {a, b}) {
    EXPECT_EQ(sorted_values(m), (std::vector<double>{0.3, 0.3, 0.3, 0.3, 0.7, 0.7}));
    EXPECT_LT(residual(m, eigen_of(m)), 30.0);
  }
}

TEST(GeneralEigen, EqualValuesStayRealInSpiteOfRounding) {
  for (const std::size_t n : {3u, 5u, 9u, 20u}) {
    std::vector<double> d(n, 2.0);
    d[0] = 1.0;
    d[n - 1] = 5.0;
    const Matrix a = similar_to(d);
    const Eigen e = eigen_of(a);
    ASSERT_EQ(e.state, EigenState::found) << n;
    EXPECT_LT(residual(a, e), 30.0);
  }
}

TEST(GeneralEigen, TellsOfComplexValuesAndOfCellsThatAreNotFinite) {
  EXPECT_EQ(eigen_of({{0, -1}, {1, 0}}).state, EigenState::complex_values);
  EXPECT_EQ(eigen_of({{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}).state, EigenState::complex_values) << "cube roots of 1";
  EXPECT_EQ(eigen_of({{1, 1e-6}, {-1e-6, 1}}).state, EigenState::complex_values);
  EXPECT_EQ(eigen_of(make(kinds()[0], 30, 30)).state, EigenState::complex_values);
  for (const double bad : {kNaN, kInf, -kInf}) {
    Matrix a = make(kinds()[0], 6, 6);
    a(3, 4) = bad;
    EXPECT_EQ(eigen_of(a).state, EigenState::not_finite);
  }
}

TEST(GeneralEigen, GivesTheSameBitsOnEveryLevel) {
  std::vector<double> d(37);
  for (std::size_t i = 0; i < d.size(); ++i) d[i] = std::sqrt(static_cast<double>(i));
  const Matrix a = similar_to(d);
  const Eigen e = eigen_of(a);
  on_every_level([&] {
    const Eigen other = eigen_of(a);
    EXPECT_TRUE(same(other.values, e.values));
    EXPECT_TRUE(same(other.vectors.cells(), e.vectors.cells()));
  });
}

}  // namespace
}  // namespace zor::kernels
