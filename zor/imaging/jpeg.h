#pragma once

#include "zor/imaging/graphic.h"

/// \file  Pictures in JPEG files, through libjpeg.

namespace ZOR_imaging {

/// A picture in the JPEG format. Only the file loses detail: the pixels in memory stay those that were assigned. Colour
/// keeps its full resolution (4:4:4), since plots have sharp edges. Gray and colour files are read, four-channel ones
/// and damaged ones are refused. Without libjpeg Encode and Decode raise EInvalidGraphic.
class ZOR_API TJPEGImage : public TGraphic {
 public:
  /// Quality of what Encode makes, 1 to 100; 90 at first.
  Integer CompressionQuality() const noexcept { return quality_; }
  /// Values outside 1 to 100 are limited to it.
  void SetCompressionQuality(Integer Quality) noexcept;

  /// Takes over the pixels, and from another TJPEGImage the quality as well.
  void Assign(const TPersistent* Source) override;
  std::vector<std::byte> Encode() const override;
  void Decode(std::span<const std::byte> File) override;
  const char* ClassName() const noexcept override;

 private:
  Integer quality_ = 90;
};

}  // namespace ZOR_imaging
