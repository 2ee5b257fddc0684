#include <memory>

#include "bench/pair.h"
#include "zor/transforms/ZOR_wavelet.h"

#if defined(ZOR_PEER_GSL)

#include <gsl/gsl_wavelet.h>

namespace ZOR_wavelet {
namespace {

namespace bench = zor::bench;

struct FreeWavelet {
  void operator()(gsl_wavelet* w) const { gsl_wavelet_free(w); }
};
struct FreeWorkspace {
  void operator()(gsl_wavelet_workspace* w) const { gsl_wavelet_workspace_free(w); }
};

/// The same noise for both; every call starts from it.
struct Signal {
  std::vector<double> x, cells;
  std::shared_ptr<TWavelet1D> ours = std::make_shared<TWavelet1D>();
  std::unique_ptr<gsl_wavelet, FreeWavelet> peer;
  std::unique_ptr<gsl_wavelet_workspace, FreeWorkspace> workspace;

  void reset() {
    std::ranges::copy(x, ours->Edit().begin());
    cells = x;
  }
};

template <int Order>
Signal signal(std::size_t n) {
  Signal s;
  s.x = s.cells = bench::noise(n);
  s.ours->SetSize(static_cast<Integer>(n));
  s.ours->SetOrder(Order);
  s.peer.reset(Order == 1 ? gsl_wavelet_alloc(gsl_wavelet_haar, 2)
                          : gsl_wavelet_alloc(gsl_wavelet_daubechies, 2 * Order));
  // GSL's filters begin at the cell of the value, ours 2 Order - 2 cells to the left, which GSL calls offset.
  s.peer->offset = 2 * Order - 2;
  s.workspace.reset(gsl_wavelet_workspace_alloc(n));
  s.reset();
  return s;
}

/// The elements, which live as long as they are looked at.
struct Elements {
  std::shared_ptr<TWavelet1D> owner;
  auto begin() const { return owner->Cells().begin(); }
  auto end() const { return owner->Cells().end(); }
};

Elements forward(Signal& s) {
  s.ours->Transform(64);
  return {s.ours};
}
Elements inverse(Signal& s) {
  s.ours->InverseTransform(64);
  return {s.ours};
}
std::vector<double>& gsl_forward(Signal& s) {
  gsl_wavelet_transform_forward(s.peer.get(), s.cells.data(), 1, s.cells.size(), s.workspace.get());
  return s.cells;
}
std::vector<double>& gsl_inverse(Signal& s) {
  gsl_wavelet_transform_inverse(s.peer.get(), s.cells.data(), 1, s.cells.size(), s.workspace.get());
  return s.cells;
}

// GSL's filters of order 2 and 3 are good to about 12 digits, and 20 levels multiply their errors.
const auto same = bench::close(1e-9);

#define ZOR_WAVELET_PAIRS(order)                                                   \
  ZOR_BENCH_PAIR(WaveletForward##order, signal<order>, forward, gsl_forward, same) \
      .against("GSL, full depth")                                                  \
      .goal(0.4)                                                                   \
      .sizes({1 << 10, 1 << 20});                                                  \
  ZOR_BENCH_PAIR(WaveletInverse##order, signal<order>, inverse, gsl_inverse, same) \
      .against("GSL, full depth")                                                  \
      .goal(0.4)                                                                   \
      .sizes({1 << 10, 1 << 20})

ZOR_WAVELET_PAIRS(1);
ZOR_WAVELET_PAIRS(2);
ZOR_WAVELET_PAIRS(3);

}  // namespace
}  // namespace ZOR_wavelet

#endif
