#include <gmock/gmock.h>
#include <numbers>

#include "svg_drawing.h"

using Entity_ZR::PathSegment;
using Entity_ZR::Point3;
using Entity_ZR::ZR_Circle;
using Entity_ZR::ZR_Ellipse;
using Entity_ZR::ZR_Line;
using Entity_ZR::ZR_Path;
using testing::ElementsAre;
using testing::Pair;

namespace {

PathSegment Move(double x, double y) { return {1, {x, y, 0}}; }
PathSegment Line(double x, double y) { return {2, {x, y, 0}}; }

std::vector<PathSegment> SegmentsOf(const std::string& element) {
  return SvgDrawing("<svg width='200mm' height='100mm'>" + element + "</svg>").Only<ZR_Path>().segments;
}

void ExpectNear(Point3 actual, Point3 expected) {
  EXPECT_NEAR(actual.x, expected.x, 1e-12);
  EXPECT_NEAR(actual.y, expected.y, 1e-12);
  EXPECT_EQ(actual.z, 0.0);
}

}  // namespace

TEST(SvgLine, HasTwoEnds) {
  const ZR_Line line =
      SvgDrawing("<svg><line stroke='red' x1='1' y1='2' x2='3' y2='4'/></svg>").Only<ZR_Line>();
  EXPECT_EQ(line.start, (Point3{1, 2, 0}));
  EXPECT_EQ(line.end, (Point3{3, 4, 0}));
}

TEST(SvgLine, ReadsMissingEndsFromTheirDefaultTexts) {
  const ZR_Line line = SvgDrawing("<svg><line stroke='red'/></svg>").Only<ZR_Line>();
  EXPECT_EQ(line.start, (Point3{0, 0, 0}));
  EXPECT_EQ(line.end, (Point3{100, 100, 0}));
}

TEST(SvgShapes, ReadNumbersWithoutUnits) {
  const ZR_Circle circle = SvgDrawing("<svg><circle cx='10mm' cy='2in' r='abc'/></svg>").Only<ZR_Circle>();
  EXPECT_EQ(circle.center, (Point3{10, 2, 0}));
  EXPECT_EQ(circle.radius, 0.0);
}

TEST(SvgCircle, HasCentreAndRadius) {
  const ZR_Circle circle = SvgDrawing("<svg><circle cx='1' cy='2' r='3'/></svg>").Only<ZR_Circle>();
  EXPECT_EQ(circle.center, (Point3{1, 2, 0}));
  EXPECT_EQ(circle.radius, 3.0);
}

TEST(SvgEllipse, IsAWholeTurn) {
  const ZR_Ellipse ellipse =
      SvgDrawing("<svg><ellipse cx='1' cy='2' rx='3' ry='4'/></svg>").Only<ZR_Ellipse>();
  EXPECT_EQ(ellipse.center, (Point3{1, 2, 0}));
  EXPECT_EQ(ellipse.radiusX, 3.0);
  EXPECT_EQ(ellipse.radiusY, 4.0);
  EXPECT_EQ(ellipse.startAngle, 0.0);
  EXPECT_EQ(ellipse.endAngle, 6.283185307179586);
  EXPECT_EQ(ellipse.rotation, 0.0);
}

TEST(SvgPolyline, RunsThroughItsPoints) {
  EXPECT_THAT(SegmentsOf("<polyline points='1,2 3,4 5,6'/>"),
              ElementsAre(Move(1, 2), Line(3, 4), Line(5, 6)));
}

TEST(SvgPolyline, IsSentWithoutPoints) { EXPECT_THAT(SegmentsOf("<polyline/>"), ElementsAre(Move(0, 0))); }

TEST(SvgPolygon, ClosesWithALine) {
  EXPECT_THAT(SegmentsOf("<polygon points='0,0 10,0 10,10'/>"),
              ElementsAre(Move(0, 0), Line(10, 0), Line(10, 10), Line(0, 0)));
}

TEST(SvgPolygon, AddsNothingWithoutPoints) {
  EXPECT_THAT(SegmentsOf("<polygon points=' '/>"), ElementsAre(Move(0, 0)));
}

TEST(SvgPath, CopiesItsSegments) {
  EXPECT_THAT(SegmentsOf("<path d='M1 2L3 4Q5 6 7 8C1 2 3 4 5 6'/>"),
              ElementsAre(Move(1, 2), Line(3, 4), PathSegment{4, {7, 8, 0}, {5, 6, 0}},
                          PathSegment{5, {5, 6, 0}, {1, 2, 0}, {3, 4, 0}}));
}

TEST(SvgPath, StartsAtTheOriginWithoutAMove) {
  EXPECT_THAT(SegmentsOf("<path d='L3 4'/>"), ElementsAre(Move(0, 0), Line(3, 4)));
}

TEST(SvgPath, KeepsTheLastOfSeveralMoves) {
  EXPECT_THAT(SegmentsOf("<path d='M1 2M3 4L5 6M7 8M9 9'/>"),
              ElementsAre(Move(3, 4), Line(5, 6), Move(9, 9)));
}

TEST(SvgPath, DoesNotKeepSegmentsOfThePathBefore) {
  const SvgDrawing drawing("<svg><path d='M1 1L2 2L3 3'/><path d='M4 4'/><path/></svg>");
  EXPECT_THAT(drawing.All<ZR_Path>()[0]->segments, ElementsAre(Move(1, 1), Line(2, 2), Line(3, 3)));
  EXPECT_THAT(drawing.All<ZR_Path>()[1]->segments, ElementsAre(Move(4, 4)));
  EXPECT_THAT(drawing.All<ZR_Path>()[2]->segments, ElementsAre(Move(0, 0)));
}

TEST(SvgRect, EndsWhereItStarts) {
  EXPECT_THAT(SegmentsOf("<rect x='1' y='2' width='10' height='20'/>"),
              ElementsAre(Move(1, 2), Line(11, 2), Line(11, 22), Line(1, 22), Line(1, 2)));
}

TEST(SvgRect, ResolvesUnitsAndSharesOfThePageForItsSize) {
  EXPECT_THAT(SegmentsOf("<rect width='50%' height='10%'/>"),
              ElementsAre(Move(0, 0), Line(100, 0), Line(100, 10), Line(0, 10), Line(0, 0)));
  EXPECT_THAT(SegmentsOf("<rect x='5mm' width='2cm' height='1in'/>"),
              ElementsAre(Move(5, 0), Line(25, 0), Line(25, 25.4), Line(5, 25.4), Line(5, 0)));
}

TEST(SvgRect, ReadsItsPlaceAndRadiiWithoutUnits) {
  EXPECT_EQ(SegmentsOf("<rect x='5cm' y='6in' width='40' height='40' rx='2cm'/>")[0], Move(7, 6));
}

TEST(SvgRect, RoundsItsCornersClockwise) {
  const std::vector<PathSegment> s = SegmentsOf("<rect width='10' height='20' rx='2' ry='3'/>");
  ASSERT_EQ(s.size(), 9U);
  // A quarter of an ellipse has the tangent length 4/3 (sqrt(2) - 1) of each radius.
  const double k = 4.0 / 3.0 * (std::numbers::sqrt2 - 1);
  EXPECT_EQ(s[0], Move(2, 0));
  EXPECT_EQ(s[1], Line(8, 0));
  EXPECT_EQ(s[2].type, 5);
  ExpectNear(s[2].control1, {8 + 2 * k, 0, 0});
  ExpectNear(s[2].control2, {10, 3 - 3 * k, 0});
  ExpectNear(s[2].end, {10, 3, 0});
  EXPECT_EQ(s[3], Line(10, 17));
  ExpectNear(s[4].control1, {10, 17 + 3 * k, 0});
  ExpectNear(s[4].control2, {8 + 2 * k, 20, 0});
  ExpectNear(s[4].end, {8, 20, 0});
  EXPECT_EQ(s[5], Line(2, 20));
  ExpectNear(s[6].control1, {2 - 2 * k, 20, 0});
  ExpectNear(s[6].control2, {0, 17 + 3 * k, 0});
  ExpectNear(s[6].end, {0, 17, 0});
  EXPECT_EQ(s[7], Line(0, 3));
  ExpectNear(s[8].control1, {0, 3 - 3 * k, 0});
  ExpectNear(s[8].control2, {2 - 2 * k, 0, 0});
  ExpectNear(s[8].end, {2, 0, 0});
}

TEST(SvgRect, TakesALoneRadiusForBothUnclamped) {
  EXPECT_EQ(SegmentsOf("<rect width='20' height='2' rx='5'/>")[3], Line(20, -3));
  EXPECT_EQ(SegmentsOf("<rect width='2' height='20' ry='5'/>")[0], Move(5, 0));
}

TEST(SvgRect, ClampsTwoRadii) {
  const std::vector<PathSegment> s = SegmentsOf("<rect width='10' height='4' rx='8' ry='8'/>");
  EXPECT_EQ(s[0], Move(5, 0));
  EXPECT_EQ(s[3], Line(10, 2));
}

TEST(SvgRect, IsNotRoundedByRadiiThatSumToNothing) {
  EXPECT_EQ(SegmentsOf("<rect width='10' height='4' rx='0.0004' ry='0.0004'/>").size(), 5U);
  EXPECT_THAT(SegmentsOf("<rect width='10' height='10' rx='-1' ry='1'/>"),
              ElementsAre(Move(-1, 0), Line(11, 0), Line(10, 9), Line(-1, 10), Line(0, 1)));
  EXPECT_EQ(SegmentsOf("<rect width='10' height='4' rx='0.0006' ry='0.0006'/>").size(), 9U);
  EXPECT_EQ(SegmentsOf("<rect width='10' height='4' rx='0.00052' ry='0.0005'/>").size(), 9U);
  EXPECT_EQ(SegmentsOf("<rect width='10' height='4' rx='-2' ry='-2'/>").size(), 9U);
}

TEST(SvgRect, TakesTheRadiiOfCornersForAHundredthAtLeast) {
  const std::vector<PathSegment> s = SegmentsOf("<rect width='10' height='4' rx='0.002' ry='0.002'/>");
  ASSERT_EQ(s.size(), 9U);
  ExpectNear(s[2].end, {10 - 0.002 + 0.01, 0.002, 0});
  ExpectNear(s[4].end, {10 - 0.002, 4 - 0.002 + 0.01, 0});
}

TEST(SvgShapes, TakeTheirGeometryOutOfThePairs) {
  const SvgDrawing drawing(
      "<svg><line stroke='red' x1='1' y1='1' x2='1' y2='1' a='1'/><rect x='1' y='1' width='1' height='1' "
      "rx='1' ry='1' "
      "a='2'/><circle cx='1' cy='1' r='1' a='3'/><ellipse cx='1' cy='1' rx='1' ry='1' a='4'/><polyline "
      "points='1,1' "
      "a='5'/><polygon points='1,1' a='6'/><path d='M1 1' a='7'/></svg>");
  int count = 0;
  for (const RecordedCall& call : drawing.sink.calls) {
    if (call.entity == nullptr) continue;
    EXPECT_THAT(ParametersOf(*call.entity), ElementsAre(Pair("a", std::to_string(++count))));
  }
  EXPECT_EQ(count, 7);
}

TEST(SvgShapes, LeaveKeysOfOtherShapesInThePairs) {
  EXPECT_THAT(ParametersOf(SvgDrawing("<svg><circle x='1' d='2' r='3'/></svg>").Only<ZR_Circle>()),
              ElementsAre(Pair("d", "2"), Pair("x", "1")));
}
