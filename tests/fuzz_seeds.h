#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "tests/source_dir.h"

namespace zor::test {

/// Sends the seeds of fuzz/seeds/<name>, their beginnings, and copies with one byte changed, through a fuzz target,
/// which ends the program if a claim of its own is broken. Long seeds are cut and changed at some 200 places.
inline void replay_seeds(const std::string& name, int (*target)(const std::uint8_t*, std::size_t)) {
  const auto run = [&](const std::string& bytes) {
    const std::vector<std::uint8_t> exact(bytes.begin(), bytes.end());  // nothing behind the end, for the sanitizers
    EXPECT_EQ(target(exact.data(), exact.size()), 0);
  };
  int seeds = 0;
  for (const auto& entry : std::filesystem::directory_iterator(source_dir() / "fuzz/seeds" / name)) {
    SCOPED_TRACE(entry.path());
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string seed{std::istreambuf_iterator<char>(file), {}};
    ++seeds;
    const std::size_t step = 1 + seed.size() / 200;
    for (std::size_t n = 0; n <= seed.size(); n += step) run(seed.substr(0, n));
    run(seed);
    for (std::size_t i = 0; i < seed.size(); i += step) {
      for (const char byte : {'\0', '\1', '<', '"', '\n', '9', '\x7F', '\xFF'}) {
        std::string changed = seed;
        changed[i] = byte;
        run(changed);
      }
    }
  }
  EXPECT_GE(seeds, 2);
}

}  // namespace zor::test
