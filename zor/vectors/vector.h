#pragma once

#include <iosfwd>

#include "zor/vectors/vector_core.h"

/// \file  TVector and TIntVector: what only one of them has. The rest stands in vector_core.h.

namespace ZOR_vector {

/// Rule of TVector::Integrate.
enum TIntegMethod : Byte { imSimple = 0, imTrapezoidal = 1, imSimpson = 2 };

/// A vector of doubles.
class ZOR_API TVector : public TComponent, public VectorCore<TVector, Double> {
 public:
  /// One element, 0; IsEmpty is true; no event is set.
  explicit TVector(TComponent* AOwner = nullptr);
  ~TVector() override = default;
  const char* ClassName() const noexcept override;
  void SetVecSize(Integer n) { SetNrOfElem(n); }

  /// \name Filling: one OnChange, IsEmpty becomes false
  /// @{
  /// RangeLow + (RangeHigh - RangeLow) * u with u uniform in [0, 1), from the runtime's generator, which is not
  /// reseeded.
  void FillRandomUniform(Double RangeLow, Double RangeHigh);
  /// Mean + StdDev * g, g being standard normal deviates (GRandom).
  void FillRandomGauss(Double Mean, Double StdDev);
  /// @}

  /// Takes over size, elements, IsEmpty and the handlers of a TVector. No event.
  void Assign(const TPersistent* Source) override;
  void AssignTo(TPersistent* Dest) const override;

  /// Scales the vector to a length; one OnChange. A vector of length 0 stays, also one whose length is not finite; no
  /// event then.
  void SetVecLeng(Double NewLeng);
  void SetLeng(Double NewLeng) { SetVecLeng(NewLeng); }

  /// \name Scaling of the whole vector; no event
  /// @{
  /// Subtracts the mean and returns it.
  Double MeanCenter();
  /// (x - mean) / stddev, if stddev > 0.
  void Standardize(Double& mean, Double& stddev);
  /// (x - Median) / QuantDiff with QuantDiff = |Median - Percentile(RefQuant)|, if that is above 0.
  void QNormalize(Double RefQuant, Double& Median, Double& QuantDiff);
  /// @}

  /// Integral of the curve through the points (i, element i) from BoundLow to BoundHigh, which are moved into 1 to
  /// NrOfElem and exchanged if reversed. NaN bounds give NaN, an unknown Method 0.0.
  Double Integrate(Double BoundLow, Double BoundHigh, TIntegMethod Method) const;

  /// \name Text files
  /// @{
  /// Writes the whole vector as an ASC text file of one column: comment line (empty: a default text with the file
  /// name), counts, flags, one value a line with Precision decimals (0 to 25). 0, or kCannotCreateFile; EInOutError if
  /// writing fails later.
  Integer ExportAsASC(const TString& FName, Integer Precision, const TString& Comment) const;
  /// Writes a range as plain text: first and last element number, then one value a line, with Precision decimals (at
  /// most 20), or in scientific notation in 26 (-2) or 13 (-1) characters. True as soon as the file could be created,
  /// also if writing fails later.
  Boolean StoreOnFile(Integer FirstElem, Integer LastElem, Integer Precision, const TString& FileName) const;
  using VectorCore::LoadFromFile;
  /// With AutoDetect: element i is the number at the start of the i-th line that carries the mark "//dig"; a file
  /// without any mark is read as the plain form.
  Boolean LoadFromFile(const TString& FileName, Boolean AdjustVectorSize, Boolean AutoDetect);
  /// @}
};

/// A vector of 32-bit integers.
class ZOR_API TIntVector : public TComponent, public VectorCore<TIntVector, Integer> {
 public:
  /// One element, 0; IsEmpty is true; no event is set.
  explicit TIntVector(TComponent* AOwner = nullptr);
  ~TIntVector() override = default;
  const char* ClassName() const noexcept override;

  void SetIntVecSize(Integer n) { SetNrOfElem(n); }
  using VectorCore::Fill;
  using VectorCore::SMult;
  // No silent narrowing.
  template <std::floating_point F>
  void Fill(F) = delete;
  template <std::floating_point F>
  void SMult(F) = delete;

  /// Takes over size, elements, IsEmpty and the handlers of a TIntVector. No event.
  void Assign(const TPersistent* Source) override;
  void AssignTo(TPersistent* Dest) const override;

  /// Writes the whole vector as an ASC text file of one column: comment line (empty: a default text with the file
  /// name), counts, flags, one value a line. 0, or kCannotCreateFile; EInOutError if writing fails later.
  Integer ExportAsASC(const TString& FName, const TString& Comment) const;
  /// Writes a range as plain text: first and last element number, then one value a line. (0, 0) writes no value. True
  /// as soon as the file could be created, also if writing fails later.
  Boolean StoreOnFile(Integer FirstElem, Integer LastElem, const TString& FileName) const;
};

/// Prints the elements, cut to 20 lines.
ZOR_API std::ostream& operator<<(std::ostream& out, const TVector& vec);
ZOR_API std::ostream& operator<<(std::ostream& out, const TIntVector& vec);

}  // namespace ZOR_vector
