#pragma once

#include <algorithm>
#include <armadillo>

#include "zor/interop/column_stride.h"
#include "zor/matrices/ZOR_matrix.h"

/// \file  Matrices and vectors as matrices of Armadillo, and back. Needs Armadillo on the include path and linked.
/// Cell (c, r) of a TMatrix is (r - 1, c - 1) of Armadillo: both keep their columns together. Armadillo wants columns
/// without gaps; those of a matrix may lie further apart (column_gap says whether), and the view is then a part of a
/// larger block. A view shares the cells: no copy is made, and it is valid until the matrix is resized or dies.
///
///     using namespace zor::interop;
///     const ArmaView view(m);
///     arma::rowvec means = arma::mean(view.cells());

namespace zor::interop {

/// Reading view on a matrix.
class ArmaView {
 public:
  explicit ArmaView(const ZOR_matrix::TMatrix& matrix)
      : rows_(static_cast<arma::uword>(matrix.NrOfRows())),
        block_(const_cast<double*>(matrix.Column(1).data()), static_cast<arma::uword>(detail::matrix_stride(matrix)),
               static_cast<arma::uword>(matrix.NrOfColumns()), false, true) {}
  ArmaView(const ArmaView&) = delete;
  ArmaView& operator=(const ArmaView&) = delete;

  /// The cells.
  arma::subview<double> cells() const { return block_.head_rows(rows_); }
  /// Cells between the end of a column and the start of the next one.
  arma::uword column_gap() const noexcept { return block_.n_rows - rows_; }

 private:
  arma::uword rows_;
  const arma::mat block_;
};

/// A copy of a matrix, of a vector.
inline arma::mat arma_copy(const ZOR_matrix::TMatrix& matrix) { return arma::mat(ArmaView(matrix).cells()); }
inline arma::vec arma_copy(const ZOR_vector::TVector& vector) {
  return arma::vec(vector.begin(), static_cast<arma::uword>(vector.NrOfElem()));
}

/// The elements of a vector for reading, without a copy; valid until it is resized or dies.
inline const arma::vec arma_view(const ZOR_vector::TVector& vector) {
  return arma::vec(const_cast<double*>(vector.begin()), static_cast<arma::uword>(vector.NrOfElem()), false, true);
}

/// Gives the matrix the size and the values of one of Armadillo. OnChange and OnResize of a new size, then one
/// OnChange. False, with nothing changed, if `values` is empty.
inline bool assign_arma(ZOR_matrix::TMatrix& matrix, const arma::mat& values) {
  if (values.is_empty()) return false;
  matrix.Resize(static_cast<ZOR_zorbase::Integer>(values.n_cols), static_cast<ZOR_zorbase::Integer>(values.n_rows));
  auto edit = matrix.Edit();
  for (arma::uword c = 0; c < values.n_cols; ++c)
    std::copy_n(values.colptr(c), values.n_rows, edit.Column(static_cast<ZOR_zorbase::Integer>(c) + 1).begin());
  return true;
}

}  // namespace zor::interop
