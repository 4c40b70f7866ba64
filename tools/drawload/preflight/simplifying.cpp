#include "simplifying.h"

#include <algorithm>

#include "bezier.h"
#include "geometry.h"
#include "layers.h"

namespace {

constexpr std::size_t kLongestRun = 1000;

double DistanceToLine(Point p, Point a, Point b) {
  const double x = b.x - a.x;
  const double y = b.y - a.y;
  const double square = x * x + y * y;
  const double t = square > 0.0 ? std::clamp(((p.x - a.x) * x + (p.y - a.y) * y) / square, 0.0, 1.0) : 0.0;
  return Distance(p, {a.x + t * x, a.y + t * y});
}

/// Which of the points stay: the first, the last, and those that the lines between them do not come near.
std::vector<bool> PointsThatStay(const std::vector<Point>& points, double tolerance) {
  std::vector<bool> stays(points.size(), false);
  std::vector<std::pair<std::size_t, std::size_t>> open{{0, points.size() - 1}};
  stays.front() = stays.back() = true;
  while (!open.empty()) {
    const auto [from, to] = open.back();
    open.pop_back();
    std::size_t farthest = from;
    double distance = tolerance;
    for (std::size_t i = from + 1; i < to; ++i) {
      const double here = DistanceToLine(points[i], points[from], points[to]);
      if (here <= distance) continue;
      distance = here;
      farthest = i;
    }
    if (farthest == from) continue;
    stays[farthest] = true;
    open.emplace_back(from, farthest);
    open.emplace_back(farthest, to);
  }
  return stays;
}

class Simplifier {
 public:
  Simplifier(const std::vector<Segment>& segments, double distance) : from(segments), tolerance(distance) {}

  std::vector<Segment> Run() {
    for (const Segment& segment : from) {
      if (!IsStraight(segment, tolerance)) {
        EndRun();
        simple.push_back(segment);
        continue;
      }
      if (!run.empty() && (run.back() != segment.start || run.size() == kLongestRun)) EndRun();
      if (run.empty()) run.push_back(segment.start);
      run.push_back(segment.end);
    }
    EndRun();
    return std::move(simple);
  }

 private:
  void EndRun() {
    if (run.size() > 1) {
      const std::vector<bool> stays = PointsThatStay(run, tolerance);
      Point last = run.front();
      for (std::size_t i = 1; i < run.size(); ++i) {
        if (!stays[i]) continue;
        simple.push_back({false, last, run[i], {}, {}});
        last = run[i];
      }
    }
    run.clear();
  }

  const std::vector<Segment>& from;
  double tolerance;
  std::vector<Segment> simple;
  std::vector<Point> run;
};

/// Whether the simple form is still what it was: an area stays an area, and a line a line.
bool IsSound(const std::vector<Segment>& segments, const std::vector<Segment>& simple) {
  const bool isClosed = segments.front().start == segments.back().end;
  const bool hasCubic = std::any_of(simple.begin(), simple.end(), [](const Segment& s) { return s.cubic; });
  return !isClosed || hasCubic || simple.size() >= std::min<std::size_t>(3, segments.size());
}

}  // namespace

Simplified Simplify(Job& job, double tolerance) {
  Simplified simplified;
  for (Result& result : job.results) {
    auto* curve = std::get_if<Curve>(&result);
    if (curve == nullptr || curve->segments.empty()) continue;
    simplified.before += curve->segments.size();
    if (IsWithinReach(result)) {
      std::vector<Segment> simple = Simplifier(curve->segments, tolerance).Run();
      if (IsSound(curve->segments, simple) && simple != curve->segments) {
        curve->segments = std::move(simple);
        curve->bounds = TightBoxOf(*curve);
      }
    }
    simplified.after += curve->segments.size();
  }
  return simplified;
}
