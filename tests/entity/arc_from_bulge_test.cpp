#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

#include "entity/shapes.h"

namespace {

using Entity_ZR::ArcFromBulge;
using Entity_ZR::ZR_Arc;

constexpr double kPi = std::numbers::pi;

void ExpectArc(const ZR_Arc& arc, double cx, double cy, double r, bool reversed, double start, double end) {
  EXPECT_NEAR(arc.center.x, cx, 1e-12);
  EXPECT_NEAR(arc.center.y, cy, 1e-12);
  EXPECT_EQ(arc.center.z, 0.0);
  EXPECT_NEAR(arc.radius, r, 1e-12);
  EXPECT_EQ(arc.reversed != 0, reversed);
  EXPECT_NEAR(arc.startAngle, start, 1e-12);
  EXPECT_NEAR(arc.endAngle, end, 1e-12);
}

}  // namespace

TEST(ArcFromBulge, MakesAHalfCircleOfABulgeOfOne) {
  ExpectArc(ArcFromBulge({0, 0, 0}, 1, {2, 0, 0}), 1, 0, 1, false, kPi, 2 * kPi);
}

TEST(ArcFromBulge, RunsTheOtherWayForANegativeBulge) {
  ExpectArc(ArcFromBulge({0, 0, 0}, -1, {2, 0, 0}), 1, 0, 1, true, kPi, 0);
}

TEST(ArcFromBulge, MakesAQuarterOfTheTangentOfASixteenthTurn) {
  // From (1, 0) to (0, 1) about the origin: the clockwise directions seen from it are 0 and 3π/2.
  const double bulge = std::tan(kPi / 8);
  ExpectArc(ArcFromBulge({1, 0, 0}, bulge, {0, 1, 0}), 0, 0, 1, false, 2 * kPi, 2 * kPi + kPi / 2);
}

TEST(ArcFromBulge, MakesAReversedQuarterOfANegativeBulge) {
  const double bulge = -std::tan(kPi / 8);
  ExpectArc(ArcFromBulge({0, 1, 0}, bulge, {1, 0, 0}), 0, 0, 1, true, kPi / 2, 0);
}

TEST(ArcFromBulge, MakesThreeQuartersOfALargeBulge) {
  // tan(3π/8): the centre lies on the other side of the chord.
  const double bulge = std::tan(3 * kPi / 8);
  ExpectArc(ArcFromBulge({0, 1, 0}, bulge, {1, 0, 0}), 0, 0, 1, false, kPi / 2, 2 * kPi);
}

TEST(ArcFromBulge, WorksAwayFromTheOrigin) {
  ExpectArc(ArcFromBulge({10, 20, 5}, 1, {10, 24, 5}), 10, 22, 2, false, 1.5 * kPi, 2.5 * kPi);
}

TEST(ArcFromBulge, MakesNothingOfABulgeBelowATenThousandth) {
  ExpectArc(ArcFromBulge({1, 2, 3}, 0.00009, {4, 5, 6}), 0, 0, 0, false, 0, 0);
  ExpectArc(ArcFromBulge({1, 2, 3}, -0.00009, {4, 5, 6}), 0, 0, 0, false, 0, 0);
}

TEST(ArcFromBulge, MakesAFullTurnWithoutRadiusOfTwoEqualPoints) {
  const ZR_Arc arc = ArcFromBulge({3, 4, 0}, 0.5, {3, 4, 0});
  EXPECT_EQ(arc.radius, 0.0);
  EXPECT_EQ(arc.startAngle, arc.endAngle);
  EXPECT_TRUE(std::isfinite(arc.startAngle));
}

TEST(ArcFromBulge, GivesFiniteAnglesForAnyNumbers) {
  for (const double big : {1e308, -1e308, double{INFINITY}}) {
    const ZR_Arc arc = ArcFromBulge({big, 0, 0}, 1, {-big, big, 0});
    EXPECT_TRUE(std::isfinite(arc.startAngle));
    EXPECT_TRUE(std::isfinite(arc.endAngle));
  }
}

TEST(ZR_Arc, IsBuiltFromABulgeAsAnArcOfDefaults) {
  const ZR_Arc arc({0, 0, 0}, 1, {2, 0, 0});
  EXPECT_EQ(arc.type, 7u);
  EXPECT_EQ(arc.layer, "0");
  EXPECT_EQ(arc.radius, 1.0);
}
