#include "zor/imaging/graphic.h"

#include <array>

#include "zor/runtime/file_replacement.h"

namespace ZOR_imaging {

EInvalidGraphic::~EInvalidGraphic() = default;

const char* TGraphic::ClassName() const noexcept { return "TGraphic"; }

void TGraphic::Assign(const TPersistent* Source) {
  if (Source == this) return;
  if (const auto* other = dynamic_cast<const TGraphic*>(Source)) {
    replace(CopyOf(other->pixels_), other->width_, other->height_);
  } else {
    TPersistent::Assign(Source);
  }
}

void TGraphic::SaveToFile(const TString& FileName) const {
  const auto file = Encode();
  zor::detail::FileReplacement stream(FileName);
  stream.WriteBuffer(file.data(), static_cast<std::int64_t>(file.size()));
  stream.Close();
}

void TGraphic::LoadFromFile(const TString& FileName) {
  ZOR_runtime::TFileStream stream(FileName, ZOR_runtime::fmOpenRead);
  LoadFromStream(stream);
}

void TGraphic::SaveToStream(ZOR_runtime::TStream& Stream) const {
  const auto file = Encode();
  Stream.WriteBuffer(file.data(), static_cast<std::int64_t>(file.size()));
}

void TGraphic::LoadFromStream(ZOR_runtime::TStream& Stream) {
  std::vector<std::byte> file;
  std::array<std::byte, 16384> block;
  // Not by the stream's size: a pipe has none.
  while (const auto count = Stream.Read(block.data(), static_cast<std::int64_t>(block.size()))) {
    file.insert(file.end(), block.begin(), block.begin() + count);
  }
  Decode(file);
}

TGraphic::PixelArray TGraphic::blank(Integer width, Integer height) {
  PixelArray pixels;
  SetLength(pixels, std::int64_t{width} * height);
  return pixels;
}

TGraphic::PixelArray TGraphic::blank_for_file(std::int64_t width, std::int64_t height, std::size_t file_bytes) {
  // Compression as PNG uses it reaches 1032 bytes for one, so a file of true colour holds 344 pixels a byte at most;
  // other formats reach less. A picture of up to 16 MiB may also be made of fewer bits for each pixel.
  constexpr std::int64_t kMostPixelsForByte = 344;
  constexpr std::int64_t kAlwaysAllowed = (std::int64_t{1} << 24) / std::int64_t{sizeof(TRGBPixel)};
  if (width < 0 || height < 0 || width > zor::detail::kMaxInteger || height > zor::detail::kMaxInteger) {
    throw EInvalidGraphic("a picture with a size that is out of range");
  }
  const std::int64_t pixels = width * height;
  if (pixels > kAlwaysAllowed && static_cast<std::size_t>(pixels / kMostPixelsForByte) > file_bytes) {
    throw EInvalidGraphic("a picture file that announces more pixels than it can hold");
  }
  return blank(static_cast<Integer>(width), static_cast<Integer>(height));
}

void TGraphic::replace(PixelArray pixels, Integer width, Integer height) noexcept {
  pixels_.swap(pixels);
  width_ = width;
  height_ = height;
}

}  // namespace ZOR_imaging
