#pragma once

#include "zor/base/ZOR_zorbase.h"
#include "zor/transforms/ZOR_wavelet_fwd.h"

/// \file  The class TWavelet1D. What holds for all of it stands in ZOR_wavelet.h.

namespace ZOR_wavelet {

using namespace ZOR_zorbase;

/// Failures of this unit.
ZOR_DECLARE_EXCEPTION(EZORWaveletError, EZORError);

/// What stands left of the signal: its right end, zeros, or its mirror image.
enum TWLSigExtMode : Byte { wseWrap = 0, wseZeroPad = 1, wseSymmetric = 2 };
enum TWaveletFamily : Byte { wlfDaubechies = 0 };

class ZOR_API TWavelet1D : public TComponent {
 public:
  /// 256 elements of 0, order 2, wseWrap.
  explicit TWavelet1D(TComponent* AOwner = nullptr);
  ~TWavelet1D() override = default;
  const char* ClassName() const noexcept override;

  TWaveletFamily WaveletFamily() const noexcept { return FWaveletFam; }
  void SetWaveletFamily(TWaveletFamily v) noexcept { SetWaveletFam(v); }
  void SetWaveletFam(TWaveletFamily v) noexcept { FWaveletFam = v; }
  Integer Order() const noexcept { return FOrder; }
  /// Order of the filter, 1..3. Throws EZORWaveletError "invalid order of Daubechies wavelet family".
  void SetOrder(Integer v);
  Integer Size() const noexcept { return FNumData; }
  void SetSize(Integer v) { SetNumData(v); }
  /// Length 1, 2, 4, ... 2^23; the data become 0. Throws EZORWaveletError "data length must be power of 2", "not enough
  /// memory on heap"; the object is then as it was.
  void SetNumData(Integer v);
  TWLSigExtMode SignalExtMode() const noexcept { return FWLSigExtMode; }
  void SetSignalExtMode(TWLSigExtMode v) noexcept { SetSigExtMode(v); }
  void SetSigExtMode(TWLSigExtMode v) noexcept { FWLSigExtMode = v; }

  void Clear() noexcept;
  Double GetDataVal(Integer ix) const noexcept { return ix >= 1 && ix <= FNumData ? FData[to_index(ix)] : 0.0; }
  void SetDataVal(Integer ix, Double v) noexcept {
    if (ix >= 1 && ix <= FNumData) FData[to_index(ix)] = v;
  }
  Double Data(Integer ix) const noexcept { return GetDataVal(ix); }
  void SetData(Integer ix, Double v) noexcept { SetDataVal(ix, v); }

  void Transform(Integer Level) { DoWLT(Level, false); }
  void InverseTransform(Integer Level) { DoWLT(Level, true); }
  void SingleStep(Boolean inverse) { PartialWLT(FNumData, 0, inverse); }
  /// Up to Level steps (at least 1): forward on N, N/2, ... points, inverse on 2, 4, ... points. So an inverse undoes a
  /// forward transform only if Level is at least log2 N.
  void DoWLT(Integer Level, Boolean inverse);
  /// One step on NumPts elements from place Offset, counted from 0. Nothing happens if NumPts is no power of two from 2
  /// on or the block leaves the data.
  void PartialWLT(Integer NumPts, Integer Offset, Boolean inverse);

 private:
  static std::size_t to_index(Integer ix) noexcept { return static_cast<std::size_t>(ix - 1); }

  Integer FNumData = 0;
  TDynArray<Double> FData;
  Integer FOrder = 2;
  TDynArray<Double> FCoeffsLP, FCoeffsHP;
  TWLSigExtMode FWLSigExtMode = wseWrap;
  TWaveletFamily FWaveletFam = wlfDaubechies;
};

}  // namespace ZOR_wavelet
