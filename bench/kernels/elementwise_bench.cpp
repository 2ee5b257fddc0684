#include "zor/kernels/elementwise.h"

#include <Eigen/Core>

#include "bench/pair.h"

// Peers are Eigen's expressions on maps of the same storage, with the whole instruction set of this machine.
namespace zor::kernels {
namespace {

struct Cells {
  std::vector<double> x, y, out;
  auto ex() { return Eigen::Map<Eigen::ArrayXd>(x.data(), static_cast<Eigen::Index>(x.size())); }
  auto ey() { return Eigen::Map<Eigen::ArrayXd>(y.data(), static_cast<Eigen::Index>(y.size())); }
  auto eout() { return Eigen::Map<Eigen::ArrayXd>(out.data(), static_cast<Eigen::Index>(out.size())); }
};

Cells cells(std::size_t n) { return {bench::noise(n, 1), bench::noise(n, 2), std::vector<double>(n)}; }

const std::vector<std::size_t> kSizes{10'000, 1'000'000};

// What writes in place must not let the numbers grow or vanish over millions of calls: a and -a, or factors of size 1.
ZOR_BENCH_PAIR(
    AddTo, cells, [](Cells& c) -> auto& { return add(c.out, c.y), c.out; },
    [](Cells& c) -> auto& { return c.eout() += c.ey(), c.out; }, bench::equal)
    .against("Eigen")
    .goal(1.05)
    .sizes(kSizes);

ZOR_BENCH_PAIR(
    Add, cells, [](Cells& c) -> auto& { return add(c.x, c.y, c.out), c.out; },
    [](Cells& c) -> auto& { return c.eout() = c.ex() + c.ey(), c.out; }, bench::equal)
    .against("Eigen")
    .goal(1.05)
    .sizes(kSizes);

ZOR_BENCH_PAIR(
    Scale, cells, [](Cells& c) -> auto& { return scale(c.x, -1.0), c.x; },
    [](Cells& c) -> auto& { return c.ex() *= -1.0, c.x; }, bench::equal)
    .against("Eigen")
    .goal(1.05)
    .sizes(kSizes);

ZOR_BENCH_PAIR(
    Axpy, cells, [](Cells& c) -> auto& { return axpy(1.5, c.x, c.out), c.out; },
    [](Cells& c) -> auto& { return c.eout() += c.ex() * 1.5, c.out; }, bench::close(1e-14))
    .against("Eigen, fused")
    .goal(1.05)
    .sizes(kSizes);

ZOR_BENCH_PAIR(
    ShiftScale, cells, [](Cells& c) -> auto& { return shift_scale(c.x, 0.25, 3.0, c.out), c.out; },
    [](Cells& c) -> auto& { return c.eout() = (c.ex() - 0.25) / 3.0, c.out; }, bench::equal)
    .against("Eigen")
    .goal(1.05)
    .sizes(kSizes);

ZOR_BENCH_PAIR(
    FillSerial, cells, [](Cells& c) -> auto& { return fill_serial(c.out, 0.0, 0.1), c.out; },
    [](Cells& c) -> auto& {
      double value = 0.0;
      for (double& v : c.out) v = value, value += 0.1;
      return c.out;
    },
    bench::equal)
    .against("plain loop")
    .goal(1.05)
    .sizes(kSizes);

}  // namespace
}  // namespace zor::kernels
