#include <limits>

#include "bits.h"
#include "zor/kernels/comb_sort.h"
#include "zor/kernels/elementwise.h"
#include "zor/kernels/extremes.h"
#include "zor/kernels/moments.h"
#include "zor/kernels/selection.h"
#include "zor/kernels/sums.h"

using namespace zor::kernels;

// An odd length, so that every loop has a remainder on every level.
ZOR_BITS(kernels) {
  const std::vector<double> x = bits::noise(10007, 1), y = bits::noise(10007, 2);

  bits::print("sum", sum_in_order(x));
  bits::print("dot product", dot_in_order(x, y));
  bits::print("squared distance", squared_distance_in_order(x, y));
  const DoubleDouble sum = sum_twofold(x), dot = dot_twofold(x, y);
  bits::print("twofold sums", std::vector{sum.hi, sum.lo, dot.hi, dot.lo});
  const MeanVar moments = mean_variance(x);
  bits::print("mean", moments.mean);
  bits::print("variance", moments.variance);
  const PairMoments pair = pair_moments(x, y);
  bits::print("pair moments",
              std::vector{pair.sx, pair.sy, pair.sxx, pair.syy, pair.sxy, pair.cxx, pair.cyy, pair.cxy});

  constexpr double infinity = std::numeric_limits<double>::infinity();
  Extremes<double> extremes{infinity, -infinity};
  min_max(x, extremes);
  bits::print("extremes", std::vector{extremes.minimum, extremes.maximum, static_cast<double>(extremes.min_index),
                                      static_cast<double>(extremes.max_index)});

  std::vector<double> z = y;
  axpy(1.1, x, z);
  bits::print("axpy", z);
  shift_scale(z, 0.1, 3.0);
  bits::print("shift and scale", z);
  fill_serial(z, 0.1, 0.7);
  bits::print("serial", z);

  z = x;
  bits::print("passes of the sort", static_cast<double>(comb_sort(z, z.size(), true)));
  bits::print("sorted", z);
  z = x;
  bits::print("median", select_kth(z, z.size() / 2));
}
