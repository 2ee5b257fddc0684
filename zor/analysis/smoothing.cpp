#include "zor/analysis/smoothing.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <string>
#include <string_view>

#include "zor/base/feedback.h"
#include "zor/kernels/comb_sort.h"
#include "zor/kernels/moving.h"
#include "zor/scalar/sorting.h"

namespace ZOR_math2 {

namespace {

/// What a routine asks of its window, and how its messages begin and name things.
struct Demands {
  std::string_view routine;
  Integer shortest, longest;
  std::string_view purpose = "smoothing";

  bool polynomial() const noexcept { return longest < (std::numeric_limits<Integer>::max)(); }
};

constexpr Demands smoother(std::string_view routine) { return {routine, 3, (std::numeric_limits<Integer>::max)()}; }
constexpr Demands polynomial(std::string_view routine) { return {routine, 5, 25}; }

TDoubleArray cells_of(std::size_t n) {
  TDoubleArray cells;
  zor::detail::set_length_unset(cells, n);
  return cells;
}

/// A checked range and window, and what lies in it.
class MovingWindow {
 public:
  MovingWindow(const Demands& demands, const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec,
               Integer WinLen)
      : to_(DestVec) {
    const auto fail = [&](const std::string& text) {
      zor::detail::Fail<EZORMath2Error>(std::string(demands.routine) + ": " + text);
    };
    if (!SourceVec || !DestVec) fail("either SourceVec or DestVec is undefined");
    const Integer size = SourceVec->NrOfElem();
    const Integer a = std::clamp(FirstElem, 1, size), b = std::clamp(LastElem, 1, size);
    const Integer first = (std::min)(a, b), last = (std::max)(a, b);
    if (last - first < WinLen) {
      fail("specified range for " + std::string(demands.purpose) + " is smaller than the length of the " +
           (demands.polynomial() ? "polynomial" : "smoothing windows"));
    }
    const std::string length = demands.polynomial() ? "length of polynomial" : "length of smoothing window";
    if (WinLen < demands.shortest || WinLen > demands.longest) fail(length + " is out of range");
    if (WinLen % 2 == 0) fail(length + " must be odd");
    half_ = zor::detail::to_size(WinLen / 2);
    count_ = zor::detail::to_size(last - first + 1);
    cells_ = SourceVec->Cells().subspan(zor::detail::to_size(first - 1), count_);
    if (SourceVec != DestVec) return;
    copy_ = cells_of(count_);
    std::ranges::copy(cells_, copy_.begin());
    cells_ = copy_;
  }

  std::size_t half() const noexcept { return half_; }
  std::span<const Double> cells() const noexcept { return cells_; }
  /// Windows whose values have a place in the destination.
  std::size_t values() const noexcept {
    return std::clamp(zor::detail::to_size(to_->NrOfElem()), half_, count_ - half_) - half_;
  }

  /// Lets compute(cells, out) fill the middle and repeats its first and last value at the ends.
  template <class Compute>
  void write(Compute compute) const {
    const std::size_t n = values();
    const auto edit = to_->Edit();
    const std::span<Double> to = edit.cells().first((std::min)(edit.cells().size(), count_));
    if (n > 0) compute(cells_.first(n + 2 * half_), to.subspan(half_, n));
    std::ranges::fill(to.first((std::min)(to.size(), half_)), n > 0 ? to[half_] : 0.0);
    if (to.size() > count_ - half_) std::ranges::fill(to.subspan(count_ - half_), to[count_ - half_ - 1]);
  }

  /// The same with weights of the centre and of the cells at distance 1, 2, ...
  void write_weighted(std::span<const Double> weights, Double factor, Double divisor) const {
    write([&](std::span<const Double> x, std::span<Double> out) {
      zor::kernels::moving_symmetric(x, weights, factor, divisor, out);
    });
  }

  void write_by_table(const TGolayTable& table) const {
    const auto& row = table[half_ - 2];
    std::array<Double, 14> weights;
    std::ranges::copy(row, weights.begin());
    write_weighted(std::span(weights).subspan(1, half_ + 1), 1.0, weights[0]);
  }

 private:
  TVector* to_;
  std::size_t half_ = 0, count_ = 0;
  std::span<const Double> cells_;
  TDoubleArray copy_;
};

/// Whether the middle cell of a sorted window may be selected: a sort never moves a NaN, keeps the order of zeros of
/// both signs, and shows its passes to a feedback procedure.
bool selectable(std::span<const Double> cells) {
  return !zor::detail::feedback_listens() &&
         std::ranges::none_of(cells, [](Double x) { return std::isnan(x) || (x == 0.0 && std::signbit(x)); });
}

/// Medians by sorting each window: the centre first, then the cells to its right and left by distance.
void medians_by_sorting(std::span<const Double> x, std::span<Double> window, std::span<Double> out) {
  const std::size_t half = window.size() / 2;
  for (std::size_t i = 0; i < out.size(); ++i) {
    window[0] = x[i + half];
    for (std::size_t j = 1; j <= half; ++j) {
      window[2 * j - 1] = x[i + half + j];
      window[2 * j] = x[i + half - j];
    }
    ZOR_math1::SortArray(window, true);
    out[i] = window[half];
  }
}

}  // namespace

void MovingAverageSmooth(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec,
                         Integer WinLen) {
  const MovingWindow window(smoother("MovingAverageSmooth"), SourceVec, FirstElem, LastElem, DestVec, WinLen);
  TDoubleArray weights = cells_of(window.half() + 1);
  std::ranges::fill(weights, 1.0);
  window.write_weighted(weights, 1.0, WinLen);
}

void WeightedAverageSmooth(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec,
                           Integer WinLen) {
  const MovingWindow window(smoother("WeightedAverageSmooth"), SourceVec, FirstElem, LastElem, DestVec, WinLen);
  TDoubleArray weights = cells_of(window.half() + 1);
  for (std::size_t j = 0; j < weights.size(); ++j) weights[j] = static_cast<Double>(weights.size() - j);
  window.write_weighted(weights, 4.0, (WinLen + 1.0) * (WinLen + 1.0));
}

void MovingMedianSmooth(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec,
                        Integer WinLen) {
  const MovingWindow window(smoother("MovingMedianSmooth"), SourceVec, FirstElem, LastElem, DestVec, WinLen);
  TDoubleArray work = cells_of(zor::detail::to_size(WinLen));
  if (!selectable(window.cells())) {
    return window.write([&](auto x, auto out) { medians_by_sorting(x, work, out); });
  }
  // Counted as the passes over windows that are sorted already.
  ProcStat += static_cast<Double>(window.values() * zor::kernels::fewest_comb_passes(work.size()));
  window.write([&](auto x, auto out) { zor::kernels::moving_median(x, work.size(), out, work); });
}

void PolynomialSmooth(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec, Integer WinLen) {
  MovingWindow(polynomial("PolynomialSmooth"), SourceVec, FirstElem, LastElem, DestVec, WinLen)
      .write_by_table(GolayPoly);
}

void SecondDeriv(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec, Integer WinLen) {
  MovingWindow(polynomial("SecondDeriv"), SourceVec, FirstElem, LastElem, DestVec, WinLen)
      .write_by_table(Golay2ndDeriv);
}

void FirstDeriv(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec, Integer WinLen) {
  Demands demands = polynomial("FirstDeriv");
  demands.purpose = "calculation";
  const MovingWindow window(demands, SourceVec, FirstElem, LastElem, DestVec, WinLen);
  std::array<Double, 25> weights;
  Double norm = 0.0;
  for (Integer j = 0; j < WinLen; ++j) {
    const Double distance = j - WinLen / 2;
    weights[zor::detail::to_size(j)] = distance;
    norm += distance * distance;
  }
  const std::span<const Double> used = std::span(weights).first(zor::detail::to_size(WinLen));
  window.write([&](auto x, auto out) { zor::kernels::moving_weighted(x, used, norm, out); });
}

}  // namespace ZOR_math2
