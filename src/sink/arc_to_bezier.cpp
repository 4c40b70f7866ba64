#include "sink/arc_to_bezier.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "support/account.h"
#include "support/limits.h"

namespace {

using Entity_ZR::Point3;

constexpr double kFullTurn = 2.0 * std::numbers::pi;
constexpr double kQuarterTurn = std::numbers::pi / 2.0;
constexpr double kSmallestRadius = 0.01;
constexpr double kAngleTolerance = 0.0001;

/// Of an arc of two turns. A longer one is as short in its file, but takes the time for all of its sections.
constexpr std::size_t kUsualSections = 10;
constexpr std::size_t kSectionWork = 192;

bool AnglesAreUsable(double startAngle, double endAngle) {
  // Written so that a NaN is refused as well.
  return std::fabs(startAngle) <= support::limits::kArcAngle &&
         std::fabs(endAngle) <= support::limits::kArcAngle &&
         std::fabs(endAngle - startAngle) <= support::limits::kArcTurns * kFullTurn;
}

/// `endAngle` brought behind `startAngle` in the arc's direction by whole turns. Equal angles: one turn.
double NormalisedEnd(bool reversed, double startAngle, double endAngle) {
  if (reversed) {
    while (endAngle > startAngle || std::fabs(endAngle - startAngle) < kAngleTolerance) endAngle -= kFullTurn;
  } else {
    while (endAngle < startAngle || std::fabs(endAngle - startAngle) < kAngleTolerance) endAngle += kFullTurn;
  }
  return endAngle;
}

/// The parameter of an ellipse at some angle.
struct Parameter {
  double value;
  double cosine;
  double sine;
};

Parameter ParameterAt(double angle, double rx, double ry) {
  const double value = std::atan2(std::sin(angle) * rx, std::cos(angle) * ry);
  return {value, std::cos(value), std::sin(value)};
}

/// The same on a circle, where the quarters of a turn come up again and again. There, the radius drops out of
/// the arc tangent: its rounding changes the angle by less than 1e-32, and that rounds to the same float. Not
/// so next to angle 0, where the floats lie closer.
Parameter ParameterOnCircle(double angle, double radius) {
  static constexpr std::ptrdiff_t kQuarters = 3;
  static const auto kAtQuarters = [] {
    std::array<Parameter, 2 * kQuarters + 1> made;
    for (std::ptrdiff_t i = -kQuarters; i <= kQuarters; ++i) {
      made[static_cast<std::size_t>(i + kQuarters)] =
          ParameterAt(static_cast<double>(i) * kQuarterTurn, 1.0, 1.0);
    }
    return made;
  }();
  const double quarters = angle / kQuarterTurn;
  if (std::isfinite(radius) && std::fabs(quarters) <= kQuarters) {
    const auto nearest = static_cast<std::ptrdiff_t>(quarters + (quarters < 0.0 ? -0.5 : 0.5));
    if (nearest != 0 && angle == static_cast<double>(nearest) * kQuarterTurn)
      return kAtQuarters[static_cast<std::size_t>(nearest + kQuarters)];
  }
  return ParameterAt(angle, radius, radius);
}

/// Where one section ends and the next begins: the ellipse parameter with its point and tangent.
struct Knot {
  double parameter;
  Point3 point;
  Point3 tangent;
};

class Ellipse {
 public:
  Ellipse(Point3 middle, double radiusX, double radiusY, double rotation)
      : center(middle),
        rx(radiusX),
        ry(radiusY),
        rxCosine(std::cos(rotation) * rx),
        rxSine(std::sin(rotation) * rx),
        ryCosine(std::cos(rotation) * ry),
        rySine(std::sin(rotation) * ry) {}

  Knot KnotAt(double angle) const {
    const auto [e, cosine, sine] = rx == ry ? ParameterOnCircle(angle, rx) : ParameterAt(angle, rx, ry);
    return {e,
            {rxCosine * cosine + center.x - rySine * sine, rxSine * cosine + center.y + ryCosine * sine, 0.0},
            {-rxCosine * sine - rySine * cosine, ryCosine * cosine - rxSine * sine, 0.0}};
  }

 private:
  Point3 center;
  double rx;
  double ry;
  double rxCosine;
  double rxSine;
  double ryCosine;
  double rySine;
};

/// How far the control points of a section of twice the angle `half` lie along its end tangents.
double HandleOfHalf(double half) { return (1.0 - std::cos(half)) * (4.0 / 3.0) / std::sin(half); }

/// The same for the section between two knots. Negative for a reversed arc.
double HandleLength(bool reversed, const Knot& first, const Knot& second) {
  double sweep = std::fabs(second.parameter - first.parameter);
  sweep = std::min(sweep, kFullTurn - sweep);
  if (reversed) sweep = -sweep;
  const double half = sweep / 2.0;
  // Both ends of a section can fall on one parameter of a very flat ellipse; the limit of the formula is 0.
  if (half == 0.0) return 0.0;
  // Most sections are quarters of a turn.
  constexpr double halfOfQuarter = kQuarterTurn / 2.0;
  static const double kForward = HandleOfHalf(halfOfQuarter);
  static const double kBackward = HandleOfHalf(-halfOfQuarter);
  if (half == halfOfQuarter) return kForward;
  return half == -halfOfQuarter ? kBackward : HandleOfHalf(half);
}

void AppendSection(std::vector<Point3>& points, const Knot& first, const Knot& second, double k) {
  points.push_back(first.point);
  points.push_back({first.point.x + k * first.tangent.x, first.point.y + k * first.tangent.y, 0.0});
  points.push_back({second.point.x - k * second.tangent.x, second.point.y - k * second.tangent.y, 0.0});
  points.push_back(second.point);
}

}  // namespace

void ArcToBezier(bool reversed, Point3 center, double ry, double rotation, double startAngle, double endAngle,
                 double rx, std::vector<Point3>& points) {
  points.clear();
  if (!AnglesAreUsable(startAngle, endAngle)) return;
  if (rx < kSmallestRadius) rx = kSmallestRadius;
  if (ry < kSmallestRadius) ry = kSmallestRadius;
  endAngle = NormalisedEnd(reversed, startAngle, endAngle);
  const auto mostSections = static_cast<std::size_t>(std::fabs(endAngle - startAngle) / kQuarterTurn + 2.0);
  if (mostSections > kUsualSections) support::SpendWork(kSectionWork * mostSections);
  points.reserve(4 * mostSections);
  const Ellipse ellipse(center, rx, ry, rotation);
  const double step = reversed ? -kQuarterTurn : kQuarterTurn;
  double angle = startAngle;
  Knot first = ellipse.KnotAt(angle);
  do {
    double next = angle + step;
    if (std::fabs(next) < kAngleTolerance) next = 0.0;
    next = reversed ? std::max(next, endAngle) : std::min(next, endAngle);
    const Knot second = ellipse.KnotAt(next);
    AppendSection(points, first, second, HandleLength(reversed, first, second));
    first = second;
    angle = next;
  } while (std::fabs(angle - endAngle) > kAngleTolerance);
}
