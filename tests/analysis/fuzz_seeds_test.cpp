#include "tests/fuzz_seeds.h"

#define LLVMFuzzerTestOneInput curve_fit_fuzz_target
#include "fuzz/curve_fit_fuzz.cpp"
#undef LLVMFuzzerTestOneInput

namespace zor::test {
namespace {

TEST(FuzzSeeds, OfCurveFitsKeepTheirClaims) { replay_seeds("curve_fit", curve_fit_fuzz_target); }

}  // namespace
}  // namespace zor::test
