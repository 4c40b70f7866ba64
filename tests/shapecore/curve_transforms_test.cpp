#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numbers>

#include "drawload/file_curve.h"
#include "result/result_store.h"

namespace {

using testing::DoubleNear;
using testing::Pointwise;

/// A line from (0, 0) to (2, 1) and a cubic from there on.
class CurveTransforms : public testing::Test {
 protected:
  CurveTransforms() : curve(store.NewCurve()) {
    store.AppendLine(*curve, {0, 0}, {2, 1});
    store.AppendCubic(*curve, {2, 1}, {3, 1}, {4, 2}, {4, 5});
  }

  /// All points of the curve: x and y of start and end of the line; then of the four points of the cubic.
  std::vector<double> Points() const {
    const FileSegment& line = *curve->segmentHead->next;
    const FileSegment& cubic = *line.next;
    return {line.start.x,     line.start.y,     line.end.x,       line.end.y,
            cubic.start.x,    cubic.start.y,    cubic.control1.x, cubic.control1.y,
            cubic.control2.x, cubic.control2.y, cubic.end.x,      cubic.end.y};
  }

  void ExpectPoints(const std::vector<double>& expected) const {
    EXPECT_THAT(Points(), Pointwise(DoubleNear(1e-14), expected));
  }

  ResultStore store;
  CFileCurve* curve;
};

}  // namespace

TEST_F(CurveTransforms, MoveAddsTheDistanceToAllPoints) {
  curve->Move(10, 100);
  ExpectPoints({10, 100, 12, 101, 12, 101, 13, 101, 14, 102, 14, 105});
}

TEST_F(CurveTransforms, TransMoveIsMove) {
  CFileDraw& draw = *curve;
  draw.TransMove(-1, 1);
  ExpectPoints({-1, 1, 1, 2, 1, 2, 2, 2, 3, 3, 3, 6});
}

TEST_F(CurveTransforms, TransRotateTurnsCounterClockwiseAboutACentre) {
  curve->TransRotate(2, 1, std::numbers::pi / 2);
  // (x, y) goes to (2 - (y - 1), 1 + (x - 2)).
  ExpectPoints({3, -1, 2, 1, 2, 1, 2, 2, 1, 3, -2, 3});
}

TEST_F(CurveTransforms, TransMirrorXReflectsAtAVerticalLine) {
  curve->TransMirrorX(5);
  ExpectPoints({10, 0, 8, 1, 8, 1, 7, 1, 6, 2, 6, 5});
}

TEST_F(CurveTransforms, TransMirrorYReflectsAtAHorizontalLine) {
  curve->TransMirrorY(5);
  ExpectPoints({0, 10, 2, 9, 2, 9, 3, 9, 4, 8, 4, 5});
}

TEST_F(CurveTransforms, TransDragScalesAboutAFixedPoint) {
  curve->TransDrag(2, 1, 2, 10);
  ExpectPoints({-2, -9, 2, 1, 2, 1, 4, 1, 6, 11, 6, 41});
}

TEST_F(CurveTransforms, LeaveTheControlPointsOfALineZero) {
  curve->Move(10, 10);
  curve->TransRotate(1, 1, 1);
  curve->TransMirrorX(3);
  curve->TransMirrorY(3);
  curve->TransDrag(1, 1, 2, 2);
  const FileSegment& line = *curve->segmentHead->next;
  EXPECT_EQ(line.control1.x, 0.0);
  EXPECT_EQ(line.control1.y, 0.0);
  EXPECT_EQ(line.control2.x, 0.0);
  EXPECT_EQ(line.control2.y, 0.0);
}

TEST(CurveTransformsOfNothing, ChangeNothing) {
  ResultStore store;
  CFileCurve* curve = store.NewCurve();
  curve->Move(1, 1);
  curve->TransRotate(1, 1, 1);
  curve->TransMirrorX(1);
  curve->TransMirrorY(1);
  curve->TransDrag(1, 1, 1, 1);
  EXPECT_EQ(curve->segmentHead->next, curve->segmentHead);
}
