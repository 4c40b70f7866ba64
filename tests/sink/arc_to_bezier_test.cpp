#include "sink/arc_to_bezier.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

#include "sink/sink_results.h"

namespace {

using Entity_ZR::Point3;

constexpr double kPi = std::numbers::pi;
// Handle length of a quarter circle of radius 1: 4/3 · (√2 − 1).
constexpr double kQuarter = 4.0 / 3.0 * (std::numbers::sqrt2 - 1.0);

std::vector<Point3> BezierOf(bool reversed, Point3 center, double ry, double rotation, double start,
                             double end, double rx) {
  std::vector<Point3> points = {{9, 9, 9}};  // of an arc before
  ArcToBezier(reversed, center, ry, rotation, start, end, rx, points);
  return points;
}

/// An arc of the unit circle about the origin.
std::vector<Point3> UnitArc(double start, double end, bool reversed = false) {
  return BezierOf(reversed, {}, 1.0, 0.0, start, end, 1.0);
}

std::size_t Sections(const std::vector<Point3>& points) {
  EXPECT_EQ(points.size() % 4, 0u);
  return points.size() / 4;
}

}  // namespace

TEST(ArcToBezier, TurnsAQuarterIntoOneSection) {
  const auto points = UnitArc(0.0, kPi / 2);
  ASSERT_EQ(Sections(points), 1u);
  EXPECT_THAT(points[0], IsAt(1, 0));
  EXPECT_THAT(points[1], IsAt(1, kQuarter));
  EXPECT_THAT(points[2], IsAt(kQuarter, 1));
  EXPECT_THAT(points[3], IsAt(0, 1));
}

TEST(ArcToBezier, DropsARestOfLessThanATenThousandth) {
  const auto points = UnitArc(0.0, kPi / 2 + 0.00005);
  ASSERT_EQ(Sections(points), 1u);
  EXPECT_THAT(points[3], IsAt(0, 1));
}

TEST(ArcToBezier, DrawsARestOfTwoTenThousandths) {
  const auto points = UnitArc(0.0, kPi / 2 + 0.0002);
  ASSERT_EQ(Sections(points), 2u);
  EXPECT_THAT(points[7], IsAt(-std::sin(0.0002), std::cos(0.0002)));
}

TEST(ArcToBezier, GoesRoundOnceAndOnForMoreThanAFullTurn) {
  const auto points = UnitArc(0.0, 2 * kPi + 0.1);
  ASSERT_EQ(Sections(points), 5u);
  EXPECT_THAT(points[15], IsAt(1, 0));
  EXPECT_THAT(points[16], IsAt(1, 0));
  EXPECT_THAT(points[19], IsAt(std::cos(0.1), std::sin(0.1)));
  // A short section: handle length 4/3 · tan(sweep / 4).
  EXPECT_THAT(points[17], IsAt(1, 4.0 / 3.0 * std::tan(0.025)));
}

TEST(ArcToBezier, MakesAFullTurnOfEqualAngles) {
  const auto points = UnitArc(1.0, 1.0);
  ASSERT_EQ(Sections(points), 4u);
  EXPECT_THAT(points[0], IsAt(std::cos(1.0), std::sin(1.0)));
  EXPECT_THAT(points[3], IsAt(-std::sin(1.0), std::cos(1.0)));
  EXPECT_THAT(points[15], IsAt(std::cos(1.0), std::sin(1.0)));
}

TEST(ArcToBezier, MakesAReversedFullTurnOfEqualAngles) {
  const auto points = UnitArc(1.0, 1.0, true);
  ASSERT_EQ(Sections(points), 4u);
  EXPECT_THAT(points[3], IsAt(std::sin(1.0), -std::cos(1.0)));
}

TEST(ArcToBezier, CountsAnglesCloserThanATenThousandthAsEqual) {
  EXPECT_EQ(Sections(UnitArc(0.0, 0.00005)), 4u);
  EXPECT_EQ(Sections(UnitArc(0.0, -0.00005, true)), 4u);
  EXPECT_EQ(Sections(UnitArc(0.0, 0.0002)), 1u);
  EXPECT_EQ(Sections(UnitArc(0.0, -0.0002, true)), 1u);
}

TEST(ArcToBezier, AddsTurnsToAnEndBeforeTheStart) {
  const auto points = UnitArc(kPi, 0.0);
  ASSERT_EQ(Sections(points), 2u);
  EXPECT_THAT(points[3], IsAt(0, -1));
  EXPECT_THAT(points[7], IsAt(1, 0));
}

TEST(ArcToBezier, TakesTurnsOffAnEndBehindTheStartWhenReversed) {
  const auto points = UnitArc(0.0, kPi / 2, true);
  ASSERT_EQ(Sections(points), 3u);
  EXPECT_THAT(points[1], IsAt(1, -kQuarter));
  EXPECT_THAT(points[3], IsAt(0, -1));
  EXPECT_THAT(points[7], IsAt(-1, 0));
  EXPECT_THAT(points[11], IsAt(0, 1));
}

TEST(ArcToBezier, BringsTheEndBackByManyTurns) {
  const auto points = UnitArc(20 * kPi, 0.0);
  EXPECT_EQ(Sections(points), 4u);
  EXPECT_EQ(Sections(UnitArc(-20 * kPi, kPi / 2, true)), 3u);
}

TEST(ArcToBezier, SnapsASectionEndNearDirectionZeroToIt) {
  const auto points = UnitArc(-kPi / 2 + 0.00005, kPi / 2);
  ASSERT_EQ(Sections(points), 2u);
  EXPECT_THAT(points[3], IsExactly(1.0, 0.0));
  EXPECT_THAT(points[7], IsAt(0, 1));
}

TEST(ArcToBezier, EndsASectionWhereItFallsOutsideTheSnap) {
  const auto points = UnitArc(-kPi / 2 + 0.0002, kPi / 2);
  EXPECT_THAT(points[3], IsAt(std::cos(0.0002), std::sin(0.0002)));
}

TEST(ArcToBezier, TurnsTheFirstAxisByTheRotation) {
  const auto points = BezierOf(false, {5, 7, 0}, 1.0, kPi / 2, 0.0, kPi / 2, 2.0);
  ASSERT_EQ(Sections(points), 1u);
  EXPECT_THAT(points[0], IsAt(5, 9));
  EXPECT_THAT(points[1], IsAt(5 - kQuarter, 9));
  EXPECT_THAT(points[2], IsAt(4, 7 + 2 * kQuarter));
  EXPECT_THAT(points[3], IsAt(4, 7));
}

TEST(ArcToBezier, ReadsAnglesAsDirectionsSeenFromTheCentre) {
  // At 45 degrees the ellipse x²/16 + y²/4 = 1 stands at (4/√5, 4/√5), where its parameter is atan 2.
  const double along = 4.0 / std::sqrt(5.0);
  const double parameter = std::atan(2.0);
  const double k = 4.0 / 3.0 * std::tan(parameter / 4.0);
  const auto points = BezierOf(false, {}, 2.0, 0.0, 0.0, kPi / 4, 4.0);
  ASSERT_EQ(Sections(points), 1u);
  EXPECT_THAT(points[0], IsAt(4, 0));
  EXPECT_THAT(points[1], IsAt(4, 2 * k));
  EXPECT_THAT(points[2], IsAt(along + k * 8 / std::sqrt(5.0), along - k * 2 / std::sqrt(5.0)));
  EXPECT_THAT(points[3], IsAt(along, along));
}

TEST(ArcToBezier, TakesTheShortSweepAcrossTheBackOfTheCircle) {
  // The parameters of the ends are 3π/4 and −3π/4: half a turn apart the wrong way, a quarter the right way.
  const auto points = UnitArc(0.75 * kPi, 1.25 * kPi);
  ASSERT_EQ(Sections(points), 1u);
  const double half = std::sqrt(0.5);
  EXPECT_THAT(points[1], IsAt(-half - kQuarter * half, half - kQuarter * half));
}

TEST(ArcToBezier, RaisesSmallRadiiToAHundredth) {
  const auto points = BezierOf(false, {}, -3.0, 0.0, 0.0, kPi / 2, 0.0);
  ASSERT_EQ(Sections(points), 1u);
  EXPECT_THAT(points[0], IsAt(0.01, 0));
  EXPECT_THAT(points[3], IsAt(0, 0.01));
  EXPECT_THAT(BezierOf(false, {}, 0.01, 0.0, 0.0, kPi / 2, 0.02)[0], IsAt(0.02, 0));
}

TEST(ArcToBezier, SetsZToZero) {
  for (const Point3& point : BezierOf(false, {1, 2, 3}, 1.0, 0.0, 0.0, 1.0, 1.0)) EXPECT_EQ(point.z, 0.0);
}

TEST(ArcToBezier, GivesNothingForAnglesThatAreNotFinite) {
  const double inf = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(UnitArc(std::nan(""), 1.0).empty());
  EXPECT_TRUE(UnitArc(0.0, std::nan("")).empty());
  EXPECT_TRUE(UnitArc(-inf, 1.0).empty());
  EXPECT_TRUE(UnitArc(inf, inf).empty());
}

TEST(ArcToBezier, GivesNothingForAnglesMoreThanAThousandTurnsApart) {
  EXPECT_EQ(Sections(UnitArc(0.0, 999.5 * 2 * kPi)), 3998u);
  EXPECT_TRUE(UnitArc(0.0, 1000.5 * 2 * kPi).empty());
  EXPECT_TRUE(UnitArc(1000.5 * 2 * kPi, 0.0).empty());
}

TEST(ArcToBezier, GivesNothingForAnglesThatAQuarterTurnDoesNotChange) {
  EXPECT_TRUE(UnitArc(1e17, 1e17).empty());
  EXPECT_TRUE(UnitArc(-1e300, -1e300, true).empty());
}

TEST(ArcToBezier, KeepsTheHandlesOfASectionWithoutSweepFinite) {
  // Seen from the centre of an ellipse this flat, both directions fall on the same parameter.
  for (const Point3& point : BezierOf(false, {}, 0.01, 0.0, 0.5, 1.0, 1e18)) {
    EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
  }
}
