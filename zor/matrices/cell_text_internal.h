#pragma once

#include <concepts>
#include <string_view>

#include "zor/runtime/types.h"

/// \file  Cells of a matrix as words of text, in XML documents and plain text files.

namespace zor::detail {

/// How a matrix shows its numbers: see TMatrix::Precision.
class CellFormat {
 public:
  CellFormat(ZOR_runtime::Integer significant, ZOR_runtime::Integer decimals) noexcept
      : significant_(significant), decimals_(decimals) {}
  /// Writes a cell into a buffer of kNumberBuffer characters and returns how many it took. NaN is NAN, infinities are
  /// 1e999 and -1e999.
  std::size_t write(char* out, double x) const noexcept;
  std::size_t write(char* out, std::int32_t x) const noexcept;

 private:
  ZOR_runtime::Integer significant_, decimals_;
};

/// Reads a cell that is a whole word: a number, limited to the largest double, or NAN, which gives 0. False, with value
/// unchanged, for anything else.
bool read_cell(std::string_view word, double& value) noexcept;

}  // namespace zor::detail
