#include "tests/fuzz_seeds.h"

#define LLVMFuzzerTestOneInput vector_fuzz_target
#include "fuzz/vector_fuzz.cpp"
#undef LLVMFuzzerTestOneInput

namespace zor::test {
namespace {

TEST(FuzzSeeds, OfVectorsKeepTheirClaims) { replay_seeds("vector", vector_fuzz_target); }

}  // namespace
}  // namespace zor::test
