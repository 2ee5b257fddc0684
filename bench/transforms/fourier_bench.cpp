#include <fftw3.h>
#include <gsl/gsl_fft_complex.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

#include "bench/pair.h"
#include "zor/transforms/ZOR_fourier.h"

namespace ZOR_fourier {
namespace {

namespace bench = zor::bench;

struct FreePlan {
  void operator()(fftw_plan plan) const { fftw_destroy_plan(plan); }
};

/// The same samples on both sides, put back before each call, so that they neither grow nor vanish.
struct Samples {
  std::unique_ptr<TFastFourier> ours = std::make_unique<TFastFourier>();
  std::vector<double> original;
  std::unique_ptr<double, decltype(&fftw_free)> theirs{nullptr, fftw_free};
  std::unique_ptr<std::remove_pointer_t<fftw_plan>, FreePlan> plan;

  void reset() {
    std::ranges::copy(original, ours->Edit().begin());
    std::ranges::copy(original, theirs.get());
  }
};

Samples samples(std::size_t n) {
  Samples s;
  s.original = bench::noise(2 * n);
  s.ours->SetNumData(static_cast<Integer>(n));
  s.theirs.reset(static_cast<double*>(fftw_malloc(2 * n * sizeof(double))));
  auto* const cells = reinterpret_cast<fftw_complex*>(s.theirs.get());
  s.plan.reset(fftw_plan_dft_1d(static_cast<int>(n), cells, cells, FFTW_BACKWARD, FFTW_MEASURE));
  s.reset();
  s.ours->DoFFT(1);  // fills the table of twiddles
  return s;
}

auto our_cells(const Samples& s) {
  return [&s] { return std::vector<double>(s.ours->Cells().begin(), s.ours->Cells().end()); };
}
auto their_cells(const Samples& s) {
  return [&s] { return std::vector<double>(s.theirs.get(), s.theirs.get() + s.original.size()); };
}

/// Whether the spectra differ by rounding only, measured by their largest lines.
constexpr auto same_spectrum = [](const std::vector<double>& ours, const std::vector<double>& theirs) {
  double difference = 0.0, largest = 0.0;
  for (std::size_t i = 0; i < ours.size(); ++i) {
    difference = std::max(difference, std::abs(ours[i] - theirs[i]));
    largest = std::max(largest, std::abs(theirs[i]));
  }
  return difference <= 1e-12 * largest;
};

constexpr auto transform = [](Samples& s) {
  s.ours->DoFFT(1);
  return our_cells(s);
};
constexpr auto fftw = [](Samples& s) {
  fftw_execute(s.plan.get());
  return their_cells(s);
};

ZOR_BENCH_PAIR(FourierSmall, samples, transform, fftw, same_spectrum)
    .against("FFTW, MEASURE")
    .goal(1.2)
    .remark("the told order of the butterflies; the exchange of the samples is a tenth of it")
    .sizes({1 << 10});
ZOR_BENCH_PAIR(FourierMiddle, samples, transform, fftw, same_spectrum)
    .against("FFTW, MEASURE")
    .goal(1.0)
    .sizes({1 << 16});
ZOR_BENCH_PAIR(FourierLarge, samples, transform, fftw, same_spectrum)
    .against("FFTW, MEASURE")
    .goal(0.8)
    .sizes({1 << 20});

ZOR_BENCH_PAIR(
    FourierRadix2, samples, transform,
    [](Samples& s) {
      gsl_fft_complex_radix2_backward(s.theirs.get(), 1, s.original.size() / 2);
      return their_cells(s);
    },
    same_spectrum)
    .against("GSL, radix 2")
    .goal(0.3)
    .sizes({1 << 10, 1 << 16, 1 << 20});

/// The transform of the class with a window against the window as a plain loop, then the same transform.
ZOR_BENCH_PAIR(
    FourierWindow,
    [](std::size_t n) {
      Samples s = samples(n);
      s.ours->SetWgtWin(fwBlkmHarris);
      return s;
    },
    [](Samples& s) {
      s.ours->Transform();
      return our_cells(s);
    },
    [](Samples& s) {
      const auto cells = s.ours->Edit();
      const double n = s.ours->SpectrumSize();
      for (std::size_t i = 0; i < s.original.size() / 2; ++i) {
        const double c = 2.0 * std::numbers::pi * (static_cast<double>(i + 1) - n / 2.0) / n;
        const double w = 0.35875 + 0.48829 * std::cos(c) + 0.14128 * std::cos(2.0 * c) + 0.01168 * std::cos(3.0 * c);
        cells[2 * i] *= w;
        cells[2 * i + 1] *= w;
      }
      s.ours->DoFFT(1);
      return our_cells(s);
    },
    same_spectrum)
    .against("plain loop for the window, the same transform")
    .goal(1.0)
    .sizes({1 << 20});

struct Spectrum {
  std::unique_ptr<TFastFourier> ours = std::make_unique<TFastFourier>();
  std::vector<double> x;
};

Spectrum spectrum(std::size_t n) {
  Spectrum s;
  s.x = bench::noise(2 * n);
  s.ours->SetNumData(static_cast<Integer>(n));
  std::ranges::copy(s.x, s.ours->Edit().begin());
  return s;
}

ZOR_BENCH_PAIR(
    FourierExtremes, spectrum,
    [](Spectrum& s) {
      s.ours->CalcMaxValues();
      s.ours->Changed();
      return [&s] {
        return std::vector{s.ours->RealMax(), s.ours->ImagMax(),  s.ours->RealMin(),
                           s.ours->ImagMin(), s.ours->PowerMax(), s.ours->MagniMax()};
      };
    },
    [](Spectrum& s) {
      const std::size_t n = s.x.size() / 2;
      std::vector<double> r{-1e308, -1e308, 1e308, 1e308, 0.0, 0.0};
      for (std::size_t i = 0; i < n; ++i) {
        r[0] = std::max(r[0], s.x[2 * i]), r[1] = std::max(r[1], s.x[2 * i + 1]);
        r[2] = std::min(r[2], s.x[2 * i]), r[3] = std::min(r[3], s.x[2 * i + 1]);
      }
      for (std::size_t k = 1; k <= n / 2; ++k) {
        const double re = s.x[2 * k], im = s.x[2 * k + 1], mre = s.x[2 * (n - k)], mim = s.x[2 * (n - k) + 1];
        if (k < n / 2) r[4] = std::max(r[4], (re * re + im * im + mre * mre + mim * mim) / static_cast<double>(n));
        r[5] = std::max(r[5], std::sqrt((re + mre) * (re + mre) + (im - mim) * (im - mim)) / static_cast<double>(n));
      }
      return r;
    },
    bench::close(1e-15))
    .against("plain loops")
    .goal(1.0)
    .sizes({1 << 20});

ZOR_BENCH_PAIR(
    FourierRMS, spectrum, [](Spectrum& s) { return s.ours->RMS(1, s.ours->SpectrumSize() / 2 - 1); },
    [](Spectrum& s) {
      const std::size_t n = s.x.size() / 2;
      double sum = 0.0;
      for (std::size_t k = 1; k < n / 2; ++k)
        sum += s.x[2 * k] * s.x[2 * k] + s.x[2 * k + 1] * s.x[2 * k + 1] + s.x[2 * (n - k)] * s.x[2 * (n - k)] +
               s.x[2 * (n - k) + 1] * s.x[2 * (n - k) + 1];
      return std::sqrt(sum) / static_cast<double>(n);
    },
    bench::close(1e-15))
    .against("plain loop")
    .goal(1.0)
    .sizes({1 << 20});

}  // namespace
}  // namespace ZOR_fourier
