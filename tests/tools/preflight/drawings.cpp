#include "drawings.h"

#include "geometry.h"
#include "preflight/bezier.h"
#include "preflight/check.h"

Segment Line(Point from, Point to) { return {false, from, to, {}, {}}; }

Segment Cubic(Point start, Point control1, Point control2, Point end) {
  return {true, start, end, control1, control2};
}

Curve CurveOf(std::vector<Segment> segments) {
  Curve curve;
  curve.segments = std::move(segments);
  if (!curve.segments.empty()) curve.bounds = TightBoxOf(curve);
  return curve;
}

Curve Polyline(std::initializer_list<Point> points) {
  std::vector<Segment> segments;
  for (const Point* point = points.begin() + 1; point < points.end(); ++point)
    segments.push_back(Line(point[-1], *point));
  return CurveOf(std::move(segments));
}

Curve Square(Point c, double side) {
  return Polyline({c, {c.x + side, c.y}, {c.x + side, c.y + side}, {c.x, c.y + side}, c});
}

std::vector<Result> LooseSquare(Point corner, double side) {
  std::vector<Result> pieces;
  for (const Segment& segment : Square(corner, side).segments) pieces.emplace_back(CurveOf({segment}));
  return pieces;
}

Curve Circle(Point c, double r) {
  const double h = r * 0.5522847498307936;
  return CurveOf({Cubic({c.x + r, c.y}, {c.x + r, c.y + h}, {c.x + h, c.y + r}, {c.x, c.y + r}),
                  Cubic({c.x, c.y + r}, {c.x - h, c.y + r}, {c.x - r, c.y + h}, {c.x - r, c.y}),
                  Cubic({c.x - r, c.y}, {c.x - r, c.y - h}, {c.x - h, c.y - r}, {c.x, c.y - r}),
                  Cubic({c.x, c.y - r}, {c.x + h, c.y - r}, {c.x + r, c.y - h}, {c.x + r, c.y})});
}

Curve Colored(Curve curve, std::uint32_t color) {
  curve.color = color;
  return curve;
}

Bitmap Picture(Point corner, double side, std::uint32_t pixels) {
  Bitmap bitmap;
  bitmap.width = bitmap.height = pixels;
  bitmap.a = bitmap.d = side / pixels;
  bitmap.e = corner.x;
  bitmap.f = corner.y;
  bitmap.bounds = {corner.x, corner.y, corner.x + side, corner.y + side};
  bitmap.grey.assign(std::size_t{pixels} * pixels, 128);
  return bitmap;
}

Job JobOf(std::vector<Result> results) { return {"drawing", std::move(results), 0}; }

Findings FindingsOf(const Job& job, Code code) {
  const Report report = CheckJob(job, {});
  const Findings* found = report.Of(code);
  return found != nullptr ? *found : Findings{};
}

std::size_t CountOf(const Job& job, Code code) { return FindingsOf(job, code).count; }

std::vector<Code> CodesOf(const Job& job) {
  std::vector<Code> codes;
  for (const Findings& findings : CheckJob(job, {}).findings) codes.push_back(findings.code);
  return codes;
}

double TotalLength(const Job& job) {
  double length = 0.0;
  for (const Result& result : job.results) {
    if (const auto* curve = std::get_if<Curve>(&result)) length += LengthOf(*curve);
  }
  return length;
}
