#include "zor/scalar/kahan_sum.h"

namespace ZOR_math1 {

const char* TKahanSum::ClassName() const noexcept { return "TKahanSum"; }

void TKahanSum::Reset() noexcept { cps = Sum = 0.0; }

void TKahanSum::Add(Double ANumber) noexcept {
  const Double y = ANumber - cps;
  const Double t = Sum + y;
  cps = (t - Sum) - y;
  Sum = t;
}

}  // namespace ZOR_math1
