// GCC 12 takes the AVX-512 forms of Eigen for uninitialized (its bug 105593).
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#include <Eigen/Dense>
#include <algorithm>
#include <memory>
#include <numeric>
#include <vector>

#include "bench/pair.h"
#include "zor/datatable/ZOR_datatable.h"

/// \file  Sorting, editing and statistics of tables.

namespace ZOR_datatable {
namespace {

namespace bench = zor::bench;

struct Sheet {
  TDataTable table;
  std::vector<std::vector<double>> columns, fresh;
  std::vector<std::uint8_t> states;
  TMatrix covariance;
  Eigen::MatrixXd complete;
  void reset() {
    columns = fresh;
    auto edit = table.NumericData->Edit();
    for (std::size_t c = 0; c < fresh.size(); ++c)
      std::ranges::copy(fresh[c], edit.Column(static_cast<Integer>(c) + 1).begin());
  }
};

struct Shared {
  Sheet* operator->() const { return data.get(); }
  void reset() const { data->reset(); }
  std::shared_ptr<Sheet> data = std::make_shared<Sheet>();
};

Shared sheet(Integer columns, std::size_t rows, std::size_t missing_step) {
  Shared s;
  s->table.Resize(columns, static_cast<Integer>(rows));
  s->covariance.Resize(columns, columns);
  s->complete.resize(static_cast<Eigen::Index>(rows), columns);
  for (Integer c = 0; c < columns; ++c) {
    s->fresh.push_back(bench::noise(rows, static_cast<std::uint64_t>(c) + 1));
    std::ranges::copy(s->fresh.back(), s->complete.col(c).data());
  }
  s->reset();
  std::size_t place = 0;
  for (Integer c = 1; missing_step > 0 && c <= columns; ++c) {
    for (Integer r = 1; r <= s->table.NrOfRows(); ++r) {
      if (++place % missing_step == 0) s->table.SetCellState(c, r, kCellEmpty);
    }
  }
  return s;
}

Shared sorted(std::size_t n) { return sheet(8, n, 0); }

std::vector<double> first_column(const Shared& s) {
  const auto cells = s->table.ColumnView(1);
  return {cells.begin(), cells.end()};
}

ZOR_BENCH_PAIR(
    SortRows8, sorted,
    [](Shared& s) {
      s->table.SortRows(3, true, 0, 0, 0, 0, true);
      return [s] { return first_column(s); };
    },
    [](Shared& s) {
      std::vector<std::size_t> order(s->columns[0].size());
      std::iota(order.begin(), order.end(), std::size_t{0});
      const auto& key = s->columns[2];
      std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return key[a] < key[b]; });
      std::vector<double> work(order.size());
      for (auto& column : s->columns) {
        for (std::size_t i = 0; i < order.size(); ++i) work[i] = column[order[i]];
        column.swap(work);
      }
      return [s] { return s->columns[0]; };
    },
    bench::equal)
    .against("std::sort of an index, then gather")
    .goal(1.0)
    .sizes({100'000})
    .remark("ours moves states, names and attributes, too");

Shared gaps(std::size_t n) { return sheet(32, n, 100); }

ZOR_BENCH_PAIR(
    MeanVar32, gaps,
    [](Shared& s) {
      double sum = 0.0;
      for (Integer c = 1; c <= 32; ++c) {
        double mean = 0.0, variance = 0.0;
        s->table.MeanVarOfNumCells(c, 0, c, 0, mean, variance);
        sum += variance;
      }
      return sum;
    },
    [](Shared& s) {
      double sum = 0.0;
      for (Eigen::Index c = 0; c < 32; ++c) {
        const auto column = s->complete.col(c).array();
        sum += (column - column.mean()).square().sum() / static_cast<double>(column.size() - 1);
      }
      return sum;
    },
    bench::close(1e-3))
    .against("Eigen on the complete cells, two passes")
    .goal(1.2)
    .sizes({100'000})
    .remark("ours leaves one cell in 100 out and sums with twice the precision");

ZOR_BENCH_PAIR(
    Quartiles32, gaps,
    [](Shared& s) {
      double sum = 0.0;
      for (Integer c = 1; c <= 32; ++c) {
        double q1 = 0.0, q2 = 0.0, q3 = 0.0;
        Integer n = 0;
        s->table.QuartilesOfNumCells(c, 0, c, 0, q1, q2, q3, n);
        sum += q3 - q1;
      }
      return sum;
    },
    [](Shared& s) {
      double sum = 0.0;
      for (Eigen::Index c = 0; c < 32; ++c) {
        std::vector<double> x(s->complete.col(c).begin(), s->complete.col(c).end());
        const auto quarter = static_cast<std::ptrdiff_t>(x.size() / 4);
        for (const std::ptrdiff_t k : {quarter, 2 * quarter, 3 * quarter})
          std::nth_element(x.begin(), x.begin() + k, x.end());
        std::nth_element(x.begin(), x.begin() + quarter, x.end());
        const double q1 = x[static_cast<std::size_t>(quarter)];
        std::nth_element(x.begin(), x.begin() + 3 * quarter, x.end());
        sum += x[static_cast<std::size_t>(3 * quarter)] - q1;
      }
      return sum;
    },
    bench::close(1e-2))
    .against("std::nth_element for each quartile")
    .goal(0.6)
    .sizes({100'000});

ZOR_BENCH_PAIR(
    Covariance32, gaps,
    [](Shared& s) {
      s->table.CalcCovar(&s->covariance, 1, 32, 1, s->table.NrOfRows(), 1);
      return s->covariance.GetVal(7, 7);
    },
    [](Shared& s) {
      const Eigen::MatrixXd centred = s->complete.rowwise() - s->complete.colwise().mean();
      const Eigen::MatrixXd covariance = centred.transpose() * centred / static_cast<double>(s->complete.rows() - 1);
      return covariance(6, 6);
    },
    bench::close(1e-2))
    .against("Eigen on the complete cells")
    .goal(1.0)
    .sizes({100'000})
    .remark("ours leaves cells out pair by pair and sums with twice the precision");

ZOR_BENCH_PAIR(
    InsertRow10, [](std::size_t n) { return sheet(10, n / 10, 0); },
    [](Shared& s) {
      s->table.InsertRow(2);
      const double inserted = s->table.GetVal(1, 3);
      s->table.RemoveRow(2);
      return inserted;
    },
    [](Shared& s) {
      for (auto& column : s->columns) column.insert(column.begin() + 1, 0.0);
      const double inserted = s->columns[0][2];
      for (auto& column : s->columns) column.erase(column.begin() + 1);
      return inserted;
    },
    bench::equal)
    .against("std::vector of numbers alone")
    .sizes({1'000'000})
    .remark("both remove the row again; ours moves states, names and attributes, too");

}  // namespace
}  // namespace ZOR_datatable
