#pragma once

#include <string>

#include "zor/base/reader_limits.h"
#include "zor/datatable/table_image.h"
#include "zor/runtime/exception.h"
#include "zor/runtime/streams.h"

/// \file  What the readers of tables share.

namespace zor::detail {

/// True if a file of so many bytes may announce a table of this size, which takes some 1750 bytes a column, 64 a row
/// and 9 a cell.
inline bool may_hold_table(std::int64_t columns, std::int64_t rows, std::int64_t bytes) noexcept {
  const std::int64_t cells = checked_product(columns, rows);
  constexpr std::int64_t kMost = std::int64_t{1} << 58;
  return cells >= 0 && cells < kMost / 16 && may_allocate(1750 * columns + 64 * rows + 9 * cells, bytes);
}

/// The bytes of a stream from its position on.
inline std::string rest_of(ZOR_runtime::TStream& stream) {
  constexpr std::int64_t kBlock = 1 << 16;
  std::string bytes;
  bytes.reserve(to_size(stream.Size() - stream.Position()));
  for (std::int64_t n = kBlock; n == kBlock;) {
    const std::size_t before = bytes.size();
    bytes.resize(before + kBlock);
    n = stream.Read(bytes.data() + before, kBlock);
    bytes.resize(before + to_size(n));
  }
  return bytes;
}

/// Carries out an export; empty, or the text of the failure.
template <class Action>
ZOR_runtime::TString failure_of(Action action) {
  try {
    action();
    return {};
  } catch (const ZOR_runtime::Exception& failure) {
    return failure.Message();
  }
}

}  // namespace zor::detail
