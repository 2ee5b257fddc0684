#include "zor/kernels/fft.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <numbers>
#include <utility>

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/fft.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(FftTable, kFft)

namespace {

struct Sample {
  double re, im;
};

/// The lower `bits` bits of x in reverse.
constexpr std::size_t reversed(std::size_t x, int bits) {
  std::size_t result = 0;
  for (int b = 0; b < bits; ++b, x >>= 1) result = result << 1 | (x & 1);
  return result;
}

constexpr int kTileBits = 4;
constexpr std::size_t kTile = std::size_t{1} << kTileBits;

/// A square of samples: rows from the upper bits of the index, columns from the lower ones.
class Tile {
 public:
  void read(const double* data, std::size_t middle, std::size_t stride) {
    for (std::size_t row = 0; row < kTile; ++row) {
      std::memcpy(cells_[row], data + 2 * (row * stride + middle * kTile), sizeof cells_[row]);
    }
  }
  void write_reversed(double* data, std::size_t middle, std::size_t stride) const {
    for (std::size_t row = 0; row < kTile; ++row) {
      Sample line[kTile];
      for (std::size_t col = 0; col < kTile; ++col) {
        line[col] = cells_[reversed(col, kTileBits)][reversed(row, kTileBits)];
      }
      std::memcpy(data + 2 * (row * stride + middle * kTile), line, sizeof line);
    }
  }

 private:
  Sample cells_[kTile][kTile];
};

void swap_samples(double* data, std::size_t i, std::size_t j) {
  std::swap(data[2 * i], data[2 * j]);
  std::swap(data[2 * i + 1], data[2 * j + 1]);
}

/// Exchanges the samples whose indices are bit reversals of each other, by tiles that fit the first cache.
void reverse_bits(double* data, std::size_t n) {
  const int bits = std::countr_zero(n), middle_bits = bits - 2 * kTileBits;
  if (middle_bits < 0) {
    for (std::size_t i = 0; i < n; ++i) {
      const std::size_t j = reversed(i, bits);
      if (i < j) swap_samples(data, i, j);
    }
    return;
  }
  const std::size_t stride = n >> kTileBits, middles = std::size_t{1} << middle_bits;
  Tile tile, mirror;
  for (std::size_t middle = 0; middle < middles; ++middle) {
    const std::size_t other = reversed(middle, middle_bits);
    if (other < middle) continue;
    tile.read(data, middle, stride);
    mirror.read(data, other, stride);
    tile.write_reversed(data, other, stride);
    if (other != middle) mirror.write_reversed(data, middle, stride);
  }
}

}  // namespace

void make_twiddles(std::span<double> twiddles, int sign) noexcept {
  const std::size_t n = twiddles.size() / 2;
  if (n == 0) return;
  twiddles[0] = twiddles[1] = 0.0;  // no stage
  for (std::size_t h = 1; h < n; h *= 2) {
    const double theta = sign * (2.0 * std::numbers::pi) / static_cast<double>(2 * h);
    const double s = std::sin(theta / 2.0), wpr = -2.0 * s * s, wpi = std::sin(theta);
    double wr = 1.0, wi = 0.0;
    for (std::size_t j = h; j < 2 * h; ++j) {
      twiddles[2 * j] = wr;
      twiddles[2 * j + 1] = wi;
      const double t = wr;
      wr = wr + (wr * wpr - wi * wpi);
      wi = wi + (wi * wpr + t * wpi);
    }
  }
}

void transform_radix2(std::span<double> samples, std::span<const double> twiddles) noexcept {
  const std::size_t n = samples.size() / 2;
  if (n < 2) return;
  reverse_bits(samples.data(), n);
  table().butterflies(samples.data(), n, twiddles.data());
}

}  // namespace zor::kernels
