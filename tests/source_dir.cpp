#include "tests/source_dir.h"

namespace zor::test {

// The only file that is compiled with the path, so that a compiler cache serves other copies of the tree with all else.
std::filesystem::path source_dir() { return ZOR_SOURCE_DIR; }

}  // namespace zor::test
