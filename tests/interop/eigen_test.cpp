#include "zor/interop/eigen.h"

#include <gtest/gtest.h>

#include <Eigen/Dense>

namespace zor::interop {
namespace {

using namespace ZOR_matrix;

void number_cells(TMatrix& m, Integer columns, Integer rows) {
  m.Resize(columns, rows);
  m.FillSerial(1.0, 1.0);
}

TEST(EigenInterop, AViewSharesTheCellsWithRowsAndColumnsInEigensOrder) {
  for (const Integer rows : {1, 3, 8, 9, 512}) {
    TMatrix m;
    number_cells(m, 4, rows);
    const auto view = eigen_view(m);
    ASSERT_EQ(view.rows(), rows);
    ASSERT_EQ(view.cols(), 4);
    for (Integer c = 1; c <= 4; ++c) {
      for (Integer r = 1; r <= rows; ++r)
        EXPECT_EQ(&view.coeffRef(r - 1, c - 1), &m.Column(c)[static_cast<std::size_t>(r - 1)]);
    }
  }
}

TEST(EigenInterop, WritingThroughAScopeTellsOnce) {
  TMatrix m;
  number_cells(m, 2, 3);
  TVector v;
  v.Resize(2);
  int told = 0;
  m.OnChange = v.OnChange = [&](TObject*) { ++told; };
  {
    auto edit = m.Edit();
    eigen_view(edit) *= 2.0;
  }
  EXPECT_EQ(told, 1);
  EXPECT_EQ(m.GetVal(2, 3), 12.0);
  {
    auto edit = v.Edit();
    eigen_view(edit) = eigen_view(m).row(2);
  }
  EXPECT_EQ(told, 2);
  EXPECT_EQ(eigen_view(v).sum(), 18.0);
}

TEST(EigenInterop, ArraysGiveAViewOnlyWhileTheirColumnsLieAtEqualDistance) {
  TDouble2DArray a;
  SetLength(a, 3, 5);
  a[2][4] = 7.0;
  auto view = eigen_view(a);
  ASSERT_TRUE(view);
  EXPECT_EQ((*view)(4, 2), 7.0);
  std::swap(a[0], a[2]);
  EXPECT_FALSE(eigen_view(a));
  EXPECT_EQ(eigen_copy(a)(4, 0), 7.0);
  TDouble2DArray ragged = {{1, 2}, {3}}, none;
  EXPECT_FALSE(eigen_view(ragged));
  EXPECT_FALSE(eigen_view(none));
  EXPECT_EQ(eigen_copy(ragged).size(), 0);
}

TEST(EigenInterop, ExpressionsOfTheMatrixItselfMayBeAssignedToIt) {
  TMatrix m;
  number_cells(m, 2, 3);
  EXPECT_TRUE(assign_eigen(m, eigen_view(m).transpose()));
  EXPECT_EQ(m.NrOfColumns(), 3);
  EXPECT_EQ(m.GetVal(3, 1), 3.0);
  EXPECT_EQ(m.GetVal(1, 2), 4.0);
  EXPECT_FALSE(assign_eigen(m, Eigen::MatrixXd()));
  EXPECT_EQ(m.NrOfColumns(), 3);
}

}  // namespace
}  // namespace zor::interop
