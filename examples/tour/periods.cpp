#include <algorithm>
#include <cmath>

#include "examples/tour/chapter.h"
#include "examples/tour/csv.h"
#include "examples/tour/vectors.h"
#include "zor/transforms/ZOR_fourier.h"
#include "zor/transforms/ZOR_wavelet.h"

using namespace ZOR_fourier;
using namespace ZOR_vector;
using namespace ZOR_wavelet;

namespace {

// [show]
/// Makes the vector a spectrum.
void analyse(const TVector& x, TFastFourier& f) {
  f.SetSpectrumSize(x.NrOfElem());
  Integer i = 0;
  for (const double value : x) f.SetRealSpec(++i, value);
  f.Transform();
}
// [/show]

void sunspots(tour::Page& page) {
  page.section("Sunspots: a period of eleven years, more or less");
  page.prose("A signal of N values is a sum of N/2 oscillations; `TFastFourier` finds how strong each is.");
  page.code();
  const auto file = tour::read_csv(page.data("sunspots.csv"));
  TVector spots;
  tour::fill(spots, std::span<const double>(file.numbers("SUNACTIVITY")).last(256));
  // [show]
  spots.MeanCenter();  // 256 years, to 2008
  TFastFourier bare, windowed;
  windowed.SetWeightingWindow(fwCos2);
  analyse(spots, bare), analyse(spots, windowed);
  Integer top = 1;
  while (bare.Magnitude(top) < bare.MagniMax()) ++top;
  const double period = 1.0 / bare.FreqOfLine(top, 1.0);
  // [/show]
  page.code();
  std::vector<double> cycles, amplitude, smooth;
  for (Integer line = 1; line <= 64; ++line) {
    cycles.push_back(100.0 * bare.FreqOfLine(line, 1.0));
    amplitude.push_back(bare.Magnitude(line));
    smooth.push_back(2.0 * windowed.Magnitude(line));  // this window halves a sinusoid
  }
  plot::Chart chart("Oscillations in the sunspot number, 1753 to 2008");
  chart.axes("cycles in a century", "amplitude").line(cycles, amplitude, "as it is");
  chart.line(cycles, smooth, "under a window").mark_x(100.0 / period, plot::short_text(period, 3) + " years");
  page.figure(chart, "No single line: the sun keeps no exact time.");
}

void seasons(tour::Page& page) {
  page.section("Carbon dioxide: a year and its parts");
  page.prose(
      "512 months are 42 years and eight months, so the seasonal part does not end where it began, and that jump leaks "
      "into all lines. A window, under which the series begins and ends softly, stops the leak.");
  const auto file = tour::read_csv(page.data("co2.csv"));
  TVector air, trend;
  for (auto [vector, column] : {std::pair{&air, "co2_ppm"}, {&trend, "deseasonalised_ppm"}})
    tour::fill(*vector, std::span<const double>(file.numbers(column)).last(512));
  // [show]
  air.Subtract(&trend);
  air.MeanCenter();
  TFastFourier bare, windowed;
  windowed.SetWeightingWindow(fwBlkmHarris);
  analyse(air, bare), analyse(air, windowed);
  // [/show]
  page.code();
  std::vector<double> cycles, bare_level, level;
  for (Integer line = 1; line <= 256; ++line) {
    cycles.push_back(bare.FreqOfLine(line, 1.0 / 12.0));
    bare_level.push_back(20.0 * std::log10(bare.Magnitude(line) / bare.MagniMax()));
    level.push_back(20.0 * std::log10(windowed.Magnitude(line) / windowed.MagniMax()));
  }
  plot::Chart chart("Oscillations in the seasonal part, 512 months");
  chart.axes("cycles in a year", "decibels").line(cycles, bare_level, "as it is");
  page.figure(chart.line(cycles, level, "under a window"), "0 is the strongest, that of a year.");
}

void heart(tour::Page& page) {
  page.section("A heart: small coefficients are noise");
  page.prose(
      "Wavelets keep track of when something happens: beats become few large coefficients, noise many small ones. On "
      "each of the three finest scales, what is below `sqrt(2 ln n)` times the noise there is set to 0.");
  const auto signal = tour::read_csv(page.data("ecg.csv")).numbers("ecg_mV");
  // [show]
  TWavelet1D wavelet;
  wavelet.SetOrder(3);
  wavelet.SetSize(4096);
  std::ranges::copy(signal, wavelet.Edit().begin());
  wavelet.Transform(12);
  TVector size;
  auto edit = wavelet.Edit();
  for (std::size_t n = 2048; n >= 512; n /= 2) {
    const auto scale = edit.cells().subspan(n, n);
    tour::fill(size, scale);
    size.AbsVal();
    const double noise = size.Percentile(50, 0, 0) / 0.6745;
    const double limit = noise * std::sqrt(2 * std::log(n));
    for (double& x : scale)
      if (std::abs(x) < limit) x = 0.0;
  }
  wavelet.InverseTransform(12);
  // [/show]
  page.code();
  std::vector<double> seconds;
  for (int i = 0; i < 432; ++i) seconds.push_back(i / 360.0);
  plot::Chart before("As recorded"), after("Without the noise");
  page.figure(before.axes("seconds", "millivolt").line(seconds, std::span(signal).first(432)));
  page.figure(after.axes("seconds", "millivolt").line(seconds, wavelet.Cells().first(432)));
}

void run(tour::Page& page) { sunspots(page), seasons(page), heart(page); }

const tour::Register chapter({105, "periods", "Which periods hide in it?", run});

}  // namespace
