#include "entity/matrix2d.h"

#include <gtest/gtest.h>

using Entity_ZR::Point3;

TEST(Matrix2D, IsTheIdentityByDefault) {
  EXPECT_EQ(Matrix2D{}, (Matrix2D{1, 0, 0, 1, 0, 0}));
  EXPECT_EQ(Matrix2D{}.Apply({3, 4, 5}), (Point3{3, 4, 5}));
}

TEST(Matrix2D, MapsXByACEAndYByBDF) {
  const Matrix2D matrix{2, 3, 5, 7, 11, 13};
  // 2·10 + 5·100 + 11 and 3·10 + 7·100 + 13.
  EXPECT_EQ(matrix.Apply({10, 100, 1}), (Point3{531, 743, 1}));
}

TEST(Concat, AppliesTheFirstMatrixFirst) {
  Matrix2D matrix{2, 0, 0, 2, 0, 0};
  Concat(matrix, {1, 0, 0, 1, 10, 20});
  EXPECT_EQ(matrix.Apply({1, 1, 0}), (Point3{12, 22, 0}));
  Matrix2D other{1, 0, 0, 1, 10, 20};
  Concat(other, {2, 0, 0, 2, 0, 0});
  EXPECT_EQ(other.Apply({1, 1, 0}), (Point3{22, 42, 0}));
}

TEST(Concat, MultipliesAllSixNumbers) {
  Matrix2D matrix{1, 2, 3, 4, 5, 6};
  Concat(matrix, {7, 8, 9, 10, 11, 12});
  EXPECT_EQ(matrix, (Matrix2D{1 * 7 + 2 * 9, 1 * 8 + 2 * 10, 3 * 7 + 4 * 9, 3 * 8 + 4 * 10,
                              5 * 7 + 6 * 9 + 11, 5 * 8 + 6 * 10 + 12}));
}

TEST(ScaleAbout, ScalesBeforeTheMatrixAboutAFixedPoint) {
  Matrix2D matrix{2, 3, 5, 7, 11, 13};
  const Matrix2D before = matrix;
  ScaleAbout(matrix, {10, 20, 0}, 4, -1);
  // The fixed point keeps its image; (11, 22) is scaled to (14, 18) first.
  EXPECT_EQ(matrix.Apply({10, 20, 0}), before.Apply({10, 20, 0}));
  EXPECT_EQ(matrix.Apply({11, 22, 0}), before.Apply({14, 18, 0}));
}

TEST(ScaleAbout, MirrorsAtALineThroughThePoint) {
  Matrix2D matrix;
  ScaleAbout(matrix, {0, 5, 0}, 1, -1);
  EXPECT_EQ(matrix, (Matrix2D{1, 0, 0, -1, 0, 10}));
}
