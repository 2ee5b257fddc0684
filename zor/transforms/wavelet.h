#pragma once

#include <cstddef>
#include <iosfwd>
#include <span>

#include "zor/base/ZOR_zorbase.h"
#include "zor/base/edit_scope.h"
#include "zor/transforms/ZOR_wavelet_fwd.h"

/// \file  The class TWavelet1D. What holds for all of it stands in ZOR_wavelet.h.

namespace ZOR_wavelet {

using namespace ZOR_zorbase;

/// Failures of this unit.
ZOR_DECLARE_EXCEPTION(EZORWaveletError, EZORError);

/// What stands left of the signal. Nothing is needed right of it.
enum TWLSigExtMode : Byte {
  wseWrap = 0,      ///< The right end of the block: the transform is orthogonal and can be undone.
  wseZeroPad = 1,   ///< Zeros. For analysis only.
  wseSymmetric = 2  ///< The mirror image of the left end. For analysis only.
};

/// Family of the filters.
enum TWaveletFamily : Byte {
  wlfDaubechies = 0  ///< Daubechies' filters of least length, orders 1 (that of Haar) to 3
};

class ZOR_API TWavelet1D : public TComponent {
 public:
  /// 256 elements of 0, order 2, wseWrap.
  explicit TWavelet1D(TComponent* AOwner = nullptr);
  ~TWavelet1D() override = default;
  const char* ClassName() const noexcept override;

  /// \name Settings
  /// A change between a transform and its inverse gives a wrong result without a message.
  /// @{
  TWaveletFamily WaveletFamily() const noexcept { return FWaveletFam; }
  void SetWaveletFamily(TWaveletFamily v) noexcept { SetWaveletFam(v); }
  void SetWaveletFam(TWaveletFamily v) noexcept { FWaveletFam = v; }
  /// Number of vanishing moments, 1 to 3; the filters have twice as many coefficients.
  Integer Order() const noexcept { return FOrder; }
  /// Throws EZORWaveletError "invalid order of Daubechies wavelet family" for other orders; the old one stays.
  void SetOrder(Integer v);
  Integer Size() const noexcept { return FNumData; }
  void SetSize(Integer v) { SetNumData(v); }
  /// Sets the number of elements to 1, 2, 4, ... 2^23; all become 0. Throws EZORWaveletError "data length must be power
  /// of 2", "not enough memory on heap"; the object is then as it was.
  void SetNumData(Integer v);
  TWLSigExtMode SignalExtMode() const noexcept { return FWLSigExtMode; }
  void SetSignalExtMode(TWLSigExtMode v) noexcept { SetSigExtMode(v); }
  void SetSigExtMode(TWLSigExtMode v) noexcept { FWLSigExtMode = v; }
  /// @}

  /// \name Signal or coefficients, numbered from 1
  /// @{
  Double GetDataVal(Integer ix) const noexcept { return has(ix) ? FData[cell(ix)] : 0.0; }
  void SetDataVal(Integer ix, Double v) noexcept {
    if (has(ix)) FData[cell(ix)] = v;
  }
  Double Data(Integer ix) const noexcept { return GetDataVal(ix); }
  void SetData(Integer ix, Double v) noexcept { SetDataVal(ix, v); }
  /// All elements; valid until the next change of size.
  std::span<const Double> Cells() const noexcept { return {FData.data(), FData.size()}; }
  /// All elements, writable for one scope.
  [[nodiscard]] EditScope<TWavelet1D, Double> Edit() { return {*this, std::span<Double>(FData.data(), FData.size())}; }
  /// Sets all elements to 0.
  void Clear() noexcept;
  /// @}

  /// \name Transforms
  /// The first one after a change of size makes a work array of half the size, which is kept. It may throw
  /// EZORWaveletError "not enough memory on heap"; the elements are then as they were.
  /// @{
  /// Level steps forward, at least 1 and at most log2 N: on all N elements, on the first N/2, on the first N/4, ...
  void Transform(Integer Level) { DoWLT(Level, false); }
  /// Level inverse steps: on the first 2 elements, on the first 4, ... So it undoes Transform only if both have a Level
  /// of log2 N or more.
  void InverseTransform(Integer Level) { DoWLT(Level, true); }
  /// One step on all elements. The inverse one undoes the other.
  void SingleStep(Boolean inverse) { PartialWLT(FNumData, 0, inverse); }
  /// Transform or InverseTransform.
  void DoWLT(Integer Level, Boolean inverse);
  /// One step on NumPts elements from the place Offset on, which counts from 0. Nothing happens if NumPts is not 2, 4,
  /// 8, ... or if the block leaves the data.
  void PartialWLT(Integer NumPts, Integer Offset, Boolean inverse);
  /// @}

 private:
  friend class EditScope<TWavelet1D, Double>;

  bool has(Integer ix) const noexcept { return ix >= 1 && ix <= FNumData; }
  static std::size_t cell(Integer ix) noexcept { return static_cast<std::size_t>(ix - 1); }
  void Changed() noexcept {}
  /// Steps within a block; its whole size belongs to the first forward or the last inverse step.
  void run_steps(std::size_t offset, std::size_t size, std::size_t steps, bool inverse);

  Integer FNumData = 0;
  TDynArray<Double> FData;
  Integer FOrder = 2;
  TDynArray<Double> FCoeffsLP, FCoeffsHP;
  TWLSigExtMode FWLSigExtMode = wseWrap;
  TWaveletFamily FWaveletFam = wlfDaubechies;
  TDynArray<Double> work_;
};

/// The first elements, each on a line.
ZOR_API std::ostream& operator<<(std::ostream& out, const TWavelet1D& w);

}  // namespace ZOR_wavelet
