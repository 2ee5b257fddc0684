#include <Eigen/Cholesky>
#include <Eigen/LU>
#include <cmath>

#include "bench/lapack.h"
#include "bench/pair.h"
#include "zor/matrices/ZOR_matrix.h"

#if defined(ZOR_PEER_OPENBLAS)

namespace ZOR_matrix {
namespace {

namespace bench = zor::bench;
using Cells = std::vector<double>;

/// The same matrix in the form of each side.
struct Problem {
  int rows, columns;
  Cells original, flat, result, work;
  std::vector<int> pivots;
  std::unique_ptr<TMatrix> ours = std::make_unique<TMatrix>(), other = std::make_unique<TMatrix>();

  Problem(std::size_t r, std::size_t c, Cells cells)
      : rows(static_cast<int>(r)),
        columns(static_cast<int>(c)),
        original(std::move(cells)),
        result(c * c),
        work(64 * (r + c)),
        pivots(c) {
    ours->Resize(columns, rows);
    other->Resize(columns, columns);
  }
  void reset() {
    flat = original;
    auto edit = ours->Edit();
    const auto n = static_cast<std::size_t>(rows);
    for (int c = 0; c < columns; ++c)
      std::copy_n(&original[static_cast<std::size_t>(c) * n], n, edit.Column(c + 1).begin());
  }
};

Problem noise(std::size_t n) { return {n, n, bench::noise(n * n)}; }
/// With a diagonal that needs no exchange of rows.
Problem dominant(std::size_t n) {
  Cells cells = bench::noise(n * n);
  for (std::size_t i = 0; i < n; ++i) cells[i * n + i] += static_cast<double>(n);
  return {n, n, std::move(cells)};
}
Problem definite(std::size_t n) {
  Cells cells(n * n);
  for (std::size_t c = 0; c < n; ++c)
    for (std::size_t r = 0; r < n; ++r)
      cells[c * n + r] = (r == c ? 1.0 : 0.0) + 1.0 / (1.0 + static_cast<double>(r > c ? r - c : c - r));
  return {n, n, std::move(cells)};
}
Problem tall(std::size_t n) { return {50 * n, n, bench::noise(50 * n * n)}; }
Problem five_times(std::size_t n) { return {5 * n, n, bench::noise(5 * n * n)}; }

constexpr auto cube = [](std::size_t n) {
  return static_cast<double>(n) * static_cast<double>(n) * static_cast<double>(n);
};
/// The cells of a result, which only the proof asks for.
auto cells_of(const TMatrix& m) {
  return [&m] {
    Cells cells;
    for (Integer c = 1; c <= m.NrOfColumns(); ++c) cells.insert(cells.end(), m.Column(c).begin(), m.Column(c).end());
    return cells;
  };
}
auto cells_of(const Cells& cells) {
  return [&cells] { return cells; };
}
Eigen::Map<Eigen::MatrixXd> matrix(Cells& cells, const Problem& p) { return {cells.data(), p.rows, p.columns}; }

constexpr auto our_product = [](Problem& p) {
  p.ours->Multiply(p.ours.get(), p.other.get());
  return cells_of(*p.other);
};
constexpr auto blas_product = [](Problem& p) {
  const double one = 1.0, zero = 0.0;
  dgemm_("N", "N", &p.rows, &p.rows, &p.rows, &one, p.flat.data(), &p.rows, p.flat.data(), &p.rows, &zero,
         p.result.data(), &p.rows);
  return cells_of(p.result);
};
const auto same = bench::close(1e-10);
ZOR_BENCH_PAIR(MultiplySmall, noise, our_product, blas_product, same)
    .against("OpenBLAS dgemm")
    .goal(1.5)
    .sizes({64})
    .items(cube);
ZOR_BENCH_PAIR(MultiplyMiddle, noise, our_product, blas_product, same)
    .against("OpenBLAS dgemm")
    .goal(1.15)
    .sizes({256})
    .items(cube);
ZOR_BENCH_PAIR(MultiplyLarge, noise, our_product, blas_product, same)
    .against("OpenBLAS dgemm")
    .goal(1.1)
    .sizes({1024})
    .items(cube);

template <int threads>
constexpr auto our_square = [](Problem& p) {
  p.ours->Square(p.other.get(), 3.0, threads);
  return cells_of(*p.other);
};
constexpr auto blas_square = [](Problem& p) {
  const double third = 1.0 / 3.0, zero = 0.0;
  const auto n = static_cast<std::size_t>(p.columns);
  dsyrk_("U", "T", &p.columns, &p.rows, &third, p.flat.data(), &p.rows, &zero, p.result.data(), &p.columns);
  for (std::size_t c = 0; c < n; ++c)
    for (std::size_t r = 0; r < c; ++r) p.result[r * n + c] = p.result[c * n + r];
  return cells_of(p.result);
};
ZOR_BENCH_PAIR(Square, tall, our_square<1>, blas_square, same)
    .against("OpenBLAS dsyrk, rows = 50 x columns")
    .goal(1.15)
    .sizes({200})
    .items([](std::size_t n) { return 25.0 * cube(n); });
ZOR_BENCH_PAIR(SquareThreads, tall, our_square<2>, our_square<1>, bench::equal)
    .against("one thread of ours")
    .goal(0.65)
    .remark("smaller blocks pack the columns behind them more often")
    .sizes({200})
    .items([](std::size_t n) { return 25.0 * cube(n); })
    .wall();

constexpr auto our_inverse = [](Problem& p) {
  p.ours->Invert();
  return cells_of(*p.ours);
};
constexpr auto lapack_inverse = [](Problem& p) {
  const int cells = static_cast<int>(p.work.size());
  int info = 0;
  dgetrf_(&p.rows, &p.rows, p.flat.data(), &p.rows, p.pivots.data(), &info);
  dgetri_(&p.rows, p.flat.data(), &p.rows, p.pivots.data(), p.work.data(), &cells, &info);
  return cells_of(p.flat);
};
constexpr const char* kInverseRemark =
    "the told order of the backward substitution lets no rows be blocked: half of the work runs from the second cache";
ZOR_BENCH_PAIR(InvertSmall, dominant, our_inverse, lapack_inverse, same)
    .against("OpenBLAS dgetrf + dgetri")
    .goal(1.3)
    .sizes({100})
    .items(cube);
ZOR_BENCH_PAIR(InvertLarge, dominant, our_inverse, lapack_inverse, same)
    .against("OpenBLAS dgetrf + dgetri")
    .goal(1.2)
    .sizes({500, 1000})
    .items(cube)
    .remark(kInverseRemark);

constexpr auto our_cholesky = [](Problem& p) {
  p.ours->CholeskyDecomp(p.other.get());
  return cells_of(*p.other);
};
constexpr auto eigen_cholesky = [](Problem& p) {
  matrix(p.result, p) = matrix(p.flat, p).llt().matrixL();
  return cells_of(p.result);
};
ZOR_BENCH_PAIR(CholeskySmall, definite, our_cholesky, eigen_cholesky, same)
    .against("Eigen")
    .goal(2)
    .sizes({100})
    .items(cube);
ZOR_BENCH_PAIR(CholeskyLarge, definite, our_cholesky, eigen_cholesky, same)
    .against("Eigen")
    .goal(4)
    .sizes({500})
    .items(cube);

ZOR_BENCH_PAIR(
    NormSpectral, five_times, [](Problem& p) { return p.ours->Norm(ntSpectral); },
    [](Problem& p) {
      const int cells = static_cast<int>(p.work.size());
      int info = 0;
      dgesvd_("N", "N", &p.rows, &p.columns, p.flat.data(), &p.rows, p.result.data(), nullptr, &p.rows, nullptr,
              &p.columns, p.work.data(), &cells, &info);
      return p.result[0];
    },
    bench::close(1e-12))
    .against("OpenBLAS dgesvd, values only, rows = 5 x columns")
    .goal(1.3)
    .sizes({100})
    .items(cube);

}  // namespace
}  // namespace ZOR_matrix
#endif
