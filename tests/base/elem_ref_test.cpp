#include "zor/base/elem_ref.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "zor/base/edit_scope.h"

namespace ZOR_zorbase {
namespace {

using ZOR_runtime::Integer;

/// One cell at index 1, which tells of its changes.
template <class T>
struct Cell {
  T GetVal(Integer i) const { return i == 1 ? value : T{}; }
  void SetVal(Integer i, T v) {
    if (i == 1) value = v, Changed();
  }
  void Changed() { ++changes; }
  TElemRef<Cell, T, Integer> Elem(Integer i) { return {*this, i}; }
  T value{};
  int changes = 0;
};

TEST(TElemRef, AssignsValuesAlsoFromAnotherElement) {
  Cell<double> a, b;
  a.Elem(1) = 2.5;
  b.Elem(1) = a.Elem(1);
  EXPECT_EQ(b.value, 2.5);
  EXPECT_EQ(a.changes, 1);
  EXPECT_EQ(a.Elem(1) + b.Elem(1), 5.0);
  (a.Elem(1) += 1.5) *= 2.0;
  EXPECT_EQ(a.value, 8.0);
  a.Elem(2) = 9.0;
  EXPECT_EQ(a.value, 8.0);
  EXPECT_EQ(a.Elem(2), 0.0);
}

TEST(TElemRef, TakesFloatsIntoIntegersRoundedAndLimited) {
  Cell<double> real;
  Cell<Integer> whole;
  const auto taken = [&](double x) {
    real.value = x;
    whole.Elem(1) = real.Elem(1);
    return whole.value;
  };
  EXPECT_EQ(taken(2.5), 2);
  EXPECT_EQ(taken(-3.5), -4);
  EXPECT_EQ(taken(1e300), std::numeric_limits<Integer>::max());
  EXPECT_EQ(taken(-INFINITY), std::numeric_limits<Integer>::min());
  EXPECT_EQ(taken(std::nan("")), 0);
  real.Elem(1) = whole.Elem(1);
  EXPECT_EQ(real.value, 0.0);
}

TEST(TElemRef, ArithmeticOfIntegersWraps) {
  Cell<Integer> cell;
  cell.value = std::numeric_limits<Integer>::max();
  cell.Elem(1) += 1;
  EXPECT_EQ(cell.value, std::numeric_limits<Integer>::min());
  cell.Elem(1) -= 1;
  EXPECT_EQ(cell.value, std::numeric_limits<Integer>::max());
  cell.value = 65536;
  cell.Elem(1) *= 65537;
  EXPECT_EQ(cell.value, 65536);
  cell.value = std::numeric_limits<Integer>::min();
  cell.Elem(1) /= -1;
  EXPECT_EQ(cell.value, std::numeric_limits<Integer>::min());
}

TEST(EditScope, TellsOnceAtItsEnd) {
  Cell<double> cell;
  {
    const EditScope<Cell<double>, double> edit(cell, {&cell.value, 1});
    edit[0] = 1.0;
    for (double& x : edit) x += 1.0;
    EXPECT_EQ(cell.changes, 0);
  }
  EXPECT_EQ(cell.changes, 1);
  EXPECT_EQ(cell.value, 2.0);
}

TEST(EditScope, LetsTheHandlersExceptionOutButNeverASecondOne) {
  struct Throwing {
    void Changed() { throw 1; }
  } container;
  using Scope = EditScope<Throwing, double>;
  EXPECT_THROW({ const Scope edit(container, {}); }, int);
  const auto already_failing = [&] {
    const Scope edit(container, {});
    throw 2.0;
  };
  EXPECT_THROW(already_failing(), double);
}

}  // namespace
}  // namespace ZOR_zorbase
