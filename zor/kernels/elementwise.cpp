#include "zor/kernels/elementwise.h"

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/elementwise.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(ElementwiseTable, kElementwise)

namespace {

using Int = std::int32_t;
using Word = std::uint32_t;

Word* words(std::span<Int> x) { return reinterpret_cast<Word*>(x.data()); }
const Word* words(std::span<const Int> x) { return reinterpret_cast<const Word*>(x.data()); }

}  // namespace

void fill(std::span<double> x, double value) noexcept { table().real.fill(x.data(), value, x.size()); }
void fill(std::span<Int> x, Int value) noexcept { table().integer.fill(words(x), static_cast<Word>(value), x.size()); }

void fill_serial(std::span<double> x, double start, double step) noexcept {
  double value = start;
  for (double& cell : x) {
    cell = value;
    value += step;
  }
}
void fill_serial(std::span<Int> x, Int start, Int step) noexcept {
  auto value = static_cast<Word>(start);
  for (Int& cell : x) {
    cell = static_cast<Int>(value);
    value += static_cast<Word>(step);
  }
}

// The in-place form and the integer forms of the operations differ from the double one in their arguments alone.
#define ZOR_BINARY(name)                                                                            \
  void name(std::span<const double> x, std::span<const double> y, std::span<double> out) noexcept { \
    table().real.name(x.data(), y.data(), out.data(), out.size());                                  \
  }                                                                                                 \
  void name(std::span<double> x, std::span<const double> y) noexcept { name(x, y, x); }             \
  void name(std::span<const Int> x, std::span<const Int> y, std::span<Int> out) noexcept {          \
    table().integer.name(words(x), words(y), words(out), out.size());                               \
  }                                                                                                 \
  void name(std::span<Int> x, std::span<const Int> y) noexcept { name(x, y, x); }

ZOR_BINARY(add)
ZOR_BINARY(subtract)
ZOR_BINARY(multiply)

#define ZOR_WITH_NUMBER(name)                                                      \
  void name(std::span<const double> x, double a, std::span<double> out) noexcept { \
    table().real.name(x.data(), a, out.data(), out.size());                        \
  }                                                                                \
  void name(std::span<double> x, double a) noexcept { name(x, a, x); }             \
  void name(std::span<const Int> x, Int a, std::span<Int> out) noexcept {          \
    table().integer.name(words(x), static_cast<Word>(a), words(out), out.size());  \
  }                                                                                \
  void name(std::span<Int> x, Int a) noexcept { name(x, a, x); }

ZOR_WITH_NUMBER(scale)
ZOR_WITH_NUMBER(shift)

void absolute(std::span<const double> x, std::span<double> out) noexcept {
  table().real.absolute(x.data(), out.data(), out.size());
}
void absolute(std::span<double> x) noexcept { absolute(x, x); }
void absolute(std::span<const Int> x, std::span<Int> out) noexcept {
  table().integer.absolute(words(x), words(out), out.size());
}
void absolute(std::span<Int> x) noexcept { absolute(x, x); }

void round_to_integers(std::span<const double> x, std::span<Int> out) noexcept {
  table().round_to_integers(x.data(), out.data(), out.size());
}

void axpy(double a, std::span<const double> x, std::span<double> y) noexcept {
  table().axpy(a, x.data(), y.data(), y.size());
}

void shift_scale(std::span<const double> x, double a, double b, std::span<double> out) noexcept {
  table().shift_scale(x.data(), a, b, out.data(), out.size());
}
void shift_scale(std::span<double> x, double a, double b) noexcept { shift_scale(x, a, b, x); }

}  // namespace zor::kernels
