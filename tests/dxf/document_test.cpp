#include <gtest/gtest.h>

#include "dxf/dxf_document.h"
#include "dxf/dxf_interface.h"

namespace {

DXF_Layer Layer(std::string_view name, std::int32_t color) {
  DXF_Layer layer;
  layer.name = name;
  layer.color = color;
  return layer;
}

TEST(Document, StartsWithAModelBlockAndNoHeader) {
  const DXF_Document document;
  EXPECT_EQ(document.header, nullptr);
  ASSERT_NE(document.modelBlock, nullptr);
  EXPECT_TRUE(document.modelBlock->entities.empty());
}

TEST(Document, FindsTheFirstOfTwoLayersNamedAlike) {
  DXF_Interface iface;
  iface.addLayer(Layer("a", 1));
  iface.addLayer(Layer("b", 2));
  iface.addLayer(Layer("a", 3));
  EXPECT_EQ(iface.document->layers.size(), 3U);
  EXPECT_EQ(iface.document->findLayer("a")->color, 1);
  EXPECT_EQ(iface.document->findLayer("b")->color, 2);
}

TEST(Document, ComparesLayerNamesBytewise) {
  DXF_Interface iface;
  iface.addLayer(Layer("Walls", 1));
  EXPECT_EQ(iface.document->findLayer("WALLS"), nullptr);
  EXPECT_EQ(iface.document->findLayer("Wall"), nullptr);
  EXPECT_EQ(iface.document->findLayer(""), nullptr);
}

TEST(Document, FindsWhatWasAddedAfterALookUp) {
  DXF_Interface iface;
  EXPECT_EQ(iface.document->findLayer("a"), nullptr);
  iface.addLayer(Layer("a", 1));
  EXPECT_EQ(iface.document->findLayer("a")->color, 1);
}

TEST(Document, FindsLineTypesByName) {
  DXF_Interface iface;
  DXF_LType lineType;
  lineType.name = "DASHED";
  lineType.description = "first";
  iface.addLType(lineType);
  lineType.description = "second";
  iface.addLType(lineType);
  EXPECT_EQ(iface.document->findLineType("DASHED")->description, "first");
  EXPECT_EQ(iface.document->findLineType("dashed"), nullptr);
}

TEST(Document, FindsTextStylesInCapitals) {
  DXF_Interface iface;
  DXF_TextStyle style;
  style.name = "Notes";
  style.font = "first";
  iface.addTextStyle(style);
  style.name = "NOTES";
  style.font = "second";
  iface.addTextStyle(style);
  EXPECT_EQ(iface.document->findTextStyle("notes")->font, "first");
  EXPECT_EQ(iface.document->findTextStyle("NOTES")->font, "first");
  EXPECT_EQ(iface.document->findTextStyle("note"), nullptr);
}

TEST(Document, FindsTheFirstOfTwoBlocksNamedAlike) {
  DXF_Interface iface;
  DXF_Block block;
  block.name = "door";
  block.flags = 1;
  iface.addBlock(block);
  block.flags = 2;
  iface.addBlock(block);
  EXPECT_EQ(iface.document->blocks.size(), 2U);
  EXPECT_EQ(iface.document->findBlock("door")->flags, 1);
  EXPECT_EQ(iface.document->findBlock("Door"), nullptr);
}

TEST(Document, FindsImageDefinitionsByHandle) {
  DXF_Interface iface;
  DXF_ImageDef def;
  def.handle = 62;
  def.path = "first";
  iface.addImageDef(DXF_ImageDef(def));
  def.path = "second";
  iface.addImageDef(DXF_ImageDef(def));
  EXPECT_EQ(iface.document->findImageDef(62)->path, "first");
  EXPECT_EQ(iface.document->findImageDef(63), nullptr);
}

/// Adds one entity of each kind, in the order of the store's counters.
void AddOneOfEach(DXF_Interface& iface) {
  iface.addPoint(DXF_Point());
  iface.addLine(DXF_Line());
  iface.addCircle(DXF_Circle());
  iface.addArc(DXF_Arc());
  iface.addEllipse(DXF_Ellipse());
  iface.addText(DXF_Text());
  iface.addMText(DXF_MText());
  iface.addLWPolyline(DXF_LWPolyline());
  iface.addPolyline(DXF_Polyline());
  iface.addSpline(DXF_Spline());
  iface.addHelix(DXF_Helix());
  iface.addSolid(DXF_Solid());
  iface.addMline(DXF_Mline());
  iface.addImage(DXF_Image());
  iface.addHatch(DXF_Hatch());
  iface.addDimension(DXF_Dimension());
  iface.addMLeader(DXF_MLeader());
  iface.addInsert(DXF_Insert());
  iface.addTable(DXF_Table());
}

std::vector<std::int32_t> CountersOf(const DXF_Interface& iface) {
  return {iface.pointCount,    iface.lineCount,   iface.circleCount, iface.arcCount,
          iface.ellipseCount,  iface.textCount,   iface.mtextCount,  iface.lwPolylineCount,
          iface.polylineCount, iface.splineCount, iface.helixCount,  iface.solidCount,
          iface.mlineCount,    iface.imageCount,  iface.hatchCount,  iface.dimensionCount,
          iface.mleaderCount,  iface.insertCount};
}

std::vector<std::int32_t> KindsOf(const DXF_EntityList& entities) {
  std::vector<std::int32_t> kinds;
  for (const auto& entity : entities) kinds.push_back(entity->kind);
  return kinds;
}

const std::vector<std::int32_t> kOneOfEach = {0,  2,  6,  8,  7,  9,  10, 4,  3, 5,
                                              14, 16, 15, 20, 13, 19, 22, 12, 17};

TEST(Interface, StartsInTheModelSpace) {
  const DXF_Interface iface;
  EXPECT_FALSE(iface.inBlock);
  EXPECT_FALSE(iface.readOk);
  EXPECT_EQ(iface.currentBlock, iface.document->modelBlock.get());
  EXPECT_EQ(CountersOf(iface), std::vector<std::int32_t>(18, 0));
  EXPECT_EQ(iface.blockCount, 0);
}

TEST(Interface, StoresEntitiesOfTheModelSpaceInOrderAndCountsThem) {
  DXF_Interface iface;
  AddOneOfEach(iface);
  EXPECT_EQ(KindsOf(iface.document->modelBlock->entities), kOneOfEach);
  EXPECT_EQ(CountersOf(iface), std::vector<std::int32_t>(18, 1));
}

TEST(Interface, StoresEntitiesOfABlockUncounted) {
  DXF_Interface iface;
  iface.addBlock(DXF_Block());
  EXPECT_TRUE(iface.inBlock);
  AddOneOfEach(iface);
  iface.endBlock();
  EXPECT_FALSE(iface.inBlock);
  EXPECT_EQ(KindsOf(iface.document->blocks[0]->entities), kOneOfEach);
  EXPECT_TRUE(iface.document->modelBlock->entities.empty());
  EXPECT_EQ(CountersOf(iface), std::vector<std::int32_t>(18, 0));
  EXPECT_EQ(iface.blockCount, 1);
  iface.addLine(DXF_Line());
  EXPECT_EQ(iface.document->modelBlock->entities.size(), 1U);
}

TEST(Interface, KeepsWhatARecordSays) {
  DXF_Interface iface;
  DXF_Hatch hatch;
  hatch.layer = "walls";
  hatch.patternName = "ANSI31";
  hatch.edges.push_back({std::make_shared<const DXF_HatchLine>()});
  iface.addHatch(std::move(hatch));
  const auto& stored = static_cast<const DXF_Hatch&>(*iface.document->modelBlock->entities[0]);
  EXPECT_EQ(stored.layer, "walls");
  EXPECT_EQ(stored.patternName, "ANSI31");
  EXPECT_EQ(stored.edges.size(), 1U);
}

TEST(Interface, KeepsNoRoomThatAPolylineDoesNotFill) {
  DXF_Interface iface;
  DXF_LWPolyline polyline;
  polyline.vertices.reserve(1000);
  polyline.vertices.push_back({});
  iface.addLWPolyline(std::move(polyline));
  const auto& stored = static_cast<const DXF_LWPolyline&>(*iface.document->modelBlock->entities[0]);
  EXPECT_EQ(stored.vertices.capacity(), 1U);
}

TEST(Interface, DropsWhatNobodyReads) {
  DXF_Interface iface;
  iface.addAppId(DXF_AppId());
  iface.addVport(DXF_Vport());
  iface.addViewport(DXF_Viewport());
  iface.addPlotSettings(DXF_PlotSettings());
  EXPECT_TRUE(iface.document->modelBlock->entities.empty());
  EXPECT_EQ(CountersOf(iface), std::vector<std::int32_t>(18, 0));
}

TEST(Interface, FilesTablesAndObjectsInTheirLists) {
  DXF_Interface iface;
  DXF_Header header;
  header.insUnits = 4;
  iface.addHeader(std::move(header));
  iface.addDimStyle(DXF_Dimstyle());
  iface.addMlineStyle(DXF_MlineStyle());
  ASSERT_NE(iface.document->header, nullptr);
  EXPECT_EQ(iface.document->header->insUnits, 4);
  EXPECT_EQ(iface.document->dimStyles.size(), 1U);
  EXPECT_EQ(iface.document->mlineStyles.size(), 1U);
}

}  // namespace
