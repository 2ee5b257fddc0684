#include <algorithm>
#include <cmath>

#include "examples/tour/chapter.h"
#include "examples/tour/csv.h"
#include "examples/tour/vectors.h"
#include "zor/analysis/ZOR_math2.h"
#include "zor/transforms/ZOR_wavelet.h"

using namespace ZOR_math2;
using plot::short_text;

namespace {

struct Cleaned {
  std::string name;
  std::vector<double> signal;
};

std::vector<double> beat(const std::vector<double>& signal) { return {signal.begin() + 100, signal.begin() + 400}; }

void run(tour::Page& page) {
  page.prose(
      "The electrocardiogram of a restless patient. A filter should take away the noise and leave the spikes of the "
      "heart as high and as sharp as they are. Five ways, each a line or two:");
  const auto recorded = tour::read_csv(page.data("ecg.csv")).numbers("ecg_mV");
  TVector raw, out;
  tour::fill(raw, recorded);
  tour::fill(out, recorded);
  std::vector<Cleaned> results;
  const auto keep = [&](const char* name) { results.push_back({name, tour::values(out)}); };
  // [show]
  const Integer n = raw.NrOfElem();
  MovingMedianSmooth(&raw, 1, n, &out, 9);
  keep("median of 9");

  PolynomialSmooth(&raw, 1, n, &out, 13);
  keep("Savitzky-Golay, 13 points");

  TVector kernel;  // 40 of 360 samples a second: cycles above 40 Hz go
  CalcSincLPKernel(41, 40.0 / 360.0, 1, &kernel);
  MovingKernelFilter(&raw, 1, n, &out, &kernel);
  keep("windowed sinc, 41 taps");

  double gain;
  ZOR_matrix::TMatrix recursion;
  CalcChebFilterCoeffs(4, false, 40.0 / 360.0, 0.5, gain, &recursion);
  ChebychevFilter(&raw, 1, n, &out, gain, &recursion);
  keep("Chebyshev, 4 poles");
  // [/show]
  page.code();

  ZOR_wavelet::TWavelet1D wavelet;
  wavelet.SetOrder(3);
  wavelet.SetSize(4096);
  std::ranges::copy(recorded, wavelet.Edit().begin());
  wavelet.Transform(12);
  {
    auto edit = wavelet.Edit();
    for (std::size_t size = 2048; size >= 512; size /= 2)
      for (double& x : edit.cells().subspan(size, size))
        if (std::abs(x) < 0.06) x = 0.0;
  }
  wavelet.InverseTransform(12);
  results.push_back({"wavelet, order 3", {wavelet.Cells().begin(), wavelet.Cells().end()}});

  std::vector<double> seconds;
  for (int i = 100; i < 400; ++i) seconds.push_back(i / 360.0);
  plot::Chart smooth("A beat, raw and filtered"), recursive("The same, by kernels, recursion and wavelets");
  smooth.axes("seconds", "millivolt").line(seconds, beat(recorded), "raw");
  smooth.line(seconds, beat(results[0].signal), results[0].name);
  page.figure(smooth.line(seconds, beat(results[1].signal), results[1].name));
  recursive.axes("seconds", "millivolt").line(seconds, beat(recorded), "raw");
  for (std::size_t k = 2; k < 5; ++k) recursive.line(seconds, beat(results[k].signal), results[k].name);
  page.figure(recursive);

  page.section("What each took away");
  page.prose(
      "Noise looks like noise; if the heart shows in what a filter took away, it took too much. Height is what is left "
      "of "
      "the highest spike, rest the deviation of what was taken.");
  const double peak = *std::max_element(recorded.begin(), recorded.end());
  std::vector<std::vector<std::string>> rows;
  plot::Chart taken("Taken away");
  taken.axes("seconds", "millivolt");
  for (const auto& [name, signal] : results) {
    TVector rest;
    tour::fill(rest, recorded);
    tour::fill(out, signal);
    rest.Subtract(&out);
    if (name != results[2].name && name != results[3].name) taken.line(seconds, beat(tour::values(rest)), name);
    double mean, variance;
    rest.MeanVar(0, 0, mean, variance);
    const double height = *std::max_element(signal.begin(), signal.end()) / peak;
    rows.push_back({name, short_text(100 * height, 3) + " %", short_text(std::sqrt(variance), 3)});
  }
  page.figure(taken);
  page.table({"filter", "height", "rest in mV"}, rows);
}

const tour::Register chapter({106, "signals", "Clean a signal", run});

}  // namespace
