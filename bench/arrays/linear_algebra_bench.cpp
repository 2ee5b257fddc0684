#include <Eigen/LU>

#include "bench/arrays/flat.h"
#include "bench/lapack.h"
#include "bench/pair.h"
#include "zor/arrays/ZOR_openarrays.h"

#if defined(ZOR_PEER_OPENBLAS)

namespace ZOR_openarrays {
namespace {

namespace bench = zor::bench;
using Cells = std::vector<double>;

/// Square matrices in the form of each side. The diagonal is strong enough to need no exchange of rows.
struct Problem {
  int n;
  Cells cells, work;
  std::vector<int> pivots;
  Cells flat_a, flat_c;
  Eigen::MatrixXd eigen_a, eigen_c;
  TDouble2DArray original, a, b, c;

  explicit Problem(std::size_t size) : n(static_cast<int>(size)), cells(bench::noise(size * size)) {
    for (std::size_t i = 0; i < size; ++i) cells[i * size + i] += static_cast<double>(size);
    work.resize(64 * size);
    pivots.resize(size);
    flat_c.resize(size * size);
    eigen_c.resize(n, n);
    SetLength(original, n, n);
    for (std::size_t i = 0; i < cells.size(); ++i)
      original[static_cast<Integer>(i / size)][static_cast<Integer>(i % size)] = cells[i];
  }
  void reset() {
    flat_a = cells;
    eigen_a = Eigen::Map<const Eigen::MatrixXd>(cells.data(), n, n);
    a.swap(b), b = nullptr, c = nullptr, a = nullptr;
    CloneArray(original, a);
  }
};

Problem problem(std::size_t n) { return Problem(n); }
constexpr auto cube = [](std::size_t n) {
  return static_cast<double>(n) * static_cast<double>(n) * static_cast<double>(n);
};
/// The cells of a result, which only the proof asks for.
template <class M>
auto cells_of(const M& m) {
  return [&m] {
    if constexpr (std::is_same_v<M, Cells>)
      return m;
    else
      return flat(m);
  };
}

constexpr auto our_product = [](Problem& p) {
  MultiplyArrays(p.original, p.original, p.c);
  return cells_of(p.c);
};
constexpr auto blas_product = [](Problem& p) {
  const double one = 1.0, zero = 0.0;
  dgemm_("N", "N", &p.n, &p.n, &p.n, &one, p.flat_a.data(), &p.n, p.flat_a.data(), &p.n, &zero, p.flat_c.data(), &p.n);
  return cells_of(p.flat_c);
};
constexpr auto eigen_product = [](Problem& p) {
  p.eigen_c.noalias() = p.eigen_a * p.eigen_a;
  return cells_of(p.eigen_c);
};
const auto same_product = bench::close(1e-8);
ZOR_BENCH_PAIR(MultiplySmall, problem, our_product, blas_product, same_product)
    .against("OpenBLAS dgemm")
    .goal(1.5)
    .sizes({64})
    .items(cube);
ZOR_BENCH_PAIR(MultiplyMiddle, problem, our_product, blas_product, same_product)
    .against("OpenBLAS dgemm")
    .goal(1.15)
    .sizes({256})
    .items(cube);
ZOR_BENCH_PAIR(MultiplyLarge, problem, our_product, blas_product, same_product)
    .against("OpenBLAS dgemm")
    .goal(1.1)
    .sizes({1024})
    .items(cube);
ZOR_BENCH_PAIR(Multiply, problem, our_product, eigen_product, same_product)
    .against("Eigen")
    .sizes({64, 256, 1024})
    .items(cube);

constexpr auto our_inverse = [](Problem& p) {
  InvertArray(p.a);
  return cells_of(p.a);
};
constexpr auto lapack_inverse = [](Problem& p) {
  const int cells = static_cast<int>(p.work.size());
  int info = 0;
  dgetrf_(&p.n, &p.n, p.flat_a.data(), &p.n, p.pivots.data(), &info);
  dgetri_(&p.n, p.flat_a.data(), &p.n, p.pivots.data(), p.work.data(), &cells, &info);
  return cells_of(p.flat_a);
};
constexpr auto eigen_inverse = [](Problem& p) {
  p.eigen_c = p.eigen_a.partialPivLu().inverse();
  return cells_of(p.eigen_c);
};
ZOR_BENCH_PAIR(InvertSmall, problem, our_inverse, lapack_inverse, bench::close(1e-12))
    .against("OpenBLAS dgetrf + dgetri")
    .goal(1.3)
    .sizes({100})
    .items(cube);
ZOR_BENCH_PAIR(InvertLarge, problem, our_inverse, lapack_inverse, bench::close(1e-12))
    .against("OpenBLAS dgetrf + dgetri")
    .goal(1.2)
    .sizes({500, 1000})
    .items(cube)
    .remark(
        "the told order of the backward substitution lets no rows be blocked: half of the work runs from the second "
        "cache");
ZOR_BENCH_PAIR(Invert, problem, our_inverse, eigen_inverse, bench::close(1e-12))
    .against("Eigen")
    .sizes({100, 500, 1000})
    .items(cube);

/// Both triangles in one square.
constexpr auto our_factors = [](Problem& p) {
  LUdecomposition(p.original, p.b, p.c);
  return [&p] {
    Cells both = flat(p.c);
    const auto n = static_cast<std::size_t>(p.n);
    for (std::size_t c = 0; c < n; ++c)
      for (std::size_t r = c + 1; r < n; ++r) both[c * n + r] = p.b[static_cast<Integer>(c)][static_cast<Integer>(r)];
    return both;
  };
};
constexpr auto lapack_factors = [](Problem& p) {
  int info = 0;
  dgetrf_(&p.n, &p.n, p.flat_a.data(), &p.n, p.pivots.data(), &info);
  return cells_of(p.flat_a);
};
constexpr auto eigen_factors = [](Problem& p) {
  const auto lu = p.eigen_a.partialPivLu();
  p.eigen_c = lu.matrixLU();
  return cells_of(p.eigen_c);
};
ZOR_BENCH_PAIR(LUdecomposition, problem, our_factors, lapack_factors, bench::close(1e-8))
    .against("OpenBLAS dgetrf")
    .goal(1.3)
    .sizes({500, 1000})
    .items(cube)
    .remark("ours writes two triangles besides");
ZOR_BENCH_PAIR(LUdecompositionEigen, problem, our_factors, eigen_factors, bench::close(1e-8))
    .against("Eigen")
    .sizes({500, 1000})
    .items(cube);

}  // namespace
}  // namespace ZOR_openarrays
#endif
