#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numeric>
#include <optional>
#include <random>
#include <vector>

#include "curve/bspline.h"
#include "entity/spline.h"
#include "sink/spline_conversion.h"
#include "support/account.h"

using Entity_ZR::Point3;
using Entity_ZR::ZR_Spline;

namespace {

constexpr double kTolerance = 0.2;

ZR_Spline RationalSpline(std::int32_t degree, std::vector<Point3> points, std::vector<double> knots,
                         std::vector<double> weights) {
  ZR_Spline spline;
  spline.degree = degree;
  spline.controlCount = static_cast<std::int32_t>(points.size());
  spline.knotCount = static_cast<std::int32_t>(knots.size());
  spline.controlPoints = std::move(points);
  spline.knots = std::move(knots);
  spline.weights = std::move(weights);
  return spline;
}

ZR_Spline Circle(double r) {
  const double w = std::sqrt(0.5);
  return RationalSpline(2, {{r, 0}, {r, r}, {0, r}, {-r, r}, {-r, 0}, {-r, -r}, {0, -r}, {r, -r}, {r, 0}},
                        {0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4}, {1, w, 1, w, 1, w, 1, w, 1});
}

std::vector<SplinePoint> Flatten(const ZR_Spline& spline) { return SplineFlatten(spline, kTolerance); }

/// The points of a spline, by the kernel.
class Curve {
 public:
  explicit Curve(const ZR_Spline& spline)
      : weighted(static_cast<std::uint32_t>(spline.controlCount), 3,
                 static_cast<std::uint32_t>(spline.degree)) {
    std::vector<double> numbers;
    for (std::size_t i = 0; i < spline.controlPoints.size(); ++i) {
      const double w = spline.weights[i];
      numbers.insert(numbers.end(), {spline.controlPoints[i].x * w, spline.controlPoints[i].y * w, w});
    }
    weighted.SetControlPoints(numbers);
    weighted.SetKnots(spline.knots);
  }

  double Start() const { return weighted.KnotsView()[weighted.Degree()]; }
  double End() const { return weighted.KnotsView()[weighted.ControlPointCount()]; }

  Point3 At(double u) const {
    const std::vector<double> p = weighted.Eval(u).Result();
    return {p[0] / p[2], p[1] / p[2]};
  }

  /// How far the curve half way in the parameter is off the chord from `u` to `v`.
  double MidDistance(double u, double v) const {
    const Point3 a = At(u);
    const Point3 b = At(v);
    const Point3 m = At(std::midpoint(u, v));
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    return length == 0 ? -1 : std::abs((b.x - a.x) * (m.y - a.y) - (b.y - a.y) * (m.x - a.x)) / length;
  }

  /// Points of a walk over `steps` even steps that goes on with each chord as long as it keeps the limit.
  std::size_t PointsOfLongestChords(int steps) const {
    const auto parameter = [&](int i) { return std::min(End(), Start() + (End() - Start()) * i / steps); };
    std::size_t count = 1;
    for (int first = 0; first < steps;) {
      int last = first + 1;
      while (last < steps && MidDistance(parameter(first), parameter(last + 1)) <= 2 * kTolerance) ++last;
      first = last;
      ++count;
    }
    return count;
  }

 private:
  curve::BSpline weighted;
};

double DistanceFromSegment(const Point3& p, const Point3& a, const Point3& b) {
  const double x = b.x - a.x;
  const double y = b.y - a.y;
  const double square = x * x + y * y;
  const double t = square == 0 ? 0 : std::clamp(((p.x - a.x) * x + (p.y - a.y) * y) / square, 0.0, 1.0);
  return std::hypot(a.x + t * x - p.x, a.y + t * y - p.y);
}

/// Width of the control points.
double Extent(const ZR_Spline& spline) {
  const auto [least, most] = std::minmax_element(spline.controlPoints.begin(), spline.controlPoints.end(),
                                                 [](const Point3& a, const Point3& b) { return a.x < b.x; });
  return most->x - least->x;
}

TEST(SplineFlatten, StartsAndEndsOnTheEndsOfTheCurve) {
  const ZR_Spline spline =
      RationalSpline(2, {{0, 0}, {10, 20}, {30, 10}, {50, 40}}, {0, 1, 2, 3, 4, 5, 6}, {1, 2, 0.5, 1});
  const std::vector<SplinePoint> points = Flatten(spline);
  ASSERT_GE(points.size(), 2u);
  const Curve curve(spline);
  EXPECT_EQ(points.front().u, 2.0);
  EXPECT_EQ(points.back().u, 4.0);
  EXPECT_EQ(points.front().point, curve.At(2.0));
  EXPECT_EQ(points.back().point, curve.At(4.0));
}

TEST(SplineFlatten, DrawsAStraightSplineAsOneLine) {
  const std::vector<SplinePoint> points =
      Flatten(RationalSpline(2, {{0, 0}, {5, 5}, {20, 20}}, {0, 0, 0, 1, 1, 1}, {1, 3, 1}));
  ASSERT_EQ(points.size(), 2u);
  EXPECT_EQ(points[0].point, (Point3{0, 0, 0}));
  EXPECT_EQ(points[1].point, (Point3{20, 20, 0}));
}

TEST(SplineFlatten, KeepsTheCornersOfASplineOfDegreeOne) {
  const std::vector<SplinePoint> points = Flatten(RationalSpline(
      1, {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}, {0, 0, 1, 2, 3, 4, 4}, {1, 1, 1, 1, 1}));
  ASSERT_EQ(points.size(), 5u);
  EXPECT_EQ(points[1].point, (Point3{10, 0, 0}));
  EXPECT_EQ(points[2].point, (Point3{10, 10, 0}));
  EXPECT_EQ(points[3].point, (Point3{0, 10, 0}));
}

class FlattenedCircle : public testing::TestWithParam<double> {};

TEST_P(FlattenedCircle, StaysWithinTheToleranceWithoutWaste) {
  const double r = GetParam();
  const std::vector<SplinePoint> points = Flatten(Circle(r));
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Point3& a = points[i - 1].point;
    const Point3& b = points[i].point;
    EXPECT_NEAR(std::hypot(a.x, a.y), r, r * 1e-12);
    // The sagitta of the chord.
    EXPECT_LE(r - std::hypot((a.x + b.x) / 2, (a.y + b.y) / 2), 2 * kTolerance);
  }
  // Chords of a sagitta of 2 · tolerance would make the fewest.
  const double fewest = std::acos(-1.0) / std::acos(1 - 2 * kTolerance / r);
  EXPECT_LE(static_cast<double>(points.size()), 3 * (fewest + 1));
  EXPECT_GE(static_cast<double>(points.size()), fewest);
}

INSTANTIATE_TEST_SUITE_P(FromSmallToLarge, FlattenedCircle,
                         testing::Values(0.5, 1, 3, 10, 50, 300, 2000, 1e4, 1e5));

TEST(SplineFlatten, FollowsABendToBothSidesBetweenTwoKnots) {
  // Ten spans of 20, each a wave that passes through the middle of its own chord.
  std::vector<Point3> points = {{0, 0}};
  std::vector<double> knots = {0, 0, 0, 0};
  for (int i = 0; i < 10; ++i) {
    points.insert(points.end(), {{20.0 * i + 7, 20}, {20.0 * i + 13, -20}, {20.0 * i + 20, 0}});
    knots.insert(knots.end(), 3, i + 1.0);
  }
  knots.push_back(10);
  const ZR_Spline spline = RationalSpline(3, points, knots, std::vector<double>(points.size(), 1.0));
  double highest = 0;
  for (const SplinePoint& p : Flatten(spline)) highest = std::max(highest, p.point.y);
  // The wave 60 t (1 - t)(1 - 2t) peaks at 10 / sqrt(3).
  EXPECT_NEAR(highest, 10 / std::sqrt(3.0), 0.4);
}

TEST(SplineFlatten, UsesThePointBeforeADiscontinuity) {
  const std::vector<SplinePoint> points =
      Flatten(RationalSpline(1, {{0, 0}, {10, 0}, {10, 50}, {20, 50}}, {0, 0, 1, 1, 2, 2}, {1, 1, 1, 1}));
  const auto atGap = std::find_if(points.begin(), points.end(), [](const auto& p) { return p.u == 1.0; });
  ASSERT_NE(atGap, points.end());
  EXPECT_EQ(atGap->point, (Point3{10, 0, 0}));
}

TEST(SplineFlatten, EndsWhereACurvePassesThroughInfinity) {
  const std::vector<SplinePoint> points =
      Flatten(RationalSpline(2, {{0, 0}, {10, 10}, {20, 0}}, {0, 0, 0, 1, 1, 1}, {1, -1, -1}));
  ASSERT_GE(points.size(), 2u);
  EXPECT_LT(points.size(), 25000u);
  for (const SplinePoint& p : points) {
    EXPECT_TRUE(std::isfinite(p.point.x) && std::isfinite(p.point.y));
  }
}

TEST(SplineFlatten, DropsPointsAtInfinity) {
  // The weight is 1 - 2u: nothing but infinity at a half.
  const std::vector<SplinePoint> points = Flatten(RationalSpline(1, {{1, 0}, {1, 5}}, {0, 0, 1, 1}, {1, -1}));
  ASSERT_GE(points.size(), 2u);
  for (const SplinePoint& p : points) EXPECT_NE(p.u, 0.5);
}

TEST(SplineFlatten, DrawsDegreesUpTo32) {
  const auto ofDegree = [](std::int32_t degree) {
    const auto order = static_cast<std::size_t>(degree) + 1;
    std::vector<Point3> points(order);
    for (std::size_t i = 0; i < order; ++i) points[i] = {static_cast<double>(i), static_cast<double>(i % 2)};
    std::vector<double> knots(order, 0.0);
    knots.insert(knots.end(), order, 1.0);
    return Flatten(RationalSpline(degree, points, knots, std::vector<double>(order, 1.0)));
  };
  EXPECT_GE(ofDegree(32).size(), 2u);
  EXPECT_TRUE(ofDegree(33).empty());
}

TEST(SplineFlatten, DrawsHugeCoordinatesWithSomeOfTheWorkThatIsLeft) {
  support::Account account({.held = 1 << 30, .working = 1 << 30, .work = 100'000'000});
  const support::AccountScope scope(account);
  ZR_Spline spline = Circle(1e300);
  for (double& knot : spline.knots) knot *= 1e9;
  EXPECT_GE(Flatten(spline).size(), 2u);
  EXPECT_GT(account.WorkLeft(), 10'000'000u);
  EXPECT_GE(Flatten(spline).size(), 2u);
}

TEST(SplineFlatten, SplitsLongSplinesAsMuchAsShortOnes) {
  // A wave that repeats every five control points, with 40 and with 40,000 of them.
  const auto wave = [](std::int32_t count) {
    std::vector<Point3> points;
    std::vector<double> knots(4, 0.0);
    for (std::int32_t i = 0; i < count; ++i) points.push_back({2.0 * i, i % 5 * 3.0, 0});
    for (std::int32_t i = 4; i < count; ++i) knots.push_back(i - 3);
    knots.insert(knots.end(), 4, count - 3.0);
    return RationalSpline(3, points, knots, std::vector<double>(points.size(), 1.0));
  };
  const double ofShort = static_cast<double>(Flatten(wave(40)).size()) / 40;
  const double ofLong = static_cast<double>(Flatten(wave(40'000)).size()) / 40'000;
  EXPECT_NEAR(ofLong / ofShort, 1.0, 0.1);
}

TEST(SplineFlatten, TakesOtherKnotsThanTheSpanFromZeroToOne) {
  ZR_Spline spline = Circle(50);
  const std::size_t count = Flatten(spline).size();
  for (double& knot : spline.knots) knot = knot * 100 + 5000;
  EXPECT_NEAR(static_cast<double>(Flatten(spline).size()), static_cast<double>(count), 2.0);
}

TEST(SplineFlatten, KeepsItsEndsInADomainBelowTheParameterTolerance) {
  ZR_Spline spline = Circle(50);
  for (double& knot : spline.knots) knot *= 1e-6;
  spline.controlPoints.back() = {60, 0, 0};
  const std::vector<SplinePoint> points = Flatten(spline);
  ASSERT_EQ(points.size(), 2u);
  EXPECT_EQ(points[0].point, (Point3{50, 0, 0}));
  EXPECT_EQ(points[1].point, (Point3{60, 0, 0}));
}

/// Rational curves of degree 1 to 5, from tenths of a millimetre to metres, with repeated inner knots.
class RandomSplines {
 public:
  explicit RandomSplines(std::uint32_t seed) : random(seed) {}

  ZR_Spline Next() {
    const auto degree = static_cast<std::int32_t>(1 + Below(5));
    const std::size_t order = static_cast<std::size_t>(degree) + 1;
    const std::size_t pointCount = order + Below(30);
    const double size = std::pow(10.0, Between(-1, 3));
    std::vector<Point3> points;
    std::vector<double> weights;
    Point3 p;
    for (std::size_t i = 0; i < pointCount; ++i) {
      p = {p.x + Between(-size, size), p.y + Between(-size, size), 0};
      points.push_back(p);
      weights.push_back(Between(0.3, 3));
    }
    return RationalSpline(degree, points, Knots(order, pointCount), weights);
  }

 private:
  double Between(double low, double high) {
    return low + (high - low) * (static_cast<double>(random()) / 4294967295.0);
  }
  std::size_t Below(std::size_t count) { return random() % count; }

  std::vector<double> Knots(std::size_t order, std::size_t pointCount) {
    const bool clamped = Below(2) == 0;
    double knot = 0;
    std::vector<double> knots(clamped ? order : 1, knot);
    const std::size_t firstOfEnd = pointCount + (clamped ? 0 : order);
    while (knots.size() < firstOfEnd) {
      knot += Between(0.2, 1.5);
      const std::size_t multiplicity = Below(4) == 0 ? 1 + Below(order - 1) : 1;
      for (std::size_t i = 0; i < multiplicity && knots.size() < firstOfEnd; ++i) knots.push_back(knot);
    }
    if (clamped) knots.insert(knots.end(), order, knot + Between(0.2, 1.5));
    return knots;
  }

  std::mt19937 random;
};

TEST(SplineFlatten, KeepsEveryChordWithinTwiceTheTolerance) {
  RandomSplines splines(21);
  for (int round = 0; round < 200; ++round) {
    const ZR_Spline spline = splines.Next();
    const Curve curve(spline);
    const std::vector<SplinePoint> points = Flatten(spline);
    ASSERT_GE(points.size(), 2u);
    EXPECT_EQ(points.front().point, curve.At(curve.Start()));
    EXPECT_EQ(points.back().point, curve.At(curve.End()));
    for (std::size_t i = 1; i < points.size(); ++i) {
      ASSERT_LT(points[i - 1].u, points[i].u);
      EXPECT_LE(curve.MidDistance(points[i - 1].u, points[i].u), 2 * kTolerance) << round;
    }
  }
}

TEST(SplineFlatten, NeedsAtMostThreeTimesThePointsOfTheLongestChords) {
  RandomSplines splines(22);
  for (int round = 0; round < 80; ++round) {
    const ZR_Spline spline = splines.Next();
    const Curve curve(spline);
    EXPECT_LE(Flatten(spline).size(), 3 * curve.PointsOfLongestChords(3000)) << round;
  }
}

TEST(SplineFlatten, StaysNearTheWholeCurve) {
  // The measure looks at one point of each chord only; the others may be off by a little more. Of curves of
  // a few millimetres so much may be all.
  RandomSplines splines(23);
  for (int round = 0; round < 100; ++round) {
    const ZR_Spline spline = splines.Next();
    const Curve curve(spline);
    if (Extent(spline) < 20.0) continue;
    const std::vector<SplinePoint> points = Flatten(spline);
    if (points.size() < 2) {  // repeated knots can leave nothing of a curve but a point
      EXPECT_NEAR(curve.Start(), curve.End(), 1e-9) << round;
      continue;
    }
    std::size_t chord = 1;
    for (int i = 0; i <= 1000; ++i) {
      const double u = std::min(curve.End(), curve.Start() + (curve.End() - curve.Start()) * i / 1000);
      while (chord + 1 < points.size() && points[chord].u < u) ++chord;
      EXPECT_LE(DistanceFromSegment(curve.At(u), points[chord - 1].point, points[chord].point),
                5 * kTolerance)
          << round;
    }
  }
}

}  // namespace
