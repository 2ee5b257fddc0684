#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <thread>
#include <vector>

#include "zor/runtime/cell_memory.h"

namespace zor::detail {
namespace {

TEST(CellMemoryThreads, AreServedWithoutMixingBlocks) {
  std::vector<std::jthread> workers;
  std::atomic<int> faults{0};
  for (unsigned char mark = 1; mark <= 4; ++mark) {
    workers.emplace_back([mark, &faults] {
      for (int i = 0; i < 200; ++i) {
        const std::size_t bytes = 70000;
        auto* cells = static_cast<unsigned char*>(allocate_cells(bytes, i % 2 == 0));
        if (i % 2 == 0 && std::any_of(cells, cells + bytes, [](unsigned char b) { return b != 0; })) ++faults;
        std::memset(cells, mark, bytes);
        if (cells[0] != mark || cells[bytes - 1] != mark) ++faults;
        free_cells(cells);
      }
    });
  }
  workers.clear();
  EXPECT_EQ(faults, 0);
}

}  // namespace
}  // namespace zor::detail
