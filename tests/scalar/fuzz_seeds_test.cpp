#include "tests/fuzz_seeds.h"

#define LLVMFuzzerTestOneInput number_text_fuzz_target
#include "fuzz/number_text_fuzz.cpp"
#undef LLVMFuzzerTestOneInput

namespace zor::test {
namespace {

TEST(FuzzSeeds, OfNumberTextKeepTheirClaims) { replay_seeds("number_text", number_text_fuzz_target); }

}  // namespace
}  // namespace zor::test
