// What holds of every drawing, tried on drawings made at random from fixed seeds.
#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <random>

#include "drawings.h"
#include "geometry.h"
#include "preflight/bezier.h"
#include "preflight/check.h"
#include "preflight/dropping.h"
#include "preflight/joining.h"
#include "preflight/ordering.h"
#include "preflight/simplifying.h"

namespace {

constexpr double kTolerance = 0.01;

/// Squares, loose squares, circles, lines on a coarse lattice, so that much of it meets, repeats and
/// overlaps.
class RandomDrawing {
 public:
  explicit RandomDrawing(unsigned seed) : random(seed) {}

  Job Make() {
    std::vector<Result> results;
    for (int i = 0; i < 60; ++i) AddTo(results, Upto(5));
    return JobOf(results);
  }

  /// Closed curves and bitmaps alone: which pieces make a contour is then no question of their order.
  Job MakeClosed() {
    std::vector<Result> results;
    constexpr int kClosed[] = {0, 2, 3, 4};
    for (int i = 0; i < 60; ++i) AddTo(results, kClosed[Upto(3)]);
    return JobOf(results);
  }

 private:
  int Upto(int most) { return std::uniform_int_distribution<int>(0, most)(random); }
  Point Lattice() { return {10.0 * Upto(6), 10.0 * Upto(6)}; }
  double Jitter() { return Upto(3) == 0 ? 0.001 * Upto(4) : 0.0; }

  void AddTo(std::vector<Result>& results, int kind) {
    const Point at = Lattice();
    const std::uint32_t color = Upto(3) == 0 ? 0xFF0000 : 0;
    std::vector<Result> added;
    switch (kind) {
      case 0: added.emplace_back(Square(at, 10.0 * (1 + Upto(2)))); break;
      case 1: added = LooseSquare({at.x + Jitter(), at.y}, 10.0 * (1 + Upto(2))); break;
      case 2: added.emplace_back(Circle({at.x, at.y + Jitter()}, 2.0 * (1 + Upto(4)))); break;
      case 3: added.emplace_back(Reversed(Circle(at, 2.0 * (1 + Upto(4))))); break;
      case 4: added.emplace_back(Picture({at.x + 2, at.y + 2}, 5, 20)); break;
      default: AddLine(added, at);
    }
    for (Result& result : added) {
      if (auto* curve = std::get_if<Curve>(&result)) curve->color = color;
      results.push_back(std::move(result));
    }
  }

  void AddLine(std::vector<Result>& added, Point at) {
    const Point to{at.x + 10.0 * Upto(3), at.y + 10.0 * Upto(3) + Jitter()};
    added.emplace_back(Polyline({at, to}));
  }

  std::mt19937 random;
};

double DistanceTo(Point p, const Segment& segment) {
  std::vector<Point> points{segment.start};
  AppendFlattened(points, segment, 1e-4);
  double best = Distance(p, points[0]);
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Point a = points[i - 1];
    const Point d{points[i].x - a.x, points[i].y - a.y};
    const double square = d.x * d.x + d.y * d.y;
    const double t =
        square > 0 ? std::clamp(((p.x - a.x) * d.x + (p.y - a.y) * d.y) / square, 0.0, 1.0) : 0.0;
    best = std::min(best, Distance(p, {a.x + t * d.x, a.y + t * d.y}));
  }
  return best;
}

bool IsCutIn(const Job& job, Point p, std::uint32_t color) {
  for (const Result& result : job.results) {
    const auto* curve = std::get_if<Curve>(&result);
    if (curve == nullptr || curve->color != color) continue;
    for (const Segment& segment : curve->segments) {
      if (DistanceTo(p, segment) <= 3 * kTolerance) return true;
    }
  }
  return false;
}

class PropertiesTest : public testing::TestWithParam<unsigned> {
 protected:
  const Job drawing = RandomDrawing(GetParam()).Make();
};

TEST_P(PropertiesTest, DroppingDuplicatesLeavesEveryPlaceCut) {
  Job mended = drawing;
  const Dropped dropped = DropDuplicates(mended, kTolerance);
  EXPECT_GT(dropped.segments, 0U);
  EXPECT_NEAR(TotalLength(mended) + dropped.length, TotalLength(drawing), 1e-6);
  for (const Result& result : drawing.results) {
    const auto* curve = std::get_if<Curve>(&result);
    if (curve == nullptr) continue;
    for (const Segment& segment : curve->segments) {
      for (const double t : {0.0, 0.13, 0.5, 0.77, 1.0})
        ASSERT_TRUE(IsCutIn(mended, PointAt(segment, t), curve->color));
    }
  }
}

TEST_P(PropertiesTest, DroppingTwiceDropsNothingMore) {
  Job mended = drawing;
  DropDuplicates(mended, kTolerance);
  EXPECT_EQ(DropDuplicates(mended, kTolerance).segments, 0U);
  EXPECT_EQ(CountOf(mended, Code::kDuplicate), 0U);
}

TEST_P(PropertiesTest, JoiningKeepsTheTotalLength) {
  Job mended = drawing;
  const Joined joined = JoinCurves(mended, kTolerance);
  EXPECT_GT(joined.pieces, 0U);
  // Each end may have moved by the gap that was closed.
  const double most = joined.moved * static_cast<double>(joined.pieces + joined.closed);
  EXPECT_NEAR(TotalLength(mended), TotalLength(drawing), most + 1e-6);
}

TEST_P(PropertiesTest, JoiningKeepsEverySegmentOnce) {
  Job mended = drawing;
  JoinCurves(mended, kTolerance);
  const auto count = [](const Job& job) {
    std::size_t segments = 0;
    for (const Result& result : job.results) {
      if (const auto* curve = std::get_if<Curve>(&result)) segments += curve->segments.size();
    }
    return segments;
  };
  EXPECT_EQ(count(mended), count(drawing));
}

/// Something that tells results apart whichever way they run.
std::vector<std::array<double, 6>> Fingerprints(const Job& job) {
  std::vector<std::array<double, 6>> prints;
  for (const Result& result : job.results) {
    if (const auto* bitmap = std::get_if<Bitmap>(&result)) {
      prints.push_back({bitmap->e, bitmap->f, bitmap->a, -1, 0, 0});
      continue;
    }
    const auto& curve = std::get<Curve>(result);
    const Point a = curve.segments.front().start;
    const Point b = curve.segments.back().end;
    prints.push_back({std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y),
                      std::round(LengthOf(curve) * 1e6) / 1e6, static_cast<double>(curve.color)});
  }
  std::sort(prints.begin(), prints.end());
  return prints;
}

TEST_P(PropertiesTest, OrderingKeepsEveryResultOnce) {
  Job mended = drawing;
  OrderInsideFirst(mended, kTolerance);
  EXPECT_EQ(Fingerprints(mended), Fingerprints(drawing));
}

TEST_P(PropertiesTest, OrderingLeavesNoOutlineTooEarly) {
  Job mended = RandomDrawing(GetParam()).MakeClosed();
  EXPECT_GT(CountOf(mended, Code::kOrder), 0U);
  EXPECT_GT(OrderInsideFirst(mended, kTolerance).outlines, 0U);
  EXPECT_EQ(CountOf(mended, Code::kOrder), 0U);
}

TEST_P(PropertiesTest, OrderingTellsItsTravel) {
  Job mended = drawing;
  const Ordered ordered = OrderInsideFirst(mended, kTolerance);
  EXPECT_NEAR(ordered.travelBefore, TravelOf(drawing), 1e-9);
  EXPECT_NEAR(ordered.travelAfter, TravelOf(mended), 1e-9);
}

TEST_P(PropertiesTest, OrderingComesOutTheSameEveryTime) {
  Job once = drawing;
  Job again = drawing;
  OrderInsideFirst(once, kTolerance);
  OrderInsideFirst(again, kTolerance);
  ASSERT_EQ(once.results.size(), again.results.size());
  for (std::size_t i = 0; i < once.results.size(); ++i)
    EXPECT_EQ(StartOf(once.results[i]), StartOf(again.results[i]));
}

TEST_P(PropertiesTest, SimplifyingStaysWithinItsTolerance) {
  std::mt19937 random(GetParam());
  std::normal_distribution<double> step(0.0, 0.3);
  std::vector<Segment> walk;
  Point at{0, 0};
  for (int i = 0; i < 3000; ++i) {
    const Point next{at.x + 0.5 + step(random), at.y + step(random)};
    walk.push_back(Line(at, next));
    at = next;
  }
  Job job = JobOf({CurveOf(walk)});
  const Simplified simplified = Simplify(job, 0.5);
  EXPECT_LT(simplified.after, simplified.before / 2);
  const auto& segments = std::get<Curve>(job.results[0]).segments;
  std::size_t near = 0;
  for (const Segment& segment : walk) {
    // The walk goes on, and so does the place where it lies near the simple one.
    while (near + 1 < segments.size() && DistanceTo(segment.end, segments[near]) > 0.5 + 1e-9) ++near;
    ASSERT_LE(DistanceTo(segment.end, segments[near]), 0.5 + 1e-9);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, PropertiesTest, testing::Range(1U, 26U));

}  // namespace
