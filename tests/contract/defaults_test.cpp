#include <gtest/gtest.h>

#include "drawload/exports.h"
#include "result/host_objects.h"

namespace {

void ExpectBaseDefaults(const CFileDraw& object) {
  EXPECT_EQ(object.rect.minX, 0.0);
  EXPECT_EQ(object.rect.minY, 0.0);
  EXPECT_EQ(object.rect.maxX, 100.0);
  EXPECT_EQ(object.rect.maxY, 100.0);
  EXPECT_EQ(object.color, 0u);
  EXPECT_EQ(object.flag0, 0);
  EXPECT_EQ(object.cutMode, 1);
  EXPECT_EQ(object.cutSpeed, 100.0);
  EXPECT_EQ(object.cutPower, 30.0);
  EXPECT_EQ(object.highFocus, 0.0);
  EXPECT_EQ(object.reservedInt1, 1);
  EXPECT_EQ(object.reservedFloat1, 30.0);
  EXPECT_EQ(object.frequency, 0.0);
  EXPECT_EQ(object.reservedFloat2, 0.0);
  EXPECT_EQ(object.reservedFloat3, 0.0);
  EXPECT_EQ(object.reservedInt2, 0);
  EXPECT_EQ(object.reservedFloat4, 50.0);
  EXPECT_EQ(object.reservedShort1, 0);
  EXPECT_EQ(object.processType, 0);
  EXPECT_EQ(object.engraveSpeed, 300.0);
  EXPECT_EQ(object.EngMaxP, 30.0);
  EXPECT_EQ(object.engStep, 0.08);
  EXPECT_EQ(object.reservedFloat5, 0.0);
  EXPECT_EQ(object.highFocus2, 0.0);
  EXPECT_EQ(object.imageType, 0);
  EXPECT_EQ(object.EngMinP, 10.0);
  EXPECT_EQ(object.reservedInt3, 0);
  EXPECT_EQ(object.Reverse, 0);
  EXPECT_EQ(object.reservedShort2, 0);
  EXPECT_EQ(object.machineType, 0);
  EXPECT_EQ(object.diameter, 50.0);
}

}  // namespace

TEST(Defaults, OfTheBaseClassAreOfKindZero) {
  struct Plain : CFileDraw {
    structRect CalRect() override { return rect; }
  };
  const Plain plain;
  ExpectBaseDefaults(plain);
  EXPECT_EQ(plain.kind, 0);
}

TEST(Defaults, OfACurveAreAnEmptySegmentList) {
  const Owned<CFileCurve> curve(new CFileCurve);
  ExpectBaseDefaults(*curve);
  EXPECT_EQ(curve->kind, 0);
  ASSERT_NE(curve->segmentHead, nullptr);
  EXPECT_EQ(curve->segmentHead->next, curve->segmentHead);
  EXPECT_EQ(curve->segmentHead->previous, curve->segmentHead);
  EXPECT_EQ(curve->segmentCount, 0);
}

TEST(Defaults, OfABitmapAreOnePixelAPoint) {
  const CFileDib dib;
  ExpectBaseDefaults(dib);
  EXPECT_EQ(dib.kind, 1);
  EXPECT_EQ(dib.bitmap, nullptr);
  EXPECT_EQ(dib.a, 0.35277777777777775);
  EXPECT_EQ(dib.b, 0.0);
  EXPECT_EQ(dib.c, 0.0);
  EXPECT_EQ(dib.d, 0.35277777777777775);
  EXPECT_EQ(dib.e, 0.0);
  EXPECT_EQ(dib.f, 0.0);
  EXPECT_EQ(dib.auxiliary, nullptr);
  EXPECT_EQ(dib.trailingWords[0], 0u);
  EXPECT_EQ(dib.trailingWords[1], 0u);
}

TEST(Defaults, OfAPointAreTheOrigin) {
  const CFilePoint point;
  ExpectBaseDefaults(point);
  EXPECT_EQ(point.kind, 2);
  EXPECT_EQ(point.x, 0.0);
  EXPECT_EQ(point.y, 0.0);
  EXPECT_EQ(point.trailingWord, 0u);
}

TEST(Defaults, OfAGroupAreAnEmptyMemberList) {
  const CFileGroup group;
  ExpectBaseDefaults(group);
  EXPECT_EQ(group.kind, 3);
  ASSERT_NE(group.memberHead, nullptr);
  EXPECT_EQ(group.memberHead->next, group.memberHead);
  EXPECT_EQ(group.memberHead->previous, group.memberHead);
  EXPECT_EQ(group.memberCount, 0);
  EXPECT_EQ(group.name, "");
  EXPECT_EQ(group.trailingValue, 0u);
}
