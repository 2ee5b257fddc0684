#pragma once

#include <cstddef>
#include <iosfwd>
#include <span>

#include "zor/base/ZOR_zorbase.h"
#include "zor/base/edit_scope.h"
#include "zor/transforms/ZOR_fourier_fwd.h"

/// \file  The class TFastFourier. What holds for all of it stands in ZOR_fourier.h.

namespace ZOR_fourier {

using namespace ZOR_zorbase;

/// Failures of this unit.
ZOR_DECLARE_EXCEPTION(EZORFourierError, EZORError);

/// Window of TFastFourier::Transform. With c = i - N/2, element i is multiplied by:
enum TFastFourierWgtWin : Byte {
  fwRectangle = 0,    ///< 1
  fwTriangle = 1,     ///< 2 i / N for i up to N div 2, and the same from the end; symmetric about (N + 1) / 2
  fwCos2 = 2,         ///< cos(pi c / N)^2; like all that follow symmetric about N/2
  fwGauss = 3,        ///< exp(-u^2 / 2), u = 6 c / N
  fwHamming = 4,      ///< 0.543478261 + 0.456521739 cos(2 pi c / N)
  fwBlackman = 5,     ///< 0.42659, 0.49656, 0.076848 times the cosines of 0, 1, 2 times 2 pi c / N
  fwBlkmHarris = 6,   ///< 0.35875, 0.48829, 0.14128, 0.01168 likewise
  fwBlkmNuttall = 7,  ///< 0.3635819, 0.4891775, 0.1365995, 0.0106411 likewise
  fwTukey = 8,        ///< raised cosine over the share TukeyAlpha of the samples, 1 between
  fwUserDef = 9       ///< WgtFunction(i)
};

class ZOR_API TFastFourier : public TComponent {
 public:
  /// 256 samples of 0, no window, TukeyAlpha 0, user weights 1.
  explicit TFastFourier(TComponent* AOwner = nullptr);
  ~TFastFourier() override = default;
  const char* ClassName() const noexcept override;

  /// \name Settings
  /// @{
  Integer SpectrumSize() const noexcept { return FNumData; }
  void SetSpectrumSize(Integer v) { SetNumData(v); }
  /// Sets the number of samples to 1, 2, 4, ... 2^23; samples and user weights become 0 (the constructor alone makes
  /// the weights 1). Throws EZORFourierError "data length must be power of 2", "not enough memory on heap"; the object
  /// is then as it was.
  void SetNumData(Integer v);
  TFastFourierWgtWin WeightingWindow() const noexcept { return FWgtWin; }
  void SetWeightingWindow(TFastFourierWgtWin v) noexcept { SetWgtWin(v); }
  void SetWgtWin(TFastFourierWgtWin v) noexcept { FWgtWin = v; }
  /// Share of the samples under the slopes of fwTukey; limited to 0..1, NaN counts as 0.
  Double TukeyAlpha() const noexcept { return FTukAlpha; }
  void SetTukeyAlpha(Double v) noexcept { SetTukAlpha(v); }
  void SetTukAlpha(Double v) noexcept { FTukAlpha = v > 1.0 ? 1.0 : v > 0.0 ? v : 0.0; }
  /// @}

  /// \name Samples, numbered from 1
  /// @{
  Double GetRealVal(Integer ix) const noexcept { return has(ix) ? FData[cell(ix)] : 0.0; }
  Double GetImagVal(Integer ix) const noexcept { return has(ix) ? FData[cell(ix) + 1] : 0.0; }
  Double GetWgtVal(Integer ix) const noexcept { return has(ix) ? FUserWgt[cell(ix) / 2] : 0.0; }
  void SetRealVal(Integer ix, Double v) noexcept;
  void SetImagVal(Integer ix, Double v) noexcept;
  void SetWgtVal(Integer ix, Double v) noexcept;
  Double RealSpec(Integer ix) const noexcept { return GetRealVal(ix); }
  void SetRealSpec(Integer ix, Double v) noexcept { SetRealVal(ix, v); }
  Double ImagSpec(Integer ix) const noexcept { return GetImagVal(ix); }
  void SetImagSpec(Integer ix, Double v) noexcept { SetImagVal(ix, v); }
  Double WgtFunction(Integer ix) const noexcept { return GetWgtVal(ix); }
  void SetWgtFunction(Integer ix, Double v) noexcept { SetWgtVal(ix, v); }
  /// All samples, interleaved: real part, imaginary part; valid until the next change of size.
  std::span<const Double> Cells() const noexcept { return {FData.data(), FData.size()}; }
  /// Writable samples for one scope; the extremes are computed anew after it.
  [[nodiscard]] EditScope<TFastFourier, Double> Edit() {
    return {*this, std::span<Double>(FData.data(), FData.size())};
  }
  /// Says that samples have changed: the extremes are computed anew when they are next read.
  void Changed() noexcept { MaxValuesValid = false; }
  /// Set samples, their real or their imaginary parts to 0.
  void Clear() noexcept;
  void ClearReal() noexcept;
  void ClearImag() noexcept;
  /// @}

  /// \name Transforms
  /// All may throw EZORFourierError "not enough memory on heap" when twiddle factors are first made for a size and
  /// direction; the samples are then as they were.
  /// @{
  /// Multiplies the window into the samples, then transforms. A second call applies the window again.
  void Transform();
  /// Transforms back, without window.
  void InverseTransform() { DoFFT(-1); }
  /// Inverse transform for negative ISign, else the forward one. Radix 2 in place with the twiddle recurrence, whose
  /// error is about 6e-16 for 2^10 and 7e-15 for 2^17 samples.
  void DoFFT(Integer ISign);
  /// @}

  /// \name Spectrum, lines from 0 to N/2; 0.0 elsewhere
  /// With re, im of the line and re', im' of its mirror. At line N/2 both coincide and count twice.
  /// @{
  /// (re^2 + im^2 + re'^2 + im'^2) / N; line 0: (re^2 + im^2) / N.
  Double GetPowerSpec(Integer ix) const noexcept;
  /// sqrt((re + re')^2 + (im - im')^2) / N, the amplitude of a real sinusoid (twice that at line N/2); line 0:
  /// sqrt(re^2 + im^2) / N.
  Double GetMagnitude(Integer ix) const noexcept;
  /// arctan(im / re) in radians, without regard to the quadrant; for re = 0 pi/2 if im > 0, else -pi/2 (also for im =
  /// 0). 0.0 for line 0.
  Double GetPhase(Integer ix) const noexcept;
  /// Sine coefficient of the Fourier series, (im - im') / N.
  Double GetFSerSin(Integer n) const noexcept;
  /// Cosine coefficient, (re + re') / N; line 0: re / N.
  Double GetFSerCos(Integer n) const noexcept;
  Double PowerSpec(Integer ix) const noexcept { return GetPowerSpec(ix); }
  Double Magnitude(Integer ix) const noexcept { return GetMagnitude(ix); }
  Double Phase(Integer ix) const noexcept { return GetPhase(ix); }
  Double FourSerSinCoeff(Integer n) const noexcept { return GetFSerSin(n); }
  Double FourSerCosCoeff(Integer n) const noexcept { return GetFSerCos(n); }
  /// Root mean square of the signal in a band: square root of the squares of all lines of it and their mirrors, over N.
  /// Bounds are moved to 0..N/2 and exchanged if reversed.
  Double RMS(Integer FirstIx, Integer LastIx) const noexcept;
  /// ix / SampleTime / N for lines 1..N/2, else 0.0; also for a SampleTime that is 0 or not finite.
  Double FreqOfLine(Integer ix, Double SampleTime) const noexcept;
  /// f N SampleTime rounded, ties to even; 0 where that is no line of 1..N/2 or no number.
  Integer LineOfFreq(Double f, Double SampleTime) const noexcept;
  /// @}

  /// \name Extremes, computed at the first reading after a change
  /// @{
  /// Largest power of the lines 1..N/2 - 1.
  Double GetMaxPower() { return current().FMaxPower; }
  /// Largest magnitude of the lines 1..N/2.
  Double GetMaxMagni() { return current().FMaxMagni; }
  /// Extremes of the parts of all elements.
  Double GetMaxReal() { return current().FMaxReal; }
  Double GetMaxImag() { return current().FMaxImag; }
  Double GetMinReal() { return current().FMinReal; }
  Double GetMinImag() { return current().FMinImag; }
  Double PowerMax() { return GetMaxPower(); }
  Double MagniMax() { return GetMaxMagni(); }
  Double RealMax() { return GetMaxReal(); }
  Double ImagMax() { return GetMaxImag(); }
  Double RealMin() { return GetMinReal(); }
  Double ImagMin() { return GetMinImag(); }
  /// Computes all six. NaN are passed over.
  void CalcMaxValues() noexcept;
  /// @}

 private:
  using Cells1D = TDynArray<Double>;

  bool has(Integer ix) const noexcept { return ix >= 1 && ix <= FNumData; }
  static std::size_t cell(Integer ix) noexcept { return 2 * static_cast<std::size_t>(ix - 1); }
  const TFastFourier& current() {
    if (!MaxValuesValid) {
      CalcMaxValues();
      MaxValuesValid = true;
    }
    return *this;
  }
  template <class F>
  void multiply_window(F weight) noexcept;
  Double energy(Integer line) const noexcept;
  Cells1D& twiddles_for(bool inverse);

  Integer FNumData = 0;
  TFastFourierWgtWin FWgtWin = fwRectangle;
  Boolean MaxValuesValid = false;
  Double FMaxReal = 0.0, FMaxImag = 0.0, FMinReal = 0.0, FMinImag = 0.0, FMaxPower = 0.0, FMaxMagni = 0.0;
  Double FTukAlpha = 0.0;
  Cells1D FUserWgt, FData;
  Cells1D forward_twiddles_, inverse_twiddles_;
};

/// Line, magnitude, power and phase of the first lines.
ZOR_API std::ostream& operator<<(std::ostream& out, const TFastFourier& f);

}  // namespace ZOR_fourier
