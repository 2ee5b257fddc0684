#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <thread>
#include <vector>

#include "zor/runtime/random.h"

namespace ZOR_runtime {
namespace {

TEST(GeneratorThreads, ShareOneSequenceWithoutLoss) {
  RandSeed = 99;
  std::array<std::vector<double>, 4> drawn;
  std::vector<std::thread> threads;
  for (auto& mine : drawn)
    threads.emplace_back([&mine] { std::generate_n(std::back_inserter(mine), 1000, [] { return Random(); }); });
  for (auto& t : threads) t.join();
  std::vector<double> all, expected(4000);
  for (const auto& mine : drawn) all.insert(all.end(), mine.begin(), mine.end());
  RandSeed = 99;
  zor::detail::fill_random(expected, 0.0, 1.0);
  std::sort(all.begin(), all.end());
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(all, expected);
}

}  // namespace
}  // namespace ZOR_runtime
