#include "preflight/bezier.h"

#include <gmock/gmock.h>

#include "drawings.h"

namespace {

TEST(BezierTest, CubicsEqualButForRoundingAreTheSameWithinTheTolerance) {
  const Segment a = Cubic({0, 0}, {0, 8}, {8, 8}, {8, 0});
  const Segment b = Cubic({0, 1e-9}, {-1e-9, 8}, {8, 8 + 1e-9}, {8, 0});
  EXPECT_TRUE(IsSameWithin(a, b, 0.01));
  EXPECT_FALSE(IsSameWithin(a, b, 0.0));
  EXPECT_TRUE(IsSameWithin(a, Reversed(b), 0.01));
}

TEST(BezierTest, CubicsWithTheSameEndsAndOtherControlPointsDiffer) {
  EXPECT_FALSE(
      IsSameWithin(Cubic({0, 0}, {0, 8}, {8, 8}, {8, 0}), Cubic({0, 0}, {0, 8}, {8, 8.5}, {8, 0}), 0.01));
}

TEST(BezierTest, ACubicAlongItsChordIsStraight) {
  EXPECT_TRUE(IsStraight(Cubic({0, 0}, {3, 0.005}, {6, 0}, {9, 0}), 0.01));
  EXPECT_FALSE(IsStraight(Cubic({0, 0}, {3, 1}, {6, 0}, {9, 0}), 0.01));
  EXPECT_FALSE(IsStraight(Cubic({0, 0}, {12, 0}, {6, 0}, {9, 0}), 0.01));
}

TEST(BezierTest, ACubicThatRunsOutAndBackRetracesHalfItsWay) {
  // x(t) = 3u²t·4 + 3ut²·4 = 12 t (1 - t): up to 3 at t = 1/2, and back to 0.
  EXPECT_NEAR(RetracedLength(Cubic({0, 0}, {4, 0}, {4, 0}, {0, 0}), 0.01), 3.0, 1e-12);
  EXPECT_EQ(RetracedLength(Cubic({0, 0}, {3, 0}, {6, 0}, {9, 0}), 0.01), 0.0);
  EXPECT_EQ(RetracedLength(Cubic({0, 0}, {0, 8}, {8, 8}, {8, 0}), 0.01), 0.0);
}

TEST(BezierTest, TheTightBoxOfACubicHoldsItsTopAndNotItsControlPoints) {
  // y(t) = 3u²t·8 + 3ut²·8 = 24 t (1 - t): at most 6.
  const Box box = TightBoxOf(CurveOf({Cubic({0, 0}, {0, 8}, {8, 8}, {8, 0})}));
  EXPECT_DOUBLE_EQ(box.maxY, 6.0);
  EXPECT_DOUBLE_EQ(box.minY, 0.0);
  EXPECT_DOUBLE_EQ(box.maxX, 8.0);
}

TEST(BezierTest, TheAreaUnderTheSegmentsOfAClosedCurveIsItsArea) {
  double area = 0.0;
  for (const Segment& segment : Square({3, 4}, 10).segments) area += AreaUnder(segment, {100, 100});
  EXPECT_NEAR(area, 100.0, 1e-9);
  // Under the cubic of height 24 t (1 - t) over x = 8 t²(3 - 2t): the integral of y dx is 24·48·B(3,3)
  // = 38.4.
  const Segment arch = Cubic({0, 0}, {0, 8}, {8, 8}, {8, 0});
  EXPECT_NEAR(AreaUnder(arch, {}) + AreaUnder(Line({8, 0}, {0, 0}), {}), -38.4, 1e-9);
}

TEST(BezierTest, AFlattenedCubicStaysWithinItsFlatness) {
  std::vector<Point> points{{0, 0}};
  const Segment arch = Cubic({0, 0}, {0, 8}, {8, 8}, {8, 0});
  AppendFlattened(points, arch, 0.01);
  ASSERT_GT(points.size(), 10U);
  EXPECT_EQ(points.back(), arch.end);
  // The middle of each chord against the curve's own point halfway in its parameter.
  const double chords = static_cast<double>(points.size() - 1);
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Point middle = PointAt(arch, (static_cast<double>(i) - 0.5) / chords);
    EXPECT_NEAR((points[i - 1].x + points[i].x) / 2, middle.x, 0.01);
    EXPECT_NEAR((points[i - 1].y + points[i].y) / 2, middle.y, 0.01);
  }
}

}  // namespace
