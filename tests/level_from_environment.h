#pragma once

#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "zor/kernels/dispatch.h"

namespace zor::test {

/// ZOR_TEST_LEVEL=v2, v3 or v4 limits the kernels to that level. False for another text; unset or empty: no limit.
inline bool limit_level_from_environment() {
  using kernels::Level;
  const char* const set = std::getenv("ZOR_TEST_LEVEL");
  const std::string_view text = set ? set : "";
  for (const auto& [name, level] :
       std::array{std::pair(std::string_view(), Level::v4), std::pair(std::string_view("v2"), Level::v2),
                  std::pair(std::string_view("v3"), Level::v3), std::pair(std::string_view("v4"), Level::v4)})
    if (text == name) {
      kernels::limit_level(level);
      return true;
    }
  return false;
}

}  // namespace zor::test
