#include "zor/version.h"

namespace zor {

const char* version() noexcept { return ZOR_VERSION; }

}  // namespace zor
