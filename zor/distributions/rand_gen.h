#pragma once

#include <vector>

#include "zor/distributions/statis_errors.h"

/// \file  The class TRandGen: random numbers of any distribution given as a table.

namespace ZOR_statis {

/// Draws numbers between LowBorder and HighBorder by rejection against a table of Resolution relative probabilities,
/// with linear interpolation between its entries; entry i stands for Lambda(i). Randomness comes from the generator of
/// the program (`ZOR_runtime::Random`), which is not seeded here. One object may be used by one thread at a time.
///
///     TRandGen rand;
///     rand.LowBorder = -4.0;
///     rand.HighBorder = 4.0;
///     rand.NormalDistri(0.0, 1.0);
///     const double x = rand.Random();
///
/// Changing a border does not rebuild the table: call a filler again. A draw takes 1 / (mean of the table) tries. The
/// last step before HighBorder falls to 0: half a step of probability is missing there.
class ZOR_API TRandGen : public TComponent {
 public:
  /// Resolution 500, all entries 1.0, both borders 0.0. Throws EZORStatisError "not enough memory on heap".
  explicit TRandGen(TComponent* AOwner = nullptr);
  ~TRandGen() override = default;
  const char* ClassName() const noexcept override;

  /// Ends of the interval; not checked against each other.
  Double LowBorder = 0.0, HighBorder = 0.0;

  /// Entries of the table.
  Integer Resolution() const noexcept { return zor::detail::to_integer(FDistVec.size()); }
  /// Moved into 10 to 4000; all entries become 1.0, also if the number stays. Throws EZORStatisError "not enough
  /// memory" with nothing changed.
  void SetResolution(Integer v);
  /// Entry Idx; 0.0 outside.
  Double Probability(Integer Idx) const noexcept { return has(Idx) ? FDistVec[place(Idx)] : 0.0; }
  /// Stores v, moved into 0 to 1 (NaN: 0); nothing outside.
  void SetProbability(Integer Idx, Double v) noexcept;
  /// The value of entry ix, LowBorder + (ix - 1) (HighBorder - LowBorder) / Resolution; LowBorder below 1, HighBorder
  /// above Resolution.
  Double Lambda(Integer ix) const noexcept;
  /// The entry at or below a value: 0 below LowBorder, Resolution + 1 from HighBorder on. With equal borders 1 for
  /// their value. 0 for NaN.
  Integer IndexOfLambda(Double Lambda) const noexcept;
  /// A random number. Of a table without a positive entry 100001 tries find nothing: the last place counts.
  Double Random() const;

  /// Maps the entries linearly onto 0 to 1; nothing if all are equal.
  void Normalize() noexcept;
  /// Divides the entries by the largest one; false, with nothing changed, if that is not above 0.
  Boolean Standardize() noexcept;

  /// \name Distributions
  /// Densities are not scaled: call Standardize behind. Without it peaks above 1 are cut off and low tables cost many
  /// tries. What is not finite is stored as 0.0, as at the pole of chi-squared with one degree of freedom.
  /// @{
  void UniformDistri() noexcept;
  /// exp(-(x - m)^2 / 2 / s^2); where s^2 is 0 or NaN: 1.0 at m, else 0.0.
  void NormalDistri(Double m, Double s) noexcept;
  void tDistri(Integer df) noexcept;
  void Chi2Distri(Integer df) noexcept;
  /// 0.0 for x <= 0.
  void FDistri(Integer df1, Integer df2) noexcept;
  void WeibullDistri(Double beta, Double eta) noexcept;
  /// @}

 private:
  bool has(Integer ix) const noexcept { return ix >= 1 && ix <= Resolution(); }
  static std::size_t place(Integer ix) noexcept { return static_cast<std::size_t>(ix - 1); }
  void make_table(Integer size, std::string_view failure);
  template <class Density>
  void fill(Density density) noexcept;

  std::vector<Double> FDistVec;
};

}  // namespace ZOR_statis
