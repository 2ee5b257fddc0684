#include <cmath>

#include "imaging_util.h"
#include "zor/imaging/jpeg.h"
#include "zor/imaging/png.h"
#include "zor/kernels/crc_lanes.h"

namespace ZOR_imaging {
namespace {

/// Mean distance of the channels of two pictures of one size.
double distance(const TGraphic& a, const TGraphic& b) {
  double sum = 0.0;
  for (std::size_t i = 0; i < a.Pixels().size(); ++i) {
    const TRGBPixel p = a.Pixels()[i], q = b.Pixels()[i];
    sum += std::abs(p.Red - q.Red) + std::abs(p.Green - q.Green) + std::abs(p.Blue - q.Blue);
  }
  return sum / (3.0 * static_cast<double>(a.Pixels().size()));
}

void paint_slope(TBitmap& bitmap) {
  bitmap.SetSize(64, 48);
  for (Integer y = 0; y < 48; ++y) {
    for (Integer x = 0; x < 64; ++x) bitmap.Canvas().SetPixels(x, y, 4 * x | 5 * y << 8 | 0x800000);
  }
}

#ifdef ZOR_HAVE_PNG

TEST(TPngImage, ReturnsEveryPixelAndTheSameBytesEachTime) {
  TBitmap bitmap;
  paint(bitmap, 37, 23);
  TPngImage saved, loaded;
  saved.Assign(&bitmap);
  const auto file = saved.Encode();
  EXPECT_EQ(saved.Encode(), file);
  loaded.Decode(file);
  EXPECT_TRUE(same_picture(bitmap, loaded));
}

TEST(TPngImage, FileLoadsIntoABitmap) {
  const TemporaryFile file("png_test.png");
  TBitmap bitmap, back;
  paint_slope(bitmap);
  TPngImage png, other;
  png.Assign(&bitmap);
  png.SaveToFile(file.name());
  other.LoadFromFile(file.name());
  back.Assign(&other);
  EXPECT_TRUE(same_picture(bitmap, back));
}

TEST(TPngImage, DamagedFilesAreRefusedAndLeaveThePicture) {
  TBitmap bitmap;
  paint(bitmap, 9, 7);
  TPngImage png;
  png.Assign(&bitmap);
  const auto good = png.Encode();
  for (std::size_t length = 0; length + 12 < good.size(); length += 5) {  // the last 12 bytes only say "end"
    EXPECT_THROW(png.Decode(std::span(good).first(length)), EInvalidGraphic) << "cut to " << length;
  }
  auto bad = good;
  bad[good.size() / 2] ^= std::byte{1};
  EXPECT_THROW(png.Decode(bad), EInvalidGraphic) << "one bit of the pixels";
  EXPECT_TRUE(same_picture(bitmap, png));
}

TEST(TPngImage, HugeSizeInASmallFileIsRefusedBeforeAllocating) {
  TBitmap bitmap;
  paint(bitmap, 2, 2);
  TPngImage png;
  png.Assign(&bitmap);
  auto file = png.Encode();
  // Width and height stand at bytes 16 to 23; the check sum of bytes 12 to 28 follows them.
  for (const unsigned at : {17u, 18u, 21u, 22u}) file[at] = std::byte{0x0F};
  std::uint32_t state = ~0u;
  for (std::size_t at = 12; at < 29; ++at) {
    state = zor::kernels::crc32_step(state, std::to_integer<std::uint8_t>(file[at]));
  }
  for (std::size_t i = 0; i < 4; ++i) file[29 + i] = static_cast<std::byte>(~state >> (24 - 8 * i) & 0xFF);
  try {
    png.Decode(file);
    ADD_FAILURE() << "accepted";
  } catch (const EInvalidGraphic& e) {
    EXPECT_NE(std::string(e.what()).find("announces more pixels"), std::string::npos) << e.what();
  }
  EXPECT_TRUE(same_picture(bitmap, png));
}

TEST(TPngImage, EmptyPictureCannotBeSaved) { EXPECT_THROW(TPngImage().Encode(), EInvalidGraphic); }

#else
TEST(TPngImage, SaysWhatIsMissing) { EXPECT_THROW(TPngImage().Encode(), EInvalidGraphic); }
#endif

#ifdef ZOR_HAVE_JPEG

TEST(TJPEGImage, ComesCloseAndCloserWithQuality) {
  TBitmap bitmap;
  paint_slope(bitmap);
  double former = 1e9;
  std::size_t size = 0;
  for (const Integer quality : {10, 50, 95}) {
    TJPEGImage saved, loaded;
    saved.SetCompressionQuality(quality);
    saved.Assign(&bitmap);
    const auto file = saved.Encode();
    EXPECT_EQ(saved.Encode(), file) << "the same bytes each time";
    loaded.Decode(file);
    ASSERT_EQ(loaded.Width(), 64);
    ASSERT_EQ(loaded.Height(), 48);
    EXPECT_LT(distance(bitmap, loaded), former);
    EXPECT_GT(file.size(), size);
    former = distance(bitmap, loaded), size = file.size();
  }
  EXPECT_LT(former, 1.0);
}

TEST(TJPEGImage, KeepsTheColourOfSinglePixelLines) {
  TBitmap bitmap;
  bitmap.SetSize(32, 32);
  for (TRGBPixel& p : bitmap.Pixels()) p = {255, 255, 255};
  for (Integer y = 0; y < 32; ++y) bitmap.Canvas().SetPixels(15, y, 0x0000FF);
  TJPEGImage image;
  image.Assign(&bitmap);
  TJPEGImage loaded;
  loaded.Decode(image.Encode());
  const TRGBPixel p = loaded.Row(16)[15];
  EXPECT_GT(p.Red, 200);
  EXPECT_LT(p.Green, 60);
  EXPECT_LT(p.Blue, 60);
}

TEST(TJPEGImage, QualityIsLimitedAndAssigned) {
  TJPEGImage a, b;
  EXPECT_EQ(a.CompressionQuality(), 90);
  a.SetCompressionQuality(1000);
  EXPECT_EQ(a.CompressionQuality(), 100);
  a.SetCompressionQuality(-3);
  b.Assign(&a);
  EXPECT_EQ(b.CompressionQuality(), 1);
}

TEST(TJPEGImage, DamagedFilesAreRefusedAndLeaveThePicture) {
  TBitmap bitmap;
  paint(bitmap, 20, 20);
  TJPEGImage image;
  image.Assign(&bitmap);
  const auto good = image.Encode();
  for (std::size_t length = 0; length + 2 < good.size(); length += 7) {
    EXPECT_THROW(image.Decode(std::span(good).first(length)), EInvalidGraphic) << "cut to " << length;
  }
  EXPECT_TRUE(same_picture(bitmap, image));
}

TEST(TJPEGImage, SizesBeyondTheFormatAreRefused) {
  TBitmap bitmap;
  bitmap.SetSize(65501, 1);
  TJPEGImage image;
  image.Assign(&bitmap);
  EXPECT_THROW(image.Encode(), EInvalidGraphic);
  EXPECT_THROW(TJPEGImage().Encode(), EInvalidGraphic);
}

#else
TEST(TJPEGImage, SaysWhatIsMissing) { EXPECT_THROW(TJPEGImage().Encode(), EInvalidGraphic); }
#endif

}  // namespace
}  // namespace ZOR_imaging
