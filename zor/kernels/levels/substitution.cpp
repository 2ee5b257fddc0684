#include "zor/kernels/levels/substitution.h"

#include "zor/kernels/levels/level.h"

#if defined(__FMA__)
#include <immintrin.h>
#endif

namespace zor::kernels::ZOR_LEVEL {
namespace {

/// As many chains as hide the latency of an addition.
constexpr std::size_t kRegisters = 10;
constexpr std::size_t kLanes = kRegisters * kLanesD;

struct Portable {
  static VecD subtract(VecD a, VecD b, VecD from) { return from - a * b; }
  static double subtract(double a, double b, double from) { return from - a * b; }
};
#if defined(__FMA__)
struct Fused {
#if defined(__AVX512F__)
  static VecD subtract(VecD a, VecD b, VecD from) { return (VecD)_mm512_fnmadd_pd(a, b, from); }
#else
  static VecD subtract(VecD a, VecD b, VecD from) { return (VecD)_mm256_fnmadd_pd(a, b, from); }
#endif
  static double subtract(double a, double b, double from) { return __builtin_fma(-a, b, from); }
};
#else
using Fused = Portable;
#endif

template <class Step>
void subtract_multiple(double factor, const double* x, double* y, std::size_t n) {
  const VecD factors = factor - VecD{};
  std::size_t i = 0;
  for (; i + kLanesD <= n; i += kLanesD) store(y + i, Step::subtract(factors, load(x + i), load(y + i)));
  for (; i < n; ++i) y[i] = Step::subtract(factor, x[i], y[i]);
}

template <class Step>
void solve_lower(const double* const* l, std::size_t first, std::size_t end, double* const* b, std::size_t count) {
  for (std::size_t c = 0; c < count; ++c) {
    double* const x = b[c];
    for (std::size_t k = first; k + 1 < end; ++k) {
      for (std::size_t r = k + 1; r < end; ++r) x[r] = Step::subtract(l[k][r], x[k], x[r]);
    }
  }
}

/// Subtracts `count` terms from the cells, one of each row of `x`.
template <class Step>
inline void subtract_terms(const double* factors, const double* x, std::size_t count, VecD (&cell)[kRegisters]) {
  for (std::size_t k = 0; k < count; ++k, x += kLanes) {
    const VecD factor = factors[k] - VecD{};
#pragma GCC unroll 12
    for (std::size_t i = 0; i < kRegisters; ++i) cell[i] = Step::subtract(factor, load(x + i * kLanesD), cell[i]);
  }
}

template <class Step>
void solve_lower_rows(const double* row, std::size_t step, std::size_t n, double* x) {
  for (std::size_t r = 1; r < n; ++r) {
    row += step;
    double* const result = x + r * kLanes;
    alignas(ZOR_VECTOR_BYTES) VecD cell[kRegisters];
#pragma GCC unroll 12
    for (std::size_t i = 0; i < kRegisters; ++i) cell[i] = load(result + i * kLanesD);
    subtract_terms<Step>(row, x, r, cell);
    row += r;
#pragma GCC unroll 12
    for (std::size_t i = 0; i < kRegisters; ++i) store(result + i * kLanesD, cell[i]);
  }
}

template <class Step>
void substitute(const double* row, std::size_t first, std::size_t end, double* last) {
  for (std::size_t t = first; t < end; row += t, ++t) {
    const VecD pivot = *row++ - VecD{};
    double* const result = last - t * kLanes;
    alignas(ZOR_VECTOR_BYTES) VecD cell[kRegisters];
#pragma GCC unroll 12
    for (std::size_t i = 0; i < kRegisters; ++i) cell[i] = load(result + i * kLanesD);
    subtract_terms<Step>(row, result + kLanes, t, cell);
#pragma GCC unroll 12
    for (std::size_t i = 0; i < kRegisters; ++i) store(result + i * kLanesD, cell[i] / pivot);
  }
}

}  // namespace

extern const SubstitutionTable kSubstitution;
const SubstitutionTable kSubstitution = {
    kLanes,
    {subtract_multiple<Fused>, solve_lower<Fused>, solve_lower_rows<Fused>, substitute<Fused>},
    {subtract_multiple<Portable>, solve_lower<Portable>, solve_lower_rows<Portable>, substitute<Portable>}};

}  // namespace zor::kernels::ZOR_LEVEL
