#include <gtest/gtest.h>

#include "dxf/dxf_annotations.h"
#include "dxf/dxf_mleader.h"
#include "dxf/dxf_text.h"
#include "dxf/tag_text.h"

namespace {

using Coord = DXF_Coord;

TEST(TextRecord, HasItsDefaults) {
  const DXF_Text record;
  EXPECT_EQ(record.kind, 9);
  EXPECT_EQ(record.height, 1.0);
  EXPECT_EQ(record.text, "");
  EXPECT_EQ(record.angle, 0.0);
  EXPECT_EQ(record.widthScale, 1.0);
  EXPECT_EQ(record.oblique, 0.0);
  EXPECT_EQ(record.styleName, "STANDARD");
  EXPECT_EQ(record.generationFlags, 0);
  EXPECT_EQ(record.horizontalAlign, 0);
  EXPECT_EQ(record.verticalAlign, 0);
}

TEST(TextRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_Text>("10|1|11|2|40|3|1|abc|50|45|41|0.8|51|15|7|notes|71|2|72|4|73|3");
  EXPECT_EQ(record.point.x, 1.0);
  EXPECT_EQ(record.secondPoint.x, 2.0);
  EXPECT_EQ(record.height, 3.0);
  EXPECT_EQ(record.text, "abc");
  EXPECT_EQ(record.angle, 45.0);
  EXPECT_EQ(record.widthScale, 0.8);
  EXPECT_EQ(record.oblique, 15.0);
  EXPECT_EQ(record.styleName, "notes");
  EXPECT_EQ(record.generationFlags, 2);
  EXPECT_EQ(record.horizontalAlign, 4);
  EXPECT_EQ(record.verticalAlign, 3);
}

TEST(MTextRecord, HasItsDefaults) {
  const DXF_MText record;
  EXPECT_EQ(record.kind, 10);
  EXPECT_EQ(record.attachment, 1);
  EXPECT_EQ(record.lineSpacingFactor, 1.0);
  EXPECT_FALSE(record.hasDirection);
  EXPECT_TRUE(record.params.empty());
}

TEST(MTextRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_MText>("40|2.5|41|100|42|90|43|7|44|1.5|50|30|71|5|73|2|7|notes");
  EXPECT_EQ(record.height, 2.5);
  EXPECT_EQ(record.rectWidth, 100.0);
  EXPECT_EQ(record.boxWidth, 90.0);
  EXPECT_EQ(record.boxHeight, 7.0);
  EXPECT_EQ(record.lineSpacingFactor, 1.5);
  EXPECT_EQ(record.angle, 30.0);
  EXPECT_EQ(record.attachment, 5);
  EXPECT_EQ(record.lineSpacingStyle, 2);
  EXPECT_EQ(record.styleName, "notes");
  // These codes mean other things to a TEXT.
  EXPECT_EQ(record.widthScale, 1.0);
  EXPECT_EQ(record.generationFlags, 0);
  EXPECT_EQ(record.verticalAlign, 0);
}

TEST(MTextRecord, StartsABoxAtEachHeight) {
  const auto record = Parsed<DXF_MText>("41|9|40|1|41|2|40|3|42|4|43|5");
  EXPECT_EQ(record.params, (std::vector<MtextParam>{{1, 2, 0, 0}, {3, 0, 4, 5}}));
  EXPECT_EQ(record.height, 3.0);
}

TEST(MTextRecord, AppendsItsPieces) { EXPECT_EQ(Parsed<DXF_MText>("3|abc|3|def|1|ghi").text, "abcdefghi"); }

TEST(MTextRecord, DecodesTheWholeOnceMoreWithItsLastPiece) {
  // The escape is cut in two by the pieces, so that neither of them alone can decode it.
  EXPECT_EQ(Parsed<DXF_MText>("3|a\\U+00|1|B0b").text,
            "a\xC2\xB0"
            "b");
  EXPECT_EQ(Parsed<DXF_MText>("3|a\\U+00|3|B0b").text, "a\\U+00B0b");
}

TEST(MTextRecord, DecodesTheWholeOnceMoreWithEachLastPiece) {
  std::string tags;
  for (int i = 0; i < 100; ++i) tags += "1|a|";
  EXPECT_EQ(Parsed<DXF_MText>(tags + "1|\\U+00|1|B0").text, std::string(100, 'a') + "\xC2\xB0");
}

TEST(MTextRecord, TurnsByItsDirection) {
  auto record = Parsed<DXF_MText>("50|30|11|0|21|1|31|0");
  EXPECT_TRUE(record.hasDirection);
  record.finish();
  EXPECT_EQ(record.angle, 90.0);
}

TEST(MTextRecord, TurnsByAnAngleThatStandsBehindTheDirection) {
  auto record = Parsed<DXF_MText>("11|0|21|1|50|30");
  EXPECT_FALSE(record.hasDirection);
  record.finish();
  EXPECT_EQ(record.angle, 30.0);
}

TEST(TableRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_Table>("10|1|11|0|21|1|2|*T1|91|2|92|3|141|5|141|6|142|7|142|8|142|9");
  EXPECT_EQ(record.kind, 17);
  EXPECT_EQ(record.point.x, 1.0);
  EXPECT_EQ(record.secondPoint, (Coord{0, 1, 0}));
  EXPECT_EQ(record.blockName, "*T1");
  EXPECT_EQ(record.rowCount, 2);
  EXPECT_EQ(record.columnCount, 3);
  EXPECT_EQ(record.rowHeights, (std::vector<double>{5, 6}));
  EXPECT_EQ(record.columnWidths, (std::vector<double>{7, 8, 9}));
  EXPECT_TRUE(record.cells.empty());
}

TEST(TableRecord, StoresACellAtTheEndOfItsValue) {
  const auto record = Parsed<DXF_Table>(
      "171|1|172|2|173|3|174|4|175|5|176|6|178|8|145|0.5|304|text|304|ACVALUE_END|171|2|304|ACVALUE_END|171|"
      "9");
  ASSERT_EQ(record.cells.size(), 2U);
  EXPECT_EQ(record.cells[0], (DXF_TableCell{1, 2, 3, 4, 5, 6, 8, 0.5}));
  EXPECT_EQ(record.cells[1], (DXF_TableCell{2, 0, 0, 0, 0, 0, 0, 0.0}));
}

TEST(DimensionRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_Dimension>(
      "1|<>|2|*D1|3|ISO-25|10|1|11|2|12|3|22|4|32|5|13|6|14|7|15|8|16|9|26|10|36|11|70|33|71|5|72|2|41|1.5|"
      "42|12.5|50|90|"
      "51|10|52|20|53|30|280|1");
  EXPECT_EQ(record.kind, 19);
  EXPECT_EQ(record.text, "<>");
  EXPECT_EQ(record.blockName, "*D1");
  EXPECT_EQ(record.styleName, "ISO-25");
  EXPECT_EQ(record.point.x, 1.0);
  EXPECT_EQ(record.secondPoint.x, 2.0);
  EXPECT_EQ(record.definitionPoints[0], (Coord{3, 4, 5}));
  EXPECT_EQ(record.definitionPoints[1].x, 6.0);
  EXPECT_EQ(record.definitionPoints[2].x, 7.0);
  EXPECT_EQ(record.definitionPoints[3].x, 8.0);
  EXPECT_EQ(record.definitionPoints[4], (Coord{9, 10, 11}));
  EXPECT_EQ(record.type, 33);
  EXPECT_EQ(record.attachment, 5);
  EXPECT_EQ(record.spacingStyle, 2);
  EXPECT_EQ(record.spacingFactor, 1.5);
  EXPECT_EQ(record.measurement, 12.5);
  EXPECT_EQ(record.angle, 90.0);
  EXPECT_EQ(record.horizontalDir, 10.0);
  EXPECT_EQ(record.obliqueAngle, 20.0);
  EXPECT_EQ(record.textAngle, 30.0);
  EXPECT_EQ(record.version, 1);
}

TEST(MlineRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_Mline>(
      "2|DOUBLE|340|1B|40|5|70|1|71|3|72|2|73|2|10|1|20|2|30|3|210|0|220|0|230|-1|11|4|21|5|31|6|12|7|22|8|"
      "32|9|13|10|23|11|"
      "33|12|74|2|41|0.5|41|0.25|75|1|42|0.125|74|1|41|0.75|75|0|11|13");
  EXPECT_EQ(record.kind, 15);
  EXPECT_EQ(record.styleName, "DOUBLE");
  EXPECT_EQ(record.styleHandle, 27U);
  EXPECT_EQ(record.scale, 5.0);
  EXPECT_EQ(record.justification, 1);
  EXPECT_EQ(record.flags, 3);
  EXPECT_EQ(record.vertexCount, 2);
  EXPECT_EQ(record.elementCount, 2);
  EXPECT_EQ(record.startPoint, (Coord{1, 2, 3}));
  EXPECT_EQ(record.normal, (Coord{0, 0, -1}));
  const DXF_MlineVertex first = {
      {4, 5, 6}, {7, 8, 9}, {10, 11, 12}, {{2, {0.5, 0.25}, 1, {0.125}}, {1, {0.75}, 0, {}}}};
  const DXF_MlineVertex second = {{13, 0, 0}, {}, {}, {}};
  EXPECT_EQ(record.vertices, (std::vector<DXF_MlineVertex>{first, second}));
}

TEST(MlineRecord, HasAScaleOfTwentyByDefault) { EXPECT_EQ(DXF_Mline().scale, 20.0); }

TEST(MlineRecord, DropsVertexGroupsBeforeTheFirstVertex) {
  const auto record = Parsed<DXF_Mline>("21|1|12|1|74|1|41|1|75|1|42|1|11|2|41|3");
  ASSERT_EQ(record.vertices.size(), 1U);
  EXPECT_EQ(record.vertices[0], (DXF_MlineVertex{{2, 0, 0}, {}, {}, {}}));
}

TEST(MLeaderRecord, TakesItsOwnGroups) {
  const auto record = Parsed<DXF_MLeader>(
      "340|A|90|1|170|2|91|3|341|B|171|4|290|1|291|1|41|0.5|342|C|42|0.25|172|5|343|D|173|6|95|7|174|8|175|9|"
      "92|10|292|1|"
      "344|E|93|11|10|1|20|2|30|3|43|0.75|176|12|293|1|94|13|345|F|177|14|44|1.5|302|tag|294|1|178|15|179|16|"
      "270|2|271|17|"
      "272|18|273|19|8|a");
  EXPECT_EQ(record.kind, 22);
  EXPECT_EQ(record.styleHandle, 10U);
  EXPECT_EQ(record.overrideFlags, 1);
  EXPECT_EQ(record.lineType, 2);
  EXPECT_EQ(record.lineColor, 3);
  EXPECT_EQ(record.lineTypeHandle, 11U);
  EXPECT_EQ(record.leaderLineWeight, 4);
  EXPECT_TRUE(record.landing);
  EXPECT_TRUE(record.dogleg);
  EXPECT_EQ(record.doglegLength, 0.5);
  EXPECT_EQ(record.arrowheadHandle, 12U);
  EXPECT_EQ(record.arrowheadSize, 0.25);
  EXPECT_EQ(record.contentType, 5);
  EXPECT_EQ(record.textStyleHandle, 13U);
  EXPECT_EQ(record.leftAttachment, 6);
  EXPECT_EQ(record.rightAttachment, 7);
  EXPECT_EQ(record.textAngleType, 8);
  EXPECT_EQ(record.textAlignment, 9);
  EXPECT_EQ(record.textColor, 10);
  EXPECT_TRUE(record.textFrame);
  EXPECT_EQ(record.blockHandle, 14U);
  EXPECT_EQ(record.blockColor, 11);
  EXPECT_EQ(record.blockScale, (Coord{1, 2, 3}));
  EXPECT_EQ(record.blockRotation, 0.75);
  EXPECT_EQ(record.blockConnection, 12);
  EXPECT_TRUE(record.annotationScale);
  EXPECT_EQ(record.arrowheadIndex, 13);
  EXPECT_EQ(record.arrowheadListHandle, 15U);
  EXPECT_EQ(record.attributeIndex, 14);
  EXPECT_EQ(record.attributeWidth, 1.5);
  EXPECT_EQ(record.attributeText, "tag");
  EXPECT_TRUE(record.textDirectionNegative);
  EXPECT_EQ(record.textAlignInIpe, 15);
  EXPECT_EQ(record.textAttachmentPoint, 16);
  EXPECT_EQ(record.version, 2);
  EXPECT_EQ(record.attachmentDirection, 17);
  EXPECT_EQ(record.bottomAttachment, 18);
  EXPECT_EQ(record.topAttachment, 19);
  EXPECT_EQ(record.layer, "a");
  EXPECT_EQ(record.context, nullptr);
}

TEST(MLeaderRecord, StoresEachBlockWhenItsBraceCloses) {
  const auto record = Parsed<DXF_MLeader>(
      "300|CONTEXT_DATA{|40|2|10|1|20|2|41|3|290|1|304|note|12|4|302|LEADER{|290|1|10|5|20|6|90|1|40|7|304|"
      "LEADER_LINE{|10|8|"
      "20|9|10|10|20|11|91|3|305|}|304|LEADER_LINE{|10|12|305|}|303|}|302|LEADER{|303|}|301|}|40|99|340|A");
  ASSERT_NE(record.context, nullptr);
  const DXF_LeaderContext& context = *record.context;
  EXPECT_EQ(context.contentScale, 2.0);
  EXPECT_EQ(context.contentBase, (Coord{1, 2, 0}));
  EXPECT_EQ(context.textHeight, 3.0);
  EXPECT_TRUE(context.hasText);
  EXPECT_EQ(context.text, "note");
  EXPECT_EQ(context.textLocation, (Coord{4, 0, 0}));
  ASSERT_EQ(context.leaders.size(), 2U);
  EXPECT_TRUE(context.leaders[0].lastPointSet);
  EXPECT_EQ(context.leaders[0].lastPoint, (Coord{5, 6, 0}));
  EXPECT_EQ(context.leaders[0].index, 1);
  EXPECT_EQ(context.leaders[0].doglegLength, 7.0);
  ASSERT_EQ(context.leaders[0].lines.size(), 2U);
  EXPECT_EQ(context.leaders[0].lines[0].points, (std::vector<Coord>{{8, 9, 0}, {10, 11, 0}}));
  EXPECT_EQ(context.leaders[0].lines[0].index, 3);
  EXPECT_EQ(context.leaders[0].lines[1].points, (std::vector<Coord>{{12, 0, 0}}));
  EXPECT_TRUE(context.leaders[1].lines.empty());
  EXPECT_EQ(record.styleHandle, 10U);
}

TEST(MLeaderRecord, TakesEveryGroupOfItsContext) {
  const auto record = Parsed<DXF_MLeader>(
      "300|CONTEXT_DATA{|140|1|145|2|11|3|340|A|13|4|42|5|43|6|44|7|45|8|170|9|90|10|171|11|172|12|296|1|341|"
      "B|14|13|15|14|16|"
      "15|46|16|93|17|110|18|120|19|130|20|111|21|112|22|301|}");
  ASSERT_NE(record.context, nullptr);
  const DXF_LeaderContext& context = *record.context;
  EXPECT_EQ(context.arrowheadSize, 1.0);
  EXPECT_EQ(context.landingGap, 2.0);
  EXPECT_EQ(context.textNormal.x, 3.0);
  EXPECT_EQ(context.textStyleHandle, 10U);
  EXPECT_EQ(context.textDirection.x, 4.0);
  EXPECT_EQ(context.textRotation, 5.0);
  EXPECT_EQ(context.textWidth, 6.0);
  EXPECT_EQ(context.textBoxHeight, 7.0);
  EXPECT_EQ(context.lineSpacingFactor, 8.0);
  EXPECT_EQ(context.lineSpacingStyle, 9);
  EXPECT_EQ(context.textColor, 10);
  EXPECT_EQ(context.textAttachment, 11);
  EXPECT_EQ(context.flowDirection, 12);
  EXPECT_TRUE(context.hasBlock);
  EXPECT_EQ(context.blockHandle, 11U);
  EXPECT_EQ(context.blockNormal.x, 13.0);
  EXPECT_EQ(context.blockLocation.x, 14.0);
  EXPECT_EQ(context.blockScale.x, 15.0);
  EXPECT_EQ(context.blockRotation, 16.0);
  EXPECT_EQ(context.blockColor, 17);
  EXPECT_EQ(context.planeOrigin, (Coord{18, 19, 20}));
  EXPECT_EQ(context.planeX.x, 21.0);
  EXPECT_EQ(context.planeY.x, 22.0);
}

TEST(MLeaderRecord, TakesEveryGroupOfALeaderAndItsLine) {
  const auto record = Parsed<DXF_MLeader>(
      "300|{|302|{|291|1|11|1|271|2|304|{|170|3|92|4|171|5|40|6|340|A|341|B|305|}|303|}|301|}");
  ASSERT_NE(record.context, nullptr);
  ASSERT_EQ(record.context->leaders.size(), 1U);
  const DXF_Leader& leader = record.context->leaders[0];
  EXPECT_TRUE(leader.doglegSet);
  EXPECT_EQ(leader.doglegVector.x, 1.0);
  EXPECT_EQ(leader.attachmentDirection, 2);
  ASSERT_EQ(leader.lines.size(), 1U);
  EXPECT_EQ(leader.lines[0].type, 3);
  EXPECT_EQ(leader.lines[0].color, 4);
  EXPECT_EQ(leader.lines[0].lineWeight, 5);
  EXPECT_EQ(leader.lines[0].arrowheadSize, 6.0);
  EXPECT_EQ(leader.lines[0].lineTypeHandle, 10U);
  EXPECT_EQ(leader.lines[0].arrowheadHandle, 11U);
}

TEST(MLeaderRecord, KeepsABlockOpenUntilItsTextIsABrace) {
  EXPECT_EQ(Parsed<DXF_MLeader>("300|CONTEXT_DATA{|301|{|40|1").context, nullptr);
  const auto record = Parsed<DXF_MLeader>("300|CONTEXT_DATA{|303|}|40|5|301|}");
  ASSERT_NE(record.context, nullptr);
  EXPECT_EQ(record.context->contentScale, 5.0);
}

}  // namespace
