#include "zor/kernels/product.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "tests/kernels/matrices.h"
#include "zor/kernels/dispatch.h"
#include "zor/portable_kernels.h"

namespace zor::kernels {
namespace {

using test::Matrix;

Matrix noise(std::size_t rows, std::size_t columns, std::uint64_t seed) {
  std::mt19937_64 random(seed);
  std::uniform_real_distribution<double> cell(-1.0, 1.0);
  Matrix m(rows, columns);
  for (std::size_t c = 0; c < columns; ++c)
    for (std::size_t r = 0; r < rows; ++r) m(r, c) = cell(random);
  return m;
}

Matrix turned(const Matrix& m) {
  Matrix t(m.cols(), m.rows());
  for (std::size_t c = 0; c < m.cols(); ++c)
    for (std::size_t r = 0; r < m.rows(); ++r) t(c, r) = m(r, c);
  return t;
}

/// c + sign * A B with one chain for each cell, in the order of the terms.
Matrix chain(bool fused, const Matrix& a, const Matrix& b, Matrix c, double sign) {
  const auto add = [fused](double x, double y, double sum) {
    if (fused) return std::fma(x, y, sum);
    const double product = x * y;
    return sum + product;
  };
  for (std::size_t j = 0; j < b.cols(); ++j)
    for (std::size_t i = 0; i < a.rows(); ++i)
      for (std::size_t k = 0; k < a.cols(); ++k) c(i, j) = add(sign * a(i, k), b(k, j), c(i, j));
  return c;
}

class Product : public testing::Test {
 protected:
  ~Product() override {
    limit_level(Level::v4);
    use_portable_kernels(false);
  }
  /// Runs a check on each level, with and without fused additions.
  template <class Check>
  static void on_all_levels(Check check) {
    for (const Level level : {Level::v2, Level::v3, Level::v4}) {
      limit_level(level);
      if (active_level() != level) continue;
      for (const bool portable : {false, true}) {
        use_portable_kernels(portable);
        SCOPED_TRACE(testing::Message() << "level v" << static_cast<int>(level) + 2 << (portable ? ", portable" : ""));
        check(!portable && level != Level::v2);
      }
    }
  }
};

/// Every border of the tiles and blocks, and empty sides.
struct Size {
  std::size_t rows, columns, depth;
};
constexpr Size kSizes[] = {{0, 3, 2},   {3, 0, 2},    {3, 2, 0},     {1, 1, 1},      {2, 3, 5},
                           {12, 4, 8},  {13, 5, 257}, {11, 3, 256},  {24, 8, 3},     {25, 9, 300},
                           {97, 33, 7}, {96, 64, 16}, {5, 1030, 12}, {200, 101, 513}};

TEST_F(Product, AddsTheTermsOfEachCellInOrder) {
  on_all_levels([](bool fused) {
    for (const auto& [rows, columns, depth] : kSizes) {
      SCOPED_TRACE(testing::Message() << rows << " x " << columns << ", depth " << depth);
      Matrix a = noise(rows, depth, 1), b = noise(depth, columns, 2), a_turned = turned(a), b_turned = turned(b);
      const Matrix expected = chain(fused, a, b, Matrix(rows, columns), 1.0);
      for (const Form form_a : {Form::plain, Form::transposed}) {
        for (const Form form_b : {Form::plain, Form::transposed}) {
          Matrix c = noise(rows, columns, 3);
          multiply((form_a == Form::plain ? a : a_turned).columns(), form_a,
                   (form_b == Form::plain ? b : b_turned).columns(), form_b, c.columns(), rows, columns, depth);
          EXPECT_EQ(c.cells(), expected.cells()) << static_cast<int>(form_a) << static_cast<int>(form_b);
        }
      }
      Matrix c = noise(rows, columns, 4);
      const Matrix rest = chain(fused, a, b, c, -1.0);
      subtract_product({a.columns(), 0}, {b.columns(), 0}, {c.columns(), 0}, rows, columns, depth);
      EXPECT_EQ(c.cells(), rest.cells());
    }
  });
}

TEST_F(Product, GivesTheUpperTriangleOfAGramMatrix) {
  on_all_levels([](bool) {
    constexpr std::size_t kRows = 300;
    for (const std::size_t columns : {1u, 7u, 40u, 131u}) {
      Matrix a = noise(kRows, columns, 5), whole(columns, columns);
      multiply(a.columns(), Form::transposed, a.columns(), Form::plain, whole.columns(), columns, columns, kRows);
      for (const std::size_t first : {std::size_t{0}, columns / 3}) {
        const std::size_t last = first + (columns - first + 1) / 2;
        Matrix c(last - first, columns - first);
        gram(a.columns(), kRows, columns, first, last, c.columns());
        for (std::size_t j = first; j < columns; ++j)
          for (std::size_t i = first; i < last && i <= j; ++i)
            ASSERT_EQ(c(i - first, j - first), whole(i, j)) << i << ' ' << j;
      }
    }
  });
}

}  // namespace
}  // namespace zor::kernels
