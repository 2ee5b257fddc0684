#pragma once

#include "zor/base/mixed_stream.h"
#include "zor/base/stream_numbers.h"
#include "zor/base/tags.h"

/// \file  Binary numbers in streams, files that mix numbers and text, and tagged text.
///
///     using namespace ZOR_streams;
///     TMemoryStream stream;
///     WriteExtendedToStream(stream, 0.5);
///     stream.SetPosition(0);
///     Boolean failed = false;
///     ReadExtendedFromStream(stream, failed);    // 0.5
