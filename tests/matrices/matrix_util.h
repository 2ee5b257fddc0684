#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "tests/message_of.h"
#include "zor/matrices/ZOR_matrix.h"

namespace ZOR_matrix {

/// Columns of a matrix, as in {{column 1}, {column 2}}.
template <class M>
using Columns = std::vector<std::vector<typename M::value_type>>;

template <class M>
Columns<M> columns_of(const M& m) {
  Columns<M> columns;
  for (Integer c = 1; c <= m.NrOfColumns(); ++c) columns.emplace_back(m.Column(c).begin(), m.Column(c).end());
  return columns;
}

template <class M>
void set(M& m, const Columns<M>& columns) {
  m.Resize(static_cast<Integer>(columns.size()), static_cast<Integer>(columns[0].size()));
  auto edit = m.Edit();
  for (std::size_t c = 0; c < columns.size(); ++c)
    std::ranges::copy(columns[c], edit.Column(static_cast<Integer>(c + 1)).begin());
}

/// Cell (c, r) is 10 c + r, so that a misplaced cell names the place it came from.
template <class M>
void number_cells(M& m, Integer columns, Integer rows) {
  m.Resize(columns, rows);
  for (Integer c = 1; c <= columns; ++c) {
    for (Integer r = 1; r <= rows; ++r) m.SetVal(c, r, static_cast<typename M::value_type>(10 * c + r));
  }
}

/// Writes down the notifications of a matrix: C for OnChange, R for OnResize.
template <class M>
struct Listener {
  explicit Listener(M& m) {
    m.OnChange = [this](TObject*) { told += 'C'; };
    m.OnResize = [this](TObject*) { told += 'R'; };
  }
  std::string take() { return std::exchange(told, ""); }
  std::string told;
};

using zor::test::message_of;

}  // namespace ZOR_matrix
