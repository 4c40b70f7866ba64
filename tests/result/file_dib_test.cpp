#include "drawload/file_dib.h"

#include <gtest/gtest.h>

namespace {

/// The placement of a bitmap in the order a, b, c, d, e, f.
std::vector<double> PlacementOf(const CFileDib& dib) { return {dib.a, dib.b, dib.c, dib.d, dib.e, dib.f}; }

CFileDib Placed() {
  CFileDib dib;
  dib.a = 1;
  dib.b = 2;
  dib.c = 3;
  dib.d = 4;
  dib.e = 5;
  dib.f = 6;
  return dib;
}

}  // namespace

TEST(CFileDib, IsMovedByItsOffset) {
  CFileDib dib = Placed();
  dib.TransMove(10, 20);
  EXPECT_EQ(PlacementOf(dib), (std::vector<double>{1, 2, 3, 4, 15, 26}));
}

TEST(CFileDib, FollowsNothingButMoves) {
  CFileDib dib = Placed();
  dib.TransRotate(1, 2, 3);
  dib.TransMirrorX(7);
  dib.TransMirrorY(8);
  dib.TransDrag(1, 2, 3, 4);
  EXPECT_EQ(PlacementOf(dib), PlacementOf(Placed()));
}

TEST(CFileDraw, TransformsNothingOfItself) {
  class Plain : public CFileDraw {
   public:
    structRect CalRect() override { return rect; }
  };
  Plain plain;
  plain.TransMove(1, 2);
  plain.TransRotate(1, 2, 3);
  plain.TransMirrorX(1);
  plain.TransMirrorY(1);
  plain.TransDrag(1, 2, 3, 4);
  EXPECT_EQ(plain.rect.minX, 0.0);
  EXPECT_EQ(plain.rect.maxX, 100.0);
}
