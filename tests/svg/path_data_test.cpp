#include "svg/path_data.h"

#include <cmath>
#include <gmock/gmock.h>
#include <memory>
#include <numbers>
#include <string>

using Svg::kCubic;
using Svg::kLine;
using Svg::kMove;
using Svg::kQuadratic;
using Svg::Path;
using Svg::PathSegment;
using Svg::Point;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<PathSegment> SegmentsOf(std::string_view text) {
  Path path;
  Svg::Parse(text, path);
  return path.segments;
}

PathSegment Move(double x, double y) { return {kMove, {x, y}}; }
PathSegment Line(double x, double y) { return {kLine, {x, y}}; }
PathSegment Quadratic(Point control, Point end) { return {kQuadratic, end, control}; }
PathSegment Cubic(Point control1, Point control2, Point end) { return {kCubic, end, control1, control2}; }

void ExpectNear(Point actual, Point expected) {
  EXPECT_NEAR(actual.x, expected.x, 1e-9);
  EXPECT_NEAR(actual.y, expected.y, 1e-9);
}

/// A point of the cubic curve from `start`.
Point At(Point start, const PathSegment& curve, double t) {
  const double u = 1 - t;
  const auto mix = [=](double p0, double p1, double p2, double p3) {
    return u * u * u * p0 + 3 * u * u * t * p1 + 3 * u * t * t * p2 + t * t * t * p3;
  };
  return {mix(start.x, curve.control1.x, curve.control2.x, curve.end.x),
          mix(start.y, curve.control1.y, curve.control2.y, curve.end.y)};
}

}  // namespace

TEST(PathData, TurnsFurtherPairsOfAMoveIntoLines) {
  EXPECT_THAT(SegmentsOf("M0 0 10 0 10 10"), ElementsAre(Move(0, 0), Line(10, 0), Line(10, 10)));
  EXPECT_THAT(SegmentsOf("m1 1 2 2"), ElementsAre(Move(1, 1), Line(3, 3)));
}

TEST(PathData, DrawsLines) {
  EXPECT_THAT(SegmentsOf("M1 2L3 4 5 6l1 1"), ElementsAre(Move(1, 2), Line(3, 4), Line(5, 6), Line(6, 7)));
}

TEST(PathData, DrawsHorizontalAndVerticalLines) {
  EXPECT_THAT(SegmentsOf("M1 2H5h1V7v-1"),
              ElementsAre(Move(1, 2), Line(5, 2), Line(6, 2), Line(6, 7), Line(6, 6)));
  EXPECT_THAT(SegmentsOf("M1 2h1 1"), ElementsAre(Move(1, 2), Line(2, 2), Line(3, 2)));
}

TEST(PathData, DrawsCubicCurves) {
  EXPECT_THAT(SegmentsOf("M1 1C1 2 3 4 5 6c1 2 3 4 5 6"),
              ElementsAre(Move(1, 1), Cubic({1, 2}, {3, 4}, {5, 6}), Cubic({6, 8}, {8, 10}, {10, 12})));
}

TEST(PathData, ReflectsTheControlPointOfACubicCurve) {
  EXPECT_THAT(SegmentsOf("M0 0C1 2 3 4 5 6S9 9 10 10"),
              ElementsAre(Move(0, 0), Cubic({1, 2}, {3, 4}, {5, 6}), Cubic({7, 8}, {9, 9}, {10, 10})));
  EXPECT_THAT(SegmentsOf("M0 0s1 2 3 4 1 2 3 4"),
              ElementsAre(Move(0, 0), Cubic({0, 0}, {1, 2}, {3, 4}), Cubic({5, 6}, {4, 6}, {6, 8})));
}

TEST(PathData, StartsASmoothCubicAtTheCurrentPointBehindOtherCommands) {
  EXPECT_THAT(SegmentsOf("M0 0L5 5S9 9 10 10"),
              ElementsAre(Move(0, 0), Line(5, 5), Cubic({5, 5}, {9, 9}, {10, 10})));
  EXPECT_THAT(SegmentsOf("M0 0Q1 2 5 5S9 9 10 10"),
              ElementsAre(Move(0, 0), Quadratic({1, 2}, {5, 5}), Cubic({5, 5}, {9, 9}, {10, 10})));
}

TEST(PathData, DrawsQuadraticCurves) {
  EXPECT_THAT(SegmentsOf("M1 1Q2 3 4 5q1 1 2 0"),
              ElementsAre(Move(1, 1), Quadratic({2, 3}, {4, 5}), Quadratic({5, 6}, {6, 5})));
}

TEST(PathData, ReflectsTheControlPointOfAQuadraticCurveAgainAndAgain) {
  EXPECT_THAT(SegmentsOf("M0 0Q1 2 4 0T8 0t4 0"),
              ElementsAre(Move(0, 0), Quadratic({1, 2}, {4, 0}), Quadratic({7, -2}, {8, 0}),
                          Quadratic({9, 2}, {12, 0})));
}

TEST(PathData, StartsASmoothQuadraticAtTheCurrentPointBehindOtherCommands) {
  EXPECT_THAT(SegmentsOf("M1 1T4 0"), ElementsAre(Move(1, 1), Quadratic({1, 1}, {4, 0})));
  EXPECT_THAT(SegmentsOf("M0 0C1 2 3 4 5 6T9 9"),
              ElementsAre(Move(0, 0), Cubic({1, 2}, {3, 4}, {5, 6}), Quadratic({5, 6}, {9, 9})));
}

TEST(PathData, SharesTheLastControlPointBetweenBothSmoothCurves) {
  // The control point that `T` took is reflected by the next `T`, not by an `S` behind it.
  EXPECT_THAT(SegmentsOf("M0 0T2 0S4 4 6 0"),
              ElementsAre(Move(0, 0), Quadratic({0, 0}, {2, 0}), Cubic({2, 0}, {4, 4}, {6, 0})));
}

TEST(PathData, ClosesWithALineToTheLastMove) {
  EXPECT_THAT(SegmentsOf("M0 0L10 0Zl1 1"), ElementsAre(Move(0, 0), Line(10, 0), Line(0, 0), Line(1, 1)));
  EXPECT_THAT(SegmentsOf("M1 1L5 5M2 2L7 7z"),
              ElementsAre(Move(1, 1), Line(5, 5), Move(2, 2), Line(7, 7), Line(2, 2)));
  EXPECT_THAT(SegmentsOf("M1 1m2 3h1zh5"),
              ElementsAre(Move(1, 1), Move(3, 4), Line(4, 4), Line(3, 4), Line(8, 4)));
}

TEST(PathData, ClosesAlsoWhereThePointAlreadyStands) {
  EXPECT_THAT(SegmentsOf("M0 0L10 0L0 0Z"), ElementsAre(Move(0, 0), Line(10, 0), Line(0, 0), Line(0, 0)));
}

TEST(PathData, ClosesToTheFirstSegmentWhereThereIsNoMove) {
  EXPECT_THAT(SegmentsOf("L5 6L7 8Z"), ElementsAre(Line(5, 6), Line(7, 8), Line(5, 6)));
  EXPECT_THAT(SegmentsOf("Q1 2 5 6Z"), ElementsAre(Quadratic({1, 2}, {5, 6}), Line(5, 6)));
  EXPECT_THAT(SegmentsOf("C1 2 3 4 5 6Z"), ElementsAre(Cubic({1, 2}, {3, 4}, {5, 6}), Line(5, 6)));
}

TEST(PathData, ClosesNothingOnAnEmptyPath) { EXPECT_THAT(SegmentsOf("ZZ"), IsEmpty()); }

TEST(PathData, ClosesOnceMoreForEachNumberBehindTheCommand) {
  EXPECT_THAT(SegmentsOf("M1 2z5 5"), ElementsAre(Move(1, 2), Line(1, 2), Line(1, 2), Line(1, 2)));
}

TEST(PathData, DropsALoneNumberOfMovesAndLines) {
  EXPECT_THAT(SegmentsOf("M0 0L5H3"), ElementsAre(Move(0, 0), Line(3, 0)));
  EXPECT_THAT(SegmentsOf("M0 0L1 1 5 H3"), ElementsAre(Move(0, 0), Line(1, 1), Line(3, 1)));
  EXPECT_THAT(SegmentsOf("M5L1 1"), ElementsAre(Line(1, 1)));
  EXPECT_THAT(SegmentsOf("M1 1M5L2 2"), ElementsAre(Move(1, 1), Line(2, 2)));
}

TEST(PathData, EndsWhereOtherCommandsLackNumbers) {
  for (const char* const text : {"C1 1", "S1 1", "Q1 1 1", "T1", "A1 1 0 0 0 1"}) {
    EXPECT_THAT(SegmentsOf(std::string("M0 0") + text + "L9 9"), ElementsAre(Move(0, 0))) << text;
  }
  EXPECT_THAT(SegmentsOf("M0 0Q1 1 2 2 3 3L9 9"), ElementsAre(Move(0, 0), Quadratic({1, 1}, {2, 2})));
}

TEST(PathData, EndsAtAnUnknownCommand) {
  EXPECT_THAT(SegmentsOf("M0 0X1 2L3 3"), ElementsAre(Move(0, 0)));
  EXPECT_THAT(SegmentsOf("5 5M0 0"), IsEmpty());
}

TEST(PathData, EndsAtACommandWithoutNumbers) {
  EXPECT_THAT(SegmentsOf("M0 0 L L3 3"), ElementsAre(Move(0, 0)));
}

TEST(PathData, ReadsCompactNumbers) {
  EXPECT_THAT(SegmentsOf("M.5.5-1-2"), ElementsAre(Move(0.5, 0.5), Line(-1, -2)));
  EXPECT_THAT(SegmentsOf("M1e2,0,L 5 , 6 "), ElementsAre(Move(100, 0), Line(5, 6)));
  EXPECT_THAT(SegmentsOf("\v\fM\n1\t2\r"), ElementsAre(Move(1, 2)));
}

TEST(PathData, DrawsAHalfCircleAsTwoCurves) {
  const std::vector<PathSegment> segments = SegmentsOf("M0 0A10 10 0 0 1 20 0");
  ASSERT_EQ(segments.size(), 3U);
  EXPECT_EQ(segments[1].kind, kCubic);
  // Sweeping from the left end with y down, the arc passes over (10, -10).
  ExpectNear(segments[1].end, {10, -10});
  ExpectNear(segments[2].end, {20, 0});
}

TEST(PathData, DrawsAQuarterCircleAsOneCurve) {
  const std::vector<PathSegment> segments = SegmentsOf("M10 0A10 10 0 0 1 0 10");
  ASSERT_EQ(segments.size(), 2U);
  // The usual tangent length 4/3 (sqrt(2) - 1) of the radius.
  const double k = 4.0 / 3.0 * (std::numbers::sqrt2 - 1) * 10;
  ExpectNear(segments[1].control1, {10, k});
  ExpectNear(segments[1].control2, {k, 10});
  ExpectNear(segments[1].end, {0, 10});
}

TEST(PathData, TakesTheLongWayForALargeArc) {
  const std::vector<PathSegment> segments = SegmentsOf("M10 0A10 10 0 1 0 0 10");
  ASSERT_EQ(segments.size(), 4U);
  ExpectNear(segments[1].end, {0, -10});
  ExpectNear(segments[2].end, {-10, 0});
  ExpectNear(segments[3].end, {0, 10});
}

TEST(PathData, PutsTheCentreOnTheOtherSideForTheOtherSweep) {
  // The centre of the short arc against the sweep is (10, 10).
  const std::vector<PathSegment> segments = SegmentsOf("M10 0A10 10 0 0 0 0 10");
  ASSERT_EQ(segments.size(), 2U);
  const Point middle = At({10, 0}, segments[1], 0.5);
  EXPECT_NEAR(std::hypot(middle.x - 10, middle.y - 10), 10, 0.01);
  const std::vector<PathSegment> large = SegmentsOf("M10 0A10 10 0 1 1 0 10");
  ASSERT_EQ(large.size(), 4U);
  ExpectNear(large[1].end, {20, 10});
  ExpectNear(large[2].end, {10, 20});
}

TEST(PathData, GrowsRadiiThatAreTooSmall) {
  const std::vector<PathSegment> segments = SegmentsOf("M0 0A1 1 0 0 1 20 0");
  ASSERT_EQ(segments.size(), 3U);
  ExpectNear(segments[1].end, {10, -10});
  // Both grow by the same factor.
  const std::vector<PathSegment> ellipse = SegmentsOf("M0 0A1 2 0 0 1 20 0");
  ASSERT_EQ(ellipse.size(), 3U);
  ExpectNear(ellipse[1].end, {10, -20});
}

TEST(PathData, TakesRadiiWithoutTheirSign) {
  for (const char* const radii : {"-10 -10", "-10 10", "10 -10"}) {
    const std::vector<PathSegment> segments = SegmentsOf(std::string("M0 0A") + radii + " 0 0 1 20 0");
    ASSERT_EQ(segments.size(), 3U) << radii;
    ExpectNear(segments[1].end, {10, -10});
  }
}

TEST(PathData, DrawsALittleMoreThanAQuarterCircleAsOneCurve) {
  // 0.0005 and 0.002 radians more: the cosines are -0.0005 and -0.002.
  EXPECT_EQ(SegmentsOf("M10 0A10 10 0 0 1 -0.005 9.99999875").size(), 2U);
  EXPECT_EQ(SegmentsOf("M10 0A10 10 0 0 1 -0.02 9.99998").size(), 3U);
}

TEST(PathData, RotatesTheEllipseOfAnArc) {
  // Radii 20 and 10 turned by a quarter: along y the ellipse reaches 20.
  const std::vector<PathSegment> segments = SegmentsOf("M10 0A20 10 90 0 1 -10 0");
  ASSERT_EQ(segments.size(), 3U);
  ExpectNear(segments[1].end, {0, 20});
  const std::vector<PathSegment> plain = SegmentsOf("M10 0A10 20 0 0 1 -10 0");
  ASSERT_EQ(plain.size(), 3U);
  ExpectNear(plain[1].end, {0, 20});
}

TEST(PathData, MovesTheEndOfARelativeArcOnly) {
  const std::vector<PathSegment> segments = SegmentsOf("M5 5a10 10 0 0 1 20 0l1 0");
  ASSERT_EQ(segments.size(), 4U);
  ExpectNear(segments[1].end, {15, -5});
  ExpectNear(segments[3].end, {26, 5});
}

TEST(PathData, ReadsTheFlagsOfAnArcAsNumbers) {
  // "00" is one number, so that six are left and the parse ends.
  EXPECT_THAT(SegmentsOf("M0 0a1 1 0 00 1 1L5 5"), ElementsAre(Move(0, 0)));
  // Any number but 0 is true.
  EXPECT_EQ(SegmentsOf("M10 0A10 10 0 0.5 -3 0 10"), SegmentsOf("M10 0A10 10 0 1 1 0 10"));
}

TEST(PathData, AddsNothingForAnUndefinedArc) {
  for (const char* const arc : {"A0 10 0 0 1 5 5", "A10 0 0 0 1 5 5", "A0 0 0 0 1 5 5", "A5 5 0 0 1 1 1",
                                "A0 10 0 0 1 1 5", "A10 0 0 0 1 5 1"}) {
    const std::vector<PathSegment> segments = SegmentsOf(std::string("M1 1") + arc + "l1 0");
    ASSERT_EQ(segments.size(), 2U) << arc;
    EXPECT_EQ(segments[1].kind, kLine);
  }
  EXPECT_THAT(SegmentsOf("M1 1A0 0 0 0 1 5 6l1 0"), ElementsAre(Move(1, 1), Line(6, 6)));
}

TEST(PathData, ClosesManyTimesInLinearTime) {
  std::string text = "M1 2";
  for (int i = 0; i < 200000; ++i) text += "h1";
  text += std::string(200000, 'z');
  const std::vector<PathSegment> segments = SegmentsOf(text);
  ASSERT_EQ(segments.size(), 400001U);
  EXPECT_EQ(segments.back(), Line(1, 2));
}

TEST(PathData, DestroysAPathOfAHostThroughAPointerToPath) {
  bool isDestroyed = false;
  struct HostPath : Path {
    explicit HostPath(bool& mark) : destroyed(mark) {}
    ~HostPath() override { destroyed = true; }
    bool& destroyed;
  };
  std::unique_ptr<Path> path = std::make_unique<HostPath>(isDestroyed);
  path.reset();
  EXPECT_TRUE(isDestroyed);
}

TEST(PathData, ClosesNothingAfterItWasCleared) {
  Path path;
  path.AddMove(1, 2);
  path.Clear();
  path.ClosePath();
  EXPECT_THAT(path.segments, IsEmpty());
}
