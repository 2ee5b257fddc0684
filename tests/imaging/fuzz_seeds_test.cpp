#include "tests/fuzz_seeds.h"

#define LLVMFuzzerTestOneInput bmp_fuzz
#include "fuzz/bmp_fuzz.cpp"
#undef LLVMFuzzerTestOneInput

namespace zor::test {
namespace {

TEST(FuzzSeeds, OfPicturesKeepTheirClaims) { replay_seeds("bmp", bmp_fuzz); }

}  // namespace
}  // namespace zor::test
