#include "entity/path.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using Entity_ZR::PathSegment;
using Entity_ZR::ZR_Path;
using testing::ElementsAre;

TEST(ZR_Path, HoldsOneMoveToTheOriginAtFirst) {
  EXPECT_THAT(ZR_Path().segments, ElementsAre(PathSegment{1, {0, 0, 0}}));
}

TEST(ZR_Path, OverwritesAMoveByTheNextMove) {
  ZR_Path path;
  path.MoveTo(1, 2);
  path.MoveTo(3, 4);
  EXPECT_THAT(path.segments, ElementsAre(PathSegment{1, {3, 4, 0}}));
}

TEST(ZR_Path, AppendsAMoveBehindADrawnSegment) {
  ZR_Path path;
  path.LineTo(1, 2);
  path.MoveTo(3, 4);
  EXPECT_THAT(path.segments,
              ElementsAre(PathSegment{1, {0, 0, 0}}, PathSegment{2, {1, 2, 0}}, PathSegment{1, {3, 4, 0}}));
}

TEST(ZR_Path, AppendsAMoveToAnEmptyPath) {
  ZR_Path path;
  path.segments.clear();
  path.MoveTo(3, 4);
  EXPECT_THAT(path.segments, ElementsAre(PathSegment{1, {3, 4, 0}}));
}

TEST(ZR_Path, AppendsCurvesWithTheirControlPoints) {
  ZR_Path path;
  path.segments.clear();
  path.QuadTo({1, 2, 0}, {3, 4, 0});
  path.CubicTo({5, 6, 0}, {7, 8, 0}, {9, 10, 0});
  EXPECT_THAT(path.segments, ElementsAre(PathSegment{4, {3, 4, 0}, {1, 2, 0}},
                                         PathSegment{5, {9, 10, 0}, {5, 6, 0}, {7, 8, 0}}));
}

TEST(ZR_Path, ClosesToTheLastMove) {
  ZR_Path path;
  path.MoveTo(1, 1);
  path.LineTo(2, 2);
  path.MoveTo(5, 6);
  path.LineTo(7, 8);
  path.Close();
  EXPECT_EQ(path.segments.size(), 5u);
  EXPECT_EQ(path.segments.back(), (PathSegment{2, {5, 6, 0}}));
}

TEST(ZR_Path, ClosesNothingWhenItIsEmpty) {
  ZR_Path path;
  path.segments.clear();
  path.Close();
  EXPECT_TRUE(path.segments.empty());
}
