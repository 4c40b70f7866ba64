#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

#include "dxf/dxf_blocks.h"
#include "dxf/dxf_hatch.h"
#include "dxf/dxf_polylines.h"
#include "dxf/dxf_shapes.h"
#include "dxf/dxf_text.h"

namespace {

using Coord = DXF_Coord;
constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2 * std::numbers::pi;

template <typename Record>
Record WithNormal(Coord normal) {
  Record record;
  record.extrusion = normal;
  record.hasExtrusion = true;
  return record;
}

void ExpectNear(const Coord& actual, const Coord& expected) {
  EXPECT_NEAR(actual.x, expected.x, 1e-12);
  EXPECT_NEAR(actual.y, expected.y, 1e-12);
  EXPECT_NEAR(actual.z, expected.z, 1e-12);
}

/// Where a circle's centre (1, 2, 3) goes.
Coord Mapped(Coord normal) {
  auto circle = WithNormal<DXF_Circle>(normal);
  circle.point = {1, 2, 3};
  circle.applyExtrusion();
  return circle.point;
}

TEST(Extrusion, LeavesPointsUnderTheZAxis) { ExpectNear(Mapped({0, 0, 1}), {1, 2, 3}); }

// Near the z axis x comes from y x N: for N = -z that is (-1, 0, 0), and y stays (0, 1, 0).
TEST(Extrusion, MirrorsXUnderTheNegativeZAxis) { ExpectNear(Mapped({0, 0, -1}), {-1, 2, -3}); }

// Elsewhere x comes from z x N: for N = x that is (0, 1, 0), and y is (0, 0, 1).
TEST(Extrusion, TurnsPointsUnderTheXAxis) { ExpectNear(Mapped({1, 0, 0}), {3, 1, 2}); }

// For N = y, z x N is (-1, 0, 0), and y is (0, 0, 1).
TEST(Extrusion, TurnsPointsUnderTheYAxis) { ExpectNear(Mapped({0, 1, 0}), {-1, 3, 2}); }

TEST(Extrusion, ScalesNormalsDepthButNotTheAxes) { ExpectNear(Mapped({0, 0, 5}), {1, 2, 15}); }

TEST(Extrusion, ChangesTheRuleAtOneSixtyFourth) {
  // Just below on x: y x N = (1, 0, -nx). At the bound: z x N = (0, nx, 0), a quarter turn.
  EXPECT_NEAR(Mapped({0.0156, 0, 1}).y, 2.0, 1e-3);
  EXPECT_NEAR(Mapped({0.015625, 0, 1}).y, 1.0, 1e-3);
  EXPECT_NEAR(Mapped({-0.015625, 0, 1}).y, -1.0, 1e-3);
  EXPECT_NEAR(Mapped({0, 0.015625, 1}).x, -1.0, 1e-3);
}

TEST(Extrusion, NeedsGroup210) {
  DXF_Circle circle;
  circle.extrusion = {0, 0, -1};
  circle.point = {1, 2, 3};
  circle.applyExtrusion();
  EXPECT_EQ(circle.point, (Coord{1, 2, 3}));
}

TEST(Extrusion, FixesAZeroNormalOfAPoint) {
  auto point = WithNormal<DXF_Point>({0, 0, 0});
  point.point = {1, 2, 3};
  point.applyExtrusion();
  EXPECT_EQ(point.extrusion, (Coord{0, 0, 1}));
  ExpectNear(point.point, {1, 2, 3});
}

TEST(Extrusion, MapsAPoint) {
  auto point = WithNormal<DXF_Point>({0, 0, -1});
  point.point = {1, 2, 3};
  point.applyExtrusion();
  ExpectNear(point.point, {-1, 2, -3});
}

TEST(Extrusion, MapsToTheOriginUnderAZeroNormalThatNoStepFixes) {
  EXPECT_EQ(Mapped({0, 0, 0}), (Coord{0, 0, 0}));
}

DXF_Arc ArcUnder(Coord normal) {
  auto arc = WithNormal<DXF_Arc>(normal);
  arc.point = {1, 2, 0};
  arc.startAngle = 0.5;
  arc.endAngle = 2.0;
  arc.applyExtrusion();
  return arc;
}

TEST(ArcExtrusion, MirrorsTheAnglesUnderTheNegativeZAxis) {
  const DXF_Arc arc = ArcUnder({0, 0, -1});
  EXPECT_EQ(arc.startAngle, kPi - 2.0);
  EXPECT_EQ(arc.endAngle, kPi - 0.5);
  ExpectNear(arc.point, {-1, 2, 0});
}

TEST(ArcExtrusion, TurnsTheAnglesRoundFarOffTheZAxisOnTheNegativeSide) {
  const DXF_Arc arc = ArcUnder({-0.6, 0, -0.8});
  EXPECT_EQ(arc.startAngle, kTwoPi - 2.0);
  EXPECT_EQ(arc.endAngle, kTwoPi - 0.5);
}

TEST(ArcExtrusion, LeavesTheAnglesOtherwise) {
  for (const Coord normal : {Coord{0, 0, 1}, Coord{0.6, 0, -0.8}, Coord{0, 0.6, -0.8}, Coord{-0.6, 0, 0.8}}) {
    EXPECT_EQ(ArcUnder(normal).startAngle, 0.5);
    EXPECT_EQ(ArcUnder(normal).endAngle, 2.0);
  }
}

TEST(ArcExtrusion, CountsANormalWithoutGroup210) {
  DXF_Arc arc;
  arc.extrusion = {0, 0, -1};
  arc.point = {1, 0, 0};
  arc.applyExtrusion();
  EXPECT_TRUE(arc.hasExtrusion);
  ExpectNear(arc.point, {-1, 0, 0});
}

DXF_Ellipse EllipseUnder(Coord normal) {
  auto ellipse = WithNormal<DXF_Ellipse>(normal);
  ellipse.point = {1, 2, 0};
  ellipse.secondPoint = {3, 4, 0};
  ellipse.startParam = 0.5;
  ellipse.endParam = 2.0;
  ellipse.applyExtrusion();
  return ellipse;
}

TEST(EllipseExtrusion, MapsTheAxisAndNotTheCentre) {
  const DXF_Ellipse ellipse = EllipseUnder({0, 0, -1});
  EXPECT_EQ(ellipse.point, (Coord{1, 2, 0}));
  ExpectNear(ellipse.secondPoint, {-3, 4, 0});
}

TEST(EllipseExtrusion, SwapsTheParametersWithZBelowZero) {
  const DXF_Ellipse ellipse = EllipseUnder({0, 0, -1});
  EXPECT_EQ(ellipse.startParam, kTwoPi - 2.0);
  EXPECT_EQ(ellipse.endParam, kTwoPi - 0.5);
}

TEST(EllipseExtrusion, WrapsTheParametersInPlaceWithYAboveZero) {
  const DXF_Ellipse ellipse = EllipseUnder({0, 0.6, -0.8});
  EXPECT_EQ(ellipse.startParam, kTwoPi - 0.5);
  EXPECT_EQ(ellipse.endParam, kTwoPi - 2.0);
}

TEST(EllipseExtrusion, BringsWrappedParametersIntoOneTurn) {
  auto ellipse = WithNormal<DXF_Ellipse>({0, 0.6, -0.8});
  ellipse.startParam = -1.0;
  ellipse.endParam = 7.0;
  ellipse.applyExtrusion();
  EXPECT_NEAR(ellipse.startParam, 1.0, 1e-12);
  EXPECT_NEAR(ellipse.endParam, 2 * kTwoPi - 7.0, 1e-12);
}

TEST(EllipseExtrusion, LeavesTheParametersWithZAboveZero) {
  const DXF_Ellipse ellipse = EllipseUnder({0, 0.6, 0.8});
  EXPECT_EQ(ellipse.startParam, 0.5);
  EXPECT_EQ(ellipse.endParam, 2.0);
}

TEST(LWPolylineExtrusion, MapsVerticesWithTheElevationAndNegatesBulges) {
  auto polyline = WithNormal<DXF_LWPolyline>({1, 0, 0});
  polyline.elevation = 3;
  polyline.vertices = {{1, 2, 0, 0, 0.5}, {4, 5, 0, 0, -0.25}};
  polyline.applyExtrusion();
  // Under the x axis a point (x, y, elevation) goes to (elevation, x, y).
  EXPECT_NEAR(polyline.vertices[0].x, 3, 1e-12);
  EXPECT_NEAR(polyline.vertices[0].y, 1, 1e-12);
  EXPECT_NEAR(polyline.vertices[1].y, 4, 1e-12);
  EXPECT_EQ(polyline.vertices[0].bulge, -0.5);
  EXPECT_EQ(polyline.vertices[1].bulge, 0.25);
}

TEST(LWPolylineExtrusion, NegatesBulgesAlsoUnderTheZAxis) {
  auto polyline = WithNormal<DXF_LWPolyline>({0, 0, 1});
  polyline.vertices = {{1, 2, 0, 0, 0.5}};
  polyline.applyExtrusion();
  EXPECT_EQ(polyline.vertices[0].x, 1.0);
  EXPECT_EQ(polyline.vertices[0].bulge, -0.5);
}

TEST(LWPolylineExtrusion, FixesAZeroNormal) {
  auto polyline = WithNormal<DXF_LWPolyline>({0, 0, 0});
  polyline.vertices = {{1, 2, 0, 0, 0}};
  polyline.applyExtrusion();
  EXPECT_EQ(polyline.extrusion, (Coord{0, 0, 1}));
  EXPECT_EQ(polyline.vertices[0].y, 2.0);
}

TEST(LWPolylineExtrusion, DoesNothingWithoutGroup210) {
  DXF_LWPolyline polyline;
  polyline.vertices = {{1, 2, 0, 0, 0.5}};
  polyline.applyExtrusion();
  EXPECT_EQ(polyline.vertices[0].bulge, 0.5);
}

TEST(PolylineExtrusion, MapsEachVertex) {
  auto polyline = WithNormal<DXF_Polyline>({0, 0, -1});
  polyline.vertices = {std::make_shared<DXF_Vertex>(), std::make_shared<DXF_Vertex>()};
  polyline.vertices[0]->point = {1, 2, 3};
  polyline.vertices[0]->bulge = 0.5;
  polyline.vertices[1]->point = {4, 5, 6};
  polyline.applyExtrusion();
  ExpectNear(polyline.vertices[0]->point, {-1, 2, -3});
  ExpectNear(polyline.vertices[1]->point, {-4, 5, -6});
  EXPECT_EQ(polyline.vertices[0]->bulge, 0.5);
}

TEST(PolylineExtrusion, MapsAVertexAsOftenAsItStandsInTheList) {
  auto polyline = WithNormal<DXF_Polyline>({1, 0, 0});
  const auto vertex = std::make_shared<DXF_Vertex>();
  vertex->point = {1, 2, 3};
  polyline.vertices = {vertex, vertex};
  polyline.applyExtrusion();
  // Once: (3, 1, 2). Twice: (2, 3, 1).
  ExpectNear(vertex->point, {2, 3, 1});
}

TEST(PolylineExtrusion, FixesAZeroNormal) {
  auto polyline = WithNormal<DXF_Polyline>({0, 0, 0});
  polyline.applyExtrusion();
  EXPECT_EQ(polyline.extrusion, (Coord{0, 0, 1}));
}

template <typename Record>
class NeverMapped : public testing::Test {};
using NeverMappedRecords = testing::Types<DXF_Line, DXF_Text, DXF_MText, DXF_Solid, DXF_Image, DXF_Hatch>;
TYPED_TEST_SUITE(NeverMapped, NeverMappedRecords);

TYPED_TEST(NeverMapped, KeepsItsPointUnderAnyNormal) {
  auto record = WithNormal<TypeParam>({0, 0, -1});
  record.point = {1, 2, 3};
  record.applyExtrusion();
  EXPECT_EQ(record.point, (Coord{1, 2, 3}));
}

TEST(NeverMappedSpline, KeepsItsPoints) {
  DXF_Spline spline;
  spline.hasExtrusion = true;
  spline.controlPoints = {{1, 2, 3}};
  spline.applyExtrusion();
  EXPECT_EQ(spline.controlPoints[0], (Coord{1, 2, 3}));
}

}  // namespace
