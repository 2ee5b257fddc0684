#pragma once

#include <Eigen/Core>
#include <optional>

#include "zor/interop/column_stride.h"
#include "zor/matrices/ZOR_matrix.h"

/// \file  Matrices, vectors and arrays as matrices of Eigen, and back. Needs Eigen 3 on the include path.
/// Cell (c, r) of a TMatrix is (r - 1, c - 1) of Eigen: both keep their columns together. A view shares the cells: no
/// copy is made, and it is valid until the matrix is resized or dies. Views for writing come from an edit scope, which
/// tells OnChange once when it ends.
///
///     using namespace zor::interop;
///     Eigen::VectorXd means = eigen_view(m).colwise().mean();
///     { auto edit = m.Edit();  eigen_view(edit) *= 2.0; }        // OnChange fires here

namespace zor::interop {

using EigenMatrixView = Eigen::Map<Eigen::MatrixXd, Eigen::Unaligned, Eigen::OuterStride<>>;
using EigenConstMatrixView = Eigen::Map<const Eigen::MatrixXd, Eigen::Unaligned, Eigen::OuterStride<>>;
using EigenVectorView = Eigen::Map<Eigen::VectorXd>;
using EigenConstVectorView = Eigen::Map<const Eigen::VectorXd>;
using MatrixEdit = ZOR_matrix::ColumnsEditScope<ZOR_matrix::TMatrix, double>;
using VectorEdit = ZOR_zorbase::EditScope<ZOR_vector::TVector, double>;

/// The cells of a matrix, for reading.
inline EigenConstMatrixView eigen_view(const ZOR_matrix::TMatrix& matrix) {
  return {matrix.Column(1).data(), matrix.NrOfRows(), matrix.NrOfColumns(),
          Eigen::OuterStride<>(detail::matrix_stride(matrix))};
}
/// The cells of a matrix, for writing while the scope lasts.
inline EigenMatrixView eigen_view(MatrixEdit& edit) {
  return {edit.Column(1).data(), edit.NrOfRows(), edit.NrOfColumns(),
          Eigen::OuterStride<>(detail::matrix_stride(edit))};
}

/// The elements of a vector, for reading, and for writing while a scope lasts.
inline EigenConstVectorView eigen_view(const ZOR_vector::TVector& vector) {
  return {vector.begin(), vector.NrOfElem()};
}
inline EigenVectorView eigen_view(VectorEdit& edit) {
  return {edit.cells().data(), static_cast<Eigen::Index>(edit.cells().size())};
}

/// The cells of an array; none if it is empty or ragged, or its columns do not lie at equal distance, as after an
/// exchange of columns by handle: take eigen_copy then.
inline std::optional<EigenMatrixView> eigen_view(ZOR_zorbase::TDouble2DArray& array) {
  const auto stride = detail::column_stride(array);
  if (!stride) return {};
  return EigenMatrixView(array[0].data(), static_cast<Eigen::Index>(array[0].size()),
                         static_cast<Eigen::Index>(array.size()), Eigen::OuterStride<>(*stride));
}

/// A copy of the cells of an array; 0 by 0 if it is empty or ragged.
inline Eigen::MatrixXd eigen_copy(const ZOR_zorbase::TDouble2DArray& array) {
  const std::size_t rows = array.empty() ? 0 : array[0].size();
  for (const auto& column : array) {
    if (column.size() != rows) return {};
  }
  if (rows == 0) return {};
  Eigen::MatrixXd copy(static_cast<Eigen::Index>(rows), static_cast<Eigen::Index>(array.size()));
  for (std::size_t c = 0; c < array.size(); ++c)
    copy.col(static_cast<Eigen::Index>(c)) = EigenConstVectorView(array[c].data(), copy.rows());
  return copy;
}

/// Gives the matrix the size and the values of an expression of Eigen, which may read the matrix itself. OnChange and
/// OnResize of a new size, then one OnChange. False, with nothing changed, for an empty expression.
template <class Derived>
bool assign_eigen(ZOR_matrix::TMatrix& matrix, const Eigen::MatrixBase<Derived>& expression) {
  const Eigen::MatrixXd values = expression;
  if (values.size() == 0) return false;
  matrix.Resize(static_cast<ZOR_zorbase::Integer>(values.cols()), static_cast<ZOR_zorbase::Integer>(values.rows()));
  auto edit = matrix.Edit();
  eigen_view(edit) = values;
  return true;
}

}  // namespace zor::interop
