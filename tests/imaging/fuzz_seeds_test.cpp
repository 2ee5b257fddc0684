// The seeds of the fuzz target, their beginnings, and copies with one byte changed, go through the target, which ends
// the program if a claim of its own is broken.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#define LLVMFuzzerTestOneInput bmp_fuzz
#include "fuzz/bmp_fuzz.cpp"
#undef LLVMFuzzerTestOneInput

namespace {

void run(const std::string& bytes) {
  const std::vector<std::uint8_t> exact(bytes.begin(), bytes.end());
  EXPECT_EQ(bmp_fuzz(exact.data(), exact.size()), 0);
}

TEST(FuzzSeeds, OfPicturesKeepTheClaimsAlsoCutAndChanged) {
  int seeds = 0;
  for (const auto& entry : std::filesystem::directory_iterator(ZOR_SOURCE_DIR "/fuzz/seeds/bmp")) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string seed{std::istreambuf_iterator<char>(file), {}};
    ++seeds;
    for (std::size_t n = 0; n <= seed.size(); ++n) run(seed.substr(0, n));
    for (std::size_t i = 0; i < seed.size(); ++i) {
      for (const char byte : {'\0', '\1', '\x7F', '\xFF'}) {
        std::string changed = seed;
        changed[i] = byte;
        run(changed);
      }
    }
  }
  EXPECT_GE(seeds, 8);
}

}  // namespace
