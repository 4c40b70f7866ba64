#include "dxf/expansion_budget.h"

#include <gtest/gtest.h>

#include "dxf/dxf_annotations.h"
#include "dxf/dxf_hatch.h"
#include "dxf/dxf_mleader.h"
#include "dxf/dxf_text.h"

// 4 for each record, and what is told at each kind.

namespace {

std::shared_ptr<DXF_Vertex> VertexWithBulge(double bulge) {
  auto vertex = std::make_shared<DXF_Vertex>();
  vertex->bulge = bulge;
  return vertex;
}

}  // namespace

TEST(ConversionUnits, OfALineAreThoseOfTheRecordAlone) { EXPECT_EQ(ConversionUnits(DXF_Line()), 4U); }

TEST(ConversionUnits, CountFourQuarterTurnsOfWhatIsRound) {
  EXPECT_EQ(ConversionUnits(DXF_Circle()), 8U);
  EXPECT_EQ(ConversionUnits(DXF_Arc()), 8U);
  EXPECT_EQ(ConversionUnits(DXF_Ellipse()), 8U);
}

TEST(ConversionUnits, CountVerticesAndFourMoreForABulge) {
  DXF_LWPolyline light;
  light.vertices = {{.x = 1.0}, {.x = 2.0, .bulge = 0.5}};
  EXPECT_EQ(ConversionUnits(light), 4U + 1U + 5U);
  DXF_Polyline old;
  old.vertices = {VertexWithBulge(0.0), VertexWithBulge(1.0), VertexWithBulge(0.0)};
  EXPECT_EQ(ConversionUnits(old), 4U + 1U + 5U + 1U);
}

TEST(ConversionUnits, CountAllListsOfASpline) {
  DXF_Spline spline;
  spline.knots = {0.0, 1.0};
  spline.controlPoints = {{}, {}, {}};
  spline.weights = {1.0};
  spline.fitPoints = {{}};
  EXPECT_EQ(ConversionUnits(spline), 4U + 2U + 3U + 1U + 1U);
  DXF_Helix helix;
  helix.spline = spline;
  EXPECT_EQ(ConversionUnits(helix), 4U + 7U);
}

TEST(ConversionUnits, CountTheBytesOfATextAndTheCellsOfATable) {
  DXF_Text text;
  text.text = "hello";
  EXPECT_EQ(ConversionUnits(text), 4U + 5U);
  DXF_Table table;
  table.rowHeights = {1.0, 2.0};
  table.columnWidths = {1.0};
  table.cells.resize(6);
  EXPECT_EQ(ConversionUnits(table), 4U + 2U + 1U + 6U);
}

TEST(ConversionUnits, CountTheEdgesSeedsAndPatternOfAHatch) {
  auto spline = std::make_shared<DXF_HatchSpline>();
  spline->knots = {0.0, 1.0, 2.0};
  auto polyline = std::make_shared<DXF_HatchLWPolyline>();
  polyline->vertices = {{}, {}};
  DXF_Hatch hatch;
  hatch.edges = {{std::make_shared<const DXF_HatchLine>()},
                 {std::shared_ptr<const DXF_HatchSpline>(spline)},
                 {std::shared_ptr<const DXF_HatchLWPolyline>(polyline)}};
  hatch.seeds = {{}, {}};
  hatch.patternLines.resize(1);
  hatch.patternLines[0].dashes = {1.0, -1.0};
  EXPECT_EQ(ConversionUnits(hatch), 4U + 4U + (4U + 3U) + (4U + 2U) + 2U + (1U + 2U));
}

TEST(ConversionUnits, CountTheElementsOfAMultilinesVertices) {
  DXF_Mline mline;
  mline.vertices.resize(2);
  mline.vertices[0].elements.resize(1);
  mline.vertices[0].elements[0].values = {0.0, 1.0};
  mline.vertices[0].elements[0].fillValues = {3.0};
  EXPECT_EQ(ConversionUnits(mline), 4U + (3U + 1U + 2U + 1U) + 3U);
}

TEST(ConversionUnits, CountTheTextAndTheLinesOfALeader) {
  DXF_MLeader leader;
  EXPECT_EQ(ConversionUnits(leader), 4U);
  DXF_LeaderContext context;
  context.text = "abc";
  context.leaders.resize(1);
  context.leaders[0].lines.resize(1);
  context.leaders[0].lines[0].points = {{}, {}};
  leader.context = std::make_shared<const DXF_LeaderContext>(context);
  EXPECT_EQ(ConversionUnits(leader), 4U + 3U + 1U + (1U + 2U));
}
