#include <atomic>
#include <chrono>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <thread>

#include "tests/matrices/matrix_util.h"

// The Gram matrix of the columns, on one thread and on several.

namespace ZOR_matrix {
namespace {

class MatrixSquare : public testing::Test {
 protected:
  ~MatrixSquare() override {
    MathFeedBackProc = nullptr;
    AbortMathProc = false;
  }
  /// More columns than two blocks of several threads.
  TMatrix& data() {
    data_.Resize(110, 37);
    for (Integer c = 1; c <= 110; ++c)
      for (Integer r = 1; r <= 37; ++r) data_.SetVal(c, r, std::sin(c * 1.7 + r * 0.3));
    return data_;
  }
  TMatrix data_, result_;
};

TEST_F(MatrixSquare, DividesTheProductsOfColumns) {
  TMatrix m;
  set(m, {{1, 2, 3}});
  EXPECT_TRUE(m.Square(&result_, 1.0));
  EXPECT_EQ(columns_of(result_), (Columns<TMatrix>{{14}}));
  set(m, {{1, 2, 3}, {1, 0, -1}});
  Listener told(result_);
  EXPECT_TRUE(m.Square(&result_, 2.0, 1));
  EXPECT_EQ(columns_of(result_), (Columns<TMatrix>{{7, -1}, {-1, 1}}));
  EXPECT_EQ(told.take(), "CR") << "of the size alone";
}

TEST_F(MatrixSquare, GivesTheSameBitsAndStepsOnAnyNumberOfThreads) {
  TMatrix one;
  ProcStat = 0.0;
  ASSERT_TRUE(data().Square(&one, 36.0, 1));
  EXPECT_EQ(ProcStat, 110.0);
  for (Integer c = 1; c <= 110; ++c)
    for (Integer r = 1; r <= 110; ++r) {
      Double sum = 0.0;
      for (Integer k = 1; k <= 37; ++k) sum += data_.GetVal(c, k) * data_.GetVal(r, k);
      ASSERT_NEAR(one.GetVal(c, r), sum / 36.0, 1e-14);
    }
  for (const Integer threads : {-5, 0, 2, 3, 8, 1000}) {
    ProcStat = 0.0;
    ASSERT_TRUE(data_.Square(&result_, 36.0, threads));
    EXPECT_EQ(columns_of(result_), columns_of(one)) << threads;
    EXPECT_EQ(ProcStat, 110.0) << threads;
  }
}

TEST_F(MatrixSquare, RefusesWithoutAChange) {
  TMatrix& m = data();
  EXPECT_FALSE(m.Square(nullptr, 1.0));
  EXPECT_FALSE(m.Square(&m, 1.0));
  EXPECT_FALSE(m.Square(&result_, 0.0));
  EXPECT_FALSE(m.Square(&result_, std::numeric_limits<Double>::quiet_NaN()));
  EXPECT_FALSE(m.Square(&result_, std::numeric_limits<Double>::infinity()));
  EXPECT_EQ(result_.NrOfColumns(), 1);
}

TEST_F(MatrixSquare, EndsItsThreadsOnAnAbort) {
  TMatrix& m = data();
  for (const Integer threads : {1, 2}) {
    AbortMathProc = true;
    EXPECT_FALSE(m.Square(&result_, 1.0, threads)) << "an old abort counts";
    AbortMathProc = false;
    MathFeedBackProc = [](Double) { AbortMathProc = true; };
    EXPECT_FALSE(m.Square(&result_, 1.0, threads));
    MathFeedBackProc = nullptr;
    AbortMathProc = false;
    EXPECT_TRUE(m.Square(&result_, 1.0, threads));
  }
}

TEST_F(MatrixSquare, OnThreadsNeverSucceedsWithCellsLeftOut) {
  TMatrix one;
  ASSERT_TRUE(data().Square(&one, 36.0, 1));
  AbortMathProc = true;  // ends the workers, and is taken back before the caller looks at it
  MathFeedBackProc = [](Double) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    AbortMathProc = false;
  };
  if (data_.Square(&result_, 36.0, 2)) {
    EXPECT_EQ(columns_of(result_), columns_of(one));
  }
}

TEST_F(MatrixSquare, EndsItsThreadsWhenTheProcedureThrows) {
  TMatrix& m = data();
  MathFeedBackProc = [](Double) { throw std::runtime_error("no more"); };
  for (const Integer threads : {1, 2}) EXPECT_THROW(m.Square(&result_, 1.0, threads), std::runtime_error);
}

TEST_F(MatrixSquare, RunsTheProcedureOnTheCallingThreadOnly) {
  static std::atomic<int> calls;
  static std::atomic<bool> elsewhere;
  static std::thread::id caller;
  calls = 0, elsewhere = false, caller = std::this_thread::get_id();
  MathFeedBackProc = [](Double) {
    ++calls;
    if (std::this_thread::get_id() != caller) elsewhere = true;
  };
  EXPECT_TRUE(data().Square(&result_, 1.0, 2));
  EXPECT_GE(calls, 1);
  EXPECT_FALSE(elsewhere);
}

}  // namespace
}  // namespace ZOR_matrix
