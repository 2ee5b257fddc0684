#pragma once

#include "zor/imaging/graphic.h"

/// \file  Pictures in PNG files, through libpng.

namespace ZOR_imaging {

/// A picture in the PNG format: written without loss, 8 bits a channel. Any PNG is read; transparent parts are laid on
/// white, and deeper channels are rounded to 8 bits. Without libpng Encode and Decode raise EInvalidGraphic. The bytes
/// written depend on the versions of libpng and zlib, the pixels do not.
class ZOR_API TPngImage : public TGraphic {
 public:
  std::vector<std::byte> Encode() const override;
  void Decode(std::span<const std::byte> File) override;
  const char* ClassName() const noexcept override;
};

}  // namespace ZOR_imaging
