#include <algorithm>
#include <exception>
#include <limits>
#include <stdexcept>

#include "tests/matrices/matrix_util.h"
#include "zor/runtime/cell_memory.h"

namespace ZOR_matrix {
namespace {

TEST(TMatrixCore, ANewMatrixHoldsOneZeroAndShowsNumbersExactly) {
  const TMatrix m;
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{0.0}}));
  EXPECT_EQ(m.Precision(1), 15);
  EXPECT_EQ(m.Precision(2), -1);
  EXPECT_EQ(m.DataID(), "");
}

TEST(TMatrixCore, BadIndicesReadZeroAndWriteNothing) {
  TMatrix m;
  number_cells(m, 2, 3);
  const auto before = columns_of(m);
  Listener told(m);
  constexpr Integer kLow = std::numeric_limits<Integer>::min(), kHigh = std::numeric_limits<Integer>::max();
  for (const auto& [c, r] : {std::pair{0, 1}, {1, 0}, {3, 1}, {1, 4}, {kLow, 1}, {1, kLow}, {kHigh, kHigh}}) {
    EXPECT_EQ(m.GetVal(c, r), 0.0);
    m.SetVal(c, r, 9.0);
    EXPECT_EQ(m.Column(c).empty(), c < 1 || c > 2);
  }
  EXPECT_EQ(told.take(), "");
  EXPECT_EQ(columns_of(m), before);
}

TEST(TMatrixCore, ElemReadsWritesAndTells) {
  TMatrix m;
  number_cells(m, 2, 2);
  Listener told(m);
  m.Elem(1, 2) = m.Elem(2, 1);
  m.Elem(2, 2) += 1.0;
  m.Elem(3, 3) = 5.0;
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{11, 21}, {21, 23}}));
  EXPECT_EQ(told.take(), "CC");
}

TEST(TMatrixCore, ResizeKeepsWhatStaysAndTellsChangeBeforeResize) {
  TMatrix m;
  number_cells(m, 2, 2);
  Listener told(m);
  EXPECT_TRUE(m.Resize(3, 3));
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{11, 12, 0}, {21, 22, 0}, {0, 0, 0}}));
  EXPECT_TRUE(m.Resize(1, 4));
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{11, 12, 0, 0}}));
  EXPECT_EQ(told.take(), "CRCR");
  EXPECT_FALSE(m.Resize(1, 4)) << "an unchanged size";
  EXPECT_FALSE(m.Resize(0, 4));
  EXPECT_FALSE(m.Resize(1, -1));
  m.SetNrOfColumns(0);
  m.SetNRows(-3);
  EXPECT_EQ(told.take(), "");
  m.SetNCols(2);
  m.SetNrOfRows(2);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{11, 12}, {0, 0}}));
}

TEST(TMatrixCore, ResizeAndClearKeepsTheCellsOfAMatrixThatHasTheSize) {
  TMatrix m;
  number_cells(m, 2, 2);
  Listener told(m);
  EXPECT_FALSE(m.ResizeAndClear(2, 2));
  EXPECT_EQ(m.GetVal(2, 2), 22.0);
  EXPECT_EQ(told.take(), "");
  EXPECT_TRUE(m.ResizeAndClear(2, 3));
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{0, 0, 0}, {0, 0, 0}}));
  EXPECT_EQ(told.take(), "CRCCR");
}

TEST(TMatrixCore, MemoryThatRunsOutLeavesTheMatrixAndSaysSo) {
  TMatrix m;
  m.SetName("Matrix1");
  number_cells(m, 2, 2);
  const auto before = columns_of(m);
  EXPECT_EQ(message_of<EZORMatrixError>([&] { m.Resize(2147483647, 2147483647); }),
            "Component \"Matrix1\": not enough memory on heap");
  zor::detail::AllocationLimitScope limit({.largest = 1000, .failing_call = zor::detail::AllocationLimits::kNone});
  EXPECT_EQ(message_of<EZORMatrixError>([&] { m.Resize(100, 100); }),
            "Component \"Matrix1\": not enough memory on heap");
  EXPECT_EQ(columns_of(m), before);
}

TEST(TMatrixCore, AnExceptionOfAHandlerLeavesResizeAsMemoryErrorWithItsCause) {
  TMatrix m;
  m.OnResize = [](TObject*) { throw std::runtime_error("cause"); };
  try {
    m.Resize(2, 7);
    FAIL();
  } catch (const EZORMatrixError& e) {
    EXPECT_STREQ(e.what(), "Component \"\": not enough memory on heap");
    EXPECT_THROW(std::rethrow_if_nested(e), std::runtime_error);
  }
  EXPECT_EQ(m.NrOfRows(), 7) << "the new size stands";
}

TEST(TMatrixCore, ReversedRowsCountAsRepairedAndReversedColumnsDoNot) {
  TMatrix m;
  m.Resize(10, 10);
  struct Case {
    Integer lo, hi, valid_lo, valid_hi, column_code, row_code;
  };
  for (const Case& k :
       {Case{0, 0, 1, 10, 0, 0}, Case{5, 2, 2, 5, 0, -1}, Case{2, 5, 2, 5, 0, 0}, Case{0, 4, 1, 4, -1, -1},
        Case{11, 3, 3, 10, -1, -1}, Case{-7, 99, 1, 10, -1, -1}, Case{12, 11, 10, 10, -1, -1}}) {
    Integer lo = k.lo, hi = k.hi;
    EXPECT_EQ(m.MakeValidColRange(lo, hi), k.column_code) << k.lo << ' ' << k.hi;
    EXPECT_EQ(std::pair(lo, hi), std::pair(k.valid_lo, k.valid_hi));
    lo = k.lo, hi = k.hi;
    EXPECT_EQ(m.MakeValidRowRange(lo, hi), k.row_code) << k.lo << ' ' << k.hi;
    EXPECT_EQ(std::pair(lo, hi), std::pair(k.valid_lo, k.valid_hi));
  }
}

TEST(TMatrixCore, PrecisionIsLimited) {
  TMatrix m;
  m.SetPrecision(-4, 40);
  m.SetFPrecis(2, -5);
  EXPECT_EQ(m.GetFPrecis(1), 25);
  EXPECT_EQ(m.Precision(7), -1);
}

TEST(TMatrixFilling, RangesTakeColumnsBeforeRows) {
  TMatrix m;
  m.Resize(3, 2);
  Listener told(m);
  m.Fill(1.0);
  m.Fill(3, 2, 2, 9, 5.0);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{1, 1}, {1, 5}, {1, 5}}));
  m.FillDiag(7.0);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{7, 1}, {1, 7}, {1, 5}}));
  EXPECT_EQ(told.take(), "CCC");
}

TEST(TMatrixFilling, SeriesRunDownTheColumnsByRepeatedAdditionAndTellNothing) {
  TMatrix m;
  m.Resize(2, 2);
  Listener told(m);
  m.FillSerial(1.0, 1.0);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{1, 2}, {3, 4}}));
  m.FillSerial(0.1, 0.1);
  EXPECT_EQ(m.GetVal(1, 2), 0.1 + 0.1);
  EXPECT_EQ(m.GetVal(2, 2), 0.1 + 0.1 + 0.1 + 0.1);
  EXPECT_EQ(told.take(), "");
}

TEST(TMatrixFilling, RandomFillsTakeTheNumbersOfTheGeneratorInStorageOrder) {
  TMatrix m;
  m.Resize(3, 5);
  Listener told(m);
  RandSeed = 5;
  m.FillRandomUniform(2, 3, 4, 5, -1.0, 3.0);
  RandSeed = 5;
  for (const auto& [c, r] : {std::pair{2, 4}, {2, 5}, {3, 4}, {3, 5}}) EXPECT_EQ(m.GetVal(c, r), -1.0 + 4.0 * Random());
  EXPECT_EQ(m.GetVal(1, 4), 0.0);
  EXPECT_EQ(m.GetVal(2, 3), 0.0);
  m.FillRandomUniform(2.0, 2.5);
  m.FillRandomGauss(7.0, 0.0);
  EXPECT_EQ(m.GetVal(1, 1), 7.0);
  m.FillRandomGauss(1, 1, 1, 1, 0.0, 1e-3);
  EXPECT_LT(m.GetVal(1, 1), 1.0);
  EXPECT_EQ(m.GetVal(1, 2), 7.0);
  EXPECT_EQ(told.take(), "CCCC");
}

TEST(TMatrixEdit, TellsOnceAtTheEndOfItsScope) {
  TMatrix m;
  number_cells(m, 2, 3);
  Listener told(m);
  {
    auto edit = m.Edit();
    std::ranges::reverse(edit.Column(2));
    EXPECT_TRUE(edit.Column(3).empty());
    EXPECT_EQ(told.take(), "");
  }
  EXPECT_EQ(told.take(), "C");
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{11, 12, 13}, {23, 22, 21}}));
}

TEST(TMatrixEvents, AHandlerMayTakeItselfOffAndResize) {
  TMatrix m;
  int calls = 0;
  m.OnChange = [&](TObject* sender) {
    m.OnChange = nullptr;
    ++calls;
    EXPECT_EQ(sender, &m);
    m.Resize(5, 5);
  };
  m.Fill(2.0);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(m.NrOfColumns(), 5);
}

TEST(TMatrixEvents, ProgressAndExchangesNameTheMatrixAsSender) {
  TMatrix m, other;
  std::string told;
  m.OnPercentDone = [&](TObject* sender, Integer percent) {
    told += (sender == &m ? "P" : "?") + std::to_string(percent);
  };
  m.OnSortExchange = [&](TObject* sender, Byte what, Integer i, Integer j, Integer first, Integer last) {
    told += sender == &m ? "S" : "?";
    for (const Integer n : {Integer{what}, i, j, first, last}) told += std::to_string(n);
  };
  m.PercDone(&other, 40);
  m.SortExchange(1, 2, 3, 4, 5);
  EXPECT_EQ(told, "P40S12345");
}

}  // namespace
}  // namespace ZOR_matrix
