#pragma once

#include <cstddef>
#include <string_view>

#include "zor/runtime/number_writer.h"
#include "zor/runtime/tstring.h"

/// \file  Short text without allocation.

namespace zor::detail {

/// A text that grows in a buffer of its own: room for one number of any length and 64 further characters.
class TextBuffer {
 public:
  TextBuffer& add(std::string_view piece) {
    size_ += piece.copy(cells_ + size_, sizeof cells_ - size_);
    return *this;
  }
  /// As Str(x, width, decimals) and as Str(x, width).
  TextBuffer& add_fixed(double x, int width, int decimals) {
    size_ += format_fixed(cells_ + size_, x, width, decimals);
    return *this;
  }
  TextBuffer& add_scientific(double x, int width) {
    size_ += format_scientific(cells_ + size_, x, width);
    return *this;
  }

  std::string_view view() const { return {cells_, size_}; }
  /// The character at place i (from 0).
  char& operator[](std::size_t i) { return cells_[i]; }
  operator ZOR_runtime::TString() const { return view(); }

 private:
  char cells_[kNumberBuffer + 64];
  std::size_t size_ = 0;
};

}  // namespace zor::detail
