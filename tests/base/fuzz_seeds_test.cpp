#include "tests/fuzz_seeds.h"

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

namespace zor::test {
namespace {

TEST(FuzzSeeds, OfAscFilesKeepTheirClaims) { replay_seeds("asc", asc_fuzz); }
TEST(FuzzSeeds, OfRecordFilesKeepTheirClaims) { replay_seeds("record_file", record_file_fuzz); }
TEST(FuzzSeeds, OfTaggedTextKeepTheirClaims) { replay_seeds("tags", tags_fuzz); }
TEST(FuzzSeeds, OfTextFilesKeepTheirClaims) { replay_seeds("text_file", text_file_fuzz); }

}  // namespace
}  // namespace zor::test
