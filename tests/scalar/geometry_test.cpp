#include "zor/scalar/geometry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

namespace ZOR_math1 {
namespace {

constexpr Double kInf = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
constexpr Integer kMaxInt = std::numeric_limits<Integer>::max(), kMinInt = std::numeric_limits<Integer>::min();

class GridPoints {
 public:
  explicit GridPoints(int half_width) : coordinate_(-half_width, half_width) {}
  TPointDouble operator()() {
    const int x = coordinate_(bits_), y = coordinate_(bits_);
    return {static_cast<Double>(x), static_cast<Double>(y)};
  }

 private:
  std::mt19937_64 bits_{7};
  std::uniform_int_distribution<int> coordinate_;
};

TEST(CcwTriangle, TellsTheSense) {
  EXPECT_EQ(CcwTriangle({0, 0}, {1, 0}, {0, 1}), 1);
  EXPECT_EQ(CcwTriangle({0, 0}, {0, 1}, {1, 0}), -1);
  EXPECT_EQ(CcwTriangle({0, 0}, {1, 1}, {-3, -3}), 0);
  EXPECT_EQ(CcwTriangle({0, 0}, {1, 1}, {kNaN, 0}), 0);
  EXPECT_EQ(CcwTriangle({0, 0}, {1, 1}, {1, 1 + 1e-15}), 1);  // no tolerance
}

/// The segments have a point in common, in whole numbers: by solving for the crossing of the lines; lines that are the
/// same count as crossing, as the routine says.
bool cross_exactly(TPointDouble a1, TPointDouble a2, TPointDouble b1, TPointDouble b2) {
  const auto whole = [](Double v) { return static_cast<long>(v); };
  const long ax = whole(a2.x - a1.x), ay = whole(a2.y - a1.y), bx = whole(b2.x - b1.x), by = whole(b2.y - b1.y);
  const long cx = whole(b1.x - a1.x), cy = whole(b1.y - a1.y);
  long det = ax * by - ay * bx, s = cx * by - cy * bx, t = cx * ay - cy * ax;  // crossing at s / det of A, t / det of B
  if (det < 0) det = -det, s = -s, t = -t;
  return 0 <= s && s <= det && 0 <= t && t <= det;
}

TEST(SegmentsIntersect, AgreesWithTheCrossingOfTheLinesOnAGrid) {
  GridPoints point(4);  // narrow, so that ends touch and lines coincide
  int hits = 0, compared = 0;
  for (int i = 0; i < 50'000; ++i) {
    const auto a1 = point(), a2 = point(), b1 = point(), b2 = point();
    const bool parallel = (a2.x - a1.x) * (b2.y - b1.y) == (a2.y - a1.y) * (b2.x - b1.x);
    if (parallel) continue;
    ++compared;
    hits += cross_exactly(a1, a2, b1, b2);
    ASSERT_EQ(SegmentsIntersect(a1, a2, b1, b2), cross_exactly(a1, a2, b1, b2)) << a1 << a2 << b1 << b2;
    ASSERT_EQ(SegmentsIntersect(b2, b1, a1, a2), cross_exactly(a1, a2, b1, b2)) << a1 << a2 << b1 << b2;
  }
  EXPECT_GT(compared, 30'000);
  EXPECT_GT(hits, 5'000);
}

TEST(SegmentsIntersect, CountsTouchingEndsAndOneLineAsContact) {
  EXPECT_TRUE(SegmentsIntersect({0, 0}, {2, 0}, {2, 0}, {5, 7}));   // common end
  EXPECT_TRUE(SegmentsIntersect({0, 0}, {2, 0}, {1, 0}, {1, 3}));   // end within the other
  EXPECT_FALSE(SegmentsIntersect({0, 0}, {2, 0}, {0, 1}, {2, 1}));  // parallel
  EXPECT_TRUE(SegmentsIntersect({0, 0}, {1, 1}, {5, 5}, {6, 6}));   // one line with a gap
  EXPECT_FALSE(SegmentsIntersect({0, 0}, {1, 1}, {5, 5}, {6, 6.5}));
}

TEST(DistanceToSegment, GoesToTheFootOrToTheNearerEnd) {
  const TPointDouble a{1, 1}, b{4, 5};
  EXPECT_EQ(DistanceToSegment({-2, -3}, a, b), 5.0);
  EXPECT_EQ(DistanceToSegment({7, 9}, a, b), 5.0);
  EXPECT_DOUBLE_EQ(DistanceToSegment({2.5 - 4, 3 + 3}, a, b), 5.0);
  EXPECT_DOUBLE_EQ(DistanceToSegment({4 + 4, 5 - 3}, a, b), 5.0);  // foot is the end itself
  EXPECT_DOUBLE_EQ(DistanceToSegment({2.5, 3}, a, b), 0.0);
  EXPECT_EQ(DistanceToSegment({4, 5}, a, a), 5.0);
  EXPECT_TRUE(std::isnan(DistanceToSegment({kNaN, 0}, a, b)));
  EXPECT_TRUE(std::isnan(DistanceToSegment({0, 0}, a, {0, kNaN})));
}

TEST(DistFromRect, IsTheDistanceToTheNearestCellOfTheRectangle) {
  const TRect rects[] = {{-3, -2, 4, 3}, {1, -4, 1, 4}, {-2, 2, 5, 2}, {0, 0, 0, 0}};
  for (const TRect& r : rects) {
    for (Integer x = -9; x <= 9; ++x) {
      for (Integer y = -9; y <= 9; ++y) {
        const Double dx = std::max({r.left - x, 0, x - r.right}), dy = std::max({r.top - y, 0, y - r.bottom});
        ASSERT_EQ(DistFromRect({x, y}, r), std::lrint(std::hypot(dx, dy))) << TPoint{x, y};
      }
    }
  }
}

TEST(DistFromRect, StopsAtTheHighestInteger) {
  const TRect r{kMaxInt - 2, kMaxInt - 2, kMaxInt, kMaxInt};
  EXPECT_EQ(DistFromRect({kMinInt, kMinInt}, r), kMaxInt);
  EXPECT_EQ(DistFromRect({kMinInt, kMaxInt - 1}, r), kMaxInt);
  EXPECT_EQ(DistFromRect({kMaxInt - 1, kMinInt}, r), kMaxInt);
  EXPECT_EQ(DistFromRect({0, kMaxInt - 1}, r), kMaxInt - 2);
}

struct EllipseCase {
  Double x, y, a, b, nearest_x, nearest_y, distance;
};

// The orthogonality condition solved in 120 decimal digits for the doubles given, rounded to 17.
constexpr EllipseCase kEllipseCases[] = {
    {3, 4, 5, 3, 2.5104011732970162, 2.5944631316862505, 1.4883685361153536},
    {0.25, 0.125, 5, 3, 0.38165381572622731, 2.9912476546382747, 2.8692696535729589},
    {7, 2, 2, 5, 1.9194181507509211, 1.4049776745733231, 5.115306784023355},
    // Next to an axis.
    {1, 1e-9, 5, 3, 1.5624999996915852, 2.8497532788553759, 2.9047375086744918},
    {1, 1e-300, 5, 3, 1.5625, 2.8497532787944992, 2.9047375096555625},
    {1e-12, 1, 5, 3, 1.3157894736842106e-12, 3, 2},
    // Nearly a circle, far away, flat and far away, tiny.
    {1e-9, 1e-20, 1, 0.99999999, 0.049999999998737013, 0.99874920778447995, 0.99999998997499995},
    {1e150, 1e150, 1, 0.5, 0.89442719099991586, 0.22360679774997896, 1.414213562373095e150},
    {0.5, 1e150, 1, 1e-140, 4.9999999994999999e-11, 1e-140, 1e150},
    {1e10, 3, 1e-200, 1e-201, 9.9999999999999998e-201, 2.9999999999999997e-212, 1e10},
};

TEST(DistFromEllipse, AgreesWithLongArithmetic) {
  for (const EllipseCase& c : kEllipseCases) {
    TPointDouble nearest;
    const auto near = [](Double got, Double want) { return std::fabs(got - want) <= 1e-14 * std::fabs(want); };
    EXPECT_PRED2(near, DistFromEllipse({c.x, c.y}, 0, 0, c.a, c.b, nearest), c.distance) << c.x << ' ' << c.y;
    EXPECT_PRED2(near, nearest.x, c.nearest_x) << c.x << ' ' << c.y;
    EXPECT_PRED2(near, nearest.y, c.nearest_y) << c.x << ' ' << c.y;
  }
}

TEST(DistFromEllipse, IsFiniteForFiniteInput) {
  TPointDouble nearest{};
  EXPECT_DOUBLE_EQ(DistFromEllipse({1e-323, 1e-323}, 0, 0, 5, 5, nearest), 5.0);
  EXPECT_DOUBLE_EQ(nearest.x, std::sqrt(12.5));
  EXPECT_DOUBLE_EQ(nearest.y, std::sqrt(12.5));
  EXPECT_DOUBLE_EQ(DistFromEllipse({1e-323, 1e-323}, 0, 0, 5, 3, nearest), 3.0);
  EXPECT_DOUBLE_EQ(DistFromEllipse({1, 1e300}, 0, 0, 1e300, 1.7e308, nearest), 1e300);
}

TEST(DistFromEllipse, KnowsTheVerticesAndTheCentre) {
  TPointDouble nearest;
  EXPECT_EQ(DistFromEllipse({0, 0}, 0, 0, 5, 3, nearest), 3.0);
  EXPECT_EQ(nearest, (TPointDouble{0, 3}));
  EXPECT_EQ(DistFromEllipse({0, 0}, 0, 0, 3, 5, nearest), 3.0);
  EXPECT_EQ(nearest, (TPointDouble{3, 0}));
  EXPECT_EQ(DistFromEllipse({0, 0}, 0, 0, 2, 2, nearest), 2.0);
  EXPECT_EQ(nearest, (TPointDouble{2, 0}));
  EXPECT_EQ(DistFromEllipse({10, 0}, 0, 0, 5, 3, nearest), 5.0);
  EXPECT_EQ(nearest, (TPointDouble{5, 0}));
  EXPECT_EQ(DistFromEllipse({0, -7}, 0, 0, 5, 3, nearest), 4.0);
  EXPECT_EQ(nearest, (TPointDouble{0, -3}));
  EXPECT_NEAR(DistFromEllipse({3, 2.4}, 0, 0, 5, 3, nearest), 0.0, 1e-15);
  EXPECT_EQ(DistFromEllipse({0, 3}, 0, 0, 5, 3, nearest), 0.0);
}

TEST(DistFromEllipse, LeavesTheLongAxisShortOfTheVertex) {
  TPointDouble nearest;  // the centre of curvature of the vertex (5, 0) is (5 - 9 / 5, 0)
  DistFromEllipse({3.2, 0}, 0, 0, 5, 3, nearest);
  EXPECT_EQ(nearest, (TPointDouble{5, 0}));
  DistFromEllipse({3.1, 0}, 0, 0, 5, 3, nearest);
  EXPECT_NEAR(nearest.x, 5 * 3.1 / 3.2, 1e-14);
  EXPECT_NEAR(nearest.y, 3 * std::sqrt(1 - 3.1 * 3.1 / 3.2 / 3.2), 1e-14);
  for (const Double scale : {1e-200, 1e200}) {
    DistFromEllipse({3.1 * scale, 0}, 0, 0, 5 * scale, 3 * scale, nearest);
    EXPECT_NEAR(nearest.x / scale, 5 * 3.1 / 3.2, 1e-14);
  }
}

TEST(DistFromEllipse, BeatsEveryOtherPointOfTheCurve) {
  GridPoints point(6);
  for (int i = 0; i < 300; ++i) {
    const TPointDouble p = point(), centre = point(), axes = point();
    if (axes.x == 0.0 || axes.y == 0.0) continue;
    TPointDouble nearest;
    const Double distance = DistFromEllipse(p, centre.x, centre.y, axes.x, axes.y, nearest);
    EXPECT_NEAR(std::hypot((nearest.x - centre.x) / axes.x, (nearest.y - centre.y) / axes.y), 1.0, 1e-14);
    EXPECT_NEAR(EuclideanDistance(p, nearest), distance, 1e-14);
    for (int k = 0; k < 360; ++k) {
      const Double t = k * std::numbers::pi / 180.0;
      const TPointDouble other{centre.x + axes.x * std::cos(t), centre.y + axes.y * std::sin(t)};
      ASSERT_LE(distance, EuclideanDistance(p, other) + 1e-14) << p << centre << axes;
    }
    TPointDouble mirrored;
    EXPECT_NEAR(DistFromEllipse({p.y, p.x}, centre.y, centre.x, axes.y, axes.x, mirrored), distance, 1e-15);
  }
}

TEST(DistFromEllipse, TakesTheLongAxisForAFlatEllipse) {
  TPointDouble nearest;
  EXPECT_EQ(DistFromEllipse({-4, 4}, 0, 0, 1, 0, nearest), 5.0);
  EXPECT_EQ(nearest, (TPointDouble{-1, 0}));
  EXPECT_EQ(DistFromEllipse({3, 1.5}, 0, 1, 1e-200, 2, nearest), 3.0);
  EXPECT_EQ(nearest, (TPointDouble{0, 1.5}));
  EXPECT_EQ(DistFromEllipse({4, 6}, 1, 2, 0, 0, nearest), 5.0);
  EXPECT_EQ(nearest, (TPointDouble{1, 2}));
}

TEST(DistFromEllipse, AnswersNotANumberWithNotANumber) {
  for (const Double bad : {kNaN, kInf, -kInf}) {
    const Double distances[] = {
        [&](TPointDouble n) {
          return DistFromEllipse({bad, 1}, 0, 0, 2, 1, n);
        }({}),
        [&](TPointDouble n) {
          return DistFromEllipse({1, 1}, 0, bad, 2, 1, n);
        }({}),
        [&](TPointDouble n) {
          return DistFromEllipse({1, 1}, 0, 0, bad, 1, n);
        }({}),
        [&](TPointDouble n) {
          return DistFromEllipse({1, 1}, 0, 0, 2, bad, n);
        }({}),
    };
    for (const Double d : distances) EXPECT_TRUE(std::isnan(d)) << bad;
  }
}

TEST(DistFromEllipse, MayOverwriteItsPoint) {
  TPointDouble p{10, 0};
  EXPECT_EQ(DistFromEllipse(p, 0, 0, 5, 3, p), 5.0);
  EXPECT_EQ(p, (TPointDouble{5, 0}));
}

TEST(Rectangles, TakeTheirCornersInEitherOrder) {
  for (const TRectDouble& r : {TRectDouble{1, 2, 5, 4}, TRectDouble{5, 4, 1, 2}, TRectDouble{1, 4, 5, 2}}) {
    EXPECT_TRUE(WithinRect({1, 4}, r));
    EXPECT_TRUE(WithinRect({3, 3}, r));
    EXPECT_FALSE(WithinRect({3, 4.5}, r));
    EXPECT_FALSE(WithinRect({0.5, 3}, r));
    EXPECT_FALSE(WithinRect({kNaN, 3}, r));
    TPointDouble p{7, -1};
    EXPECT_TRUE(ConfinePointToRect(p, r));
    EXPECT_EQ(p, (TPointDouble{5, 2}));
    EXPECT_FALSE(ConfinePointToRect(p, r));
    p = {2, 9};
    EXPECT_TRUE(ConfinePointToRect(p, r));
    EXPECT_EQ(p, (TPointDouble{2, 4}));
    p = {kNaN, 9};
    EXPECT_FALSE(ConfinePointToRect(p, r));
    EXPECT_EQ(p.y, 9.0);
  }
}

TEST(EuclideanDistance, IsTheRootOfTheSumOfSquares) {
  EXPECT_EQ(EuclideanDistance({1, 2}, {4, -2}), 5.0);
  EXPECT_EQ(EuclideanDistance(4, -2, 1, 2), 5.0);
  EXPECT_EQ(EuclideanDistance(0, 0, 1e200, 0), kInf);
}

}  // namespace
}  // namespace ZOR_math1
