#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numbers>

#include "drawing.h"

namespace {

using namespace Entity_ZR;
using std::numbers::pi;
using testing::ElementsAre;

constexpr double kClose = 1e-12;

TEST(ConvertShapes, ConvertsAPoint) {
  EXPECT_EQ(ReadOne<ZR_Point>("0|POINT|10|1|20|2|30|3")->position, (Point3{1, 2, 3}));
}

TEST(ConvertShapes, ConvertsALineWithItsYAsItStands) {
  const auto line = ReadOne<ZR_Line>("0|LINE|10|1|20|-2|30|3|11|4|21|5|31|6");
  EXPECT_EQ(line->start, (Point3{1, -2, 3}));
  EXPECT_EQ(line->end, (Point3{4, 5, 6}));
}

TEST(ConvertShapes, ConvertsACircle) {
  const auto circle = ReadOne<ZR_Circle>("0|CIRCLE|10|1|20|2|40|2.5");
  EXPECT_EQ(circle->center, (Point3{1, 2, 0}));
  EXPECT_EQ(circle->radius, 2.5);
}

TEST(ConvertShapes, ConvertsAnArcWithItsAnglesInRadians) {
  const auto arc = ReadOne<ZR_Arc>("0|ARC|10|1|20|2|40|2.5|50|90|51|180");
  EXPECT_EQ(arc->center, (Point3{1, 2, 0}));
  EXPECT_EQ(arc->radius, 2.5);
  EXPECT_NEAR(arc->startAngle, pi / 2, kClose);
  EXPECT_NEAR(arc->endAngle, pi, kClose);
  EXPECT_EQ(arc->reversed, 0);
}

TEST(ConvertShapes, ConvertsASolid) {
  const auto solid = ReadOne<ZR_Solid>("0|SOLID|10|1|20|2|11|3|21|4|12|5|22|6|13|7|23|8|33|9");
  EXPECT_EQ(solid->corners[0], (Point3{1, 2, 0}));
  EXPECT_EQ(solid->corners[1], (Point3{3, 4, 0}));
  EXPECT_EQ(solid->corners[2], (Point3{5, 6, 0}));
  EXPECT_EQ(solid->corners[3], (Point3{7, 8, 9}));
}

TEST(ConvertShapes, ConvertsAWholeEllipse) {
  const auto ellipse = ReadOne<ZR_Ellipse>("0|ELLIPSE|10|1|20|2|11|3|21|4|40|0.5|41|0|42|6.283185307179586");
  EXPECT_EQ(ellipse->center, (Point3{1, 2, 0}));
  EXPECT_EQ(ellipse->radiusX, 5.0);
  EXPECT_EQ(ellipse->radiusY, 2.5);
  EXPECT_EQ(ellipse->startAngle, 0.0);
  EXPECT_NEAR(ellipse->endAngle, 2 * pi, kClose);
  EXPECT_NEAR(ellipse->rotation, std::atan2(4, 3), kClose);
  EXPECT_EQ(ellipse->reversed, 0);
}

/// Angle of the ellipse with half axes 2 and 1 whose one parameter is `parameter`.
double StartAngleAt(double parameter, const std::string& tags = "") {
  return ReadOne<ZR_Ellipse>("0|ELLIPSE|11|2|21|0|40|0.5|41|" + std::to_string(parameter) + "|42|1|" + tags)
      ->startAngle;
}

TEST(ConvertShapes, TurnsAnEllipsesParameterIntoAnAngleInEachQuadrant) {
  constexpr double kRounded = 1e-6;  // the file states six digits
  // At the parameter pi/4 the point is (2, 1)/sqrt(2), so its angle has the tangent 1/2.
  EXPECT_NEAR(StartAngleAt(pi / 4), std::atan(0.5), kRounded);
  EXPECT_NEAR(StartAngleAt(3 * pi / 4), pi - std::atan(0.5), kRounded);
  EXPECT_NEAR(StartAngleAt(5 * pi / 4), pi + std::atan(0.5), kRounded);
  EXPECT_NEAR(StartAngleAt(7 * pi / 4), 2 * pi - std::atan(0.5), kRounded);
  EXPECT_NEAR(StartAngleAt(pi / 2), pi / 2, kRounded);
}

TEST(ConvertShapes, AddsHalfATurnToTheAnglesOfAnEllipseThatLooksDown) {
  // The record's own extrusion step comes first: it exchanges the parameters and takes them from 2 pi.
  const auto ellipse =
      ReadOne<ZR_Ellipse>("0|ELLIPSE|11|0|21|2|40|0.5|41|0|42|1.5707963267948966|210|0|220|0|230|-1");
  EXPECT_NEAR(ellipse->startAngle, 3 * pi / 2 + pi, kClose);
  EXPECT_NEAR(ellipse->endAngle, 2 * pi + pi, kClose);
}

TEST(ConvertShapes, NegatesTheMajorAxisYForTheRotationOfAnEllipseThatLooksDown) {
  // Mapped through the normal (0, 0, -1), whose axes are (-1, 0, 0) and (0, 1, 0), the major axis is (-3, 4).
  const auto ellipse = ReadOne<ZR_Ellipse>("0|ELLIPSE|11|3|21|4|40|0.5|41|0|42|1|210|0|220|0|230|-1");
  EXPECT_NEAR(ellipse->rotation, std::atan2(-4, -3), kClose);
}

TEST(ConvertShapes, SurvivesAnEllipseWithoutSize) {
  const auto ellipse = ReadOne<ZR_Ellipse>("0|ELLIPSE|40|0|41|0|42|1");
  EXPECT_EQ(ellipse->radiusX, 0.0);
}

TEST(ConvertShapes, ConvertsAPolylineWithItsVertices) {
  const auto polyline = ReadOne<ZR_Polyline>(
      "0|POLYLINE|66|1|10|0|20|0|30|7|70|9|40|0.5|41|0.75|71|3|72|4|73|5|74|6|75|8|"
      "0|VERTEX|10|1|20|2|30|3|40|0.1|41|0.2|42|0.5|70|8|50|30|71|1|72|-2|73|3|74|4|91|77|"
      "0|VERTEX|10|4|20|5|0|SEQEND|8|0");
  EXPECT_EQ(polyline->elevationPoint, (Point3{0, 0, 7}));
  EXPECT_EQ(polyline->polylineFlags, 9);
  EXPECT_EQ(polyline->startWidth, 0.5);
  EXPECT_EQ(polyline->endWidth, 0.75);
  EXPECT_EQ(polyline->meshCountM, 3);
  EXPECT_EQ(polyline->meshCountN, 4);
  EXPECT_EQ(polyline->smoothM, 5);
  EXPECT_EQ(polyline->smoothN, 6);
  EXPECT_EQ(polyline->curveType, 8);
  EXPECT_EQ(polyline->vertexCount, 2);
  ASSERT_EQ(polyline->vertices.size(), 2u);
  EXPECT_EQ(*polyline->vertices[0], (PolylineVertex{1, 2, 3, 0.1, 0.2, 0, 0.5, 8, 30, {1, -2, 3, 4}, 77}));
  EXPECT_EQ(*polyline->vertices[1], (PolylineVertex{4, 5, 0, 0, 0, 0, 0, 0, 0, {0, 0, 0, 0}, 0}));
}

TEST(ConvertShapes, ConvertsALightWeightPolyline) {
  const auto polyline = ReadOne<ZR_LWPolyline>(
      "0|LWPOLYLINE|90|3|70|129|43|0.5|38|2|39|4|10|1|20|2|40|0.1|41|0.2|42|1|10|3|20|4");
  EXPECT_EQ(polyline->vertexCount, 3);
  EXPECT_EQ(polyline->closed, 1);
  EXPECT_EQ(polyline->width, 0.5);
  EXPECT_EQ(polyline->elevation, 2.0);
  EXPECT_EQ(polyline->thickness, 4.0);
  EXPECT_THAT(polyline->vertices, ElementsAre(LWVertex{1, 2, 0.1, 0.2, 1}, LWVertex{3, 4, 0, 0, 0}));
}

TEST(ConvertShapes, TakesOnlyTheLowestFlagOfALightWeightPolylineAsClosed) {
  EXPECT_EQ(ReadOne<ZR_LWPolyline>("0|LWPOLYLINE|70|128|10|1|20|2")->closed, 0);
}

const std::string kSpline =
    "70|9|71|2|72|6|73|3|74|1|42|0.1|43|0.2|44|0.3|12|1|22|2|32|3|13|4|23|5|33|6|"
    "40|0|40|0|40|0|40|1|40|1|40|1|10|1|20|2|30|3|41|1|10|4|20|5|41|0.5|10|7|20|8|41|1|11|9|21|8|31|7|";

void ExpectTheSpline(const ZR_Spline& spline) {
  EXPECT_EQ(spline.flags, 9);
  EXPECT_EQ(spline.degree, 2);
  EXPECT_EQ(spline.knotCount, 6);
  EXPECT_EQ(spline.controlCount, 3);
  EXPECT_EQ(spline.fitCount, 1);
  EXPECT_EQ(spline.knotTolerance, 0.1);
  EXPECT_EQ(spline.controlTolerance, 0.2);
  EXPECT_EQ(spline.fitTolerance, 0.3);
  EXPECT_EQ(spline.startTangent, (Point3{1, 2, 3}));
  EXPECT_EQ(spline.endTangent, (Point3{4, 5, 6}));
  EXPECT_THAT(spline.knots, ElementsAre(0, 0, 0, 1, 1, 1));
  EXPECT_THAT(spline.weights, ElementsAre(1, 0.5, 1));
  EXPECT_THAT(spline.controlPoints, ElementsAre(Point3{1, 2, 3}, Point3{4, 5, 0}, Point3{7, 8, 0}));
  EXPECT_THAT(spline.fitPoints, ElementsAre(Point3{9, 8, 7}));
}

TEST(ConvertShapes, ConvertsASpline) { ExpectTheSpline(*ReadOne<ZR_Spline>("0|SPLINE|" + kSpline)); }

TEST(ConvertShapes, ConvertsAHelixWithItsSpline) {
  const auto helix =
      ReadOne<ZR_Helix>("0|HELIX|62|1|" + kSpline +
                        "90|29|91|63|10|1|20|2|30|3|11|4|21|5|31|6|12|0|22|0|32|1|40|7|41|8|42|9|"
                        "290|1|280|2");
  EXPECT_EQ(helix->axisBase, (Point3{1, 2, 3}));
  EXPECT_EQ(helix->start, (Point3{4, 5, 6}));
  EXPECT_EQ(helix->axis, (Point3{0, 0, 1}));
  EXPECT_EQ(helix->radius, 7.0);
  EXPECT_EQ(helix->turns, 8.0);
  EXPECT_EQ(helix->turnHeight, 9.0);
  EXPECT_EQ(helix->clockwise, 0);
  EXPECT_EQ(helix->constraint, 2);
  EXPECT_EQ(helix->spline.color, helix->color);
  ExpectTheSpline(helix->spline);
}

TEST(ConvertShapes, TurnsTheHandednessOfAHelixRound) {
  EXPECT_EQ(ReadOne<ZR_Helix>("0|HELIX|290|0")->clockwise, 1);
}

}  // namespace
