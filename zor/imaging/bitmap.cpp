#include "zor/imaging/bitmap.h"

#include <algorithm>

#include "zor/imaging/bmp_internal.h"

namespace ZOR_imaging {

const char* TBitmap::ClassName() const noexcept { return "TBitmap"; }

void TBitmap::SetSize(Integer Width, Integer Height) {
  const Integer w = std::max(Width, 0), h = std::max(Height, 0);
  if (w == this->Width() && h == this->Height()) return;
  PixelArray made = blank(w, h);
  const auto kept = zor::detail::to_size(std::min(w, this->Width()));
  const Integer kept_rows = kept == 0 ? 0 : std::min(h, this->Height());
  for (Integer y = 0; y < kept_rows; ++y) {
    std::ranges::copy(Row(y).first(kept), made.begin() + std::int64_t{y} * w);
  }
  replace(std::move(made), w, h);
}

std::vector<std::byte> TBitmap::Encode() const { return zor::detail::write_bmp(*this); }

void TBitmap::Decode(std::span<const std::byte> File) {
  const zor::detail::BmpLayout layout = zor::detail::read_bmp_layout(File);
  PixelArray made = blank_for_file(layout.width, layout.height, File.size());
  zor::detail::read_bmp_pixels(File, layout, made);
  replace(std::move(made), layout.width, layout.height);
}

}  // namespace ZOR_imaging
