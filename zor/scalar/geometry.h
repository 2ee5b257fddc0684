#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Points, segments, rectangles and ellipses of the plane.
/// Squares are not guarded against overflow and underflow: coordinates above 1e154 give infinite distances, differences
/// below 1e-162 count as 0. NaN gives NaN, or false. Polygons are in ZOR_math2.
///
///     SegmentsIntersect({0, 0}, {2, 2}, {0, 2}, {2, 0});      // true
///     DistanceToSegment({1, 3}, {0, 0}, {2, 0});              // 3

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// 1 if P0, P1, P2 run counterclockwise (y upward), -1 if clockwise, 0 if they lie on a line. The sign of
/// (P1 - P0) x (P2 - P0) as computed, without a tolerance.
ZOR_API Integer CcwTriangle(const TPointDouble& P0, const TPointDouble& P1, const TPointDouble& P2) noexcept;

/// False if both ends of one segment lie on the same side of the line through the other one, else true: a touching end
/// counts. Segments that lie on one line are on no side of each other, so the result is true for them even if there is
/// a gap between them; where this can happen, compare the coordinates as well.
ZOR_API Boolean SegmentsIntersect(const TPointDouble& A1, const TPointDouble& A2, const TPointDouble& B1,
                                  const TPointDouble& B2) noexcept;

/// Distance of P to the nearest point of the segment from A to B, which may be a point.
ZOR_API Double DistanceToSegment(const TPointDouble& P, const TPointDouble& A, const TPointDouble& B) noexcept;

/// Distance of P to the rectangle, 0 inside and on the edges; beside a corner rounded, ties to even. For a rectangle
/// with left <= right and top <= bottom. A distance beyond the range of Integer is its highest value.
ZOR_API Integer DistFromRect(const TPoint& P, const TRect& R) noexcept;

/// Distance of P to the ellipse with centre (Cx, Cy) and half-axes |A| along x and |B| along y; Nearest is the point of
/// the ellipse that is nearest to P. Inside, too, it is the distance to the curve. Of several nearest points it is one
/// that lies on the positive side of the centre: from the centre the upper end of the short axis if that is vertical,
/// the right one if it is horizontal, and (Cx + A, Cy) in a circle.
/// With a half-axis of 0, or below 1e-150 times the other, the long axis stands for the ellipse; with two of 0 the
/// centre. A number that is not finite makes the distance and Nearest NaN. Accurate to some units in the last place of
/// the largest number involved; the orthogonality condition is solved by bisection, as in Eberly, Distance from a Point
/// to an Ellipse, an Ellipsoid, or a Hyperellipsoid (2013).
ZOR_API Double DistFromEllipse(const TPointDouble& P, Double Cx, Double Cy, Double A, Double B,
                               TPointDouble& Nearest) noexcept;

/// True if P lies in the rectangle or on its edges.
ZOR_API Boolean WithinRect(const TPointDouble& P, const TRectDouble& R) noexcept;

/// Moves each coordinate of P that lies outside the rectangle onto the nearest edge. True if P was moved. A point with
/// NaN stays.
ZOR_API Boolean ConfinePointToRect(TPointDouble& P, const TRectDouble& R) noexcept;

/// Distance of two points: the root of the sum of squares.
ZOR_API Double EuclideanDistance(const TPointDouble& P1, const TPointDouble& P2) noexcept;
ZOR_API Double EuclideanDistance(Double X1, Double Y1, Double X2, Double Y2) noexcept;

}  // namespace ZOR_math1
