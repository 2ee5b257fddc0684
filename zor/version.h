#pragma once

/// \file  Version of the library.

#define ZOR_VERSION "0.1.0"
#define ZOR_VERSION_MAJOR 0
#define ZOR_VERSION_MINOR 1
#define ZOR_VERSION_PATCH 0

#include "zor/export.h"

namespace zor {

/// Version of the library that is linked, as text ("0.1.0"); ZOR_VERSION is that of the headers.
ZOR_API const char* version() noexcept;

}  // namespace zor
