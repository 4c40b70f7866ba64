#include "geometry.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

Point CubicAt(const Segment& s, double t) {
  const double u = 1.0 - t;
  const double w0 = u * u * u;
  const double w1 = 3.0 * u * u * t;
  const double w2 = 3.0 * u * t * t;
  const double w3 = t * t * t;
  return {w0 * s.start.x + w1 * s.control1.x + w2 * s.control2.x + w3 * s.end.x,
          w0 * s.start.y + w1 * s.control1.y + w2 * s.control2.y + w3 * s.end.y};
}

double SpeedAt(const Segment& s, double t) {
  const double u = 1.0 - t;
  const double w0 = 3.0 * u * u;
  const double w1 = 6.0 * u * t;
  const double w2 = 3.0 * t * t;
  return std::hypot(
      w0 * (s.control1.x - s.start.x) + w1 * (s.control2.x - s.control1.x) + w2 * (s.end.x - s.control2.x),
      w0 * (s.control1.y - s.start.y) + w1 * (s.control2.y - s.control1.y) + w2 * (s.end.y - s.control2.y));
}

/// Length between two parameters by Gauss-Legendre quadrature with five nodes (Abramowitz and Stegun,
/// table 25.4).
double QuadratureLength(const Segment& s, double from, double to) {
  constexpr std::array<std::array<double, 2>, 5> kNodes{{{0.0, 0.568888888888888889},
                                                         {-0.538469310105683091, 0.478628670499366468},
                                                         {0.538469310105683091, 0.478628670499366468},
                                                         {-0.906179845938663993, 0.236926885056189088},
                                                         {0.906179845938663993, 0.236926885056189088}}};
  const double half = (to - from) / 2;
  const double middle = (to + from) / 2;
  double sum = 0.0;
  for (const auto& [node, weight] : kNodes) sum += weight * SpeedAt(s, middle + half * node);
  return sum * half;
}

double AdaptiveLength(const Segment& s, double from, double to, double whole, int depth) {
  const double middle = (from + to) / 2;
  const double first = QuadratureLength(s, from, middle);
  const double second = QuadratureLength(s, middle, to);
  if (depth == 0 || std::abs(first + second - whole) <= 1e-10 * (1.0 + whole)) return first + second;
  return AdaptiveLength(s, from, middle, first, depth - 1) + AdaptiveLength(s, middle, to, second, depth - 1);
}

/// Parameters inside (0, 1) at which one coordinate of a cubic turns: roots of its derivative.
std::array<double, 2> TurningPoints(double p0, double p1, double p2, double p3) {
  const double a = p3 - 3.0 * p2 + 3.0 * p1 - p0;
  const double b = 2.0 * (p2 - 2.0 * p1 + p0);
  const double c = p1 - p0;
  const double discriminant = b * b - 4.0 * a * c;
  if (!(discriminant >= 0.0)) return {0.0, 0.0};
  const double q = -0.5 * (b + std::copysign(std::sqrt(discriminant), b));
  return {q / a, c / q};
}

void Include(Box& box, const Segment& s) {
  box.Include(s.start);
  box.Include(s.end);
  if (!s.cubic) return;
  for (const auto& roots : {TurningPoints(s.start.x, s.control1.x, s.control2.x, s.end.x),
                            TurningPoints(s.start.y, s.control1.y, s.control2.y, s.end.y)}) {
    for (const double t : roots) {
      if (t > 0.0 && t < 1.0) box.Include(CubicAt(s, t));
    }
  }
}

}  // namespace

void Box::Include(Point p) {
  minX = std::min(minX, p.x);
  minY = std::min(minY, p.y);
  maxX = std::max(maxX, p.x);
  maxY = std::max(maxY, p.y);
}

double Distance(Point a, Point b) { return std::hypot(b.x - a.x, b.y - a.y); }

double LengthOf(const Segment& segment) {
  if (!segment.cubic) return Distance(segment.start, segment.end);
  constexpr int kDeepest = 12;
  return AdaptiveLength(segment, 0.0, 1.0, QuadratureLength(segment, 0.0, 1.0), kDeepest);
}

double LengthOf(const Curve& curve) {
  double length = 0.0;
  for (const Segment& segment : curve.segments) length += LengthOf(segment);
  return length;
}

void Include(Box& box, const Curve& curve) {
  for (const Segment& segment : curve.segments) Include(box, segment);
}

void Include(Box& box, const Bitmap& bitmap) {
  const double width = bitmap.width;
  const double height = bitmap.height;
  for (const Point corner : {Point{0, 0}, Point{width, 0}, Point{0, height}, Point{width, height}}) {
    box.Include(bitmap.Place(corner.x, corner.y));
  }
}

Box BoundsOf(const Job& job) {
  Box box;
  for (const Result& result : job.results) {
    std::visit([&box](const auto& value) { Include(box, value); }, result);
  }
  return box;
}

std::optional<Point> StartOf(const Result& result) {
  if (const auto* bitmap = std::get_if<Bitmap>(&result)) return bitmap->Place(0, 0);
  const auto& segments = std::get<Curve>(result).segments;
  if (segments.empty()) return std::nullopt;
  return segments.front().start;
}

std::optional<Point> EndOf(const Result& result) {
  if (const auto* bitmap = std::get_if<Bitmap>(&result)) return bitmap->Place(bitmap->width, bitmap->height);
  const auto& segments = std::get<Curve>(result).segments;
  if (segments.empty()) return std::nullopt;
  return segments.back().end;
}

double TravelOf(const Job& job) {
  double travel = 0.0;
  std::optional<Point> head;
  for (const Result& result : job.results) {
    const std::optional<Point> start = StartOf(result);
    if (!start) continue;
    if (head) travel += Distance(*head, *start);
    head = EndOf(result);
  }
  return travel;
}
