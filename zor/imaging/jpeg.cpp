#include "zor/imaging/jpeg.h"

#include <algorithm>

#ifdef ZOR_HAVE_JPEG
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
// libjpeg's header needs <cstdio> before it.
#include <jpeglib.h>
#endif

namespace ZOR_imaging {

const char* TJPEGImage::ClassName() const noexcept { return "TJPEGImage"; }

void TJPEGImage::SetCompressionQuality(Integer Quality) noexcept { quality_ = std::clamp(Quality, 1, 100); }

void TJPEGImage::Assign(const TPersistent* Source) {
  TGraphic::Assign(Source);
  if (const auto* other = dynamic_cast<const TJPEGImage*>(Source)) quality_ = other->quality_;
}

#ifdef ZOR_HAVE_JPEG

namespace {

/// Receives libjpeg's errors, which must not return: they jump back to the place that `jump` names. Between that place
/// and the jump there is no object with a destructor; what must be freed belongs to the sessions below.
struct Errors : jpeg_error_mgr {
  Errors() : jpeg_error_mgr{} {
    jpeg_std_error(this);
    error_exit = [](j_common_ptr session) {
      auto* self = static_cast<Errors*>(session->err);
      self->format_message(session, self->text);
      std::longjmp(self->jump, 1);
    };
    emit_message = [](j_common_ptr session, int level) {
      if (level < 0) session->err->error_exit(session);  // damage that libjpeg would paint over
    };
    output_message = [](j_common_ptr) {};
  }
  [[noreturn]] void fail(const char* what) const { throw EInvalidGraphic(TString(what) + ": " + text); }

  std::jmp_buf jump;
  char text[JMSG_LENGTH_MAX] = "";
};

struct Compression {
  Compression() { info.err = &errors; }
  ~Compression() {
    jpeg_destroy_compress(&info);
    std::free(file);
  }
  Compression(const Compression&) = delete;
  Compression& operator=(const Compression&) = delete;

  Errors errors;
  jpeg_compress_struct info{};
  unsigned char* file = nullptr;
  unsigned long size = 0;
};

/// A file with a great many scans takes long to decode, however small it is.
constexpr int kMostScans = 100;

struct Decompression {
  Decompression() {
    info.err = &errors;
    watch.progress_monitor = [](j_common_ptr session) {
      const auto* self = reinterpret_cast<j_decompress_ptr>(session);
      if (self->input_scan_number <= kMostScans) return;
      auto* receiver = static_cast<Errors*>(session->err);
      std::snprintf(receiver->text, sizeof receiver->text, "too many scans");
      std::longjmp(receiver->jump, 1);
    };
  }
  ~Decompression() { jpeg_destroy_decompress(&info); }
  Decompression(const Decompression&) = delete;
  Decompression& operator=(const Decompression&) = delete;

  Errors errors;
  jpeg_progress_mgr watch{};
  jpeg_decompress_struct info{};
};

bool compress(Compression& session, const TRGBPixel* pixels, Integer width, Integer height, int quality) {
  if (setjmp(session.errors.jump)) return false;
  jpeg_create_compress(&session.info);
  jpeg_mem_dest(&session.info, &session.file, &session.size);
  session.info.image_width = static_cast<JDIMENSION>(width);
  session.info.image_height = static_cast<JDIMENSION>(height);
  session.info.input_components = 3;
  session.info.in_color_space = JCS_RGB;
  jpeg_set_defaults(&session.info);
  jpeg_set_quality(&session.info, quality, TRUE);
  session.info.dct_method = JDCT_ISLOW;  // the same bytes on all processors
  session.info.comp_info[0].h_samp_factor = 1;
  session.info.comp_info[0].v_samp_factor = 1;
  jpeg_start_compress(&session.info, TRUE);
  while (session.info.next_scanline < session.info.image_height) {
    const auto* row = pixels + static_cast<std::size_t>(session.info.next_scanline) * static_cast<std::size_t>(width);
    // The rows are only read; the interface predates const.
    JSAMPROW rows[1] = {const_cast<JSAMPLE*>(reinterpret_cast<const JSAMPLE*>(row))};
    jpeg_write_scanlines(&session.info, rows, 1);
  }
  jpeg_finish_compress(&session.info);
  return true;
}

bool read_head(Decompression& session, std::span<const std::byte> file) {
  if (setjmp(session.errors.jump)) return false;
  jpeg_create_decompress(&session.info);
  session.info.progress = &session.watch;
  jpeg_mem_src(&session.info, reinterpret_cast<const unsigned char*>(file.data()),
               static_cast<unsigned long>(file.size()));
  jpeg_read_header(&session.info, TRUE);
  return true;
}

bool read_pixels(Decompression& session, TRGBPixel* pixels) {
  if (setjmp(session.errors.jump)) return false;
  session.info.out_color_space = JCS_RGB;
  session.info.dct_method = JDCT_ISLOW;
  jpeg_start_decompress(&session.info);
  const std::size_t width = session.info.output_width;
  while (session.info.output_scanline < session.info.output_height) {
    JSAMPROW rows[1] = {reinterpret_cast<JSAMPLE*>(pixels + session.info.output_scanline * width)};
    jpeg_read_scanlines(&session.info, rows, 1);
  }
  jpeg_finish_decompress(&session.info);
  return true;
}

}  // namespace

std::vector<std::byte> TJPEGImage::Encode() const {
  if (Empty()) throw EInvalidGraphic("an empty picture cannot be saved as JPEG");
  Compression session;
  if (!compress(session, Pixels().data(), Width(), Height(), quality_)) session.errors.fail("cannot make a JPEG file");
  const auto* bytes = reinterpret_cast<const std::byte*>(session.file);
  return {bytes, bytes + session.size};
}

void TJPEGImage::Decode(std::span<const std::byte> File) {
  Decompression session;
  if (!read_head(session, File)) session.errors.fail("bad JPEG file");
  const JDIMENSION width = session.info.image_width, height = session.info.image_height;
  PixelArray made = blank_for_file(width, height, File.size());
  if (!read_pixels(session, made.data())) session.errors.fail("bad JPEG file");
  replace(std::move(made), static_cast<Integer>(width), static_cast<Integer>(height));
}

#else

std::vector<std::byte> TJPEGImage::Encode() const {
  throw EInvalidGraphic("cannot save JPEG: this library was built without libjpeg");
}

void TJPEGImage::Decode(std::span<const std::byte>) {
  throw EInvalidGraphic("cannot load JPEG: this library was built without libjpeg");
}

#endif

}  // namespace ZOR_imaging
