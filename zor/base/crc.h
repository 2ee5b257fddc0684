#pragma once

#include <span>

#include "zor/runtime/tstring.h"
#include "zor/runtime/types.h"

/// \file  The checksum CRC-32 (reflected polynomial EDB88320, ISO 3309).

namespace ZOR_dstruct {

/// State of a CRC-32 after byte B. The state starts at -1, and its complement at the end is the checksum: "123456789"
/// gives CBF43926.
ZOR_API ZOR_runtime::Integer CalcNextCRC32(ZOR_runtime::Byte B, ZOR_runtime::Integer CRC) noexcept;

}  // namespace ZOR_dstruct

namespace zor::detail {

/// Checksums of a run of cells, one for each byte position, fed run by run. The text has eight upper-case hexadecimal
/// digits for each, the lowest byte of the cells first.
template <class T>
class ZOR_API CellChecksum {
 public:
  CellChecksum() noexcept;
  void add(std::span<const T> cells) noexcept;
  ZOR_runtime::TString text() const;

 private:
  std::uint32_t states_[sizeof(T)];
};

/// Fingerprint of one run of cells.
template <class T>
ZOR_runtime::TString crc_of_cells(std::span<const T> cells) {
  CellChecksum<T> checksum;
  checksum.add(cells);
  return checksum.text();
}

}  // namespace zor::detail
