#include <cstdint>
#include <cstdlib>
#include <filesystem>

#include "tests/arrays/array_util.h"
#include "tests/temp_file.h"
#include "zor/imaging/ZOR_imaging.h"
#ifdef ZOR_HAVE_PNG
#include <png.h>
#endif
#ifdef ZOR_HAVE_JPEG
#include <jpeglib.h>
#endif

namespace ZOR_openarrays {
namespace {

/// What a library other than ours reads from a file: bytes red, green, blue, row after row.
struct Seen {
  unsigned width = 0, height = 0;
  std::vector<std::uint8_t> bytes;
};

TInt2DArray slope() {
  TInt2DArray img;
  SetLength(img, 23, 17);
  for (Integer x = 0; x < 23; ++x) {
    for (Integer y = 0; y < 17; ++y) img[x][y] = 11 * x | 15 * y << 8 | 0x40 << 16 | kMinInteger;
  }
  return img;
}

/// Largest difference of a channel from what the file should show.
int largest_difference(const Seen& seen, const TInt2DArray& img, Integer magnif) {
  EXPECT_EQ(seen.width, static_cast<unsigned>(Length(img) * magnif));
  EXPECT_EQ(seen.height, static_cast<unsigned>(Length(img[0]) * magnif));
  if (testing::Test::HasFailure()) return 999;
  int worst = 0;
  for (std::size_t i = 0; i < seen.bytes.size(); ++i) {
    const std::size_t pixel = i / 3, x = pixel % seen.width, y = pixel / seen.width;
    const auto color =
        static_cast<std::uint32_t>(img[x / static_cast<std::size_t>(magnif)][y / static_cast<std::size_t>(magnif)]);
    worst = std::max(worst, std::abs(seen.bytes[i] - static_cast<int>(color >> 8 * (i % 3) & 0xFF)));
  }
  return worst;
}

class ImageFile {
 public:
  explicit ImageFile(const char* extension) : name_(file_.path() + extension) {}
  ~ImageFile() { std::remove(name_.c_str()); }
  const std::string& name() const { return name_; }
  bool exists() const { return std::filesystem::exists(name_); }

 private:
  zor::test::TempFile file_;
  std::string name_;
};

#ifdef ZOR_HAVE_PNG
TEST(SavedImage, PngHoldsEveryPixel) {
  for (const Integer magnif : {1, 3, 10}) {
    const ImageFile file(".PNG");
    ASSERT_EQ(SaveArrayAsImg(file.name(), slope(), magnif), 0);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    ASSERT_TRUE(png_image_begin_read_from_file(&image, file.name().c_str()));
    image.format = PNG_FORMAT_RGB;
    Seen seen{image.width, image.height, std::vector<std::uint8_t>(PNG_IMAGE_SIZE(image))};
    ASSERT_TRUE(png_image_finish_read(&image, nullptr, seen.bytes.data(), 0, nullptr));
    EXPECT_EQ(largest_difference(seen, slope(), magnif), 0);
  }
}
#endif

#ifdef ZOR_HAVE_JPEG
TEST(SavedImage, JpegComesClose) {
  const ImageFile file(".jpg");
  ASSERT_EQ(SaveArrayAsImg(file.name(), slope(), 8), 0);
  std::FILE* const input = std::fopen(file.name().c_str(), "rb");
  ASSERT_NE(input, nullptr);
  jpeg_decompress_struct jpeg{};
  jpeg_error_mgr errors{};
  jpeg.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&jpeg);
  jpeg_stdio_src(&jpeg, input);
  jpeg_read_header(&jpeg, TRUE);
  jpeg.out_color_space = JCS_RGB;
  jpeg_start_decompress(&jpeg);
  Seen seen{jpeg.output_width, jpeg.output_height, {}};
  seen.bytes.resize(std::size_t{3} * seen.width * seen.height);
  while (jpeg.output_scanline < jpeg.output_height) {
    JSAMPROW row = &seen.bytes[std::size_t{3} * seen.width * jpeg.output_scanline];
    jpeg_read_scanlines(&jpeg, &row, 1);
  }
  jpeg_finish_decompress(&jpeg);
  jpeg_destroy_decompress(&jpeg);
  std::fclose(input);
  EXPECT_LE(largest_difference(seen, slope(), 8), 12);
}
#endif

TEST(SavedImage, BmpHoldsEveryPixel) {
  const ImageFile file(".bmp");
  ASSERT_EQ(SaveArrayAsImg(file.name(), slope(), 1), 0);
  std::ifstream input(file.name(), std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(input), {}};
  const auto byte = [&](std::size_t at) { return static_cast<std::uint8_t>(bytes.at(at)); };
  const auto number = [&](std::size_t at) {
    return static_cast<unsigned>(byte(at) | byte(at + 1) << 8 | byte(at + 2) << 16 | byte(at + 3) << 24);
  };
  ASSERT_EQ(bytes.substr(0, 2), "BM");
  ASSERT_EQ(byte(28), 24) << "bits a pixel";
  Seen seen{number(18), number(22), {}};
  const std::size_t stride = (std::size_t{3} * seen.width + 3) / 4 * 4;
  for (std::size_t y = 0; y < seen.height; ++y) {
    for (std::size_t x = 0; x < seen.width; ++x) {
      const std::size_t at = number(10) + (seen.height - 1 - y) * stride + 3 * x;  // rows from below; blue first
      seen.bytes.insert(seen.bytes.end(), {byte(at + 2), byte(at + 1), byte(at)});
    }
  }
  EXPECT_EQ(largest_difference(seen, slope(), 1), 0);
}

TEST(SavedImage, NoNameMeansTheClipboard) {
  ASSERT_EQ(SaveArrayAsImg("", {{0x0000FF}, {0x00FF00}}, 2), 0);
  ZOR_imaging::TBitmap bitmap;
  bitmap.Assign(&ZOR_imaging::Clipboard());
  EXPECT_EQ(bitmap.Width(), 4);
  EXPECT_EQ(bitmap.Height(), 2);
  EXPECT_EQ(bitmap.Canvas().Pixels(1, 1), 0x0000FF);
  EXPECT_EQ(bitmap.Canvas().Pixels(2, 0), 0x00FF00);
}

TEST(SavedImage, FirstFaultGivesTheCodeAndNothingIsWritten) {
  const ImageFile png(".png"), gif(".gif"), bare("");
  EXPECT_EQ(SaveArrayAsImg(gif.name(), {}, 11), kBadMagnification);
  EXPECT_EQ(SaveArrayAsImg(png.name(), {{1}}, 0), kBadMagnification);
  EXPECT_EQ(SaveArrayAsImg(gif.name(), {}, 1), kUnknownExtension);
  EXPECT_EQ(SaveArrayAsImg("/tmp/picture", {{1}}, 1), kUnknownExtension);
  EXPECT_EQ(SaveArrayAsImg(png.name(), {{1, 2}, {3}}, 1), kEmptyImage);
  EXPECT_FALSE(png.exists() || gif.exists() || bare.exists());
  EXPECT_THROW(SaveArrayAsImg("/no such folder/a.bmp", {{1}}, 1), ZOR_runtime::Exception);
}

}  // namespace
}  // namespace ZOR_openarrays
