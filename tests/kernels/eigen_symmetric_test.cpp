#include "zor/kernels/eigen_symmetric.h"

#include <limits>
#include <numbers>

#include "tests/kernels/matrices.h"
#include "tests/kernels/runs.h"

namespace zor::kernels {
namespace {

using namespace test;

struct Eigen {
  bool found;
  Matrix vectors;
  std::vector<double> values;
};
Eigen eigen_of(const Matrix& a) {
  Eigen e{false, a, std::vector<double>(a.cols())};
  std::vector<double> work(symmetric_eigen_work(a.cols()));
  e.found = symmetric_eigen(e.vectors.columns(), a.cols(), e.values.data(), work.data());
  return e;
}
std::vector<double> sorted_values(const Matrix& a) {
  Eigen e = eigen_of(a);
  EXPECT_TRUE(e.found);
  std::sort(e.values.begin(), e.values.end());
  return e.values;
}

TEST(SymmetricEigen, GivesThePublishedValues) {
  // Rosser, 1951: one pair of equal values, one of nearly equal ones, one of opposite ones, and zero.
  const Matrix rosser = {{611, 196, -192, 407, -8, -52, -49, 29}, {196, 899, 113, -192, -71, -43, -8, -44},
                         {-192, 113, 899, 196, 61, 49, 8, 52},    {407, -192, 196, 611, 8, 44, 59, -23},
                         {-8, -71, 61, 8, 411, -599, 208, 208},   {-52, -43, 49, 44, -599, 411, 208, 208},
                         {-49, -8, 8, 59, 208, 208, 99, -911},    {29, -44, 52, -23, 208, 208, -911, 99}};
  const double root = 10 * std::sqrt(10405.0), pair = 100 * std::sqrt(26.0);
  const double wanted[] = {-root, 0, 510 - pair, 1000, 1000, 510 + pair, 1020, root};
  const auto values = sorted_values(rosser);
  for (std::size_t k = 0; k < 8; ++k) EXPECT_NEAR(values[k], wanted[k], 1e-11);

  // Wilkinson, The algebraic eigenvalue problem, 1965, p. 309: the largest two agree to 14 digits.
  Matrix w(21, 21);
  for (std::size_t i = 0; i < 21; ++i) {
    w(i, i) = std::abs(10.0 - static_cast<double>(i));
    if (i != 0) w(i, i - 1) = w(i - 1, i) = 1.0;
  }
  const auto near = sorted_values(w);
  EXPECT_NEAR(near[20], 10.746194182903393, 1e-13);
  EXPECT_NEAR(near[19], 10.746194182903322, 1e-13);
  EXPECT_NEAR(near[0], -1.125441522119984, 1e-13);

  // Second differences: 2 - 2 cos(k pi / (n + 1)).
  Matrix d(50, 50);
  for (std::size_t i = 0; i < 50; ++i) {
    d(i, i) = 2.0;
    if (i != 0) d(i, i - 1) = d(i - 1, i) = -1.0;
  }
  const auto cosines = sorted_values(d);
  for (std::size_t k = 0; k < 50; ++k)
    EXPECT_NEAR(cosines[k], 2 - 2 * std::cos(static_cast<double>(k + 1) * std::numbers::pi / 51), 1e-14);
}

TEST(SymmetricEigen, VectorsAreOrthogonalAndSolveTheEquation) {
  for (const Kind& kind : kinds()) {
    for (const std::size_t n : {1u, 2u, 3u, 5u, 8u, 17u, 40u, 71u}) {
      SCOPED_TRACE(kind.name + ", " + std::to_string(n));
      const Matrix a = make(kind, n, n, true);
      const Eigen e = eigen_of(a);
      ASSERT_TRUE(e.found);
      const auto rest = [&](std::size_t r, std::size_t k) {
        long double sum = -static_cast<long double>(e.values[k]) * e.vectors(r, k);
        for (std::size_t c = 0; c < n; ++c) sum += static_cast<long double>(a(r, c)) * e.vectors(c, k);
        return sum;
      };
      EXPECT_LT(ratio(n, n, std::max(norm_of(a), kLeastNorm), rest), 30.0);
      EXPECT_LT(orthogonality_ratio(e.vectors), 30.0);
    }
  }
}

TEST(SymmetricEigen, RefusesCellsThatAreNotFinite) {
  for (const double bad : {kNaN, kInf}) {
    Matrix a = make(kinds()[0], 6, 6, true);
    a(4, 2) = a(2, 4) = bad;
    const Eigen e = eigen_of(a);
    EXPECT_FALSE(e.found);
    EXPECT_TRUE(std::isnan(e.values[0]) && std::isnan(e.values[5]));
    EXPECT_TRUE(same(e.vectors.cells(), a.cells()));
  }
}

TEST(SymmetricEigen, GivesTheSameBitsOnEveryLevel) {
  const Matrix a = make(kinds()[0], 43, 43, true);
  const Eigen e = eigen_of(a);
  on_every_level([&] {
    const Eigen other = eigen_of(a);
    EXPECT_TRUE(same(other.values, e.values));
    EXPECT_TRUE(same(other.vectors.cells(), e.vectors.cells()));
  });
}

}  // namespace
}  // namespace zor::kernels
