#include "zor/kernels/levels/moving.h"

#include "zor/kernels/levels/cells.h"

namespace zor::kernels::ZOR_LEVEL {
namespace {

/// Values of one window in `Count` registers: neighbouring positions lie side by side, so that the order of the sum
/// within a value stays and several chains run at once.
template <std::size_t Count, class Start, class Step, class End>
inline void block(double* out, std::size_t steps, Start start, Step step, End end) {
  VecD sum[Count];
  for (std::size_t r = 0; r < Count; ++r) sum[r] = start(r * kLanesD, Register{});
  for (std::size_t k = 0; k < steps; ++k) {
    for (std::size_t r = 0; r < Count; ++r) sum[r] = step(sum[r], k, r * kLanesD, Register{});
  }
  for (std::size_t r = 0; r < Count; ++r) store(out + r * kLanesD, end(sum[r]));
}

/// start(i), then step(value, k, i) for k < steps, then end(value), for each position i < n.
template <class Start, class Step, class End>
inline void slide(double* out, std::size_t n, std::size_t steps, Start start, Step step, End end) {
  constexpr std::size_t most = 8;
  std::size_t i = 0;
  const auto from = [&](std::size_t shift, auto as) { return start(i + shift, as); };
  const auto next = [&](auto sum, std::size_t k, std::size_t shift, auto as) { return step(sum, k, i + shift, as); };
  for (; i + most * kLanesD <= n; i += most * kLanesD) block<most>(out + i, steps, from, next, end);
  for (; i + kLanesD <= n; i += kLanesD) block<1>(out + i, steps, from, next, end);
  for (; i < n; ++i) {
    double sum = start(i, Cell{});
    for (std::size_t k = 0; k < steps; ++k) sum = step(sum, k, i, Cell{});
    out[i] = end(sum);
  }
}

void symmetric(const double* x, const double* weights, std::size_t half, double factor, double divisor, double* out,
               std::size_t n) {
  const double center = weights[0];
  const auto start = [=](std::size_t i, auto as) { return center * load(x + i + half, as); };
  const auto end = [=](auto sum) { return factor * sum / divisor; };
  const auto pair = [=](std::size_t k, std::size_t i, auto as) {
    return load(x + i + half + 1 + k, as) + load(x + i + half - 1 - k, as);
  };
  slide(
      out, n, half, start,
      [=](auto sum, std::size_t k, std::size_t i, auto as) { return sum + weights[k + 1] * pair(k, i, as); }, end);
}

inline VecD zero(Register) { return VecD{}; }
inline double zero(Cell) { return 0.0; }

void weighted(const double* x, const double* weights, std::size_t length, double divisor, double* out, std::size_t n) {
  const auto start = [](std::size_t, auto as) { return zero(as); };
  slide(
      out, n, length, start,
      [=](auto sum, std::size_t k, std::size_t i, auto as) { return sum + weights[k] * load(x + i + k, as); },
      [=](auto sum) { return sum / divisor; });
}

inline void put_in_order(VecD& low, VecD& high) {
  const VecD a = low, b = high;
  low = b < a ? b : a;
  high = b > a ? b : a;
}

/// Cells of windows that begin side by side. No template: see cells.h.
struct HeldCells {
  VecD cell[kLongestSelectedWindow / 2 + 2];
};

/// Of the first half + 2 cells neither the smallest nor the largest can be the median; both give way to the next cell
/// until three are left. Smallest and largest are looked for among half of the cells each. All loops have fixed bounds
/// and are unrolled, so that short windows stay in registers.
template <std::size_t Count>
[[gnu::always_inline]] inline void keep_middle(HeldCells& held, const double* next) {
  constexpr std::size_t pairs = Count / 2;
#pragma GCC unroll 32
  for (std::size_t k = 0; k < pairs; ++k) put_in_order(held.cell[k], held.cell[Count - 1 - k]);
#pragma GCC unroll 32
  for (std::size_t k = 1; k < Count - pairs; ++k) put_in_order(held.cell[0], held.cell[k]);
#pragma GCC unroll 32
  for (std::size_t k = pairs; k + 1 < Count; ++k) put_in_order(held.cell[k], held.cell[Count - 1]);
  if constexpr (Count > 3) {
    held.cell[0] = load(next, Register{});
    keep_middle<Count - 1>(held, next + 1);
  }
}

/// Leaves the median in place 1.
template <std::size_t Length>
[[gnu::always_inline]] inline void select_median(const double* x, HeldCells& held) {
  constexpr std::size_t count = Length / 2 + 2;
#pragma GCC unroll 32
  for (std::size_t k = 0; k < count; ++k) held.cell[k] = load(x + k, Register{});
  keep_middle<count>(held, x + count);
}

template <std::size_t Length>
void median(const double* x, double* out, std::size_t n) {
  for (std::size_t i = 0;; i += kLanesD) {
    const std::size_t at = i + kLanesD < n ? i : n - kLanesD;  // the last register may overlap the one before it
    HeldCells held;
    select_median<Length>(x + at, held);
    store(out + at, held.cell[1]);
    if (i + kLanesD >= n) return;
  }
}

}  // namespace

extern const MovingTable kMoving;
const MovingTable kMoving = {symmetric,
                             weighted,
                             {median<3>, median<5>, median<7>, median<9>, median<11>, median<13>, median<15>,
                              median<17>, median<19>, median<21>, median<23>, median<25>}};

}  // namespace zor::kernels::ZOR_LEVEL
