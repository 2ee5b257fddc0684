#include <cmath>

#include "tests/arrays/array_util.h"
#include "zor/base/ZOR_univconst.h"

namespace ZOR_openarrays {
namespace {

using ZOR_univconst::uc_MaxDouble;

template <class A>
class Extremes : public testing::Test {};
TYPED_TEST_SUITE(Extremes, NumTypes);

TYPED_TEST(Extremes, AreFoundWhereverTheyStand) {
  const auto count = static_cast<int>(cells(shaped<TypeParam>()).size());
  for (int at = 0; at < count; ++at) {
    const auto a = shaped<TypeParam>([=](int i) { return i == at ? -5 : i == (at + 1) % count ? 9 : 1; });
    CellType<TypeParam> lo = 0, hi = 0;
    EXPECT_EQ(MinMaxArray(a, lo, hi), 0);
    EXPECT_EQ(lo, -5);
    EXPECT_EQ(hi, 9);
    EXPECT_EQ(MinArray(a), -5);
    EXPECT_EQ(MaxArray(a), 9);
  }
}

TYPED_TEST(Extremes, OfAnEmptyArrayAreSentinels) {
  using T = CellType<TypeParam>;
  const TypeParam null;
  T lo = 0, hi = 0;
  EXPECT_EQ(MinMaxArray(null, lo, hi), kEmptyArray);
  EXPECT_EQ(lo, std::numeric_limits<T>::max());
  EXPECT_EQ(hi, std::numeric_limits<T>::lowest());
  const bool wide = std::same_as<T, Double> && kRank<TypeParam> > 2;
  EXPECT_EQ(MaxArray(null), wide ? -uc_MaxDouble : -2147483648.0);
  EXPECT_EQ(MinArray(null), wide ? uc_MaxDouble : 2147483647.0);
}

TEST(ExtremePlaces, AreThoseOfTheFirst) {
  Integer ix = 9, col = 9, row = 9;
  EXPECT_EQ(MinArray(TDoubleArray{1, 1, 2}, ix), 1);
  EXPECT_EQ(ix, 0);
  EXPECT_EQ(MaxArray(TIntArray{1, 2, 2}, ix), 2);
  EXPECT_EQ(ix, 1);
  EXPECT_EQ(MaxArray(TDouble2DArray{{1, 2, 3}, {4, 8, 8}}, col, row), 8);
  EXPECT_EQ(col, 1);
  EXPECT_EQ(row, 1);
  EXPECT_EQ(MinArray(TInt2DArray{{3, 2}, {0, 1}, {0, 0}}, col, row), 0);
  EXPECT_EQ(col, 1);
  EXPECT_EQ(row, 0);
  EXPECT_EQ(MaxArray(TDouble2DArray{{1, 2}, {3}}, col, row), -2147483648.0) << "ragged";
  EXPECT_EQ(col, 0);
}

TEST(ExtremeNumbers, NaNIsNeverExtremeUnlessAlone) {
  Integer ix = 9;
  EXPECT_EQ(MaxArray(TDoubleArray{kNaN, -kInf, kNaN}, ix), -kInf);
  EXPECT_EQ(ix, 1);
  EXPECT_TRUE(std::isnan(MinArray(TDoubleArray{kNaN, kNaN}, ix)));
  EXPECT_EQ(ix, 0);
  double lo = 0, hi = 0;
  EXPECT_EQ(MinMaxArray(TDouble2DArray{{kNaN, kNaN}, {3, kNaN}, {kNaN, 2}}, lo, hi), 0);
  EXPECT_EQ(lo, 2);
  EXPECT_EQ(hi, 3);
  EXPECT_EQ(MinMaxArray(TDoubleArray{kNaN}, lo, hi), 0);
  EXPECT_EQ(lo, uc_MaxDouble);
  EXPECT_EQ(MinMaxArray(TDoubleArray{kInf, kInf}, lo, hi), 0);
  EXPECT_EQ(lo, kInf);
}

TEST(ExtremesOfRange, PlacesCountFromTheArray) {
  double lo = 0, hi = 0;
  Integer lo_ix = 0, hi_ix = 0;
  const TDoubleArray a = {-9, 4, 2, 5, 99};
  EXPECT_EQ(MinMaxArray(a, 1, 3, lo, hi, lo_ix, hi_ix), 0);
  EXPECT_EQ((TDoubleArray{lo, hi}), (TDoubleArray{2, 5}));
  EXPECT_EQ((TIntArray{lo_ix, hi_ix}), (TIntArray{2, 3}));
  Integer min_col = 0, min_row = 0, max_col = 0, max_row = 0, least = 0, most = 0;
  const TInt2DArray plane = {{0, 0, 0}, {0, 7, 3}, {0, 5, 8}};
  EXPECT_EQ(MinMaxArray(plane, 1, 1, 2, 2, least, most, min_col, min_row, max_col, max_row), 0);
  EXPECT_EQ((TIntArray{least, min_col, min_row}), (TIntArray{3, 1, 2}));
  EXPECT_EQ((TIntArray{most, max_col, max_row}), (TIntArray{8, 2, 2}));
}

TEST(ExtremesOfRange, SentinelsStayWhereNoCellPassesThem) {
  double lo = 0, hi = 0;
  Integer lo_ix = 9, hi_ix = 9;
  const TDoubleArray a = {1, kInf, kInf};
  EXPECT_EQ(MinMaxArray(a, 2, 0, lo, hi, lo_ix, hi_ix), 0) << "an empty range is no error";
  EXPECT_EQ(lo, uc_MaxDouble);
  EXPECT_EQ(hi, -uc_MaxDouble);
  EXPECT_EQ(hi_ix, 0);
  EXPECT_EQ(MinMaxArray(a, 1, 2, lo, hi, lo_ix, hi_ix), 0);
  EXPECT_EQ(lo, uc_MaxDouble);
  EXPECT_EQ(lo_ix, 0);
  EXPECT_EQ(hi, kInf);
  EXPECT_EQ(hi_ix, 1);
  EXPECT_EQ(MinMaxArray(a, 3, 0, lo, hi, lo_ix, hi_ix), kBadRange);
  EXPECT_EQ(MinMaxArray(a, 0, -1, lo, hi, lo_ix, hi_ix), kBadRange);
  EXPECT_EQ(hi, -uc_MaxDouble);
  EXPECT_EQ(MinMaxArray(TDoubleArray{}, 3, 0, lo, hi, lo_ix, hi_ix), kEmptyArray);
}

TEST(ExtremesOfOpenArrays, TakeWhatConvertsToASpan) {
  double lo = 0, hi = 0;
  EXPECT_EQ(MinMaxArray(std::vector<double>{3, 1, 2}, lo, hi), 0);
  EXPECT_EQ(lo, 1);
  Integer least = 0, most = 0;
  EXPECT_EQ(MinMaxArray(std::vector<Integer>{}, least, most), kEmptyArray);
  EXPECT_EQ(least, 2147483647);
  EXPECT_EQ(MinMaxArray(TSingleArray{0.5F, -0.25F}, lo, hi), 0);
  EXPECT_EQ(lo, -0.25);
  EXPECT_EQ(MinMaxArray(TSingleArray{}, lo, hi), kEmptyArray);
  EXPECT_EQ(hi, -ZOR_univconst::uc_MaxSingle);
}

}  // namespace
}  // namespace ZOR_openarrays
