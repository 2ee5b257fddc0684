#include "zor/base/bit_field.h"

#include <algorithm>
#include <bit>

namespace ZOR_dstruct {

const char* TBitFld::ClassName() const noexcept { return "TBitFld"; }

void TBitFld::SetSize(Integer HighestBit) {
  const Integer size = std::max(HighestBit, -1);
  SetLength(words_, (std::int64_t{size} + 64) / 64);
  size_ = size;
  clear_above_size();
}

void TBitFld::clear_above_size() noexcept {
  const unsigned used = (static_cast<unsigned>(size_) + 1) % 64;
  if (used != 0) words_[words_.size() - 1] &= (std::uint64_t{1} << used) - 1;
}

void TBitFld::Clear() noexcept { std::ranges::fill(words_, 0); }

void TBitFld::Invert() noexcept {
  for (std::uint64_t& word : words_) word = ~word;
  clear_above_size();
}

Integer TBitFld::CountTrueBits() const noexcept {
  std::int64_t count = 0;
  for (const std::uint64_t word : words_) count += std::popcount(word);
  return zor::detail::to_integer(static_cast<std::size_t>(count));
}

Integer TBitFld::FirstTrueBit() const noexcept {
  const auto found = std::ranges::find_if(words_, [](std::uint64_t word) { return word != 0; });
  if (found == words_.end()) return -1;
  return static_cast<Integer>((found - words_.begin()) * 64 + std::countr_zero(*found));
}

void TBitFld::Clone(const TBitFld* Src) {
  if (!Src || Src == this) return;
  words_ = CopyOf(Src->words_);
  size_ = Src->size_;
}

void TBitFld::CombineWith(const TBitFld* Other, TLogicOp Op) noexcept {
  if (!Other) return;
  using ZOR_zorbase::loAnd, ZOR_zorbase::loAndNot, ZOR_zorbase::loOr, ZOR_zorbase::loOrNot, ZOR_zorbase::loXor,
      ZOR_zorbase::loXorNot;
  const std::uint64_t complement = Op == loAndNot || Op == loOrNot || Op == loXorNot ? ~std::uint64_t{0} : 0;
  for (std::size_t i = 0; i < words_.size(); ++i) {
    const std::uint64_t other = (i < Other->words_.size() ? Other->words_[i] : 0) ^ complement;
    std::uint64_t& word = words_[i];
    switch (Op) {
      case loAnd:
      case loAndNot:
        word &= other;
        break;
      case loOr:
      case loOrNot:
        word |= other;
        break;
      case loXor:
      case loXorNot:
        word ^= other;
        break;
    }
  }
  clear_above_size();
}

}  // namespace ZOR_dstruct
