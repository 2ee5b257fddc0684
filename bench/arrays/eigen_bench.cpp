#include <algorithm>

#include "bench/lapack.h"
#include "bench/pair.h"
#include "zor/arrays/ZOR_openarrays.h"

#if defined(ZOR_PEER_OPENBLAS)

namespace ZOR_openarrays {
namespace {

namespace bench = zor::bench;
using Cells = std::vector<double>;

/// A matrix, and the decomposition that one side makes of it: vectors column after column.
struct Problem {
  std::size_t n;
  bool symmetric;
  TDouble2DArray a;
  Cells cells, values, vectors;

  /// A symmetric matrix, or its rows times positive numbers: then not symmetric, but with real values as well.
  Problem(std::size_t size, bool is_symmetric) : n(size), symmetric(is_symmetric), cells(n * n) {
    const Cells noise = bench::noise(n * n);
    SetLength(a, static_cast<Integer>(n), static_cast<Integer>(n));
    for (std::size_t c = 0; c < n; ++c)
      for (std::size_t r = 0; r < n; ++r) {
        const double x = noise[std::min(c, r) * n + std::max(c, r)];
        a[c][r] = cells[c * n + r] = symmetric ? x : x * (1.0 + static_cast<double>(r) / static_cast<double>(n));
      }
  }
  /// The largest cell of A V - V diag(values).
  double residual() const {
    double largest = 0.0;
    for (std::size_t k = 0; k < n; ++k) {
      Cells rest(n);
      for (std::size_t c = 0; c < n; ++c)
        for (std::size_t r = 0; r < n; ++r) rest[r] += cells[c * n + r] * vectors[k * n + c];
      for (std::size_t r = 0; r < n; ++r)
        largest = std::max(largest, std::abs(rest[r] - values[k] * vectors[k * n + r]));
    }
    return largest;
  }
};

Problem symmetric(std::size_t n) { return {n, true}; }
Problem general(std::size_t n) { return {n, false}; }

constexpr auto ours = [](Problem& p) -> const Problem& {
  TDouble2DArray vectors;
  TDoubleArray values;
  EigenDecomposition(p.a, p.symmetric, vectors, values);
  p.values.assign(values.begin(), values.end());
  p.vectors.clear();
  for (const auto& vector : vectors) p.vectors.insert(p.vectors.end(), vector.begin(), vector.end());
  return p;
};
constexpr auto peer = [](Problem& p) -> const Problem& {
  const int n = static_cast<int>(p.n), work_cells = 100 * n, one = 1;
  int info = 0;
  Cells work(static_cast<std::size_t>(work_cells)), imaginary(p.n), copy = p.cells;
  p.values.resize(p.n);
  if (p.symmetric) {
    dsyev_("V", "L", &n, copy.data(), &n, p.values.data(), work.data(), &work_cells, &info);
    p.vectors.swap(copy);
  } else {
    p.vectors.resize(p.n * p.n);
    dgeev_("N", "V", &n, copy.data(), &n, p.values.data(), imaginary.data(), nullptr, &one, p.vectors.data(), &n,
           work.data(), &work_cells, &info);
  }
  return p;
};
constexpr auto same = [](const Problem& a, const Problem& b) {
  Cells x = a.values, y = b.values;
  std::sort(x.begin(), x.end());
  std::sort(y.begin(), y.end());
  const double error = 1e-13 * static_cast<double>(a.n);
  return a.n == x.size() && bench::close(error)(x, y) && a.residual() < error && b.residual() < error;
};
constexpr auto cube = [](std::size_t n) { return std::pow(static_cast<double>(n), 3); };

ZOR_BENCH_PAIR(EigenSymmetric, symmetric, ours, peer, same)
    .against("OpenBLAS dsyev with vectors")
    .sizes({10, 100, 300})
    .items(cube);
ZOR_BENCH_PAIR(EigenGeneral, general, ours, peer, same)
    .against("OpenBLAS dgeev with right vectors")
    .sizes({10, 100, 300})
    .items(cube);

}  // namespace
}  // namespace ZOR_openarrays
#endif
