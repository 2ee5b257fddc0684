#pragma once

#include "zor/export.h"

/// \file  Version of the library. These three numbers are the only place where it stands; the build reads them here.

#define ZOR_VERSION_MAJOR 0
#define ZOR_VERSION_MINOR 1
#define ZOR_VERSION_PATCH 0

#define ZOR_VERSION_TEXT_(major, minor, patch) #major "." #minor "." #patch
#define ZOR_VERSION_TEXT(major, minor, patch) ZOR_VERSION_TEXT_(major, minor, patch)
/// Version of the headers, as text: "0.1.0".
#define ZOR_VERSION ZOR_VERSION_TEXT(ZOR_VERSION_MAJOR, ZOR_VERSION_MINOR, ZOR_VERSION_PATCH)

namespace zor {

/// Version of the library that is linked, as text ("0.1.0"); ZOR_VERSION is that of the headers.
ZOR_API const char* version() noexcept;

}  // namespace zor
