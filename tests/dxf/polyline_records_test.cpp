#include <gtest/gtest.h>

#include "dxf/dxf_polylines.h"
#include "dxf/dxf_spline.h"
#include "dxf/tag_text.h"

namespace {

using Coord = DXF_Coord;

TEST(VertexRecord, TakesItsGroups) {
  const auto record =
      Parsed<DXF_Vertex>("10|1|20|2|30|3|40|4|41|5|42|0.5|70|6|50|45|71|7|72|8|73|9|74|10|91|11|8|a");
  EXPECT_EQ(record.kind, 24);
  EXPECT_EQ(record.point, (Coord{1, 2, 3}));
  EXPECT_EQ(record.startWidth, 4.0);
  EXPECT_EQ(record.endWidth, 5.0);
  EXPECT_EQ(record.bulge, 0.5);
  EXPECT_EQ(record.flags, 6);
  EXPECT_EQ(record.tangentAngle, 45.0);
  EXPECT_EQ(record.faceIndex, (std::array<std::int32_t, 4>{7, 8, 9, 10}));
  EXPECT_EQ(record.identifier, 11);
  EXPECT_EQ(record.layer, "a");
}

TEST(PolylineRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_Polyline>("10|1|20|2|30|3|70|1|40|4|41|5|71|6|72|7|73|8|74|9|75|10");
  EXPECT_EQ(record.kind, 3);
  EXPECT_EQ(record.point, (Coord{1, 2, 3}));
  EXPECT_EQ(record.flags, 1);
  EXPECT_EQ(record.defaultStartWidth, 4.0);
  EXPECT_EQ(record.defaultEndWidth, 5.0);
  EXPECT_EQ(record.meshCountM, 6);
  EXPECT_EQ(record.meshCountN, 7);
  EXPECT_EQ(record.smoothM, 8);
  EXPECT_EQ(record.smoothN, 9);
  EXPECT_EQ(record.curveType, 10);
  EXPECT_TRUE(record.vertices.empty());
}

TEST(LWPolylineRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_LWPolyline>(
      "90|2|70|1|43|0.5|38|1.5|39|2.5|210|0|220|0|230|-1|10|1|20|2|40|3|41|4|42|5|10|6|20|7|8|a");
  EXPECT_EQ(record.kind, 4);
  EXPECT_EQ(record.vertexCount, 2);
  EXPECT_EQ(record.flags, 1);
  EXPECT_EQ(record.width, 0.5);
  EXPECT_EQ(record.elevation, 1.5);
  EXPECT_EQ(record.thickness, 2.5);
  EXPECT_EQ(record.extrusion, (Coord{0, 0, -1}));
  EXPECT_TRUE(record.hasExtrusion);
  ASSERT_EQ(record.vertices.size(), 2U);
  EXPECT_EQ(record.vertices[0], (DXF_Vertex2D{1, 2, 3, 4, 5}));
  EXPECT_EQ(record.vertices[1], (DXF_Vertex2D{6, 7, 0, 0, 0}));
  EXPECT_EQ(record.layer, "a");
}

TEST(LWPolylineRecord, DropsVertexGroupsBeforeTheFirstVertex) {
  const auto record = Parsed<DXF_LWPolyline>("20|9|40|9|41|9|42|9|10|1");
  ASSERT_EQ(record.vertices.size(), 1U);
  EXPECT_EQ(record.vertices[0], (DXF_Vertex2D{1, 0, 0, 0, 0}));
}

TEST(LWPolylineRecord, ReservesWithoutMakingVertices) {
  const auto record = Parsed<DXF_LWPolyline>("90|2|10|1|20|1|90|5|10|2|20|2");
  EXPECT_EQ(record.vertexCount, 5);
  EXPECT_EQ(record.vertices.size(), 2U);
}

TEST(LWPolylineRecord, TakesNoRoomForALyingCount) {
  EXPECT_LE(Parsed<DXF_LWPolyline>("90|2000000000|10|1").vertices.capacity(), 16U);
  EXPECT_EQ(Parsed<DXF_LWPolyline>("90|-5").vertices.capacity(), 0U);
}

TEST(SplineRecord, HasItsDefaults) {
  const DXF_Spline record;
  EXPECT_EQ(record.kind, 5);
  EXPECT_EQ(record.flags, 0);
  EXPECT_EQ(record.degree, 1);
  EXPECT_EQ(record.knotCount, 0);
  EXPECT_EQ(record.controlCount, 0);
  EXPECT_EQ(record.fitCount, 0);
  EXPECT_EQ(record.knotTolerance, 1e-7);
  EXPECT_EQ(record.controlTolerance, 1e-7);
  EXPECT_EQ(record.fitTolerance, 1e-7);
}

TEST(SplineRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_Spline>(
      "12|1|22|2|32|3|13|4|23|5|33|6|70|8|71|3|72|2|73|2|74|1|42|0.1|43|0.2|44|0.3|40|0|40|1|41|0.5|41|0.75|"
      "10|1|20|2|30|"
      "3|10|4|20|5|30|6|11|7|21|8|31|9|8|a");
  EXPECT_EQ(record.startTangent, (Coord{1, 2, 3}));
  EXPECT_EQ(record.endTangent, (Coord{4, 5, 6}));
  EXPECT_EQ(record.flags, 8);
  EXPECT_EQ(record.degree, 3);
  EXPECT_EQ(record.knotCount, 2);
  EXPECT_EQ(record.controlCount, 2);
  EXPECT_EQ(record.fitCount, 1);
  EXPECT_EQ(record.knotTolerance, 0.1);
  EXPECT_EQ(record.controlTolerance, 0.2);
  EXPECT_EQ(record.fitTolerance, 0.3);
  EXPECT_EQ(record.knots, (DXF_List<double>{0, 1}));
  EXPECT_EQ(record.weights, (DXF_List<double>{0.5, 0.75}));
  EXPECT_EQ(record.controlPoints, (DXF_List<Coord>{{1, 2, 3}, {4, 5, 6}}));
  EXPECT_EQ(record.fitPoints, (DXF_List<Coord>{{7, 8, 9}}));
  EXPECT_EQ(record.layer, "a");
}

TEST(SplineRecord, DropsPointPartsBeforeTheFirstPoint) {
  const auto record = Parsed<DXF_Spline>("20|1|30|1|21|1|31|1");
  EXPECT_TRUE(record.controlPoints.empty());
  EXPECT_TRUE(record.fitPoints.empty());
}

TEST(HelixRecord, TakesItsOwnGroups) {
  const auto record = Parsed<DXF_Helix>(
      "90|29|91|63|10|1|20|2|30|3|11|4|21|5|31|6|12|7|22|8|32|9|40|1.5|41|2.5|42|3.5|290|1|280|2|8|a");
  EXPECT_EQ(record.kind, 14);
  EXPECT_EQ(record.majorVersion, 29);
  EXPECT_EQ(record.minorVersion, 63);
  EXPECT_EQ(record.axisBase, (Coord{1, 2, 3}));
  EXPECT_EQ(record.startPoint, (Coord{4, 5, 6}));
  EXPECT_EQ(record.axisVector, (Coord{7, 8, 9}));
  EXPECT_EQ(record.radius, 1.5);
  EXPECT_EQ(record.turns, 2.5);
  EXPECT_EQ(record.turnHeight, 3.5);
  EXPECT_EQ(record.handedness, 1);
  EXPECT_EQ(record.constraint, 2);
  EXPECT_EQ(record.layer, "a");
  EXPECT_TRUE(record.spline.controlPoints.empty());
  EXPECT_TRUE(record.spline.knots.empty());
}

TEST(HelixRecord, HandsTheTagsFromGroup70To90ToItsSplineToo) {
  const auto record = Parsed<DXF_Helix>("40|9|70|8|71|3|40|0.5|10|1|20|2|90|29|40|7|10|3");
  EXPECT_EQ(record.spline.flags, 8);
  EXPECT_EQ(record.spline.degree, 3);
  EXPECT_EQ(record.spline.knots, (DXF_List<double>{0.5}));
  EXPECT_EQ(record.spline.controlPoints, (DXF_List<Coord>{{1, 2, 0}}));
  EXPECT_EQ(record.radius, 7.0);
  EXPECT_EQ(record.axisBase, (Coord{3, 2, 0}));
}

}  // namespace
