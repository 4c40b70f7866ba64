#include "bezier.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geometry.h"

namespace {

Point Minus(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
double Dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
double Cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }

bool IsSameDirectionWithin(const Segment& a, const Segment& b, double tolerance) {
  if (Distance(a.start, b.start) > tolerance || Distance(a.end, b.end) > tolerance) return false;
  return !a.cubic ||
         (Distance(a.control1, b.control1) <= tolerance && Distance(a.control2, b.control2) <= tolerance);
}

double Bernstein(const std::array<double, 4>& b, double t) {
  const double u = 1.0 - t;
  return u * u * u * b[0] + 3 * u * u * t * b[1] + 3 * u * t * t * b[2] + t * t * t * b[3];
}

/// The parameters within (0, 1) at which the polynomial with these Bernstein coefficients turns.
std::vector<double> TurningPoints(const std::array<double, 4>& b) {
  // The derivative is a quadratic with the coefficients d0, d1, d2 in the Bernstein basis.
  const double d0 = b[1] - b[0];
  const double d1 = b[2] - b[1];
  const double d2 = b[3] - b[2];
  const double a = d0 - 2 * d1 + d2;
  const double half = d1 - d0;
  std::vector<double> found;
  const auto add = [&found](double t) {
    if (t > 0.0 && t < 1.0) found.push_back(t);
  };
  if (a == 0.0) {
    if (half != 0.0) add(-d0 / (2 * half));
  } else {
    const double root = half * half - a * d0;
    if (root <= 0.0) return found;
    add((-half - std::sqrt(root)) / a);
    add((-half + std::sqrt(root)) / a);
  }
  std::sort(found.begin(), found.end());
  return found;
}

/// The two defining points of the segment that lie farthest apart.
std::array<Point, 2> FarthestPoints(const Segment& s) {
  const std::array<Point, 4> points{s.start, s.control1, s.control2, s.end};
  std::array<Point, 2> farthest{s.start, s.end};
  for (std::size_t i = 0; i < points.size(); ++i) {
    for (std::size_t j = i + 1; j < points.size(); ++j) {
      if (Distance(points[i], points[j]) > Distance(farthest[0], farthest[1]))
        farthest = {points[i], points[j]};
    }
  }
  return farthest;
}

}  // namespace

Point PointAt(const Segment& s, double t) {
  const double u = 1.0 - t;
  if (!s.cubic) return {u * s.start.x + t * s.end.x, u * s.start.y + t * s.end.y};
  return {Bernstein({s.start.x, s.control1.x, s.control2.x, s.end.x}, t),
          Bernstein({s.start.y, s.control1.y, s.control2.y, s.end.y}, t)};
}

Segment Reversed(const Segment& s) { return {s.cubic, s.end, s.start, s.control2, s.control1}; }

Curve Reversed(Curve curve) {
  std::reverse(curve.segments.begin(), curve.segments.end());
  for (Segment& segment : curve.segments) segment = Reversed(segment);
  return curve;
}

bool IsSameWithin(const Segment& a, const Segment& b, double tolerance) {
  return a.cubic == b.cubic &&
         (IsSameDirectionWithin(a, b, tolerance) || IsSameDirectionWithin(a, Reversed(b), tolerance));
}

bool IsStraight(const Segment& s, double tolerance) {
  if (!s.cubic) return true;
  const Point chord = Minus(s.end, s.start);
  const double length = std::hypot(chord.x, chord.y);
  if (length == 0.0) return false;
  const Point first = Minus(s.control1, s.start);
  const Point second = Minus(s.control2, s.start);
  if (std::abs(Cross(chord, first)) > tolerance * length ||
      std::abs(Cross(chord, second)) > tolerance * length)
    return false;
  const double along1 = Dot(chord, first);
  const double along2 = Dot(chord, second);
  return 0.0 <= along1 && along1 <= along2 && along2 <= length * length;
}

double RetracedLength(const Segment& s, double tolerance) {
  if (!s.cubic) return 0.0;
  const auto [from, to] = FarthestPoints(s);
  const Point span = Minus(to, from);
  const double length = std::hypot(span.x, span.y);
  if (length <= tolerance) return 0.0;
  std::array<double, 4> along{};
  const std::array<Point, 4> points{s.start, s.control1, s.control2, s.end};
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Point offset = Minus(points[i], from);
    if (std::abs(Cross(span, offset)) > tolerance * length) return 0.0;
    along[i] = Dot(span, offset) / length;
  }
  double travelled = 0.0;
  double before = along[0];
  for (const double t : TurningPoints(along)) {
    travelled += std::abs(Bernstein(along, t) - before);
    before = Bernstein(along, t);
  }
  travelled += std::abs(along[3] - before);
  // The way there and back counts once.
  return (travelled - std::abs(along[3] - along[0])) / 2;
}

double PolygonLength(const Segment& s) {
  if (!s.cubic) return Distance(s.start, s.end);
  return Distance(s.start, s.control1) + Distance(s.control1, s.control2) + Distance(s.control2, s.end);
}

bool IsShorterThan(const Segment& segment, double length) {
  if (Distance(segment.start, segment.end) >= length) return false;
  return PolygonLength(segment) < length || LengthOf(segment) < length;
}

Box ControlBoxOf(const Segment& s) {
  Box box{std::min(s.start.x, s.end.x), std::min(s.start.y, s.end.y), std::max(s.start.x, s.end.x),
          std::max(s.start.y, s.end.y)};
  if (s.cubic) {
    box.Include({std::min(s.control1.x, s.control2.x), std::min(s.control1.y, s.control2.y),
                 std::max(s.control1.x, s.control2.x), std::max(s.control1.y, s.control2.y)});
  }
  return box;
}

Box TightBoxOf(const Curve& curve) {
  Box box;
  const auto include = [&box](Point p) { box.Include({p.x, p.y, p.x, p.y}); };
  for (const Segment& s : curve.segments) {
    include(s.start);
    include(s.end);
    if (!s.cubic) continue;
    for (const double t : TurningPoints({s.start.x, s.control1.x, s.control2.x, s.end.x}))
      include(PointAt(s, t));
    for (const double t : TurningPoints({s.start.y, s.control1.y, s.control2.y, s.end.y}))
      include(PointAt(s, t));
  }
  return box;
}

void AppendFlattened(std::vector<Point>& points, const Segment& s, double flatness) {
  int chords = 1;
  if (s.cubic) {
    const double first =
        std::hypot(s.start.x - 2 * s.control1.x + s.control2.x, s.start.y - 2 * s.control1.y + s.control2.y);
    const double second =
        std::hypot(s.control1.x - 2 * s.control2.x + s.end.x, s.control1.y - 2 * s.control2.y + s.end.y);
    constexpr double kMostChords = 64.0;
    chords = static_cast<int>(
        std::clamp(std::ceil(std::sqrt(0.75 * std::max(first, second) / flatness)), 1.0, kMostChords));
  }
  for (int i = 1; i < chords; ++i) points.push_back(PointAt(s, static_cast<double>(i) / chords));
  points.push_back(s.end);
}

double AreaUnder(const Segment& s, Point origin) {
  const Point p0 = Minus(s.start, origin);
  const Point p3 = Minus(s.end, origin);
  if (!s.cubic) return Cross(p0, p3) / 2;
  const Point p1 = Minus(s.control1, origin);
  const Point p2 = Minus(s.control2, origin);
  return (6 * Cross(p0, p1) + 3 * Cross(p0, p2) + Cross(p0, p3) + 3 * Cross(p1, p2) + 3 * Cross(p1, p3) +
          6 * Cross(p2, p3)) /
         20;
}
