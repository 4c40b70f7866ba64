#include "geometry.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

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

}  // namespace

void Box::Include(const Box& other) {
  minX = std::min(minX, other.minX);
  minY = std::min(minY, other.minY);
  maxX = std::max(maxX, other.maxX);
  maxY = std::max(maxY, other.maxY);
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

Box BoundsOf(const Job& job) {
  Box box;
  for (const Result& result : job.results) {
    std::visit([&box](const auto& value) { box.Include(value.bounds); }, result);
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
