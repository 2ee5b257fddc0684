#include "zor/kernels/cholesky.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/kernels/matrices.h"
#include "zor/kernels/dispatch.h"

namespace zor::kernels {
namespace {

using test::Matrix;

/// Noise times itself turned, with a stronger diagonal.
Matrix definite(std::size_t n) {
  const Matrix x = test::make(test::kinds()[0], n, n);
  Matrix a(n, n);
  for (std::size_t c = 0; c < n; ++c)
    for (std::size_t r = 0; r < n; ++r) {
      a(r, c) = r == c ? 0.1 : 0.0;
      for (std::size_t k = 0; k < n; ++k) a(r, c) += x(r, k) * x(c, k);
    }
  return a;
}

/// The loops as they are told: each cell by itself, terms from the last column to the first.
Matrix by_loops(const Matrix& a) {
  const std::size_t n = a.cols();
  Matrix l(n, n);
  for (std::size_t i = 0; i < n; ++i)
    for (std::size_t j = i; j < n; ++j) {
      double s = a(j, i);
      for (std::size_t k = i; k-- > 0;) s -= l(i, k) * l(j, k);
      l(j, i) = i == j ? std::sqrt(s) : s / l(i, i);
    }
  return l;
}

TEST(Cholesky, HasTheBitsOfThePlainLoopsOnAllLevels) {
  for (const Level level : {Level::v2, Level::v3, Level::v4}) {
    limit_level(level);
    for (const std::size_t n : {1u, 2u, 19u, 20u, 39u, 40u, 41u, 80u, 121u}) {
      SCOPED_TRACE(n);
      Matrix a = definite(n);
      const Matrix expected = by_loops(a);
      // What lies above the diagonal is no part of it.
      for (std::size_t c = 0; c < n; ++c)
        for (std::size_t r = 0; r < c; ++r) a(r, c) = std::numeric_limits<double>::quiet_NaN();
      Matrix l(n, n);
      EXPECT_TRUE(cholesky(a.columns(), n, l.columns()));
      EXPECT_EQ(l.cells(), expected.cells());
    }
  }
  limit_level(Level::v4);
}

TEST(Cholesky, RefusesWhatIsNotPositiveDefinite) {
  Matrix l(50, 50);
  for (const std::size_t at : {0u, 30u, 45u}) {
    for (const double bad : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
      Matrix a = definite(50);
      a(at, at) = bad;
      EXPECT_FALSE(cholesky(a.columns(), 50, l.columns()));
    }
  }
}

}  // namespace
}  // namespace zor::kernels
