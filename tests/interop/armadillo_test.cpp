#include "zor/interop/armadillo.h"

#include <gtest/gtest.h>

namespace zor::interop {
namespace {

using namespace ZOR_matrix;

TEST(ArmadilloInterop, AViewSharesTheCellsAlsoWhereColumnsLieApart) {
  for (const Integer rows : {1, 3, 8, 9, 512}) {
    TMatrix m;
    m.Resize(4, rows);
    m.FillSerial(1.0, 1.0);
    const ArmaView view(m);
    const auto cells = view.cells();
    ASSERT_EQ(cells.n_rows, static_cast<arma::uword>(rows));
    ASSERT_EQ(cells.n_cols, 4U);
    EXPECT_EQ(arma::accu(cells), 4.0 * rows * (4.0 * rows + 1.0) / 2.0);
    EXPECT_EQ(cells(static_cast<arma::uword>(rows) - 1, 2), m.GetVal(3, rows));
    EXPECT_EQ(view.column_gap() == 0, m.Column(1).data() + rows == m.Column(2).data());
    m.SetVal(2, 1, -5.0);
    EXPECT_EQ(view.cells()(0, 1), -5.0);
    EXPECT_EQ(arma_copy(m)(0, 1), -5.0);
  }
}

TEST(ArmadilloInterop, VectorsAreViewedAndCopied) {
  TVector v;
  v.Resize(3);
  v.FillSerial(1.0, 1.0);
  const arma::vec view = arma_view(v), copy = arma_copy(v);
  EXPECT_EQ(arma::dot(view, copy), 14.0);
}

TEST(ArmadilloInterop, AnAssignedMatrixTakesSizeAndCells) {
  TMatrix m;
  std::string told;
  m.OnChange = [&](TObject*) { told += 'C'; };
  m.OnResize = [&](TObject*) { told += 'R'; };
  EXPECT_TRUE(assign_arma(m, arma::mat{{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}}));
  EXPECT_EQ(told, "CRC");
  EXPECT_EQ(m.NrOfColumns(), 3);
  EXPECT_EQ(m.GetVal(1, 2), 4.0);
  EXPECT_FALSE(assign_arma(m, arma::mat()));
}

}  // namespace
}  // namespace zor::interop
