#include "zor/scalar/sline.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numbers>
#include <ostream>

#include "zor/runtime/numbers.h"
#include "zor/runtime/print.h"

namespace ZOR_sline {
namespace {

using std::numbers::pi;
using zor::detail::Fail;

constexpr Double kAlmostZero = 1.0e-100;
/// Hits of a box that are no farther apart than this, as a part of its larger side, are one corner.
constexpr Double kSameHit = 1e-12;

/// -a / b; a zero has no sign.
Double negative_ratio(Double a, Double b) noexcept { return 0.0 - a / b; }

void check_direction(Double v, Double other) {
  if (v == 0.0 && other == 0.0) Fail<EZORSLineError>("parameter A and B must not both be zero");
}

}  // namespace

EZORSLineError::~EZORSLineError() = default;

const char* TSLine::ClassName() const noexcept { return "TSLine"; }

void TSLine::SetParA(Double v) {
  check_direction(v, FParB);
  FParA = v;
}

void TSLine::SetParB(Double v) {
  check_direction(v, FParA);
  FParB = v;
}

void TSLine::go_through(Double px, Double py, Double a, Double b) noexcept {
  FParA = a;
  FParB = b;
  FParC = -a * px - b * py;
}

Boolean TSLine::LineFrom2Points(Double P1X, Double P1Y, Double P2X, Double P2Y) noexcept {
  if (P1X == P2X && P1Y == P2Y) return false;
  const Double a = P1Y - P2Y, b = P2X - P1X, c = P1X * P2Y - P1Y * P2X;
  if (!(std::isfinite(a) && std::isfinite(b) && std::isfinite(c))) return false;
  FParA = a;
  FParB = b;
  FParC = c;
  return true;
}

void TSLine::LineFromSlopeIcpt(Double k, Double d) noexcept {
  FParA = k;
  FParB = -1.0;
  FParC = d;
}

void TSLine::LineThroughPoint(Double px, Double py, Double angle) noexcept {
  go_through(px, py, -ZOR_runtime::Sin(angle), ZOR_runtime::Cos(angle));
}

void TSLine::NormalLine(Double px, Double py, const TSLine* OtherLine) noexcept {
  if (OtherLine) go_through(px, py, -OtherLine->FParB, OtherLine->FParA);
}

void TSLine::ParallelLine(Double px, Double py, const TSLine* OtherLine) noexcept {
  if (OtherLine) go_through(px, py, OtherLine->FParA, OtherLine->FParB);
}

void TSLine::CalcKDForm(Double& k, Double& d) const {
  if (FParB == 0.0) Fail<EZORSLineError>("cannot convert to k-d-form if ParB is zero");
  k = negative_ratio(FParA, FParB);
  d = negative_ratio(FParC, FParB);
}

Double TSLine::Slope() const {
  if (FParB == 0.0) Fail<EZORSLineError>("slope is infinite");
  return negative_ratio(FParA, FParB);
}

Double TSLine::Intercept() const {
  if (FParB == 0.0) Fail<EZORSLineError>("cannot calculate intercept (line is parallel to y axis)");
  return negative_ratio(FParC, FParB);
}

Double TSLine::Direction() const noexcept {
  Double angle = FParB != 0.0 ? std::atan(-FParA / FParB) : FParA > 0.0 ? pi / 2.0 : -pi / 2.0;
  if (FParB <= 0.0) {
    angle += pi;
  } else if (FParA > 0.0) {
    angle += 2.0 * pi;
  }
  return angle == 0.0 || angle >= 2.0 * pi ? 0.0 : angle;  // the sum may round to 2 pi, and the arc may be -0
}

Double TSLine::divided(Double numerator, Double denominator, const char* failure) const {
  if (denominator != 0.0) return numerator / denominator;
  if (!FSubstInf) Fail<EZORSLineError>(failure);
  return numerator / kAlmostZero;
}

Double TSLine::CalcX(Double y) const { return divided(-y * FParB - FParC, FParA, "cannot calculate x"); }
Double TSLine::CalcY(Double x) const { return divided(-x * FParA - FParC, FParB, "cannot calculate y"); }

Double TSLine::Distance(Double px, Double py) const noexcept {
  return (FParA * px + FParB * py + FParC) / std::sqrt(FParA * FParA + FParB * FParB);
}

Boolean TSLine::InterSection(const TSLine* OtherLine, Double& x, Double& y) const noexcept {
  if (!OtherLine) return false;
  const TSLine& other = *OtherLine;
  const Double det = FParA * other.FParB - other.FParA * FParB;
  if (det == 0.0) return false;
  x = (FParB * other.FParC - other.FParB * FParC) / det;
  y = (FParC * other.FParA - other.FParC * FParA) / det;
  return true;
}

Double TSLine::AngleBetweenLines(const TSLine* OtherLine) const noexcept {
  if (!OtherLine) return 0.0;
  const TSLine& other = *OtherLine;
  const Double dot = FParA * other.FParA + FParB * other.FParB;
  if (dot == 0.0) return pi / 2.0;
  return std::fabs(std::atan((FParA * other.FParB - FParB * other.FParA) / dot));
}

Boolean TSLine::ClipBox(Double bllx, Double blly, Double burx, Double bury, Double& x1, Double& y1, Double& x2,
                        Double& y2) const noexcept {
  constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
  TPointDouble hits[4];
  std::ranges::fill(hits, TPointDouble{kNaN, kNaN});
  std::size_t count = 0;
  const auto try_point = [&](TPointDouble p) {
    if (bllx <= p.x && p.x <= burx && blly <= p.y && p.y <= bury) hits[count++] = p;
  };
  if (FParB != 0.0) {
    try_point({bllx, CalcY(bllx)});
    try_point({burx, CalcY(burx)});
  }
  if (FParA != 0.0) {
    try_point({CalcX(blly), blly});
    try_point({CalcX(bury), bury});
  }
  const Double same = kSameHit * std::max(burx - bllx, bury - blly);
  const auto away = [&](const TPointDouble& p) {  // false for NaN
    return std::fabs(p.x - hits[0].x) > same || std::fabs(p.y - hits[0].y) > same;
  };
  const TPointDouble* found = std::ranges::find_if(hits, away);
  const TPointDouble& second = found != std::end(hits) ? *found : hits[1];
  x1 = hits[0].x;
  y1 = hits[0].y;
  x2 = second.x;
  y2 = second.y;
  return count >= 2;
}

std::ostream& operator<<(std::ostream& out, const TSLine& line) {
  using zor::detail::cell_text;
  const auto term = [](Double v) { return (v < 0.0 ? " - " : " + ") + cell_text(std::fabs(v)); };
  return out << cell_text(line.ParA()) << " x" << term(line.ParB()) << " y" << term(line.ParC()) << " = 0";
}

}  // namespace ZOR_sline
