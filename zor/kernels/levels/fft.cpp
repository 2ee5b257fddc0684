#include "zor/kernels/levels/fft.h"

#include "zor/kernels/levels/level.h"

#if defined(__AVX2__) && !defined(__AVX512F__)
#include <immintrin.h>
#endif

namespace zor::kernels::ZOR_LEVEL {
namespace {

// A register of samples, real and imaginary parts in turn; One holds a single sample.
struct One {
  typedef double Vec __attribute__((vector_size(16)));
  typedef double Loose __attribute__((vector_size(16), aligned(8), may_alias));
  static constexpr std::size_t kSamples = 1;
  static Vec re(Vec w) { return __builtin_shufflevector(w, w, 0, 0); }
  static Vec im(Vec w) { return __builtin_shufflevector(w, -w, 3, 1); }
  static Vec swapped(Vec x) { return __builtin_shufflevector(x, x, 1, 0); }
  static Vec sum(Vec x, Vec y) { return x + y; }
};
#if defined(__AVX512F__)
struct Many {
  typedef double Vec __attribute__((vector_size(64)));
  typedef double Loose __attribute__((vector_size(64), aligned(8), may_alias));
  static constexpr std::size_t kSamples = 4;
  static Vec re(Vec w) { return __builtin_shufflevector(w, w, 0, 0, 2, 2, 4, 4, 6, 6); }
  static Vec im(Vec w) { return __builtin_shufflevector(w, -w, 9, 1, 11, 3, 13, 5, 15, 7); }
  static Vec swapped(Vec x) { return __builtin_shufflevector(x, x, 1, 0, 3, 2, 5, 4, 7, 6); }
  static Vec sum(Vec x, Vec y) { return x + y; }
};
#elif defined(__AVX2__)
struct Many {
  typedef double Vec __attribute__((vector_size(32)));
  typedef double Loose __attribute__((vector_size(32), aligned(8), may_alias));
  static constexpr std::size_t kSamples = 2;
  static Vec re(Vec w) { return __builtin_shufflevector(w, w, 0, 0, 2, 2); }
  // One instruction subtracts in the real parts, so that wi needs no sign: (wi, wi).
  static Vec im(Vec w) { return __builtin_shufflevector(w, w, 1, 1, 3, 3); }
  static Vec swapped(Vec x) { return __builtin_shufflevector(x, x, 1, 0, 3, 2); }
  static Vec sum(Vec x, Vec y) { return _mm256_addsub_pd(x, y); }
};
#else
using Many = One;
#endif

/// Samples a and b become a + w b and a - w b; w b is (wr br - wi bi, wr bi + wi br), each part rounded as written.
template <class S>
struct Butterfly {
  using Vec = typename S::Vec;
  using Loose = typename S::Loose;
  Vec re, im;  // (wr, wr) and (-wi, wi), or what S::sum adds with the same result

  explicit Butterfly(const double* twiddle) : Butterfly(*reinterpret_cast<const Loose*>(twiddle), 0) {}
  Butterfly(Vec w, int) : re(S::re(w)), im(S::im(w)) {}
  void operator()(Vec& a, Vec& b) const {
    const Vec t = S::sum(re * b, im * S::swapped(b));
    b = a - t;
    a = a + t;
  }
};

// Each twiddle is fetched once for all blocks.

/// The stage with blocks of 2h samples.
template <class S>
void one_stage(double* data, std::size_t n, std::size_t h, const double* twiddles) {
  using Loose = typename S::Loose;
  for (std::size_t j = 0; j < h; j += S::kSamples) {
    const Butterfly<S> turn(twiddles + 2 * (h + j));
    for (double* x = data + 2 * j; x < data + 2 * n; x += 4 * h) {
      typename S::Vec a = *reinterpret_cast<Loose*>(x), b = *reinterpret_cast<Loose*>(x + 2 * h);
      turn(a, b);
      *reinterpret_cast<Loose*>(x) = a;
      *reinterpret_cast<Loose*>(x + 2 * h) = b;
    }
  }
}

/// The stages with blocks of 2h and of 4h samples in one sweep.
template <class S>
void two_stages(double* data, std::size_t n, std::size_t h, const double* twiddles) {
  using Loose = typename S::Loose;
  for (std::size_t j = 0; j < h; j += S::kSamples) {
    const Butterfly<S> inner(twiddles + 2 * (h + j));
    const Butterfly<S> front(twiddles + 2 * (2 * h + j)), back(twiddles + 2 * (3 * h + j));
    for (double* x = data + 2 * j; x < data + 2 * n; x += 8 * h) {
      typename S::Vec a = *reinterpret_cast<Loose*>(x), b = *reinterpret_cast<Loose*>(x + 2 * h);
      typename S::Vec c = *reinterpret_cast<Loose*>(x + 4 * h), d = *reinterpret_cast<Loose*>(x + 6 * h);
      inner(a, b);
      inner(c, d);
      front(a, c);
      back(b, d);
      *reinterpret_cast<Loose*>(x) = a;
      *reinterpret_cast<Loose*>(x + 2 * h) = b;
      *reinterpret_cast<Loose*>(x + 4 * h) = c;
      *reinterpret_cast<Loose*>(x + 6 * h) = d;
    }
  }
}

#if defined(__AVX2__) && !defined(__AVX512F__)
/// The stages with blocks of 2 and of 4 samples, for two blocks of 4 side by side.
void first_two_stages(double* data, std::size_t n, const double* twiddles) {
  using Vec = Many::Vec;
  using Loose = Many::Loose;
  const auto butterfly = [twiddles](std::size_t i) {
    const double wr = twiddles[2 * i], wi = twiddles[2 * i + 1];
    return Butterfly<Many>(Vec{wr, wi, wr, wi}, 0);
  };
  const Butterfly<Many> inner = butterfly(1), front = butterfly(2), back = butterfly(3);
  for (double* x = data; x < data + 2 * n; x += 16) {
    const Vec p = *reinterpret_cast<Loose*>(x), q = *reinterpret_cast<Loose*>(x + 4);
    const Vec r = *reinterpret_cast<Loose*>(x + 8), s = *reinterpret_cast<Loose*>(x + 12);
    Vec a = __builtin_shufflevector(p, r, 0, 1, 4, 5), b = __builtin_shufflevector(p, r, 2, 3, 6, 7);
    Vec c = __builtin_shufflevector(q, s, 0, 1, 4, 5), d = __builtin_shufflevector(q, s, 2, 3, 6, 7);
    inner(a, b);
    inner(c, d);
    front(a, c);
    back(b, d);
    *reinterpret_cast<Loose*>(x) = __builtin_shufflevector(a, b, 0, 1, 4, 5);
    *reinterpret_cast<Loose*>(x + 4) = __builtin_shufflevector(c, d, 0, 1, 4, 5);
    *reinterpret_cast<Loose*>(x + 8) = __builtin_shufflevector(a, b, 2, 3, 6, 7);
    *reinterpret_cast<Loose*>(x + 12) = __builtin_shufflevector(c, d, 2, 3, 6, 7);
  }
}
#endif

void two_stages(double* data, std::size_t n, std::size_t h, const double* twiddles) {
#if defined(__AVX2__) && !defined(__AVX512F__)
  if (h == 1 && n >= 8) return first_two_stages(data, n, twiddles);
#endif
  h >= Many::kSamples ? two_stages<Many>(data, n, h, twiddles) : two_stages<One>(data, n, h, twiddles);
}

/// A block of this many samples and its twiddles stay in the first caches.
constexpr std::size_t kLeaf = 1024;

/// All stages of n samples, four quarters after each other as long as they exceed a leaf.
void butterflies(double* data, std::size_t n, const double* twiddles) {
  if (n > kLeaf) {
    for (std::size_t quarter = 0; quarter < 4; ++quarter) butterflies(data + quarter * (n / 2), n / 4, twiddles);
    two_stages(data, n, n / 4, twiddles);
    return;
  }
  std::size_t h = 1;
  if ((__builtin_ctzll(n) & 1) != 0) {
    one_stage<One>(data, n, 1, twiddles);
    h = 2;
  }
  for (; 4 * h <= n; h *= 4) two_stages(data, n, h, twiddles);
}

}  // namespace

extern const FftTable kFft;
const FftTable kFft = {butterflies};

}  // namespace zor::kernels::ZOR_LEVEL
