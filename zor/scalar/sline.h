#pragma once

#include <iosfwd>

#include "zor/base/ZOR_zorbase.h"
#include "zor/scalar/ZOR_sline_fwd.h"

/// \file  The class of ZOR_sline; what holds for all of it stands in ZOR_sline.h.

namespace ZOR_sline {

using namespace ZOR_zorbase;

/// Failures of this unit. Derives from Exception directly, so that a handler for EZORError does not catch it; the
/// messages name neither component nor routine.
ZOR_DECLARE_EXCEPTION(EZORSLineError, Exception);

/// Straight line A x + B y + C = 0.
class ZOR_API TSLine : public TComponent {
 public:
  /// The x axis, as 0 x + 1 y + 0 = 0; SubstituteInf is false.
  explicit TSLine(TComponent* AOwner = nullptr) : TComponent(AOwner) {}
  ~TSLine() override = default;
  const char* ClassName() const noexcept override;

  /// \name Parameters
  /// SetParA and SetParB raise "parameter A and B must not both be zero" if the line would lose its direction.
  /// @{
  Double ParA() const noexcept { return FParA; }
  void SetParA(Double v);
  Double ParB() const noexcept { return FParB; }
  void SetParB(Double v);
  Double ParC() const noexcept { return FParC; }
  void SetParC(Double v) noexcept { FParC = v; }
  /// Whether CalcX and CalcY give a huge number where they would raise.
  Boolean SubstituteInf() const noexcept { return FSubstInf; }
  void SetSubstituteInf(Boolean v) noexcept { FSubstInf = v; }
  /// @}

  /// \name Building: A, B and C are replaced
  /// @{
  /// The line through two points: A = P1Y - P2Y, B = P2X - P1X. False, and the line stays, if the points are the same,
  /// a coordinate is not finite, or A, B or C overflows.
  Boolean LineFrom2Points(Double P1X, Double P1Y, Double P2X, Double P2Y) noexcept;
  /// The line y = k x + d, with B = -1.
  void LineFromSlopeIcpt(Double k, Double d) noexcept;
  /// The line through a point at an angle to the x axis: A = -sin(angle), B = cos(angle). Pi/2 gives a slope of 1.6e16
  /// and no vertical line, since it is not a right angle exactly.
  void LineThroughPoint(Double px, Double py, Double angle) noexcept;
  /// The line through a point at right angles, or parallel, to another line, which may be this one. Null: nothing.
  void NormalLine(Double px, Double py, const TSLine* OtherLine) noexcept;
  void ParallelLine(Double px, Double py, const TSLine* OtherLine) noexcept;
  /// @}

  /// \name Form and direction
  /// @{
  /// k and d of y = k x + d. Raises "cannot convert to k-d-form if ParB is zero".
  void CalcKDForm(Double& k, Double& d) const;
  /// -A / B. Raises "slope is infinite" if B is 0.
  Double Slope() const;
  Double GetSlope() const { return Slope(); }
  /// -C / B. Raises "cannot calculate intercept (line is parallel to y axis)" if B is 0.
  Double Intercept() const;
  Double GetIntercept() const { return Intercept(); }
  /// Angle of the vector (B, -A) to the x axis, at least 0 and less than 2 pi.
  Double Direction() const noexcept;
  Double GetDirect() const noexcept { return Direction(); }
  /// @}

  /// \name Points and other lines
  /// @{
  /// x of the point at y: (-y B - C) / A. If A is 0 it raises "cannot calculate x" or, with SubstituteInf, divides by
  /// 1e-100: a huge number with the sign of the numerator, 0 for 0, infinite for a numerator above 1.8e208.
  Double CalcX(Double y) const;
  /// y of the point at x: (-x A - C) / B; "cannot calculate y" likewise.
  Double CalcY(Double x) const;
  /// Distance of a point, positive on one side of the line and negative on the other:
  /// (A px + B py + C) / sqrt(A^2 + B^2), without scaling.
  Double Distance(Double px, Double py) const noexcept;
  /// The common point of two lines. False, and x and y stay, if the lines are parallel (the determinant is exactly 0)
  /// or OtherLine is null.
  Boolean InterSection(const TSLine* OtherLine, Double& x, Double& y) const noexcept;
  /// The acute angle between two lines, from 0 to pi/2; 0 if OtherLine is null.
  Double AngleBetweenLines(const TSLine* OtherLine) const noexcept;
  /// The points where the line cuts the box between the lower left and the upper right corner, edges included. Sides
  /// are tried in the order left, right, bottom, top, without those parallel to the line. The first hit is (x1, y1);
  /// (x2, y2) is the first later one that differs by more than 1e-12 of the larger side of the box in x or y, so that a
  /// diagonal has two ends, else the second hit: a line that touches a corner gives it twice.
  /// False for fewer than two hits and for a box with its corners in wrong order; missing points are NaN.
  Boolean ClipBox(Double bllx, Double blly, Double burx, Double bury, Double& x1, Double& y1, Double& x2,
                  Double& y2) const noexcept;
  /// @}

 private:
  Double divided(Double numerator, Double denominator, const char* failure) const;
  void go_through(Double px, Double py, Double a, Double b) noexcept;

  Double FParA = 0.0, FParB = 1.0, FParC = 0.0;
  Boolean FSubstInf = false;
};

/// The line as "2 x - 3 y + 1 = 0", each parameter in at most six significant digits.
ZOR_API std::ostream& operator<<(std::ostream& out, const TSLine& line);

}  // namespace ZOR_sline
