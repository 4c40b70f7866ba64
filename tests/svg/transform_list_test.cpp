#include "svg/transform_list.h"

#include <cmath>
#include <gtest/gtest.h>

using Svg::ParseTransform;

namespace {

const Matrix2D kIdentity;

void ExpectNear(const Matrix2D& actual, const Matrix2D& expected) {
  EXPECT_NEAR(actual.a, expected.a, 1e-12);
  EXPECT_NEAR(actual.b, expected.b, 1e-12);
  EXPECT_NEAR(actual.c, expected.c, 1e-12);
  EXPECT_NEAR(actual.d, expected.d, 1e-12);
  EXPECT_NEAR(actual.e, expected.e, 1e-12);
  EXPECT_NEAR(actual.f, expected.f, 1e-12);
}

}  // namespace

TEST(ParseTransform, GivesTheIdentityForNoText) {
  EXPECT_EQ(ParseTransform(""), kIdentity);
  EXPECT_EQ(ParseTransform(" ,, \n"), kIdentity);
}

TEST(ParseTransform, ReadsAMatrixOfSixNumbers) {
  EXPECT_EQ(ParseTransform("matrix(1,2,3,4,5,6)"), (Matrix2D{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(ParseTransform("matrix (1 2 3 4 5 6)"), (Matrix2D{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(ParseTransform("matrix(1,2,3,4,5)"), kIdentity);
  EXPECT_EQ(ParseTransform("matrix(1,2,3,4,5,6,7)"), kIdentity);
}

TEST(ParseTransform, TranslatesByOneOrTwoNumbers) {
  EXPECT_EQ(ParseTransform("translate(10)"), (Matrix2D{1, 0, 0, 1, 10, 0}));
  EXPECT_EQ(ParseTransform("translate(10,-4)"), (Matrix2D{1, 0, 0, 1, 10, -4}));
  EXPECT_EQ(ParseTransform("translate()"), kIdentity);
}

TEST(ParseTransform, KeepsWhatStoodBeforeAWrongCountOfNumbers) {
  EXPECT_EQ(ParseTransform("scale(2) translate(1 2 3)"), (Matrix2D{2, 0, 0, 2, 0, 0}));
  EXPECT_EQ(ParseTransform("scale(2) rotate(1 2) scale(3)"), (Matrix2D{2, 0, 0, 2, 0, 0}));
  EXPECT_EQ(ParseTransform("scale(2) scale(1 2 3) scale(3)"), (Matrix2D{2, 0, 0, 2, 0, 0}));
  EXPECT_EQ(ParseTransform("scale(2) skewX(1 2) scale(3)"), (Matrix2D{2, 0, 0, 2, 0, 0}));
  EXPECT_EQ(ParseTransform("scale(2) skewY() scale(3)"), (Matrix2D{2, 0, 0, 2, 0, 0}));
}

TEST(ParseTransform, ScalesByOneOrTwoNumbers) {
  EXPECT_EQ(ParseTransform("scale(3)"), (Matrix2D{3, 0, 0, 3, 0, 0}));
  EXPECT_EQ(ParseTransform("scale(3 -2)"), (Matrix2D{3, 0, 0, -2, 0, 0}));
}

TEST(ParseTransform, RotatesExactlyAtRightAngles) {
  EXPECT_EQ(ParseTransform("rotate(90)"), (Matrix2D{0, 1, -1, 0, 0, 0}));
  EXPECT_EQ(ParseTransform("rotate(-270)"), (Matrix2D{0, 1, -1, 0, 0, 0}));
  EXPECT_EQ(ParseTransform("rotate(270)"), (Matrix2D{0, -1, 1, 0, 0, 0}));
  EXPECT_EQ(ParseTransform("rotate(-90)"), (Matrix2D{0, -1, 1, 0, 0, 0}));
  EXPECT_EQ(ParseTransform("rotate(180)"), (Matrix2D{-1, 0, 0, -1, 0, 0}));
}

TEST(ParseTransform, TakesOtherAnglesFromSineAndCosine) {
  const double s = std::sin(30 * 0.017453292519943295);
  const double c = std::cos(30 * 0.017453292519943295);
  EXPECT_EQ(ParseTransform("rotate(30)"), (Matrix2D{c, s, -s, c, 0, 0}));
  EXPECT_NE(ParseTransform("rotate(-180)").b, 0.0);
}

TEST(ParseTransform, RotatesAboutAPoint) {
  // (10, 20) stays, (11, 20) goes to (10, 21).
  const Matrix2D m = ParseTransform("rotate(90 10 20)");
  EXPECT_EQ(m, (Matrix2D{0, 1, -1, 0, 30, 10}));
}

TEST(ParseTransform, SkewsByAnAngle) {
  ExpectNear(ParseTransform("skewX(45)"), {1, 0, 1, 1, 0, 0});
  ExpectNear(ParseTransform("skewY(45)"), {1, 1, 0, 1, 0, 0});
}

TEST(ParseTransform, LetsTheLastOperationActFirst) {
  // Scaled first, then moved.
  EXPECT_EQ(ParseTransform("translate(10,20) scale(2)"), (Matrix2D{2, 0, 0, 2, 10, 20}));
  // Moved first, then scaled.
  EXPECT_EQ(ParseTransform("scale(2),translate(10,20)"), (Matrix2D{2, 0, 0, 2, 20, 40}));
  EXPECT_EQ(ParseTransform("scale(2)matrix(1 0 0 1 3 4)"), (Matrix2D{2, 0, 0, 2, 6, 8}));
  EXPECT_EQ(ParseTransform("rotate(90)rotate(90)"), (Matrix2D{-1, 0, 0, -1, 0, 0}));
  ExpectNear(ParseTransform("scale(2 3) skewX(45)"), {2, 0, 2, 3, 0, 0});
  ExpectNear(ParseTransform("scale(2 3) skewY(45)"), {2, 3, 0, 3, 0, 0});
}

TEST(ParseTransform, EndsAtTextThatIsNoOperation) {
  EXPECT_EQ(ParseTransform("scale(2) foo(1) scale(3)"), (Matrix2D{2, 0, 0, 2, 0, 0}));
  EXPECT_EQ(ParseTransform("scale(2) Scale(3)"), (Matrix2D{2, 0, 0, 2, 0, 0}));
  EXPECT_EQ(ParseTransform("scale(2) scaleX(3)"), (Matrix2D{2, 0, 0, 2, 0, 0}));
  EXPECT_EQ(ParseTransform("scale(2) skewZ(3)"), (Matrix2D{2, 0, 0, 2, 0, 0}));
}

TEST(ParseTransform, EndsWhereAParenthesisIsMissing) {
  EXPECT_EQ(ParseTransform("scale(2) translate 3"), (Matrix2D{2, 0, 0, 2, 0, 0}));
  EXPECT_EQ(ParseTransform("scale(2) translate(3"), (Matrix2D{2, 0, 0, 2, 0, 0}));
  EXPECT_EQ(ParseTransform("scale(2) translate(3 px)"), (Matrix2D{2, 0, 0, 2, 0, 0}));
}
