#include "zor/arrays/save_image.h"

#include "zor/arrays/walk_internal.h"
#include "zor/imaging/ZOR_imaging.h"
#include "zor/runtime/text.h"

namespace ZOR_openarrays {
namespace {

using namespace ZOR_imaging;

void paint(TBitmap& bitmap, const TInt2DArray& img, std::size_t magnif) {
  const auto [cols, rows] = zor::detail::shape_of(img).length;
  constexpr auto kMost = static_cast<std::size_t>(zor::detail::kMaxInteger);
  if (cols > kMost / magnif || rows > kMost / magnif) {
    throw EInvalidGraphic("a picture with a size that is out of range");
  }
  bitmap.SetSize(zor::detail::to_integer(cols * magnif), zor::detail::to_integer(rows * magnif));
  const std::size_t width = cols * magnif;
  TRGBPixel* const pixels = bitmap.Pixels().data();
  for (std::size_t x = 0; x < width; ++x) {
    const Integer* const column = img[x / magnif].data();
    for (std::size_t y = 0; y < rows * magnif; ++y) pixels[y * width + x] = ToPixel(column[y / magnif]);
  }
}

template <class Picture>
void save_as(const TBitmap& bitmap, const TString& name) {
  Picture picture;
  picture.Assign(&bitmap);
  picture.SaveToFile(name);
}

}  // namespace

Integer SaveArrayAsImg(const TString& FName, const TInt2DArray& Img, Integer Magnif) {
  if (Magnif < 1 || Magnif > 10) return kBadMagnification;
  const TString extension = LowerCase(ExtractFileExt(FName));
  const bool bmp = extension == ".bmp", png = extension == ".png", jpg = extension == ".jpg";
  if (!FName.empty() && !bmp && !png && !jpg) return kUnknownExtension;
  if (zor::detail::shape_of(Img).empty()) return kEmptyImage;
  TBitmap bitmap;
  paint(bitmap, Img, static_cast<std::size_t>(Magnif));
  if (png) {
    save_as<TPngImage>(bitmap, FName);
  } else if (jpg) {
    save_as<TJPEGImage>(bitmap, FName);
  } else if (bmp) {
    bitmap.SaveToFile(FName);
  } else {
    Clipboard().Assign(&bitmap);
  }
  return 0;
}

}  // namespace ZOR_openarrays
