#include <cmath>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drawload/file_curve.h"
#include "drawload/file_dib.h"
#include "result/result_store.h"

namespace {

/// Bounds of one cubic with these points.
structRect BoundsOf(FilePosition p0, FilePosition p1, FilePosition p2, FilePosition p3) {
  ResultStore store;
  CFileCurve* curve = store.NewCurve();
  store.AppendCubic(*curve, p0, p1, p2, p3);
  return curve->CalRect();
}

void ExpectBounds(const structRect& bounds, double minX, double minY, double maxX, double maxY) {
  EXPECT_DOUBLE_EQ(bounds.minX, minX);
  EXPECT_DOUBLE_EQ(bounds.minY, minY);
  EXPECT_DOUBLE_EQ(bounds.maxX, maxX);
  EXPECT_DOUBLE_EQ(bounds.maxY, maxY);
}

/// A bitmap header that states `width` and `height` and nothing else.
struct Header {
  Header(std::int32_t width, std::int32_t height) {
    std::memcpy(bytes + 4, &width, sizeof width);
    std::memcpy(bytes + 8, &height, sizeof height);
  }
  unsigned char bytes[40] = {};
};

}  // namespace

TEST(CurveBounds, OfLinesAreThoseOfTheirEnds) {
  ResultStore store;
  CFileCurve* curve = store.NewCurve();
  store.AppendLine(*curve, {3, 4}, {-1, 10});
  store.AppendLine(*curve, {-1, 10}, {5, -2});
  ExpectBounds(curve->CalRect(), -1, -2, 5, 10);
}

TEST(CurveBounds, AreStoredInTheCurve) {
  ResultStore store;
  CFileCurve* curve = store.NewCurve();
  store.AppendLine(*curve, {3, 4}, {5, 6});
  curve->CalRect();
  ExpectBounds(curve->rect, 3, 4, 5, 6);
}

TEST(CurveBounds, OfNothingStayAsTheyAre) {
  ResultStore store;
  CFileCurve* curve = store.NewCurve();
  ExpectBounds(curve->CalRect(), 0, 0, 100, 100);
}

TEST(CurveBounds, DoNotIncludeTheOriginForTheSakeOfALinesControls) {
  ResultStore store;
  CFileCurve* curve = store.NewCurve();
  store.AppendLine(*curve, {30, 40}, {50, 60});
  ExpectBounds(curve->CalRect(), 30, 40, 50, 60);
}

TEST(CurveBounds, TouchTheCurveAndNotItsControlPoints) {
  // y = 12·s·t with its top, 3, in the middle.
  ExpectBounds(BoundsOf({0, 0}, {0, 4}, {4, 4}, {4, 0}), 0, 0, 4, 3);
}

TEST(CurveBounds, FindBothTurningPoints) {
  // y = 9·s·t·(s − t) turns at ±√3/2.
  const double turn = std::sqrt(3.0) / 2.0;
  ExpectBounds(BoundsOf({0, 0}, {1, 3}, {2, -3}, {3, 0}), 0, -turn, 3, turn);
}

TEST(CurveBounds, FindTheTurningPointOfAParabola) {
  // y = 3·s·t, of which the cubic part is zero.
  ExpectBounds(BoundsOf({0, 0}, {1, 1}, {2, 1}, {3, 0}), 0, 0, 3, 0.75);
}

TEST(CurveBounds, EndAtTheEndsWhereTheCurveOnlyRises) {
  ExpectBounds(BoundsOf({0, 0}, {1, 1}, {2, 2}, {3, 3}), 0, 0, 3, 3);
}

TEST(CurveBounds, AreRightForHugeAndTinyCurves) {
  for (const double size : {1e200, 1e-200}) {
    const double turn = std::sqrt(3.0) / 2.0 * size;
    const structRect bounds = BoundsOf({0, 0}, {size, 3 * size}, {2 * size, -3 * size}, {3 * size, 0});
    EXPECT_NEAR(bounds.minY / size, -turn / size, 1e-15);
    EXPECT_NEAR(bounds.maxY / size, turn / size, 1e-15);
  }
}

TEST(CurveBounds, CoverAllSegments) {
  ResultStore store;
  CFileCurve* curve = store.NewCurve();
  store.AppendCubic(*curve, {0, 0}, {0, 4}, {4, 4}, {4, 0});
  store.AppendLine(*curve, {4, 0}, {7, -1});
  ExpectBounds(curve->CalRect(), 0, -1, 7, 3);
}

TEST(BitmapBounds, CoverThePlacedPixels) {
  Header header(10, 20);
  CFileDib dib;
  dib.bitmap = header.bytes;
  dib.a = 2;
  dib.d = 0.5;
  dib.e = 100;
  dib.f = 200;
  ExpectBounds(dib.CalRect(), 100, 200, 120, 210);
  ExpectBounds(dib.rect, 100, 200, 120, 210);
}

TEST(BitmapBounds, CoverTurnedPixels) {
  // x' = -y, y' = x: a quarter turn.
  Header header(10, 20);
  CFileDib dib;
  dib.bitmap = header.bytes;
  dib.a = 0;
  dib.b = 1;
  dib.c = -1;
  dib.d = 0;
  ExpectBounds(dib.CalRect(), -20, 0, 0, 10);
}

TEST(BitmapBounds, CoverAllFourCornersOfAShear) {
  // Corners (0, 0), (10, 30), (-20, 20), (-10, 50).
  Header header(10, 20);
  CFileDib dib;
  dib.bitmap = header.bytes;
  dib.a = 1;
  dib.b = 3;
  dib.c = -1;
  dib.d = 1;
  ExpectBounds(dib.CalRect(), -20, 0, 10, 50);
}

TEST(BitmapBounds, OfNoBitmapAreItsOffset) {
  CFileDib dib;
  dib.e = 3;
  dib.f = 4;
  ExpectBounds(dib.CalRect(), 3, 4, 3, 4);
}
