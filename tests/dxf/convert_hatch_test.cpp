#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numbers>

#include "drawing.h"
#include "dxf/aci_colors.h"

namespace {

using namespace Entity_ZR;
using std::numbers::pi;
using testing::ElementsAre;

constexpr double kClose = 1e-12;

std::shared_ptr<const ZR_Hatch> ReadHatch(const std::string& tags) {
  return ReadOne<ZR_Hatch>("0|HATCH|" + tags);
}

/// The one edge of a path of edges with these tags.
template <typename Edge>
Edge ReadEdge(const std::string& tags, const std::string& closing = "97|0|") {
  const auto hatch = ReadHatch("2|SOLID|91|1|92|1|93|1|" + tags + closing + "75|0|76|1");
  EXPECT_EQ(hatch->edges.size(), 1u);
  return hatch->edges.empty() ? Edge() : boost::get<Edge>(hatch->edges[0].shape);
}

TEST(ConvertHatch, ConvertsALineEdge) {
  const auto line = ReadEdge<ZR_Line>("72|1|10|1|20|2|11|3|21|4|");
  EXPECT_EQ(line.start, (Point3{1, 2, 0}));
  EXPECT_EQ(line.end, (Point3{3, 4, 0}));
}

TEST(ConvertHatch, ConvertsAnArcEdge) {
  const auto arc = ReadEdge<ZR_Arc>("72|2|10|1|20|2|40|3|50|0|51|90|73|1|");
  EXPECT_EQ(arc.center, (Point3{1, 2, 0}));
  EXPECT_EQ(arc.radius, 3.0);
  EXPECT_EQ(arc.startAngle, 0.0);
  EXPECT_NEAR(arc.endAngle, pi / 2, kClose);
  EXPECT_EQ(arc.reversed, 0);
  EXPECT_EQ(ReadEdge<ZR_Arc>("72|2|10|1|20|2|40|3|50|0|51|90|73|0|").reversed, 1);
}

TEST(ConvertHatch, TurnsTheAnglesOfAnEllipseEdgeRound) {
  const auto ellipse = ReadEdge<ZR_Ellipse>("72|3|10|1|20|2|11|0|21|4|40|0.5|50|30|51|120|73|1|");
  EXPECT_EQ(ellipse.center, (Point3{1, 2, 0}));
  EXPECT_EQ(ellipse.radiusX, 4.0);
  EXPECT_EQ(ellipse.radiusY, 2.0);
  EXPECT_NEAR(ellipse.startAngle, pi / 3, kClose);    // 180 - 120 degrees
  EXPECT_NEAR(ellipse.endAngle, 5 * pi / 6, kClose);  // 180 - 30 degrees
  EXPECT_NEAR(ellipse.rotation, 3 * pi / 2, kClose);
  EXPECT_EQ(ellipse.reversed, 0);
  EXPECT_EQ(ReadEdge<ZR_Ellipse>("72|3|11|1|21|0|40|1|73|0|").reversed, 1);
}

TEST(ConvertHatch, ConvertsASplineEdge) {
  const auto spline = ReadEdge<ZR_Spline>(
      "72|4|94|1|73|0|74|0|95|4|96|2|40|0|40|0|40|1|40|1|10|1|20|2|42|1|10|3|20|4|42|0.5|", "98|0|");
  EXPECT_EQ(spline.degree, 1);
  EXPECT_EQ(spline.knotCount, 4);
  EXPECT_EQ(spline.controlCount, 2);
  EXPECT_THAT(spline.knots, ElementsAre(0, 0, 1, 1));
  EXPECT_THAT(spline.controlPoints, ElementsAre(Point3{1, 2, 0}, Point3{3, 4, 0}));
  EXPECT_THAT(spline.weights, ElementsAre(1, 0.5));
}

TEST(ConvertHatch, MarksARationalSplineEdgeBy2AndAPeriodicOneBy4) {
  struct Row {
    const char* tags;
    int flags;
  };
  for (const Row& row : {Row{"73|0|74|0|", 0}, {"73|1|74|0|", 2}, {"73|0|74|1|", 4}, {"73|1|74|1|", 6}}) {
    EXPECT_EQ(ReadEdge<ZR_Spline>(std::string("72|4|94|3|") + row.tags, "98|0|").flags, row.flags)
        << row.tags;
  }
}

TEST(ConvertHatch, ConvertsAPolylinePath) {
  const auto hatch = ReadHatch("2|SOLID|91|1|92|3|72|1|73|1|93|2|10|1|20|2|42|0.5|10|3|20|4|97|0|75|0");
  ASSERT_EQ(hatch->edges.size(), 1u);
  EXPECT_EQ(hatch->edges[0].kind, kPolylineEdge);
  const auto& polyline = boost::get<ZR_LWPolyline>(hatch->edges[0].shape);
  EXPECT_EQ(polyline.closed, 1);
  EXPECT_EQ(polyline.vertexCount, 2);
  EXPECT_THAT(polyline.vertices, ElementsAre(LWVertex{1, 2, 0, 0, 0.5}, LWVertex{3, 4, 0, 0, 0}));
}

TEST(ConvertHatch, TakesOnlyTheLowestBitOfAPolylinePathAsClosed) {
  const auto hatch = ReadHatch("2|SOLID|92|2|73|2|10|1|20|2|97|0");
  EXPECT_EQ(boost::get<ZR_LWPolyline>(hatch->edges.at(0).shape).closed, 0);
}

TEST(ConvertHatch, KeepsTheEdgesOfAllPathsInOneListTaggedByTheirKind) {
  const auto hatch = ReadHatch(
      "2|SOLID|92|1|93|4|72|3|11|1|40|1|72|1|10|1|72|2|40|1|72|4|94|3|98|0|92|2|10|1|20|2|97|0|75|0");
  std::vector<std::int32_t> kinds;
  for (const HatchEdge& edge : hatch->edges) {
    kinds.push_back(edge.kind);
    EXPECT_EQ(edge.shape.which() + 1, edge.kind);
  }
  EXPECT_THAT(kinds, ElementsAre(3, 1, 2, 4, 5));
}

TEST(ConvertHatch, GivesEdgesTheDefaultsOfARecordNotTheColourOfTheHatch) {
  Drawing drawing;
  drawing.tables = Table("LAYER", {"0|62|3", "walls|62|5"});
  drawing.entities = "0|HATCH|8|walls|62|1|60|1|2|SOLID|92|1|72|1|10|1|20|2|11|3|21|4|97|0";
  const auto hatch = ReadOne<ZR_Hatch>(drawing);
  const auto& edge = boost::get<ZR_Line>(hatch->edges.at(0).shape);
  EXPECT_EQ(hatch->color, PackColor(255, 0, 0));
  EXPECT_EQ(hatch->visible, 0);
  EXPECT_EQ(edge.layer, "0");
  EXPECT_EQ(edge.color, PackColor(0, 255, 0));
  EXPECT_EQ(edge.visible, 1);
}

TEST(ConvertHatch, CopiesThePattern) {
  const auto hatch = ReadHatch(
      "2|ANSI31|70|0|71|1|91|2|75|1|76|2|52|45|41|2.5|77|1|78|2|"
      "53|30|43|1|44|2|45|3|46|4|79|2|49|5|49|-6|53|60|43|7|44|8|45|9|46|10|79|0|47|0.5");
  EXPECT_EQ(hatch->patternName, "ANSI31");
  EXPECT_EQ(hatch->fillType, 0);
  EXPECT_EQ(hatch->associative, 1);
  EXPECT_EQ(hatch->pathCount, 2);
  EXPECT_EQ(hatch->hatchStyle, 1);
  EXPECT_EQ(hatch->patternType, 2);
  EXPECT_EQ(hatch->patternAngle, 45.0);
  EXPECT_EQ(hatch->patternScale, 2.5);
  EXPECT_EQ(hatch->patternDouble, 1);
  EXPECT_EQ(hatch->patternLineCount, 2);
  EXPECT_EQ(hatch->pixelSize, 0.5);
  EXPECT_THAT(hatch->patternLines, ElementsAre(HatchPatternLine{30, 1, 2, 3, 4, 2, {5, -6}},
                                               HatchPatternLine{60, 7, 8, 9, 10, 0, {}}));
}

TEST(ConvertHatch, CopiesSeeds) {
  const auto hatch = ReadHatch("2|SOLID|98|2|10|1|20|2|10|3|20|4");
  EXPECT_EQ(hatch->seedCount, 2);
  EXPECT_THAT(hatch->seeds, ElementsAre(Point3{1, 2, 0}, Point3{3, 4, 0}));
}

TEST(ConvertHatch, CopiesTheGradient) {
  const auto hatch = ReadHatch("2|SOLID|450|1|451|2|452|3|453|4|460|0.1|461|0.2|462|0.3|463|0.4|470|LINEAR");
  EXPECT_EQ(hatch->gradientFlag, 1);
  EXPECT_EQ(hatch->gradientColorCount, 2);
  EXPECT_EQ(hatch->gradientOneColor, 3);
  EXPECT_EQ(hatch->gradientStopCount, 4);
  EXPECT_EQ(hatch->gradientAngle, 0.1);
  EXPECT_EQ(hatch->gradientShift, 0.2);
  EXPECT_EQ(hatch->gradientTint, 0.3);
  EXPECT_EQ(hatch->gradientValue, 0.4);
  EXPECT_EQ(hatch->gradientName, "LINEAR");
}

}  // namespace
