#include <algorithm>
#include <cmath>
#include <numbers>

#include "entity/shapes.h"

namespace Entity_ZR {

namespace {

constexpr double kFullTurn = 2.0 * std::numbers::pi;
constexpr double kSmallestBulge = 0.0001;

/// The direction of (x, y) as seen from the centre, 0 to a full turn, with y running down.
double DirectionOf(double x, double y, double cx, double cy, double r) {
  const double ratio = (x - cx) / r;
  // Two equal vertices give 0/0: their span is a full turn of the smallest radius, begun at the right.
  const double angle = std::isnan(ratio) ? 0.0 : std::acos(std::clamp(ratio, -1.0, 1.0));
  return cy < y ? kFullTurn - angle : angle;
}

/// The turn from `a1` to `a2` in the direction of the bulge.
double TurnBetween(double a1, double a2, double bulge) {
  double d = a2 - a1;
  if (bulge <= 0.0) {
    if (d < 0.0) d += kFullTurn;
  } else {
    if (d > 0.0) d -= kFullTurn;
  }
  return d > kFullTurn ? kFullTurn - d : d;
}

}  // namespace

ArcShape::ArcShape(Point3 from, double bulge, Point3 to) {
  if (std::fabs(bulge) < kSmallestBulge) return;
  const double t = (1.0 / bulge - bulge) * 0.5;
  const double cx = ((to.x + from.x) - (to.y - from.y) * t) * 0.5;
  const double cy = ((to.x - from.x) * t + (from.y + to.y)) * 0.5;
  const double r = std::sqrt((from.x - cx) * (from.x - cx) + (from.y - cy) * (from.y - cy));
  const double a1 = DirectionOf(from.x, from.y, cx, cy, r);
  const double a2 = DirectionOf(to.x, to.y, cx, cy, r);
  center = {cx, cy, 0.0};
  radius = r;
  reversed = bulge <= 0.0;
  startAngle = kFullTurn - a1;
  endAngle = kFullTurn - a1 - TurnBetween(a1, a2, bulge);
}

}  // namespace Entity_ZR
