#include "zor/kernels/product.h"

#include "bench/lapack.h"
#include "bench/pair.h"
#include "zor/portable_kernels.h"

#if defined(ZOR_PEER_OPENBLAS)

namespace zor::kernels {
namespace {

using Cells = std::vector<double>;

struct Problem {
  std::size_t n, depth;
  Cells a, b, c;
  std::vector<double*> a_columns, b_columns, c_columns;

  Problem(std::size_t size, std::size_t terms)
      : n(size), depth(terms), a(bench::noise(n * depth)), b(bench::noise(n * depth)), c(n * n) {}
  void reset() {
    const auto point = [this](Cells& cells, std::size_t rows) {
      std::vector<double*> columns(n);
      for (std::size_t i = 0; i < n; ++i) columns[i] = cells.data() + i * rows;
      return columns;
    };
    a_columns = point(a, depth);
    b_columns = point(b, depth);
    c_columns = point(c, n);
  }
};

constexpr auto cube = [](std::size_t n) {
  return static_cast<double>(n) * static_cast<double>(n) * static_cast<double>(n);
};
Problem square(std::size_t n) { return {n, n}; }

constexpr auto ours = [](Problem& p) -> const Cells& {
  multiply(p.a_columns.data(), Form::plain, p.b_columns.data(), Form::plain, p.c_columns.data(), p.n, p.n, p.n);
  return p.c;
};
constexpr auto ours_portable = [](Problem& p) -> const Cells& {
  use_portable_kernels(true);
  ours(p);
  use_portable_kernels(false);
  return p.c;
};
constexpr auto peer = [](Problem& p) -> const Cells& {
  const int n = static_cast<int>(p.n);
  const double one = 1.0, zero = 0.0;
  dgemm_("N", "N", &n, &n, &n, &one, p.a.data(), &n, p.b.data(), &n, &zero, p.c.data(), &n);
  return p.c;
};
ZOR_BENCH_PAIR(Multiply, square, ours, peer, bench::close(1e-11))
    .against("OpenBLAS dgemm")
    .goal(1.1)
    .sizes({16, 64, 256, 1024})
    .items(cube);
ZOR_BENCH_PAIR(MultiplyPortable, square, ours_portable, peer, bench::close(1e-11))
    .against("OpenBLAS dgemm")
    .remark("multiplies and adds in two steps, which takes twice the instructions")
    .sizes({64, 1024})
    .items(cube);

Problem tall(std::size_t n) { return {n, 50 * n}; }
constexpr auto our_gram = [](Problem& p) -> const Cells& {
  gram(p.a_columns.data(), p.depth, p.n, 0, p.n, p.c_columns.data());
  for (std::size_t j = 0; j < p.n; ++j) std::fill(p.c_columns[j] + j + 1, p.c_columns[j] + p.n, 0.0);
  return p.c;
};
constexpr auto peer_gram = [](Problem& p) -> const Cells& {
  const int n = static_cast<int>(p.n), depth = static_cast<int>(p.depth);
  const double one = 1.0, zero = 0.0;
  std::fill(p.c.begin(), p.c.end(), 0.0);
  dsyrk_("U", "T", &n, &depth, &one, p.a.data(), &depth, &zero, p.c.data(), &n);
  return p.c;
};
ZOR_BENCH_PAIR(Gram, tall, our_gram, peer_gram, bench::close(1e-11))
    .against("OpenBLAS dsyrk, rows = 50 x columns")
    .goal(1.15)
    .sizes({20, 200})
    .items([](std::size_t n) { return 25.0 * cube(n); });

}  // namespace
}  // namespace zor::kernels
#endif
