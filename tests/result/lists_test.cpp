#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drawload/file_curve.h"
#include "drawload/file_point.h"
#include "result/member_list.h"
#include "result/processing_block.h"
#include "result/result_store.h"

namespace {

using testing::ElementsAre;

/// A list for one test, of points that the test owns.
struct ListOf {
  explicit ListOf(std::initializer_list<CFilePoint*> points) : head(store.NewList()) {
    for (CFilePoint* point : points) store.Append(head, point);
  }

  std::vector<CFileDraw*> Forward() const {
    std::vector<CFileDraw*> objects;
    for (FileMember* node = head->next; node != head; node = node->next) objects.push_back(node->object);
    return objects;
  }
  std::vector<CFileDraw*> Backward() const {
    std::vector<CFileDraw*> objects;
    for (FileMember* node = head->previous; node != head; node = node->previous)
      objects.push_back(node->object);
    return objects;
  }

  ResultStore store;
  FileMember* head;
};

CFilePoint one;
CFilePoint two;
CFilePoint three;
CFilePoint four;

}  // namespace

TEST(MemberList, IsLinkedToItselfWhenEmpty) {
  const ListOf list{};
  EXPECT_EQ(list.head->next, list.head);
  EXPECT_EQ(list.head->previous, list.head);
  EXPECT_EQ(list.head->object, nullptr);
}

TEST(MemberList, IsLinkedBothWaysInOrder) {
  const ListOf list{&one, &two, &three};
  EXPECT_THAT(list.Forward(), ElementsAre(&one, &two, &three));
  EXPECT_THAT(list.Backward(), ElementsAre(&three, &two, &one));
}

TEST(MemberList, TakesAnotherListOverAtItsEnd) {
  const ListOf to{&one, &two};
  const ListOf from{&three, &four};
  SpliceMembers(from.head, to.head);
  EXPECT_THAT(to.Forward(), ElementsAre(&one, &two, &three, &four));
  EXPECT_THAT(to.Backward(), ElementsAre(&four, &three, &two, &one));
  EXPECT_THAT(from.Forward(), ElementsAre());
}

TEST(MemberList, TakesAnEmptyListOverWithoutChange) {
  const ListOf to{&one};
  const ListOf from{};
  SpliceMembers(from.head, to.head);
  EXPECT_THAT(to.Forward(), ElementsAre(&one));
}

TEST(MemberList, CountsTheMembersOfAGroup) {
  ResultStore store;
  CFileGroup* group = store.NewGroup();
  store.Append(*group, &one);
  store.Append(*group, &two);
  EXPECT_EQ(group->memberCount, 2);
}

TEST(SegmentList, IsLinkedBothWaysInOrder) {
  ResultStore store;
  CFileCurve* curve = store.NewCurve();
  store.AppendLine(*curve, {0, 0}, {1, 0});
  store.AppendCubic(*curve, {1, 0}, {2, 0}, {3, 0}, {4, 0});
  const FileSegment* first = curve->segmentHead->next;
  const FileSegment* second = first->next;
  EXPECT_EQ(second->next, curve->segmentHead);
  EXPECT_EQ(curve->segmentHead->previous, second);
  EXPECT_EQ(second->previous, first);
  EXPECT_EQ(first->previous, curve->segmentHead);
  EXPECT_EQ(curve->segmentCount, 2);
}

TEST(SegmentList, HasItsCursorOnTheFirstSegment) {
  ResultStore store;
  CFileCurve* curve = store.NewCurve();
  store.AppendLine(*curve, {0, 0}, {1, 0});
  store.AppendLine(*curve, {1, 0}, {2, 0});
  EXPECT_EQ(curve->segmentCursor, curve->segmentHead->next);
}

TEST(SegmentList, KeepsTheFourPointsOfACubic) {
  ResultStore store;
  CFileCurve* curve = store.NewCurve();
  store.AppendCubic(*curve, {1, 2}, {3, 4}, {5, 6}, {7, 8});
  const FileSegment& segment = *curve->segmentHead->next;
  EXPECT_EQ(segment.type, 3);
  EXPECT_THAT((std::vector<double>{segment.start.x, segment.start.y, segment.control1.x, segment.control1.y,
                                   segment.control2.x, segment.control2.y, segment.end.x, segment.end.y}),
              ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

TEST(ProcessingBlock, IsCopiedAsAWholeAndAlone) {
  CFilePoint from;
  from.rect = {9, 9, 9, 9};
  from.color = 9;
  from.flag0 = 1;
  from.cutMode = 2;
  from.cutSpeed = 3;
  from.cutPower = 4;
  from.highFocus = 5;
  from.reservedInt1 = 6;
  from.reservedFloat1 = 7;
  from.frequency = 8;
  from.reservedFloat2 = 9;
  from.reservedFloat3 = 10;
  from.reservedInt2 = 11;
  from.reservedFloat4 = 12;
  from.reservedShort1 = 13;
  from.processType = 14;
  from.engraveSpeed = 15;
  from.EngMaxP = 16;
  from.engStep = 17;
  from.reservedFloat5 = 18;
  from.highFocus2 = 19;
  from.imageType = 20;
  from.EngMinP = 21;
  from.reservedInt3 = 22;
  from.Reverse = 23;
  from.reservedShort2 = 24;
  from.machineType = 25;
  from.diameter = 26;
  CFileGroup to;
  CopyProcessingBlock(from, to);
  EXPECT_THAT((std::vector<double>{static_cast<double>(to.flag0),
                                   static_cast<double>(to.cutMode),
                                   to.cutSpeed,
                                   to.cutPower,
                                   to.highFocus,
                                   static_cast<double>(to.reservedInt1),
                                   to.reservedFloat1,
                                   to.frequency,
                                   to.reservedFloat2,
                                   to.reservedFloat3,
                                   static_cast<double>(to.reservedInt2),
                                   to.reservedFloat4,
                                   static_cast<double>(to.reservedShort1),
                                   static_cast<double>(to.processType),
                                   to.engraveSpeed,
                                   to.EngMaxP,
                                   to.engStep,
                                   to.reservedFloat5,
                                   to.highFocus2,
                                   static_cast<double>(to.imageType),
                                   to.EngMinP,
                                   static_cast<double>(to.reservedInt3),
                                   static_cast<double>(to.Reverse),
                                   static_cast<double>(to.reservedShort2),
                                   static_cast<double>(to.machineType),
                                   to.diameter}),
              ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23,
                          24, 25, 26));
  EXPECT_EQ(to.kind, kFileGroup);
  EXPECT_EQ(to.color, 0u);
  EXPECT_EQ(to.rect.minX, 0.0);
}
