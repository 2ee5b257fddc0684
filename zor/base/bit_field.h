#pragma once

#include <cstdint>

#include "zor/base/enums.h"
#include "zor/runtime/dyn_array.h"
#include "zor/runtime/object.h"

/// \file  Bit fields.
///
///     TBitFld used;
///     used.SetSize(9);          // bits 0 to 9, all false
///     used.SetBit(3, true);
///     used.CountTrueBits();     // 1

namespace ZOR_dstruct {

using ZOR_runtime::Boolean;
using ZOR_runtime::Integer;
using ZOR_zorbase::TLogicOp;

/// A field of bits with the indices 0 to Size. Bits outside read false and are not written.
class ZOR_API TBitFld : public ZOR_runtime::TComponent {
 public:
  /// A field without bits: Size is -1.
  explicit TBitFld(ZOR_runtime::TComponent* AOwner = nullptr) : TComponent(AOwner) {}

  /// Highest valid index.
  Integer Size() const noexcept { return size_; }
  /// Makes the bits 0 to HighestBit exist: those that stay keep their values, new ones are false. Below -1 counts as
  /// -1. Throws EOutOfMemory and leaves the field as it was.
  void SetSize(Integer HighestBit);

  Boolean GetBit(Integer i) const noexcept {
    return contains(i) && (words_[word_of(i)] >> (static_cast<unsigned>(i) % 64) & 1) != 0;
  }
  void SetBit(Integer i, Boolean Value) noexcept {
    if (!contains(i)) return;
    const std::uint64_t bit = std::uint64_t{1} << (static_cast<unsigned>(i) % 64);
    std::uint64_t& word = words_[word_of(i)];
    word = Value ? word | bit : word & ~bit;
  }

  /// Sets all bits to false.
  void Clear() noexcept;
  /// Flips every bit.
  void Invert() noexcept;
  Integer CountTrueBits() const noexcept;
  /// Lowest index of a true bit; -1 if there is none.
  Integer FirstTrueBit() const noexcept;

  /// Becomes a copy of Src, size included. Null does nothing.
  void Clone(const TBitFld* Src);
  /// Each bit b becomes b Op o, where o is the bit of Other with the same index, false where Other has none. The size
  /// stays. Null does nothing.
  void CombineWith(const TBitFld* Other, TLogicOp Op) noexcept;

  const char* ClassName() const noexcept override;

 private:
  bool contains(Integer i) const noexcept { return i >= 0 && i <= size_; }
  static std::size_t word_of(Integer i) noexcept { return static_cast<std::size_t>(i) / 64; }
  void clear_above_size() noexcept;

  // Bits above size_ in the last word are false, so that whole words can be counted.
  ZOR_runtime::TDynArray<std::uint64_t> words_;
  Integer size_ = -1;
};

}  // namespace ZOR_dstruct
