// Any bytes read as a picture: memory in proportion to the file, refusal by exception only, and what has been read
// comes back from a file of our own. PNG and JPEG are tried too where the library has them.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "zor/imaging/ZOR_imaging.h"

namespace {

template <class Picture>
bool reads(Picture& picture, std::span<const std::byte> file) {
  try {
    picture.Decode(file);
    return true;
  } catch (const ZOR_imaging::EInvalidGraphic&) {
    if (!picture.Empty()) std::abort();
    return false;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto file = std::as_bytes(std::span(data, size));
  ZOR_imaging::TBitmap bitmap, again;
  if (reads(bitmap, file) && !bitmap.Empty()) {
    // One bit a pixel is the least.
    if (bitmap.Pixels().size() > 8 * size) std::abort();
    again.Decode(bitmap.Encode());
    if (again.Width() != bitmap.Width() || !std::ranges::equal(again.Pixels(), bitmap.Pixels())) std::abort();
  }
  ZOR_imaging::TPngImage png;
  reads(png, file);
  ZOR_imaging::TJPEGImage jpeg;
  reads(jpeg, file);
  return 0;
}
