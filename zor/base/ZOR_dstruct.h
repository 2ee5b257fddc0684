#pragma once

#include "zor/base/bit_field.h"
#include "zor/base/crc.h"

/// \file  Bit fields and checksums.
///
///     using namespace ZOR_dstruct;
///     Integer crc = -1;
///     for (const char c : std::string_view("123456789")) crc = CalcNextCRC32(static_cast<Byte>(c), crc);
///     // ~crc is CBF43926
