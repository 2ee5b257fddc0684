#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>

#include "zor/imaging/ZOR_imaging.h"

namespace ZOR_imaging {

/// A picture in which no two neighbours are equal, and every byte takes many values.
inline void paint(TBitmap& bitmap, Integer width, Integer height) {
  bitmap.SetSize(width, height);
  std::uint32_t state = 1;
  for (TRGBPixel& p : bitmap.Pixels()) {
    state = state * 1664525u + 1013904223u;
    p = ToPixel(static_cast<TColor>(state >> 8));
  }
}

inline bool same_picture(const TGraphic& a, const TGraphic& b) {
  return a.Width() == b.Width() && a.Height() == b.Height() && std::ranges::equal(a.Pixels(), b.Pixels());
}

/// Path in the folder for temporary files that is gone at the end of the test.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& name)
      : path_(std::filesystem::temp_directory_path() / (std::to_string(::getpid()) + name)) {}
  ~TemporaryFile() { std::filesystem::remove(path_); }
  std::string name() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace ZOR_imaging
