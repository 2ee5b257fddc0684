#pragma once

/// \file  Marks what a shared build of the library exports.

#if defined(_WIN32)
#if defined(ZOR_SHARED_BUILD)
#define ZOR_API __declspec(dllexport)
#elif defined(ZOR_SHARED)
#define ZOR_API __declspec(dllimport)
#else
#define ZOR_API
#endif
#else
#define ZOR_API __attribute__((visibility("default")))
#endif
