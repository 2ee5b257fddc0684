#include "zor/imaging/png.h"

#include <limits>

#ifdef ZOR_HAVE_PNG
#include <png.h>
#endif

namespace ZOR_imaging {

const char* TPngImage::ClassName() const noexcept { return "TPngImage"; }

#ifdef ZOR_HAVE_PNG

namespace {

/// libpng's description of one picture. Errors come back as results here, never by a jump.
struct PngSession {
  PngSession() { image.version = PNG_IMAGE_VERSION; }
  ~PngSession() { png_image_free(&image); }
  PngSession(const PngSession&) = delete;
  PngSession& operator=(const PngSession&) = delete;

  [[noreturn]] void fail(const char* what) const {
    throw EInvalidGraphic(TString(what) + ": " + static_cast<const char*>(image.message));
  }
  png_image image{};
};

}  // namespace

std::vector<std::byte> TPngImage::Encode() const {
  if (Empty()) throw EInvalidGraphic("an empty picture cannot be saved as PNG");
  PngSession session;
  session.image.width = static_cast<png_uint_32>(Width());
  session.image.height = static_cast<png_uint_32>(Height());
  session.image.format = PNG_FORMAT_RGB;
  const std::size_t raw = Pixels().size_bytes();
  if (raw > std::numeric_limits<png_uint_32>::max() / 2) throw EInvalidGraphic("a picture too large for PNG");
  // Deflate adds a few bytes for each 16 KiB at most; the chunks around it are small.
  std::vector<std::byte> file(raw + raw / 1000 + static_cast<std::size_t>(Height()) + 4096);
  png_alloc_size_t size = file.size();
  if (!png_image_write_to_memory(&session.image, file.data(), &size, 0, Pixels().data(), 0, nullptr)) {
    session.fail("cannot make a PNG file");
  }
  file.resize(size);
  return file;
}

void TPngImage::Decode(std::span<const std::byte> File) {
  PngSession session;
  if (!png_image_begin_read_from_memory(&session.image, File.data(), File.size())) session.fail("bad PNG file");
  session.image.format = PNG_FORMAT_RGB;
  const auto width = session.image.width, height = session.image.height;
  PixelArray made = blank_for_file(width, height, File.size());
  const png_color white{255, 255, 255};
  if (!png_image_finish_read(&session.image, &white, made.data(), 0, nullptr)) session.fail("bad PNG file");
  replace(std::move(made), static_cast<Integer>(width), static_cast<Integer>(height));
}

#else

std::vector<std::byte> TPngImage::Encode() const {
  throw EInvalidGraphic("cannot save PNG: this library was built without libpng");
}

void TPngImage::Decode(std::span<const std::byte>) {
  throw EInvalidGraphic("cannot load PNG: this library was built without libpng");
}

#endif

}  // namespace ZOR_imaging
