#include <cmath>
#include <gtest/gtest.h>

#include "entity/insert.h"
#include "entity/shapes.h"
#include "sink/sink_results.h"

namespace {

using Entity_ZR::ZR_Insert;
using Entity_ZR::ZR_Line;

void AddLineAt(CMyDrawLoad& sink, double x, double y) {
  ZR_Line line;
  line.start = {x, y, 0};
  line.end = {x + 1, y, 0};
  EXPECT_TRUE(sink.AddLine(&line, 0));
}

/// Where the point (1, 2) comes out of a frame with this matrix.
FilePosition PlaceOfOneTwo(const Matrix2D& frame) {
  CMyDrawLoad sink;
  OpenFrame(sink, frame);
  AddLineAt(sink, 1, 2);
  sink.EndGroup(0);
  return OnlySegments(sink)[0].start;
}

std::vector<double> StartsAlongX(CMyDrawLoad& sink) {
  std::vector<double> starts;
  for (const CFileCurve* curve : Curves(sink)) starts.push_back(curve->segmentHead->next->start.x);
  return starts;
}

const double kJustAboveOne = std::nextafter(1.0, 2.0);
const double kJustBelowOne = std::nextafter(1.0, 0.0);

}  // namespace

TEST(Frames, IgnoreAPureTranslation) { EXPECT_THAT(PlaceOfOneTwo({1, 0, 0, 1, 100, 200}), IsExactly(1, 2)); }

TEST(Frames, ApplyTheWholeMatrixOfAScaleWithItsTranslation) {
  EXPECT_THAT(PlaceOfOneTwo({2, 0, 0, 2, 100, 200}), IsExactly(102, 204));
}

TEST(Frames, ApplyTheWholeMatrixOfARotationWithItsTranslation) {
  EXPECT_THAT(PlaceOfOneTwo({0, 1, -1, 0, 100, 200}), IsExactly(98, 201));
}

TEST(Frames, CountAScaleAsNoneOnlyWhereItIsExactlyOne) {
  EXPECT_THAT(PlaceOfOneTwo({kJustAboveOne, 0, 0, 1, 100, 200}), IsAt(101, 202));
  EXPECT_THAT(PlaceOfOneTwo({1, 0, 0, kJustBelowOne, 100, 200}), IsAt(101, 202));
}

TEST(Frames, IgnoreShearsBelowOneHundredMillionth) {
  EXPECT_THAT(PlaceOfOneTwo({1, 0.99e-8, -0.99e-8, 1, 100, 200}), IsExactly(1, 2));
}

TEST(Frames, ApplyShearsFromOneHundredMillionthOn) {
  EXPECT_THAT(PlaceOfOneTwo({1, 1e-8, 0, 1, 100, 200}), IsNear(101, 202, 1e-6));
  EXPECT_THAT(PlaceOfOneTwo({1, 0, -1e-8, 1, 100, 200}), IsNear(101, 202, 1e-6));
}

TEST(Frames, PlaceByTheInnermostFrameOnly) {
  CMyDrawLoad sink;
  OpenFrame(sink, {10, 0, 0, 10, 0, 0});
  OpenFrame(sink, {2, 0, 0, 2, 5, 0});
  AddLineAt(sink, 1, 2);
  sink.EndGroup(0);
  AddLineAt(sink, 1, 2);
  sink.EndGroup(0);
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(7, 10));
}

TEST(Frames, IgnoreTheOuterFrameUnderATranslation) {
  CMyDrawLoad sink;
  OpenFrame(sink, {10, 0, 0, 10, 0, 0});
  OpenFrame(sink, {1, 0, 0, 1, 5, 5});
  AddLineAt(sink, 1, 2);
  sink.EndGroup(0);
  sink.EndGroup(0);
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(1));
}

TEST(Frames, HandOverTheirMembersInOrderWhenTheyClose) {
  CMyDrawLoad sink;
  AddLineAt(sink, 1, 0);
  OpenFrame(sink, {});
  AddLineAt(sink, 2, 0);
  AddLineAt(sink, 3, 0);
  EXPECT_EQ(Curves(sink).size(), 1u);
  sink.EndGroup(0);
  AddLineAt(sink, 4, 0);
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(1, 2, 3, 4));
  EXPECT_EQ(sink.resultCount, 4u);
}

TEST(Frames, HandOverANestedFramesMembersAheadOfTheOuterOnes) {
  CMyDrawLoad sink;
  OpenFrame(sink, {});
  AddLineAt(sink, 1, 0);
  OpenFrame(sink, {});
  AddLineAt(sink, 2, 0);
  sink.EndGroup(0);
  AddLineAt(sink, 3, 0);
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(2));
  sink.EndGroup(0);
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(2, 1, 3));
}

TEST(Frames, CloseWithoutMembers) {
  CMyDrawLoad sink;
  OpenFrame(sink, {});
  sink.EndGroup(0);
  EXPECT_FALSE(sink.HasResults());
  EXPECT_EQ(sink.groupDepth, 0u);
  EXPECT_TRUE(sink.frames.empty());
}

TEST(EndGroup, ChangesNothingWithoutAnOpenFrame) {
  CMyDrawLoad sink;
  AddLineAt(sink, 1, 0);
  sink.EndGroup(0);
  sink.EndGroup(0);
  EXPECT_EQ(sink.groupDepth, 0u);
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(1));
}

TEST(BeginGroup, OpensNoFrame) {
  CMyDrawLoad sink;
  sink.BeginGroup(0);
  EXPECT_EQ(sink.groupDepth, 0u);
  EXPECT_TRUE(sink.frames.empty());
}

TEST(AddInsert, OpensAFrameWithItsMatrixAndAnEmptyGroup) {
  CMyDrawLoad sink;
  ZR_Insert insert;
  insert.matrix = {1, 2, 3, 4, 5, 6};
  EXPECT_TRUE(sink.AddInsert(&insert, 0));
  EXPECT_EQ(sink.groupDepth, 1u);
  ASSERT_EQ(sink.frames.size(), 1u);
  EXPECT_EQ(sink.frames[0].matrix, insert.matrix);
  EXPECT_EQ(sink.frames[0].group->memberCount, 0);
  EXPECT_EQ(sink.frames[0].group->frequency, 1.0);
}

TEST(AddInsert, ReadsNothingButItsMatrixForThePlacement) {
  CMyDrawLoad sink;
  ZR_Insert insert;
  insert.position = {50, 50, 0};
  insert.scaleX = insert.scaleY = 3;
  insert.rotation = 1;
  sink.AddInsert(&insert, 0);
  AddLineAt(sink, 1, 2);
  sink.EndGroup(0);
  EXPECT_THAT(OnlySegments(sink)[0].start, IsExactly(1, 2));
}

TEST(AddInsert, GivesItsGroupItsOwnParametersAndNotItsParents) {
  CMyDrawLoad sink;
  OpenFrame(sink, {}, {{"cutPower", "70"}, {"frequency", "2000"}});
  OpenFrame(sink, {}, {{"cutSpeed", "7"}});
  EXPECT_EQ(sink.frames[0].group->frequency, 2000.0);
  EXPECT_EQ(sink.frames[1].group->cutPower, 30.0);
  EXPECT_EQ(sink.frames[1].group->cutSpeed, 7.0);
  EXPECT_EQ(sink.frames[1].group->frequency, 1.0);
}

TEST(AddInsert, OpensNoFrameWhenHiddenOrItsLayerIsOff) {
  CMyDrawLoad sink;
  ZR_Insert hidden;
  hidden.visible = 0;
  EXPECT_FALSE(sink.AddInsert(&hidden, 0));
  ZR_Insert off;
  off.layerOn = 0;
  EXPECT_FALSE(sink.AddInsert(&off, 0));
  sink.EndGroup(0);
  sink.EndGroup(0);
  EXPECT_EQ(sink.groupDepth, 0u);
  AddLineAt(sink, 1, 0);
  EXPECT_EQ(Curves(sink).size(), 1u);
}

TEST(Frames, LoseTheirMembersWhenTheyAreLeftOpen) {
  CMyDrawLoad sink;
  AddLineAt(sink, 1, 0);
  OpenFrame(sink, {});
  AddLineAt(sink, 2, 0);
  sink.EndFile(0);
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(1));
}

TEST(BeginFile, ResetsTheDepthAndLeavesTheFramesStanding) {
  CMyDrawLoad sink;
  OpenFrame(sink, {2, 0, 0, 2, 0, 0});
  sink.BeginFile(0);
  EXPECT_EQ(sink.groupDepth, 0u);
  EXPECT_EQ(sink.frames.size(), 1u);
  AddLineAt(sink, 1, 0);
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(1));
}
