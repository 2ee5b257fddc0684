#pragma once

#include <span>

#include "zor/base/ZOR_zorbase.h"

/// \file  Binary numbers in streams: floats of 8 bytes, integers of 4, lowest byte first on every machine.
/// Writing raises EInOutError if the stream cannot take the bytes. Reading sets Err to true, and gives 0, where the
/// stream ends before the number does.

namespace ZOR_streams {

using namespace ZOR_zorbase;

ZOR_API void WriteExtendedToStream(TStream& Stream, Double x);
ZOR_API Double ReadExtendedFromStream(TStream& Stream, Boolean& Err);
ZOR_API void WriteLongintToStream(TStream& Stream, Integer i);
ZOR_API Integer ReadLongintFromStream(TStream& Stream, Boolean& Err);

}  // namespace ZOR_streams

namespace zor::detail {

/// Writes the bytes of a run of numbers.
ZOR_API void write_numbers(ZOR_runtime::TStream& stream, std::span<const double> values);
ZOR_API void write_numbers(ZOR_runtime::TStream& stream, std::span<const std::int32_t> values);
/// Reads a run of numbers and returns how many were whole; the others keep no defined value.
ZOR_API std::size_t read_numbers(ZOR_runtime::TStream& stream, std::span<double> values);
ZOR_API std::size_t read_numbers(ZOR_runtime::TStream& stream, std::span<std::int32_t> values);

}  // namespace zor::detail
