#include <gtest/gtest.h>
#include <type_traits>

#include "drawload/file_curve.h"
#include "drawload/file_dib.h"
#include "drawload/file_group.h"
#include "drawload/file_point.h"
#include "result/host_objects.h"

namespace {

/// Sets one value at the start, in the middle and at the end of what all classes share.
void MarkBase(CFileDraw& object) {
  object.rect = {1, 2, 3, 4};
  object.color = 0x123456;
  object.flag0 = 5;
  object.frequency = 6;
  object.engStep = 7;
  object.Reverse = 8;
  object.machineType = 9;
  object.diameter = 10;
}

void ExpectMarkedBase(const CFileDraw& object) {
  EXPECT_EQ(object.rect.minX, 1.0);
  EXPECT_EQ(object.rect.maxY, 4.0);
  EXPECT_EQ(object.color, 0x123456u);
  EXPECT_EQ(object.flag0, 5);
  EXPECT_EQ(object.frequency, 6.0);
  EXPECT_EQ(object.engStep, 7.0);
  EXPECT_EQ(object.Reverse, 8);
  EXPECT_EQ(object.machineType, 9);
  EXPECT_EQ(object.diameter, 10.0);
}

}  // namespace

TEST(Copies, OfACurveShareItsSegments) {
  const Owned<CFileCurve> curve(new CFileCurve);
  AppendSegment(*curve);
  MarkBase(*curve);
  curve->trailingWord = 77;
  const CFileCurve copy(*curve);
  const Owned<CFileCurve> emptyCurve(new CFileCurve);
  CFileCurve assigned(*emptyCurve);
  assigned = *curve;
  for (const CFileCurve& one : {copy, assigned}) {
    ExpectMarkedBase(one);
    EXPECT_EQ(one.kind, kFileCurve);
    EXPECT_EQ(one.segmentHead, curve->segmentHead);
    EXPECT_EQ(one.segmentCursor, curve->segmentCursor);
    EXPECT_EQ(one.segmentCount, 1);
    EXPECT_EQ(one.trailingWord, 77u);
  }
}

TEST(Copies, OfABitmapShareItsBlock) {
  char block = 0;
  CFileDib dib;
  MarkBase(dib);
  dib.bitmap = &block;
  dib.auxiliary = &dib;
  dib.e = 12;
  dib.trailingWords[1] = 13;
  const CFileDib copy(dib);
  CFileDib assigned;
  assigned = dib;
  for (const CFileDib& one : {copy, assigned}) {
    ExpectMarkedBase(one);
    EXPECT_EQ(one.kind, kFileDib);
    EXPECT_EQ(one.bitmap, &block);
    EXPECT_EQ(one.auxiliary, &dib);
    EXPECT_EQ(one.e, 12.0);
    EXPECT_EQ(one.trailingWords[1], 13u);
  }
}

TEST(Copies, OfAPointHaveItsPlace) {
  CFilePoint point;
  MarkBase(point);
  point.x = 11;
  point.y = 12;
  point.trailingWord = 13;
  const CFilePoint copy(point);
  CFilePoint assigned;
  assigned = point;
  for (const CFilePoint& one : {copy, assigned}) {
    ExpectMarkedBase(one);
    EXPECT_EQ(one.kind, kFilePoint);
    EXPECT_EQ(one.x, 11.0);
    EXPECT_EQ(one.y, 12.0);
    EXPECT_EQ(one.trailingWord, 13u);
  }
}

TEST(Copies, OfAGroupShareItsMembersAndHaveItsName) {
  CFileGroup group;
  MarkBase(group);
  group.name = "engraving";
  group.memberCount = 3;
  group.trailingValue = 14;
  CFileGroup copy(group);
  CFileGroup assigned;
  FileMember* const listOfItsOwn = assigned.memberHead;
  assigned = group;
  for (const CFileGroup* one : {&copy, &assigned}) {
    ExpectMarkedBase(*one);
    EXPECT_EQ(one->kind, kFileGroup);
    EXPECT_EQ(one->memberHead, group.memberHead);
    EXPECT_EQ(one->memberCursor, group.memberCursor);
    EXPECT_EQ(one->memberCount, 3);
    EXPECT_EQ(one->name, "engraving");
    EXPECT_EQ(one->trailingValue, 14u);
  }
  // Only one owner may destroy a list, so the copies get lists of their own before they end.
  copy.memberHead = new FileMember{};
  copy.memberHead->next = copy.memberHead;
  assigned.memberHead = listOfItsOwn;
}

TEST(Copies, OfAllButGroupsMayGoOutOfScope) {
  EXPECT_TRUE(std::is_trivially_destructible_v<CFileCurve>);
  EXPECT_TRUE(std::is_trivially_destructible_v<CFileDib>);
  EXPECT_TRUE(std::is_trivially_destructible_v<CFilePoint>);
  EXPECT_FALSE(std::has_virtual_destructor_v<CFileGroup>);
}
