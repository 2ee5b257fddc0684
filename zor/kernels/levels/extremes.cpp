#include "zor/kernels/levels/extremes.h"

#include "zor/kernels/levels/cells.h"

namespace zor::kernels::ZOR_LEVEL {
namespace {

/// Cells whose extremes are found before their places are looked for, while they are still in the first cache: fewer
/// at first, where new extremes are frequent.
constexpr std::size_t kFirstBatch = 128, kBatch = 2048;

template <class T>
void min_max(const T* x, std::size_t n, std::size_t base, Extremes<T>& extremes) {
  constexpr std::size_t lanes = kLanes<T>;
  constexpr Register wide;
  std::size_t done = 0, batch = kFirstBatch;
  while (n - done >= 2 * lanes) {
    const std::size_t start = done;
    done += (n - done < batch ? n - done : batch) / (2 * lanes) * (2 * lanes);
    batch = batch < kBatch ? 2 * batch : kBatch;
    // The comparisons keep NaN out.
    T starts[lanes];
    for (T& cell : starts) cell = extremes.minimum;
    auto low = load(starts, wide), low2 = low;
    for (T& cell : starts) cell = extremes.maximum;
    auto high = load(starts, wide), high2 = high;
    for (std::size_t i = start; i < done; i += 2 * lanes) {
      const auto a = load(x + i, wide), b = load(x + i + lanes, wide);
      low = a < low ? a : low;
      low2 = b < low2 ? b : low2;
      high = a > high ? a : high;
      high2 = b > high2 ? b : high2;
    }
    low = low2 < low ? low2 : low;
    high = high2 > high ? high2 : high;
    T smallest = extremes.minimum, largest = extremes.maximum;
    for (std::size_t k = 0; k < lanes; ++k) {
      smallest = low[k] < smallest ? low[k] : smallest;
      largest = high[k] > largest ? high[k] : largest;
    }
    if (smallest < extremes.minimum) {
      const std::size_t i = start + first(done - start, [=](std::size_t k) { return x[start + k] == smallest; });
      extremes.minimum = x[i], extremes.min_index = base + i;
    }
    if (largest > extremes.maximum) {
      const std::size_t i = start + first(done - start, [=](std::size_t k) { return x[start + k] == largest; });
      extremes.maximum = x[i], extremes.max_index = base + i;
    }
  }
  for (; done < n; ++done) {
    if (x[done] < extremes.minimum) extremes.minimum = x[done], extremes.min_index = base + done;
    if (x[done] > extremes.maximum) extremes.maximum = x[done], extremes.max_index = base + done;
  }
}

}  // namespace

extern const ExtremesTable kExtremes = {min_max<double>, min_max<float>, min_max<std::int32_t>};

}  // namespace zor::kernels::ZOR_LEVEL
