#include "tests/fuzz_seeds.h"

#define LLVMFuzzerTestOneInput table_fuzz_target
#include "fuzz/table_fuzz.cpp"
#undef LLVMFuzzerTestOneInput

namespace zor::test {
namespace {

TEST(FuzzSeeds, OfTablesKeepTheirClaims) { replay_seeds("table", table_fuzz_target); }

}  // namespace
}  // namespace zor::test
