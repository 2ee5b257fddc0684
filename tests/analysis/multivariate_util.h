#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/source_dir.h"
#include "zor/analysis/ZOR_math2.h"

/// \file  Matrices and vectors for tests of multivariate analysis, and certified regressions.

namespace ZOR_math2 {

/// Columns of a matrix, as in {{column 1}, {column 2}}.
using Columns = std::vector<std::vector<double>>;

inline void set(TVector& to, const std::vector<double>& cells) {
  to.SetNrOfElem(static_cast<Integer>(cells.size()));
  std::ranges::copy(cells, to.Edit().begin());
}
inline void set(TMatrix& to, const Columns& columns) {
  to.Resize(static_cast<Integer>(columns.size()), static_cast<Integer>(columns[0].size()));
  auto edit = to.Edit();
  for (std::size_t c = 0; c < columns.size(); ++c)
    std::ranges::copy(columns[c], edit.Column(static_cast<Integer>(c + 1)).begin());
}
inline std::vector<double> cells_of(const TVector& v) { return {v.begin(), v.end()}; }
inline Columns columns_of(const TMatrix& m) {
  Columns columns;
  for (Integer c = 1; c <= m.NrOfColumns(); ++c) columns.emplace_back(m.Column(c).begin(), m.Column(c).end());
  return columns;
}

/// The columns of a data file of NIST: what follows its last line "Data: ...".
inline Columns nist_data(const std::string& file, std::size_t columns) {
  std::ifstream in(zor::test::source_dir() / "tests/data/nist" / file);
  std::string data;
  for (std::string line; std::getline(in, line); data += line + '\n') {
    if (line.rfind("Data:", 0) == 0) data.clear(), line.clear();
  }
  Columns cells(columns);
  std::istringstream words(data);
  std::size_t k = 0;
  for (double v; words >> v; ++k) cells[k % columns].push_back(v);
  return cells;
}

/// NIST Statistical Reference Datasets, linear regression, certified to 15 digits. The model has a constant unless
/// `powers` begins at 1; several variables, or the powers of one.
struct Certified {
  const char* file;
  std::size_t variables;
  int first_power, last_power;
  double digits;
  std::vector<double> estimates, deviations;
  double sd;

  void enter(TMatrix& design, TVector& y) const {
    Columns data = nist_data(file, variables + 1), columns;
    for (int p = first_power; p <= last_power; ++p) {
      if (variables > 1 && p == 1) {
        columns.insert(columns.end(), data.begin() + 1, data.end());
        continue;
      }
      std::vector<double>& power = columns.emplace_back(data[0].size(), 1.0);
      for (int k = 0; k < p; ++k) {
        for (std::size_t i = 0; i < power.size(); ++i) power[i] *= data[1][i];
      }
    }
    set(design, columns);
    set(y, data[0]);
  }
};

inline std::vector<Certified> certified_sets() {
  return {{"Norris.dat",
           1,
           0,
           1,
           12.0,
           {-0.262323073774029, 1.00211681802045},
           {0.232818234301152, 0.429796848199937e-3},
           0.884796396144373},
          {"Pontius.dat",
           1,
           0,
           2,
           11.5,
           {0.673565789473684e-3, 0.732059160401003e-6, -0.316081871345029e-14},
           {0.107938612033077e-3, 0.157817399981659e-9, 0.486652849992036e-16},
           0.205177424076185e-3},
          {"NoInt1.dat", 1, 1, 1, 14.0, {2.07438016528926}, {0.165289256198347e-1}, 3.56753034006338},
          {"Longley.dat",
           6,
           0,
           1,
           8.0,
           {-3482258.63459582, 15.0618722713733, -0.358191792925910e-1, -2.02022980381683, -1.03322686717359,
            -0.511041056535807e-1, 1829.15146461355},
           {890420.383607373, 84.9149257747669, 0.334910077722432e-1, 0.488399681651699, 0.214274163161675,
            0.226073200069370, 455.478499142212},
           304.854073561965},
          {"Wampler1.dat", 1, 0, 5, 8.0, {1, 1, 1, 1, 1, 1}, {0, 0, 0, 0, 0, 0}, 0.0},
          {"Wampler5.dat",
           1,
           0,
           5,
           8.0,
           {1, 1, 1, 1, 1, 1},
           {21523262.4678170, 23635517.3469681, 7793435.24331583, 1014755.07550350, 56456.6512170752, 1123.24854679312},
           23601450.2379268}};
}

}  // namespace ZOR_math2
