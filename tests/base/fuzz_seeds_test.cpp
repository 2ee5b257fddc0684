// The seeds of the fuzz targets, their beginnings, and copies with one byte changed, go through the targets, which end
// the program if a claim of theirs is broken.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#define LLVMFuzzerTestOneInput asc_fuzz
#include "fuzz/asc_fuzz.cpp"
#undef LLVMFuzzerTestOneInput
#define LLVMFuzzerTestOneInput record_file_fuzz
#include "fuzz/record_file_fuzz.cpp"
#undef LLVMFuzzerTestOneInput
#define LLVMFuzzerTestOneInput tags_fuzz
#include "fuzz/tags_fuzz.cpp"
#undef LLVMFuzzerTestOneInput
#define LLVMFuzzerTestOneInput text_file_fuzz
#include "fuzz/text_file_fuzz.cpp"
#undef LLVMFuzzerTestOneInput

namespace {

struct Target {
  const char* name;
  int (*run)(const std::uint8_t*, std::size_t);
};

class FuzzSeeds : public ::testing::TestWithParam<Target> {
 protected:
  static void run(const std::string& bytes) {
    const std::vector<std::uint8_t> copy(bytes.begin(), bytes.end());  // exact size, for the sanitizers
    EXPECT_EQ(GetParam().run(copy.data(), copy.size()), 0);
  }
};
INSTANTIATE_TEST_SUITE_P(Readers, FuzzSeeds,
                         ::testing::Values(Target{"asc", asc_fuzz}, Target{"record_file", record_file_fuzz},
                                           Target{"tags", tags_fuzz}, Target{"text_file", text_file_fuzz}),
                         [](const auto& target) { return std::string(target.param.name); });

TEST_P(FuzzSeeds, KeepTheClaimsOfTheTargetAlsoCutAndChanged) {
  int seeds = 0;
  const auto folder = std::filesystem::path(ZOR_SOURCE_DIR) / "fuzz" / "seeds" / GetParam().name;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string seed{std::istreambuf_iterator<char>(file), {}};
    ++seeds;
    SCOPED_TRACE(entry.path());
    const std::size_t step = 1 + seed.size() / 200;
    for (std::size_t n = 0; n <= seed.size(); n += step) run(seed.substr(0, n));
    run(seed);
    for (std::size_t i = 0; i < seed.size(); i += step) {
      for (const char byte : {'\0', '<', '"', '\n', '9', '\xFF'}) {
        std::string changed = seed;
        changed[i] = byte;
        run(changed);
      }
    }
  }
  EXPECT_GE(seeds, 2);
}

}  // namespace
