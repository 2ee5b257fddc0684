#include <cmath>
#include <cstdint>

#include "bits.h"

// Formulas as written: a compiler that fuses a product and a sum, or reorders a sum, shows here.
ZOR_BITS(arithmetic) {
  std::uint64_t state = 1;
  const auto next = [&state] {
    state = state * 6364136223846793005u + 1442695040888963407u;
    return static_cast<double>(state >> 11) * 0x1p-53 - 0.5;
  };
  double sum = 0.0, product_sum = 0.0, quotients = 0.0, roots = 0.0;
  for (int i = 0; i < 1000; ++i) {
    const double x = next(), y = next();
    sum += x;
    product_sum += x * y;
    quotients += x / (y + 1.0);
    roots += std::sqrt(x + 1.0) * y - x * y;
  }
  bits::print("sum", sum);
  bits::print("sum of products", product_sum);
  bits::print("sum of quotients", quotients);
  bits::print("sum of differences", roots);
}
