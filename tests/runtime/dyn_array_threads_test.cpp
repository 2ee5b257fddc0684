#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "zor/runtime/dyn_array.h"

namespace ZOR_runtime {
namespace {

TEST(TDynArrayThreads, HandlesMayBeCopiedAndDroppedAnywhere) {
  TDynArray<TDynArray<double>> a;
  SetLength(a, 16, 64);
  {
    std::vector<std::jthread> workers;
    for (int w = 0; w < 4; ++w) {
      workers.emplace_back([a, w] {
        for (int i = 0; i < 500; ++i) {
          TDynArray<TDynArray<double>> mine = a;
          const TDynArray<double> row = mine[(i + w) % 16];
          SetLength(mine, 3, 3);
          mine[0][0] = row[0] + i;
        }
      });
    }
    a = nullptr;  // the last handle goes on one of the workers
  }
  EXPECT_EQ(a, nullptr);
}

}  // namespace
}  // namespace ZOR_runtime
