#include <gtest/gtest.h>
#include <variant>

#include "dxf/dxf_hatch.h"
#include "dxf/tag_text.h"

namespace {

using Coord = DXF_Coord;

template <typename Edge>
const Edge& EdgeOf(const DXF_Hatch& hatch, std::size_t i) {
  return *std::get<std::shared_ptr<const Edge>>(hatch.edges.at(i).record);
}

std::vector<std::int32_t> TypesOf(const DXF_Hatch& hatch) {
  std::vector<std::int32_t> types;
  for (const DXF_HatchEdge& edge : hatch.edges) types.push_back(edge.type());
  return types;
}

TEST(HatchRecord, HasItsDefaults) {
  const DXF_Hatch record;
  EXPECT_EQ(record.kind, 13);
  EXPECT_EQ(record.patternName, "SOLID");
  EXPECT_EQ(record.fillType, 0);
  EXPECT_EQ(record.pathFlags, 0);
  EXPECT_EQ(record.edgeType, 0);
  EXPECT_EQ(record.seedCount, 0);
  EXPECT_TRUE(record.edges.empty());
}

TEST(HatchRecord, TakesItsOwnGroups) {
  const auto record = Parsed<DXF_Hatch>(
      "2|ANSI31|71|1|91|2|75|1|76|2|52|30|41|0.5|77|1|78|1|47|0.25|450|1|451|2|452|3|453|4|470|LINEAR|460|0."
      "1|461|0.2|462|"
      "0.3|463|0.4|10|1|20|2|30|3|62|5|8|a");
  EXPECT_EQ(record.patternName, "ANSI31");
  EXPECT_EQ(record.associative, 1);
  EXPECT_EQ(record.pathCount, 2);
  EXPECT_EQ(record.hatchStyle, 1);
  EXPECT_EQ(record.patternType, 2);
  EXPECT_EQ(record.patternAngle, 30.0);
  EXPECT_EQ(record.patternScale, 0.5);
  EXPECT_EQ(record.patternDouble, 1);
  EXPECT_EQ(record.patternLineCount, 1);
  EXPECT_EQ(record.pixelSize, 0.25);
  EXPECT_EQ(record.gradientFlag, 1);
  EXPECT_EQ(record.gradientColorCount, 2);
  EXPECT_EQ(record.gradientOneColor, 3);
  EXPECT_EQ(record.gradientStopCount, 4);
  EXPECT_EQ(record.gradientName, "LINEAR");
  EXPECT_EQ(record.gradientAngle, 0.1);
  EXPECT_EQ(record.gradientShift, 0.2);
  EXPECT_EQ(record.gradientTint, 0.3);
  EXPECT_EQ(record.gradientValue, 0.4);
  EXPECT_EQ(record.point, (Coord{1, 2, 3}));
  EXPECT_EQ(record.color, 5);
  EXPECT_EQ(record.layer, "a");
}

TEST(HatchRecord, TakesScaleAndAngleOnlyWhileNotFilledSolid) {
  const auto record = Parsed<DXF_Hatch>("41|2|52|3|70|1|41|9|52|9");
  EXPECT_EQ(record.fillType, 1);
  EXPECT_EQ(record.patternScale, 2.0);
  EXPECT_EQ(record.patternAngle, 3.0);
}

TEST(HatchRecord, OpensAPatternLineAtEachAngle) {
  const auto record = Parsed<DXF_Hatch>("78|2|53|45|43|1|44|2|45|3|46|4|79|2|49|5|49|-6|53|90|79|0");
  EXPECT_EQ(record.patternLines,
            (std::vector<DXF_HatchPatternLine>{{45, 1, 2, 3, 4, 2, {5, -6}}, {90, 0, 0, 0, 0, 0, {}}}));
}

TEST(HatchRecord, NeverKeepsASingleSeed) { EXPECT_TRUE(Parsed<DXF_Hatch>("98|1|10|1|20|2").seeds.empty()); }

TEST(HatchRecord, KeepsTwoSeedsAndMore) {
  const auto record = Parsed<DXF_Hatch>("98|2|10|1|20|2|10|3|20|4");
  EXPECT_EQ(record.seedCount, 2);
  EXPECT_EQ(record.seeds, (std::vector<Coord>{{1, 2, 0}, {3, 4, 0}}));
}

TEST(HatchRecord, EmptiesTheSeedsAtEachCount) {
  EXPECT_EQ(Parsed<DXF_Hatch>("98|2|10|1|20|2|98|2|10|3|20|4").seeds, (std::vector<Coord>{{3, 4, 0}}));
}

TEST(HatchRecord, StoresALineAtTheNextEdgeType) {
  const auto record = Parsed<DXF_Hatch>("92|1|93|2|72|1|10|1|20|2|30|3|11|4|21|5|31|6|72|1|10|7|97|0");
  EXPECT_EQ(TypesOf(record), (std::vector<std::int32_t>{1, 1}));
  EXPECT_EQ(EdgeOf<DXF_HatchLine>(record, 0).point, (Coord{1, 2, 3}));
  EXPECT_EQ(EdgeOf<DXF_HatchLine>(record, 0).secondPoint, (Coord{4, 5, 6}));
  // The record was back at its defaults for the second line.
  EXPECT_EQ(EdgeOf<DXF_HatchLine>(record, 1).point, (Coord{7, 0, 0}));
  EXPECT_EQ(EdgeOf<DXF_HatchLine>(record, 1).secondPoint, (Coord{0, 0, 0}));
  EXPECT_EQ(record.edgeType, 0);
  EXPECT_EQ(record.edgeCount, 2);
}

TEST(HatchRecord, HoldsTheAnglesOfAnArcInRadians) {
  const auto record =
      Parsed<DXF_Hatch>("72|2|10|1|20|2|40|3|50|57.29577951308232|51|114.59155902616464|73|0|97|0");
  ASSERT_EQ(TypesOf(record), (std::vector<std::int32_t>{2}));
  const auto& arc = EdgeOf<DXF_HatchArc>(record, 0);
  EXPECT_EQ(arc.point, (Coord{1, 2, 0}));
  EXPECT_EQ(arc.radius, 3.0);
  EXPECT_EQ(arc.startAngle, 1.0);
  EXPECT_EQ(arc.endAngle, 2.0);
  EXPECT_EQ(arc.counterClockwise, 0);
}

TEST(HatchRecord, HoldsTheAnglesOfAnEllipseInDegrees) {
  const auto record = Parsed<DXF_Hatch>("72|3|10|1|20|2|11|3|21|4|40|0.5|50|30|51|60|73|0|97|0");
  ASSERT_EQ(TypesOf(record), (std::vector<std::int32_t>{3}));
  const auto& ellipse = EdgeOf<DXF_HatchEllipse>(record, 0);
  EXPECT_EQ(ellipse.point, (Coord{1, 2, 0}));
  EXPECT_EQ(ellipse.secondPoint, (Coord{3, 4, 0}));
  EXPECT_EQ(ellipse.ratio, 0.5);
  EXPECT_EQ(ellipse.startParam, 30.0);
  EXPECT_EQ(ellipse.endParam, 60.0);
  EXPECT_EQ(ellipse.counterClockwise, 0);
}

TEST(HatchRecord, ReadsTheGroupsOfASpline) {
  const auto record = Parsed<DXF_Hatch>(
      "72|4|94|3|73|1|74|1|95|2|96|2|40|0|40|1|10|1|20|2|42|0.5|10|3|20|4|97|1|11|5|21|6|12|7|22|8|13|9|23|"
      "10|98|0");
  ASSERT_EQ(TypesOf(record), (std::vector<std::int32_t>{4}));
  const auto& spline = EdgeOf<DXF_HatchSpline>(record, 0);
  EXPECT_EQ(spline.degree, 3);
  EXPECT_EQ(spline.rational, 1);
  EXPECT_EQ(spline.periodic, 1);
  EXPECT_EQ(spline.knotCount, 2);
  EXPECT_EQ(spline.controlCount, 2);
  EXPECT_EQ(spline.fitCount, 1);
  EXPECT_EQ(spline.knots, (DXF_List<double>{0, 1}));
  EXPECT_EQ(spline.weights, (DXF_List<double>{0.5}));
  EXPECT_EQ(spline.controlPoints, (DXF_List<Coord>{{1, 2, 0}, {3, 4, 0}}));
  EXPECT_EQ(spline.fitPoints, (DXF_List<Coord>{{5, 6, 0}}));
  EXPECT_EQ(spline.startTangent, (Coord{7, 8, 0}));
  EXPECT_EQ(spline.endTangent, (Coord{9, 10, 0}));
  EXPECT_EQ(record.sourceCount, 0);
}

TEST(HatchRecord, ClosesEachEdgeByItsOwnGroups) {
  EXPECT_EQ(TypesOf(Parsed<DXF_Hatch>("72|1|72|2|72|3|72|4|72|1")), (std::vector<std::int32_t>{1, 2, 3, 4}));
  EXPECT_EQ(TypesOf(Parsed<DXF_Hatch>("72|1|98|0")), (std::vector<std::int32_t>{}));
  EXPECT_EQ(TypesOf(Parsed<DXF_Hatch>("72|2|98|0")), (std::vector<std::int32_t>{}));
  EXPECT_EQ(TypesOf(Parsed<DXF_Hatch>("72|3|97|0")), (std::vector<std::int32_t>{3}));
  EXPECT_EQ(TypesOf(Parsed<DXF_Hatch>("72|4|97|0")), (std::vector<std::int32_t>{}));
}

TEST(HatchRecord, HandsTheClosingGroupToTheHatch) {
  EXPECT_EQ(Parsed<DXF_Hatch>("72|1|97|3").sourceCount, 3);
  EXPECT_EQ(Parsed<DXF_Hatch>("72|4|98|2").seedCount, 2);
  EXPECT_EQ(Parsed<DXF_Hatch>("72|1|72|2").edgeType, 2);
}

TEST(HatchRecord, TakesGroupsThatAnOpenEdgeDoesNotTake) {
  const auto record = Parsed<DXF_Hatch>("72|1|8|a|62|3|60|1|10|5|97|0");
  EXPECT_EQ(record.layer, "a");
  EXPECT_EQ(record.color, 3);
  EXPECT_TRUE(record.invisible);
  EXPECT_EQ(record.point.x, 0.0);
  EXPECT_EQ(EdgeOf<DXF_HatchLine>(record, 0).layer, "0");
  EXPECT_EQ(EdgeOf<DXF_HatchLine>(record, 0).color, 256);
}

TEST(HatchRecord, ReadsAPolylinePath) {
  const auto record = Parsed<DXF_Hatch>("91|1|92|2|72|1|73|1|93|2|10|1|20|2|40|3|41|4|42|0.5|10|6|20|7|97|0");
  ASSERT_EQ(TypesOf(record), (std::vector<std::int32_t>{5}));
  const auto& polyline = EdgeOf<DXF_HatchLWPolyline>(record, 0);
  EXPECT_EQ(polyline.hasBulge, 1);
  EXPECT_EQ(polyline.closed, 1);
  EXPECT_EQ(polyline.vertexCount, 2);
  EXPECT_EQ(polyline.vertices, (DXF_List<DXF_Vertex2D>{{1, 2, 3, 4, 0.5}, {6, 7, 0, 0, 0}}));
  EXPECT_EQ(record.edgeType, 0);
}

TEST(HatchRecord, ClosesAPolylineByBitZeroOfItsGroup) {
  EXPECT_EQ(EdgeOf<DXF_HatchLWPolyline>(Parsed<DXF_Hatch>("92|2|73|2|97|0"), 0).closed, 0);
  EXPECT_EQ(EdgeOf<DXF_HatchLWPolyline>(Parsed<DXF_Hatch>("92|2|73|3|97|0"), 0).closed, 1);
}

TEST(HatchRecord, StartsEachPolylineAnew) {
  const auto record = Parsed<DXF_Hatch>("92|2|73|1|10|1|20|2|97|0|92|2|10|3|20|4|97|0");
  ASSERT_EQ(record.edges.size(), 2U);
  EXPECT_EQ(EdgeOf<DXF_HatchLWPolyline>(record, 1).closed, 0);
  EXPECT_EQ(EdgeOf<DXF_HatchLWPolyline>(record, 1).vertices, (DXF_List<DXF_Vertex2D>{{3, 4, 0, 0, 0}}));
}

TEST(HatchRecord, HandsTheTagsOfAPolylinePathToTheHatchToo) {
  const auto record = Parsed<DXF_Hatch>("92|2|93|4|10|1|20|2|97|0|75|1|98|2|10|5|20|6|10|7|20|8");
  EXPECT_EQ(record.edgeCount, 4);
  EXPECT_EQ(record.hatchStyle, 1);
  EXPECT_EQ(record.seeds, (std::vector<Coord>{{5, 6, 0}, {7, 8, 0}}));
  EXPECT_EQ(record.edges.size(), 1U);
}

TEST(HatchRecord, LetsTheLastPathFlagsRuleEachTag) {
  const auto record = Parsed<DXF_Hatch>("92|2|10|1|20|2|97|0|92|0|72|1|10|3|20|4|97|0");
  ASSERT_EQ(TypesOf(record), (std::vector<std::int32_t>{5, 1}));
  EXPECT_EQ(EdgeOf<DXF_HatchLWPolyline>(record, 0).vertices.size(), 1U);
  EXPECT_EQ(EdgeOf<DXF_HatchLine>(record, 1).point, (Coord{3, 4, 0}));
}

TEST(HatchRecord, DropsAnEdgeThatIsStillOpenAtTheEnd) {
  auto record = Parsed<DXF_Hatch>("72|1|10|1");
  record.finish();
  EXPECT_TRUE(record.edges.empty());
}

}  // namespace
