#include <algorithm>
#include <cmath>
#include <numbers>

#include "svg/path_data.h"

namespace Svg {

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;
/// A little more than a quarter turn, so that a clean quarter turn stays one curve.
constexpr double kLargestArcPiece = 1.5717963267948964;

Point Minus(Point p, Point q) { return {p.x - q.x, p.y - q.y}; }

/// The linear map that takes the unit circle of an arc to its ellipse.
struct EllipseFrame {
  double rx;
  double ry;
  double sine;
  double cosine;

  Point ToUnit(Point p) const {
    return {cosine / rx * p.x + sine / rx * p.y, -sine / ry * p.x + cosine / ry * p.y};
  }
  Point FromUnit(Point p) const {
    return {rx * cosine * p.x - ry * sine * p.y, rx * sine * p.x + ry * cosine * p.y};
  }
  /// Radii that are too small to reach from one end to the other grow until they just do.
  void GrowToReach(Point start, Point end) {
    const Point half = {(start.x - end.x) / 2.0, (start.y - end.y) / 2.0};
    const double x = cosine * half.x + sine * half.y;
    const double y = cosine * half.y - sine * half.x;
    const double lambda = x * x / (rx * rx) + y * y / (ry * ry);
    if (!(lambda > 1.0)) return;
    rx *= std::sqrt(lambda);
    ry *= std::sqrt(lambda);
  }
};

Point CentreOnUnitCircle(Point p0, Point p1, bool largeArc, bool sweep) {
  const Point chord = Minus(p1, p0);
  const double squared = chord.x * chord.x + chord.y * chord.y;
  double s = std::sqrt(std::max(0.0, 1.0 / squared - 0.25));
  if (sweep == largeArc) s = -s;
  return {(p0.x + p1.x) / 2.0 - s * chord.y, (p0.y + p1.y) / 2.0 + s * chord.x};
}

double SweptAngle(double from, double to, bool sweep) {
  double delta = to - from;
  if (delta < 0.0 && sweep) delta += 2.0 * std::numbers::pi;
  if (delta > 0.0 && !sweep) delta -= 2.0 * std::numbers::pi;
  return delta;
}

/// A point of the unit circle.
struct Direction {
  explicit Direction(double radians) : angle(radians), sine(std::sin(radians)), cosine(std::cos(radians)) {}

  double angle;
  double sine;
  double cosine;
};

void AddArcPiece(Path& path, const EllipseFrame& frame, Point centre, const Direction& a,
                 const Direction& b) {
  const double quarterSine = std::sin((b.angle - a.angle) / 4.0);
  const double t = 8.0 / 3.0 * quarterSine * quarterSine / std::sin((b.angle - a.angle) / 2.0);
  const Point control1 = {a.cosine + centre.x - t * a.sine, a.sine + centre.y + t * a.cosine};
  const Point end = {b.cosine + centre.x, b.sine + centre.y};
  const Point control2 = {end.x + t * b.sine, end.y - t * b.cosine};
  path.AddCubic(frame.FromUnit(end), frame.FromUnit(control1), frame.FromUnit(control2));
}

}  // namespace

Path::~Path() = default;

void Path::AddMove(double x, double y) {
  segments.push_back({kMove, {x, y}});
  closingPoint = {x, y};
}

void Path::AddLine(double x, double y) {
  if (segments.empty()) closingPoint = {x, y};
  segments.push_back({kLine, {x, y}});
}

void Path::AddQuadratic(Point control, Point end) {
  if (segments.empty()) closingPoint = end;
  segments.push_back({kQuadratic, end, control});
}

void Path::AddCubic(Point end, Point control1, Point control2) {
  if (segments.empty()) closingPoint = end;
  segments.push_back({kCubic, end, control1, control2});
}

void Path::ClosePath() {
  if (!segments.empty()) AddLine(closingPoint.x, closingPoint.y);
}

void Path::AddArc(double rx, double ry, double rotationDegrees, bool largeArc, bool sweep, Point end,
                  Point start) {
  const double rotation = rotationDegrees * kRadiansPerDegree;
  EllipseFrame frame = {std::fabs(rx), std::fabs(ry), std::sin(rotation), std::cos(rotation)};
  frame.GrowToReach(start, end);
  const Point p0 = frame.ToUnit(start);
  const Point p1 = frame.ToUnit(end);
  const Point centre = CentreOnUnitCircle(p0, p1, largeArc, sweep);
  const Point spoke0 = Minus(p0, centre);
  const Point spoke1 = Minus(p1, centre);
  const double theta0 = std::atan2(spoke0.y, spoke0.x);
  const double delta = SweptAngle(theta0, std::atan2(spoke1.y, spoke1.x), sweep);
  if (!std::isfinite(delta)) return;
  const int pieces = static_cast<int>(std::ceil(std::fabs(delta / kLargestArcPiece)));
  Direction from(theta0);
  for (int i = 1; i <= pieces; ++i) {
    const Direction to(theta0 + i * delta / pieces);
    AddArcPiece(*this, frame, centre, from, to);
    from = to;
  }
}

void Path::Clear() {
  segments.clear();
  closingPoint = {};
}

}  // namespace Svg
