#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

#include "entity/shapes.h"
#include "sink/sink_results.h"
#include "support/account.h"

namespace {

using Entity_ZR::ZR_Arc;
using Entity_ZR::ZR_Circle;
using Entity_ZR::ZR_Ellipse;
using Entity_ZR::ZR_Line;

constexpr double kPi = std::numbers::pi;
constexpr double kQuarter = 4.0 / 3.0 * (std::numbers::sqrt2 - 1.0);

ZR_Line Line(double x1, double y1, double x2, double y2) {
  ZR_Line line;
  line.start = {x1, y1, 0};
  line.end = {x2, y2, 0};
  return line;
}

ZR_Circle Circle(double radius) {
  ZR_Circle circle;
  circle.radius = radius;
  return circle;
}

/// A quarter of the unit circle, from (1, 0) to (0, 1).
ZR_Arc QuarterArc() {
  ZR_Arc arc;
  arc.radius = 1;
  arc.endAngle = kPi / 2;
  return arc;
}

ZR_Ellipse HalfEllipse(double rx, double ry) {
  ZR_Ellipse ellipse;
  ellipse.radiusX = rx;
  ellipse.radiusY = ry;
  ellipse.endAngle = kPi;
  return ellipse;
}

}  // namespace

TEST(AddLine, MakesOneStraightSegment) {
  CMyDrawLoad sink;
  ZR_Line line = Line(1, 2, 3, 4);
  line.start.z = 9;
  EXPECT_TRUE(sink.AddLine(&line, 0));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 1u);
  EXPECT_EQ(segments[0].type, 0);
  EXPECT_THAT(segments[0].start, IsExactly(1, 2));
  EXPECT_THAT(segments[0].end, IsExactly(3, 4));
  EXPECT_THAT(segments[0].control1, IsExactly(0, 0));
  EXPECT_THAT(segments[0].control2, IsExactly(0, 0));
  EXPECT_TRUE(std::all_of(segments[0].tail, segments[0].tail + 14, [](auto byte) { return byte == 0; }));
}

TEST(AddLine, KeepsALineWithoutLength) {
  CMyDrawLoad sink;
  ZR_Line line = Line(5, 5, 5, 5);
  EXPECT_TRUE(sink.AddLine(&line, 0));
  EXPECT_EQ(OnlySegments(sink).size(), 1u);
}

TEST(AddLine, MapsBothEndsByTheEntityThenTheFrameThenThePage) {
  CMyDrawLoad sink;
  sink.pageMatrix = {1, 0, 0, -1, 0, 100};
  OpenFrame(sink, {2, 0, 0, 2, 10, 0});
  ZR_Line line = Line(1, 2, 3, 4);
  line.matrix = {0, 1, -1, 0, 0, 0};
  sink.AddLine(&line, 0);
  sink.EndGroup(0);
  // Quarter turn: (-2, 1) and (-4, 3); doubled and moved: (6, 2) and (2, 6); flipped in 100.
  const auto segments = OnlySegments(sink);
  EXPECT_THAT(segments[0].start, IsExactly(6, 98));
  EXPECT_THAT(segments[0].end, IsExactly(2, 94));
}

TEST(AddLine, TakesTheLowTwentyFourBitsOfTheColour) {
  CMyDrawLoad sink;
  ZR_Line line = Line(0, 0, 1, 0);
  line.color = 0xFF123456;
  sink.AddLine(&line, 0);
  EXPECT_EQ(Curves(sink)[0]->color, 0x123456u);
}

TEST(AddLine, AppliesItsOwnParametersAtTheTop) {
  CMyDrawLoad sink;
  ZR_Line line = Line(0, 0, 1, 0);
  line.attributes = Parameters({{"cutPower", "55.5"}});
  sink.AddLine(&line, 0);
  EXPECT_EQ(Curves(sink)[0]->cutPower, 55.5);
  EXPECT_EQ(Curves(sink)[0]->frequency, 1.0);
}

TEST(AddLine, HasFrequencyOneAtTheTopWithoutParameters) {
  CMyDrawLoad sink;
  ZR_Line line = Line(0, 0, 1, 0);
  sink.AddLine(&line, 0);
  EXPECT_EQ(Curves(sink)[0]->frequency, 1.0);
  EXPECT_EQ(Curves(sink)[0]->cutSpeed, 100.0);
  EXPECT_EQ(Curves(sink)[0]->cutPower, 30.0);
}

TEST(AddLine, TakesTheGroupsBlockInAFrameAndPassesItsOwnOver) {
  CMyDrawLoad sink;
  OpenFrame(sink, {}, {{"cutPower", "70"}, {"frequency", "2000"}});
  ZR_Line line = Line(0, 0, 1, 0);
  line.attributes = Parameters({{"cutPower", "55.5"}, {"cutSpeed", "5"}});
  sink.AddLine(&line, 0);
  sink.EndGroup(0);
  EXPECT_EQ(Curves(sink)[0]->cutPower, 70.0);
  EXPECT_EQ(Curves(sink)[0]->cutSpeed, 100.0);
  EXPECT_EQ(Curves(sink)[0]->frequency, 2000.0);
}

TEST(AddCircle, RunsClockwiseFromTheRight) {
  CMyDrawLoad sink;
  ZR_Circle circle = Circle(10);
  EXPECT_TRUE(sink.AddCircle(&circle, 0));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 4u);
  EXPECT_EQ(segments[0].type, 3);
  EXPECT_THAT(segments[0].start, IsExactly(10, 0));
  EXPECT_THAT(segments[0].control1, IsAt(10, -10 * kQuarter));
  EXPECT_THAT(segments[0].control2, IsAt(10 * kQuarter, -10));
  EXPECT_THAT(segments[0].end, IsAt(0, -10));
  EXPECT_THAT(segments[1].end, IsAt(-10, 0));
  EXPECT_THAT(segments[2].end, IsAt(0, 10));
  EXPECT_THAT(segments[3].end, IsAt(10, 0));
}

TEST(AddCircle, DrawsARadiusOfZeroAsAHundredth) {
  CMyDrawLoad sink;
  ZR_Circle circle = Circle(0);
  EXPECT_TRUE(sink.AddCircle(&circle, 0));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 4u);
  EXPECT_THAT(segments[0].start, IsAt(0.01, 0));
  EXPECT_THAT(segments[1].end, IsAt(-0.01, 0));
}

TEST(AddCircle, IsMappedPointByPointSoThatAMirrorTurnsItRound) {
  CMyDrawLoad sink;
  OpenFrame(sink, {-1, 0, 0, 1, 0, 0});
  ZR_Circle circle = Circle(1);
  circle.center = {3, 0, 0};
  circle.matrix = {1, 0, 0, 2, 0, 5};
  sink.AddCircle(&circle, 0);
  sink.EndGroup(0);
  const auto segments = OnlySegments(sink);
  EXPECT_THAT(segments[0].start, IsAt(-4, 5));
  EXPECT_THAT(segments[0].control1, IsAt(-4, 5 - 2 * kQuarter));
  EXPECT_THAT(segments[0].end, IsAt(-3, 3));
}

TEST(AddCircle, AppliesItsOwnParametersAtTheTopAndTheGroupsInAFrame) {
  CMyDrawLoad sink;
  ZR_Circle circle = Circle(1);
  circle.attributes = Parameters({{"cutSpeed", "11"}});
  circle.color = 0xFF00FF00;
  sink.AddCircle(&circle, 0);
  OpenFrame(sink, {}, {{"cutSpeed", "22"}});
  sink.AddCircle(&circle, 0);
  sink.EndGroup(0);
  EXPECT_EQ(Curves(sink)[0]->cutSpeed, 11.0);
  EXPECT_EQ(Curves(sink)[1]->cutSpeed, 22.0);
  EXPECT_EQ(Curves(sink)[1]->color, 0x00FF00u);
}

TEST(AddEllipse, UsesItsMatrixRotationRadiiAndAngles) {
  CMyDrawLoad sink;
  ZR_Ellipse ellipse = HalfEllipse(4, 2);
  ellipse.center = {10, 0, 0};
  ellipse.rotation = kPi / 2;
  ellipse.matrix = {1, 0, 0, 1, 0, 100};
  EXPECT_TRUE(sink.AddEllipse(&ellipse, 0));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 2u);
  EXPECT_THAT(segments[0].start, IsAt(10, 104));
  EXPECT_THAT(segments[0].end, IsAt(8, 100));
  EXPECT_THAT(segments[1].end, IsAt(10, 96));
}

TEST(AddEllipse, RunsClockwiseWhenReversed) {
  CMyDrawLoad sink;
  ZR_Ellipse ellipse = HalfEllipse(4, 2);
  ellipse.reversed = 1;
  sink.AddEllipse(&ellipse, 0);
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 2u);
  EXPECT_THAT(segments[0].end, IsAt(0, -2));
  EXPECT_THAT(segments[1].end, IsAt(-4, 0));
}

TEST(AddEllipse, AppliesItsOwnParametersAtTheTopAndTheGroupsInAFrame) {
  CMyDrawLoad sink;
  ZR_Ellipse ellipse = HalfEllipse(4, 2);
  ellipse.attributes = Parameters({{"cutSpeed", "11"}});
  sink.AddEllipse(&ellipse, 0);
  OpenFrame(sink, {}, {{"cutSpeed", "22"}});
  sink.AddEllipse(&ellipse, 0);
  sink.EndGroup(0);
  EXPECT_EQ(Curves(sink)[0]->cutSpeed, 11.0);
  EXPECT_EQ(Curves(sink)[1]->cutSpeed, 22.0);
}

TEST(AddEllipse, RefusesAnglesThatSayNothing) {
  CMyDrawLoad sink;
  ZR_Ellipse ellipse = HalfEllipse(4, 2);
  ellipse.startAngle = std::nan("");
  EXPECT_FALSE(sink.AddEllipse(&ellipse, 0));
  EXPECT_FALSE(sink.HasResults());
}

TEST(AddArc, DrawsFromStartToEnd) {
  CMyDrawLoad sink;
  ZR_Arc arc = QuarterArc();
  arc.color = 0x80010203;
  EXPECT_TRUE(sink.AddArc(&arc, 0));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 1u);
  EXPECT_THAT(segments[0].start, IsAt(1, 0));
  EXPECT_THAT(segments[0].end, IsAt(0, 1));
  EXPECT_EQ(Curves(sink)[0]->color, 0x010203u);
}

TEST(AddArc, CountsTheTurnsOfALongArcAsWork) {
  support::Account account;
  const support::AccountScope scope(account);
  CMyDrawLoad sink;
  ZR_Arc round = QuarterArc();
  round.endAngle = 999.5 * 2.0 * kPi;
  const std::uint64_t before = account.Spent();
  EXPECT_TRUE(sink.AddArc(&round, 0));
  EXPECT_GT(account.Spent() - before,
            3998u * (sizeof(FileSegment) + 192));  // its sections, and what they take
}

TEST(AddArc, EndsAtASectionThatDoesNotFitAndDrawsWhatFollows) {
  support::Account account({.held = 1'000'000, .working = 500'000, .work = 100'000'000});
  const support::AccountScope scope(account);
  CMyDrawLoad sink;
  ZR_Arc round = QuarterArc();
  round.endAngle = 999.5 * 2.0 * kPi;
  int drawn = 0;
  while (drawn < 10 && support::RunItem([&] { sink.AddArc(&round, 0); })) ++drawn;
  EXPECT_LT(drawn, 3);
  account.AllowForFile(0);
  ZR_Arc quarter = QuarterArc();
  EXPECT_TRUE(sink.AddArc(&quarter, 0));
  EXPECT_EQ(Curves(sink).size(), static_cast<std::size_t>(drawn) + 1);
}

TEST(AddArc, PassesItsOwnMatrixOver) {
  CMyDrawLoad sink;
  ZR_Arc arc = QuarterArc();
  arc.matrix = {5, 0, 0, 5, 50, 50};
  sink.AddArc(&arc, 0);
  EXPECT_THAT(OnlySegments(sink)[0].start, IsAt(1, 0));
}

TEST(AddArc, IsPlacedByTheFrameAndThePage) {
  CMyDrawLoad sink;
  sink.pageMatrix = {1, 0, 0, 1, 0, 100};
  OpenFrame(sink, {3, 0, 0, 3, 10, 0});
  ZR_Arc arc = QuarterArc();
  arc.matrix = {5, 0, 0, 5, 50, 50};
  sink.AddArc(&arc, 0);
  sink.EndGroup(0);
  EXPECT_THAT(OnlySegments(sink)[0].start, IsAt(13, 100));
  EXPECT_THAT(OnlySegments(sink)[0].end, IsAt(10, 103));
}

TEST(AddArc, KeepsTheDefaultBlockWhateverItOrItsGroupStates) {
  CMyDrawLoad sink;
  ZR_Arc arc = QuarterArc();
  arc.attributes = Parameters({{"cutPower", "55"}});
  sink.AddArc(&arc, 0);
  OpenFrame(sink, {}, {{"cutSpeed", "5"}, {"cutPower", "70"}});
  sink.AddArc(&arc, 0);
  sink.EndGroup(0);
  for (const CFileCurve* curve : Curves(sink)) {
    EXPECT_EQ(curve->cutSpeed, 100.0);
    EXPECT_EQ(curve->cutPower, 30.0);
    EXPECT_EQ(curve->frequency, 0.0);
  }
}

TEST(AddArc, MakesAFullCircleFromZeroToZero) {
  CMyDrawLoad sink;
  ZR_Arc arc = QuarterArc();
  arc.endAngle = 0;
  sink.AddArc(&arc, 0);
  EXPECT_EQ(OnlySegments(sink).size(), 4u);
}

TEST(AddArc, RunsClockwiseWhenReversed) {
  CMyDrawLoad sink;
  ZR_Arc arc = QuarterArc();
  arc.reversed = 1;
  sink.AddArc(&arc, 0);
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 3u);
  EXPECT_THAT(segments[0].end, IsAt(0, -1));
}

TEST(AddArc, RefusesAnglesMoreThanAThousandTurnsApart) {
  CMyDrawLoad sink;
  ZR_Arc arc = QuarterArc();
  arc.endAngle = 1e9;
  EXPECT_FALSE(sink.AddArc(&arc, 0));
  EXPECT_FALSE(sink.HasResults());
}

TEST(SimpleCurves, AreRefusedWhenHiddenOrTheirLayerIsOff) {
  CMyDrawLoad sink;
  for (const bool layer : {false, true}) {
    const auto hide = [layer](auto entity) {
      (layer ? entity.layerOn : entity.visible) = 0;
      return entity;
    };
    ZR_Line line = hide(Line(0, 0, 1, 1));
    ZR_Circle circle = hide(Circle(1));
    ZR_Ellipse ellipse = hide(HalfEllipse(2, 1));
    ZR_Arc arc = hide(QuarterArc());
    EXPECT_FALSE(sink.AddLine(&line, 0));
    EXPECT_FALSE(sink.AddCircle(&circle, 0));
    EXPECT_FALSE(sink.AddEllipse(&ellipse, 0));
    EXPECT_FALSE(sink.AddArc(&arc, 0));
  }
  EXPECT_FALSE(sink.HasResults());
}
