#include "zor/imaging/bitmap.h"

#include <cstring>
#include <vector>

#include "imaging_util.h"
#include "zor/runtime/cell_memory.h"

namespace ZOR_imaging {
namespace {

using Bytes = std::vector<std::byte>;

void put(Bytes& file, std::size_t at, std::uint32_t value, std::size_t bytes = 4) {
  for (std::size_t i = 0; i < bytes; ++i) file.at(at + i) = static_cast<std::byte>(value >> 8 * i);
}

/// File with the usual head, then whatever stands behind it.
Bytes bmp(Integer width, Integer height, unsigned bits, std::uint32_t compression, const std::vector<int>& tail,
          std::uint32_t pixels_at) {
  Bytes file(54);
  put(file, 0, 0x4D42, 2), put(file, 10, pixels_at), put(file, 14, 40);
  put(file, 18, static_cast<std::uint32_t>(width)), put(file, 22, static_cast<std::uint32_t>(height));
  put(file, 26, 1, 2), put(file, 28, bits, 2), put(file, 30, compression);
  for (const int b : tail) file.push_back(static_cast<std::byte>(b));
  return file;
}

std::vector<TColor> colours(const TBitmap& bitmap) {
  std::vector<TColor> all;
  for (const TRGBPixel p : bitmap.Pixels()) all.push_back(ToColor(p));
  return all;
}

TEST(TBitmapPixels, AreBlackAtFirstAndKeepRedInTheLowByte) {
  TBitmap bitmap;
  bitmap.SetSize(3, 2);
  EXPECT_EQ(bitmap.Canvas().Pixels(2, 1), 0);
  bitmap.Canvas().SetPixels(2, 1, 0x7F332211);
  EXPECT_EQ(bitmap.Canvas().Pixels(2, 1), 0x332211);
  EXPECT_EQ(bitmap.Row(1)[2], (TRGBPixel{0x11, 0x22, 0x33}));
  bitmap.Canvas().SetPixels(0, 0, -1);
  EXPECT_EQ(bitmap.Canvas().Pixels(0, 0), 0xFFFFFF);
}

TEST(TBitmapPixels, OutsideReadBlackAndWriteNothing) {
  TBitmap bitmap;
  paint(bitmap, 3, 2);
  const auto before = colours(bitmap);
  constexpr Integer kMin = std::numeric_limits<Integer>::min(), kMax = std::numeric_limits<Integer>::max();
  for (const auto& [x, y] : {std::pair{-1, 0}, {3, 0}, {0, -1}, {0, 2}, {kMin, kMin}, {kMax, kMax}}) {
    EXPECT_EQ(bitmap.Canvas().Pixels(x, y), 0);
    bitmap.Canvas().SetPixels(x, y, 0xFFFFFF);
  }
  EXPECT_EQ(colours(bitmap), before);
  EXPECT_TRUE(bitmap.Row(2).empty());
  EXPECT_TRUE(bitmap.Row(-1).empty());
}

TEST(TBitmapSize, KeepsTheCommonPart) {
  TBitmap bitmap, before;
  paint(bitmap, 3, 3);
  before.Assign(&bitmap);
  bitmap.SetSize(2, 4);
  EXPECT_EQ(bitmap.Canvas().Pixels(1, 2), before.Canvas().Pixels(1, 2));
  EXPECT_EQ(bitmap.Canvas().Pixels(0, 3), 0);
  bitmap.SetWidth(3);
  EXPECT_EQ(bitmap.Canvas().Pixels(2, 0), 0) << "what was cut off does not come back";
}

TEST(TBitmapSize, NegativeIsZeroAndTheOtherSizeStays) {
  TBitmap bitmap;
  bitmap.SetSize(4, -5);
  EXPECT_EQ(bitmap.Height(), 0);
  EXPECT_TRUE(bitmap.Empty());
  bitmap.SetHeight(2);
  EXPECT_EQ(bitmap.Width(), 4);
  EXPECT_EQ(bitmap.Pixels().size(), 8u);
}

TEST(TBitmapSize, TooLargeRaisesAndChangesNothing) {
  TBitmap bitmap;
  paint(bitmap, 2, 2);
  const auto before = colours(bitmap);
  {
    const zor::detail::AllocationLimitScope limit({.largest = 1 << 20});
    EXPECT_THROW(bitmap.SetSize(1000, 1000), ZOR_runtime::EOutOfMemory);
  }
  EXPECT_THROW(bitmap.SetSize(2147483647, 2147483647), ZOR_runtime::EOutOfMemory);
  EXPECT_EQ(colours(bitmap), before);
  EXPECT_EQ(bitmap.Width(), 2);
}

TEST(TBitmapAssign, CopiesPixelsAndRefusesWhatIsNoPicture) {
  TBitmap a, b;
  paint(a, 5, 4);
  b.Assign(&a);
  EXPECT_TRUE(same_picture(a, b));
  b.Canvas().SetPixels(0, 0, ~a.Canvas().Pixels(0, 0));
  EXPECT_FALSE(same_picture(a, b)) << "pixels must not be shared";
  ZOR_runtime::TComponent other;
  EXPECT_THROW(b.Assign(&other), ZOR_runtime::EConvertError);
  EXPECT_THROW(b.Assign(nullptr), ZOR_runtime::EConvertError);
  EXPECT_EQ(b.Width(), 5);
}

TEST(BmpFile, HasTheBytesOfTheFormat) {
  TBitmap bitmap;
  bitmap.SetSize(1, 2);
  bitmap.Canvas().SetPixels(0, 0, 0x0000FF);
  bitmap.Canvas().SetPixels(0, 1, 0x332211);
  Bytes expected = bmp(1, 2, 24, 0, {0x33, 0x22, 0x11, 0, 0, 0, 0xFF, 0}, 54);
  put(expected, 2, 62), put(expected, 34, 8), put(expected, 38, 2835), put(expected, 42, 2835);
  EXPECT_EQ(bitmap.Encode(), expected);
}

TEST(BmpFile, ReturnsWhatWasSavedForEveryRowLength) {
  for (Integer width = 0; width <= 9; ++width) {
    TBitmap saved, loaded;
    paint(saved, width, 3);
    loaded.Decode(saved.Encode());
    EXPECT_TRUE(same_picture(saved, loaded)) << width;
  }
}

TEST(BmpFile, GoesThroughFilesAndStreams) {
  const TemporaryFile file("bitmap_test.bmp");
  TBitmap saved, loaded;
  paint(saved, 200, 100);  // longer than one block of reading
  saved.SaveToFile(file.name());
  loaded.LoadFromFile(file.name());
  EXPECT_TRUE(same_picture(saved, loaded));

  ZOR_runtime::TMemoryStream stream;
  stream.WriteBuffer("head", 4);
  saved.SaveToStream(stream);
  stream.SetPosition(4);
  TBitmap streamed;
  streamed.LoadFromStream(stream);
  EXPECT_TRUE(same_picture(saved, streamed));
  EXPECT_THROW(loaded.LoadFromFile("/nonexistent/folder/x.bmp"), ZOR_runtime::EInOutError);
  EXPECT_TRUE(same_picture(saved, loaded));
}

TEST(BmpFile, ReadsEveryDepth) {
  const std::vector<int> palette = {0, 0, 0, 0, 1, 2, 3, 0, 0xFF, 0xFF, 0xFF, 0};
  const auto with_palette = [&](std::vector<int> rows) {
    rows.insert(rows.begin(), palette.begin(), palette.end());
    return rows;
  };
  struct Case {
    const char* what;
    Bytes file;
    std::vector<TColor> pixels;
  };
  Case cases[] = {
      {"1 bit", bmp(3, 1, 1, 0, with_palette({0x40, 0, 0, 0}), 66), {0, 0x010203, 0}},
      {"4 bits", bmp(3, 1, 4, 0, with_palette({0x12, 0x0F, 0, 0}), 66), {0x010203, 0xFFFFFF, 0}},
      {"8 bits, index beyond the palette", bmp(3, 1, 8, 0, with_palette({2, 1, 200, 0}), 66), {0xFFFFFF, 0x010203, 0}},
      {"16 bits", bmp(2, 1, 16, 0, {0x1F, 0, 0x00, 0x7C}, 54), {0xFF0000, 0x0000FF}},
      {"16 bits with masks",
       bmp(2, 1, 16, 3, {0, 0xF8, 0, 0, 0xE0, 7, 0, 0, 0x1F, 0, 0, 0, 0xE0, 7, 0x00, 0x80}, 66),
       {0x00FF00, 0x000084}},
      {"32 bits", bmp(1, 1, 32, 0, {3, 2, 1, 99}, 54), {0x030201}},
      {"32 bits with an empty mask",
       bmp(1, 1, 32, 3, {0xFF, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0, 7, 8, 9, 10}, 66),
       {0x090007}},
      {"top row first", bmp(1, -2, 24, 0, {3, 2, 1, 0, 6, 5, 4, 0}, 54), {0x030201, 0x060504}},
  };
  for (const Case& c : cases) {
    TBitmap bitmap;
    ASSERT_NO_THROW(bitmap.Decode(c.file)) << c.what;
    EXPECT_EQ(colours(bitmap), c.pixels) << c.what;
  }
}

TEST(BmpFile, ReadsTheSmallHead) {
  Bytes file(26);
  put(file, 0, 0x4D42, 2), put(file, 10, 32), put(file, 14, 12);
  put(file, 18, 2, 2), put(file, 20, 1, 2), put(file, 22, 1, 2), put(file, 24, 1, 2);
  for (const int b : {0, 0, 9, 1, 2, 3, 0x40, 0, 0, 0}) file.push_back(static_cast<std::byte>(b));
  TBitmap bitmap;
  bitmap.Decode(file);
  EXPECT_EQ(colours(bitmap), (std::vector<TColor>{0x000009, 0x010203}));
}

TEST(BmpFile, BadOnesAreRefusedAndLeaveThePicture) {
  TBitmap source;
  paint(source, 4, 3);
  const Bytes good = source.Encode();
  std::vector<std::pair<const char*, Bytes>> files = {
      {"nothing", {}},
      {"another mark", good},
      {"number of bits", good},
      {"run-length compression", good},
      {"masks for 24 bits", good},
      {"head longer than the file", good},
      {"pixels behind the end", good},
      {"lowest integer as height", good},
      {"negative width", good},
      {"pixels without memory for them", bmp(2147483647, 2147483647, 1, 0, {}, 54)},
      {"masks behind the end", bmp(1, 1, 32, 3, {1, 2, 3, 4}, 54)},
  };
  put(files[1].second, 0, 0x4D43, 2);
  put(files[2].second, 28, 7, 2);
  put(files[3].second, 30, 1);
  put(files[4].second, 30, 3);
  put(files[5].second, 14, 0x7FFFFFFF);
  put(files[6].second, 10, 0xFFFFFFFF);
  put(files[7].second, 22, 0x80000000);
  put(files[8].second, 18, 0xFFFFFFFF);
  TBitmap bitmap;
  paint(bitmap, 2, 2);
  const auto before = colours(bitmap);
  const zor::detail::AllocationLimitScope limit({.largest = 1 << 16});
  for (const auto& [what, file] : files) {
    EXPECT_THROW(bitmap.Decode(file), EInvalidGraphic) << what;
    EXPECT_EQ(colours(bitmap), before) << what;
  }
  for (std::size_t length = 0; length < good.size(); ++length) {
    EXPECT_THROW(bitmap.Decode(std::span(good).first(length)), EInvalidGraphic) << "cut to " << length;
  }
}

}  // namespace
}  // namespace ZOR_imaging
