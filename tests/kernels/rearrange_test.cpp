#include "zor/kernels/rearrange.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/kernels/runs.h"

namespace zor::kernels {
namespace {

using test::edges;
using test::kLengths;
using test::noise;
using test::on_every_level;
using test::same;

template <class T, class Make>
void check_reverse(Make make) {
  on_every_level([&] {
    for (const std::size_t n : kLengths) {
      std::vector<T> x = make(n + 2), expected = x;
      std::reverse(expected.begin() + 1, expected.end() - 1);
      reverse(std::span(x).subspan(1, n));
      EXPECT_TRUE(same(x, expected)) << n;
    }
  });
}

TEST(Rearrange, CopyReachesTheRunAndNothingBesideIt) {
  on_every_level([] {
    for (const std::size_t n : kLengths) {
      const std::vector<double> x = edges(n + 1, 7);
      std::vector<double> out(n + 2, 77.0), expected = out;
      std::copy_n(x.begin() + 1, n, expected.begin() + 1);
      copy(std::span(x).subspan(1), std::span(out).subspan(1, n));
      EXPECT_TRUE(same(out, expected)) << n;
    }
  });
}

TEST(Rearrange, ReverseTurnsTheRunAndNothingBesideIt) {
  check_reverse<double>([](std::size_t n) { return edges(n, 5); });
  check_reverse<std::int32_t>([](std::size_t n) { return noise<std::int32_t>(n, 5); });
}

TEST(Rearrange, TransposeReachesEveryCellOnceAtAllSizesAroundTilesAndBlocks) {
  on_every_level([] {
    for (const std::size_t cols : {1u, 2u, 3u, 4u, 5u, 31u, 32u, 34u, 70u}) {
      for (const std::size_t rows : {1u, 2u, 3u, 4u, 7u, 32u, 33u, 67u}) {
        const std::vector<double> a = edges(cols * rows, 6);
        std::vector<double> out(cols * rows + 1, 77.0), expected = out;
        std::vector<const double*> columns;
        std::vector<double*> lines;
        for (std::size_t c = 0; c < cols; ++c) columns.push_back(a.data() + c * rows);
        for (std::size_t r = 0; r < rows; ++r) lines.push_back(out.data() + r * cols);
        for (std::size_t c = 0; c < cols; ++c) {
          for (std::size_t r = 0; r < rows; ++r) expected[r * cols + c] = a[c * rows + r];
        }
        transpose(columns.data(), cols, lines.data(), rows);
        EXPECT_TRUE(same(out, expected)) << cols << " by " << rows;
      }
    }
  });
}

}  // namespace
}  // namespace zor::kernels
