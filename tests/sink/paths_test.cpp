#include <gtest/gtest.h>

#include "drawload/file_group.h"
#include "entity/path.h"
#include "result/processing_block.h"
#include "sink/sink_results.h"
#include "support/account.h"

namespace {

using Entity_ZR::ZR_Path;

/// A path of one line, from (x, 0) to (x, 1).
ZR_Path LineAt(double x) {
  ZR_Path path;
  path.MoveTo(x, 0);
  path.LineTo(x, 1);
  return path;
}

/// Two subpaths of one line each, at x = 1 and x = 2.
ZR_Path TwoLines() {
  ZR_Path path = LineAt(1);
  path.MoveTo(2, 0);
  path.LineTo(2, 1);
  return path;
}

void Add(CMyDrawLoad& sink, ZR_Path path) { EXPECT_TRUE(sink.AddPath(&path, 0)); }

/// Where the first segments of all results begin.
std::vector<double> StartsAlongX(CMyDrawLoad& sink) {
  std::vector<double> starts;
  for (const CFileCurve* curve : Curves(sink)) starts.push_back(curve->segmentHead->next->start.x);
  return starts;
}

/// A sink that waits for the glyph paths of one text.
void BeginText(CMyDrawLoad& sink) {
  sink.textMode = 1;
  sink.textGroup = sink.store.NewGroup();
}

}  // namespace

TEST(AddPath, MakesACurveForEachSubpath) {
  CMyDrawLoad sink;
  ZR_Path path;
  path.MoveTo(1, 1);
  path.LineTo(2, 1);
  path.LineTo(2, 2);
  path.MoveTo(5, 5);
  path.LineTo(6, 5);
  Add(sink, path);
  const auto curves = Curves(sink);
  ASSERT_EQ(curves.size(), 2u);
  const auto first = Segments(*curves[0]);
  ASSERT_EQ(first.size(), 2u);
  EXPECT_EQ(first[0].type, 0);
  EXPECT_THAT(first[0].start, IsExactly(1, 1));
  EXPECT_THAT(first[0].end, IsExactly(2, 1));
  EXPECT_THAT(first[1].start, IsExactly(2, 1));
  EXPECT_THAT(first[1].end, IsExactly(2, 2));
  const auto second = Segments(*curves[1]);
  ASSERT_EQ(second.size(), 1u);
  EXPECT_THAT(second[0].start, IsExactly(5, 5));
}

TEST(AddPath, YieldsNothingForItsInitialMoveAlone) {
  CMyDrawLoad sink;
  Add(sink, {});
  EXPECT_FALSE(sink.HasResults());
}

TEST(AddPath, StartsAtTheOriginWithoutAMove) {
  CMyDrawLoad sink;
  ZR_Path path;
  path.segments.clear();
  path.LineTo(3, 4);
  Add(sink, path);
  EXPECT_THAT(OnlySegments(sink)[0].start, IsExactly(0, 0));
}

TEST(AddPath, UsesTheControlPointOfAQuadraticTwice) {
  CMyDrawLoad sink;
  ZR_Path path;
  path.MoveTo(1, 0);
  path.QuadTo({2, 2, 0}, {3, 0, 0});
  path.LineTo(4, 0);
  Add(sink, path);
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 2u);
  EXPECT_EQ(segments[0].type, 3);
  EXPECT_THAT(segments[0].start, IsExactly(1, 0));
  EXPECT_THAT(segments[0].control1, IsExactly(2, 2));
  EXPECT_THAT(segments[0].control2, IsExactly(2, 2));
  EXPECT_THAT(segments[0].end, IsExactly(3, 0));
  EXPECT_THAT(segments[1].start, IsExactly(3, 0));
}

TEST(AddPath, KeepsCubicsAsTheyAre) {
  CMyDrawLoad sink;
  ZR_Path path;
  path.MoveTo(1, 0);
  path.CubicTo({2, 2, 0}, {3, -2, 0}, {4, 0, 0});
  path.LineTo(5, 0);
  Add(sink, path);
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 2u);
  EXPECT_EQ(segments[0].type, 3);
  EXPECT_THAT(segments[0].control1, IsExactly(2, 2));
  EXPECT_THAT(segments[0].control2, IsExactly(3, -2));
  EXPECT_THAT(segments[0].end, IsExactly(4, 0));
  EXPECT_THAT(segments[1].start, IsExactly(4, 0));
}

TEST(AddPath, SkipsOtherSegmentsWithoutMoving) {
  CMyDrawLoad sink;
  ZR_Path path;
  path.MoveTo(1, 0);
  path.segments.push_back({3, {9, 9, 0}});
  path.segments.push_back({0, {8, 8, 0}});
  path.LineTo(2, 0);
  Add(sink, path);
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 1u);
  EXPECT_THAT(segments[0].start, IsExactly(1, 0));
}

TEST(AddPath, MapsAllPointsByThePathTheFrameAndThePage) {
  CMyDrawLoad sink;
  sink.pageMatrix = {1, 0, 0, -1, 0, 100};
  OpenFrame(sink, {2, 0, 0, 2, 10, 0});
  ZR_Path path;
  path.matrix = {1, 0, 0, 1, 5, 0};
  path.MoveTo(0, 0);
  path.LineTo(1, 1);
  path.QuadTo({2, 2, 0}, {3, 3, 0});
  path.CubicTo({4, 4, 0}, {5, 5, 0}, {6, 6, 0});
  Add(sink, path);
  sink.EndGroup(0);
  // x: + 5, doubled, + 10; y: doubled, taken from 100.
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 3u);
  EXPECT_THAT(segments[0].start, IsExactly(20, 100));
  EXPECT_THAT(segments[0].end, IsExactly(22, 98));
  EXPECT_THAT(segments[1].control1, IsExactly(24, 96));
  EXPECT_THAT(segments[1].end, IsExactly(26, 94));
  EXPECT_THAT(segments[2].start, IsExactly(26, 94));
  EXPECT_THAT(segments[2].control1, IsExactly(28, 92));
  EXPECT_THAT(segments[2].control2, IsExactly(30, 90));
  EXPECT_THAT(segments[2].end, IsExactly(32, 88));
}

TEST(AddPath, OverwritesControlPointsInTheRecordWithTheirPlaceInTheDocument) {
  CMyDrawLoad sink;
  sink.pageMatrix = {1, 0, 0, 1, 1000, 0};
  ZR_Path path;
  path.matrix = {2, 0, 0, 2, 0, 0};
  path.QuadTo({1, 2, 0}, {3, 0, 0});
  path.CubicTo({4, 5, 0}, {6, 7, 0}, {8, 0, 0});
  sink.AddPath(&path, 0);
  EXPECT_THAT(path.segments[1].control1, IsExactly(2, 4));
  EXPECT_THAT(path.segments[1].end, IsExactly(3, 0));
  EXPECT_THAT(path.segments[2].control1, IsExactly(8, 10));
  EXPECT_THAT(path.segments[2].control2, IsExactly(12, 14));
  EXPECT_THAT(path.segments[2].end, IsExactly(8, 0));
}

TEST(AddPath, GivesItsColourToAllCurves) {
  CMyDrawLoad sink;
  ZR_Path path = TwoLines();
  path.color = 0xFF332211;
  Add(sink, path);
  for (const CFileCurve* curve : Curves(sink)) EXPECT_EQ(curve->color, 0x332211u);
}

TEST(AddPath, IsRefusedWhenHiddenOrItsLayerIsOff) {
  CMyDrawLoad sink;
  ZR_Path hidden = LineAt(1);
  hidden.visible = 0;
  EXPECT_FALSE(sink.AddPath(&hidden, 0));
  ZR_Path off = LineAt(1);
  off.layerOn = 0;
  EXPECT_FALSE(sink.AddPath(&off, 0));
  EXPECT_FALSE(sink.HasResults());
}

TEST(AddPath, KeepsTheConstructorsBlockAtTheTopWithoutAttributes) {
  CMyDrawLoad sink;
  Add(sink, LineAt(1));
  EXPECT_EQ(Curves(sink)[0]->frequency, 0.0);
  EXPECT_EQ(Curves(sink)[0]->cutPower, 30.0);
}

TEST(AddPath, AppliesItsOwnParametersToEverySubpathAtAnyDepth) {
  CMyDrawLoad sink;
  ZR_Path path = TwoLines();
  path.attributes = Parameters({{"cutPower", "44"}});
  Add(sink, path);
  OpenFrame(sink, {}, {{"cutPower", "70"}, {"cutSpeed", "7"}});
  Add(sink, path);
  sink.EndGroup(0);
  const auto curves = Curves(sink);
  ASSERT_EQ(curves.size(), 4u);
  for (const CFileCurve* curve : curves) {
    EXPECT_EQ(curve->cutPower, 44.0);
    EXPECT_EQ(curve->cutSpeed, 100.0);
    EXPECT_EQ(curve->frequency, 1.0);
  }
}

TEST(AddPath, TakesTheGroupsBlockForEverySubpathWithoutAttributes) {
  CMyDrawLoad sink;
  OpenFrame(sink, {}, {{"cutPower", "70"}});
  Add(sink, TwoLines());
  sink.EndGroup(0);
  const auto curves = Curves(sink);
  ASSERT_EQ(curves.size(), 2u);
  for (const CFileCurve* curve : curves) EXPECT_EQ(curve->cutPower, 70.0);
}

TEST(AddPath, CountsAttributesOfAnyTagAsItsOwn) {
  CMyDrawLoad sink;
  OpenFrame(sink, {}, {{"cutPower", "70"}});
  ZR_Path path = LineAt(1);
  path.attributes = {{Entity_ZR::kStyleAttribute, {{"cutPower", "44"}}}};
  Add(sink, path);
  sink.EndGroup(0);
  EXPECT_EQ(Curves(sink)[0]->cutPower, 30.0);
  EXPECT_EQ(Curves(sink)[0]->frequency, 1.0);
}

TEST(AddPath, HandsItsCurvesToTheFrameAtOnce) {
  CMyDrawLoad sink;
  OpenFrame(sink, {});
  Add(sink, TwoLines());
  EXPECT_FALSE(sink.HasResults());
  EXPECT_EQ(sink.frames.back().group->memberCount, 2);
  EXPECT_EQ(sink.pathGroup, nullptr);
}

TEST(AddPath, FreesItsHolderWhenItIsDone) {
  CMyDrawLoad sink;
  Add(sink, LineAt(1));
  EXPECT_EQ(sink.pathGroup, nullptr);
  EXPECT_EQ(sink.resultCount, 1u);
}

TEST(AddPath, LosesItsCurvesWhenItEndsInAMove) {
  CMyDrawLoad sink;
  ZR_Path path = TwoLines();
  path.MoveTo(9, 9);
  Add(sink, path);
  EXPECT_FALSE(sink.HasResults());
  Add(sink, LineAt(3));
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(3));
}

TEST(AddPath, KeepsTheCurvesOfAPathThatEndsInAMoveInsideAFrame) {
  CMyDrawLoad sink;
  OpenFrame(sink, {});
  ZR_Path path = TwoLines();
  path.MoveTo(9, 9);
  Add(sink, path);
  sink.EndGroup(0);
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(1, 2));
}

TEST(AddPath, HoldsTheCurvesOfATextUntilItsLastPath) {
  CMyDrawLoad sink;
  BeginText(sink);
  Add(sink, TwoLines());
  EXPECT_FALSE(sink.HasResults());
  EXPECT_EQ(sink.textGroup->memberCount, 2);
  sink.textLast = 1;
  Add(sink, LineAt(3));
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(1, 2, 3));
  EXPECT_EQ(sink.textMode, 0);
  EXPECT_EQ(sink.textGroup, nullptr);
  EXPECT_EQ(sink.resultCount, 3u);
}

TEST(AddPath, GivesTheTextsGroupTheBlockOfTheLastCurve) {
  CMyDrawLoad sink;
  BeginText(sink);
  ZR_Path path = LineAt(1);
  path.attributes = Parameters({{"cutPower", "44"}});
  Add(sink, path);
  EXPECT_EQ(sink.textGroup->cutPower, 44.0);
  EXPECT_EQ(sink.textGroup->frequency, 1.0);
  EXPECT_EQ(sink.textGroup->kind, kFileGroup);
}

TEST(AddPath, KeepsATextOpenWhenItsLastPathIsEmpty) {
  CMyDrawLoad sink;
  BeginText(sink);
  Add(sink, LineAt(1));
  sink.textLast = 1;
  Add(sink, {});
  EXPECT_FALSE(sink.HasResults());
  EXPECT_EQ(sink.textMode, 1);
  EXPECT_EQ(sink.textGroup->memberCount, 1);
  Add(sink, LineAt(2));
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(1, 2));
}

TEST(AddPath, KeepsTheEarlierCurvesOfAGlyphThatEndsInAMove) {
  CMyDrawLoad sink;
  BeginText(sink);
  ZR_Path path = LineAt(1);
  path.MoveTo(9, 9);
  Add(sink, path);
  sink.textLast = 1;
  Add(sink, LineAt(2));
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(1, 2));
}

TEST(AddPath, GoesToTheFrameInsideATextToo) {
  CMyDrawLoad sink;
  BeginText(sink);
  sink.textLast = 1;
  OpenFrame(sink, {});
  Add(sink, LineAt(1));
  EXPECT_EQ(sink.textGroup->memberCount, 0);
  EXPECT_EQ(sink.textMode, 1);
  sink.EndGroup(0);
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(1));
}

TEST(AddPath, TreatsATextWithoutAGroupAsNoText) {
  CMyDrawLoad sink;
  sink.textMode = 1;
  Add(sink, LineAt(1));
  EXPECT_THAT(StartsAlongX(sink), testing::ElementsAre(1));
}

TEST(AddPath, LeavesWhatWaitsInATextsGroupToTheSinksEnd) {
  CMyDrawLoad sink;
  BeginText(sink);
  Add(sink, LineAt(1));
  EXPECT_FALSE(sink.HasResults());
}

TEST(AddPath, HandsOutTheSubpathsThatFitAndDrawsWhatFollows) {
  ZR_Path path;
  for (int i = 0; i < 10'000; ++i) {
    path.MoveTo(i, 0);
    path.LineTo(i, 1);
  }
  support::Account account({.held = 2'000'000, .working = 2'000'000, .work = 100'000'000});
  const support::AccountScope scope(account);
  CMyDrawLoad sink;
  EXPECT_FALSE(support::RunItem([&] { sink.AddPath(&path, 0); }));
  const std::uint32_t ofPath = sink.resultCount;
  EXPECT_GT(ofPath, 100u);
  EXPECT_LT(ofPath, 10'000u);
  account.AllowForFile(0);
  Add(sink, LineAt(-1));
  EXPECT_EQ(sink.resultCount, ofPath + 1);
  EXPECT_EQ(StartsAlongX(sink).back(), -1.0);
}

TEST(EndGroup, NeedsNoMemory) {
  support::Account account;
  const support::AccountScope scope(account);
  CMyDrawLoad sink;
  for (int i = 0; i < 100; ++i) OpenFrame(sink, {});
  account.Hold(support::Allowance::Of(0).held - account.Held(), support::MemoryUse::kResults);
  for (int i = 0; i < 100; ++i) sink.EndGroup(0);
  EXPECT_EQ(sink.groupDepth, 0u);
}
