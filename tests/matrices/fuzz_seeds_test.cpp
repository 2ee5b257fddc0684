#include "tests/fuzz_seeds.h"

#define LLVMFuzzerTestOneInput matrix_fuzz_target
#include "fuzz/matrix_fuzz.cpp"
#undef LLVMFuzzerTestOneInput

namespace zor::test {
namespace {

TEST(FuzzSeeds, OfMatricesKeepTheirClaims) { replay_seeds("matrix", matrix_fuzz_target); }

}  // namespace
}  // namespace zor::test
