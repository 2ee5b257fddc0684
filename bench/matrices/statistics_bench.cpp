#include <Eigen/Dense>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "bench/pair.h"
#include "zor/matrices/ZOR_matrix.h"

/// \file  Statistics, scaling, distances and order of matrices against Eigen and the standard library. Both sides hold
/// their cells column by column.

namespace {

using namespace ZOR_matrix;
using namespace ZOR_zorbase;

constexpr const char* kEigen = "Eigen, -march=native";

/// The same cells for both sides, and room for means.
struct Tables {
  TMatrix ours;
  Eigen::MatrixXd peer;
  ZOR_vector::TVector vec;
  Tables(Integer cols, Integer rows) : peer(rows, cols) {
    ours.Resize(cols, rows);
    const std::vector<double> x = zor::bench::noise(static_cast<std::size_t>(cols) * static_cast<std::size_t>(rows));
    std::copy(x.begin(), x.end(), peer.data());
    fill();
  }
  void fill() {
    auto edit = ours.Edit();
    for (Integer c = 1; c <= ours.NrOfColumns(); ++c)
      std::copy_n(peer.col(c - 1).data(), peer.rows(), edit.Column(c).begin());
  }
};

std::vector<double> cells_of(const TMatrix& m) {
  std::vector<double> cells;
  for (Integer c = 1; c <= m.NrOfColumns(); ++c) cells.insert(cells.end(), m.Column(c).begin(), m.Column(c).end());
  return cells;
}

std::vector<double> cells_of(const Eigen::MatrixXd& m) { return {m.data(), m.data() + m.size()}; }

/// Work that overwrites the cells starts from fresh ones.
struct Overwritten : Tables {
  Eigen::MatrixXd fresh;
  Overwritten(Integer cols, Integer rows) : Tables(cols, rows), fresh(peer) {}
  void reset() {
    peer = fresh;
    fill();
  }
};

Overwritten wide(std::size_t rows) { return {32, static_cast<Integer>(rows)}; }

ZOR_BENCH_PAIR(
    StandardizeColumns32, wide,
    [](Overwritten& t) {
      t.ours.StandardizeColumns(nullptr, nullptr);
      return [&] { return cells_of(t.ours); };
    },
    [](Overwritten& t) {
      const double n = static_cast<double>(t.peer.rows());
      for (Eigen::Index c = 0; c < t.peer.cols(); ++c) {
        auto column = t.peer.col(c).array();
        column -= column.mean();
        column /= std::sqrt(column.square().sum() / (n - 1.0));
      }
      return [&] { return cells_of(t.peer); };
    },
    zor::bench::close(1e-12))
    .against(kEigen)
    .goal(1.0)
    .items([](std::size_t n) { return 32.0 * static_cast<double>(n); })
    .sizes({1000, 100'000})
    .remark("sums in twice the precision cost what memory hides only from the second cache on");

template <TDims kDim>
std::vector<double> means(Tables& t) {
  t.ours.MeanVec(kDim, &t.vec);
  return {t.vec.begin(), t.vec.end()};
}

template <TDims kDim>
std::vector<double> peer_means(Tables& t) {
  const Eigen::VectorXd m =
      kDim == dimCols ? Eigen::VectorXd(t.peer.colwise().mean().transpose()) : Eigen::VectorXd(t.peer.rowwise().mean());
  return {m.data(), m.data() + m.size()};
}

Tables still(std::size_t rows) { return {32, static_cast<Integer>(rows)}; }

double cells32(std::size_t rows) { return 32.0 * static_cast<double>(rows); }

ZOR_BENCH_PAIR(MeanVecColumns32, still, means<dimCols>, peer_means<dimCols>, zor::bench::close(1e-12))
    .against(kEigen)
    .goal(1.0)
    .items(cells32)
    .sizes({1000, 100'000})
    .remark("sums in the order of the cells: scalar chains, eight at once, as long as cells come from the caches");

ZOR_BENCH_PAIR(MeanVecRows32, still, means<dimRows>, peer_means<dimRows>, zor::bench::close(1e-12))
    .against(kEigen)
    .goal(1.0)
    .items(cells32)
    .sizes({1000, 100'000})
    .remark("the first column is added to zeros");

/// Objects and room for their distances.
struct Objects : Tables {
  explicit Objects(Integer rows) : Tables(8, rows), peer_result(rows, rows) { result.Resize(rows, rows); }
  TMatrix result;
  Eigen::MatrixXd peer_result;
};

Objects objects(std::size_t rows) { return Objects(static_cast<Integer>(rows)); }

ZOR_BENCH_PAIR(
    CalcDistMatEuclid8, objects,
    [](Objects& t) {
      t.ours.CalcDistMat(dmEuclid, &t.result);
      return [&] { return cells_of(t.result); };
    },
    [](Objects& t) {
      const Eigen::Index n = t.peer.rows();
      for (Eigen::Index i = 0; i < n; ++i) {
        t.peer_result(i, i) = 0.0;
        for (Eigen::Index j = i + 1; j < n; ++j)
          t.peer_result(i, j) = t.peer_result(j, i) = (t.peer.row(i) - t.peer.row(j)).norm();
      }
      return [&] { return cells_of(t.peer_result); };
    },
    zor::bench::close(1e-14))
    .against("Eigen row-wise loops, -march=native")
    .goal(0.5)
    .items([](std::size_t n) { return static_cast<double>(n) * static_cast<double>(n - 1) / 2.0; })
    .sizes({200, 2000})
    .remark("at 2000 rows both sides wait for 32 MB to be written: 0.49 to 0.52");

Overwritten lines(std::size_t rows) { return {8, static_cast<Integer>(rows)}; }

ZOR_BENCH_PAIR(
    SortRows8, lines,
    [](Overwritten& t) {
      t.ours.SortRows(3, true, 0, 0, 0, 0);
      return [&] { return cells_of(t.ours); };
    },
    [](Overwritten& t) {
      const double* key = t.peer.col(2).data();
      std::vector<Eigen::Index> index(static_cast<std::size_t>(t.peer.rows()));
      std::iota(index.begin(), index.end(), Eigen::Index{0});
      std::sort(index.begin(), index.end(), [key](Eigen::Index a, Eigen::Index b) { return key[a] < key[b]; });
      t.peer = t.peer(index, Eigen::all).eval();
      return [&] { return cells_of(t.peer); };
    },
    zor::bench::equal)
    .against("std::sort of an index, then a gather")
    .goal(0.8)
    .sizes({1000, 100'000})
    .remark("the order of equal keys is that of the comb sort, whose passes only many rows repay");

Tables square(std::size_t cells) {
  const auto side = static_cast<Integer>(std::lround(std::sqrt(static_cast<double>(cells))));
  return {side, side};
}

ZOR_BENCH_PAIR(
    Percentile, square, [](Tables& t) { return t.ours.Percentile(70.0, 0, 0, 0, 0); },
    [](Tables& t) {
      std::vector<double> work = cells_of(t.peer);
      const auto rank = static_cast<std::ptrdiff_t>(std::nearbyint(70.0 * static_cast<double>(work.size()) / 100.0));
      std::nth_element(work.begin(), work.begin() + rank, work.end());
      return work[static_cast<std::size_t>(rank)];
    },
    zor::bench::equal)
    .against("std::nth_element of a copy")
    .goal(0.5)
    .sizes({10'000, 1'000'000});

}  // namespace
