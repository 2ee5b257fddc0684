#pragma once

#include <span>

#include "zor/base/ZOR_zorbase.h"
#include "zor/base/asc_codec.h"
#include "zor/base/edit_scope.h"
#include "zor/base/elem_ref.h"
#include "zor/runtime/streams.h"
#include "zor/vectors/ZOR_vector_fwd.h"

/// \file  What the vectors have in common, whatever their cells. What holds for all of it stands in ZOR_vector.h.

namespace zor::detail {
struct VectorCells;  // store_internal.h
}  // namespace zor::detail

namespace ZOR_vector {

using namespace ZOR_zorbase;

/// Failures of this unit.
ZOR_DECLARE_EXCEPTION(EZORVectorError, EZORError);

/// Results of the copies.
inline constexpr Integer kNoSource = -1;        ///< Null or empty source.
inline constexpr Integer kBadSourceRange = -2;  ///< Bound outside the source.
inline constexpr Integer kBadDestination = -3;  ///< Destination outside this vector.
/// Result of MakeValidElemRange: a bound was moved.
inline constexpr Integer kRangeClamped = -1;
/// Results of ExportAsASC and ImportASC; other negative codes of ImportASC are those of ReadHeaderOfASC.
inline constexpr Integer kCannotCreateFile = -1;                            ///< ExportAsASC.
inline constexpr Integer kBadRowAttribute = zor::detail::kAscBadAttribute;  ///< A row attribute is no number.
inline constexpr Integer kBadValue = zor::detail::kAscBadValue;             ///< A value is no number.
inline constexpr Integer kMoreThanOneColumn = zor::detail::kAscBadColumns;
inline constexpr Integer kNoSuchFile = zor::detail::kAscNoFile;
inline constexpr Integer kNoCells = zor::detail::kAscNoCells;  ///< The file announces no row or no column.
/// Most bins of Histogram.
inline constexpr Integer kMaxBins = 500;

/// A vector that derives from TComponent and from VectorCore<itself, its cells> has all that does not depend on the
/// kind of cells. The core is no component: it speaks for the vector in events and messages.
template <class Self, Cell T>
class ZOR_API VectorCore {
 public:
  using value_type = T;
  using TArray = TDynArray<T>;
  using T2DArray = TDynArray<TArray>;
  using TRef = TElemRef<Self, T, Integer>;
  /// After every change of cells.
  TNotifyEvent OnChange;
  /// After every change of size, behind OnChange.
  TNotifyEvent OnResize;
  /// After each exchange of SortElems, with element numbers.
  TSortExchgEvent OnSortExchange;
  /// \name Size
  /// @{
  Integer NrOfElem() const noexcept { return zor::detail::to_integer(FVec.size()); }
  /// Resizes if n is at least 1 and differs from the size.
  void SetNrOfElem(Integer n) {
    if (n >= 1 && n != NrOfElem()) Resize(n);
  }
  /// Sets the number of elements; those that stay keep their values, new ones are 0. False for NE below 1. One
  /// OnChange, then OnResize if the size differs. Throws EZORVectorError "not enough memory" also when a handler
  /// throws; the cause is nested in it.
  Boolean Resize(Integer NE);
  /// True until data are put in by a fill or a write; Clear sets it again. A mark of the data, not of the size.
  Boolean IsEmpty() const noexcept { return FIsEmpty; }
  void SetIsEmpty(Boolean empty) noexcept { FIsEmpty = empty; }
  /// @}

  /// \name Elements
  /// @{
  /// Element number Elem, 0 outside.
  T GetVal(Integer Elem) const noexcept {
    const std::size_t i = static_cast<std::size_t>(Elem) - 1;
    return i < FVec.size() ? FVec[i] : T{0};
  }
  /// Stores a value and tells OnChange; outside nothing happens.
  void SetVal(Integer Elem, T Value) {
    const std::size_t i = static_cast<std::size_t>(Elem) - 1;
    if (i >= FVec.size()) return;
    FVec[i] = Value;
    FIsEmpty = false;
    Changed();
  }
  T Elem(Integer i) const noexcept { return GetVal(i); }
  /// Element i, which may also be assigned to.
  TRef Elem(Integer i) noexcept { return {self(), i}; }
  void SetElem(Integer i, T value) { SetVal(i, value); }
  /// The cells, element 1 first; valid until the next resize.
  std::span<const T> Cells() const noexcept { return {FVec.data(), FVec.size()}; }
  const T* begin() const noexcept { return FVec.begin(); }
  const T* end() const noexcept { return FVec.end(); }
  /// Writable cells for one scope, which tells OnChange once at its end. IsEmpty becomes false.
  [[nodiscard]] EditScope<Self, T> Edit() {
    FIsEmpty = false;
    return {self(), std::span<T>(FVec.data(), FVec.size())};
  }
  /// Turns a pair of bounds into a valid range: (0, 0) becomes the whole vector, bounds outside are moved to the
  /// nearest element, then reversed ones exchanged. 0, or kRangeClamped if a bound was moved.
  Integer MakeValidElemRange(Integer& LowElem, Integer& HighElem) const noexcept;
  /// @}

  /// \name Filling: one OnChange, IsEmpty becomes false
  /// @{
  void Fill(T value);
  /// Element 1 is Offset, each next one the one before plus Diff, by repeated addition (integers wrap).
  void FillSerial(T Offset, T Diff);
  /// All elements 0 and IsEmpty true.
  void Clear();
  /// @}

  /// \name Copies
  /// Elements that would land outside this vector are dropped. OnChange fires for each stored element and once more at
  /// the end.
  /// @{
  /// Becomes as long as the source and takes its elements. Null: nothing.
  void Clone(const Self* VecSource);
  /// Copies elements SrcElemLo to SrcElemHi of Src to DestElem on; (0, 0) means all of it, and then DestElem is not
  /// tested. kNoSource, kBadSourceRange, kBadDestination (the later wins): nothing copied, no event.
  Integer CopyFrom(const Self* Src, Integer SrcElemLo, Integer SrcElemHi, Integer DestElem);
  /// The same from an array, whose positions count from 0. (0, 0) is the whole array, so position 0 alone cannot be
  /// copied.
  Integer CopyFrom(TArray Src, Integer SrcElemLo, Integer SrcElemHi, Integer DestElem);
  /// Takes SrcArray[FirstCol..LastCol][Row], indices from 0 and moved into the array. DestElem may be 0 or negative as
  /// long as the last value lands on element 1 or later; else nothing happens. An empty or ragged array does nothing.
  void CopyFrom2DArrayRow(T2DArray SrcArray, Integer Row, Integer FirstCol, Integer LastCol, Integer DestElem);
  /// Takes SrcArray[Col][FirstRow..LastRow] likewise.
  void CopyFrom2DArrayColumn(T2DArray SrcArray, Integer Col, Integer FirstRow, Integer LastRow, Integer DestElem);
  /// Copies a repaired range to DestArray from position DestElem (from 0, negative counts as 0) on; the array ends
  /// behind the last element copied. No event. A length that no array can have raises "not enough memory".
  void CopyToArray(TArray& DestArray, Integer LowElem, Integer HighElem, Integer DestElem) const;
  /// Copies a repaired range into DestArray, which keeps its shape: down column DestCol from DestRow on (AsColumn), or
  /// along row DestRow from DestCol on. What lies beyond the end is skipped. No event. An empty or ragged array does
  /// nothing.
  void CopyToArray(T2DArray& DestArray, Integer LowElem, Integer HighElem, Integer DestCol, Integer DestRow,
                   Boolean AsColumn) const;
  /// @}

  /// \name Notifications
  /// @{
  void Changed() { OnChange(&self()); }
  void Resized() { OnResize(&self()); }
  void SortExchange(Byte ExchgWhat, Integer index1, Integer index2, Integer first, Integer last) {
    OnSortExchange(&self(), ExchgWhat, index1, index2, first, last);
  }
  /// @}

  /// Fingerprint of the elements and their order: one CRC-32 for each byte of a cell (8 of a double, 4 of an integer),
  /// over that byte of all elements, each as eight upper-case hexadecimal digits, lowest byte first. 0.0 and -0.0
  /// differ.
  TString CRCofData() const;
  /// \name Arithmetic
  /// One OnChange; IsEmpty stays. A null operand does nothing; another size throws EZORVectorError "vectors have
  /// different dimensions". Integers wrap.
  /// @{
  void Add(const Self* OtherVec);
  void Subtract(const Self* OtherVec);
  void SMult(T scalar);
  /// The absolute values; the lowest Integer stays.
  void AbsVal();
  /// Sum of products in element order. 0 for a null operand.
  T DotProduct(const Self* OtherVec) const;
  /// Square root of the sum of squares in element order. Integer squares wrap to 32 bits before they are added; a
  /// negative sum counts as 0.
  Double CalcVecLeng() const;
  Double Leng() const { return CalcVecLeng(); }
  /// @}

  /// \name Statistics of a repaired range; no event
  /// NaN is never extreme and never found.
  /// @{
  /// Sum in element order, from 0. Integers wrap.
  T Sum(Integer LowElem, Integer HighElem) const;
  /// Mean S / n and sample variance (Q - S * S / n) / (n - 1), from one pass with sums carried in twice the precision.
  /// The variance is 1.0 below three values, exactly 0.0 for equal values, never negative.
  void MeanVar(Integer LowElem, Integer HighElem, Double& Mean, Double& Variance) const;
  void MinMax(Integer LowElem, Integer HighElem, T& Minimum, T& Maximum) const;
  /// Smallest and largest value and the first elements that have them. The search starts from +-1.7e308 (integers:
  /// +-2147483647) and numbers 0, which stay if no element lies inside.
  void MinMax(Integer LowElem, Integer HighElem, T& Minimum, T& Maximum, Integer& MinIx, Integer& MaxIx) const;
  /// Most frequent value; of equally frequent ones the smallest.
  T Mode(Integer LowElem, Integer HighElem) const;
  /// Quartiles, interpolated at position (n + 1) p of the sorted values. True. Throws EZORVectorError "not enough
  /// memory on heap".
  Boolean Quartiles(Integer LowElem, Integer HighElem, Double& Q1, Double& Q2, Double& Q3) const;
  /// Percentile prob (0 to 100, moved into that range), interpolated at position (n - 1) prob / 100 of the sorted
  /// values counted from 0; NaN for NaN. Throws EZORVectorError "not enough memory on heap".
  Double Percentile(Double prob, Integer LowElem, Integer HighElem) const;
  /// exp of the mean logarithm; 0.0 if an element is 0. Throws EZORVectorError for a negative element.
  Double GeometricMean(Integer LowElem, Integer HighElem) const;
  /// n / sum of 1 / x. Throws EZORVectorError for an element of 0 or below.
  Double HarmonicMean(Integer LowElem, Integer HighElem) const;
  /// Skewness and excess kurtosis with the standard deviation of n - 1 in the denominator; 0.0 below four values.
  void SkewKurt(Integer LowElem, Integer HighElem, Double& Skewness, Double& Kurtosis) const;
  /// The same corrected to a sample; 0.0 below four values. The formula applies to equal values too, which then have a
  /// kurtosis above 0.
  void SkewKurtSample(Integer LowElem, Integer HighElem, Double& Skewness, Double& Kurtosis) const;
  /// Counts elements FirstElem to LastElem, taken as they stand: elements outside read 0, so that (0, 0) counts one
  /// zero, not the vector, and reversed bounds count nothing. The bins are [FirstBin + b BinWidth, + BinWidth), the
  /// last of which begins at LastBin. Histo gets one cell a bin; Underflow lies below FirstBin, Overflow behind the
  /// last bin (NaN too); MaxCnt is the largest count. TVector: false for more than kMaxBins bins, a BinWidth not above
  /// 0 or limits not finite, with the outputs untouched. TIntVector: a BinWidth below 1 counts as 1; more bins throw
  /// EZORVectorError "invalid number of bins".
  Boolean Histogram(Integer FirstElem, Integer LastElem, T FirstBin, T LastBin, T BinWidth, TIntArray& Histo,
                    Integer& Underflow, Integer& Overflow, Integer& MaxCnt) const;
  /// The same into a vector, which gets as many elements as there are bins: OnChange and OnResize of a new size, then
  /// one OnChange. False leaves it alone; a null one gives false.
  Boolean Histogram(Integer FirstElem, Integer LastElem, T FirstBin, T LastBin, T BinWidth, TIntVector* Histo,
                    Integer& Underflow, Integer& Overflow, Integer& MaxCnt) const;
  /// True if there are two elements at least and no more than two values, v1 (of the first element) and v2.
  Boolean IsDichotomous(T& v1, T& v2) const;
  /// Correlation coefficient of Pearson, from sums in twice the precision; 0.0 for a null vector, other sizes, less
  /// than two elements or values that are all equal.
  Double PearsonCorrCoeff(const Self* OtherVec) const;
  /// Lag product. TVector: sum of a[i] b[i - ElemShift] over the overlap, 0.0 if that has less than two elements.
  /// TIntVector: sum of a[i] b[i + ElemShift], wrapping, with 0 outside b. Null: 0.
  T Correlate(const Self* OtherVec, Integer ElemShift) const;
  /// Square root of the sum of squared differences. Throws EZORVectorError for another size or null.
  Double EuclideanDistance(const Self* OtherVec) const;
  /// @}

  /// \name Search and order
  /// @{
  /// First element nearest to value; 0 if there is none (NaN).
  Integer Find(Integer LowElem, Integer HighElem, T value) const;
  /// First element equal to value, else 0.
  Integer FindExact(Integer LowElem, Integer HighElem, T value) const;
  /// Bisection in a sorted vector: an element equal to Value, else the nearer one of the last two candidates, on a tie
  /// the later.
  Integer FindInSortedVector(Boolean Ascending, T Value) const;
  /// Comb sort of a range; (0, 0) means all. OnSortExchange fires after each exchange, OnChange once at the end, also
  /// when nothing moved, but not for a range of one element. Not stable; NaN never moves.
  void SortElems(Boolean Ascending, Integer RangeFirst, Integer RangeLast);
  /// Reverses the order; one OnChange.
  void Mirror();
  /// Exchanges two random elements n times, after reseeding the runtime's generator from the clock. No event.
  void ShuffleElems();
  /// @}

  /// \name Files and streams
  /// @{
  /// Reads an ASC text file of one column, names and row attributes being dropped; "NAN" and "###" give 0 (integers are
  /// rounded, ties to even). 0, kBadRowAttribute, kBadValue (the vector ends with the element that failed),
  /// kMoreThanOneColumn, kNoSuchFile, kNoCells, or a code of ReadHeaderOfASC.
  Integer ImportASC(const TString& FName, TString& Comment);
  /// Reads the plain form into the elements that it names; with AdjustVectorSize the vector is first sized to the last
  /// of them. False, without values, if that lies beyond the size. Words that are no numbers leave their element.
  /// Raises nothing.
  Boolean LoadFromFile(const TString& FileName, Boolean AdjustVectorSize);
  /// Writes first and last element number of a repaired range and its values: 8-byte floats, for TIntVector 4-byte
  /// integers, little endian.
  void SaveToStream(TStream& OutStream, Integer LowElem, Integer HighElem) const;
  /// A null stream is replaced by a new one, which the caller then owns.
  void SaveToStream(TMemoryStream*& OutStream, Integer LowElem, Integer HighElem) const;
  /// A null stream does nothing.
  void SaveToStream(TFileStream* OutStream, Integer LowElem, Integer HighElem) const;
  /// Reads the stream form from the current place. False for a null stream, a range beyond the size, or an early end.
  Boolean LoadFromStream(TStream* InStream, Boolean AdjustVectorSize);
  /// @}

 protected:
  /// Without an element: the constructor of the vector makes the first one.
  VectorCore() = default;
  ~VectorCore() = default;
  VectorCore(const VectorCore&) = delete;
  VectorCore& operator=(const VectorCore&) = delete;

  /// Core of SkewKurt and SkewKurtSample; NumData is the number of values.
  void SkewKurtIntern(Integer LowElem, Integer HighElem, Double& Skewness, Double& Kurtosis, Integer& NumData) const;

  std::span<T> cells() noexcept { return {FVec.data(), FVec.size()}; }
  /// The repaired range as cells.
  std::span<const T> range(Integer LowElem, Integer HighElem) const noexcept;
  /// The range as a walk over runs of cells (run_statistics_internal.h).
  auto walk(Integer LowElem, Integer HighElem) const noexcept {
    return [cells = range(LowElem, HighElem)](auto take) { take(cells); };
  }
  /// Stores values from element dest on, with an OnChange for each if a handler is set; what lands outside is dropped.
  void store_cells(std::span<const T> values, Int64 dest);
  /// Takes over the state of a vector of this class; false for anything else.
  bool assign_twin(const TPersistent* Source);

  TArray FVec;
  Boolean FIsEmpty = true;

 private:
  friend struct zor::detail::VectorCells;

  Self& self() noexcept { return static_cast<Self&>(*this); }
  const Self& self() const noexcept { return static_cast<const Self&>(*this); }

  /// Throws unless OtherVec has the size of this vector.
  void require_same_size(const Self& OtherVec) const;
};

}  // namespace ZOR_vector
