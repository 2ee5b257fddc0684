#include <algorithm>
#include <array>
#include <cmath>

#include "zor/base/memory_guard.h"
#include "zor/kernels/extremes.h"
#include "zor/kernels/moments.h"
#include "zor/kernels/sums.h"
#include "zor/runtime/numbers.h"
#include "zor/vectors/statistics_internal.h"
#include "zor/vectors/store_internal.h"
#include "zor/vectors/vector.h"

namespace ZOR_vector {
namespace {

namespace kernels = zor::kernels;

/// Private copy of cells; where there is no memory for it the component says so.
template <class T>
TDynArray<T> work_copy(const TComponent& component, std::span<const T> cells) {
  return zor::detail::guard_memory<EZORVectorError>(component, zor::detail::kNoHeap,
                                                    [&] { return TDynArray<T>(cells.begin(), cells.end()); });
}

}  // namespace

template <class Self, Cell T>
T VectorCore<Self, T>::Sum(Integer LowElem, Integer HighElem) const {
  return zor::detail::sum_of<T>(walk(LowElem, HighElem));
}

template <class Self, Cell T>
void VectorCore<Self, T>::MeanVar(Integer LowElem, Integer HighElem, Double& Mean, Double& Variance) const {
  const kernels::MeanVar result = zor::detail::sample_mean_variance_of(walk(LowElem, HighElem));
  Mean = result.mean;
  Variance = result.variance;
}

template <class Self, Cell T>
void VectorCore<Self, T>::MinMax(Integer LowElem, Integer HighElem, T& Minimum, T& Maximum) const {
  Integer min_ix = 0, max_ix = 0;
  MinMax(LowElem, HighElem, Minimum, Maximum, min_ix, max_ix);
}

template <class Self, Cell T>
void VectorCore<Self, T>::MinMax(Integer LowElem, Integer HighElem, T& Minimum, T& Maximum, Integer& MinIx,
                                 Integer& MaxIx) const {
  constexpr T kStart = RealCell<T> ? static_cast<T>(1.7e308L) : static_cast<T>(2147483647);
  MakeValidElemRange(LowElem, HighElem);
  kernels::Extremes<T> extremes{kStart, -kStart};
  kernels::min_max(range(LowElem, HighElem), extremes, static_cast<std::size_t>(LowElem));
  const auto number = [](std::size_t i) { return i == kernels::kNone ? 0 : static_cast<Integer>(i); };
  Minimum = extremes.minimum;
  Maximum = extremes.maximum;
  MinIx = number(extremes.min_index);
  MaxIx = number(extremes.max_index);
}

template <class Self, Cell T>
T VectorCore<Self, T>::Mode(Integer LowElem, Integer HighElem) const {
  const std::span<const T> cells = range(LowElem, HighElem);
  TArray sorted(cells.begin(), cells.end());
  ZOR_math1::SortArray(std::span<T>(sorted), true);
  std::size_t run = 0, best = 0, at = 0;
  for (std::size_t i = 1; i < sorted.size(); ++i) {
    run = sorted[i] == sorted[i - 1] ? run + 1 : 0;
    if (run > best) best = run, at = i;
  }
  return sorted[at];
}

template <class Self, Cell T>
Boolean VectorCore<Self, T>::Quartiles(Integer LowElem, Integer HighElem, Double& Q1, Double& Q2, Double& Q3) const {
  Q1 = Q2 = Q3 = 0.0;
  TArray work = work_copy<T>(self(), range(LowElem, HighElem));
  const std::array<Double, 3> q = zor::detail::quartiles(std::span<T>(work));
  Q1 = q[0];
  Q2 = q[1];
  Q3 = q[2];
  return true;
}

template <class Self, Cell T>
Double VectorCore<Self, T>::Percentile(Double prob, Integer LowElem, Integer HighElem) const {
  if (std::isnan(prob)) return prob;
  TArray work = work_copy<T>(self(), range(LowElem, HighElem));
  const std::size_t last = work.size() - 1;
  const Double position = static_cast<Double>(last) * std::clamp(prob, 0.0, 100.0) / 100.0;
  const Double whole = std::floor(position);
  std::array<std::size_t, 2> ranks{last, last};
  Double fraction = 0.0;
  // The product may round up to the last rank for a prob just below 100.
  if (prob < 100.0 && whole < static_cast<Double>(last)) {
    ranks[0] = static_cast<std::size_t>(whole);
    ranks[1] = ranks[0] + 1;
    fraction = position - whole;
  }
  std::array<T, 2> values;
  zor::detail::ranked_values<T>(work, ranks, values);
  if (ranks[0] == last) return static_cast<Double>(values[0]);
  return zor::detail::interpolate(static_cast<Double>(values[0]), static_cast<Double>(values[1]), fraction);
}

template <class Self, Cell T>
Double VectorCore<Self, T>::GeometricMean(Integer LowElem, Integer HighElem) const {
  const zor::detail::Logarithms logarithms = zor::detail::logarithms_of(walk(LowElem, HighElem));
  if (logarithms.negative) zor::detail::Fail<EZORVectorError>(self(), "negative argument passed to GeometricMean");
  return logarithms.zero ? 0.0 : std::exp(logarithms.sum / static_cast<Double>(range(LowElem, HighElem).size()));
}

template <class Self, Cell T>
Double VectorCore<Self, T>::HarmonicMean(Integer LowElem, Integer HighElem) const {
  const zor::detail::Reciprocals reciprocals = zor::detail::reciprocals_of(walk(LowElem, HighElem));
  if (reciprocals.not_positive)
    zor::detail::Fail<EZORVectorError>(self(), "negative or zero argument passed to HarmonicMean");
  return static_cast<Double>(range(LowElem, HighElem).size()) / reciprocals.sum;
}

template <class Self, Cell T>
void VectorCore<Self, T>::SkewKurtIntern(Integer LowElem, Integer HighElem, Double& Skewness, Double& Kurtosis,
                                         Integer& NumData) const {
  NumData = zor::detail::to_integer(range(LowElem, HighElem).size());
  zor::detail::SkewKurt result;
  if (NumData >= 4) result = zor::detail::skew_kurt_of(NumData, walk(LowElem, HighElem));
  Skewness = result.skewness;
  Kurtosis = result.kurtosis;
}

template <class Self, Cell T>
void VectorCore<Self, T>::SkewKurt(Integer LowElem, Integer HighElem, Double& Skewness, Double& Kurtosis) const {
  Integer n = 0;
  SkewKurtIntern(LowElem, HighElem, Skewness, Kurtosis, n);
}

template <class Self, Cell T>
void VectorCore<Self, T>::SkewKurtSample(Integer LowElem, Integer HighElem, Double& Skewness, Double& Kurtosis) const {
  Integer count = 0;
  SkewKurtIntern(LowElem, HighElem, Skewness, Kurtosis, count);
  if (count < 4) return;
  const zor::detail::SkewKurt sample = zor::detail::sample_skew_kurt(count, {Skewness, Kurtosis});
  Skewness = sample.skewness;
  Kurtosis = sample.kurtosis;
}

template <class Self, Cell T>
Boolean VectorCore<Self, T>::Histogram(Integer FirstElem, Integer LastElem, T FirstBin, T LastBin, T BinWidth,
                                       TIntArray& Histo, Integer& Underflow, Integer& Overflow, Integer& MaxCnt) const {
  zor::detail::BinCounter<T> bins(FirstBin, LastBin, BinWidth, kMaxBins);
  if (!bins.valid()) {
    if constexpr (RealCell<T>) return false;
    zor::detail::Fail<EZORVectorError>(self(), "Histogram", "invalid number of bins");
  }
  bins.start(Histo);
  const Int64 lo = std::max<Int64>(FirstElem, 1), hi = std::min<Int64>(LastElem, NrOfElem());
  for (Int64 i = lo; i <= hi; ++i) bins.put(FVec[i - 1]);
  const Int64 told = Int64{LastElem} - FirstElem + 1, inside = std::max<Int64>(hi - lo + 1, 0);
  if (told > inside) bins.put(0, told - inside);
  Underflow = bins.underflow;
  Overflow = bins.overflow;
  MaxCnt = bins.largest;
  return true;
}

template <class Self, Cell T>
Boolean VectorCore<Self, T>::Histogram(Integer FirstElem, Integer LastElem, T FirstBin, T LastBin, T BinWidth,
                                       TIntVector* Histo, Integer& Underflow, Integer& Overflow,
                                       Integer& MaxCnt) const {
  TIntArray counts;
  if (!Histo || !Histogram(FirstElem, LastElem, FirstBin, LastBin, BinWidth, counts, Underflow, Overflow, MaxCnt)) {
    return false;
  }
  zor::detail::store(*Histo, counts);
  return true;
}

template <class Self, Cell T>
Boolean VectorCore<Self, T>::IsDichotomous(T& v1, T& v2) const {
  v1 = v2 = T{0};
  if (NrOfElem() < 2) return false;
  v1 = v2 = FVec[0];
  Boolean second = false;
  for (const T x : Cells().subspan(1)) {
    if (x == v1 || (second && x == v2)) continue;
    if (second) return false;
    v2 = x;
    second = true;
  }
  return true;
}

template <class Self, Cell T>
Double VectorCore<Self, T>::PearsonCorrCoeff(const Self* OtherVec) const {
  if (!OtherVec || OtherVec->NrOfElem() != NrOfElem() || NrOfElem() < 2) return 0.0;
  if constexpr (RealCell<T>) {
    return zor::detail::correlation(kernels::pair_moments(Cells(), OtherVec->Cells()));
  } else {
    std::array<Double, 512> other;
    return zor::detail::correlation(kernels::pair_moments_of_runs([&](auto take) {
      std::span<const T> rest = OtherVec->Cells();
      zor::detail::for_doubles(Cells(), [&](std::span<const Double> x) {
        std::ranges::copy(rest.first(x.size()), other.begin());
        rest = rest.subspan(x.size());
        take(x, std::span<const Double>(other.data(), x.size()));
      });
    }));
  }
}

template <class Self, Cell T>
T VectorCore<Self, T>::Correlate(const Self* OtherVec, Integer ElemShift) const {
  if (!OtherVec) return T{0};
  // Element i of this vector meets element i - shift of the other one.
  const Int64 shift = RealCell<T> ? Int64{ElemShift} : -Int64{ElemShift};
  const Int64 lo = std::max<Int64>(1, shift + 1), hi = std::min<Int64>(NrOfElem(), OtherVec->NrOfElem() + shift);
  if (RealCell<T> ? hi <= lo : hi < lo) return T{0};
  const auto overlap = static_cast<std::size_t>(hi - lo + 1);
  const auto a = Cells().subspan(static_cast<std::size_t>(lo - 1), overlap);
  const auto b = OtherVec->Cells().subspan(static_cast<std::size_t>(lo - shift - 1), overlap);
  if constexpr (RealCell<T>) {
    return kernels::dot_in_order(a, b);
  } else {
    return kernels::dot_wrapping(a, b);
  }
}

template <class Self, Cell T>
Double VectorCore<Self, T>::EuclideanDistance(const Self* OtherVec) const {
  if (!OtherVec || OtherVec->NrOfElem() != NrOfElem()) {
    zor::detail::Fail<EZORVectorError>("EuclideanDistance: dimensions of vectors do not match");
  }
  if constexpr (RealCell<T>) {
    return std::sqrt(kernels::squared_distance_in_order(Cells(), OtherVec->Cells()));
  } else {
    Double sum = 0.0;
    for (std::size_t i = 0; i < FVec.size(); ++i) {
      const Double d = static_cast<Double>(FVec[i]) - static_cast<Double>(OtherVec->FVec[i]);
      sum += d * d;
    }
    return std::sqrt(sum);
  }
}

#define ZOR_INSTANCES(V, T)                                                                                          \
  template T VectorCore<V, T>::Sum(Integer, Integer) const;                                                          \
  template void VectorCore<V, T>::MeanVar(Integer, Integer, Double&, Double&) const;                                 \
  template void VectorCore<V, T>::MinMax(Integer, Integer, T&, T&) const;                                            \
  template void VectorCore<V, T>::MinMax(Integer, Integer, T&, T&, Integer&, Integer&) const;                        \
  template T VectorCore<V, T>::Mode(Integer, Integer) const;                                                         \
  template Boolean VectorCore<V, T>::Quartiles(Integer, Integer, Double&, Double&, Double&) const;                   \
  template Double VectorCore<V, T>::Percentile(Double, Integer, Integer) const;                                      \
  template Double VectorCore<V, T>::GeometricMean(Integer, Integer) const;                                           \
  template Double VectorCore<V, T>::HarmonicMean(Integer, Integer) const;                                            \
  template void VectorCore<V, T>::SkewKurtIntern(Integer, Integer, Double&, Double&, Integer&) const;                \
  template void VectorCore<V, T>::SkewKurt(Integer, Integer, Double&, Double&) const;                                \
  template void VectorCore<V, T>::SkewKurtSample(Integer, Integer, Double&, Double&) const;                          \
  template Boolean VectorCore<V, T>::Histogram(Integer, Integer, T, T, T, TIntArray&, Integer&, Integer&, Integer&)  \
      const;                                                                                                         \
  template Boolean VectorCore<V, T>::Histogram(Integer, Integer, T, T, T, TIntVector*, Integer&, Integer&, Integer&) \
      const;                                                                                                         \
  template Boolean VectorCore<V, T>::IsDichotomous(T&, T&) const;                                                    \
  template Double VectorCore<V, T>::PearsonCorrCoeff(const V*) const;                                                \
  template T VectorCore<V, T>::Correlate(const V*, Integer) const;                                                   \
  template Double VectorCore<V, T>::EuclideanDistance(const V*) const;

ZOR_INSTANCES(TVector, Double)
ZOR_INSTANCES(TIntVector, Integer)

}  // namespace ZOR_vector
