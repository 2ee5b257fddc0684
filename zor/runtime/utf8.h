#pragma once

#include <string_view>

#include "zor/export.h"

namespace zor::detail {

/// Takes one code point from the front of bytes, which must not be empty. A bad sequence gives U+FFFD and takes its
/// longest valid beginning, at least one byte, as the Unicode Standard (chapter 3.9) recommends.
ZOR_API char32_t take_utf8(std::string_view& bytes);

}  // namespace zor::detail
