#include "zor/kernels/singular_values.h"

#include <algorithm>

#include "bench/lapack.h"
#include "bench/pair.h"

#if defined(ZOR_PEER_OPENBLAS)

namespace zor::kernels {
namespace {

using Cells = std::vector<double>;

/// A matrix that both sides destroy, and room for the results of both: left vectors in a, right ones in v.
struct Problem {
  std::size_t m, n;
  Cells fresh, a, v, values, square, work;
  std::vector<double*> a_columns, v_columns, square_columns;

  Problem(std::size_t rows, std::size_t cols)
      : m(rows), n(cols), fresh(bench::noise(m * n)), v(n * n), values(n), square(n * n), work(128 * (m + n)) {}
  void reset() {
    a = fresh;
    a_columns = pointers(a, m);
    v_columns = pointers(v, n);
    square_columns = pointers(square, n);
  }
  std::vector<double*> pointers(Cells& cells, std::size_t rows) const {
    std::vector<double*> columns(n);
    for (std::size_t c = 0; c < n; ++c) columns[c] = cells.data() + c * rows;
    return columns;
  }
  Cells sorted_values() const {
    Cells sorted = values;
    std::sort(sorted.rbegin(), sorted.rend());
    return sorted;
  }
  /// U diag(values) V'.
  Cells product() const {
    Cells p(m * n);
    for (std::size_t k = 0; k < n; ++k)
      for (std::size_t c = 0; c < n; ++c)
        for (std::size_t r = 0; r < m; ++r) p[c * m + r] += a[k * m + r] * values[k] * v[k * n + c];
    return p;
  }
};

void peer(Problem& p, const char* job_u, const char* job_v) {
  const int m = static_cast<int>(p.m), n = static_cast<int>(p.n), cells = static_cast<int>(p.work.size());
  int info = 0;
  dgesvd_(job_u, job_v, &m, &n, p.a.data(), &m, p.values.data(), nullptr, &m, p.square.data(), &n, p.work.data(),
          &cells, &info);
}

constexpr auto cube = [](std::size_t n) {
  return static_cast<double>(n) * static_cast<double>(n) * static_cast<double>(n);
};
Problem square(std::size_t n) { return {n, n}; }
Problem tall(std::size_t n) { return {5 * n, n}; }

constexpr auto values_only = [](Problem& p) {
  singular_values(p.a_columns.data(), p.m, p.n, p.values.data(), p.work.data());
  return p.values;
};
constexpr auto peer_values = [](Problem& p) {
  peer(p, "N", "N");
  return p.values;
};
constexpr auto same_values = [](Cells ours, const Cells& theirs) {
  std::sort(ours.rbegin(), ours.rend());
  return bench::close(1e-13 * theirs[0])(ours, theirs);
};
ZOR_BENCH_PAIR(SingularValuesTall, tall, values_only, peer_values, same_values)
    .against("OpenBLAS dgesvd, values only, rows = 5 x columns")
    .goal(1.3)
    .sizes({10, 100, 300})
    .items(cube);
ZOR_BENCH_PAIR(SingularValuesSquare, square, values_only, peer_values, same_values)
    .against("OpenBLAS dgesvd, values only")
    .sizes({10, 100, 300})
    .items(cube);

constexpr auto with_vectors = [](Problem& p) -> const Problem& {
  singular_value_decomposition(p.a_columns.data(), p.m, p.n, p.values.data(), p.v_columns.data(),
                               p.square_columns.data(), p.work.data());
  return p;
};
constexpr auto peer_vectors = [](Problem& p) -> const Problem& {
  peer(p, "O", "S");
  for (std::size_t c = 0; c < p.n; ++c)
    for (std::size_t r = 0; r < p.n; ++r) p.v[c * p.n + r] = p.square[r * p.n + c];
  return p;
};
constexpr auto same_decomposition = [](const Problem& ours, const Problem& theirs) {
  const auto close = bench::close(1e-13 * static_cast<double>(ours.n));
  return close(ours.sorted_values(), theirs.sorted_values()) && close(ours.product(), ours.fresh) &&
         close(theirs.product(), ours.fresh);
};
ZOR_BENCH_PAIR(SingularVectorsTall, tall, with_vectors, peer_vectors, same_decomposition)
    .against("OpenBLAS dgesvd with vectors, rows = 5 x columns")
    .sizes({10, 100})
    .items(cube);
ZOR_BENCH_PAIR(SingularVectorsSquare, square, with_vectors, peer_vectors, same_decomposition)
    .against("OpenBLAS dgesvd with vectors")
    .sizes({10, 100, 300})
    .items(cube);

}  // namespace
}  // namespace zor::kernels
#endif
