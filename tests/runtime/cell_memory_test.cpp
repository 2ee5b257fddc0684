#include "zor/runtime/cell_memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <vector>

#include "zor/runtime/exception.h"

namespace zor::detail {
namespace {

using ZOR_runtime::EOutOfMemory;

bool all_zero(const void* memory, std::size_t bytes) {
  const auto* p = static_cast<const unsigned char*>(memory);
  for (std::size_t i = 0; i < bytes; ++i) {
    if (p[i] != 0) return false;
  }
  return true;
}

TEST(CellMemory, IsAlignedAndZeroedForEverySize) {
  for (const std::size_t bytes : std::initializer_list<std::size_t>{1, 63, 64, 65, 4096, 65535, 65536, 1 << 20}) {
    for (int again = 0; again < 3; ++again) {  // the later ones may get back what was written
      void* cells = allocate_cells(bytes, true);
      EXPECT_EQ(reinterpret_cast<std::uintptr_t>(cells) % kCellAlignment, 0u);
      EXPECT_TRUE(all_zero(cells, bytes)) << bytes;
      std::memset(cells, 0xAB, bytes);
      free_cells(cells);
    }
  }
  free_cells(nullptr);
}

TEST(CellMemory, SpareBlockServesSmallerRequestsClean) {
  void* large = allocate_cells(200000, false);
  std::memset(large, 0xCD, 200000);
  free_cells(large);
  void* smaller = allocate_cells(150000, true);
  EXPECT_TRUE(all_zero(smaller, 150000));
  free_cells(smaller);
  void* larger = allocate_cells(200000, true);
  EXPECT_TRUE(all_zero(larger, 200000));
  free_cells(larger);
}

TEST(CellMemory, ProductsAndSumsBeyondTheAddressSpaceRaise) {
  EXPECT_EQ(checked_bytes(0, 8), 0u);
  EXPECT_EQ(checked_bytes(PTRDIFF_MAX / 8, 8), std::size_t{PTRDIFF_MAX} / 8 * 8);
  EXPECT_THROW(checked_bytes(std::size_t{PTRDIFF_MAX} / 8 + 1, 8), EOutOfMemory);
  EXPECT_THROW(checked_bytes(SIZE_MAX, SIZE_MAX), EOutOfMemory);
  EXPECT_THROW(checked_sum(PTRDIFF_MAX, 1), EOutOfMemory);
  EXPECT_THROW(checked_sum(SIZE_MAX, 1), EOutOfMemory);
  EXPECT_THROW(allocate_cells(PTRDIFF_MAX, false), EOutOfMemory);
}

TEST(AllocationLimits, FailTheCallThatTheyName) {
  const AllocationLimitScope limit({.failing_call = 2});
  void* first = allocate_cells(8, false);
  EXPECT_THROW(allocate_cells(8, false), EOutOfMemory);
  void* third = allocate_cells(8, false);
  free_cells(first);
  free_cells(third);
}

TEST(AllocationLimits, EndWithTheirScope) {
  {
    const AllocationLimitScope outer({.largest = 100});
    {
      const AllocationLimitScope inner({.largest = 10});
      EXPECT_THROW(allocate_cells(50, false), EOutOfMemory);
    }
    free_cells(allocate_cells(50, false));
    EXPECT_THROW(allocate_cells(101, false), EOutOfMemory);
  }
  free_cells(allocate_cells(1000, false));
}

}  // namespace
}  // namespace zor::detail
