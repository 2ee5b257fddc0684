#include "zor/transforms/ZOR_fourier.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <complex>
#include <cstdint>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

#include "tests/message_of.h"
#include "zor/kernels/dispatch.h"
#include "zor/runtime/cell_memory.h"

using namespace ZOR_fourier;

namespace {

constexpr double kPi = std::numbers::pi;

/// The textbook loops, with places that count from 1.
void plain_transform(std::vector<double>& cells, int sign) {
  const std::size_t n2 = cells.size(), n = n2 / 2;
  double* const d = cells.data() - 1;
  std::size_t j = 1;
  for (std::size_t i = 1; i < n2; i += 2) {
    if (j > i) {
      std::swap(d[j], d[i]);
      std::swap(d[j + 1], d[i + 1]);
    }
    std::size_t m = n;
    while (m >= 2 && j > m) {
      j -= m;
      m /= 2;
    }
    j += m;
  }
  for (std::size_t mmax = 2; mmax < n2; mmax *= 2) {
    const double theta = sign * 2.0 * kPi / static_cast<double>(mmax), s = std::sin(theta / 2.0);
    const double wpr = -2.0 * s * s, wpi = std::sin(theta);
    double wr = 1.0, wi = 0.0;
    for (std::size_t m = 1; m < mmax; m += 2) {
      for (std::size_t i = m; i <= n2; i += 2 * mmax) {
        j = i + mmax;
        const double tr = wr * d[j] - wi * d[j + 1], ti = wr * d[j + 1] + wi * d[j];
        d[j] = d[i] - tr;
        d[j + 1] = d[i + 1] - ti;
        d[i] = d[i] + tr;
        d[i + 1] = d[i + 1] + ti;
      }
      const double t = wr;
      wr = wr + (wr * wpr - wi * wpi);
      wi = wi + (wi * wpr + t * wpi);
    }
  }
  if (sign < 0) {
    for (double& x : cells) x /= static_cast<double>(n);
  }
}

std::vector<double> noise(std::size_t n) {
  std::vector<double> cells(n);
  std::uint64_t state = 88172645463325252u;
  for (double& x : cells) {
    state ^= state << 13, state ^= state >> 7, state ^= state << 17;
    // Some zeros of both signs, since a sign of zero may be lost where a product by 1 or 0 is left out.
    x = state % 7 == 0 ? (state & 64 ? 0.0 : -0.0) : static_cast<double>(state >> 11) * 0x1p-52 - 1.0;
  }
  return cells;
}

std::vector<double> random_cells(std::size_t n, std::mt19937_64& bits) {
  std::vector<double> cells(n);
  for (double& x : cells) x = static_cast<double>(bits() >> 11) * 0x1p-52 - 1.0;
  return cells;
}

void fill(TFastFourier& f, const std::vector<double>& cells) {
  f.SetSpectrumSize(static_cast<Integer>(cells.size() / 2));
  auto edit = f.Edit();
  std::copy(cells.begin(), cells.end(), edit.begin());
}

template <class Signal>
void fill_real(TFastFourier& f, Signal signal) {
  for (Integer i = 1; i <= f.SpectrumSize(); ++i) f.SetRealSpec(i, signal(i));
}

}  // namespace

TEST(FourierBits, AreThoseOfThePlainLoopsAtEveryLevel) {
  using zor::kernels::Level;
  const Level best = zor::kernels::active_level();
  for (std::size_t n = 1; n <= std::size_t{1} << 20; n *= 2) {
    for (const int sign : {1, -1}) {
      auto expected = noise(2 * n);
      const auto input = expected;
      plain_transform(expected, sign);
      for (const Level level : {Level::v2, Level::v3, Level::v4}) {
        if (level > best) continue;
        zor::kernels::limit_level(level);
        TFastFourier f;
        fill(f, input);
        f.DoFFT(sign);
        std::size_t differing = 0;
        for (std::size_t i = 0; i < 2 * n; ++i) {
          differing += std::bit_cast<std::uint64_t>(f.Cells()[i]) != std::bit_cast<std::uint64_t>(expected[i]);
        }
        EXPECT_EQ(differing, 0u) << "n = " << n << ", sign = " << sign << ", level " << static_cast<int>(level);
      }
    }
  }
  zor::kernels::limit_level(best);
}

TEST(FourierTransform, AgreesWithTheSumInLongDouble) {
  const std::size_t n = 128;
  const auto cells = noise(2 * n);
  TFastFourier f;
  fill(f, cells);
  f.Transform();
  for (std::size_t k = 0; k < n; ++k) {
    std::complex<long double> sum = 0;
    for (std::size_t i = 0; i < n; ++i) {
      const long double angle = 2 * std::numbers::pi_v<long double> * static_cast<long double>(k * i % n) / n;
      sum += std::complex<long double>(cells[2 * i], cells[2 * i + 1]) * std::polar(1.0L, angle);
    }
    EXPECT_NEAR(f.Cells()[2 * k], static_cast<double>(sum.real()), 1e-13);
    EXPECT_NEAR(f.Cells()[2 * k + 1], static_cast<double>(sum.imag()), 1e-13);
  }
  f.InverseTransform();
  for (std::size_t i = 0; i < 2 * n; ++i) EXPECT_NEAR(f.Cells()[i], cells[i], 1e-15);
}

/// The transform of cells, computed by the class.
std::vector<double> transformed(const std::vector<double>& cells) {
  TFastFourier f;
  fill(f, cells);
  f.DoFFT(1);
  return {f.Cells().begin(), f.Cells().end()};
}

double largest_difference(const std::vector<double>& a, const std::vector<double>& b) {
  double largest = 0.0;
  for (std::size_t i = 0; i < a.size(); ++i) largest = std::max(largest, std::abs(a[i] - b[i]));
  return largest;
}

TEST(FourierTransform, IsLinearAndTurnsImpulsesAndShiftsIntoPhases) {
  std::mt19937_64 bits(3);
  for (int round = 0; round < 60; ++round) {
    const std::size_t n = std::size_t{1} << (bits() % 13);
    const double tolerance = 4e-15 * static_cast<double>(n);
    const auto x = random_cells(2 * n, bits), y = random_cells(2 * n, bits);
    const double factor = random_cells(1, bits)[0];
    // The factors exp(2 pi i k s / n) of a shift by s, from a reference in long double.
    const std::size_t s = bits() % n;
    std::vector<double> sum(2 * n), shifted(2 * n), impulse(2 * n), phases(2 * n);
    for (std::size_t i = 0; i < 2 * n; ++i) {
      sum[i] = x[i] + factor * y[i];
      shifted[(i + 2 * s) % (2 * n)] = x[i];
    }
    impulse[2 * s] = 1.0;
    for (std::size_t k = 0; k < n; ++k) {
      const long double angle =
          2 * std::numbers::pi_v<long double> * static_cast<long double>(k * s % n) / static_cast<long double>(n);
      phases[2 * k] = static_cast<double>(std::cos(angle));
      phases[2 * k + 1] = static_cast<double>(std::sin(angle));
    }
    const auto of_x = transformed(x), of_y = transformed(y);
    std::vector<double> expected_sum(2 * n), expected_shift(2 * n);
    for (std::size_t k = 0; k < 2 * n; k += 2) {
      const std::complex<double> line(of_x[k], of_x[k + 1]), turned = line * std::complex(phases[k], phases[k + 1]);
      expected_sum[k] = of_x[k] + factor * of_y[k];
      expected_sum[k + 1] = of_x[k + 1] + factor * of_y[k + 1];
      expected_shift[k] = turned.real();
      expected_shift[k + 1] = turned.imag();
    }
    EXPECT_LE(largest_difference(transformed(sum), expected_sum), tolerance) << n;
    EXPECT_LE(largest_difference(transformed(shifted), expected_shift), tolerance) << n << ' ' << s;
    EXPECT_LE(largest_difference(transformed(impulse), phases), 1e-14) << n << ' ' << s;
  }
}

TEST(FourierTransform, OfOneSampleIsTheSample) {
  TFastFourier f;
  f.SetSpectrumSize(1);
  f.SetRealSpec(1, 3.5);
  f.Transform();
  f.InverseTransform();
  EXPECT_EQ(f.RealSpec(1), 3.5);
  EXPECT_EQ(f.PowerSpec(0), 12.25);
  EXPECT_EQ(f.MagniMax(), 0.0);
}

TEST(FourierReaders, GiveTheAmplitudesOfACosineAndASine) {
  TFastFourier f;
  fill_real(f, [](Integer i) {
    return 3.0 * std::cos(2 * kPi * 10 * (i - 1) / 256.0) + 2.0 * std::sin(2 * kPi * 20 * (i - 1) / 256.0);
  });
  f.Transform();
  EXPECT_NEAR(f.Magnitude(10), 3.0, 1e-13);
  EXPECT_NEAR(f.PowerSpec(10), 256 * 9.0 / 2, 1e-10);
  EXPECT_NEAR(f.FourSerCosCoeff(10), 3.0, 1e-13);
  EXPECT_NEAR(f.FourSerSinCoeff(10), 0.0, 1e-13);
  EXPECT_NEAR(f.FourSerSinCoeff(20), 2.0, 1e-13);
  EXPECT_NEAR(f.RMS(300, -5), std::sqrt(9.0 / 2 + 4.0 / 2), 1e-13);
  EXPECT_NEAR(f.PowerMax(), f.PowerSpec(10), 0.0);
  EXPECT_NEAR(f.MagniMax(), f.Magnitude(10), 0.0);
  EXPECT_NEAR(f.RealMax(), 3.0 * 128, 1e-10);
}

TEST(FourierReaders, CountTheMiddleLineTwice) {
  TFastFourier f;
  f.SetSpectrumSize(8);
  fill_real(f, [](Integer i) { return i % 2 ? 1.0 : -1.0; });
  f.Transform();
  EXPECT_DOUBLE_EQ(f.Magnitude(4), 2.0);
  EXPECT_DOUBLE_EQ(f.FourSerCosCoeff(4), 2.0);
  EXPECT_DOUBLE_EQ(f.PowerSpec(4), 16.0);
  EXPECT_EQ(f.MagniMax(), f.Magnitude(4));
  EXPECT_LT(f.PowerMax(), 1e-20);  // that line does not take part
}

TEST(FourierReaders, AreSilentOutOfRange) {
  TFastFourier f;
  fill_real(f, [](Integer) { return 1.0; });
  for (const Integer bad : {-1, 129, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(f.PowerSpec(bad), 0.0);
    EXPECT_EQ(f.Magnitude(bad), 0.0);
    EXPECT_EQ(f.Phase(bad), 0.0);
    EXPECT_EQ(f.FourSerCosCoeff(bad), 0.0);
    EXPECT_EQ(f.FourSerSinCoeff(bad), 0.0);
  }
  f.SetRealSpec(0, 9.0);
  f.SetImagSpec(257, 9.0);
  f.SetWgtFunction(257, 9.0);
  EXPECT_EQ(f.RealMax(), 1.0);
  EXPECT_EQ(f.WgtFunction(256), 1.0);
  EXPECT_EQ(f.WgtFunction(257), 0.0);
  EXPECT_EQ(f.RealSpec(0), 0.0);
}

TEST(FourierReaders, TakeThePhaseFromTheQuotientAlone) {
  TFastFourier f;
  EXPECT_EQ(f.Phase(3), -kPi / 2);  // 0 / 0
  f.SetImagSpec(4, 1.0);
  EXPECT_EQ(f.Phase(3), kPi / 2);
  f.SetRealSpec(4, -1.0);
  EXPECT_EQ(f.Phase(3), -kPi / 4);
}

TEST(FourierLines, FollowTheSampleTime) {
  TFastFourier f;
  EXPECT_EQ(f.FreqOfLine(64, 0.001), 250.0);
  EXPECT_EQ(f.FreqOfLine(0, 0.001), 0.0);
  EXPECT_EQ(f.LineOfFreq(250.0, 0.001), 64);
  EXPECT_EQ(f.LineOfFreq(2.5, 1.0 / 256), 2);  // ties to even
  for (const double bad : {0.0, double{INFINITY}, double{NAN}}) {
    EXPECT_EQ(f.FreqOfLine(64, bad), 0.0);
    EXPECT_EQ(f.LineOfFreq(250.0, bad), 0);
  }
  EXPECT_EQ(f.LineOfFreq(501.0 * 1.01, 0.001), 0);
  EXPECT_EQ(f.LineOfFreq(1e300, 1.0), 0);
}

TEST(FourierExtremes, FollowEveryChange) {
  TFastFourier f;
  f.SetRealSpec(7, 5.0);
  f.SetImagSpec(8, -4.0);
  EXPECT_EQ(f.RealMax(), 5.0);
  EXPECT_EQ(f.ImagMin(), -4.0);
  EXPECT_EQ(f.RealMin(), 0.0);
  EXPECT_EQ(f.ImagMax(), 0.0);
  f.ClearReal();
  EXPECT_EQ(f.RealMax(), 0.0);
  EXPECT_EQ(f.ImagMin(), -4.0);
  f.ClearImag();
  EXPECT_EQ(f.ImagMin(), 0.0);
}

namespace {

/// Weight of element i, in long double.
double window(TFastFourierWgtWin kind, int i, int n, double alpha) {
  const long double pi = std::numbers::pi_v<long double>, c = i - n / 2.0L, u = 2 * pi * c / n;
  switch (kind) {
    case fwTriangle:
      return static_cast<double>(2.0L * (i <= n / 2 ? i : n - i + 1) / n);
    case fwCos2:
      return static_cast<double>((1 + std::cos(u)) / 2);
    case fwGauss:
      return static_cast<double>(std::exp(-18 * (c / n) * (c / n)));
    case fwHamming:
      return static_cast<double>(0.543478261L + 0.456521739L * std::cos(u));
    case fwBlackman:
      return static_cast<double>(0.42659L + 0.49656L * std::cos(u) + 0.076848L * std::cos(2 * u));
    case fwBlkmHarris:
      return static_cast<double>(0.35875L + 0.48829L * std::cos(u) + 0.14128L * std::cos(2 * u) +
                                 0.01168L * std::cos(3 * u));
    case fwBlkmNuttall:
      return static_cast<double>(0.3635819L + 0.4891775L * std::cos(u) + 0.1365995L * std::cos(2 * u) +
                                 0.0106411L * std::cos(3 * u));
    case fwTukey: {
      const long double from_edge = i < n / 2 ? i : n - i;
      return from_edge < alpha * n / 2 ? static_cast<double>((1 - std::cos(2 * pi * from_edge / (alpha * n))) / 2)
                                       : 1.0;
    }
    default:
      return 1.0;
  }
}

}  // namespace

TEST(FourierWindows, HaveTheirPublishedShapes) {
  for (const double alpha : {0.0, 0.25, 1.0, 1.5}) {
    for (int kind = fwRectangle; kind <= fwTukey; ++kind) {
      TFastFourier f;
      f.SetSpectrumSize(64);
      f.SetWeightingWindow(static_cast<TFastFourierWgtWin>(kind));
      f.SetTukeyAlpha(alpha);
      fill_real(f, [](Integer) { return 1.0; });
      f.Transform();
      f.InverseTransform();
      for (int i = 1; i <= 64; ++i) {
        EXPECT_NEAR(f.RealSpec(i), window(f.WeightingWindow(), i, 64, f.TukeyAlpha()), 1e-14) << kind << ' ' << i;
      }
    }
  }
}

TEST(FourierWindows, OfTheUserAreOneAtFirstAndZeroAfterAChangeOfSize) {
  TFastFourier f;
  f.SetWeightingWindow(fwUserDef);
  f.SetRealSpec(1, 1.0);
  f.Transform();
  EXPECT_EQ(f.RealMin(), 1.0);
  f.SetSpectrumSize(256);
  f.SetRealSpec(1, 1.0);
  f.Transform();
  EXPECT_EQ(f.MagniMax(), 0.0);
}

TEST(FourierErrors, BadSizesLeaveTheObjectAsItWas) {
  TFastFourier f;
  f.SetName("Spec");
  f.SetRealSpec(5, 2.0);
  for (const Integer bad : {0, 3, -2, 1 << 24, (1 << 24) + 1, -2147483647 - 1, -2147483647}) {
    EXPECT_EQ(zor::test::message_of<EZORFourierError>([&] { f.SetSpectrumSize(bad); }),
              "Component \"Spec\": data length must be power of 2");
  }
  for (const std::size_t call : {1u, 2u}) {
    const zor::detail::AllocationLimitScope scope({.failing_call = call});
    EXPECT_EQ(zor::test::message_of<EZORFourierError>([&] { f.SetSpectrumSize(512); }),
              "Component \"Spec\": not enough memory on heap");
  }
  EXPECT_EQ(f.SpectrumSize(), 256);
  EXPECT_EQ(f.RealSpec(5), 2.0);
}
