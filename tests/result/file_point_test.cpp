#include "drawload/file_point.h"

#include <gtest/gtest.h>
#include <numbers>

namespace {

CFilePoint PointAt(double x, double y) {
  CFilePoint point;
  point.x = x;
  point.y = y;
  return point;
}

}  // namespace

TEST(CFilePoint, IsMovedByTheGivenDistance) {
  CFilePoint point = PointAt(2, 3);
  point.TransMove(10, -5);
  EXPECT_EQ(point.x, 12.0);
  EXPECT_EQ(point.y, -2.0);
}

TEST(CFilePoint, IsTurnedCounterClockwiseAboutACentre) {
  CFilePoint point = PointAt(3, 1);
  point.TransRotate(1, 1, std::numbers::pi / 2);
  EXPECT_NEAR(point.x, 1.0, 1e-15);
  EXPECT_NEAR(point.y, 3.0, 1e-15);
}

TEST(CFilePoint, IsMirroredAtAVerticalLine) {
  CFilePoint point = PointAt(2, 3);
  point.TransMirrorX(5);
  EXPECT_EQ(point.x, 8.0);
  EXPECT_EQ(point.y, 3.0);
}

TEST(CFilePoint, IsMirroredAtAHorizontalLine) {
  CFilePoint point = PointAt(2, 3);
  point.TransMirrorY(5);
  EXPECT_EQ(point.x, 2.0);
  EXPECT_EQ(point.y, 7.0);
}

TEST(CFilePoint, IsScaledAboutAFixedPoint) {
  CFilePoint point = PointAt(3, 4);
  point.TransDrag(1, 2, 2, 10);
  EXPECT_EQ(point.x, 5.0);
  EXPECT_EQ(point.y, 22.0);
}

TEST(CFilePoint, HasBoundsWithoutExtent) {
  CFilePoint point = PointAt(3, 4);
  const structRect bounds = point.CalRect();
  EXPECT_EQ(bounds.minX, 3.0);
  EXPECT_EQ(bounds.minY, 4.0);
  EXPECT_EQ(bounds.maxX, 3.0);
  EXPECT_EQ(bounds.maxY, 4.0);
  EXPECT_EQ(point.rect.maxY, 4.0);
}
