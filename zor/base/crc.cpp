#include "zor/base/crc.h"

#include <algorithm>
#include <string>

#include "zor/kernels/crc_lanes.h"

namespace ZOR_dstruct {

ZOR_runtime::Integer CalcNextCRC32(ZOR_runtime::Byte B, ZOR_runtime::Integer CRC) noexcept {
  return static_cast<ZOR_runtime::Integer>(zor::kernels::crc32_step(static_cast<std::uint32_t>(CRC), B));
}

}  // namespace ZOR_dstruct

namespace zor::detail {

template <class T>
CellChecksum<T>::CellChecksum() noexcept {
  std::ranges::fill(states_, ~std::uint32_t{0});
}

template <class T>
void CellChecksum<T>::add(std::span<const T> cells) noexcept {
  kernels::crc32_lanes(cells, std::span<std::uint32_t, sizeof(T)>(states_));
}

template <class T>
ZOR_runtime::TString CellChecksum<T>::text() const {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const std::uint32_t state : states_) {
    for (int shift = 28; shift >= 0; shift -= 4) text += kDigits[(~state >> shift) & 15];
  }
  return text;
}

template class CellChecksum<double>;
template class CellChecksum<std::int32_t>;

}  // namespace zor::detail
