#include <gtest/gtest.h>
#include <malloc.h>

#include <string>

#include "tests/temp_file.h"
#include "zor/runtime/string_list.h"

namespace ZOR_runtime {
namespace {

TEST(StringList, OfEmptyLinesTakesNoMoreThan32BytesForEach) {
  constexpr std::size_t kLines = 270000;  // a list that doubles has room for 524288 then
  const zor::test::TempFile file(std::string(kLines, '\n'));
  const auto used = [] {
    const struct mallinfo2 heap = ::mallinfo2();
    return heap.uordblks + heap.hblkhd;
  };
  TStringList list;
  const std::size_t before = used();
  list.LoadFromFile(file.path());
  EXPECT_LE(used() - before, 32 * kLines + 200000) << "a buffer besides";
  EXPECT_EQ(list.Count(), 270000);
}

}  // namespace
}  // namespace ZOR_runtime
