#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Sums with compensation of the rounding errors.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Adds numbers one by one and carries along what rounding cuts off. The error of the sum of n numbers stays below
/// (2 eps + O(n eps^2)) times the sum of their absolute values, eps = 2^-53, where a plain sum may reach n eps times
/// it. After an infinity the sum becomes NaN at the next Add.
/// Source: W. Kahan, Further remarks on reducing truncation errors, Comm. ACM 8 (1965), 40.
class ZOR_API TKahanSum : public TComponent {
 public:
  explicit TKahanSum(TComponent* AOwner = nullptr) : TComponent(AOwner) {}
  const char* ClassName() const noexcept override;

  Double cps = 0.0;  ///< What the last addition added too much.
  Double Sum = 0.0;  ///< The sum so far.

  /// Starts again from 0.
  void Reset() noexcept;
  void Add(Double ANumber) noexcept;
};

}  // namespace ZOR_math1
